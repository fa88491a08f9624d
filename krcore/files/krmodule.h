// The record of a module and of where its resources come from.
#pragma once

#include <krcore/export.h>
#include <krcore/files/krfilename.h>
#include <krplatform/system/module.h>

/// Which module a component is, and which module its resources currently come from: its own, or a library loaded in its place. The record only
/// keeps the books: it does not change the platform's current resource module; clients pass `GetResourceHandle()` on.
///
///     CKrModule record(KrCore::GetModule());
///     record.LoadResource(OLESTR("C:\\plan\\texts_de.dll"));      owned by the record from now on
///     pool.AddMessageGroup(OLESTR("texts"), record.GetResourceHandle(), false, true);
///     record.RestoreResourceHandle();                            the library is freed
class KRCORE_API CKrModule
{
public:
    CKrModule();
    /// Module and resources in one.
    explicit CKrModule(HINSTANCE handle);
    CKrModule(HINSTANCE module, HINSTANCE resource);
    /// Deliberate: ownership is copied too, and both records would free the library; only one of them may own it in the end.
    CKrModule(CKrModule const & other);
    CKrModule & operator=(CKrModule const & other);
    /// Frees an owned resource library.
    virtual ~CKrModule();

    /// Frees an owned resource library, forgets the previous resources and sets both handles; always true.
    bool Init(HINSTANCE module, HINSTANCE resource);
    /// Makes other resources current, to be freed by this record if `own` is set; always true. The first resources that were given up are
    /// remembered, however many changes follow. Deliberate: also where they were just freed.
    bool ChangeResourceHandle(HINSTANCE resource, bool own);
    /// Restores, then loads a library and makes it current, owned. False where that fails; the record is restored then.
    bool LoadResource(CString const & fileName);
    /// Frees an owned resource library and goes back to the remembered resources, if there are any; always true.
    bool RestoreResourceHandle();

    HINSTANCE GetModuleHandleW() const noexcept { return m_module; }
    HINSTANCE GetResourceHandle() const noexcept { return m_resource; }
    // Of the module; empty for none.
    CKrFileName GetFileName() const;
    CString GetModuleName() const;
    CString GetPath() const;

private:
    void FreeOwned();

    HINSTANCE m_module = nullptr;
    HINSTANCE m_resource = nullptr;
    HINSTANCE m_previousResource = nullptr;
    bool m_owned = false;
};

namespace KrCore
{

/// The library's own record; ready before any code of a client runs.
KRCORE_API CKrModule & GetModule();

} // namespace KrCore
