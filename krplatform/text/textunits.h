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

/// The number of units at the beginning that both have in common, compared in words of eight bytes.
template <class Char>
std::size_t CommonLength(Char const * left, Char const * right, std::size_t count) noexcept
{
    constexpr std::size_t step = sizeof(std::uint64_t) / sizeof(Char);
    std::size_t index = 0;
    for (; index + step <= count; index += step)
    {
        std::uint64_t leftWord, rightWord;
        std::memcpy(&leftWord, left + index, sizeof leftWord);
        std::memcpy(&rightWord, right + index, sizeof rightWord);
        if (leftWord != rightWord)
            break;
    }
    while (index < count && left[index] == right[index])
        ++index;
    return index;
}

/// The number of ASCII units at the beginning.
template <class Char>
std::size_t AsciiLength(std::basic_string_view<Char> text) noexcept
{
    auto const isOther = [](Char unit) { return UnitValue(unit) >= 0x80; };
    return static_cast<std::size_t>(std::find_if(text.begin(), text.end(), isOther) - text.begin());
}

/// The number of units that `text` takes in the process code page, or that bytes of it take.
std::size_t ConvertedLength(std::basic_string_view<char> text);
std::size_t ConvertedLength(std::basic_string_view<WCHAR> text);

/// Converts to `count` units, the number that `ConvertedLength` told.
void Convert(std::basic_string_view<char> text, WCHAR * units, std::size_t count);
void Convert(std::basic_string_view<WCHAR> text, char * bytes, std::size_t count);

} // namespace kr::detail
