#include <krplatform/base/cexception.h>
#include <krplatform/datetime/ctime.h>

namespace
{

constexpr int baseYear = 1900;
constexpr std::size_t patternRoom = 256;

/// Sums are made of unsigned numbers, which may overflow.
std::int64_t Wrap(std::uint64_t seconds) { return static_cast<std::int64_t>(seconds); }

/// One field of local time, or 0.
int FieldOf(CTime const & time, int std::tm::*member, int offset)
{
    std::tm fields;
    return time.GetLocalTm(&fields) ? fields.*member + offset : 0;
}

CString FormatFields(std::tm const * fields, WCHAR const * pattern)
{
    if (!pattern)
        AtlThrow(E_INVALIDARG);
    if (!fields)
        return {};
    WCHAR text[patternRoom];
    std::size_t const length = wcsftime(text, patternRoom, pattern, fields);
    return CString(text, static_cast<int>(length));
}

} // namespace

CTimeSpan::CTimeSpan(long days, int hours, int minutes, int seconds) noexcept
{
    std::int64_t const timeOfDay = (std::int64_t{hours} * 60 + minutes) * 60 + seconds;
    m_seconds = Wrap(static_cast<std::uint64_t>(days) * 86400 + static_cast<std::uint64_t>(timeOfDay));
}

CTime CTime::operator+(CTimeSpan span) const noexcept
{
    return Wrap(static_cast<std::uint64_t>(m_time) + static_cast<std::uint64_t>(span.GetTotalSeconds()));
}

CTime CTime::operator-(CTimeSpan span) const noexcept
{
    return Wrap(static_cast<std::uint64_t>(m_time) - static_cast<std::uint64_t>(span.GetTotalSeconds()));
}

CTimeSpan CTime::operator-(CTime other) const noexcept
{
    return Wrap(static_cast<std::uint64_t>(m_time) - static_cast<std::uint64_t>(other.m_time));
}

CTime::CTime(int year, int month, int day, int hour, int minute, int second, int daylightSaving)
{
    auto const isWithin = [](int value, int low, int high) { return value >= low && value <= high; };
    if (year < 1970 || !isWithin(month, 1, 12) || !isWithin(day, 1, 31) || !isWithin(hour, 0, 23) ||
        !isWithin(minute, 0, 59) || !isWithin(second, 0, 59))
        AtlThrow(E_FAIL);
    std::tm fields = {};
    fields.tm_sec = second;
    fields.tm_min = minute;
    fields.tm_hour = hour;
    fields.tm_mday = day;
    fields.tm_mon = month - 1;
    fields.tm_year = year - baseYear;
    fields.tm_isdst = daylightSaving;
    m_time = _mktime64(&fields);
    if (m_time < 0)
        AtlThrow(E_INVALIDARG);
}

CTime CTime::GetCurrentTime() noexcept { return _time64(nullptr); }

std::tm * CTime::GetLocalTm(std::tm * fields) const noexcept
{
    return _localtime64_s(fields, &m_time) == 0 ? fields : nullptr;
}

std::tm * CTime::GetGmtTm(std::tm * fields) const noexcept
{
    return _gmtime64_s(fields, &m_time) == 0 ? fields : nullptr;
}

int CTime::GetYear() const noexcept { return FieldOf(*this, &std::tm::tm_year, baseYear); }

int CTime::GetMonth() const noexcept { return FieldOf(*this, &std::tm::tm_mon, 1); }

int CTime::GetDay() const noexcept { return FieldOf(*this, &std::tm::tm_mday, 0); }

int CTime::GetHour() const noexcept { return FieldOf(*this, &std::tm::tm_hour, 0); }

int CTime::GetMinute() const noexcept { return FieldOf(*this, &std::tm::tm_min, 0); }

int CTime::GetSecond() const noexcept { return FieldOf(*this, &std::tm::tm_sec, 0); }

int CTime::GetDayOfWeek() const noexcept { return FieldOf(*this, &std::tm::tm_wday, 1); }

CString CTime::Format(WCHAR const * pattern) const
{
    std::tm fields;
    return FormatFields(GetLocalTm(&fields), pattern);
}

CString CTime::FormatGmt(WCHAR const * pattern) const
{
    std::tm fields;
    return FormatFields(GetGmtTm(&fields), pattern);
}
