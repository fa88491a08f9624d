#include <krcore/files/krdll.h>

#include <krcore/diagnostics/krtrace.h>
#include <krplatform/base/cexception.h>

namespace
{

/// Whatever is thrown ends here.
template <class Operation>
void RunWithoutThrowing(Operation operation) noexcept
{
    try
    {
        operation();
    }
    catch (CException * exception)
    {
        exception->Delete();
    }
    catch (...)
    {
    }
}

} // namespace

CKrDLL::CKrDLL() = default;

CKrDLL::CKrDLL(CKrFileName const & name)
{
    if (name.IsDirName())
        return;
    m_name = name;
    if (name.HasRelativePath())
        m_name.SetPath(CString());
}

CKrDLL::CKrDLL(HINSTANCE module)
{
    RunWithoutThrowing(
        [&]
        {
            constexpr DWORD size = 512;
            WCHAR path[size];
            DWORD const length = GetModuleFileNameW(module, path, size);
            if (length > 0 && length < size) // a name that was cut would be another file's
                m_name = CKrFileName(CString(path, static_cast<int>(length)), false);
        });
}

CKrDLL::CKrDLL(CKrDLL const & other) = default;

CKrDLL::~CKrDLL() = default;

CKrDLL & CKrDLL::operator=(CKrDLL const & other)
{
    if (this == &other)
        m_name = other.m_name;
    return *this;
}

bool CKrDLL::IsValid() const
{
    if (m_name.GetBaseName().IsEmpty())
        return false;
    return !HasFullPathName() || m_name.IsExisting();
}

bool CKrDLL::IsMapped() const { return IsValid() && GetModuleHandleW(m_name.GetBaseName()) != nullptr; }

bool CKrDLL::IsMappedFromOtherPath() const
{
    if (m_name.GetBaseName().IsEmpty())
        return false;
    HINSTANCE const module = GetModuleHandleW(m_name.GetBaseName());
    return module && !CKrDLL(module).m_name.IsEqual(m_name);
}

bool CKrDLL::IsUsed() const { return false; }

HINSTANCE CKrDLL::GetDLLHandle() const { return IsValid() ? GetModuleHandleW(m_name.GetFullName(true)) : nullptr; }

void CKrDLL::TraceNotMapped(long line) const
{
    CKrTrace::GetObjectW(true)->Trace(m_name.GetFullName(true) + OLESTR(" not mapped"), OLESTR("krdll"), line);
}

FARPROC CKrDLL::GetFuncAddress(CString const & name) const
{
    FARPROC address = nullptr;
    RunWithoutThrowing(
        [&]
        {
            HINSTANCE const module = GetDLLHandle();
            if (module)
                address = GetProcAddress(module, CStringA(name));
            if (!address)
                TraceNotMapped(module ? 281 : 270);
        });
    return address;
}

/// The handle of what was loaded; null, with nothing changed, where that fails.
HINSTANCE CKrDLL::Load(bool alteredSearchPath)
{
    if (!IsValid())
        return nullptr;
    CString const name = m_name.GetFullName(true);
    HINSTANCE const module = alteredSearchPath && HasFullPathName()
                                 ? LoadLibraryExW(name, nullptr, LOAD_WITH_ALTERED_SEARCH_PATH)
                                 : AfxLoadLibrary(name);
    if (!module)
        return nullptr;
    CKrDLL const loaded(module);
    if (loaded.m_name.GetBaseName().IsEmpty())
    {
        AfxFreeLibrary(module);
        return nullptr;
    }
    m_name = loaded.m_name;
    return module;
}

bool CKrDLL::LoadDLL(bool alteredSearchPath) { return Load(alteredSearchPath) != nullptr; }

bool CKrDLL::UnloadDLL()
{
    HINSTANCE const module = GetDLLHandle();
    return module && AfxFreeLibrary(module);
}
