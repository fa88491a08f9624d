// Comparing file names, and cleaning them of characters.
#include <krcore/files/krfilename.h>

bool CKrFileName::IsEqual(CKrFileName const & other) const
{
    return HasEqualBaseName(other) && HasEqualExt(other) && HasEqualDir(other) && HasEqualDrive(other);
}

bool CKrFileName::IsEqual(CString const & name) const { return IsEqual(CKrFileName(name, false)); }

bool CKrFileName::operator<(CKrFileName const & other) const
{
    return GetFullName(true).Compare(other.GetFullName(true)) < 0;
}

void CKrFileName::ReplaceIn(kr::detail::TextView everywhere, kr::detail::TextView inNamesOnly, WCHAR replacement)
{
    auto const replaceAll = [replacement](CString & text, kr::detail::TextView characters)
    {
        for (WCHAR const character : characters)
        {
            if (replacement == 0)
                text.Remove(character);
            else
                text.Replace(character, replacement);
        }
    };
    for (CString * const part : {&m_dir, &m_baseName, &m_ext})
        replaceAll(*part, everywhere);
    for (CString * const part : {&m_baseName, &m_ext})
        replaceAll(*part, inNamesOnly);
}

bool CKrFileName::ReplaceInvalidChar(WCHAR replacement)
{
    ReplaceIn(OLESTR("?:<>|*\""), OLESTR("\\/"), replacement);
    return true;
}

bool CKrFileName::ReplaceReservedUrlChar(WCHAR replacement)
{
    ReplaceIn(OLESTR(":=?#[]@$&'()*+,;"), OLESTR("/"), replacement);
    return true;
}
