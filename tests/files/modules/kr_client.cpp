// A client of the library that uses it as early as it can.
#include <krcore/files/krmodule.h>

namespace
{

CString const s_path = KrCore::GetModule().GetFileName();
HINSTANCE const s_resources = KrCore::GetModule().GetResourceHandle();

} // namespace

/// Whether the record knew itself when this module was loaded.
extern "C" int KrTestIsReady()
{
    CKrModule const & record = KrCore::GetModule();
    return s_resources && s_resources == record.GetModuleHandleW() && !s_path.IsEmpty() &&
           s_path == record.GetFileName();
}

extern "C" CKrModule const * KrTestRecord;
CKrModule const * KrTestRecord = &KrCore::GetModule();
