#include <krplatform/codepage/codepage.h>

#include "tests/krplatform/codepage/bytes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kr::test
{

namespace
{

struct Widened
{
    int count;
    std::string digits;
    DWORD error;
};

/// Converts all bytes into a buffer of `room` units, and looks that nothing is written behind it.
Widened Widen(UINT codePage, DWORD flags, std::string_view digits, int room)
{
    std::string const bytes = BytesOfHex(digits);
    std::basic_string<WCHAR> text(static_cast<std::size_t>(room) + 1, 0x5A5A);
    SetLastError(ERROR_SUCCESS);
    int const count =
        MultiByteToWideChar(codePage, flags, bytes.data(), static_cast<int>(bytes.size()), text.data(), room);
    EXPECT_EQ(text.back(), 0x5A5A);
    return {count, HexOf(text.substr(0, static_cast<std::size_t>(room))), GetLastError()};
}

std::string HexOfAll(UINT codePage, DWORD flags, std::string_view digits)
{
    Widened const result = Widen(codePage, flags, digits, 16);
    return result.digits.substr(0, static_cast<std::size_t>(result.count) * 4);
}

} // namespace

TEST(MultiByteToWideChar, PutsTheDefaultUnitForBytesWithoutOneOrFails)
{
    struct Row
    {
        UINT codePage;
        char const * bytes;
        char const * units;
    };
    // clang-format off
    Row const rows[] = {
        {  932, "82",       "30FB"         },  // a lead byte at the end
        {  932, "41824200", "004130FB0000" },  // bytes that are no character go together
        {  932, "820041",   "30FB00000041" },  // but a zero is never swallowed
        {  936, "A0",       "003F"         },
        {  936, "8220",     "003F"         },
        {  949, "D541",     "003F"         },
        {  950, "82A0",     "003F"         },
        {  950, "FE",       "003F"         },
        { 1361, "84",       "003F"         },
        { 1361, "8452",     "003F"         },
        { 1361, "D9E8",     "003F"         },  // a row of Wansung that is shorter on the platform
        {  857, "D5",       "003F"         },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(testing::Message() << row.codePage << " " << row.bytes);
        EXPECT_EQ(HexOfAll(row.codePage, 0, row.bytes), row.units);
        Widened const valid = Widen(row.codePage, MB_ERR_INVALID_CHARS, row.bytes, 16);
        EXPECT_EQ(valid.count, 0);
        EXPECT_EQ(valid.error, ERROR_NO_UNICODE_TRANSLATION);
    }
}

TEST(MultiByteToWideChar, PutsPrivateUnitsForUndefinedBytesOrFails)
{
    struct Row
    {
        UINT codePage;
        char const * bytes;
        char const * units;
    };
    // clang-format off
    Row const rows[] = {
        {  874, "DBDCDDDE",       "F8C1F8C2F8C3F8C4"             },
        {  874, "FCFDFEFF",       "F8C5F8C6F8C7F8C8"             },
        {  932, "A0FDFEFF",       "F8F0F8F1F8F2F8F3"             },
        {  936, "FF",             "F8F5"                         },
        {  949, "FF",             "F8F7"                         },
        {  950, "FF",             "F8F8"                         },
        { 1253, "AAD2FF",         "F8F9F8FAF8FB"                 },
        { 1255, "D9DADBDCDDDEDF", "F88DF88EF88FF890F891F892F893" },
        { 1255, "FBFCFF",         "F894F895F896"                 },
        { 1257, "A1A5",           "F8FCF8FD"                     },
        { 1361, "D4D5D6D7DF",     "F8ECF8EDF8EEF8EFF8F0"         },
        { 1361, "FAFBFCFDFEFF",   "F8F1F8F2F8F3F8F4F8F5F8F6"     },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(testing::Message() << row.codePage << " " << row.bytes);
        EXPECT_EQ(HexOfAll(row.codePage, 0, row.bytes), row.units);
        for (char const byte : BytesOfHex(row.bytes))
            EXPECT_EQ(WidenToUnit(row.codePage, MB_ERR_INVALID_CHARS, {&byte, 1}), "-");
        std::basic_string<WCHAR> const units = UnitsOfHex(row.units);
        std::string bytes;
        for (WCHAR const unit : units)
            bytes += NarrowUnit(row.codePage, WC_NO_BEST_FIT_CHARS, unit);
        EXPECT_EQ(bytes, row.bytes);
    }
}

TEST(MultiByteToWideChar, TakesControlBytesAndPrivateCharactersForValid)
{
    EXPECT_EQ(HexOfAll(1252, MB_ERR_INVALID_CHARS, "818D8F909D"), "0081008D008F0090009D");
    EXPECT_EQ(HexOfAll(932, MB_ERR_INVALID_CHARS, "80F040F9FC"), "0080E000E757");
    EXPECT_EQ(HexOfAll(1361, MB_ERR_INVALID_CHARS, "8083D831"), "00800083E000");
    EXPECT_EQ(HexOfAll(10000, MB_ERR_INVALID_CHARS, "F0"), "F8FF");
}

TEST(MultiByteToWideChar, CountsWithARoomOfZero)
{
    WCHAR untouched = 'x';
    EXPECT_EQ(MultiByteToWideChar(932, 0, "a\x82\xA0", 3, &untouched, 0), 2);
    EXPECT_EQ(MultiByteToWideChar(932, 0, "a\x82\xA0", 3, nullptr, 0), 2);
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "\xF0\x9F\x98\x80", 4, nullptr, 0), 2);
    EXPECT_EQ(untouched, 'x');
}

TEST(MultiByteToWideChar, WritesWhatFitsIntoTooLittleRoomAndFails)
{
    struct Row
    {
        UINT codePage;
        char const * bytes;
        std::vector<char const *> written; ///< by room, from 1 on
    };
    Row const rows[] = {
        {1252, "61E462", {"0061", "006100E4", "006100E40062"}},
        {932, "82A06182", {"3042", "30420061", "3042006130FB"}},
        {CP_UTF8, "61C3A4", {"0061", "006100E4"}},
        {CP_UTF8, "F09F988061", {"5A5A", "D83DDE00", "D83DDE000061"}},
    };
    for (Row const & row : rows)
        for (std::size_t index = 0; index < row.written.size(); ++index)
        {
            int const room = static_cast<int>(index) + 1;
            bool const isEnough = index + 1 == row.written.size();
            SCOPED_TRACE(testing::Message() << row.codePage << ", room for " << room);
            Widened const result = Widen(row.codePage, 0, row.bytes, room);
            EXPECT_EQ(result.count, isEnough ? room : 0);
            EXPECT_EQ(result.digits, row.written[index]);
            EXPECT_EQ(result.error, isEnough ? ERROR_SUCCESS : ERROR_INSUFFICIENT_BUFFER);
        }
}

TEST(MultiByteToWideChar, CutsAPairAtTheEndOfTheTextWithoutAFailure)
{
    Widened const alone = Widen(CP_UTF8, 0, "F09F9880", 1);
    EXPECT_EQ(alone.count, 1);
    EXPECT_EQ(alone.digits, "D83D");
    EXPECT_EQ(Widen(CP_UTF8, MB_ERR_INVALID_CHARS, "61F09F9880", 2).digits, "0061D83D");
    EXPECT_EQ(Widen(CP_UTF8, 0, "61F09F9880", 1).error, ERROR_INSUFFICIENT_BUFFER);
}

TEST(MultiByteToWideChar, FailsForInvalidBytesBeforeItFailsForRoom)
{
    EXPECT_EQ(Widen(932, MB_ERR_INVALID_CHARS, "A0", 1).error, ERROR_NO_UNICODE_TRANSLATION);
    EXPECT_EQ(Widen(932, MB_ERR_INVALID_CHARS, "61A0", 1).error, ERROR_NO_UNICODE_TRANSLATION);
    EXPECT_EQ(Widen(CP_UTF8, MB_ERR_INVALID_CHARS, "61FF", 1).error, ERROR_NO_UNICODE_TRANSLATION);
}

TEST(MultiByteToWideChar, MeasuresUpToAndWithTheZeroForNegativeLengths)
{
    for (UINT const codePage : {1252u, CP_UTF8})
        for (int const length : {-1, -2002})
        {
            WCHAR text[8];
            ASSERT_EQ(MultiByteToWideChar(codePage, 0, "ab\0cd", length, text, 8), 3);
            EXPECT_EQ(HexOf({text, 3}), "006100620000");
        }
}

TEST(MultiByteToWideChar, ConvertsZerosWithinTheText)
{
    EXPECT_EQ(HexOfAll(1252, MB_ERR_INVALID_CHARS, "6100E400"), "0061000000E40000");
    EXPECT_EQ(HexOfAll(949, MB_ERR_INVALID_CHARS, "00B0A100"), "0000AC000000");
    EXPECT_EQ(HexOfAll(CP_UTF8, MB_ERR_INVALID_CHARS, "00C3A400"), "000000E40000");
}

TEST(MultiByteToWideChar, RefusesBadArguments)
{
    WCHAR text[4];
    char same[8] = "a";
    struct Row
    {
        char const * what;
        UINT codePage;
        char const * bytes;
        int length;
        WCHAR * text;
        int room;
    };
    Row const rows[] = {
        {"no bytes", 1252, nullptr, 1, text, 4},
        {"no bytes to measure", CP_UTF8, nullptr, -1, text, 4},
        {"a length of 0", 1252, "a", 0, text, 4},
        {"a length of 0 in 65001", CP_UTF8, "a", 0, text, 4},
        {"a negative room", 1252, "a", 1, text, -1},
        {"no buffer", 1252, "a", 1, nullptr, 4},
        {"one buffer for both", 1252, same, 1, reinterpret_cast<WCHAR *>(same), 4},
        {"an unknown code page", 1259, "a", 1, text, 4},
        {"the page of symbols", 42, "a", 1, text, 4},
    };
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.what);
        SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(MultiByteToWideChar(row.codePage, 0, row.bytes, row.length, row.text, row.room), 0);
        EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    }
}

TEST(MultiByteToWideChar, KnowsEachPagesFlags)
{
    for (UINT const codePage : {1252u, 932u, CP_UTF8})
        for (int bit = 0; bit < 32; ++bit)
        {
            DWORD const flag = DWORD{1} << bit;
            bool const isKnown = flag == MB_ERR_INVALID_CHARS || (codePage != CP_UTF8 && flag == MB_PRECOMPOSED);
            SCOPED_TRACE(testing::Message() << codePage << " " << flag);
            Widened const result = Widen(codePage, flag, "61", 1);
            EXPECT_EQ(result.count, isKnown ? 1 : 0);
            EXPECT_EQ(result.error, isKnown ? ERROR_SUCCESS : ERROR_INVALID_FLAGS);
        }
}

} // namespace kr::test
