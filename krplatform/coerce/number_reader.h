// Decimal numbers in text, by given marks.
#pragma once

#include <krplatform/coerce/parsed_number.h>

namespace kr::detail
{

struct Marks
{
    WCHAR decimal;
    WCHAR group; ///< 0: none

    friend bool operator==(Marks const &, Marks const &) = default;
};

constexpr bool IsDigit(WCHAR unit) { return unit >= OLESTR('0') && unit <= OLESTR('9'); }

/// Reads all of `text`, which has no blanks at its ends, as a decimal number; false where it is none. Whether the
/// currency symbol was seen is told in either case. An empty `symbol` is never seen.
bool ReadNumber(TextView text, Marks marks, TextView symbol, ParsedNumber & number, bool & hasSymbol);

} // namespace kr::detail
