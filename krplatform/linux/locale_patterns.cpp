#include "krplatform/linux/locale_patterns.h"

#include <krplatform/coerce/date_pattern.h>
#include <krplatform/text/casing.h>

#include <algorithm>

namespace kr::detail
{

namespace
{

struct FieldLetter
{
    WCHAR letter;
    WCHAR platformLetter;
    std::size_t fewest; ///< letters that the platform writes
    std::size_t most;
};

// clang-format off
constexpr FieldLetter s_letters[] = {
    { OLESTR('y'), OLESTR('y'), 4, 4 },
    { OLESTR('u'), OLESTR('y'), 4, 4 },
    { OLESTR('M'), OLESTR('M'), 1, 4 },
    { OLESTR('L'), OLESTR('M'), 1, 4 },
    { OLESTR('d'), OLESTR('d'), 1, 2 },
    { OLESTR('h'), OLESTR('h'), 1, 2 },
    { OLESTR('K'), OLESTR('h'), 1, 2 },      // hours from 0 to 11 and from 1 to 24 are not the platform's
    { OLESTR('H'), OLESTR('H'), 1, 2 },
    { OLESTR('k'), OLESTR('H'), 1, 2 },
    { OLESTR('m'), OLESTR('m'), 1, 2 },
    { OLESTR('s'), OLESTR('s'), 1, 2 },
    { OLESTR('a'), OLESTR('t'), 2, 2 },
    { OLESTR('b'), OLESTR('t'), 2, 2 },      // with noon and midnight
    { OLESTR('B'), OLESTR('t'), 2, 2 },      // parts of the day: morning, evening
};
// clang-format on

constexpr bool IsDirectionMark(WCHAR unit) { return unit == 0x200E || unit == 0x200F || unit == 0x061C; }

/// Outside ASCII everything counts as one: to be quoted does no harm.
constexpr bool IsLetter(WCHAR unit)
{
    int const lower = unit | 0x20;
    return unit >= 0x80 || (lower >= OLESTR('a') && lower <= OLESTR('z'));
}

Text PlatformLiteral(TextView literal)
{
    Text plain;
    bool hasLetters = false;
    for (WCHAR const unit : literal)
    {
        if (IsDirectionMark(unit))
            continue;
        plain += IsSpace(unit) ? OLESTR(' ') : unit;
        hasLetters = hasLetters || IsLetter(plain.back());
    }
    return hasLetters ? OLESTR('\'') + plain + OLESTR('\'') : plain;
}

bool EndsInField(Text const & pattern)
{
    return !pattern.empty() &&
           std::any_of(std::begin(s_letters), std::end(s_letters),
                       [&](FieldLetter const & field) { return field.platformLetter == pattern.back(); });
}

} // namespace

Text PlatformPattern(TextView pattern)
{
    Text result;
    std::size_t position = 0;
    for (PatternPiece piece; NextPiece(pattern, position, piece);)
    {
        if (!piece.letter)
        {
            result += PlatformLiteral(piece.In(pattern));
            continue;
        }
        auto const field = std::find_if(std::begin(s_letters), std::end(s_letters),
                                        [&](FieldLetter const & row) { return row.letter == piece.letter; });
        if (field == std::end(s_letters))
            return {};
        if (EndsInField(result))
            result += OLESTR(' ');
        result.append(std::clamp<std::size_t>(piece.length, field->fewest, field->most), field->platformLetter);
    }
    return result;
}

} // namespace kr::detail
