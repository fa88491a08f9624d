// A dynamic library by its name.
#pragma once

#include <krcore/export.h>
#include <krcore/files/krfilename.h>
#include <krplatform/system/module.h>

/// Names a dynamic library, and loads, asks and unloads it. The object holds nothing but the name: the system's count of loads is the
/// only one, and destroying the object unloads nothing.
///
///     CKrDLL library(CKrFileName(OLESTR("libplan.so"), false));
///     library.LoadDLL(false);                              found by the system's search
///     library.HasFullPathName()                            -> true: it knows its place now
///     FARPROC const count = library.GetFuncAddress(OLESTR("CountPlans"));
///     library.UnloadDLL();
class KRCORE_API CKrDLL
{
public:
    CKrDLL();
    /// A directory name leaves the object empty; a name without a drive loses its dir, so that the system searches. On POSIX systems a path
    /// from the root has its drive in the spelling with two slashes, `//opt/plan/libplan.so`.
    explicit CKrDLL(CKrFileName const & name);
    /// The full name of a loaded module; null means the program. Empty for no module, for a name of 512 characters and more, and for want of
    /// memory. Nothing is thrown.
    explicit CKrDLL(HINSTANCE module);
    CKrDLL(CKrDLL const & other);
    virtual ~CKrDLL();
    /// Deliberate: takes the name only of the object itself, and so never changes anything.
    virtual CKrDLL & operator=(CKrDLL const & other);

    CKrFileName GetDLLName() const { return m_name; }
    bool HasFullPathName() const { return !m_name.GetPath(true).IsEmpty(); }
    /// There is a base name and, if there is a path, the file exists.
    bool IsValid() const;
    /// The name is valid, and a library of its base name is loaded, from wherever.
    bool IsMapped() const;
    /// A library of the base name is loaded, and its full name is not this one, case ignored. Deliberate: true for every loaded library if
    /// this is a bare name.
    bool IsMappedFromOtherPath() const;
    /// For subclasses to tell; false here.
    virtual bool IsUsed() const;
    /// The loaded library of the full name; null if the name is not valid or not loaded. The count does not change.
    HINSTANCE GetDLLHandle() const;
    /// A symbol of the loaded library, by its name in the process code page, for the caller to cast. Null, with a line in the trace, if the
    /// library is not loaded or has no such symbol. Nothing is thrown. Deliberate: the line names the library in both cases.
    virtual FARPROC GetFuncAddress(CString const & name) const;
    /// Loads the library once more; with `alteredSearchPath` and a path, the libraries that it needs are sought beside it. The name becomes
    /// the full one. Where that fails the result is false, the name stays and nothing is loaded.
    bool LoadDLL(bool alteredSearchPath);
    /// Takes one load off the system's count; false if the library is not loaded.
    bool UnloadDLL();

private:
    friend class CKrModule; // loads resources, and keeps the handle

    HINSTANCE Load(bool alteredSearchPath);
    void TraceNotMapped(long line) const;

    CKrFileName m_name;
};
