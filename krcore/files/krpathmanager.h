// The standard directories of an installation.
#pragma once

#include <krcore/export.h>
#include <krcore/files/krnamedfile.h>

#include <map>

/// A table from a key to a directory, and a root. It only stores what it is told: nothing is searched for, and no directory is made from the
/// root. A subclass fills it by `SetPath`; users change entries by `SetUserPath`. Case counts in keys; a key that is missing
/// gives an empty name.
class KRCORE_API CKrPathmanager
{
public:
    CKrPathmanager();
    explicit CKrPathmanager(CKrFileName const & root);
    CKrPathmanager(CKrPathmanager const & other);
    CKrPathmanager & operator=(CKrPathmanager const & other);
    virtual ~CKrPathmanager();
    /// A copy, owned by the caller. A subclass gives one of its own type.
    virtual CKrPathmanager * Clone() const;

    CKrFileName GetPath(CString const & key) const;
    CKrFileName GetBinPath() const { return GetPath(OLESTR("bin")); }
    CKrFileName GetDllPath() const { return GetPath(OLESTR("dll")); }
    CKrFileName GetDocPath() const { return GetPath(OLESTR("doc")); }
    CKrFileName GetLogPath() const { return GetPath(OLESTR("log")); }
    CKrFileName GetXmlPath() const { return GetPath(OLESTR("xml")); }
    CKrFileName GetTmpPath() const { return GetPath(OLESTR("tmp")); }
    CKrFileName GetRootPath() const { return m_root; }
    /// The root: the two are one value.
    CKrFileName GetWorkPath() const { return m_root; }
    void SetRootPath(CKrFileName const & root) { m_root = root; }
    /// Sets or replaces a user entry; a fixed one stays.
    void SetUserPath(CString const & key, CKrFileName const & path);

protected:
    /// Sets or replaces any entry.
    void SetPath(CString const & key, CKrFileName const & path, bool user);

private:
    CKrFileName m_root;
    std::map<CString, kr::detail::NamedFile> m_paths;
};
