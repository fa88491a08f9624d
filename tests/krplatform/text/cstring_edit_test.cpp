#include <krplatform/text/cstring.h>

#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <climits>

namespace
{

struct ReplaceRow
{
    WCHAR const * text;
    WCHAR const * oldText;
    WCHAR const * newText;
    int count;
    WCHAR const * result;
};

struct InsertRow
{
    int index;
    WCHAR const * part;
    WCHAR const * result;
};

struct DeleteRow
{
    int index;
    int count;
    WCHAR const * result;
};

} // namespace

TEST(CStringReplace, ReplacesTextEverywhere)
{
    // clang-format off
    ReplaceRow const rows[] = {
        // text               old             new              count  result
        { OLESTR("abcabc"),   OLESTR("b"),    OLESTR("x"),      2,    OLESTR("axcaxc")   },
        { OLESTR("abcabc"),   OLESTR("b"),    OLESTR("xyz"),    2,    OLESTR("axyzcaxyzc") },
        { OLESTR("abcabc"),   OLESTR("bc"),   OLESTR("x"),      2,    OLESTR("axax")     },
        { OLESTR("abcabc"),   OLESTR("b"),    OLESTR(""),       2,    OLESTR("acac")     },
        { OLESTR("abcabc"),   OLESTR("b"),    nullptr,          2,    OLESTR("acac")     },
        { OLESTR("abcabc"),   OLESTR("abc"),  OLESTR(""),       2,    OLESTR("")         },
        { OLESTR("abcabc"),   OLESTR("x"),    OLESTR("y"),      0,    OLESTR("abcabc")   },
        { OLESTR("abcabc"),   OLESTR(""),     OLESTR("y"),      0,    OLESTR("abcabc")   },
        { OLESTR("abcabc"),   nullptr,        OLESTR("y"),      0,    OLESTR("abcabc")   },
        { OLESTR("aaaa"),     OLESTR("aa"),   OLESTR("a"),      2,    OLESTR("aa")       },  // not searched again
        { OLESTR("aaa"),      OLESTR("aa"),   OLESTR("b"),      1,    OLESTR("ba")       },
        { OLESTR("b"),        OLESTR("b"),    OLESTR("bb"),     1,    OLESTR("bb")       },
        { OLESTR("1,5"),      OLESTR(","),    OLESTR("."),      1,    OLESTR("1.5")      },
        { OLESTR(""),         OLESTR("a"),    OLESTR("b"),      0,    OLESTR("")         },
    };
    // clang-format on
    for (ReplaceRow const & row : rows)
    {
        SCOPED_TRACE(kr::test::Narrow(row.oldText) + " in " + kr::test::Narrow(row.text));
        CString text(row.text);
        EXPECT_EQ(text.Replace(row.oldText, row.newText), row.count);
        EXPECT_EQ(text, row.result);
        EXPECT_EQ(text.GetString()[text.GetLength()], 0);
    }
}

TEST(CStringReplace, TakesArgumentsThatLieInTheText)
{
    CString text(OLESTR("abab"));
    EXPECT_EQ(text.Replace(text, text), 1);
    EXPECT_EQ(text, OLESTR("abab"));
    EXPECT_EQ(text.Replace(OLESTR("a"), text), 2);
    EXPECT_EQ(text, OLESTR("ababbababb"));
    EXPECT_EQ(text.Replace(text.GetString() + 9, text.GetString() + 8), 6);
    EXPECT_EQ(text, OLESTR("abbabbbbabbabbbb"));
}

TEST(CStringReplace, ReplacesUnits)
{
    CString text(OLESTR("The brown fox"));
    EXPECT_EQ(text.Replace(OLESTR('o'), OLESTR('0')), 2);
    EXPECT_EQ(text, OLESTR("The br0wn f0x"));
    EXPECT_EQ(text.Replace(OLESTR('q'), OLESTR('0')), 0);
    EXPECT_EQ(text.Replace(OLESTR('0'), OLESTR('0')), 0);
    EXPECT_EQ(text, OLESTR("The br0wn f0x"));
}

TEST(CStringRemove, RemovesUnitsAndCountsThem)
{
    CString text(OLESTR("a-b--c-"));
    EXPECT_EQ(text.Remove(OLESTR('-')), 4);
    EXPECT_EQ(text, OLESTR("abc"));
    EXPECT_EQ(text.Remove(OLESTR('-')), 0);
    EXPECT_EQ(text.Remove(OLESTR('A')), 0) << "case counts";
    CString all(OLESTR("aaa"));
    EXPECT_EQ(all.Remove(OLESTR('a')), 3);
    EXPECT_TRUE(all.IsEmpty());
    EXPECT_EQ(all.Remove(OLESTR('a')), 0);
}

TEST(CStringInsert, HoldsTheIndexWithinTheText)
{
    // clang-format off
    InsertRow const rows[] = {
        { 0,        OLESTR("--"),  OLESTR("--abc") },
        { 1,        OLESTR("--"),  OLESTR("a--bc") },
        { 3,        OLESTR("--"),  OLESTR("abc--") },
        { 4,        OLESTR("--"),  OLESTR("abc--") },
        { INT_MAX,  OLESTR("--"),  OLESTR("abc--") },
        { -1,       OLESTR("--"),  OLESTR("--abc") },
        { INT_MIN,  OLESTR("--"),  OLESTR("--abc") },
        { 1,        OLESTR(""),    OLESTR("abc")   },
        { 1,        nullptr,       OLESTR("abc")   },
    };
    // clang-format on
    for (InsertRow const & row : rows)
    {
        SCOPED_TRACE(row.index);
        CString text(OLESTR("abc"));
        EXPECT_EQ(text.Insert(row.index, row.part), CString(row.result).GetLength());
        EXPECT_EQ(text, row.result);
    }
    CString text(OLESTR("abc"));
    EXPECT_EQ(text.Insert(1, OLESTR('x')), 4);
    EXPECT_EQ(text, OLESTR("axbc"));
    CString empty;
    EXPECT_EQ(empty.Insert(5, OLESTR("wall")), 4);
    EXPECT_EQ(empty, OLESTR("wall"));
}

TEST(CStringInsert, TakesTextThatLiesInTheText)
{
    for (int const room : {0, 100}) // with and without a move of the storage
    {
        CString text(OLESTR("abcd"));
        text.Preallocate(room);
        EXPECT_EQ(text.Insert(1, text), 8);
        EXPECT_EQ(text, OLESTR("aabcdbcd"));
        EXPECT_EQ(text.Insert(0, text.GetString() + 5), 11);
        EXPECT_EQ(text, OLESTR("bcdaabcdbcd"));
        EXPECT_EQ(text.Insert(text.GetLength(), text.GetString() + 10), 12);
        EXPECT_EQ(text, OLESTR("bcdaabcdbcdd"));
    }
}

TEST(CStringDelete, HoldsIndexAndCountWithinTheText)
{
    // clang-format off
    DeleteRow const rows[] = {
        { 0,        1,        OLESTR("bcdef")  },
        { 2,        2,        OLESTR("abef")   },
        { 4,        2,        OLESTR("abcd")   },
        { 4,        9,        OLESTR("abcd")   },
        { 0,        6,        OLESTR("")       },
        { 0,        INT_MAX,  OLESTR("")       },
        { 6,        1,        OLESTR("abcdef") },
        { INT_MAX,  INT_MAX,  OLESTR("abcdef") },
        { -2,       3,        OLESTR("def")    },  // an index below 0 counts as 0 and keeps the count
        { 2,        0,        OLESTR("abcdef") },
        { 2,        -1,       OLESTR("abcdef") },
    };
    // clang-format on
    for (DeleteRow const & row : rows)
    {
        SCOPED_TRACE(testing::Message() << row.index << ", " << row.count);
        CString text(OLESTR("abcdef"));
        EXPECT_EQ(text.Delete(row.index, row.count), CString(row.result).GetLength());
        EXPECT_EQ(text, row.result);
    }
    CString text(OLESTR("abc"));
    EXPECT_EQ(text.Delete(1), 2);
    EXPECT_EQ(text, OLESTR("ac"));
}

TEST(CStringCase, MapsEachUnitByItself)
{
    CString text(OLESTR("Wall_1 \u00E4\u00C4 \u0434\u0414 \uFF41 \u00DF \u00B5 \u01C5"));
    text.MakeUpper();
    EXPECT_EQ(text, OLESTR("WALL_1 \u00C4\u00C4 \u0414\u0414 \uFF21 \u00DF \u00B5 \u01C5"));
    text.MakeLower();
    EXPECT_EQ(text, OLESTR("wall_1 \u00E4\u00E4 \u0434\u0434 \uFF41 \u00DF \u00B5 \u01C5"));
}

TEST(CStringCase, NarrowTextMapsAsciiOnly)
{
    CStringA text("Wall\xE4`{@[");
    EXPECT_EQ(text.MakeUpper(), "WALL\xE4`{@[");
    EXPECT_EQ(text.MakeLower(), "wall\xE4`{@[");
}

TEST(CStringReverse, TurnsTheUnitsRound)
{
    CString text(OLESTR("abc"));
    EXPECT_EQ(text.MakeReverse(), OLESTR("cba"));
    EXPECT_EQ(CString(OLESTR("ab")).MakeReverse(), OLESTR("ba"));
    EXPECT_EQ(CString(OLESTR("a")).MakeReverse(), OLESTR("a"));
    EXPECT_EQ(CString().MakeReverse(), OLESTR(""));
    CString pair(OLESTR("\U0001F600"));
    pair.MakeReverse();
    EXPECT_EQ(pair[0], 0xDE00) << "halves of surrogate pairs are units as all others";
    EXPECT_EQ(pair[1], 0xD83D);
}
