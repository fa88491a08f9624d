// Dates to text by what a locale says.
#pragma once

#include <krplatform/base/types.h>
#include <krplatform/coerce/locale_facts.h>

namespace kr::detail
{

/// Flags of the functions between dates and text.
constexpr unsigned dateTextTimeOnly = 1;
constexpr unsigned dateTextDateOnly = 2;

/// The text of a date, held without an allocation. The patterns of a locale stay far below its room; what does not fit
/// is cut.
class DateText
{
public:
    TextView View() const noexcept { return {m_units, m_length}; }

    void Append(WCHAR unit) noexcept
    {
        if (m_length < room)
            m_units[m_length++] = unit;
    }
    void Append(TextView text) noexcept
    {
        for (WCHAR const unit : text)
            Append(unit);
    }
    /// A number of at most four digits; with `digits` 2, of two at least.
    void AppendNumber(int number, int digits) noexcept;

private:
    static constexpr std::size_t room = 256;

    WCHAR m_units[room];
    std::size_t m_length = 0;
};

/// Appends short date and long time, parted by a blank. A whole day has no time, and a date whose integer part is 0 no
/// date, also where the flags ask for just that part: nothing is appended then. The whole day 0 has its time. Seconds
/// are rounded to the nearest. Deliberate: the years 100 to 999 have three digits. False, with `text` untouched, for
/// dates outside 1 January 100 to 31 December 9999.
bool WriteDate(double date, unsigned flags, DateFacts const & facts, DateText & text) noexcept;

/// The same; `text` is replaced.
bool DateToText(double date, unsigned flags, DateFacts const & facts, Text & text);

} // namespace kr::detail
