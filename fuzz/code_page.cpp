// Code pages: the choice of one, then bytes that are both widened and, as text, narrowed.
#include "fuzz/fuzz_target.h"

#include <krplatform/codepage/codepage.h>

#include <algorithm>
#include <iterator>
#include <vector>

namespace kr::fuzz
{

namespace
{

constexpr UINT pages[] = {65001, 932,   936,   949,   950,   1361,  874,   1250,  1251,  1252,  1253,
                          1254,  1255,  1256,  1257,  1258,  437,   737,   775,   850,   852,   855,
                          857,   860,   861,   863,   864,   865,   866,   869,   10000, 28591, 28592,
                          28593, 28594, 28595, 28596, 28597, 28598, 28599, 28603, 28605};

bool IsDoubleByte(UINT page) { return page == 932 || page == 936 || page == 949 || page == 950 || page == 1361; }

/// Converts into exactly the room that is asked for, and sees that less is too little. Empty after a failure.
template <class Target, class Convert>
std::basic_string<Target> Converted(Convert const & convert, bool mayCutAPair = false)
{
    int const needed = convert(nullptr, 0);
    std::vector<Target> exact(static_cast<std::size_t>(needed)); // not a string: behind it there is nothing
    if (needed == 0)
        return {};
    KR_LAW(convert(exact.data(), needed) == needed);

    constexpr Target untouched = 0x55;
    std::vector<Target> tight(exact.size() - 1, untouched);
    if (!tight.empty() && !mayCutAPair)
    {
        SetLastError(ERROR_SUCCESS);
        KR_LAW(convert(tight.data(), needed - 1) == 0 && GetLastError() == ERROR_INSUFFICIENT_BUFFER);
        auto const fitted = std::ranges::mismatch(tight, exact).in1;
        KR_LAW(tight.end() - fitted < 4 && std::count(fitted, tight.end(), untouched) == tight.end() - fitted);
    }
    return {exact.begin(), exact.end()};
}

Units Widened(UINT page, DWORD flags, std::string_view bytes)
{
    auto const widen = [=](WCHAR * text, int room)
    { return MultiByteToWideChar(page, flags, bytes.data(), static_cast<int>(bytes.size()), text, room); };
    bool const mayEndInPair = page == CP_UTF8 && bytes.size() >= 4 && (bytes[bytes.size() - 4] & 0xF0) == 0xF0;
    return bytes.empty() ? Units() : Converted<WCHAR>(widen, mayEndInPair);
}

std::string Narrowed(UINT page, DWORD flags, Units const & text, bool & usedDefault)
{
    BOOL used = FALSE;
    auto const narrow = [&, flags](char * bytes, int room) {
        return WideCharToMultiByte(page, flags, text.data(), static_cast<int>(text.size()), bytes, room, nullptr,
                                   &used);
    };
    std::string bytes = text.empty() ? std::string() : Converted<char>(narrow);
    if (!text.empty())
        narrow(nullptr, 0); // what the whole text says of the default character
    usedDefault = used != FALSE;
    return bytes;
}

std::string Narrowed(UINT page, DWORD flags, Units const & text)
{
    bool usedDefault = false;
    return Narrowed(page, flags, text, usedDefault);
}

void AppendUtf8(std::string & bytes, unsigned character)
{
    int const more = character < 0x80 ? 0 : character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
    constexpr unsigned lead[] = {0, 0xC0, 0xE0, 0xF0};
    bytes += static_cast<char>(lead[more] | character >> 6 * more);
    for (int left = more - 1; left >= 0; --left)
        bytes += static_cast<char>(0x80 | (character >> 6 * left & 0x3F));
}

/// The character that these bytes are, all of them; none: 0xFFFFFFFF.
unsigned Utf8Character(std::string_view bytes)
{
    auto const lead = static_cast<unsigned char>(bytes[0]);
    unsigned character = bytes.size() == 1 ? lead : lead & (0x7Fu >> bytes.size());
    for (char const byte : bytes.substr(1))
        character = character << 6 | (static_cast<unsigned char>(byte) & 0x3Fu);
    std::string again;
    if (character <= 0x10FFFF && !(character >= 0xD800 && character <= 0xDFFF))
        AppendUtf8(again, character);
    return again == bytes ? character : 0xFFFFFFFF;
}

/// Whether bytes can be put behind these to make a character.
bool IsBeginningOfUtf8(std::string_view bytes)
{
    for (std::size_t size = bytes.size() + 1; size <= 4; ++size)
    {
        for (char const filling : {'\x80', '\xBF'})
        {
            if (Utf8Character(std::string(bytes).append(size - bytes.size(), filling)) != 0xFFFFFFFF)
                return true;
        }
    }
    return false;
}

Units SlowlyWidenedUtf8(std::string_view bytes)
{
    Units text;
    while (!bytes.empty())
    {
        std::size_t size = 1;
        while (size < bytes.size() && IsBeginningOfUtf8(bytes.substr(0, size)) &&
               (IsBeginningOfUtf8(bytes.substr(0, size + 1)) || Utf8Character(bytes.substr(0, size + 1)) != 0xFFFFFFFF))
            ++size;
        unsigned const found = Utf8Character(bytes.substr(0, size));
        unsigned const character = found == 0xFFFFFFFF ? 0xFFFD : found;
        if (character >= 0x10000)
            text += static_cast<WCHAR>(0xD800 + ((character - 0x10000) >> 10));
        text += static_cast<WCHAR>(character < 0x10000 ? character : 0xDC00 + (character & 0x3FF));
        bytes.remove_prefix(size);
    }
    return text;
}

bool IsHigh(unsigned unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool IsLow(unsigned unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

std::string SlowlyNarrowedUtf8(Units const & text)
{
    std::string bytes;
    for (std::size_t index = 0; index < text.size(); ++index)
    {
        unsigned const unit = text[index];
        unsigned const next = index + 1 < text.size() ? text[index + 1] : 0u;
        bool const isPair = IsHigh(unit) && IsLow(next);
        AppendUtf8(bytes, isPair                        ? 0x10000 + ((unit - 0xD800) << 10) + (next - 0xDC00)
                          : IsHigh(unit) || IsLow(unit) ? 0xFFFD
                                                        : unit);
        index += isPair;
    }
    return bytes;
}

void CheckBytes(UINT page, std::string_view bytes)
{
    Units const text = Widened(page, 0, bytes);
    KR_LAW(text.empty() == bytes.empty());
    KR_LAW(Widened(page, 0, Narrowed(page, 0, text)) == text);
    if (page == CP_UTF8)
        KR_LAW(text == SlowlyWidenedUtf8(bytes));
    else if (!IsDoubleByte(page))
        KR_LAW(text.size() == bytes.size());

    SetLastError(ERROR_SUCCESS);
    Units const valid = Widened(page, MB_ERR_INVALID_CHARS, bytes);
    KR_LAW(valid.empty() ? bytes.empty() || GetLastError() == ERROR_NO_UNICODE_TRANSLATION : valid == text);
}

void CheckText(UINT page, Units const & text)
{
    bool usedDefault = false;
    std::string const bytes = Narrowed(page, 0, text, usedDefault);
    KR_LAW(bytes.empty() == text.empty());
    if (page == CP_UTF8)
        KR_LAW(bytes == SlowlyNarrowedUtf8(text) && usedDefault == (Widened(page, 0, bytes) != text));

    std::string const exact = Narrowed(page, WC_NO_BEST_FIT_CHARS, text, usedDefault);
    KR_LAW(usedDefault || Widened(page, 0, exact) == text);

    // no character looks at its neighbours
    std::size_t const middle = text.size() / 2;
    if (middle > 0 && !(IsHigh(text[middle - 1]) && IsLow(text[middle])))
        KR_LAW(Narrowed(page, 0, text.substr(0, middle)) + Narrowed(page, 0, text.substr(middle)) == bytes);
}

} // namespace

void CheckLaws(FuzzInput input)
{
    UINT const page = pages[input.Below(static_cast<unsigned>(std::size(pages)))];
    std::string_view const bytes = input.Rest();
    CheckBytes(page, bytes);
    CheckText(page, FuzzInput::UnitsOf(bytes));
}

} // namespace kr::fuzz
