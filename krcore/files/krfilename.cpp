// The four parts: taking them apart and putting them together.
#include <krcore/files/krfilename.h>

namespace
{

CString WithBackslashes(CString text)
{
    text.Replace(OLESTR('/'), OLESTR('\\'));
    return text;
}

bool BeginsWith(CString const & text, WCHAR first, WCHAR second)
{
    return text.GetLength() >= 2 && text[0] == first && text[1] == second;
}

} // namespace

CKrFileName::CKrFileName() = default;

CKrFileName::CKrFileName(CString const & name, bool isPath)
{
    CString const text = WithBackslashes(name);
    if (isPath)
    {
        SetPath(text);
        return;
    }
    int const last = text.ReverseFind(OLESTR('\\'));
    if (last >= 0)
        SetPath(text.Left(last));
    SetName(text.Mid(last + 1));
}

CKrFileName::CKrFileName(CKrFileName const & other) = default;

CKrFileName & CKrFileName::operator=(CKrFileName const & other) = default;

CKrFileName::~CKrFileName() = default;

void CKrFileName::AddLeadingBackslash(CString & text)
{
    if (text.IsEmpty() || text[0] != OLESTR('\\'))
        text.Insert(0, OLESTR('\\'));
}

void CKrFileName::AddTrailingBackslash(CString & text)
{
    if (text.IsEmpty() || text[text.GetLength() - 1] != OLESTR('\\'))
        text += OLESTR('\\');
}

void CKrFileName::RemoveLeadingBackslash(CString & text) { text.TrimLeft(OLESTR('\\')); }

void CKrFileName::RemoveTrailingBackslash(CString & text) { text.TrimRight(OLESTR('\\')); }

void CKrFileName::SetDrive(CString const & drive)
{
    CString text = WithBackslashes(drive);
    if (text.IsEmpty() || text[0] != OLESTR('\\'))
        RemoveTrailingBackslash(text);
    m_drive = text;
}

void CKrFileName::SetDir(CString const & dir)
{
    CString text = WithBackslashes(dir);
    AddLeadingBackslash(text);
    RemoveTrailingBackslash(text);
    text.Replace(OLESTR("\\.\\"), OLESTR("\\"));
    text.Replace(OLESTR("\\\\"), OLESTR("\\"));
    m_dir = text;
}

void CKrFileName::SetBaseName(CString const & baseName)
{
    CString text = WithBackslashes(baseName);
    RemoveLeadingBackslash(text);
    RemoveTrailingBackslash(text);
    m_baseName = text;
}

void CKrFileName::SetExt(CString const & ext) { m_ext = ext.Mid(ext.ReverseFind(OLESTR('.')) + 1); }

void CKrFileName::SetName(CString const & name)
{
    m_baseName.Empty();
    m_ext.Empty();
    CString const text = WithBackslashes(name);
    CString const last = text.Mid(text.ReverseFind(OLESTR('\\')) + 1);
    int const point = last.ReverseFind(OLESTR('.'));
    if (point < 0)
    {
        SetBaseName(last);
        return;
    }
    SetBaseName(last.Left(point));
    SetExt(last.Mid(point + 1));
}

void CKrFileName::SetPath(CString const & path)
{
    int colon = path.Find(OLESTR(':'));
    if (colon < 0 && (BeginsWith(path, OLESTR('\\'), OLESTR('\\')) || BeginsWith(path, OLESTR('/'), OLESTR('/'))))
        colon = 1;
    CString const drive = colon > 0 ? path.Left(colon) : CString();
    CString const dir = path.Mid(colon + 1);
    m_drive.Empty();
    if (colon > 0)
        SetDrive(drive);
    SetDir(dir);
}

CString CKrFileName::GetName() const
{
    return m_baseName.IsEmpty() || m_ext.IsEmpty() ? m_baseName : m_baseName + OLESTR('.') + m_ext;
}

CString CKrFileName::GetPath(bool trailing) const
{
    CString path = m_drive;
    if (!m_drive.IsEmpty() && m_drive != OLESTR("\\"))
        path += OLESTR(':');
    path += m_dir;
    if (trailing && !(m_drive.IsEmpty() && m_dir.IsEmpty()))
        path += OLESTR('\\');
    return path;
}

CString CKrFileName::GetFullName(bool trailing) const
{
    CString const name = GetName();
    return GetPath(trailing || !name.IsEmpty()) + name;
}

bool CKrFileName::IsRelativeToPath(CString const & base) const
{
    CString const path = GetPath(true);
    CString const basePath = CKrFileName(base, true).GetPath(true);
    return CString(path.Left(basePath.GetLength())).MakeUpper() == CString(basePath).MakeUpper();
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

CString CKrFileName::DirOf(CString const & path) { return CKrFileName(path, true).m_dir; }

void CKrFileName::AppendDir(CString const & path) { SetDir(m_dir + DirOf(path)); }

void CKrFileName::InsertDir(CString const & path) { SetDir(DirOf(path) + m_dir); }

void CKrFileName::InsertPath(CString const & path) { SetPath(CKrFileName(path, true).GetPath(false) + m_dir); }

CKrFileName CKrFileName::operator+(CKrFileName const & right) const
{
    CKrFileName joined(right);
    joined.InsertPath(GetPath(true));
    return joined;
}
