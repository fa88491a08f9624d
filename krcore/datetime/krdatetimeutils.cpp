#include <krcore/datetime/krdatetimeutils.h>

#include <krcore/datetime/krdateoftime.h>

namespace
{

struct CalendarFields
{
    int year, month, day, hour, minute, second;
};

// -1 in every field for a date that is not valid.
CalendarFields FieldsOf(COleDateTime const & date)
{
    SYSTEMTIME fields;
    if (!date.GetAsSystemTime(fields))
        return {-1, -1, -1, -1, -1, -1};
    return {fields.wYear, fields.wMonth, fields.wDay, fields.wHour, fields.wMinute, fields.wSecond};
}

// Local time. Year, month and day are 0 where there is none, the time -1.
CalendarFields FieldsOf(CTime const & time)
{
    std::tm fields;
    if (!time.GetLocalTm(&fields))
        return {0, 0, 0, -1, -1, -1};
    return {fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday, fields.tm_hour, fields.tm_min, fields.tm_sec};
}

COleDateTime DateOf(CalendarFields const & fields)
{
    return COleDateTime(fields.year, fields.month, fields.day, fields.hour, fields.minute, fields.second);
}

CTime TimeOf(CalendarFields const & fields)
{
    return CTime(fields.year, fields.month, fields.day, fields.hour, fields.minute, fields.second);
}

CalendarFields Joined(CalendarFields const & date, CalendarFields const & time)
{
    return {date.year, date.month, date.day, time.hour, time.minute, time.second};
}

CalendarFields AtMidnight(CalendarFields fields)
{
    fields.hour = fields.minute = fields.second = 0;
    return fields;
}

int LengthOfMonth(int year, int month)
{
    switch (month)
    {
    case 2:
        return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0 ? 29 : 28;
    case 4:
    case 6:
    case 9:
    case 11:
        return 30;
    default:
        return 31;
    }
}

// 1 January of a year: its date, and its weekday with Monday as 0.
struct NewYear
{
    int date;
    int weekday;
};

// The date 0 and a Friday for a year outside the calendar.
NewYear NewYearOf(int year)
{
    if (year < 100 || year > 9999)
        return {0, 4};
    constexpr int daysBeforeZero = 693593; // from 1 January of the year 1, a Monday, to the date 0
    int const before = year - 1;
    int const days = 365 * before + before / 4 - before / 100 + before / 400;
    return {days - daysBeforeZero, days % 7};
}

} // namespace

bool CKrDateTimeUtils::CalendarWeek(COleDateTime const & date, int & week) const
{
    week = -1;
    if (date.GetStatus() != COleDateTime::valid)
        return false;

    UDATE fields;
    bool const isRead = date.GetAsUdate(fields);
    int const weekday = NewYearOf(isRead ? fields.st.wYear : -1).weekday;
    bool const firstWeekIsShort = weekday >= 4; // the year begins on a Friday, Saturday or Sunday
    int const place = (isRead ? fields.wDayOfYear : -1) + weekday;
    if (firstWeekIsShort && place <= 7)
    {
        week = 53;
        return true;
    }
    int const shifted = firstWeekIsShort ? place - 1 : place + 6;
    bool const isEarlyWeekday = shifted % 7 <= 2; // Monday, Tuesday or Wednesday
    week = shifted / 7;
    if (week == 53 && isEarlyWeekday)
        week = 1;
    return true;
}

bool CKrDateTimeUtils::CalendarWeek(CTime const & date, int & week) const
{
    return CalendarWeek(kr::detail::DateOfTime(date), week);
}

bool CKrDateTimeUtils::DateOfCalendarWeek(int week, int year, COleDateTime & first, COleDateTime & last) const
{
    if (week < 1 || week > 53)
        return false;
    NewYear const newYear = NewYearOf(year);
    // Whole days, so the dates grow evenly below 0 too.
    int const monday = newYear.date + 7 * week - newYear.weekday - (newYear.weekday < 4 ? 7 : 0);
    first = COleDateTime(static_cast<DATE>(monday));
    last = COleDateTime(static_cast<DATE>(monday + 6));
    return true;
}

bool CKrDateTimeUtils::DaysInMonth(COleDateTime const & date, int & days) const
{
    if (date.GetStatus() != COleDateTime::valid)
        return false;
    CalendarFields const fields = FieldsOf(date);
    days = LengthOfMonth(fields.year, fields.month);
    return true;
}

bool CKrDateTimeUtils::DaysInMonth(CTime const & date, int & days) const
{
    CalendarFields const fields = FieldsOf(date);
    days = LengthOfMonth(fields.year, fields.month);
    return true;
}

bool CKrDateTimeUtils::EndOfMonth(COleDateTime const & date, COleDateTime & end) const
{
    CalendarFields fields = AtMidnight(FieldsOf(date));
    if (!DaysInMonth(date, fields.day))
        return false;
    end = DateOf(fields);
    return true;
}

bool CKrDateTimeUtils::EndOfMonth(CTime const & date, CTime & end) const
{
    CalendarFields fields = AtMidnight(FieldsOf(date));
    fields.day = LengthOfMonth(fields.year, fields.month);
    end = TimeOf(fields);
    return true;
}

bool CKrDateTimeUtils::AsDate(COleDateTime & date) const
{
    date = DateOf(AtMidnight(FieldsOf(date)));
    return true;
}

bool CKrDateTimeUtils::AsDate(CTime & date) const
{
    date = TimeOf(AtMidnight(FieldsOf(date)));
    return true;
}

bool CKrDateTimeUtils::SetDate(COleDateTime & target, COleDateTime const & source) const
{
    target = DateOf(Joined(FieldsOf(source), FieldsOf(target)));
    return true;
}

bool CKrDateTimeUtils::SetDate(CTime & target, CTime const & source) const
{
    target = TimeOf(Joined(FieldsOf(source), FieldsOf(target)));
    return true;
}

bool CKrDateTimeUtils::SetTime(COleDateTime & target, COleDateTime const & source) const
{
    target = DateOf(Joined(FieldsOf(target), FieldsOf(source)));
    return true;
}

bool CKrDateTimeUtils::SetTime(CTime & target, CTime const & source) const
{
    target = TimeOf(Joined(FieldsOf(target), FieldsOf(source)));
    return true;
}
