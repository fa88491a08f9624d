// What depends on the process code page, each of them in a child process.
#include <krcore/text/krcharformatter.h>

#include <krplatform/codepage/codepage.h>

#include "tests/support/child_process.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace kr::test;
using namespace std::string_literals;

namespace
{

using Text = std::basic_string<WCHAR>;

constexpr char untouched = '\x5A';
constexpr WCHAR untouchedUnit = 0x5A5A;

struct Environment
{
    char const * locale;
    UINT codePage;
};

// clang-format off
constexpr Environment s_environments[] = {
    { "de_DE.ISO-8859-1",  1252 },
    { "ru_RU.CP1251",      1251 },
    { "ja_JP.SJIS",         932 },
    { "zh_CN.GBK",          936 },
    { "ko_KR.JOHAB",       1361 },
    { "C.UTF-8",          65001 },
};
// clang-format on

// Runs a test of this file, whose name begins with DISABLED_, once under each code page.
void CheckUnderEachCodePage(std::string const & name)
{
    for (Environment const & environment : s_environments)
    {
        ChildResult const child =
            RunTestInChild("CKrCharFormatterCodePage.DISABLED_" + name, {{"LC_ALL", environment.locale}});
        EXPECT_EQ(child.exitStatus, 0) << environment.locale << "\n" << child.output;
    }
}

struct CharacterRow
{
    UINT codePage;
    WCHAR character;
    std::string plain;
    std::string withCif;
};

// clang-format off
CharacterRow const s_characters[] = {
    {  1252, 0x00E4, "\xE4",     "\xE4"     },
    {  1252, 0x20AC, "\x80",     "\x80"     },
    {  1252, 0x0141, "L",        "\\U+0141" },  // a look-alike, or an escape
    {  1252, 0x6F22, "?",        "\\U+6F22" },
    {  1252, 0xD83D, "?",        "\\U+D83D" },  // half a pair
    {  1252, 0xDE00, "?",        "\\U+DE00" },
    {  1251, 0x0416, "\xC6",     "\xC6"     },
    {  1251, 0x00E4, "a",        "\\U+00E4" },
    {  1251, 0xABCD, "?",        "\\U+ABCD" },  // digits in upper case
    {   932, 0x30BD, "\x83\x5C", "\x83\x5C" },
    {   932, 0xFF71, "\xB1",     "\xB1"     },
    {   932, 0x20AC, "?",        "\\U+20AC" },
    {   932, 0xF8F0, "\xA0",     "\xA0"     },  // stands for a byte that is no character
    {   936, 0x20AC, "\x80",     "\x80"     },
    {   936, 0x4E2D, "\xD6\xD0", "\xD6\xD0" },
    {   936, 0xAC00, "?",        "\\U+AC00" },
    {  1361, 0xAC00, "\x88\x61", "\x88\x61" },
    {  1361, 0x00E4, "?",        "\\U+00E4" },
    { 65001, 0x0080, "\xC2\x80", "\xC2\x80" },
    { 65001, 0x07FF, "\xDF\xBF", "\xDF\xBF" },
};
// clang-format on

std::string WriteAnsi(WCHAR character, bool useCIF, bool expandLF = true)
{
    std::string buffer(16, untouched);
    unsigned int const count = CKrCharFormatter::WcharToAnsiOrUtf8(character, buffer.data(), 2, true, useCIF, expandLF);
    EXPECT_EQ(buffer.substr(count), std::string(buffer.size() - count, untouched)) << "written behind the end";
    EXPECT_EQ(CKrCharFormatter::WcharToAnsiOrUtf8(character, buffer.data(), 1, true, useCIF, expandLF), 0u);
    buffer.resize(count);
    CKrCharFormatter const formatter(CKrCharFormatter::eCharFormatAnsi, useCIF, expandLF);
    std::string again(16, untouched);
    again.resize(formatter.WcharToBytes(character, again.data(), 16));
    EXPECT_EQ(again, buffer) << "the object says the same";
    return buffer;
}

// A text as the pieces that its characters become.
struct CifCase
{
    UINT codePage;
    Text source;
    std::vector<Text> pieces;
};

// clang-format off
CifCase const s_cases[] = {
    {  1252, OLESTR("a\u20AC\u00E4"),       {OLESTR("a"), OLESTR("\u20AC"), OLESTR("\u00E4")}                      },
    {  1252, OLESTR("\u0141b\u6F22"),       {OLESTR("\\U+0141"), OLESTR("b"), OLESTR("\\U+6F22")}                  },
    {  1252, OLESTR("\xD83D\xDE00"),        {OLESTR("\\U+D83D"), OLESTR("\\U+DE00")}                               },
    {  1251, OLESTR("\u0416\u00E4\u0416"),  {OLESTR("\u0416"), OLESTR("\\U+00E4"), OLESTR("\u0416")}               },
    {   932, OLESTR("\u30BD\u20AC\uFF71"),  {OLESTR("\u30BD"), OLESTR("\\U+20AC"), OLESTR("\uFF71")}               },
    {   936, OLESTR("\u20AC\u4E2D\uAC00"),  {OLESTR("\u20AC"), OLESTR("\u4E2D"), OLESTR("\\U+AC00")}               },
    {  1361, OLESTR("\uAC00\u00E4"),        {OLESTR("\uAC00"), OLESTR("\\U+00E4")}                                 },
    { 65001, OLESTR("\u00E4\u07FF\u0800"),  {OLESTR("\u00E4"), OLESTR("\u07FF"), OLESTR("\\U+0800")}               },  // two bytes at most
    { 65001, OLESTR("\xDE00\u20AC"),        {OLESTR("\\U+DE00"), OLESTR("\\U+20AC")}                               },
};
// clang-format on

// What fits whole into a room of which one place stays free, and a terminator.
Text ExpectedCif(CifCase const & one, int room)
{
    Text written;
    for (Text const & piece : one.pieces)
    {
        if (static_cast<int>(written.size() + piece.size()) > room - 1)
            break;
        written += piece;
    }
    return written + WCHAR{};
}

// Converts into a room; what lies behind the characters told must be as it was.
Text ConvertToCif(Text const & source, int room)
{
    Text buffer(static_cast<std::size_t>(room) + 16, untouchedUnit);
    int const count = CKrCharFormatter::WcharNonNativeToCIF(source.c_str(), buffer.data(), room);
    EXPECT_LE(count, room);
    auto const end = static_cast<std::size_t>(count);
    EXPECT_EQ(buffer.substr(end), Text(buffer.size() - end, untouchedUnit)) << "written behind the end";
    return buffer.substr(0, end);
}

// Every unit but the zero, in order.
Text AllUnits()
{
    Text units;
    for (unsigned int number = 1; number <= 0xFFFF; ++number)
        units += static_cast<WCHAR>(number);
    return units;
}

} // namespace

TEST(CKrCharFormatterCodePage, WritesCharactersInTheProcessCodePage) { CheckUnderEachCodePage("WritesCharacters"); }

TEST(CKrCharFormatterCodePage, DISABLED_WritesCharacters)
{
    int rows = 0;
    for (CharacterRow const & row : s_characters)
    {
        if (row.codePage != GetACP())
            continue;
        SCOPED_TRACE(unsigned{row.character});
        EXPECT_EQ(WriteAnsi(row.character, false), row.plain);
        EXPECT_EQ(WriteAnsi(row.character, true), row.withCif) << "seven bytes in the room of two";
        ++rows;
    }
    EXPECT_GE(rows, 2) << GetACP();
    for (bool const useCIF : {false, true})
    {
        EXPECT_EQ(WriteAnsi(0, useCIF), "\0"s);
        EXPECT_EQ(WriteAnsi(OLESTR('\\'), useCIF), "\\");
        EXPECT_EQ(WriteAnsi(0x7F, useCIF), "\x7F");
        EXPECT_EQ(WriteAnsi(OLESTR('\r'), useCIF), "\r");
        EXPECT_EQ(WriteAnsi(OLESTR('\n'), useCIF, true), "\r\n");
        EXPECT_EQ(WriteAnsi(OLESTR('\n'), useCIF, false), "\n");
    }
}

TEST(CKrCharFormatterCodePage, WritesNothingForThreeBytesOfUtf8InTheProcessCodePage)
{
    ChildResult const child =
        RunTestInChild("CKrCharFormatterCodePage.DISABLED_WritesNothing", {{"LC_ALL", "de_DE.UTF-8"}});
    EXPECT_EQ(child.exitStatus, 0) << child.output;
}

TEST(CKrCharFormatterCodePage, DISABLED_WritesNothing)
{
    ASSERT_EQ(GetACP(), 65001u);
    for (WCHAR const character : {WCHAR(0x0800), WCHAR(0x20AC), WCHAR(0xFFFF)})
        for (bool const useCIF : {false, true})
        {
            SCOPED_TRACE(unsigned{character});
            char bytes[16];
            EXPECT_EQ(CKrCharFormatter::WcharToAnsiOrUtf8(character, bytes, 16, true, useCIF, true), 0u);
            EXPECT_EQ(CKrCharFormatter::WcharToAnsiOrUtf8(character, bytes, 16, false, useCIF, true), 3u)
                << "in the format of UTF-8 it is written";
        }
}

TEST(CKrCharFormatterCodePage, EscapesEachUnitThatIsNotNative) { CheckUnderEachCodePage("EscapesEachUnit"); }

TEST(CKrCharFormatterCodePage, DISABLED_EscapesEachUnit)
{
    bool const isUtf8 = GetACP() == 65001;
    for (WCHAR const character : AllUnits())
    {
        if (character == OLESTR('\n') || (isUtf8 && character >= 0x0800))
            continue;
        std::string const written = WriteAnsi(character, true);
        char bytes[2];
        int const count = CKrCharFormatter::IsNativeToCodePage(character, CP_ACP, bytes);
        CStringA escape;
        escape.Format("\\U+%04X", character);
        ASSERT_EQ(written, count > 0 ? std::string(bytes, static_cast<std::size_t>(count)) : std::string(escape));
    }
}

TEST(CKrCharFormatterCodePage, EncodesCifExactlyAtEveryRoom) { CheckUnderEachCodePage("EncodesCif"); }

TEST(CKrCharFormatterCodePage, DISABLED_EncodesCif)
{
    int cases = 0;
    for (CifCase const & one : s_cases)
    {
        if (one.codePage != GetACP())
            continue;
        Text const whole = ExpectedCif(one, 1000);
        for (int room = 1; room <= static_cast<int>(whole.size()) + 3; ++room)
        {
            SCOPED_TRACE(Narrow(one.source) + ", " + std::to_string(room));
            EXPECT_EQ(Narrow(ConvertToCif(one.source, room)), Narrow(ExpectedCif(one, room)));
        }
        for (int const count : {-1, 0, 1, 1000})
            EXPECT_EQ(CKrCharFormatter::WcharNonNativeToCIF(one.source.c_str(), nullptr, count),
                      static_cast<int>(whole.size()));
        ++cases;
    }
    EXPECT_GE(cases, 1) << GetACP();
}

TEST(CKrCharFormatterCodePage, NeedsEightPlacesForAnEscape)
{
    ChildResult const child = RunTestInChild("CKrCharFormatterCodePage.DISABLED_NeedsEight", {{"LC_ALL", "de_DE"}});
    EXPECT_EQ(child.exitStatus, 0) << child.output;
}

TEST(CKrCharFormatterCodePage, DISABLED_NeedsEight)
{
    EXPECT_EQ(ConvertToCif(OLESTR("\u6F22b"), 7), Text(1, 0));
    EXPECT_EQ(ConvertToCif(OLESTR("\u6F22b"), 8), Text(OLESTR("\\U+6F22\0"), 8));
    EXPECT_EQ(ConvertToCif(OLESTR("\u6F22b"), 9), Text(OLESTR("\\U+6F22b\0"), 9));
    EXPECT_EQ(ConvertToCif(OLESTR("a\u6F22b"), 8), Text(OLESTR("a\0"), 2)) << "and the b behind it is left out";
    EXPECT_EQ(ConvertToCif(OLESTR("a\u6F22b"), 9), Text(OLESTR("a\\U+6F22\0"), 9));
}

TEST(CKrCharFormatterCodePage, ReadsBackWhatItEncodes) { CheckUnderEachCodePage("ReadsBack"); }

TEST(CKrCharFormatterCodePage, DISABLED_ReadsBack)
{
    Text const units = AllUnits();
    int const needed = CKrCharFormatter::WcharNonNativeToCIF(units.c_str(), nullptr, 0);
    EXPECT_GT(needed, 100000) << "many units are no characters in any code page";
    Text const encoded = ConvertToCif(units, needed);
    ASSERT_EQ(static_cast<int>(encoded.size()), needed);
    Text decoded(units.size() + 1, untouchedUnit);
    EXPECT_EQ(CKrCharFormatter::WcharFromCIFMIF(encoded.c_str(), decoded.data(), 0x10000), 0x10000);
    EXPECT_TRUE(decoded == units + WCHAR{});
}

TEST(CKrCharFormatterCif, ProtectsNoEscapeThatTheTextHoldsAlready)
{
    Text const source = OLESTR("\\U+0041 \\M+19286");
    Text const encoded = ConvertToCif(source, 100);
    EXPECT_EQ(encoded, source + WCHAR{}) << "it is read back as the characters that it names";
}

TEST(CKrCharFormatterCif, WritesTheTerminatorOfAnEmptyText)
{
    EXPECT_EQ(ConvertToCif(OLESTR(""), 1), Text(1, 0));
    EXPECT_EQ(CKrCharFormatter::WcharNonNativeToCIF(OLESTR(""), nullptr, 0), 1);
    EXPECT_EQ(ConvertToCif(Text(OLESTR("a\0b"), 3), 9), Text(OLESTR("a\0"), 2)) << "the first zero ends the text";
}

TEST(CKrCharFormatterCif, GivesNothingForArgumentsOfNoUse)
{
    WCHAR unit = untouchedUnit;
    for (int const count : {-1, 0, 1, 8})
    {
        EXPECT_EQ(CKrCharFormatter::WcharNonNativeToCIF(nullptr, &unit, count), 0);
        EXPECT_EQ(CKrCharFormatter::WcharNonNativeToCIF(nullptr, nullptr, count), 0);
    }
    for (int const count : {-1, 0})
        EXPECT_EQ(CKrCharFormatter::WcharNonNativeToCIF(OLESTR("a"), &unit, count), 0);
    EXPECT_EQ(unit, untouchedUnit);
}
