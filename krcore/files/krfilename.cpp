// The four parts: taking them apart and putting them together.
#include <krcore/files/krfilename.h>

#include <algorithm>
#include <span>

using kr::detail::TextView;

namespace
{

CString TextOf(TextView view) { return {view.data(), static_cast<int>(view.size())}; }

CString WithBackslashes(CString text)
{
    if (text.Find(OLESTR('/')) >= 0) // most names have none, and finding is faster than counting
        text.Replace(OLESTR('/'), OLESTR('\\'));
    return text;
}

TextView WithoutTrailingBackslashes(TextView text) { return text.substr(0, text.find_last_not_of(OLESTR('\\')) + 1); }

TextView WithoutLeadingBackslashes(TextView text)
{
    return text.substr(std::min(text.find_first_not_of(OLESTR('\\')), text.size()));
}

/// Whether there is a "\.\" or a double `\`.
bool NeedsFolding(TextView dir)
{
    for (std::size_t index = 0; index + 1 < dir.size(); ++index)
    {
        if (dir[index] != OLESTR('\\'))
            continue;
        TextView const next = dir.substr(index + 1);
        if (next.starts_with(OLESTR('\\')) || next.starts_with(OLESTR(".\\")))
            return true;
    }
    return false;
}

/// Whether a joined dir is stored as it stands when it is read once more. Cleaning may have left what a setter would not.
bool ReadsBackAsItIs(TextView dir)
{
    return dir.find_first_of(OLESTR(":/")) == dir.npos && !dir.ends_with(OLESTR('\\')) && !NeedsFolding(dir);
}

// The stored forms. `text` has no slashes any more.

CString StoredDrive(TextView text)
{
    return TextOf(text.starts_with(OLESTR('\\')) ? text : WithoutTrailingBackslashes(text));
}

CString StoredDir(TextView text)
{
    TextView const trimmed = WithoutTrailingBackslashes(text);
    if (trimmed.empty())
        return CString();
    CString dir = trimmed.starts_with(OLESTR('\\')) ? TextOf(trimmed) : OLESTR('\\') + TextOf(trimmed);
    if (NeedsFolding(dir.View()))
    {
        dir.Replace(OLESTR("\\.\\"), OLESTR("\\"));
        dir.Replace(OLESTR("\\\\"), OLESTR("\\"));
    }
    return dir;
}

CString StoredExt(TextView text) { return TextOf(text.substr(text.rfind(OLESTR('.')) + 1)); }

/// All pieces as one text.
CString Joined(std::span<TextView const> pieces)
{
    std::size_t length = 0;
    for (TextView const piece : pieces)
        length += piece.size();
    if (length == 0)
        return CString();
    CString text;
    WCHAR * end = text.GetBuffer(static_cast<int>(length));
    for (TextView const piece : pieces)
        end = std::ranges::copy(piece, end).out;
    text.ReleaseBufferSetLength(static_cast<int>(length));
    return text;
}

} // namespace

CKrFileName::CKrFileName() = default;

CKrFileName::CKrFileName(CString const & name, bool isPath)
{
    CString const text = WithBackslashes(name);
    TextView const view = text.View();
    std::size_t const last = isPath ? view.size() : view.rfind(OLESTR('\\'));
    if (last != view.npos)
    {
        TextView const path = view.substr(0, last);
        ReadPath(path, path.starts_with(OLESTR("\\\\")));
    }
    if (!isPath)
        ReadName(view.substr(last + 1));
}

CKrFileName::CKrFileName(CKrFileName const & other) = default;

CKrFileName::CKrFileName(CKrFileName && other) noexcept = default;

CKrFileName & CKrFileName::operator=(CKrFileName const & other) = default;

CKrFileName & CKrFileName::operator=(CKrFileName && other) noexcept = default;

CKrFileName::~CKrFileName() = default;

void CKrFileName::SetDrive(CString const & drive) { m_drive = StoredDrive(WithBackslashes(drive).View()); }

void CKrFileName::SetDir(CString const & dir) { m_dir = StoredDir(WithBackslashes(dir).View()); }

void CKrFileName::SetBaseName(CString const & baseName)
{
    CString const text = WithBackslashes(baseName);
    m_baseName = TextOf(WithoutLeadingBackslashes(WithoutTrailingBackslashes(text.View())));
}

void CKrFileName::SetExt(CString const & ext) { m_ext = StoredExt(ext.View()); }

void CKrFileName::SetName(CString const & name)
{
    CString const text = WithBackslashes(name);
    ReadName(text.View().substr(text.View().rfind(OLESTR('\\')) + 1));
}

void CKrFileName::SetPath(CString const & path)
{
    TextView const given = path.View();
    CString const text = WithBackslashes(path);
    ReadPath(text.View(), given.starts_with(OLESTR("\\\\")) || given.starts_with(OLESTR("//")));
}

/// `isUnc` tells of a path without a colon whether its first character is the drive. Nothing changes when memory runs out.
void CKrFileName::ReadPath(TextView path, bool isUnc)
{
    std::size_t colon = path.find(OLESTR(':'));
    if (colon == path.npos && isUnc)
        colon = 1;
    CString drive = colon == path.npos ? CString() : StoredDrive(path.substr(0, colon));
    m_dir = StoredDir(path.substr(colon + 1));
    m_drive.swap(drive);
}

/// Nothing changes when memory runs out.
void CKrFileName::ReadName(TextView name)
{
    std::size_t const point = std::min(name.rfind(OLESTR('.')), name.size());
    CString baseName = TextOf(name.substr(0, point));
    m_ext = TextOf(name.substr(std::min(point + 1, name.size())));
    m_baseName.swap(baseName);
}

CKrFileName::Pieces CKrFileName::PiecesOf(bool trailing) const noexcept
{
    bool const hasPath = !m_drive.IsEmpty() || !m_dir.IsEmpty();
    bool const hasLetter = !m_drive.IsEmpty() && m_drive.View() != OLESTR("\\");
    bool const hasBoth = !m_baseName.IsEmpty() && !m_ext.IsEmpty();
    return {m_drive.View(),
            hasLetter ? OLESTR(":") : OLESTR(""),
            m_dir.View(),
            trailing && hasPath ? OLESTR("\\") : OLESTR(""),
            m_baseName.View(),
            hasBoth ? OLESTR(".") : OLESTR(""),
            hasBoth ? m_ext.View() : TextView()};
}

CString CKrFileName::GetName() const
{
    Pieces const pieces = PiecesOf(false);
    return Joined(std::span(pieces).last(3));
}

CString CKrFileName::GetPath(bool trailing) const
{
    Pieces const pieces = PiecesOf(trailing);
    return Joined(std::span(pieces).first(4));
}

CString CKrFileName::GetFullName(bool trailing) const { return Joined(PiecesOf(trailing || !m_baseName.IsEmpty())); }

bool CKrFileName::IsRelativeToPath(CString const & base) const
{
    CString const path = GetPath(true);
    CString const basePath = CKrFileName(base, true).GetPath(true);
    return path.Left(basePath.GetLength()).MakeUpper() == CString(basePath).MakeUpper();
}

CString CKrFileName::GetRelativePath(CString const & base, bool trailing) const
{
    CString const path = GetPath(trailing);
    if (!IsRelativeToPath(base))
        return path;
    return path.Mid(CKrFileName(base, true).GetPath(true).GetLength());
}

CString CKrFileName::GetRelativeFileName(CString const & base) const
{
    return IsDirName() ? CString() : GetRelativePath(base, true) + GetName();
}

void CKrFileName::AppendDir(CString const & path) { SetDir(m_dir + CKrFileName(path, true).m_dir); }

void CKrFileName::InsertDir(CString const & path) { SetDir(CKrFileName(path, true).m_dir + m_dir); }

void CKrFileName::InsertPath(CString const & path) { SetPath(CKrFileName(path, true).GetPath(false) + m_dir); }

CKrFileName CKrFileName::operator+(CKrFileName const & right) const
{
    TextView const dirs[] = {m_dir.View(), right.m_dir.View()};
    CString dir = Joined(dirs);
    CKrFileName joined;
    joined.m_baseName = right.m_baseName;
    joined.m_ext = right.m_ext;
    if (!dir.IsEmpty() && m_drive.Find(OLESTR(':')) < 0 && ReadsBackAsItIs(dir.View())) // and need not be read again
    {
        joined.m_drive = m_drive;
        joined.m_dir.swap(dir);
    }
    else
    {
        joined.m_dir = right.m_dir;
        joined.InsertPath(GetPath(true));
    }
    return joined;
}
