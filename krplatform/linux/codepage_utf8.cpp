#include <krplatform/base/hresult.h>
#include <krplatform/linux/codepage_convert.h>
#include <krplatform/linux/codepage_output.h>

namespace kr::detail
{

namespace
{

constexpr WCHAR s_replacement = 0xFFFD;

constexpr bool IsHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
constexpr bool IsLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }
constexpr bool IsSurrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xE000; }

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

template <class Output>
DWORD NarrowInto(Output & output, bool validOnly, TextView text, bool & usedDefault)
{
    for (std::size_t index = 0; index < text.size(); ++index)
    {
        char32_t character = text[index];
        bool isLone = false;
        if (IsHighSurrogate(character) && index + 1 < text.size() && IsLowSurrogate(text[index + 1]))
            character = 0x10000 + ((character - 0xD800) << 10) + (text[++index] - 0xDC00u);
        else if (IsSurrogate(character))
        {
            if (validOnly)
                return ERROR_NO_UNICODE_TRANSLATION;
            isLone = true;
            character = s_replacement;
        }
        if (!PutUtf8(output, character))
            return ERROR_INSUFFICIENT_BUFFER;
        usedDefault = usedDefault || isLone;
    }
    return ERROR_SUCCESS;
}

/// The bytes that may begin a character of more than one, and those that may follow them first. Any others of
/// 80 to BF may follow.
struct Beginning
{
    BYTE first;
    BYTE last;
    BYTE size;
    BYTE secondFirst;
    BYTE secondLast;
};
// clang-format off
constexpr Beginning s_beginnings[] = {
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

struct DecodedCharacter
{
    char32_t character;
    std::size_t size;
    bool isValid;
};

DecodedCharacter DecodeUtf8(std::string_view bytes)
{
    auto const first = static_cast<BYTE>(bytes[0]);
    if (first < 0x80)
        return {first, 1, true};
    for (Beginning const & beginning : s_beginnings)
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
                return {s_replacement, index, false};
            character = character << 6 | (byte & 0x3Fu);
        }
        return {character, beginning.size, true};
    }
    return {s_replacement, 1, false};
}

template <class Output>
DWORD WidenInto(Output & output, bool validOnly, std::string_view bytes)
{
    while (!bytes.empty())
    {
        auto const [character, size, isValid] = DecodeUtf8(bytes);
        if (validOnly && !isValid)
            return ERROR_NO_UNICODE_TRANSLATION;
        bytes.remove_prefix(size);
        if (character < 0x10000)
        {
            if (!output.Put(static_cast<WCHAR>(character)))
                return ERROR_INSUFFICIENT_BUFFER;
            continue;
        }
        auto const high = static_cast<WCHAR>(0xD7C0 + (character >> 10));
        auto const low = static_cast<WCHAR>(0xDC00 + (character & 0x3FF));
        if (!output.Put({high, low}))
            return bytes.empty() && output.Put(high) ? ERROR_SUCCESS : ERROR_INSUFFICIENT_BUFFER;
    }
    return ERROR_SUCCESS;
}

} // namespace

Conversion NarrowToUtf8(bool validOnly, TextView text, Destination<char> destination, bool & usedDefault)
{
    return ConvertInto(destination, [&](auto & output) { return NarrowInto(output, validOnly, text, usedDefault); });
}

int NarrowUnitToUtf8(WCHAR unit, char * bytes)
{
    WritingOutput<char> output({bytes, 3});
    return !IsSurrogate(unit) && PutUtf8(output, unit) ? static_cast<int>(output.GetCount()) : 0;
}

Conversion WidenUtf8(bool validOnly, std::string_view bytes, Destination<WCHAR> destination)
{
    return ConvertInto(destination, [&](auto & output) { return WidenInto(output, validOnly, bytes); });
}

} // namespace kr::detail
