#include <krcore/text/krcharformatter.h>

#include <krplatform/codepage/codepage.h>

#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <type_traits>

using namespace kr::test;
using namespace std::string_literals;

static_assert(std::has_virtual_destructor_v<CKrCharFormatter>);

namespace
{

constexpr unsigned int s_codePages[] = {437,  850,  866,  874,  932,  936,  949,   950,   1250,  1251,  1252, 1253,
                                        1254, 1255, 1256, 1257, 1258, 1361, 10000, 28591, 28592, 28605, 65001};
constexpr unsigned int unknownFormat = 7;
constexpr unsigned int allFormats[] = {
    CKrCharFormatter::eCharFormatUnknown, CKrCharFormatter::eCharFormatAnsi,
    CKrCharFormatter::eCharFormatUtf8,    CKrCharFormatter::eCharFormatUtf16LE,
    CKrCharFormatter::eCharFormatUtf16BE, CKrCharFormatter::eCharFormatUtf32LE,
    CKrCharFormatter::eCharFormatUtf32BE, unknownFormat,
};

// Calls `write` with a buffer of ample room, and gives the bytes written; those behind them must be as they were.
template <class Write>
std::string BytesOf(Write write)
{
    std::string buffer(16, '\x5A');
    unsigned int const count = write(buffer.data());
    EXPECT_LE(count, buffer.size());
    EXPECT_EQ(buffer.substr(count), std::string(buffer.size() - count, '\x5A')) << "written behind the end";
    return buffer.substr(0, count);
}

std::string Utf8(WCHAR character, bool useCIF, bool expandLF)
{
    return BytesOf([=](char * bytes)
                   { return CKrCharFormatter::WcharToAnsiOrUtf8(character, bytes, 4, false, useCIF, expandLF); });
}

std::string Utf16(WCHAR character, bool littleEndian, bool expandLF)
{
    return BytesOf([=](char * bytes)
                   { return CKrCharFormatter::WcharToUtf16(character, bytes, 2, littleEndian, expandLF); });
}

} // namespace

TEST(CKrCharFormatter, NumbersItsFormats)
{
    for (unsigned int number = 0; number <= unknownFormat; ++number)
        EXPECT_EQ(allFormats[number], number);
}

TEST(CKrCharFormatter, WritesAnsiWithoutEscapesAndWithBothLineEndsAtFirst)
{
    CKrCharFormatter const formatter;
    EXPECT_EQ(formatter.getFormat(), CKrCharFormatter::eCharFormatAnsi);
    EXPECT_FALSE(formatter.getUseCIF());
    EXPECT_TRUE(formatter.getExpandLF());
}

TEST(CKrCharFormatter, StoresWhatItIsMadeWithAndCopiesIt)
{
    for (unsigned int const format : allFormats)
        for (bool const useCIF : {false, true})
            for (bool const expandLF : {false, true})
            {
                CKrCharFormatter const made(format, useCIF, expandLF);
                CKrCharFormatter const copy(made);
                CKrCharFormatter assigned(1, !useCIF, !expandLF);
                EXPECT_EQ(&(assigned = made), &assigned);
                for (CKrCharFormatter const * const one :
                     {&made, &copy, static_cast<CKrCharFormatter const *>(&assigned)})
                {
                    EXPECT_EQ(one->getFormat(), format);
                    EXPECT_EQ(one->getUseCIF(), useCIF) << "the constructor does not look at the format";
                    EXPECT_EQ(one->getExpandLF(), expandLF);
                }
            }
}

TEST(CKrCharFormatter, GivesUpTheEscapesWhenAnyFormatButAnsiIsSet)
{
    for (unsigned int const format : allFormats)
    {
        CKrCharFormatter formatter(CKrCharFormatter::eCharFormatUtf16BE, true, true);
        EXPECT_EQ(formatter.setFormat(format), CKrCharFormatter::eCharFormatUtf16BE);
        EXPECT_EQ(formatter.getFormat(), format);
        EXPECT_EQ(formatter.getUseCIF(), format == CKrCharFormatter::eCharFormatAnsi) << format;
        EXPECT_TRUE(formatter.getExpandLF());
        EXPECT_EQ(formatter.setFormat(1), format);
    }
}

TEST(CKrCharFormatter, SetsTheEscapesInAnyFormat)
{
    for (unsigned int const format : allFormats)
    {
        CKrCharFormatter formatter;
        formatter.setFormat(format);
        EXPECT_FALSE(formatter.setUseCIF(true));
        EXPECT_TRUE(formatter.getUseCIF()) << format;
        EXPECT_TRUE(formatter.setUseCIF(false));
        EXPECT_FALSE(formatter.getUseCIF());
        EXPECT_EQ(formatter.getFormat(), format);
    }
}

TEST(CKrCharFormatter, SetsTheLineEndsAndTellsTheOldOnes)
{
    CKrCharFormatter formatter;
    EXPECT_TRUE(formatter.setExpandLF(false));
    EXPECT_FALSE(formatter.getExpandLF());
    EXPECT_FALSE(formatter.setExpandLF(true));
    EXPECT_TRUE(formatter.getExpandLF());
    EXPECT_FALSE(formatter.getUseCIF());
}

TEST(CKrCharFormatter, WritesACharacterInItsFormat)
{
    // clang-format off
    struct { unsigned int format; bool expandLF; WCHAR character; std::string bytes; } const rows[] = {
        { CKrCharFormatter::eCharFormatUnknown, true,  OLESTR('a'),  ""s                 },
        { CKrCharFormatter::eCharFormatAnsi,    true,  OLESTR('a'),  "a"s                },
        { CKrCharFormatter::eCharFormatAnsi,    true,  OLESTR('\n'), "\r\n"s             },
        { CKrCharFormatter::eCharFormatAnsi,    false, OLESTR('\n'), "\n"s               },
        { CKrCharFormatter::eCharFormatUtf8,    true,  0x20AC,       "\xE2\x82\xAC"s     },
        { CKrCharFormatter::eCharFormatUtf8,    true,  OLESTR('\n'), "\r\n"s             },
        { CKrCharFormatter::eCharFormatUtf8,    false, OLESTR('\n'), "\n"s               },
        { CKrCharFormatter::eCharFormatUtf16LE, true,  0x20AC,       "\xAC\x20"s         },
        { CKrCharFormatter::eCharFormatUtf16LE, true,  OLESTR('\n'), "\r\0\n\0"s         },
        { CKrCharFormatter::eCharFormatUtf16LE, false, OLESTR('\n'), "\n\0"s             },
        { CKrCharFormatter::eCharFormatUtf16BE, true,  0x20AC,       "\x20\xAC"s         },
        { CKrCharFormatter::eCharFormatUtf16BE, true,  OLESTR('\n'), "\0\r\0\n"s         },
        { CKrCharFormatter::eCharFormatUtf16BE, false, OLESTR('\n'), "\0\n"s             },
        { CKrCharFormatter::eCharFormatUtf32LE, true,  OLESTR('a'),  ""s                 },  // a mark is all there is of it
        { CKrCharFormatter::eCharFormatUtf32BE, true,  OLESTR('a'),  ""s                 },
        { unknownFormat,                        true,  OLESTR('a'),  ""s                 },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        SCOPED_TRACE("format " + std::to_string(row.format) + ", character " + std::to_string(row.character));
        CKrCharFormatter const formatter(row.format, false, row.expandLF);
        EXPECT_EQ(BytesOf([&](char * bytes) { return formatter.WcharToBytes(row.character, bytes, 16); }), row.bytes);
        for (unsigned int const tooSmall : {0u, 1u})
            EXPECT_EQ(BytesOf([&](char * bytes) { return formatter.WcharToBytes(row.character, bytes, tooSmall); }),
                      "");
        EXPECT_EQ(formatter.WcharToBytes(row.character, nullptr, 16), 0u);
    }
}

TEST(CKrCharFormatter, WritesUtf8OfEachUnitByItself)
{
    // clang-format off
    struct { WCHAR character; std::string bytes; } const rows[] = {
        { 0x0000, "\0"s          },
        { 0x007F, "\x7F"         },
        { 0x0080, "\xC2\x80"     },
        { 0x07FF, "\xDF\xBF"     },
        { 0x0800, "\xE0\xA0\x80" },
        { 0xD7FF, "\xED\x9F\xBF" },
        { 0xD83D, "\xEF\xBF\xBD" },  // half a pair is no character
        { 0xDE00, "\xEF\xBF\xBD" },
        { 0xE000, "\xEE\x80\x80" },
        { 0xFFFF, "\xEF\xBF\xBF" },
    };
    // clang-format on
    for (auto const & row : rows)
        for (bool const useCIF : {false, true})
        {
            SCOPED_TRACE(unsigned{row.character});
            EXPECT_EQ(Utf8(row.character, useCIF, true), row.bytes) << "escapes are not for UTF-8";
        }
    EXPECT_EQ(Utf8(OLESTR('\n'), true, true), "\r\n");
    EXPECT_EQ(Utf8(OLESTR('\r'), true, true), "\r");
    EXPECT_EQ(Utf8(OLESTR('\n'), true, false), "\n");
}

TEST(CKrCharFormatter, TestsForTheRoomOfTwoBytesOnly)
{
    auto const utf8 = [](unsigned int size)
    {
        return BytesOf([size](char * bytes)
                       { return CKrCharFormatter::WcharToAnsiOrUtf8(0x20AC, bytes, size, false, false, false); });
    };
    EXPECT_EQ(utf8(1), "");
    EXPECT_EQ(utf8(2), "\xE2\x82\xAC") << "three bytes in the room of two";
    auto const utf16 = [](unsigned int size)
    {
        return BytesOf([size](char * bytes)
                       { return CKrCharFormatter::WcharToUtf16(OLESTR('\n'), bytes, size, false, true); });
    };
    EXPECT_EQ(utf16(1), "");
    EXPECT_EQ(utf16(2), "\0\r\0\n"s) << "four bytes in the room of two";
    EXPECT_EQ(CKrCharFormatter::WcharToAnsiOrUtf8(OLESTR('a'), nullptr, 4, true, true, true), 0u);
    EXPECT_EQ(CKrCharFormatter::WcharToUtf16(OLESTR('a'), nullptr, 4, true, true), 0u);
}

TEST(CKrCharFormatter, WritesUtf16InEitherOrder)
{
    for (WCHAR const character : {OLESTR('\0'), OLESTR('a'), OLESTR('\u20AC'), WCHAR(0xD83D), WCHAR(0xFFFE)})
    {
        SCOPED_TRACE(unsigned{character});
        std::string const bytes = {static_cast<char>(character >> 8), static_cast<char>(character & 0xFF)};
        EXPECT_EQ(Utf16(character, false, true), bytes);
        EXPECT_EQ(Utf16(character, true, true), std::string(bytes.rbegin(), bytes.rend()));
    }
    EXPECT_EQ(Utf16(OLESTR('\n'), true, true), "\r\0\n\0"s);
    EXPECT_EQ(Utf16(OLESTR('\n'), true, false), "\n\0"s);
    EXPECT_EQ(Utf16(0x0A00, true, true), "\0\n"s) << "no line feed";
}

TEST(CKrCharFormatter, KnowsTheMarkOfEachFormat)
{
    // clang-format off
    struct { unsigned int format; unsigned int mark; int width; unsigned int found; } const rows[] = {
        { CKrCharFormatter::eCharFormatUtf8,    0x00BFBBEF, 3, 2 },
        { CKrCharFormatter::eCharFormatUtf16LE, 0x0000FEFF, 2, 3 },
        { CKrCharFormatter::eCharFormatUtf16BE, 0x0000FFFE, 2, 4 },
        { CKrCharFormatter::eCharFormatUtf32LE, 0x0000FEFF, 4, 3 },  // read as UTF-16
        { CKrCharFormatter::eCharFormatUtf32BE, 0xFFFE0000, 4, 6 },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        SCOPED_TRACE(row.format);
        unsigned int mark = 99;
        EXPECT_EQ(CKrCharFormatter::GetBOM(mark, row.format), row.width);
        EXPECT_EQ(mark, row.mark);
        EXPECT_EQ(CKrCharFormatter::LookupBOM(mark), row.found);
    }
    for (unsigned int const format : {0u, 1u, 7u, 0xFFFFFFFFu})
    {
        unsigned int mark = 99;
        EXPECT_EQ(CKrCharFormatter::GetBOM(mark, format), 0);
        EXPECT_EQ(mark, 99u) << "left alone";
    }
}

TEST(CKrCharFormatter, FindsAMarkAtTheStartOfAFile)
{
    // clang-format off
    struct { unsigned int value; unsigned int format; } const rows[] = {
        { 0x61BFBBEF, 2 }, { 0x00BFBBEE, 0 }, { 0x00BFBAEF, 0 }, { 0x00BEBBEF, 0 }, { 0x0000BBEF, 0 },
        { 0x0061FEFF, 3 }, { 0xFFFFFEFF, 3 }, { 0x0000FEFE, 0 },
        { 0x6100FFFE, 4 }, { 0x0000FFFD, 0 }, { 0x0000FFFF, 0 },
        { 0xFFFE0000, 6 }, { 0xFFFE0001, 0 }, { 0xFEFF0000, 0 }, { 0x7FFE0000, 0 },
        { 0x00000000, 0 }, { 0xFFFFFFFF, 0 }, { 0x64636261, 0 },
    };
    // clang-format on
    for (auto const & row : rows)
        EXPECT_EQ(CKrCharFormatter::LookupBOM(row.value), row.format) << std::hex << row.value;
}

TEST(CKrCharFormatter, ReadsTheMarkOf32BitsAsThatOf16)
{
    EXPECT_EQ(CKrCharFormatter::LookupBOM(0x0000FEFF), CKrCharFormatter::eCharFormatUtf16LE) << "FF FE 00 00";
}

TEST(CKrCharFormatter, GivesFiveCodePagesAnIndex)
{
    // clang-format off
    struct { unsigned char index; unsigned int codePage; } const rows[] = {
        { 1, 932 }, { 2, 950 }, { 3, 949 }, { 4, 1361 }, { 5, 936 },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        EXPECT_EQ(CKrCharFormatter::MIFIndexFromWinCodePage(row.codePage), row.index);
        EXPECT_EQ(CKrCharFormatter::WinCodePageFromMIFIndex(row.index), row.codePage);
    }
    for (unsigned int const codePage : {0u, 1u, 931u, 933u, 1252u, 65001u, 932u + 65536u})
        EXPECT_EQ(CKrCharFormatter::MIFIndexFromWinCodePage(codePage), 0) << codePage;
    for (unsigned int const index : {0u, 6u, 255u, 257u, 0xFFFFFFFFu})
        EXPECT_EQ(CKrCharFormatter::WinCodePageFromMIFIndex(index), 0u) << index;
}

TEST(CKrCharFormatter, CountsUpToTheTerminator)
{
    EXPECT_EQ(CKrCharFormatter::WcsLength(nullptr), 0u);
    EXPECT_EQ(CKrCharFormatter::WcsLength(OLESTR("")), 0u);
    EXPECT_EQ(CKrCharFormatter::WcsLength(OLESTR("ab\u20AC")), 3u);
    EXPECT_EQ(CKrCharFormatter::WcsLength(OLESTR("ab\0c")), 2u);
}

TEST(CKrCharFormatter, GivesTheBytesOfWhatIsNativeToACodePage)
{
    // clang-format off
    struct { unsigned int codePage; WCHAR character; std::string bytes; } const rows[] = {
        {  1252, 0x0000, "\0"s      },
        {  1252, 0x007F, "\x7F"     },
        {  1252, 0x00E4, "\xE4"     },
        {  1252, 0x20AC, "\x80"     },
        {  1252, 0x0141, ""         },  // only a look-alike
        {  1252, 0xFF21, ""         },
        {  1252, 0x6F22, ""         },
        {  1252, 0xD83D, ""         },  // half a pair
        {  1252, 0xDE00, ""         },
        {  1251, 0x0416, "\xC6"     },
        {  1251, 0x00E4, ""         },
        {   932, 0x005C, "\\"       },
        {   932, 0x00A5, ""         },  // a backslash looks like it
        {   932, 0x30BD, "\x83\x5C" },
        {   932, 0xFF71, "\xB1"     },
        {   932, 0x20AC, ""         },
        {   932, 0xF8F0, "\xA0"     },  // stands for a byte that is no character
        {   936, 0x4E2D, "\xD6\xD0" },
        {   936, 0x20AC, "\x80"     },
        {   949, 0xAC00, "\xB0\xA1" },
        {   950, 0x4E2D, "\xA4\xA4" },
        {  1361, 0xAC00, "\x88\x61" },
        { 65001, 0x00E4, "\xC3\xA4" },
        { 65001, 0x07FF, "\xDF\xBF" },
        { 65001, 0x0800, ""         },  // three bytes, and there is room for two
        { 65001, 0xD83D, ""         },
        { 54321, 0x007F, "\x7F"     },  // no such code page
        { 54321, 0x0080, ""         },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        SCOPED_TRACE(std::to_string(row.codePage) + ", character " + std::to_string(row.character));
        auto const length = static_cast<int>(row.bytes.size());
        EXPECT_EQ(CKrCharFormatter::IsNativeToCodePage(row.character, row.codePage, nullptr), length);
        EXPECT_EQ(BytesOf(
                      [&row](char * bytes) {
                          return static_cast<unsigned int>(
                              CKrCharFormatter::IsNativeToCodePage(row.character, row.codePage, bytes));
                      }),
                  row.bytes);
    }
}

TEST(CKrCharFormatter, TakesForNativeWhatTheBytesDecodeBackTo)
{
    for (unsigned int const codePage : s_codePages)
    {
        int natives = 0;
        for (unsigned int number = 1; number <= 0xFFFF; ++number)
        {
            WCHAR const character = static_cast<WCHAR>(number);
            char bytes[2];
            int const count = CKrCharFormatter::IsNativeToCodePage(character, codePage, bytes);
            if (count == 0)
                continue;
            WCHAR decoded[2];
            ASSERT_EQ(MultiByteToWideChar(codePage, 0, bytes, count, decoded, 2), 1) << number;
            ASSERT_EQ(decoded[0], character) << codePage;
            ++natives;
        }
        EXPECT_GT(natives, 200) << codePage;
    }
}

TEST(CKrCharFormatter, FindsATextNativeIfEveryCharacterIs)
{
    // clang-format off
    struct { WCHAR const * text; int codePage; bool native; } const rows[] = {
        { OLESTR(""),                    1252, true  },
        { OLESTR(""),                      -1, true  },
        { OLESTR("abc"),                   -1, true  },
        { OLESTR("ab\u20AC"),            1252, true  },
        { OLESTR("ab\u20AC"),             932, false },
        { OLESTR("\u20ACab"),             932, false },
        { OLESTR("\u30BD\uFF71"),         932, true  },
        { OLESTR("\u0141"),              1252, false },  // look-alikes do not count
        { OLESTR("\u07FF"),             65001, true  },
        { OLESTR("\u0800"),             65001, false },  // more than two bytes
        { OLESTR("\u00E4"),                -1, false },
    };
    // clang-format on
    for (auto const & row : rows)
        EXPECT_EQ(CKrCharFormatter::IsAnsiString(row.text, row.codePage), row.native)
            << Narrow(row.text) << " in " << row.codePage;
    EXPECT_FALSE(CKrCharFormatter::IsAnsiString(CString(OLESTR("a\0\u6F22"), 3), 1252)) << "no zero ends a CString";
}
