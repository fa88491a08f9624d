#include <krplatform/codepage/codepage.h>

#include "tests/krplatform/codepage/bytes.h"

#include <gtest/gtest.h>
#include <unicode/ucnv.h>

#include <string>

namespace kr::test
{

namespace
{

std::basic_string<WCHAR> UnitsOf(char32_t character)
{
    if (character < 0x10000)
        return {static_cast<WCHAR>(character)};
    char32_t const above = character - 0x10000;
    return {static_cast<WCHAR>(0xD800 + above / 0x400), static_cast<WCHAR>(0xDC00 + above % 0x400)};
}

std::string Utf8Of(char32_t character)
{
    auto const byte = [](char32_t value) { return static_cast<char>(value); };
    if (character < 0x80)
        return {byte(character)};
    if (character < 0x800)
        return {byte(0xC0 + character / 0x40), byte(0x80 + character % 0x40)};
    if (character < 0x10000)
        return {byte(0xE0 + character / 0x1000), byte(0x80 + character / 0x40 % 0x40), byte(0x80 + character % 0x40)};
    return {byte(0xF0 + character / 0x40000), byte(0x80 + character / 0x1000 % 0x40),
            byte(0x80 + character / 0x40 % 0x40), byte(0x80 + character % 0x40)};
}

std::string Narrow(std::basic_string_view<WCHAR> text, DWORD flags = 0, BOOL * usedDefault = nullptr)
{
    std::string bytes(text.size() * 3, '\0');
    int const count = WideCharToMultiByte(CP_UTF8, flags, text.data(), static_cast<int>(text.size()), bytes.data(),
                                          static_cast<int>(bytes.size()), nullptr, usedDefault);
    bytes.resize(static_cast<std::size_t>(count));
    return bytes;
}

std::basic_string<WCHAR> Widen(std::string_view bytes, DWORD flags = 0)
{
    std::basic_string<WCHAR> text(bytes.size(), WCHAR());
    int const count = MultiByteToWideChar(CP_UTF8, flags, bytes.data(), static_cast<int>(bytes.size()), text.data(),
                                          static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(count));
    return text;
}

/// ICU's decoder, which puts U+FFFD for each longest beginning of a character, as the Unicode Standard recommends.
class Decoder
{
public:
    Decoder() : m_converter(ucnv_open("UTF-8", &m_status)) {}
    ~Decoder() { ucnv_close(m_converter); }
    Decoder(Decoder const &) = delete;
    Decoder & operator=(Decoder const &) = delete;

    std::basic_string<WCHAR> Decode(std::string_view bytes)
    {
        WCHAR text[16];
        int const count = ucnv_toUChars(m_converter, text, 16, bytes.data(), static_cast<int>(bytes.size()), &m_status);
        if (U_FAILURE(m_status))
            throw std::runtime_error(u_errorName(m_status));
        return {text, static_cast<std::size_t>(count)};
    }

private:
    UErrorCode m_status = U_ZERO_ERROR;
    UConverter * m_converter;
};

} // namespace

TEST(Utf8, HoldsEachCharacterInBothDirections)
{
    for (char32_t character = 0; character <= 0x10FFFF; ++character)
    {
        if (character >= 0xD800 && character < 0xE000)
            continue;
        std::basic_string<WCHAR> const units = UnitsOf(character);
        std::string const bytes = Utf8Of(character);
        BOOL usedDefault = 17;
        ASSERT_TRUE(Narrow(units, WC_ERR_INVALID_CHARS, &usedDefault) == bytes) << HexOf(units);
        ASSERT_EQ(usedDefault, FALSE);
        ASSERT_TRUE(Widen(bytes, MB_ERR_INVALID_CHARS) == units) << HexOf(bytes);
    }
}

TEST(Utf8, TakesReplacementCharactersForLoneSurrogates)
{
    struct Row
    {
        char const * units;
        char const * bytes;
    };
    // clang-format off
    Row const rows[] = {
        { "D800",             "EFBFBD"               },
        { "DBFF",             "EFBFBD"               },
        { "DC00",             "EFBFBD"               },
        { "DFFF",             "EFBFBD"               },
        { "D83D0061",         "EFBFBD61"             },
        { "D83DDBFF",         "EFBFBDEFBFBD"         },  // on either side of the second halves
        { "D83DE000",         "EFBFBDEE8080"         },
        { "DE00D83D",         "EFBFBDEFBFBD"         },  // the wrong way round
        { "D83DD83DDE00",     "EFBFBDF09F9880"       },
        { "D83DDE00DE00",     "F09F9880EFBFBD"       },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.units);
        std::basic_string<WCHAR> const units = UnitsOfHex(row.units);
        BOOL usedDefault = 17;
        EXPECT_EQ(HexOf(Narrow(units, 0, &usedDefault)), row.bytes);
        EXPECT_EQ(usedDefault, TRUE);
        SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(Narrow(units, WC_ERR_INVALID_CHARS), "");
        EXPECT_EQ(GetLastError(), ERROR_NO_UNICODE_TRANSLATION);
    }
}

TEST(Utf8, TakesTheFlagAgainstLookAlikesWithoutEffect)
{
    BOOL usedDefault = 17;
    EXPECT_EQ(Narrow(OLESTR("\u0100\u3042"), WC_NO_BEST_FIT_CHARS, &usedDefault), "\xC4\x80\xE3\x81\x82");
    EXPECT_EQ(usedDefault, FALSE);
    WCHAR const unit = 0x0800;
    char bytes[2];
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, WC_NO_BEST_FIT_CHARS, &unit, 1, bytes, 2, nullptr, &usedDefault), 0);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(usedDefault, FALSE);
}

TEST(Utf8, HasNoUseForADefaultCharacter)
{
    WCHAR const unit = 0xD800;
    char bytes[4];
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, &unit, 1, bytes, 4, "_", nullptr), 3);
    EXPECT_EQ(HexOf({bytes, 3}), "EFBFBD");
}

TEST(Utf8, ReplacesEachLongestBeginningOfACharacter)
{
    struct Row
    {
        char const * bytes;
        char const * units;
    };
    // clang-format off
    Row const rows[] = {
        { "80",         "FFFD"                     },
        { "C3",         "FFFD"                     },
        { "C080",       "FFFDFFFD"                 },  // a zero in two bytes
        { "E08080",     "FFFDFFFDFFFD"             },
        { "E28241",     "FFFD0041"                 },  // two bytes of three
        { "EDA080",     "FFFDFFFDFFFD"             },  // a surrogate
        { "F0808080",   "FFFDFFFDFFFDFFFD"         },
        { "F09F98",     "FFFD"                     },  // three bytes of four
        { "F09F9841",   "FFFD0041"                 },
        { "F4908080",   "FFFDFFFDFFFDFFFD"         },  // beyond U+10FFFF
        { "F88888",     "FFFDFFFDFFFD"             },
        { "61C361",     "0061FFFD0061"             },
        { "EFBBBF",     "FEFF"                     },  // a byte order mark is a character like others
    };
    // clang-format on
    for (Row const & row : rows)
    {
        std::string const bytes = BytesOfHex(row.bytes);
        EXPECT_EQ(HexOf(Widen(bytes)), row.units) << row.bytes;
        bool const isValid = std::string_view(row.units).find("FFFD") == std::string_view::npos;
        SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(Widen(bytes, MB_ERR_INVALID_CHARS).empty(), !isValid) << row.bytes;
        EXPECT_EQ(GetLastError(), isValid ? ERROR_SUCCESS : ERROR_NO_UNICODE_TRANSLATION) << row.bytes;
    }
}

/// Bytes on both sides of each border between kinds of bytes, in all combinations of four.
TEST(Utf8, DecodesMalformedBytesAsIcuDoes)
{
    std::string_view const borders("\x00\x41\x7F\x80\x8F\x90\x9F\xA0\xBF\xC0\xC1\xC2\xDF\xE0\xE1\xEC\xED\xEE\xEF\xF0"
                                   "\xF1\xF3\xF4\xF5\xFF",
                                   25);
    Decoder decoder;
    for (char const first : borders)
        for (char const second : borders)
            for (char const third : borders)
                for (char const fourth : borders)
                {
                    char const bytes[] = {first, second, third, fourth};
                    std::string_view const view(bytes, 4);
                    ASSERT_TRUE(Widen(view) == decoder.Decode(view)) << HexOf(view);
                }
}

} // namespace kr::test
