#include <krplatform/base/cexception.h>
#include <krplatform/datetime/clock.h>
#include <krplatform/datetime/coledatetime.h>
#include <krplatform/text/takebstr.h>

namespace
{

constexpr UINT invalidTextId = 55296;
constexpr std::size_t patternRoom = 256;

CString InvalidText()
{
    CString text;
    if (!text.LoadString(invalidTextId))
        text = OLESTR("Invalid DateTime");
    return text;
}

std::tm FieldsForPattern(UDATE const & date)
{
    std::tm fields = {};
    fields.tm_sec = date.st.wSecond;
    fields.tm_min = date.st.wMinute;
    fields.tm_hour = date.st.wHour;
    fields.tm_mday = date.st.wDay;
    fields.tm_mon = date.st.wMonth - 1;
    fields.tm_year = date.st.wYear - 1900;
    fields.tm_wday = date.st.wDayOfWeek;
    fields.tm_yday = date.wDayOfYear - 1;
    return fields;
}

} // namespace

bool COleDateTime::ParseDateTime(WCHAR const * text, DWORD flags, LCID locale)
{
    DATE read = 0.0;
    HRESULT const result = VarDateFromStr(text, locale, flags, &read);
    if (result == E_OUTOFMEMORY)
        AfxThrowMemoryException();
    m_dt = read;
    m_status = SUCCEEDED(result) ? valid : invalid;
    return m_status == valid;
}

CString COleDateTime::Format(DWORD flags, LCID locale) const
{
    if (m_status == null)
        return {};
    if (m_status == invalid)
        return InvalidText();
    BSTR text = nullptr;
    HRESULT const result = VarBstrFromDate(m_dt, locale, flags, &text);
    if (result == E_OUTOFMEMORY)
        AfxThrowMemoryException();
    return SUCCEEDED(result) ? kr::detail::TakeBstr(text) : InvalidText();
}

CString COleDateTime::Format(WCHAR const * pattern) const
{
    if (!pattern)
        AtlThrow(E_INVALIDARG);
    if (m_status == null)
        return {};
    UDATE date;
    if (!GetAsUdate(date))
        return InvalidText();
    std::tm const fields = FieldsForPattern(date);
    WCHAR text[patternRoom];
    std::size_t const length = wcsftime(text, patternRoom, pattern, &fields);
    return CString(text, static_cast<int>(length));
}
