// File and directory names as values.
#pragma once

#include <krcore/export.h>
#include <krplatform/text/cstring.h>

#include <array>

/// A file or directory name as drive, dir, base name and ext, in Windows path syntax on every system; `/` is read as `\`. Case is
/// kept. Equality ignores it; deliberate: `<` does not.
///
///     CKrFileName name(OLESTR("C:/a/b.txt"), false);
///     name.GetDrive(), GetDir(), GetBaseName(), GetExt()     -> "C", "\a", "b", "txt"
///     name.GetFullName(true)                                 -> "C:\a\b.txt"
///     CKrFileName(OLESTR("C:\\a"), true).IsDirName()         -> true
///     name == CKrFileName(OLESTR("c:\\A\\B.TXT"), false)     -> true
///     CKrFileName(OLESTR("//srv/x"), true).GetDrive()        -> "\": a UNC name, on POSIX systems the path /srv/x
///
/// Setters take any text and store it in the forms told there. When memory runs out `CMemoryException *` is thrown, and the name
/// stays as it was. Only the questions of existence touch the file system; a name that is not there answers false.
class KRCORE_API CKrFileName
{
public:
    CKrFileName();
    /// With `isPath` the whole is a path; otherwise what follows the last `\` is the name.
    CKrFileName(CString const & name, bool isPath);
    CKrFileName(CKrFileName const & other);
    CKrFileName(CKrFileName && other) noexcept;
    CKrFileName & operator=(CKrFileName const & other);
    CKrFileName & operator=(CKrFileName && other) noexcept;
    virtual ~CKrFileName();

    /// The drive without ":", or "\" for a UNC name.
    void SetDrive(CString const & drive);
    /// Stored with one leading `\` and no trailing one. "\.\" and double `\` are folded in one pass; `..` is never resolved.
    void SetDir(CString const & dir);
    /// Without any leading or trailing `\`.
    void SetBaseName(CString const & baseName);
    /// What follows the last ".", or the whole without one.
    void SetExt(CString const & ext);
    /// Base name and ext of what follows the last `\`, parted at the last ".": "archive.tar.gz" is "archive.tar" and "gz".
    void SetName(CString const & name);
    /// Drive and dir. What stands before the first ":" is the drive; two leading `\` or `/` mean a UNC name.
    void SetPath(CString const & path);

    CString GetDrive() const { return m_drive; }
    CString GetDir() const { return m_dir; }
    CString GetBaseName() const { return m_baseName; }
    CString GetExt() const { return m_ext; }
    /// Base name and ext. Deliberate: empty for a value with only an ext.
    CString GetName() const;
    /// Drive and dir, with a `\` at the end if `trailing` is set and either is there.
    CString GetPath(bool trailing) const;
    /// Path and name. `trailing` counts only for a value without a name.
    CString GetFullName(bool trailing) const;
    operator CString() const { return GetFullName(true); }
    /// The path below `base`, case ignored, or the whole path where it does not lie there. An empty base contains everything.
    CString GetRelativePath(CString const & base, bool trailing) const;
    /// The same with the name behind it; empty for a directory name.
    CString GetRelativeFileName(CString const & base) const;

    /// The drive is empty.
    bool HasRelativePath() const { return m_drive.IsEmpty(); }
    /// Base name and ext are both empty.
    bool IsDirName() const { return m_baseName.IsEmpty() && m_ext.IsEmpty(); }
    bool IsFileName() const { return !IsDirName(); }
    /// Whether this path lies at or below `base`, case ignored.
    bool IsRelativeToPath(CString const & base) const;

    // Building. Each argument is read as a path.
    /// Appends its dir; its drive is ignored.
    void AppendDir(CString const & path);
    /// Puts its dir in front of this one.
    void InsertDir(CString const & path);
    /// Puts drive and dir in front of this dir. A drive of this value is lost if the argument has none.
    void InsertPath(CString const & path);
    /// `right` below this path; the name of this value plays no part.
    CKrFileName operator+(CKrFileName const & right) const;

    // Comparisons ignore case. Those that take text compare it as it stands with the stored form.
    bool operator==(CKrFileName const & other) const { return IsEqual(other); }
    bool IsEqual(CKrFileName const & other) const;
    /// With the text read as a file name.
    bool IsEqual(CString const & name) const;
    bool HasEqualDrive(CKrFileName const & other) const { return IsEqualDrive(other.m_drive); }
    bool HasEqualDir(CKrFileName const & other) const { return IsEqualDir(other.m_dir); }
    bool HasEqualBaseName(CKrFileName const & other) const { return IsEqualBaseName(other.m_baseName); }
    bool HasEqualExt(CKrFileName const & other) const { return IsEqualExt(other.m_ext); }
    bool HasEqualName(CKrFileName const & other) const { return IsEqualName(other.GetName()); }
    bool HasEqualPath(CKrFileName const & other) const { return IsEqualPath(other.GetPath(true)); }
    bool IsEqualDrive(CString const & drive) const { return HaveEqualText(m_drive, drive); }
    bool IsEqualDir(CString const & dir) const { return HaveEqualText(m_dir, dir); }
    bool IsEqualBaseName(CString const & baseName) const { return HaveEqualText(m_baseName, baseName); }
    bool IsEqualExt(CString const & ext) const { return HaveEqualText(m_ext, ext); }
    bool IsEqualName(CString const & name) const { return HaveEqualText(GetName(), name); }
    bool IsEqualPath(CString const & path) const { return HaveEqualText(GetPath(true), path); }
    /// Deliberate: by the full names with case, so that equal values may be less than each other.
    bool operator<(CKrFileName const & other) const;
    /// Deliberate: the negation of `<`, so that a value is greater than itself.
    bool operator>(CKrFileName const & other) const { return !(*this < other); }

    /// A directory of that path for a directory name, otherwise a file (or directory) of that name.
    bool IsExisting() const;
    /// A directory of that path, also for a file name.
    bool IsExistingPath() const;
    /// Whether someone else holds the file exclusively. False for a directory name and for a file that is not there.
    bool IsAlreadyOpen() const;

    /// Replaces the characters that no file name may hold, in dir, base name and ext; the dir keeps its `\`. 0 removes them. Always
    /// true.
    bool ReplaceInvalidChar(WCHAR replacement);
    /// The same with the characters that addresses of the web reserve.
    bool ReplaceReservedUrlChar(WCHAR replacement);

private:
    /// Drive, ":", dir, `\`, base name, "." and ext, of which some are empty.
    using Pieces = std::array<kr::detail::TextView, 7>;

    Pieces PiecesOf(bool trailing) const noexcept;
    void ReadPath(kr::detail::TextView path, bool isUnc);
    void ReadDir(kr::detail::TextView text);
    void ReadName(kr::detail::TextView name);
    void ReplaceIn(kr::detail::TextView everywhere, kr::detail::TextView inNamesOnly, WCHAR replacement);

    static bool HaveEqualText(CString const & left, CString const & right) noexcept
    {
        return left.GetLength() == right.GetLength() && (left == right || left.CompareNoCase(right) == 0);
    }

    CString m_drive;
    CString m_dir;
    CString m_baseName;
    CString m_ext;
    bool m_dirReadsBack = true; ///< the dir is known to be stored as it stands when it is read once more
};
