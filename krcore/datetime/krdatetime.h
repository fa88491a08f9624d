// Dates, times of day, and both together.
#pragma once

#include <krcore/export.h>
#include <krplatform/datetime/coledatetime.h>
#include <krplatform/datetime/ctime.h>
#include <krplatform/text/cstring.h>

class CKrDate;
class CKrTime;
class CKrDateTime;

/// What the three classes share: an automation date with a status, and the tests that tell empty (null), broken (invalid) and the zero date
/// apart. A new object is zero. There are no comparisons: compare the `COleDateTime` of each.
///
/// Deliberate, for all four classes: the copy constructor ignores its source and gives the zero value; only `=` and `Set` copy. So pass a
/// value by reference; what is returned here is made in the caller's object and arrives whole.
///
/// The date part of a value is its integer, the time part what is left, cut towards zero. Deliberate: parts are put together by adding them,
/// also where one comes from before 30 December 1899 and the other does not: the date -2.0 with the time 0.75 is -1.25, the
/// day after, at 6:00.
class KRCORE_API CKrDateTimeBase
{
public:
    CKrDateTimeBase() noexcept;
    CKrDateTimeBase(CKrDateTimeBase const & other) noexcept;
    CKrDateTimeBase & operator=(CKrDateTimeBase const & other) noexcept;
    virtual ~CKrDateTimeBase();

    bool IsValid() const noexcept { return m_value.GetStatus() == COleDateTime::valid; }
    bool IsNull() const noexcept { return m_value.GetStatus() == COleDateTime::null; }
    /// Valid and exactly 0.0, which is 30 December 1899, midnight.
    bool IsZero() const noexcept { return IsValid() && m_value.m_dt == 0.0; }

    operator COleDateTime() const noexcept { return m_value; }
    /// As local time. 0 for a value that is not valid or outside the calendar, and for years before 1900. Deliberate: raises E_FAIL
    /// (`COleException *`) for the years 1900 to 1969. Raises E_INVALIDARG where the moment cannot be expressed, as after the year 3000.
    operator CTime() const;

    /// Text by a `wcsftime` pattern, the same for all classes; empty unless valid. Null raises E_INVALIDARG (`COleException *`). A result of
    /// more than 255 characters is lost; a date outside the calendar is string resource 55296, or else "Invalid DateTime".
    CString Format(WCHAR const * pattern) const;
    CString Format(CString const & pattern) const { return Format(pattern.GetString()); }

protected:
    // Replace value and status; a status other than valid makes the value 0.0.
    void SetVal(COleDateTime const & value) noexcept;
    void SetVal(CTime value) noexcept;
    void SetVal(CKrDateTimeBase const & value) noexcept { m_value = value.m_value; }
    // Replace one part, and the status; a status other than valid makes the value 0.0.
    void SetDateImpl(COleDateTime const & value) noexcept;
    void SetTimeImpl(COleDateTime const & value) noexcept;

    /// Text in a locale, of the parts that the flags of `VarBstrFromDate` ask for; empty unless valid. An unknown locale is treated as a date
    /// outside the calendar.
    CString FormatPart(unsigned long flags, unsigned long lcid) const;
    /// The date that a text in the user's locale gives. Deliberate: the valid zero value for text that cannot be read.
    static COleDateTime ParseText(CString const & text);
    /// Local time, to the second.
    static COleDateTime ReadClock() noexcept;

    COleDateTime m_value;
};

/// A date: the whole days of a value.
///
///     CKrDate date(COleDateTime(44197.75));            -> 44197.0, 1 January 2021
///     date.FormatInvariant()                           -> "2021-01-01"
///     CKrDate copy(date);                              -> zero; write `copy = date`
class KRCORE_API CKrDate : public CKrDateTimeBase
{
public:
    CKrDate() noexcept;
    CKrDate(CKrDate const & other) noexcept;
    CKrDate(COleDateTime const & value) noexcept;
    CKrDate(CTime value) noexcept;
    CKrDate & operator=(CKrDate const & other) noexcept;

    static CKrDate Today();

    /// Value and status.
    CKrDate & Set(CKrDate const & value) noexcept;
    // The date part; the object's own fraction, if it has one, stays.
    CKrDate & Set(COleDateTime const & value) noexcept;
    CKrDate & Set(CTime value) noexcept;
    CKrDate & Set(CKrDateTime const & value) noexcept;
    CKrDate & SetNull() noexcept;
    /// Deliberate: leaves the date invalid, since the calendar has no day 0.
    CKrDate & SetZero() noexcept;
    CKrDate & SetToday() noexcept;
    /// The date of a text in the user's locale. Deliberate: text that cannot be read is the zero date, with status valid.
    CKrDate & Parse(CString const & text);

    using CKrDateTimeBase::Format;
    /// The date in the locale's short form; empty for the date 0.0, as the platform has it.
    CString Format(unsigned long lcid) const;
    /// In the user's locale.
    CString FormatLocale() const { return Format(static_cast<unsigned long>(LOCALE_USER_DEFAULT)); }
    /// "%Y-%m-%d".
    CString FormatInvariant() const;

    CKrTime AsTime() const noexcept;
    CKrDateTime AsDateTime() const noexcept;
    operator CKrTime() const noexcept;
    operator CKrDateTime() const noexcept;
};

/// A time of day: the fraction of a value.
///
///     CKrTime time(COleDateTime(44197.75));            -> 0.75
///     time.FormatInvariant()                           -> "18:00:00"
///     time.AsDateTime().FormatInvariant()              -> "1899-12-30 18:00:00"
class KRCORE_API CKrTime : public CKrDateTimeBase
{
public:
    CKrTime() noexcept;
    CKrTime(CKrTime const & other) noexcept;
    CKrTime(COleDateTime const & value) noexcept;
    CKrTime(CTime value) noexcept;
    CKrTime & operator=(CKrTime const & other) noexcept;

    static CKrTime Now();

    /// Value and status.
    CKrTime & Set(CKrTime const & value) noexcept;
    // The time part; the object's own days, if it has any, stay.
    CKrTime & Set(COleDateTime const & value) noexcept;
    CKrTime & Set(CTime value) noexcept;
    /// Deliberate: replaces the date part; the fraction stays. For the time of `value` write `*this = value.AsTime()`.
    CKrTime & Set(CKrDateTime const & value) noexcept;
    /// Midnight without days, valid.
    CKrTime & SetZero() noexcept;
    CKrTime & SetNow() noexcept;
    /// The time of a text in the user's locale. Deliberate: text that cannot be read is midnight, with status valid.
    CKrTime & Parse(CString const & text);

    using CKrDateTimeBase::Format;
    /// The time in the locale's long form; empty for whole days that are not 0, as the platform has it.
    CString Format(unsigned long lcid) const;
    /// In the user's locale.
    CString FormatLocale() const { return Format(static_cast<unsigned long>(LOCALE_USER_DEFAULT)); }
    /// "%H:%M:%S".
    CString FormatInvariant() const;

    CKrDate AsDate() const noexcept;
    CKrDateTime AsDateTime() const noexcept;
    operator CKrDate() const noexcept;
    operator CKrDateTime() const noexcept;
};

/// A date with its time.
///
///     CKrDateTime moment(COleDateTime(44197.75));
///     moment.FormatInvariant()                                    -> "2021-01-01 18:00:00"
///     moment.SetDate(COleDateTime(44000.25)).FormatInvariant()    -> "2020-06-18 18:00:00"
class KRCORE_API CKrDateTime : public CKrDateTimeBase
{
public:
    CKrDateTime() noexcept;
    CKrDateTime(CKrDateTime const & other) noexcept;
    CKrDateTime(COleDateTime const & value) noexcept;
    CKrDateTime(CTime value) noexcept;
    CKrDateTime & operator=(CKrDateTime const & other) noexcept;

    static CKrDateTime Now();

    // Value and status; a status other than valid makes the value 0.0.
    CKrDateTime & Set(CKrDateTime const & value) noexcept;
    CKrDateTime & Set(COleDateTime const & value) noexcept;
    CKrDateTime & Set(CTime value) noexcept;
    // The date part; the time stays.
    CKrDateTime & SetDate(COleDateTime const & value) noexcept;
    CKrDateTime & SetDate(CTime value) noexcept;
    CKrDateTime & SetDate(CKrDate const & value) noexcept;
    CKrDateTime & SetDate(CKrDateTime const & value) noexcept;
    // The time part; the date stays.
    CKrDateTime & SetTime(COleDateTime const & value) noexcept;
    CKrDateTime & SetTime(CTime value) noexcept;
    CKrDateTime & SetTime(CKrTime const & value) noexcept;
    CKrDateTime & SetTime(CKrDateTime const & value) noexcept;
    CKrDateTime & SetNull() noexcept;
    CKrDateTime & SetZero() noexcept;
    /// Keeps the time, or the date; the status is valid afterwards, also of a null or invalid object.
    CKrDateTime & SetZeroDate() noexcept;
    CKrDateTime & SetZeroTime() noexcept;
    CKrDateTime & SetNow() noexcept;
    /// The date and time of a text in the user's locale. Deliberate: text that cannot be read is the zero value, with status valid.
    CKrDateTime & Parse(CString const & text);

    using CKrDateTimeBase::Format;
    /// Date and time in the locale's forms; without the time at midnight, and without the date for the day 0.
    CString Format(unsigned long lcid) const;
    /// In the user's locale.
    CString FormatLocale() const { return Format(static_cast<unsigned long>(LOCALE_USER_DEFAULT)); }
    /// "%Y-%m-%d %H:%M:%S".
    CString FormatInvariant() const;

    CKrDate AsDate() const noexcept;
    CKrTime AsTime() const noexcept;
    operator CKrDate() const noexcept;
    operator CKrTime() const noexcept;
};
