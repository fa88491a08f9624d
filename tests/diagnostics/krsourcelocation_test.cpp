#include <krcore/diagnostics/krsourcelocation.h>

#include "tests/support/text.h"

#include <gtest/gtest.h>

using kr::detail::SourceLocation;
using kr::detail::SourceText;

TEST(SourceText, TakesNarrowAndWideTextAndNull)
{
    CString const text(OLESTR("wall"));
    char const * const noNarrow = nullptr;
    WCHAR const * const noWide = nullptr;
    EXPECT_EQ(SourceText("wall").ToString(), OLESTR("wall"));
    EXPECT_EQ(SourceText(OLESTR("wall")).ToString(), OLESTR("wall"));
    EXPECT_EQ(SourceText(text).ToString(), OLESTR("wall"));
    EXPECT_EQ(SourceText(noNarrow).ToString(), OLESTR(""));
    EXPECT_EQ(SourceText(noWide).ToString(), OLESTR(""));
}

TEST(SourceLocation, IsWrittenAsFileAndLine)
{
    struct Row
    {
        WCHAR const * file;
        long line;
        WCHAR const * text;
    };
    // clang-format off
    Row const rows[] = {
        // file             line          text
        { OLESTR("f"),      3,            OLESTR("f(3): ")           },
        { OLESTR(""),       0,            OLESTR("(0): ")            },
        { OLESTR("a b%d"),  -1,           OLESTR("a b%d(-1): ")      },
        { OLESTR("f"),      2147483647L,  OLESTR("f(2147483647): ")  },
        { OLESTR("f"),      4294967295L,  OLESTR("f(-1): ")          },  // the low 32 bits as a signed number
        { OLESTR("f"),      4294967301L,  OLESTR("f(5): ")           },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(kr::test::Narrow(row.text));
        EXPECT_EQ((SourceLocation{row.file, row.line}.ToString()), row.text);
    }
}
