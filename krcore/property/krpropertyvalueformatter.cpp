#include <krcore/property/krpropertyvalueformatter.h>

#include <krcore/diagnostics/krexception_guard.h>
#include <krplatform/datetime/ctime.h>

namespace
{

constexpr WCHAR const * defaultValue = OLESTR("Kr.DefValue");
constexpr WCHAR const * now = OLESTR("NOW");
constexpr WCHAR const * null = OLESTR("NULL");

} // namespace

CKrPropertyValueFormatter::CKrPropertyValueFormatter() : m_currentTime(CTime::GetCurrentTime()) {}

bool CKrPropertyValueFormatter::ParseDefaultValue(CString const & text, CKrProperty & property) const
{
    try
    {
        property.RemoveAttribute(defaultValue);
        if (property.IsColorValue())
        {
            CKrColor color;
            color.Parse(CString(text).Trim());
            property.SetColor(color);
        }
        else if (property.IsDateTimeValue())
            ParseDate(CString(text).Trim().MakeUpper(), property);
        else
            property.SetValueFromString(text);
        return true;
    }
    KR_CATCH_ALL("krpropertyutils", 410)
}

void CKrPropertyValueFormatter::ParseDate(CString const & text, CKrProperty & property) const
{
    if (text.IsEmpty() || text == null)
    {
        property.SetDateTime(COleDateTime());
        property.SetAttribute(defaultValue, CKrVariant(null));
    }
    else if (text == now || text == OLESTR("TODAY") || text == OLESTR("HEUTE"))
    {
        property.SetDateTime(m_currentTime);
        property.SetAttribute(defaultValue, CKrVariant(now));
    }
    else
        property.SetValueFromString(text);
}

bool CKrPropertyValueFormatter::FormatDefaultValueInvariant(CKrProperty const & property, CString & text) const
{
    return FormatDefaultValueImpl(property, text, false);
}

bool CKrPropertyValueFormatter::FormatDefaultValueLocale(CKrProperty const & property, CString & text) const
{
    return FormatDefaultValueImpl(property, text, true);
}

bool CKrPropertyValueFormatter::FormatDefaultValueImpl(CKrProperty const & property, CString & text, bool locale) const
{
    try
    {
        if (property.IsColorValue())
        {
            text = property.GetColor().Format(false);
            return true;
        }
        text = locale ? property.GetAsLocaleString() : property.GetAsInvariantString();
        if (!property.IsDateTimeValue())
            return true;
        CKrVariant const keyword = property.GetAttribute(defaultValue);
        if (!keyword.IsString())
            return true;
        CString const word = keyword.GetAsString();
        if (word.CompareNoCase(now) == 0)
            text = now;
        else if (word.CompareNoCase(null) == 0)
            text = locale ? OLESTR("") : null;
        return true;
    }
    KR_CATCH_ALL("krpropertyutils", 448)
}
