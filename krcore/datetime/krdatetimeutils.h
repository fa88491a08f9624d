// Calendar calculations.
#pragma once

#include <krcore/export.h>
#include <krplatform/datetime/coledatetime.h>
#include <krplatform/datetime/ctime.h>

/// Calendar calculations without a state.
///
///     int week = 0;
///     CKrDateTimeUtils().CalendarWeek(COleDateTime(2026, 1, 1, 0, 0, 0), week);     week -> 1
///     COleDateTime monday, sunday;
///     CKrDateTimeUtils().DateOfCalendarWeek(1, 2026, monday, sunday);               29 December 2025, 4 January 2026
///
/// Weeks begin on Monday, and the first week of a year is the one with at least four days in it, as in ISO 8601. Deliberate: the rule
/// differs from ISO in two places. The days before the first week of a year are always in week 53, also where the year before has 52
/// (1 January 2022). A Monday, Tuesday or Wednesday that would be in week 53 is always in week 1, also where the year has 53
/// (28 to 30 December 2020).
///
/// The forms on `CTime` work in local time and raise what its constructor raises (`COleException *`), with the target as it was: E_FAIL for
/// years before 1970 and for moments without local time, E_INVALIDARG for a result that cannot be expressed.
class KRCORE_API CKrDateTimeUtils
{
public:
    /// The week, 1 to 53. False, with -1, for a status other than valid and for a moment without local time. Deliberate: the `CTime` 0 is
    /// the date 0.0, in week 52; a valid date outside the calendar is in week 53.
    bool CalendarWeek(COleDateTime const & date, int & week) const;
    bool CalendarWeek(CTime const & date, int & week) const;
    /// Monday and Sunday of a week, at midnight and always valid. False, and nothing written, for a week outside 1 to 53. Deliberate: week
    /// 53 of any year gives the days behind week 52; a year outside the calendar counts from the date 0.0 as if that were a Friday.
    bool DateOfCalendarWeek(int week, int year, COleDateTime & first, COleDateTime & last) const;
    /// The length of the date's month. False, and nothing written, for a status other than valid. A date outside the calendar and a moment
    /// without local time have 31.
    bool DaysInMonth(COleDateTime const & date, int & days) const;
    bool DaysInMonth(CTime const & date, int & days) const;
    /// The last day of the date's month, at midnight. False, and nothing written, for a status other than valid; a date outside the calendar
    /// gives status invalid.
    bool EndOfMonth(COleDateTime const & date, COleDateTime & end) const;
    bool EndOfMonth(CTime const & date, CTime & end) const;

    // The following are always true; on dates, what cannot be made shows in the status: invalid, also for a null date.

    /// Cuts the time.
    bool AsDate(COleDateTime & date) const;
    bool AsDate(CTime & date) const;
    /// Year, month and day of `source`; the target's time stays.
    bool SetDate(COleDateTime & target, COleDateTime const & source) const;
    bool SetDate(CTime & target, CTime const & source) const;
    /// Hour, minute and second of `source`; the target's day stays.
    bool SetTime(COleDateTime & target, COleDateTime const & source) const;
    bool SetTime(CTime & target, CTime const & source) const;
};
