// Runs of code units: copying, comparing and converting them. Internal to the text classes.
#pragma once

#include <krplatform/base/types.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>

namespace kr::detail
{

/// The number by which units are ordered; bytes have no sign.
template <class Char>
constexpr unsigned UnitValue(Char unit) noexcept
{
    return static_cast<std::make_unsigned_t<Char>>(unit);
}

template <class Char>
void CopyUnits(Char * destination, Char const * source, std::size_t count) noexcept
{
    if (count != 0) // a view of no text is null
        std::memcpy(destination, source, count * sizeof(Char));
}

/// The same where the two may overlap.
template <class Char>
void MoveUnits(Char * destination, Char const * source, std::size_t count) noexcept
{
    if (count != 0)
        std::memmove(destination, source, count * sizeof(Char));
}

/// The number of units at the beginning that both have in common, two words of eight bytes at a time.
template <class Char>
std::size_t CommonLength(Char const * left, Char const * right, std::size_t count) noexcept
{
    constexpr std::size_t step = 2 * sizeof(std::uint64_t) / sizeof(Char);
    auto const areSame = [left, right](std::size_t index)
    {
        std::uint64_t leftWords[2], rightWords[2];
        std::memcpy(leftWords, left + index, sizeof leftWords);
        std::memcpy(rightWords, right + index, sizeof rightWords);
        return ((leftWords[0] ^ rightWords[0]) | (leftWords[1] ^ rightWords[1])) == 0;
    };
    std::size_t index = 0;
    while (index + step <= count && areSame(index))
        index += step;
    while (index < count && left[index] == right[index])
        ++index;
    return index;
}

/// Whether all units are ASCII, looked at in words of eight bytes.
template <class Char>
bool IsAscii(std::basic_string_view<Char> text) noexcept
{
    constexpr std::size_t step = sizeof(std::uint64_t) / sizeof(Char);
    constexpr std::uint64_t beyondAscii = sizeof(Char) == 1 ? 0x8080808080808080 : 0xFF80FF80FF80FF80;
    std::uint64_t found = 0;
    std::size_t index = 0;
    for (; index + step <= text.size(); index += step)
    {
        std::uint64_t word;
        std::memcpy(&word, text.data() + index, sizeof word);
        found |= word;
    }
    for (; index < text.size(); ++index)
        found |= UnitValue(text[index]);
    return (found & beyondAscii) == 0;
}

/// Copies ASCII units to units of the other width.
template <class Char, class OtherChar>
void CopyAscii(Char * destination, OtherChar const * source, std::size_t count) noexcept
{
    constexpr std::size_t step = 8;
    for (; count >= step; count -= step, source += step, destination += step)
    {
        OtherChar units[step]; // arrays of their own, which the compiler knows not to overlap, are converted as one
        Char converted[step];
        CopyUnits(units, source, step);
        for (std::size_t index = 0; index < step; ++index)
            converted[index] = static_cast<Char>(units[index]);
        CopyUnits(destination, converted, step);
    }
    for (std::size_t index = 0; index < count; ++index)
        destination[index] = static_cast<Char>(source[index]);
}

/// The number of units that `text` takes in the process code page, or that bytes of it take.
std::size_t ConvertedLength(std::basic_string_view<char> text);
std::size_t ConvertedLength(std::basic_string_view<WCHAR> text);

/// Converts to `count` units, the number that `ConvertedLength` told.
void Convert(std::basic_string_view<char> text, WCHAR * units, std::size_t count);
void Convert(std::basic_string_view<WCHAR> text, char * bytes, std::size_t count);

} // namespace kr::detail
