// Seconds since 1970, read and built in local time.
#pragma once

#include <krplatform/base/types.h>
#include <krplatform/datetime/clock.h>
#include <krplatform/text/cstring.h>

#include <compare>
#include <cstdint>

/// A span of seconds. Sums beyond 64 bits wrap around, here and in `CTime`.
class KRPLATFORM_API CTimeSpan
{
public:
    CTimeSpan() noexcept = default;
    CTimeSpan(std::int64_t seconds) noexcept : m_seconds(seconds) {}
    CTimeSpan(long days, int hours, int minutes, int seconds) noexcept;

    std::int64_t GetTotalSeconds() const noexcept { return m_seconds; }

    friend auto operator<=>(CTimeSpan const &, CTimeSpan const &) = default;

private:
    std::int64_t m_seconds = 0;
};

/// A moment as a signed 64-bit count of seconds since 1 January 1970 UTC. A new object is 0.
///
///     CTime time(2021, 3, 15, 8, 5, 9);                  local time
///     time.Format(OLESTR("%H:%M"))                       -> "08:05"
///     CTime(1969, 12, 31, 0, 0, 0)                       raises E_FAIL
class KRPLATFORM_API CTime
{
public:
    CTime() noexcept = default;
    CTime(std::int64_t seconds) noexcept : m_time(seconds) {}
    /// Local time; `daylightSaving` as in `tm_isdst`, -1 for unknown. Raises E_FAIL (`COleException *`) for a year
    /// below 1970, month outside 1 to 12, day outside 1 to 31, hour above 23, minute or second above 59, or below 0;
    /// E_INVALIDARG where the moment cannot be expressed, as after the year 3000.
    CTime(int year, int month, int day, int hour, int minute, int second, int daylightSaving = -1);

    /// Now.
    static CTime GetCurrentTime() noexcept;

    std::int64_t GetTime() const noexcept { return m_time; }

    /// The fields in local time, or UTC; null where they cannot be expressed.
    std::tm * GetLocalTm(std::tm * fields) const noexcept;
    std::tm * GetGmtTm(std::tm * fields) const noexcept;
    /// Single fields of local time, 0 where there are none. Day of the week: Sunday is 1.
    int GetYear() const noexcept;
    int GetMonth() const noexcept;
    int GetDay() const noexcept;
    int GetHour() const noexcept;
    int GetMinute() const noexcept;
    int GetSecond() const noexcept;
    int GetDayOfWeek() const noexcept;

    /// Text of local time, or UTC, by a `wcsftime` pattern; a null pattern raises E_INVALIDARG, a result of more than
    /// 255 units is lost (empty).
    CString Format(WCHAR const * pattern) const;
    CString FormatGmt(WCHAR const * pattern) const;

    friend auto operator<=>(CTime const &, CTime const &) = default;
    CTime operator+(CTimeSpan span) const noexcept;
    CTime operator-(CTimeSpan span) const noexcept;
    CTimeSpan operator-(CTime other) const noexcept;
    CTime & operator+=(CTimeSpan span) noexcept { return *this = *this + span; }
    CTime & operator-=(CTimeSpan span) noexcept { return *this = *this - span; }

private:
    std::int64_t m_time = 0;
};
