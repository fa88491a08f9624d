// A dynamic library by its name.
#pragma once

#include <krcore/export.h>
#include <krcore/files/krfilename.h>
#include <krplatform/system/module.h>

/// Names a dynamic library, and loads, asks and unloads it. The object holds nothing but the name: the system's count of a library is the
/// only one, and destroying the object unloads nothing.
///
///     CKrDLL library(CKrFileName(OLESTR("libplan.so"), false));
///     library.LoadDLL(false);                              found by the system's search
///     library.HasFullPathName()                            -> true: it knows its place now
///     auto const plan = reinterpret_cast<int (*)(int)>(library.GetFuncAddress(OLESTR("plan")));
///     library.UnloadDLL();
class KRCORE_API CKrDLL
{
public:
    CKrDLL();
    /// A directory name leaves the object empty; a name without a drive loses its dir, so that the system searches.
    explicit CKrDLL(CKrFileName const & name);
    /// The full name of a loaded module (at the most 511 characters); empty where that fails. Nothing is thrown.
    explicit CKrDLL(HINSTANCE module);
    CKrDLL(CKrDLL const & other);
    /// Deliberate: takes the name only of the object itself, and so never changes anything.
    virtual CKrDLL & operator=(CKrDLL const & other);
    virtual ~CKrDLL();

    CKrFileName GetDLLName() const { return m_name; }
    bool HasFullPathName() const { return !m_name.GetPath(true).IsEmpty(); }
    /// There is a base name and, if there is a path, the file exists.
    bool IsValid() const;
    /// A library of that base name is loaded, from wherever.
    bool IsMapped() const;
    /// A library of that base name is loaded and its full name is not this one. Deliberate: true for every loaded library if this is a bare
    /// name.
    bool IsMappedFromOtherPath() const;
    /// For subclasses to tell; false here.
    virtual bool IsUsed() const;
    /// The loaded library of the full name, or null.
    HINSTANCE GetDLLHandle() const;
    /// A symbol of the loaded library, which the caller casts. Null, with a trace line that names the library, if it is not loaded or has no
    /// such symbol.
    virtual FARPROC GetFuncAddress(CString const & name) const;
    /// Loads the library; with `alteredSearchPath` and a path, the libraries that it needs are sought beside it. The name is then the full
    /// one. False where that fails.
    bool LoadDLL(bool alteredSearchPath);
    /// Takes one off the system's count; false if the library is not loaded.
    bool UnloadDLL();

private:
    void TraceNotMapped(long line) const;

    CKrFileName m_name;
};
