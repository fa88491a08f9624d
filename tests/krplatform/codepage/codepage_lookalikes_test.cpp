#include <krplatform/codepage/codepage.h>

#include "tests/krplatform/codepage/bytes.h"

#include <gtest/gtest.h>
#include <unicode/unorm2.h>

namespace kr::test
{

namespace
{

/// The number of units that become something else than the default character.
int CountOfUnitsWithBytes(UINT codePage, DWORD flags)
{
    int count = 0;
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit)
        count += NarrowUnit(codePage, flags, static_cast<WCHAR>(unit)) != "-";
    return count;
}

/// One number for all that the units become.
std::uint32_t FingerprintOf(UINT codePage)
{
    std::uint32_t number = 2166136261; // FNV-1a
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit)
        for (char const digit : NarrowUnit(codePage, 0, static_cast<WCHAR>(unit)) + ' ')
            number = (number ^ static_cast<unsigned char>(digit)) * 16777619;
    return number;
}

/// The ASCII letter that a unit is without its marks; 0 for anything else.
WCHAR LetterWithoutMarks(WCHAR unit)
{
    UErrorCode status = U_ZERO_ERROR;
    UNormalizer2 const * const decomposition = unorm2_getNFDInstance(&status);
    WCHAR parts[8];
    int const count = unorm2_normalize(decomposition, &unit, 1, parts, 8, &status);
    bool const isLetter = U_SUCCESS(status) && count > 1 && (parts[0] | 0x20) >= 'a' && (parts[0] | 0x20) <= 'z';
    return isLetter ? parts[0] : WCHAR();
}

} // namespace

TEST(CodePageLookAlikes, AreAsManyAsThePublishedTablesHave)
{
    struct Row
    {
        UINT codePage;
        int published;     ///< rows of the page's WCTABLE
        int questionMarks; ///< of these give the question mark and count as none, besides its own
        int exact;
    };
    // clang-format off
    Row const rows[] = {
        {  874,   394, 1,   256 },
        {  932,  9486, 1,  9402 },
        { 1250,   693, 2,   256 },
        { 1251,   640, 1,   256 },
        { 1252,   698, 1,   256 },
        { 1253,   622, 1,   256 },
        { 1254,   694, 1,   256 },
        { 1255,   352, 1,   256 },
        { 1256,   544, 1,   256 },
        { 1257,   350, 1,   256 },
        { 1258,   350, 1,   256 },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.codePage);
        EXPECT_EQ(CountOfUnitsWithBytes(row.codePage, 0), row.published - row.questionMarks);
        EXPECT_EQ(CountOfUnitsWithBytes(row.codePage, WC_NO_BEST_FIT_CHARS), row.exact);
    }
}

// The tables are ours. What is changed in them by accident changes a number; whoever changes something on purpose records the new one.
TEST(CodePageLookAlikes, OfEachUnitAreWhatWasRecorded)
{
    struct Row
    {
        UINT codePage;
        std::uint32_t fingerprint;
    };
    // clang-format off
    Row const rows[] = {
        {  932, 0x381079D3 },
        { 1250, 0x2F17FD30 },
        { 1251, 0x2D4FC7DF },
        { 1252, 0xF3ED97CD },
        { 1253, 0x86028712 },
        { 1254, 0x13C84403 },
        { 1255, 0x625E74B3 },
        { 1257, 0x0BA8BA78 },
        { 1258, 0x3E6B44BC },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        std::uint32_t const number = FingerprintOf(row.codePage);
        EXPECT_EQ(number, row.fingerprint) << row.codePage << ": 0x" << std::hex << number;
    }
}

TEST(CodePageLookAlikes, OfLettersWithMarksAreTheLetters)
{
    int checked = 0;
    for (UINT const codePage : {1250u, 1251u, 1252u, 1253u, 1254u})
        for (WCHAR unit = 0x00C0; unit < 0x01F4; ++unit)
        {
            WCHAR const letter = LetterWithoutMarks(unit);
            if (letter == 0 || NarrowUnit(codePage, WC_NO_BEST_FIT_CHARS, unit) != "-")
                continue;
            bool const isLeftOut = unit == 0x01E0 || unit == 0x01E1; // A with a dot and a macron
            ASSERT_EQ(NarrowUnit(codePage, 0, unit), isLeftOut ? "-" : NarrowUnit(codePage, 0, letter))
                << codePage << " " << HexOf({&unit, 1});
            ++checked;
        }
    EXPECT_EQ(checked, 777); // units that are looked at
}

TEST(CodePageLookAlikes, OfFullWidthCharactersAreTheAsciiOnes)
{
    for (UINT const codePage : {874u, 1250u, 1251u, 1252u, 1253u, 1254u, 1255u, 1256u, 1257u, 1258u})
        for (WCHAR ascii = '!'; ascii <= '~'; ++ascii)
        {
            auto const wide = static_cast<WCHAR>(ascii - '!' + 0xFF01);
            EXPECT_EQ(NarrowUnit(codePage, 0, wide), ascii == '?' ? "-" : NarrowUnit(codePage, 0, ascii)) << codePage;
            EXPECT_EQ(NarrowUnit(codePage, WC_NO_BEST_FIT_CHARS, wide), "-") << codePage;
        }
    // the pages of DOS, of ISO and 10000 have those of ICU
    for (UINT const codePage :
         {437u, 737u,   775u,   850u,   852u,   855u,   857u,   860u,   861u,   863u,   864u,   865u,   866u,
          869u, 10000u, 28591u, 28592u, 28593u, 28594u, 28595u, 28596u, 28597u, 28598u, 28599u, 28603u, 28605u})
        EXPECT_EQ(NarrowUnit(codePage, 0, 0xFF21), "41") << codePage;
}

TEST(CodePageLookAlikes, AreNeverTheCharactersThatTheirBytesAre)
{
    for (UINT const codePage : ansiCodePages)
        for (unsigned number = 0; number <= 0xFFFF; ++number)
        {
            auto const unit = static_cast<WCHAR>(number);
            std::string const bytes = NarrowUnit(codePage, 0, unit);
            if (bytes == "-")
                continue;
            bool const decodesBack = WidenToUnit(codePage, 0, BytesOfHex(bytes)) == HexOf({&unit, 1});
            ASSERT_EQ(NarrowUnit(codePage, WC_NO_BEST_FIT_CHARS, unit), decodesBack ? bytes : "-")
                << codePage << " " << HexOf({&unit, 1});
        }
}

} // namespace kr::test
