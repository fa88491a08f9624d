// Searching in runs of code units, and comparing them without case. Internal to the text classes.
#pragma once

#include <krplatform/text/casemap.h>
#include <krplatform/text/casing.h>
#include <krplatform/text/textunits.h>

#include <functional>

namespace kr::detail
{

constexpr std::size_t notFound = std::basic_string_view<char>::npos;

/// The position as texts tell it: -1 for `notFound`.
constexpr int PositionOf(std::size_t position) noexcept { return static_cast<int>(position); }
static_assert(PositionOf(notFound) == -1);

/// The position of the first such unit at or behind `start`, or `notFound`. Units of 16 bits are looked at four at a
/// time.
inline std::size_t FindUnit(std::basic_string_view<char> text, char unit, std::size_t start) noexcept
{
    return text.find(unit, start);
}
inline std::size_t FindUnit(std::basic_string_view<WCHAR> text, WCHAR unit, std::size_t start) noexcept
{
    constexpr std::uint64_t ones = 0x0001000100010001, highBits = 0x8000800080008000;
    std::size_t index = start;
    for (; index + 4 <= text.size(); index += 4)
    {
        std::uint64_t word;
        std::memcpy(&word, text.data() + index, sizeof word);
        word ^= unit * ones;
        if (((word - ones) & ~word & highBits) != 0) // one of the four is zero
            break;
    }
    for (; index < text.size(); ++index)
    {
        if (text[index] == unit)
            return index;
    }
    return notFound;
}

/// How many such units there are. Compilers turn the inner loop, whose steps are known, into one look at all eight.
template <class Char>
std::size_t CountUnit(std::basic_string_view<Char> text, Char unit) noexcept
{
    std::size_t count = 0;
    std::size_t index = 0;
    for (; index + 8 <= text.size(); index += 8)
    {
        unsigned found = 0;
        for (std::size_t step = 0; step < 8; ++step)
            found += text[index + step] == unit;
        count += found;
    }
    for (; index < text.size(); ++index)
        count += text[index] == unit;
    return count;
}

/// The position of `part` at or behind `start`, or `notFound`. Empty text is found at any start up to the length.
template <class Char>
std::size_t FindText(std::basic_string_view<Char> text, std::basic_string_view<Char> part, std::size_t start) noexcept
{
    if (part.empty())
        return start <= text.size() ? start : notFound;
    while (start + part.size() <= text.size())
    {
        std::size_t const last = text.size() - part.size();
        std::size_t const hit = FindUnit(text.substr(0, last + 1), part.front(), start);
        if (hit == notFound)
            return notFound;
        if (CommonLength(text.data() + hit, part.data(), part.size()) == part.size())
            return hit;
        start = hit + 1;
    }
    return notFound;
}

/// White space and the case mapping of a kind of units, each unit by itself. Bytes know ASCII only.
template <class Char>
struct UnitRules;

template <>
struct UnitRules<WCHAR>
{
    static bool IsSpace(WCHAR unit) noexcept { return detail::IsSpace(unit); }
    static CaseMap const & Upper() noexcept { return UpperCaseMap(); }
    static CaseMap const & Lower() noexcept { return LowerCaseMap(); }
};

template <>
struct UnitRules<char>
{
    struct AsciiMap
    {
        char first; ///< of the letters that are mapped
        char target;

        char operator()(char unit) const noexcept
        {
            return unit >= first && unit < first + 26 ? static_cast<char>(unit - first + target) : unit;
        }
    };

    static bool IsSpace(char unit) noexcept { return unit == ' ' || (unit >= '\t' && unit <= '\r'); }
    static AsciiMap Upper() noexcept { return {'a', 'A'}; }
    static AsciiMap Lower() noexcept { return {'A', 'a'}; }
};

/// -1, 0 or 1, by the lower-case counterparts of the units.
template <class Char>
int CompareNoCase(std::basic_string_view<Char> left, std::basic_string_view<Char> right) noexcept
{
    auto && lower = UnitRules<Char>::Lower();
    std::size_t const common = std::min(left.size(), right.size());
    for (std::size_t index = 0; index < common; ++index)
    {
        if (left[index] == right[index])
            continue;
        unsigned const leftValue = UnitValue(lower(left[index]));
        unsigned const rightValue = UnitValue(lower(right[index]));
        if (leftValue != rightValue)
            return leftValue < rightValue ? -1 : 1;
    }
    return (left.size() > right.size()) - (left.size() < right.size());
}

/// Whether `part` points into `text`.
template <class Char>
bool Holds(std::basic_string_view<Char> text, Char const * part) noexcept
{
    std::less<Char const *> const isBefore;
    return !isBefore(part, text.data()) && isBefore(part, text.data() + text.size());
}

} // namespace kr::detail
