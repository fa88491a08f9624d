#include <krplatform/coerce/calendar.h>
#include <krplatform/datetime/clock.h>
#include <krplatform/datetime/coledatetime.h>
#include <krplatform/datetime/ctime.h>

namespace
{

using kr::detail::CalendarFields;

/// The date of fields that it gives back: a year in full, and a day that the month has. Times come back always, since dates tell
/// them apart far below a second.
bool MakeDate(CalendarFields const & fields, DATE & date)
{
    bool const isGivenBack =
        fields.year >= 100 && fields.day >= 1 && fields.day <= kr::detail::DaysInMonth(fields.year, fields.month);
    return isGivenBack && kr::detail::DateOfFields(fields, date);
}

/// One field of a date, or `error`.
int FieldOf(COleDateTime const & date, int CalendarFields::*member)
{
    CalendarFields fields;
    bool const isRead = date.GetStatus() == COleDateTime::valid && kr::detail::FieldsOfDate(date.m_dt, fields);
    return isRead ? fields.*member : COleDateTime::error;
}

} // namespace

void COleDateTime::SetVariant(VARIANT const & value)
{
    if (value.vt == VT_EMPTY || value.vt == VT_NULL)
    {
        m_status = null;
        return;
    }
    VARIANT converted = {};
    if (FAILED(VariantChangeType(&converted, &value, 0, VT_DATE)))
        m_status = invalid;
    else
        m_dt = converted.date;
}

COleDateTime::COleDateTime(SYSTEMTIME const & fields) noexcept
{
    SetDateTime(fields.wYear, fields.wMonth, fields.wDay, fields.wHour, fields.wMinute, fields.wSecond);
}

COleDateTime::COleDateTime(int year, int month, int day, int hour, int minute, int second) noexcept
{
    SetDateTime(year, month, day, hour, minute, second);
}

COleDateTime::COleDateTime(CTime const & time) noexcept { SetSeconds(time.GetTime()); }

COleDateTime COleDateTime::GetCurrentTime() noexcept { return COleDateTime(_time64(nullptr)); }

bool COleDateTime::GetAsSystemTime(SYSTEMTIME & fields) const noexcept
{
    return m_status == valid && VariantTimeToSystemTime(m_dt, &fields);
}

bool COleDateTime::GetAsUdate(UDATE & fields) const noexcept
{
    return m_status == valid && SUCCEEDED(VarUdateFromDate(m_dt, 0, &fields));
}

int COleDateTime::GetYear() const noexcept { return FieldOf(*this, &CalendarFields::year); }

int COleDateTime::GetMonth() const noexcept { return FieldOf(*this, &CalendarFields::month); }

int COleDateTime::GetDay() const noexcept { return FieldOf(*this, &CalendarFields::day); }

int COleDateTime::GetHour() const noexcept { return FieldOf(*this, &CalendarFields::hour); }

int COleDateTime::GetMinute() const noexcept { return FieldOf(*this, &CalendarFields::minute); }

int COleDateTime::GetSecond() const noexcept { return FieldOf(*this, &CalendarFields::second); }

int COleDateTime::GetDayOfWeek() const noexcept
{
    int const day = FieldOf(*this, &CalendarFields::dayOfWeek);
    return day == error ? error : day + 1;
}

int COleDateTime::GetDayOfYear() const noexcept { return FieldOf(*this, &CalendarFields::dayOfYear); }

int COleDateTime::SetDateTime(int year, int month, int day, int hour, int minute, int second) noexcept
{
    m_status = MakeDate({year, month, day, hour, minute, second, 0, 0}, m_dt) ? valid : invalid;
    return m_status;
}

int COleDateTime::SetDate(int year, int month, int day) noexcept { return SetDateTime(year, month, day, 0, 0, 0); }

int COleDateTime::SetTime(int hour, int minute, int second) noexcept
{
    return SetDateTime(1899, 12, 30, hour, minute, second);
}

void COleDateTime::SetSeconds(std::int64_t seconds) noexcept
{
    std::tm fields;
    if (_localtime64_s(&fields, &seconds) == 0)
        SetDateTime(fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday, fields.tm_hour, fields.tm_min,
                    fields.tm_sec);
    else
        m_status = invalid;
}
