// The four parts: taking them apart and putting them together.
#include <krcore/files/krfilename.h>

#include <krplatform/text/joinedtext.h>
#include <krplatform/text/textsearch.h>

#include <algorithm>

using kr::detail::JoinedText;
using kr::detail::TextView;

namespace
{

CString TextOf(TextView view) { return {view.data(), static_cast<int>(view.size())}; }

bool Holds(TextView text, WCHAR unit) { return kr::detail::FindUnit(text, unit, 0) != kr::detail::notFound; }

/// A text with `\` for each `/`. Most names have none and are read where they are, as long as the given text lasts.
class Backslashed
{
public:
    explicit Backslashed(CString const & text) : m_view(text.View())
    {
        if (!Holds(m_view, OLESTR('/')))
            return;
        m_changed = text;
        m_changed.Replace(OLESTR('/'), OLESTR('\\'));
        m_view = m_changed.View();
    }
    TextView View() const { return m_view; }

private:
    CString m_changed;
    TextView m_view;
};

TextView WithoutTrailingBackslashes(TextView text) { return text.substr(0, text.find_last_not_of(OLESTR('\\')) + 1); }

TextView WithoutLeadingBackslashes(TextView text)
{
    return text.substr(std::min(text.find_first_not_of(OLESTR('\\')), text.size()));
}

/// Whether a dir, which does not end in `\`, is stored as it stands when it is read once more: without ":", "/", "\.\" or a double `\`.
bool ReadsBackAsItIs(TextView dir)
{
    for (std::size_t index = 0; index < dir.size(); ++index)
    {
        WCHAR const unit = dir[index];
        if (unit > OLESTR('\\')) // which most are
            continue;
        if (unit == OLESTR(':') || unit == OLESTR('/'))
            return false;
        TextView const next = dir.substr(index + 1);
        if (unit == OLESTR('\\') && (next.starts_with(OLESTR('\\')) || next.starts_with(OLESTR(".\\"))))
            return false;
    }
    return true;
}

// The stored forms. `text` has no slashes any more.

CString StoredDrive(TextView text)
{
    return TextOf(text.starts_with(OLESTR('\\')) ? text : WithoutTrailingBackslashes(text));
}

CString StoredExt(TextView text) { return TextOf(text.substr(text.rfind(OLESTR('.')) + 1)); }

} // namespace

CKrFileName::CKrFileName() = default;

CKrFileName::CKrFileName(CString const & name, bool isPath)
{
    Backslashed const text(name);
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

void CKrFileName::SetDrive(CString const & drive) { m_drive = StoredDrive(Backslashed(drive).View()); }

void CKrFileName::SetDir(CString const & dir) { ReadDir(Backslashed(dir).View()); }

void CKrFileName::SetBaseName(CString const & baseName)
{
    Backslashed const text(baseName);
    m_baseName = TextOf(WithoutLeadingBackslashes(WithoutTrailingBackslashes(text.View())));
}

void CKrFileName::SetExt(CString const & ext) { m_ext = StoredExt(ext.View()); }

void CKrFileName::SetName(CString const & name)
{
    Backslashed const text(name);
    ReadName(text.View().substr(text.View().rfind(OLESTR('\\')) + 1));
}

void CKrFileName::SetPath(CString const & path)
{
    TextView const given = path.View();
    Backslashed const text(path);
    ReadPath(text.View(), given.starts_with(OLESTR("\\\\")) || given.starts_with(OLESTR("//")));
}

/// `isUnc` tells of a path without a colon whether its first character is the drive. Nothing changes when memory runs out.
void CKrFileName::ReadPath(TextView path, bool isUnc)
{
    std::size_t colon = path.find(OLESTR(':'));
    if (colon == path.npos && isUnc)
        colon = 1;
    CString drive = colon == path.npos ? CString() : StoredDrive(path.substr(0, colon));
    ReadDir(path.substr(colon + 1));
    m_drive.swap(drive);
}

/// Nothing changes when memory runs out.
void CKrFileName::ReadDir(TextView text)
{
    TextView const trimmed = WithoutTrailingBackslashes(text);
    bool const isLed = trimmed.empty() || trimmed.starts_with(OLESTR('\\'));
    CString dir = isLed ? TextOf(trimmed) : OLESTR('\\') + TextOf(trimmed);
    bool readsBack = ReadsBackAsItIs(dir.View());
    if (!readsBack)
    {
        dir.Replace(OLESTR("\\.\\"), OLESTR("\\"));
        dir.Replace(OLESTR("\\\\"), OLESTR("\\"));
        readsBack = ReadsBackAsItIs(dir.View());
    }
    m_dir.swap(dir);
    m_dirReadsBack = readsBack;
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
    return JoinedText(std::span(pieces).last(3));
}

CString CKrFileName::GetPath(bool trailing) const
{
    Pieces const pieces = PiecesOf(trailing);
    return JoinedText(std::span(pieces).first(4));
}

CString CKrFileName::GetFullName(bool trailing) const
{
    return JoinedText(PiecesOf(trailing || !m_baseName.IsEmpty()));
}

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
    CKrFileName joined(right);
    // Mostly the dirs put together need not be read again: each reads back as it is, and what meets makes no "\.\".
    if (m_dirReadsBack && right.m_dirReadsBack && !(m_dir.IsEmpty() && right.m_dir.IsEmpty()) &&
        !m_dir.View().ends_with(OLESTR("\\.")) && !Holds(m_drive.View(), OLESTR(':')))
    {
        CString::Concatenate(joined.m_dir, m_dir, m_dir.GetLength(), right.m_dir, right.m_dir.GetLength());
        joined.m_drive = m_drive;
    }
    else
        joined.InsertPath(GetPath(true));
    return joined;
}
