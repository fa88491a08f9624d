#include <examples/layeredit/encoding.h>

#include <krplatform/codepage/codepage.h>

#include <gtest/gtest.h>

namespace layeredit
{

TEST(DrawingEncoding, WhatIsWrittenIsReadBack)
{
    WCHAR const * const texts[] = {
        OLESTR(""),
        OLESTR("plain"),
        OLESTR("\\"),
        OLESTR("\\U+0041"),
        OLESTR("\\\\U+0041"),
        OLESTR("\\U+\\U+0041"),
        OLESTR("\\M+5D7DF"),
        OLESTR("\\M+1"),
        OLESTR("\u00DC\u8868\u0416"),
        OLESTR("\u8868U+0041"),
        OLESTR("\U0001F600"),
        OLESTR("\\U+005CU+0041"),
        OLESTR("\xD83D"),
        OLESTR("a\xDE00\xD83D"),
        OLESTR("\xD83D\xD83D\xDE00\xDE00"),
    };
    for (UINT const codePage : {1252u, 932u, 936u, 949u, 950u, 1361u, 437u, 28595u, CP_UTF8})
        for (WCHAR const * const text : texts)
            EXPECT_EQ(DecodeValue(EncodeValue(text, codePage), codePage), CString(text)) << codePage << CString(text);
}

TEST(DrawingEncoding, ControlSignsAreCaretsAndLetters)
{
    // clang-format off
    struct { WCHAR const * text; WCHAR const * written; } const rows[] = {
        { OLESTR("a\nb"), OLESTR("a^Jb")  }, { OLESTR("\t"),   OLESTR("^I")     }, { OLESTR("^"),  OLESTR("^ ")   },
        { OLESTR("^J"),   OLESTR("^ J")   }, { OLESTR("\x1F"), OLESTR("^_")     }, { OLESTR("^ "), OLESTR("^  ")  },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        EXPECT_EQ(EncodeControls(row.text), CString(row.written));
        EXPECT_EQ(DecodeControls(row.written), CString(row.text));
    }
    for (WCHAR const * const unchanged :
         {OLESTR("a^"), OLESTR("^a"), OLESTR("^1"), OLESTR("^@")}) // no signs that are known
        EXPECT_EQ(DecodeControls(unchanged), CString(unchanged));
}

TEST(DrawingEncoding, AnOptionIsAWordOrANumber)
{
    EXPECT_EQ(CodePageOfOption(OLESTR("932")), 932u);
    EXPECT_EQ(CodePageOfOption(OLESTR("ansi_932")), 932u);
    EXPECT_EQ(CodePageOfOption(OLESTR("65001")), 65001u);
    EXPECT_EQ(CodePageOfOption(OLESTR("utf-8")), 65001u);
    for (WCHAR const * const unknown :
         {OLESTR("933"), OLESTR("ANSI_1200"), OLESTR(""), OLESTR("0932"), OLESTR("ANSI_12522")})
        EXPECT_EQ(CodePageOfOption(unknown), 0u) << CString(unknown);
}

TEST(DrawingEncoding, ArgumentsAreUtf8AndOtherwiseOfTheProcess)
{
    EXPECT_EQ(WidenArgument("\u00DC\u8868"), CString(OLESTR("\u00DC\u8868")));
    EXPECT_EQ(WidenArgument(""), CString());
    EXPECT_EQ(WidenArgument("\xDC"), Widen("\xDC", CP_ACP));
}

} // namespace layeredit
