#include <krplatform/text/cstring.h>

#include "tests/support/text.h"

#include <gtest/gtest.h>

namespace
{

struct Row
{
    WCHAR const * text;
    WCHAR const * left;
    WCHAR const * right;
    WCHAR const * both;
};

} // namespace

TEST(CStringTrim, TakesWhiteSpaceAway)
{
    // clang-format off
    Row const rows[] = {
        // text                        left                   right                both
        { OLESTR("  a b  "),           OLESTR("a b  "),       OLESTR("  a b"),     OLESTR("a b") },
        { OLESTR("\t\r\n\v\fa"),       OLESTR("a"),           OLESTR("\t\r\n\v\fa"), OLESTR("a") },
        { OLESTR("a\u00A0\u3000"),     OLESTR("a\u00A0\u3000"), OLESTR("a"),       OLESTR("a")   },  // spaces of Unicode
        { OLESTR("\u200Ba\u200B"),     OLESTR("\u200Ba\u200B"), OLESTR("\u200Ba\u200B"), OLESTR("\u200Ba\u200B") },
        { OLESTR("   "),               OLESTR(""),            OLESTR(""),          OLESTR("")    },
        { OLESTR("a"),                 OLESTR("a"),           OLESTR("a"),         OLESTR("a")   },
        { OLESTR(""),                  OLESTR(""),            OLESTR(""),          OLESTR("")    },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(kr::test::Narrow(row.text));
        EXPECT_EQ(CString(row.text).TrimLeft(), row.left);
        EXPECT_EQ(CString(row.text).TrimRight(), row.right);
        EXPECT_EQ(CString(row.text).Trim(), row.both);
    }
}

TEST(CStringTrim, TakesAUnitAway)
{
    EXPECT_EQ(CString(OLESTR("xxaxx")).TrimLeft(OLESTR('x')), OLESTR("axx"));
    EXPECT_EQ(CString(OLESTR("xxaxx")).TrimRight(OLESTR('x')), OLESTR("xxa"));
    EXPECT_EQ(CString(OLESTR("xxaxx")).Trim(OLESTR('x')), OLESTR("a"));
    EXPECT_EQ(CString(OLESTR("xxx")).Trim(OLESTR('x')), OLESTR(""));
    EXPECT_EQ(CString(OLESTR(" a ")).Trim(OLESTR('x')), OLESTR(" a "));
}

TEST(CStringTrim, TakesUnitsOfASetAway)
{
    EXPECT_EQ(CString(OLESTR("xyaxy")).TrimLeft(OLESTR("yx")), OLESTR("axy"));
    EXPECT_EQ(CString(OLESTR("xyaxy")).TrimRight(OLESTR("yx")), OLESTR("xya"));
    EXPECT_EQ(CString(OLESTR("xyaxy")).Trim(OLESTR("yx")), OLESTR("a"));
    EXPECT_EQ(CString(OLESTR(" a ")).Trim(OLESTR("")), OLESTR(" a "));
    EXPECT_EQ(CString(OLESTR(" a ")).Trim(nullptr), OLESTR(" a "));
}

TEST(CStringTrim, TakesASetThatLiesInTheText)
{
    CString text(OLESTR("babcb"));
    EXPECT_EQ(text.Trim(text.GetString() + 4), OLESTR("abc"));
    EXPECT_EQ(text.Trim(text), OLESTR(""));
}

TEST(CStringTrim, GivesTheTextItself)
{
    CString text(OLESTR(" a "));
    EXPECT_EQ(&text.TrimLeft(), &text);
    EXPECT_EQ(&text.TrimRight(), &text);
    EXPECT_EQ(&text.Trim(), &text);
    EXPECT_EQ(&text.MakeUpper().MakeLower().MakeReverse(), &text);
}
