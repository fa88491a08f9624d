// The automation date with its status, and spans between dates.
#pragma once

#include <krplatform/automation/variant.h>
#include <krplatform/automation/variant_conversion.h>
#include <krplatform/automation/vartext.h>
#include <krplatform/text/cstring.h>

#include <compare>
#include <concepts>
#include <cstdint>

class CTime;

namespace kr::detail
{

template <class T>
concept WideInteger = std::signed_integral<T> && sizeof(T) == sizeof(std::int64_t);

} // namespace kr::detail

/// A span of days with its status.
class KRPLATFORM_API COleDateTimeSpan
{
public:
    enum DateTimeSpanStatus : int
    {
        valid = 0,
        invalid = 1,
        null = 2
    };

    COleDateTimeSpan() noexcept = default;
    COleDateTimeSpan(double days) noexcept : m_span(days) {}
    /// The parts are added up; each may be below 0 and beyond its usual range.
    COleDateTimeSpan(long days, int hours, int minutes, int seconds) noexcept;

    DateTimeSpanStatus GetStatus() const noexcept { return m_status; }
    void SetStatus(DateTimeSpanStatus status) noexcept { m_status = status; }
    double GetTotalDays() const noexcept { return m_span; }

    double m_span = 0.0;
    DateTimeSpanStatus m_status = valid;
};

/// A moment as days since 30 December 1899; the fraction is the time of day, counted forward for negative values too,
/// so that -1.25 is 29 December 1899, 6:00. A new object is the valid date 0.0. Range: 1 January 100 to 31 December
/// 9999.
///
///     COleDateTime date(2021, 3, 15, 8, 5, 9);
///     date.Format(OLESTR("%Y-%m-%d %H:%M:%S"))   -> "2021-03-15 08:05:09"
///     date.Format(0, 1033)                       -> "3/15/2021 8:05:09 AM"
///     COleDateTime(2021, 2, 30, 0, 0, 0).GetStatus()   -> invalid
///
/// Text that cannot be made is "Invalid DateTime", or string resource 55296 where the current resource module has it.
/// Calendar fields make a date only if the date gives them back: years of two digits, days that the month lacks and
/// fields out of range make the status invalid and leave the date as it was. When memory runs out `CMemoryException *` is
/// thrown and the date stays as it was.
class KRPLATFORM_API COleDateTime
{
public:
    enum DateTimeStatus : int
    {
        valid = 0,
        invalid = 1,
        null = 2
    };

    COleDateTime() noexcept = default;
    /// Any number is taken; one outside the range has no fields and no text.
    COleDateTime(DATE date) noexcept : m_dt(date) {}
    /// Converts to VT_DATE with the default locale; VT_NULL and VT_EMPTY give status null, a failure status invalid.
    template <kr::detail::PlainVariant<COleDateTime> Variant>
    COleDateTime(Variant const & value)
    {
        SetVariant(value);
    }
    template <kr::detail::ConvertsItself<COleDateTime> Variant>
    explicit COleDateTime(Variant const & value) : COleDateTime(value.operator COleDateTime())
    {
    }
    COleDateTime(SYSTEMTIME const & fields) noexcept;
    COleDateTime(int year, int month, int day, int hour, int minute, int second) noexcept;
    /// Local time of seconds since 1 January 1970 UTC; status invalid where the calendar has no such time. An integer of
    /// 64 bits is seconds too, while other numbers are days.
    COleDateTime(CTime const & time) noexcept;
    template <kr::detail::WideInteger Seconds>
    COleDateTime(Seconds seconds) noexcept
    {
        SetSeconds(seconds);
    }

    /// Now, local time, to the second.
    static COleDateTime GetCurrentTime() noexcept;

    DateTimeStatus GetStatus() const noexcept { return m_status; }
    void SetStatus(DateTimeStatus status) noexcept { m_status = status; }

    /// The calendar fields; false, and untouched, for a status other than valid or a date out of range.
    bool GetAsSystemTime(SYSTEMTIME & fields) const noexcept;
    bool GetAsUdate(UDATE & fields) const noexcept;
    /// Single fields; -1 (`error`) where there are none. Day of the week: Sunday is 1. Day of the year: 1 January is 1.
    static constexpr int error = -1;
    int GetYear() const noexcept;
    int GetMonth() const noexcept;
    int GetDay() const noexcept;
    int GetHour() const noexcept;
    int GetMinute() const noexcept;
    int GetSecond() const noexcept;
    int GetDayOfWeek() const noexcept;
    int GetDayOfYear() const noexcept;

    /// The new status: 0 (valid), or 1 (invalid) where the fields are no moment of the calendar. `SetDate` makes the
    /// time midnight, `SetTime` the day 30 December 1899.
    int SetDateTime(int year, int month, int day, int hour, int minute, int second) noexcept;
    int SetDate(int year, int month, int day) noexcept;
    int SetTime(int hour, int minute, int second) noexcept;
    /// Reads text by `VarDateFromStr`. False, with date 0.0 and status invalid, for text that is no date; null is none.
    bool ParseDateTime(WCHAR const * text, DWORD flags = 0, LCID locale = LOCALE_USER_DEFAULT);

    /// The locale's text by `VarBstrFromDate`. Empty for status null.
    CString Format(DWORD flags = 0, LCID locale = LOCALE_USER_DEFAULT) const;
    /// Text by a `wcsftime` pattern; a result of more than 255 units is lost (empty), as is that of a pattern which
    /// `wcsftime` refuses. A null pattern raises E_INVALIDARG. Empty for status null.
    CString Format(WCHAR const * pattern) const;

    operator DATE() const noexcept { return m_dt; }

    /// Moments are compared in time: -0.25 equals 0.25, and -1.75 is later than -1.25. Moments with a status other than
    /// valid are equal if their status is, and never less.
    friend KRPLATFORM_API bool operator==(COleDateTime const & left, COleDateTime const & right) noexcept;
    friend KRPLATFORM_API std::partial_ordering operator<=>(COleDateTime const & left,
                                                            COleDateTime const & right) noexcept;

    /// The result is null if either operand is, invalid if either is or if it would lie outside the range.
    COleDateTime operator+(COleDateTimeSpan const & span) const noexcept;
    COleDateTime operator-(COleDateTimeSpan const & span) const noexcept;
    COleDateTime & operator+=(COleDateTimeSpan const & span) noexcept;
    COleDateTime & operator-=(COleDateTimeSpan const & span) noexcept;
    COleDateTimeSpan operator-(COleDateTime const & other) const noexcept;

    DATE m_dt = 0.0;
    DateTimeStatus m_status = valid;

private:
    void SetSeconds(std::int64_t seconds) noexcept;
    void SetVariant(VARIANT const & value);
};
