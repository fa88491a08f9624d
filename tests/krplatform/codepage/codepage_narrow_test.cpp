#include <krplatform/codepage/codepage.h>

#include "tests/krplatform/codepage/bytes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kr::test
{

namespace
{

struct Narrowed
{
    int count;
    std::string digits;
    BOOL usedDefault;
};

/// Converts the whole text into a buffer of `room` bytes, and looks that nothing is written behind it.
Narrowed Narrow(UINT codePage, DWORD flags, std::basic_string_view<WCHAR> text, int room,
                char const * defaultChar = nullptr)
{
    std::string bytes(static_cast<std::size_t>(room) + 1, '\x5A');
    BOOL usedDefault = 17;
    int const count = WideCharToMultiByte(codePage, flags, text.data(), static_cast<int>(text.size()), bytes.data(),
                                          room, defaultChar, &usedDefault);
    EXPECT_EQ(bytes.back(), '\x5A');
    return {count, HexOf(bytes.substr(0, static_cast<std::size_t>(room))), usedDefault};
}

std::string HexWithDefault(UINT codePage, DWORD flags, std::basic_string_view<WCHAR> text, char const * defaultChar)
{
    Narrowed const result = Narrow(codePage, flags, text, 16, defaultChar);
    return result.digits.substr(0, static_cast<std::size_t>(result.count) * 2);
}

} // namespace

TEST(WideCharToMultiByte, TakesLookAlikesUnlessTheFlagForbidsIt)
{
    struct Row
    {
        UINT codePage;
        WCHAR unit;
        char const * lookAlike;
        char const * exact;
    };
    // clang-format off
    Row const rows[] = {
        {  1252, 0x00E4, "E4",   "E4"   },
        {  1252, 0x0100, "41",   "-"    },
        {  1252, 0x0110, "D0",   "-"    },  // D with a stroke is not the Eth that 1252 has
        {  1252, 0x221E, "38",   "-"    },  // infinity: 8
        {  1252, 0x2264, "3D",   "-"    },  // less or equal: =
        {  1252, 0x0081, "81",   "81"   },
        {  1252, 0x3042, "-",    "-"    },
        {  1250, 0x212B, "C5",   "-"    },  // the Angstrom sign becomes the byte that is an A with a ring in 1252, not here
        {  1254, 0x2081, "30",   "-"    },  // subscript one: 0
        {  1255, 0x00A4, "A4",   "-"    },  // the byte is the sheqel
        {  1255, 0x0191, "46",   "-"    },
        {  1256, 0x0191, "46",   "-"    },
        {  1256, 0xFE8D, "C7",   "-"    },  // a letter's form at the end of a word
        {   874, 0x2666, "04",   "-"    },
        {   932, 0x00A5, "5C",   "-"    },
        {   932, 0x00B8, "8143", "-"    },
        {   932, 0x3094, "8394", "-"    },  // Hiragana Vu becomes Katakana
        {   932, 0x301C, "-",    "-"    },  // the wave dash
        {   936, 0x00B7, "A1A4", "A1A4" },
        {   949, 0x3227, "F8A2", "-"    },
        {  1361, 0x3131, "8841", "-"    },  // bytes that are the initial U+1100
        {  1361, 0x1100, "8841", "8841" },
        {  1361, 0xFFA1, "8841", "-"    },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(testing::Message() << row.codePage << " " << HexOf({&row.unit, 1}));
        EXPECT_EQ(NarrowUnit(row.codePage, 0, row.unit), row.lookAlike);
        EXPECT_EQ(NarrowUnit(row.codePage, WC_NO_BEST_FIT_CHARS, row.unit), row.exact);
    }
}

TEST(WideCharToMultiByte, TakesWhatWouldBecomeAQuestionMarkForMissing)
{
    EXPECT_EQ(NarrowUnit(1250, 0, 0x00BF), "-");
    EXPECT_EQ(NarrowUnit(1252, 0, 0xFF1F), "-");
    EXPECT_EQ(NarrowUnit(932, 0, 0x00BF), "-");
    EXPECT_EQ(NarrowUnit(1252, 0, '?'), "3F");
}

TEST(WideCharToMultiByte, ConvertsZerosWithinTheText)
{
    std::basic_string<WCHAR> const text{'a', 0, 0xE4, 0};
    EXPECT_EQ(Narrow(1252, 0, text, 4).digits, "6100E400");
    EXPECT_EQ(Narrow(932, 0, text, 4).digits, "61006100");
    EXPECT_EQ(Narrow(CP_UTF8, 0, text, 5).digits, "6100C3A400");
}

TEST(WideCharToMultiByte, MeasuresUpToAndWithTheZeroForNegativeLengths)
{
    WCHAR const text[] = OLESTR("ab\0cd");
    for (int const length : {-1, -2002})
    {
        char bytes[8];
        ASSERT_EQ(WideCharToMultiByte(1252, 0, text, length, bytes, 8, nullptr, nullptr), 3);
        EXPECT_EQ(HexOf({bytes, 3}), "616200");
        ASSERT_EQ(WideCharToMultiByte(CP_UTF8, 0, text, length, bytes, 8, nullptr, nullptr), 3);
        EXPECT_EQ(HexOf({bytes, 3}), "616200");
    }
}

TEST(WideCharToMultiByte, CountsWithARoomOfZero)
{
    std::basic_string<WCHAR> const text = OLESTR("a\u3042\u0100\u00E4");
    struct Row
    {
        UINT codePage;
        int needed;
        BOOL usedDefault;
    };
    Row const rows[] = {{1252, 4, TRUE}, {932, 5, TRUE}, {CP_UTF8, 8, FALSE}};
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.codePage);
        BOOL usedDefault = 17;
        char untouched = 'x';
        EXPECT_EQ(WideCharToMultiByte(row.codePage, 0, text.data(), 4, &untouched, 0, nullptr, &usedDefault),
                  row.needed);
        EXPECT_EQ(usedDefault, row.usedDefault);
        EXPECT_EQ(untouched, 'x');
        EXPECT_EQ(WideCharToMultiByte(row.codePage, 0, text.data(), 4, nullptr, 0, nullptr, nullptr), row.needed);
    }
}

TEST(WideCharToMultiByte, WritesWholeCharactersIntoTooLittleRoomAndFails)
{
    struct Row
    {
        UINT codePage;
        std::basic_string<WCHAR> text;
        std::vector<char const *> written; ///< by room, from 1 on; 5A: nothing
    };
    Row const rows[] = {
        {1252, OLESTR("a\u00E4b"), {"61", "61E4", "61E462"}},
        {932, OLESTR("a\u3042b"), {"61", "615A", "6182A0", "6182A062"}},
        {CP_UTF8, OLESTR("\u00E4\u3042"), {"5A", "C3A4", "C3A45A", "C3A45A5A", "C3A4E38182"}},
        {CP_UTF8, OLESTR("a\U0001F600"), {"61", "615A", "615A5A", "615A5A5A", "61F09F9880"}},
    };
    for (Row const & row : rows)
        for (std::size_t index = 0; index < row.written.size(); ++index)
        {
            int const room = static_cast<int>(index) + 1;
            bool const isEnough = index + 1 == row.written.size();
            SCOPED_TRACE(testing::Message() << row.codePage << ", room for " << room);
            SetLastError(ERROR_SUCCESS);
            Narrowed const result = Narrow(row.codePage, 0, row.text, room);
            EXPECT_EQ(result.count, isEnough ? room : 0);
            EXPECT_EQ(result.digits, row.written[index]);
            EXPECT_EQ(result.usedDefault, FALSE);
            EXPECT_EQ(GetLastError(), isEnough ? ERROR_SUCCESS : ERROR_INSUFFICIENT_BUFFER);
        }
}

TEST(WideCharToMultiByte, ConvertsLongTexts)
{
    std::basic_string<WCHAR> text;
    std::string expected;
    for (int index = 0; index < 100000; ++index)
    {
        text += OLESTR("x\uAC00");
        expected += "x\xB0\xA1";
    }
    std::string bytes(expected.size(), '\0');
    int const room = static_cast<int>(bytes.size());
    EXPECT_EQ(
        WideCharToMultiByte(949, 0, text.data(), static_cast<int>(text.size()), bytes.data(), room, nullptr, nullptr),
        room);
    EXPECT_TRUE(bytes == expected);
}

TEST(WideCharToMultiByte, PutsTheDefaultCharacterForMissingUnits)
{
    struct Row
    {
        UINT codePage;
        DWORD flags;
        char const * defaultChar;
        char const * digits;
    };
    // clang-format off
    Row const rows[] = {
        // page    flags                 default     U+0100 and U+AC00
        { 1252,    0,                    nullptr,    "413F"     },
        { 1252,    WC_NO_BEST_FIT_CHARS, nullptr,    "3F3F"     },
        { 1252,    WC_NO_BEST_FIT_CHARS, "_",        "5F5F"     },
        { 1252,    WC_NO_BEST_FIT_CHARS, "_x",       "5F5F"     },  // a page without lead bytes takes one
        { 1252,    WC_NO_BEST_FIT_CHARS, "",         "0000"     },
        {  932,    0,                    nullptr,    "3F3F"     },
        {  932,    0,                    "\x81\x45", "81458145" },
        {  932,    0,                    "_\x45",    "5F5F"     },
        {  932,    0,                    "\x81",     "8181"     },  // half a character is put as it is
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(testing::Message() << row.codePage << " " << row.flags << " " << row.digits);
        EXPECT_EQ(HexWithDefault(row.codePage, row.flags, OLESTR("\u0100\uAC00"), row.defaultChar), row.digits);
        std::string const first(row.digits, std::string_view(row.digits).size() / 2);
        EXPECT_EQ(HexWithDefault(row.codePage, row.flags, OLESTR("\u0100"), row.defaultChar), first);
    }
}

TEST(WideCharToMultiByte, SetsTheUsedDefaultFlagForMissingUnitsOnly)
{
    EXPECT_EQ(Narrow(1252, 0, OLESTR("abc"), 3).usedDefault, FALSE);
    EXPECT_EQ(Narrow(1252, 0, OLESTR("\u0100bc"), 3).usedDefault, FALSE);
    EXPECT_EQ(Narrow(1252, WC_NO_BEST_FIT_CHARS, OLESTR("\u0100bc"), 3).usedDefault, TRUE);
    EXPECT_EQ(Narrow(1252, 0, OLESTR("\u3042bc"), 3).usedDefault, TRUE);
    EXPECT_EQ(Narrow(1252, 0, OLESTR("?"), 3).usedDefault, FALSE);
    EXPECT_EQ(Narrow(932, 0, OLESTR("\u20AC"), 1).usedDefault, TRUE);
}

TEST(WideCharToMultiByte, TakesTheHalvesOfASurrogatePairForTwoMissingUnits)
{
    EXPECT_EQ(Narrow(1252, 0, OLESTR("\U0001F600"), 2).digits, "3F3F");
    EXPECT_EQ(Narrow(936, 0, OLESTR("\U00020000"), 2).digits, "3F3F");
}

TEST(WideCharToMultiByte, RefusesBadArguments)
{
    WCHAR const text[] = OLESTR("a");
    char bytes[4];
    WCHAR same[2] = OLESTR("a");
    struct Row
    {
        char const * what;
        UINT codePage;
        WCHAR const * text;
        int length;
        char * bytes;
        int room;
    };
    Row const rows[] = {
        {"no text", 1252, nullptr, 1, bytes, 4},
        {"no text to measure", CP_UTF8, nullptr, -1, bytes, 4},
        {"a length of 0", 1252, text, 0, bytes, 4},
        {"a length of 0 in 65001", CP_UTF8, text, 0, bytes, 4},
        {"a negative room", 1252, text, 1, bytes, -1},
        {"no buffer", 1252, text, 1, nullptr, 4},
        {"one buffer for both", 1252, same, 1, reinterpret_cast<char *>(same), 4},
        {"an unknown code page", 1259, text, 1, bytes, 4},
        {"the DOS page of the system", 1, text, 1, bytes, 4},
        {"UTF-7", 65000, text, 1, bytes, 4},
    };
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.what);
        SetLastError(ERROR_SUCCESS);
        BOOL usedDefault = 17;
        EXPECT_EQ(
            WideCharToMultiByte(row.codePage, 0, row.text, row.length, row.bytes, row.room, nullptr, &usedDefault), 0);
        EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
        EXPECT_EQ(usedDefault, 17);
    }
}

TEST(WideCharToMultiByte, KnowsEachPagesFlags)
{
    WCHAR const text[] = OLESTR("a");
    for (UINT const codePage : {1252u, 932u, CP_UTF8})
        for (int bit = 0; bit < 32; ++bit)
        {
            DWORD const flag = DWORD{1} << bit;
            bool const isKnown = flag == WC_NO_BEST_FIT_CHARS || (codePage == CP_UTF8 && flag == WC_ERR_INVALID_CHARS);
            SCOPED_TRACE(testing::Message() << codePage << " " << flag);
            char bytes[4];
            SetLastError(ERROR_SUCCESS);
            EXPECT_EQ(WideCharToMultiByte(codePage, flag, text, 1, bytes, 4, nullptr, nullptr), isKnown ? 1 : 0);
            EXPECT_EQ(GetLastError(), isKnown ? ERROR_SUCCESS : ERROR_INVALID_FLAGS);
        }
}

TEST(WideCharToMultiByte, KnowsThePagesThatAreDocumented)
{
    UINT const documented[] = {437,   737,   775,   850,   852,   855,   857,   860,   861,   863,   864,
                               865,   866,   869,   874,   932,   936,   949,   950,   1250,  1251,  1252,
                               1253,  1254,  1255,  1256,  1257,  1258,  1361,  10000, 28591, 28592, 28593,
                               28594, 28595, 28596, 28597, 28598, 28599, 28603, 28605, 65001};
    for (UINT const codePage : documented)
    {
        EXPECT_EQ(NarrowUnit(codePage, WC_NO_BEST_FIT_CHARS, 'A'), "41") << codePage;
        EXPECT_EQ(NarrowUnit(codePage, 0, 0), "00") << codePage;
        EXPECT_EQ(WidenToUnit(codePage, MB_ERR_INVALID_CHARS, "A"), "0041") << codePage;
    }
}

} // namespace kr::test
