// Comparing file names, and cleaning them of characters.
#include <krcore/files/krfilename.h>

#include <algorithm>
#include <utility>

using kr::detail::TextView;

bool CKrFileName::IsEqual(CKrFileName const & other) const
{
    return HasEqualBaseName(other) && HasEqualExt(other) && HasEqualDir(other) && HasEqualDrive(other);
}

bool CKrFileName::IsEqual(CString const & name) const { return IsEqual(CKrFileName(name, false)); }

bool CKrFileName::operator<(CKrFileName const & other) const
{
    // the full names piece by piece, without putting them together, and from the base names on where the paths are the same
    std::ptrdiff_t const first = m_dir == other.m_dir && m_drive == other.m_drive ? 4 : 0;
    Pieces const pieces = PiecesOf(true);
    Pieces const otherPieces = other.PiecesOf(true);
    auto next = pieces.begin() + first;
    auto otherNext = otherPieces.begin() + first;
    for (TextView rest, otherRest;;)
    {
        while (rest.empty() && next != pieces.end())
            rest = *next++;
        while (otherRest.empty() && otherNext != otherPieces.end())
            otherRest = *otherNext++;
        std::size_t const common = std::min(rest.size(), otherRest.size());
        if (common == 0)
            return !otherRest.empty();
        if (!std::equal(rest.begin(), rest.begin() + common, otherRest.begin()))
            return rest < otherRest;
        rest.remove_prefix(common);
        otherRest.remove_prefix(common);
    }
}

/// Nothing changes when memory runs out.
void CKrFileName::ReplaceIn(TextView everywhere, TextView inNamesOnly, WCHAR replacement)
{
    auto const replaceAll = [replacement](CString & text, TextView characters)
    {
        for (WCHAR const character : characters)
        {
            if (replacement == 0)
                text.Remove(character);
            else
                text.Replace(character, replacement);
        }
    };
    CKrFileName cleaned(*this);
    for (CString * const part : {&cleaned.m_dir, &cleaned.m_baseName, &cleaned.m_ext})
        replaceAll(*part, everywhere);
    for (CString * const part : {&cleaned.m_baseName, &cleaned.m_ext})
        replaceAll(*part, inNamesOnly);
    cleaned.m_dirReadsBack = false; // what is left may be what no setter stores
    *this = std::move(cleaned);
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
