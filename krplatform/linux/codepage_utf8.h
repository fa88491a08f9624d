// The characters of UTF-8, one at a time.
#pragma once

#include <krplatform/linux/codepage_output.h>

#include <string_view>

namespace kr::detail
{

constexpr bool IsHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
constexpr bool IsLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }
constexpr bool IsSurrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xE000; }

/// Stands for what is no character.
constexpr WCHAR replacementUnit = 0xFFFD;

/// The bytes of a character, all or none. False where they do not fit.
template <class Output>
bool PutUtf8(Output & output, char32_t character)
{
    auto const continuation = [character](int shift) { return static_cast<char>(0x80 | (character >> shift & 0x3F)); };
    if (character < 0x80)
        return output.Put(static_cast<char>(character));
    if (character < 0x800)
        return output.Put({static_cast<char>(0xC0 | character >> 6), continuation(0)});
    if (character < 0x10000)
        return output.Put({static_cast<char>(0xE0 | character >> 12), continuation(6), continuation(0)});
    return output.Put({static_cast<char>(0xF0 | character >> 18), continuation(12), continuation(6), continuation(0)});
}

/// The bytes that may begin a character of more than one, and those that may follow them first. Any others of
/// 80 to BF may follow.
struct Utf8Beginning
{
    BYTE first;
    BYTE last;
    BYTE size;
    BYTE secondFirst;
    BYTE secondLast;
};
// clang-format off
inline constexpr Utf8Beginning utf8Beginnings[] = {
    { 0xC2, 0xDF, 2, 0x80, 0xBF },
    { 0xE0, 0xE0, 3, 0xA0, 0xBF },  // not shorter
    { 0xE1, 0xEC, 3, 0x80, 0xBF },
    { 0xED, 0xED, 3, 0x80, 0x9F },  // no surrogates
    { 0xEE, 0xEF, 3, 0x80, 0xBF },
    { 0xF0, 0xF0, 4, 0x90, 0xBF },  // not shorter
    { 0xF1, 0xF3, 4, 0x80, 0xBF },
    { 0xF4, 0xF4, 4, 0x80, 0x8F },  // up to U+10FFFF
};
// clang-format on

/// The character, of so many bytes; where they are none, the longest beginning of one, or a byte that begins none.
struct Utf8Character
{
    char32_t character;
    std::size_t size;
    bool isValid;
};

/// The first character of `bytes`, which are not empty.
inline Utf8Character DecodeUtf8(std::string_view bytes)
{
    auto const first = static_cast<BYTE>(bytes[0]);
    if (first < 0x80)
        return {first, 1, true};
    for (Utf8Beginning const & beginning : utf8Beginnings)
    {
        if (first < beginning.first || first > beginning.last)
            continue;
        char32_t character = first & (0x7Fu >> beginning.size);
        for (std::size_t index = 1; index < beginning.size; ++index)
        {
            BYTE const low = index == 1 ? beginning.secondFirst : BYTE{0x80};
            BYTE const high = index == 1 ? beginning.secondLast : BYTE{0xBF};
            auto const byte = index < bytes.size() ? static_cast<BYTE>(bytes[index]) : BYTE{0};
            if (byte < low || byte > high)
                return {replacementUnit, index, false};
            character = character << 6 | (byte & 0x3Fu);
        }
        return {character, beginning.size, true};
    }
    return {replacementUnit, 1, false};
}

} // namespace kr::detail
