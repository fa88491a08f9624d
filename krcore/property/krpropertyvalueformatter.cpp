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
        CString const attribute(defaultValue); // all that can fail comes before the first change
        if (property.IsColorValue())
        {
            CKrColor color;
            color.Parse(CString(text).Trim());
            property.SetColor(color);
        }
        else if (property.IsDateTimeValue())
        {
            if (ParseDate(CString(text).Trim().MakeUpper(), property))
                return true;
        }
        else
            property.SetValueFromString(text);
        property.RemoveAttribute(attribute);
        return true;
    }
    KR_CATCH_ALL("krpropertyutils", 410)
}

/// Whether the text is a keyword, which is remembered then.
bool CKrPropertyValueFormatter::ParseDate(CString const & text, CKrProperty & property) const
{
    bool const isNull = text.IsEmpty() || text == null;
    if (!isNull && text != now && text != OLESTR("TODAY") && text != OLESTR("HEUTE"))
    {
        property.SetValueFromString(text);
        return false;
    }
    property.SetAttribute(defaultValue, CKrVariant(isNull ? null : now)); // first: the date takes no memory
    property.SetDateTime(isNull ? COleDateTime() : m_currentTime);
    return true;
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
        CString written = locale ? property.GetAsLocaleString() : property.GetAsInvariantString();
        CKrVariant const keyword = property.IsDateTimeValue() ? property.GetAttribute(defaultValue) : CKrVariant();
        if (keyword.IsString())
        {
            CString const word = keyword.GetAsString();
            if (word.CompareNoCase(now) == 0)
                written = now;
            else if (word.CompareNoCase(null) == 0)
                written = locale ? OLESTR("") : null;
        }
        text = written;
        return true;
    }
    KR_CATCH_ALL("krpropertyutils", 448)
}
