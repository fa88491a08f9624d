// Named files in groups.
#pragma once

#include <krcore/export.h>
#include <krcore/files/krnamedfile.h>
#include <krcore/files/krpathmanager.h>

#include <map>
#include <memory>
#include <vector>

/// Gives names to the files of a program, in groups. A relative file is completed with the directory that the path manager holds under the
/// name of the group. Fixed entries are set up by the program; user entries may be overridden or removed. An empty group name
/// stands for "#NO_GROUP#"; a group exists while it has an entry; case counts.
///
///     CKrFileNameManager files(new MyPaths);          "doc" is C:\p there
///     files.AddFileName(OLESTR("help"), CKrFileName(OLESTR("sub\\a.txt"), false), false, OLESTR("doc"));
///     files.GetFullFileName(OLESTR("help"), OLESTR("doc")).GetFullName(true)          -> "C:\p\sub\a.txt"
///
/// Failures answer false or an empty name. Deliberate: `GetFullFileName` asks the path manager for the group name as it is given, empty
/// included.
class KRCORE_API CKrFileNameManager
{
public:
    explicit CKrFileNameManager(CKrFileName const & root);
    /// Takes the path manager; one that is null must not be asked for full names.
    explicit CKrFileNameManager(CKrPathmanager * manager);
    /// Copies the entries, and the path manager by its `Clone`. There is no assignment.
    CKrFileNameManager(CKrFileNameManager const & other);
    CKrFileNameManager & operator=(CKrFileNameManager const & other) = delete;
    virtual ~CKrFileNameManager();

    /// Lent; the manager keeps it.
    CKrPathmanager * GetPathmanager() const noexcept { return m_pathmanager.get(); }
    /// Takes the path manager in place of the old one, which is destroyed. The one it holds already has no effect.
    void SetPathmanager(CKrPathmanager * manager);

    /// False if the key is in the group already.
    bool AddFileName(CString const & key, CKrFileName const & file, bool user, CString const & group);
    /// With `user` stores a user entry in place of any other; without, a fixed one under a new key only.
    void SetFileName(CString const & key, CKrFileName const & file, bool user, CString const & group);
    /// Stores a user entry, unless the key is a fixed one.
    void SetUserFileName(CString const & key, CKrFileName const & file, CString const & group);
    /// The name as it was given; empty for a missing key.
    CKrFileName GetFileName(CString const & key, CString const & group) const;
    /// The name with the group's directory in front, unless it has a drive; for a missing key the directory alone.
    CKrFileName GetFullFileName(CString const & key, CString const & group) const;
    bool HasFileName(CString const & key, CString const & group) const;
    /// Removes a user entry; false for a fixed or a missing one.
    bool RemoveFileName(CString const & key, CString const & group);
    /// Removes the group with all entries, fixed ones too.
    bool RemoveFileNameGroup(CString const & group);
    /// False if the new group is there or the old one is missing; true for equal names, whether there is such a group or not.
    bool RenameFileNameGroup(CString const & oldName, CString const & newName);
    /// Always true.
    bool Clear();
    /// Appends group, key and full name of every entry, in the order of groups and keys; always true. Deliberate: the path manager is asked
    /// for "#NO_GROUP#" here.
    bool GetContent(std::vector<CString> & groups, std::vector<CString> & keys, std::vector<CKrFileName> & files) const;
    /// The full names alone.
    bool GetAllFileNames(std::vector<CKrFileName> & files) const;

protected:
    /// With an empty path manager of its own.
    CKrFileNameManager();
    /// Takes the entries of `other` in place of its own; the path manager stays.
    void CopyFileNames(CKrFileNameManager const & other);
    static CString ConvertGroupName(CString const & group);

private:
    using Group = std::map<CString, kr::detail::NamedFile>;

    kr::detail::NamedFile const * Find(CString const & key, CString const & group) const;
    void Store(CString const & key, CKrFileName const & file, bool user, CString const & group);

    std::unique_ptr<CKrPathmanager> m_pathmanager;
    std::map<CString, Group> m_groups;
};
