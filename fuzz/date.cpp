// Dates and their text: a locale, a line of text to be read, then the bytes of a date to be written.
#include "fuzz/fuzz_locales.h"
#include "fuzz/fuzz_target.h"

#include "tests/reference/calendar.h"

#include <krplatform/automation/vartext.h>
#include <krplatform/text/bstr.h>

#include <cmath>

namespace kr::fuzz
{

namespace
{

constexpr double firstDay = -657434, lastDay = 2958465; // 1 January 100, 31 December 9999

constexpr double s_before = 0.123456789;

HRESULT Read(CString const & text, LCID locale, ULONG flags, DATE & date)
{
    date = s_before;
    HRESULT const result = VarDateFromStr(text, locale, flags, &date);
    KR_LAW(result == S_OK || (result == DISP_E_TYPEMISMATCH && date == s_before));
    return result;
}

CString Written(DATE date, LCID locale, ULONG flags)
{
    BSTR text = nullptr;
    KR_LAW(VarBstrFromDate(date, locale, flags, &text) == S_OK);
    CString const copy(text, static_cast<int>(SysStringLen(text)));
    SysFreeString(text);
    return copy;
}

/// The second of the day, 86400 where it rounds up.
int SecondOf(DATE date)
{
    return static_cast<int>(std::floor(std::fabs(date - std::trunc(date)) * 86400 + 0.5 + 1e-6));
}

void CheckFields(DATE date)
{
    UDATE fields{};
    fields.st.wYear = 7;
    HRESULT const result = VarUdateFromDate(date, 0, &fields);
    bool const isInside = date > firstDay - 1 && date < lastDay + 1 && !(date > lastDay && SecondOf(date) == 86400);
    KR_LAW(result == (isInside ? S_OK : E_INVALIDARG));
    SYSTEMTIME time{};
    KR_LAW(VariantTimeToSystemTime(date, &time) == (isInside ? 1 : 0));
    KR_LAW(isInside ? std::memcmp(&time, &fields.st, sizeof time) == 0 : fields.st.wYear == 7);
    if (!isInside)
        return;

    bool const isNextDay = SecondOf(date) == 86400;
    int const day = static_cast<int>(date), second = SecondOf(date) % 86400;
    kr::test::ReferenceDay const civil = kr::test::ReferenceDayOf(day + isNextDay);
    kr::test::ReferenceDay const before = kr::test::ReferenceDayOf(day); // midnight leaves these two behind
    KR_LAW(time.wYear == civil.year && time.wMonth == civil.month && time.wDay == civil.day);
    KR_LAW(time.wDayOfWeek == before.dayOfWeek && fields.wDayOfYear == before.dayOfYear);
    KR_LAW(time.wHour * 3600 + time.wMinute * 60 + time.wSecond == second);

    DATE again = 0;
    KR_LAW(SystemTimeToVariantTime(&time, &again) == 1);
    KR_LAW(std::trunc(again) == day + isNextDay && SecondOf(again) == second);
}

/// A date on a whole second is read back from its text. Where the marks of times and dates are one, a time alone would be a date.
void CheckRoundTrip(DATE date, LCID locale)
{
    DATE again = 0;
    KR_LAW(SUCCEEDED(Read(Written(date, locale, 0), locale, 0, again)) && again == date);
    double const day = std::trunc(date);
    CString const dayText = Written(date, locale, VAR_DATEVALUEONLY);
    KR_LAW(dayText.IsEmpty() == (day == 0));
    KR_LAW(day == 0 || (SUCCEEDED(Read(dayText, locale, 0, again)) && again == day));
    CString const timeText = Written(date, locale, VAR_TIMEVALUEONLY);
    KR_LAW(timeText.IsEmpty() == (day != 0 && date == day));
    if (!timeText.IsEmpty())
        KR_LAW(SUCCEEDED(Read(timeText, locale, VAR_TIMEVALUEONLY, again)) && SecondOf(again) == SecondOf(date));
}

void CheckText(CString const & text, LCID locale)
{
    DATE date = 0, part = 0;
    HRESULT const result = Read(text, locale, 0, date);
    KR_LAW(Read(OLESTR(" \t") + text + OLESTR("\u3000"), locale, 0, part) == result && part == date);
    KR_LAW(Read(CString(text).MakeUpper().MakeLower(), locale, 0, part) == result && part == date);

    KR_LAW(Read(text, locale, VAR_DATEVALUEONLY, part) == result);
    KR_LAW(part == (FAILED(result) ? s_before : std::trunc(date)));
    KR_LAW(Read(text, locale, VAR_TIMEVALUEONLY, part) == result);
    if (FAILED(result))
        return;
    KR_LAW(part >= 0 && part < 1 && SecondOf(part) == SecondOf(date));
    KR_LAW(date > firstDay - 1 && date < lastDay + 1);
    CheckFields(date);
    CheckRoundTrip(date, locale);
}

void CheckDate(DATE date, LCID locale)
{
    CheckFields(date);
    SYSTEMTIME fields{};
    DATE whole = 0;
    if (VariantTimeToSystemTime(date, &fields) != 0 && SystemTimeToVariantTime(&fields, &whole) != 0)
        CheckRoundTrip(whole, locale);
    BSTR text = nullptr;
    HRESULT const result = VarBstrFromDate(date, locale, 0, &text);
    KR_LAW(result == (fields.wMonth == 0 ? E_INVALIDARG : S_OK) && (text == nullptr) == FAILED(result));
    SysFreeString(text);
}

} // namespace

void CheckLaws(FuzzInput input)
{
    LCID const locale = locales[input.Below(localeCount)];
    CheckText(TextOf(input.TextLine()).GetString(), locale);
    CheckDate(input.Number<DATE>(), locale);
    CheckDate(input.Number<int>() / 86400.0, locale); // most doubles are no date
}

} // namespace kr::fuzz
