// Default values in text form, with keywords.
#pragma once

#include <krcore/export.h>
#include <krcore/property/krproperty.h>

/// Turns the text of a default value into a property's value and back. For date kinds the text may be a keyword, which the property
/// remembers in its attribute "Kr.DefValue" and which is written again, so that it survives instead of turning into a date:
///
///     text (any case, blanks around)       stores                       remembers
///     "", "NULL"                           the date 0.0                 "NULL"
///     "NOW", "TODAY", "HEUTE"              the formatter's time         "NOW"
///     anything else                        the date as it reads         nothing
///
/// Colours are read and written in their text forms, all other kinds as `SetValueFromString` and the property's text forms do. Text that
/// cannot be read is no failure. Whatever is thrown inside leaves as a `CKrException` with the location of the operation; where memory
/// ran out, property and text are as they were.
class KRCORE_API CKrPropertyValueFormatter
{
public:
    /// The current time is that of this moment, local time, and does not advance.
    CKrPropertyValueFormatter();

    /// Always true. Deliberate: the full date and time is stored for "NOW" also on a date or a time property.
    bool ParseDefaultValue(CString const & text, CKrProperty & property) const;
    /// The text that is stored: "NOW" and "NULL" for the keywords. Always true.
    bool FormatDefaultValueInvariant(CKrProperty const & property, CString & text) const;
    /// The text that is shown: "NOW" and nothing for the keywords. Always true.
    bool FormatDefaultValueLocale(CKrProperty const & property, CString & text) const;
    /// The time that "NOW" stands for.
    void SetCurrentTime(COleDateTime const & time) noexcept { m_currentTime = time; }

private:
    bool FormatDefaultValueImpl(CKrProperty const & property, CString & text, bool locale) const;
    bool ParseDate(CString const & text, CKrProperty & property) const;

    COleDateTime m_currentTime;
};
