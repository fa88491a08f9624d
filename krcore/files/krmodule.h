// The record of a module and of where its resources come from.
#pragma once

#include <krcore/export.h>
#include <krcore/files/krfilename.h>
#include <krplatform/system/module.h>

/// Which module a component is, and which module its resources currently come from: its own, or a library loaded in its place. The record only
/// keeps the books: it does not change the platform's current resource module; clients pass `GetResourceHandle()` on.
///
///     CKrModule record(GetModuleHandleW(OLESTR("libplan.so")));
///     record.LoadResource(OLESTR("//opt/plan/libplan_de.so"));        owned by the record from now on
///     CKrMessagePool::LoadResourceString(100, record.GetResourceHandle(), text);
///     record.RestoreResourceHandle();                                 libplan_de.so is freed
class KRCORE_API CKrModule
{
public:
    CKrModule();
    /// Module and resources in one.
    explicit CKrModule(HINSTANCE handle);
    CKrModule(HINSTANCE module, HINSTANCE resource);
    /// Deliberate: ownership is copied too, and both records free the library; the caller sees to it that one of them restored before.
    CKrModule(CKrModule const & other);
    /// Deliberate: ownership is copied too, and what this record owned is not freed.
    CKrModule & operator=(CKrModule const & other);
    /// Frees an owned resource library.
    virtual ~CKrModule();

    /// Frees an owned resource library, forgets the previous resources and sets both handles; always true.
    bool Init(HINSTANCE module, HINSTANCE resource);
    /// Frees an owned resource library and makes other resources current, to be freed by this record if `own` is set; always true. The first
    /// resources that were given up are remembered, however many changes follow. Deliberate: also where they were just freed.
    bool ChangeResourceHandle(HINSTANCE resource, bool own);
    /// Restores, then loads a library (by its path what it needs is sought beside it) and makes it current, owned. False where that fails;
    /// the record is restored then.
    bool LoadResource(CString const & fileName);
    /// Frees an owned resource library and goes back to the remembered resources; always true. Deliberate: where none are remembered the
    /// handle stays, also of what was freed.
    bool RestoreResourceHandle();

    HINSTANCE GetModuleHandleW() const noexcept { return m_module; }
    HINSTANCE GetResourceHandle() const noexcept { return m_resource; }
    // Of the module; empty for none.
    /// The full name.
    CKrFileName GetFileName() const;
    /// The base name, without path and ext.
    CString GetModuleName() const;
    /// The path, with a `\` at the end.
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
