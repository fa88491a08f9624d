// Numbers to text.
#pragma once

#include <krplatform/base/types.h>

namespace kr::detail
{

/// A text of a number, written in place: the longest has 24 units.
class NumberText
{
public:
    TextView View() const { return {m_units, m_length}; }

    void Add(WCHAR unit) { m_units[m_length++] = unit; }
    void AddZeros(int count);
    /// The digits of a number; with `places`, the last ones stand behind `decimalMark`.
    void AddDigits(ULONGLONG number);
    void AddDigits(ULONGLONG number, int places, WCHAR decimalMark);

private:
    WCHAR m_units[32];
    UINT m_length = 0;
};

NumberText IntegerText(LONGLONG number);
NumberText IntegerText(ULONGLONG number);

/// Up to 15 digits for a double and 7 for a float, rounded from the exact value with ties away from zero, without zeros
/// at the end. Plain while so many places before the point and so many behind it are enough, otherwise `d.ddE+nn` with
/// two digits of exponent or three. Deliberate: 1/30 is 3.33333333333333E-02. Either zero is "0"; "inf", "-inf", "nan".
NumberText RealText(double number, WCHAR decimalMark);
NumberText RealText(float number, WCHAR decimalMark);

/// As many of the four places as needed, no grouping, no symbol.
NumberText AmountText(LONGLONG tenThousandths, WCHAR decimalMark);

} // namespace kr::detail
