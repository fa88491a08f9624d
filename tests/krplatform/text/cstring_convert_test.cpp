#include <krplatform/automation/colevariant.h>
#include <krplatform/codepage/codepage.h>
#include <krplatform/system/resource.h>
#include <krplatform/text/bstr.h>
#include <krplatform/text/cstring.h>

#include "tests/krplatform/text/failures.h"
#include "tests/support/child_process.h"
#include "tests/support/failing_allocator.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace
{

/// Runs a test of this file, whose name begins with DISABLED_, in a process with that code page.
void CheckInChild(std::string const & name, std::string const & locale)
{
    kr::test::ChildResult const result =
        kr::test::RunTestInChild("CStringConvertChild.DISABLED_" + name, {{"LC_ALL", locale}});
    EXPECT_EQ(result.exitStatus, 0) << result.output;
}

} // namespace

TEST(CStringConvert, AsciiIsTheSameInEveryCodePage)
{
    std::string ascii;
    for (char unit = 1; unit > 0; ++unit)
        ascii += unit;
    CString const wide(ascii.c_str());
    ASSERT_EQ(wide.GetLength(), 127);
    for (int index = 0; index < 127; ++index)
        EXPECT_EQ(wide[index], index + 1);
    EXPECT_EQ(CStringA(wide), ascii.c_str());
}

TEST(CStringConvert, NarrowTextIsReadAndWrittenByTheProcessCodePage)
{
    CheckInChild("ReadsAndWritesUtf8", "de_DE.UTF-8");
    CheckInChild("ReadsAndWrites1252", "de_DE.ISO-8859-1");
    CheckInChild("ReadsAndWrites932", "ja_JP.SJIS");
}

TEST(CStringConvertChild, DISABLED_ReadsAndWritesUtf8)
{
    CString const text("a\xC3\xA4\xE2\x82\xAC!");
    EXPECT_EQ(text, OLESTR("a\u00E4\u20AC!"));
    EXPECT_EQ(CStringA(text), "a\xC3\xA4\xE2\x82\xAC!");
    EXPECT_EQ(CStringA(OLESTR("\u00E4\u00E4\u00E4\u00E4")).GetLength(), 8) << "no unit here is ASCII";
    CString appended(OLESTR("x"));
    appended += "\xC3\xA4";
    EXPECT_EQ(appended, OLESTR("x\u00E4"));
}

TEST(CStringConvertChild, DISABLED_ReadsAndWrites1252)
{
    CString const text("a\xE4\x80!");
    EXPECT_EQ(text, OLESTR("a\u00E4\u20AC!"));
    EXPECT_EQ(CStringA(text), "a\xE4\x80!");
    EXPECT_EQ(CString("\xE4xy", 1), OLESTR("\u00E4"));
    EXPECT_EQ(CStringA(OLESTR("\u0416")), "?");
    std::ostringstream stream;
    stream << text;
    EXPECT_EQ(stream.str(), "a\xC3\xA4\xE2\x82\xAC!") << "streams take UTF-8 in every code page";
    CString formatted;
    formatted.Format(OLESTR("%S%hc"), "\xE4", 0xE4);
    EXPECT_EQ(formatted, OLESTR("\u00E4\u00E4"));
}

TEST(CStringConvertChild, DISABLED_ReadsAndWrites932)
{
    CString const text("\x83\x5C!"); // the second byte is that of a backslash
    EXPECT_EQ(text, OLESTR("\u30BD!"));
    EXPECT_EQ(CStringA(text), "\x83\x5C!");
}

TEST(CStringConvert, ZerosInsideAreKept)
{
    CString const wide("a\0b", 3);
    EXPECT_EQ(wide.GetLength(), 3);
    EXPECT_EQ(CStringA(wide).GetLength(), 3);
}

TEST(CStringConvert, TextOfWiderUnitsBecomesSurrogatePairs)
{
    EXPECT_EQ(CString(L"wall \u00E4\u20AC"), OLESTR("wall \u00E4\u20AC"));
    EXPECT_EQ(CString(L"\uFFFF\U0001F600\U0010FFFF\U00010000"), OLESTR("\uFFFF\U0001F600\U0010FFFF\U00010000"));
    wchar_t const noCharacter[] = {static_cast<wchar_t>(0x110000), L'a', 0};
    EXPECT_EQ(CString(noCharacter), OLESTR("\uFFFDa"));
    EXPECT_EQ(CString(static_cast<wchar_t const *>(nullptr)), OLESTR(""));
}

TEST(CStringConvert, AVariantIsReadAsThePlatformCoercesIt)
{
    EXPECT_EQ(CString(COleVariant(short{12})), OLESTR("12"));
    EXPECT_EQ(CString(COleVariant(OLESTR("wall"))), OLESTR("wall"));
    VARIANT value;
    VariantInit(&value);
    EXPECT_EQ(CString(value), OLESTR("")) << "no value is empty text";
    value.vt = VT_R8;
    value.dblVal = 333.0;
    EXPECT_EQ(CString(value), OLESTR("333"));
    EXPECT_EQ(value.vt, VT_R8) << "a copy is converted";
}

TEST(CStringConvert, AVariantThatHasNoTextRaisesTheFailureOfThePlatform)
{
    std::size_t const before = kr::test::LiveAllocations();
    VARIANT value;
    VariantInit(&value);
    value.vt = VT_NULL;
    EXPECT_EQ(ThrownResult([&] { CString const text(value); }), DISP_E_TYPEMISMATCH);
    value.vt = 200;
    EXPECT_EQ(ThrownResult([&] { CString const text(value); }), DISP_E_BADVARTYPE);
    EXPECT_EQ(kr::test::LiveAllocations(), before);
}

TEST(CStringConvert, AllocatesAutomationText)
{
    CString const text(OLESTR("a\0b"), 3);
    BSTR const copy = text.AllocSysString();
    EXPECT_EQ(SysStringLen(copy), 3u);
    EXPECT_EQ(CString(copy, 3), text);
    SysFreeString(copy);

    BSTR const empty = CString().AllocSysString();
    ASSERT_NE(empty, nullptr);
    EXPECT_EQ(SysStringLen(empty), 0u);
    SysFreeString(empty);
}

TEST(CStringConvert, LoadsStringsOfTheResourceModule)
{
    CString text(OLESTR("old"));
    EXPECT_FALSE(text.LoadString(4711));
    EXPECT_EQ(text, OLESTR("old")) << "a string that is not there leaves the text";
    EXPECT_FALSE(text.LoadString(nullptr, 4711));
    EXPECT_TRUE(text.LoadString(9001));
    EXPECT_EQ(text, OLESTR("%d walls of %s"));
    EXPECT_TRUE(text.LoadString(nullptr, 9002));
    EXPECT_EQ(text, OLESTR("wall"));
    CStringA narrow;
    EXPECT_TRUE(narrow.LoadString(9002));
    EXPECT_EQ(narrow, "wall");
}

TEST(CStringConvert, LooksForStringsInTheModuleThatIsCurrent)
{
    CString text(OLESTR("old"));
    AfxSetResourceHandle(AfxModuleFromAddress(reinterpret_cast<void const *>(&SysFreeString)));
    bool const isFound = text.LoadString(9002); // a string of the program, which is not current now
    AfxSetResourceHandle(nullptr);
    EXPECT_FALSE(isFound);
    EXPECT_EQ(text, OLESTR("old"));
    EXPECT_TRUE(text.LoadString(9002));
}

TEST(CStringConvert, FormatsByAStringOfTheResourceModule)
{
    CString text(OLESTR("old"));
    text.Format(9001u, 3, OLESTR("stone"));
    EXPECT_EQ(text, OLESTR("3 walls of stone"));
    EXPECT_EQ(ThrownResult([&] { text.Format(4711u, 3); }), E_FAIL);
    EXPECT_EQ(text, OLESTR("3 walls of stone"));
}

extern "C" __attribute__((visibility("default"))) AfxStringEntry const AfxStringTable[] = {
    {9001, OLESTR("%d walls of %s")},
    {9002, OLESTR("wall")},
    {0, nullptr},
};
