#include "selection.h"

#include "layer_mapping.h"

#include <algorithm>

namespace layeredit
{

namespace
{

bool MatchesAny(CString const & name, std::vector<CString> const & patterns)
{
    return std::ranges::any_of(patterns, [&name](CString const & pattern) { return MatchesPattern(name, pattern); });
}

/// Texts in any case, as names of layers and line types are.
bool HasValue(CKrPropertySet const & layer, CKrProperty const & wanted)
{
    CKrProperty const & property = *layer.GetPropertyByPropName(wanted.GetName());
    return property.IsStringValue() ? property.GetString().CompareNoCase(wanted.GetString()) == 0
                                    : property.HasEqualValue(wanted);
}

/// The units of the character at that place: a surrogate pair is one character.
int LengthOfCharacter(CString const & text, int place)
{
    bool const isPair = (text[place] & 0xFC00) == 0xD800 && (text[place + 1] & 0xFC00) == 0xDC00;
    return isPair ? 2 : 1;
}

} // namespace

bool MatchesPattern(CString const & text, CString const & pattern)
{
    CString const name = CString(text).MakeLower();
    CString const wanted = CString(pattern).MakeLower();
    int place = 0, in = 0;
    int star = -1, starPlace = 0; // where to take up again with one character more for the last star
    while (place < name.GetLength())
    {
        bool const isInside = in < wanted.GetLength();
        if (isInside && wanted[in] == OLESTR('*'))
        {
            star = in++;
            starPlace = place;
        }
        else if (isInside && wanted[in] == OLESTR('?'))
        {
            place += LengthOfCharacter(name, place);
            ++in;
        }
        else if (isInside && wanted[in] == name[place])
        {
            ++place;
            ++in;
        }
        else if (star >= 0)
        {
            place = ++starPlace;
            in = star + 1;
        }
        else
            return false;
    }
    return wanted.Mid(in).SpanIncluding(OLESTR("*")).GetLength() == wanted.GetLength() - in;
}

bool IsSelected(Options const & options, CKrPropertySet const & layer)
{
    CString const name = NameOf(layer);
    bool const isMeant = options.all || options.layers.empty() || MatchesAny(name, options.layers);
    return isMeant && !MatchesAny(name, options.excluded) &&
           std::ranges::all_of(options.where,
                               [&layer](Assignment const & where) { return HasValue(layer, where.property); });
}

} // namespace layeredit
