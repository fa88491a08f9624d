// Numbers to text.
#pragma once

#include <krplatform/base/types.h>
#include <krplatform/export.h>

#include <cstddef>

namespace kr::detail
{

/// The units of the longest text of a number.
constexpr std::size_t longestNumberText = 24;

/// A text of a number, written in place.
class NumberText
{
public:
    /// `write` puts the text where it is told and gives the place behind it.
    template <class Write>
    explicit NumberText(Write write)
    {
        m_length = static_cast<std::size_t>(write(m_units) - m_units);
    }

    TextView View() const { return {m_units, m_length}; }

private:
    WCHAR m_units[longestNumberText];
    std::size_t m_length;
};

NumberText IntegerText(LONGLONG number);
NumberText IntegerText(ULONGLONG number);

/// Up to 15 digits for a double and 7 for a float, rounded from the exact value with ties away from zero, without zeros
/// at the end. Plain while so many places before the point and so many behind it are enough, otherwise `d.ddE+nn` with
/// two digits of exponent or three. Deliberate: 1/30 is 3.33333333333333E-02. Either zero is "0"; "inf", "-inf", "nan".
NumberText RealText(double number, WCHAR decimalMark);
NumberText RealText(float number, WCHAR decimalMark);
/// The same, put to where there is room for the longest; gives the place behind it.
KRPLATFORM_API WCHAR * WriteReal(double number, WCHAR decimalMark, WCHAR * destination);

/// As many of the four places as needed, no grouping, no symbol.
NumberText AmountText(LONGLONG tenThousandths, WCHAR decimalMark);

} // namespace kr::detail
