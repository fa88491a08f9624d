// Ranges of dates, and calendar calculations.
#pragma once

#include <krcore/export.h>
#include <krplatform/datetime/coledatetime.h>
#include <krplatform/datetime/ctime.h>

/// Two bounds, of which only the lower one can ever change. Deliberate: copying, assigning and `SetUpperBound` do nothing, so that the upper
/// bound always is the zero date.
class KRCORE_API CKrDateTimeRange
{
public:
    CKrDateTimeRange() noexcept;
    CKrDateTimeRange(CKrDateTimeRange const & other) noexcept;
    CKrDateTimeRange & operator=(CKrDateTimeRange const & other) noexcept;
    virtual ~CKrDateTimeRange();

    COleDateTime GetLowerBound() const noexcept { return m_lowerBound; }
    COleDateTime GetUpperBound() const noexcept { return m_upperBound; }
    void SetLowerBound(COleDateTime const & bound) noexcept { m_lowerBound = bound; }
    void SetUpperBound(COleDateTime const & bound) noexcept;

protected:
    void Set(COleDateTime const & lower, COleDateTime const & upper, bool lowerIncluded, bool upperIncluded) noexcept;

private:
    COleDateTime m_lowerBound;
    COleDateTime m_upperBound;
};

/// Calendar calculations without a state. The forms on `CTime` work in local time; they raise E_FAIL for years before 1970 and fields out of
/// range, E_INVALIDARG where the moment cannot be expressed (`COleException *`).
///
/// Weeks begin on Monday, and the first week of a year is the one with at least four days in it, as in ISO 8601. Deliberate: the rule
/// differs from ISO in two places. A date before the year's first Monday that is not in week 1 is always in week 53, also where
/// the last year had 52 (1 January 2022). A Monday, Tuesday or Wednesday that would be in week 53 is always in week 1, also
/// where the year has 53 (28 to 30 December 2020).
class KRCORE_API CKrDateTimeUtils
{
public:
    CKrDateTimeUtils() = default;
    CKrDateTimeUtils(CKrDateTimeUtils const &) = default;
    CKrDateTimeUtils & operator=(CKrDateTimeUtils const &) { return *this; }

    /// The week, 1 to 53. False, with -1, for a date whose status is not valid.
    bool CalendarWeek(COleDateTime const & date, int & week) const;
    bool CalendarWeek(CTime const & date, int & week) const;
    /// Monday and Sunday of a week, at midnight. False, and nothing written, for a week outside 1 to 53. Week 53 of any year gives the days
    /// behind week 52.
    bool DateOfCalendarWeek(int week, int year, COleDateTime & first, COleDateTime & last) const;
    /// The length of the date's month. False, and nothing written, for a date whose status is not valid.
    bool DaysInMonth(COleDateTime const & date, int & days) const;
    bool DaysInMonth(CTime const & date, int & days) const;
    /// The last day of the date's month, at midnight.
    bool EndOfMonth(COleDateTime const & date, COleDateTime & end) const;
    bool EndOfMonth(CTime const & date, CTime & end) const;
    /// Cuts the time. Always true; what cannot be made shows in the status.
    bool AsDate(COleDateTime & date) const;
    bool AsDate(CTime & date) const;
    /// Takes year, month and day, or hour, minute and second, over from the source. Always true.
    bool SetDate(COleDateTime & target, COleDateTime const & source) const;
    bool SetDate(CTime & target, CTime const & source) const;
    bool SetTime(COleDateTime & target, COleDateTime const & source) const;
    bool SetTime(CTime & target, CTime const & source) const;
};
