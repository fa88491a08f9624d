// The pieces of a date or time pattern: runs of one letter, and literals.
#pragma once

#include <krplatform/base/wchar.h>

namespace kr::detail
{

/// One piece of a pattern: a run of the same letter (`letter` is that letter), or a literal (`letter` is 0). Its text is
/// `length` units of the pattern from `first` on, quotes left out.
struct PatternPiece
{
    WCHAR letter;
    unsigned short first;
    unsigned short length;

    TextView In(TextView pattern) const noexcept { return pattern.substr(first, length); }
};

/// Finds the next piece of `pattern` from `position` on, which moves behind it. Text in single quotes is literal; a quote
/// without its partner ends at the pattern's end. False at the end. Of a pattern past 65535 units only those are read.
bool NextPiece(TextView pattern, std::size_t & position, PatternPiece & piece) noexcept;

} // namespace kr::detail
