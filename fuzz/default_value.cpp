// Default values in text form, with their keywords: the choice of a type, then a text.
#include "fuzz/fuzz_target.h"
#include "fuzz/property_types.h"

#include <krcore/property/krpropertyvalueformatter.h>

#include <cmath>

namespace kr::fuzz
{

namespace
{

COleDateTime const s_now(2021, 3, 15, 8, 5, 9);

CString Stored(CKrPropertyValueFormatter const & formatter, CKrProperty const & property)
{
    CString text;
    KR_LAW(formatter.FormatDefaultValueInvariant(property, text));
    return text;
}

CString Shown(CKrPropertyValueFormatter const & formatter, CKrProperty const & property)
{
    CString text;
    KR_LAW(formatter.FormatDefaultValueLocale(property, text));
    return text;
}

/// The keyword that a text is, written plainly: upper case of A to Z is all that the words need.
CString KeywordOf(CString text)
{
    text.Trim();
    for (int index = 0; index < text.GetLength(); ++index)
    {
        if (text[index] >= 'a' && text[index] <= 'z')
            text.SetAt(index, static_cast<WCHAR>(text[index] - 0x20));
    }
    if (text.IsEmpty() || text == CString(OLESTR("NULL")))
        return OLESTR("NULL");
    bool const isNow =
        text == CString(OLESTR("NOW")) || text == CString(OLESTR("TODAY")) || text == CString(OLESTR("HEUTE"));
    return isNow ? OLESTR("NOW") : OLESTR("");
}

void CheckKeyword(CKrPropertyValueFormatter const & formatter, CKrProperty const & property, CString const & keyword)
{
    CKrVariant const remembered = property.GetAttribute(OLESTR("Kr.DefValue"));
    KR_LAW(property.HasAttribute(OLESTR("Kr.DefValue")) == !keyword.IsEmpty());
    if (keyword.IsEmpty())
        return;
    bool const isNow = keyword == OLESTR("NOW");
    KR_LAW(remembered.IsString() && remembered.GetAsString() == keyword);
    KR_LAW(property.GetOleDateTime().m_dt == (isNow ? s_now.m_dt : 0.0));
    KR_LAW(Stored(formatter, property) == keyword);
    KR_LAW(Shown(formatter, property) == (isNow ? keyword : CString()));
}

/// What is stored reads back to what is stored again, but for numbers that have no text and names that are folded further.
bool IsReadBack(CKrProperty const & property)
{
    bool const isName = property.GetType() == CKrProperty::ePropFile || property.GetType() == CKrProperty::ePropDir;
    return !isName && (!property.IsDoubleValue() || std::isfinite(property.GetDouble()));
}

} // namespace

void CheckLaws(FuzzInput input)
{
    CKrPropertyValueFormatter formatter;
    formatter.SetCurrentTime(s_now);
    CKrProperty property(OLESTR("p"), CString(), TypeOf(input), true, true);
    CString const before(OLESTR("HEUTE"));
    formatter.ParseDefaultValue(before, property); // whose keyword the next text takes away
    CString const text = TextOf(input.TextRest());
    KR_LAW(formatter.ParseDefaultValue(text, property));
    CheckKeyword(formatter, property, property.IsDateTimeValue() ? KeywordOf(text) : CString());

    CString const stored = Stored(formatter, property);
    CKrProperty again(OLESTR("p"), CString(), property.GetType(), true, true);
    formatter.ParseDefaultValue(stored, again);
    if (IsReadBack(property) && !stored.IsEmpty())
        KR_LAW(Stored(formatter, again) == stored && Shown(formatter, again) == Shown(formatter, property));
}

} // namespace kr::fuzz
