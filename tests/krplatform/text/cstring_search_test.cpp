#include <krplatform/text/cstring.h>

#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <string>

namespace
{

struct FindRow
{
    WCHAR const * text;
    WCHAR const * part;
    int start;
    int position;
};

struct PartRow
{
    int first;
    int count;
    WCHAR const * middle;
};

struct CountRow
{
    int count;
    WCHAR const * left;
    WCHAR const * right;
};

} // namespace

TEST(CStringFind, FindsText)
{
    // clang-format off
    FindRow const rows[] = {
        // text              part             start     position
        { OLESTR("abcabc"),  OLESTR("c"),     0,        2 },
        { OLESTR("abcabc"),  OLESTR("ca"),    0,        2 },
        { OLESTR("abcabc"),  OLESTR("abc"),   0,        0 },
        { OLESTR("abcabc"),  OLESTR("abc"),   1,        3 },
        { OLESTR("abcabc"),  OLESTR("abc"),   3,        3 },  // the start itself counts
        { OLESTR("abcabc"),  OLESTR("abc"),   4,       -1 },
        { OLESTR("abcabc"),  OLESTR("abd"),   0,       -1 },
        { OLESTR("abcabc"),  OLESTR("ABC"),   0,       -1 },
        { OLESTR("aaab"),    OLESTR("aab"),   0,        1 },  // after a hit that fails
        { OLESTR("abc"),     OLESTR("abcd"),  0,       -1 },
        { OLESTR("abc"),     OLESTR("b"),    -5,        1 },  // a start below 0 counts as 0
        { OLESTR("abc"),     OLESTR("b"),     9,       -1 },
        { OLESTR("abc"),     OLESTR("b"),     INT_MAX, -1 },
        { OLESTR("abc"),     OLESTR(""),      0,        0 },
        { OLESTR("abc"),     OLESTR(""),      3,        3 },  // empty text is found up to the length
        { OLESTR("abc"),     OLESTR(""),      4,       -1 },
        { OLESTR("abc"),     nullptr,         1,        1 },
        { OLESTR(""),        OLESTR(""),      0,        0 },
        { OLESTR(""),        OLESTR("a"),     0,       -1 },
    };
    // clang-format on
    for (FindRow const & row : rows)
    {
        SCOPED_TRACE(kr::test::Narrow(row.part) + " in " + kr::test::Narrow(row.text));
        EXPECT_EQ(CString(row.text).Find(row.part, row.start), row.position) << "from " << row.start;
    }
}

TEST(CStringFind, FindsAUnit)
{
    CString const text(OLESTR("storage, door"));
    EXPECT_EQ(text.Find(OLESTR('o')), 2);
    EXPECT_EQ(text.Find(OLESTR('o'), 3), 10);
    EXPECT_EQ(text.Find(OLESTR('o'), 11), 11);
    EXPECT_EQ(text.Find(OLESTR('o'), -1), 2);
    EXPECT_EQ(text.Find(OLESTR('o'), 13), -1);
    EXPECT_EQ(text.Find(OLESTR('o'), INT_MAX), -1);
    EXPECT_EQ(text.Find(OLESTR('x')), -1);
    EXPECT_EQ(text.Find(OLESTR('\0')), -1) << "the terminator is no part of the text";
    EXPECT_EQ(CString(OLESTR("a\0b"), 3).Find(OLESTR('\0')), 1);
}

TEST(CStringFind, FindsEveryUnitWhereverItStands)
{
    for (int length = 1; length < 20; ++length)
    {
        for (int position = 0; position < length; ++position)
        {
            // units that differ from the one sought in one bit, or by one
            for (WCHAR const other : std::initializer_list<WCHAR>{0x7FFF, 0x8001, 0x7FFE, 0x0000, 0xFFFF, 0x8100})
            {
                CString text(other, length);
                text.SetAt(position, 0x8000);
                ASSERT_EQ(text.Find(WCHAR(0x8000)), position) << length;
                ASSERT_EQ(text.Find(WCHAR(0x8000), position + 1), -1) << length;
                ASSERT_EQ(text.ReverseFind(0x8000), position) << length;
            }
        }
    }
}

TEST(CStringFind, AgreesWithTheStandardLibraryOnRandomTexts)
{
    std::mt19937 generator(7);
    std::uniform_int_distribution<int> unit('a', 'b'), length(0, 40), partLength(1, 5);
    for (int round = 0; round < 5'000; ++round)
    {
        std::basic_string<WCHAR> text, part;
        for (int count = length(generator); count > 0; --count)
            text += static_cast<WCHAR>(unit(generator));
        for (int count = partLength(generator); count > 0; --count)
            part += static_cast<WCHAR>(unit(generator));
        int const start = length(generator) / 4;
        int const expected = static_cast<int>(text.find(part, static_cast<std::size_t>(start)));
        ASSERT_EQ(CString(text.c_str()).Find(part.c_str(), start), expected) << kr::test::Narrow(text);
    }
}

TEST(CStringFind, FindsTheLastUnitAndTheFirstOfSeveral)
{
    CString const text(OLESTR("a,b;c,d"));
    EXPECT_EQ(text.ReverseFind(OLESTR(',')), 5);
    EXPECT_EQ(text.ReverseFind(OLESTR('a')), 0);
    EXPECT_EQ(text.ReverseFind(OLESTR('x')), -1);
    EXPECT_EQ(CString().ReverseFind(OLESTR('x')), -1);
    EXPECT_EQ(text.FindOneOf(OLESTR(";,")), 1);
    EXPECT_EQ(text.FindOneOf(OLESTR("dc")), 4);
    EXPECT_EQ(text.FindOneOf(OLESTR("xyz")), -1);
    EXPECT_EQ(text.FindOneOf(OLESTR("")), -1);
    EXPECT_EQ(text.FindOneOf(nullptr), -1);
    EXPECT_EQ(CString().FindOneOf(OLESTR("a")), -1);
}

TEST(CStringParts, AreHeldWithinTheText)
{
    CString const text(OLESTR("abcdef"));
    // clang-format off
    PartRow const middles[] = {
        // first    count     middle
        { 2,        3,        OLESTR("cde")    },
        { 0,        6,        OLESTR("abcdef") },
        { 3,        20,       OLESTR("def")    },
        { 3,        0,        OLESTR("")       },
        { 3,        -1,       OLESTR("")       },
        { -3,       2,        OLESTR("ab")     },  // a negative start counts as 0 and keeps the count
        { 6,        1,        OLESTR("")       },
        { 9,        1,        OLESTR("")       },
        { 1,        INT_MAX,  OLESTR("bcdef")  },
        { INT_MAX,  INT_MAX,  OLESTR("")       },
        { INT_MIN,  INT_MIN,  OLESTR("")       },
    };
    CountRow const ends[] = {
        // count    left               right
        { 2,        OLESTR("ab"),      OLESTR("ef")     },
        { 6,        OLESTR("abcdef"),  OLESTR("abcdef") },
        { 99,       OLESTR("abcdef"),  OLESTR("abcdef") },
        { 0,        OLESTR(""),        OLESTR("")       },
        { -10,      OLESTR(""),        OLESTR("")       },
        { INT_MAX,  OLESTR("abcdef"),  OLESTR("abcdef") },
        { INT_MIN,  OLESTR(""),        OLESTR("")       },
    };
    // clang-format on
    for (PartRow const & row : middles)
        EXPECT_EQ(text.Mid(row.first, row.count), row.middle) << row.first << ", " << row.count;
    for (CountRow const & row : ends)
    {
        EXPECT_EQ(text.Left(row.count), row.left) << row.count;
        EXPECT_EQ(text.Right(row.count), row.right) << row.count;
    }
    EXPECT_EQ(text.Mid(2), OLESTR("cdef"));
    EXPECT_EQ(text.Mid(-3), OLESTR("abcdef"));
    EXPECT_EQ(text.Mid(6), OLESTR(""));
    EXPECT_EQ(CString().Mid(0, 5), OLESTR(""));
}

TEST(CStringParts, SpanUnitsOfASet)
{
    CString const text(OLESTR("112a3"));
    EXPECT_EQ(text.SpanIncluding(OLESTR("0123456789")), OLESTR("112"));
    EXPECT_EQ(text.SpanExcluding(OLESTR("abc")), OLESTR("112"));
    EXPECT_EQ(text.SpanIncluding(OLESTR("a")), OLESTR(""));
    EXPECT_EQ(text.SpanExcluding(OLESTR("1")), OLESTR(""));
    EXPECT_EQ(text.SpanIncluding(OLESTR("a123")), text);
    EXPECT_EQ(text.SpanExcluding(OLESTR("xyz")), text);
    EXPECT_EQ(text.SpanIncluding(OLESTR("")), OLESTR(""));
    EXPECT_EQ(text.SpanIncluding(nullptr), OLESTR(""));
    EXPECT_EQ(text.SpanExcluding(OLESTR("")), text);
    EXPECT_EQ(text.SpanExcluding(nullptr), text);
}

TEST(CStringTokenize, GivesThePiecesBetweenSeparators)
{
    CString const text(OLESTR("  one, two,,three "));
    int start = 0;
    EXPECT_EQ(text.Tokenize(OLESTR(" ,"), start), OLESTR("one"));
    EXPECT_EQ(start, 6);
    EXPECT_EQ(text.Tokenize(OLESTR(" ,"), start), OLESTR("two"));
    EXPECT_EQ(text.Tokenize(OLESTR(" ,"), start), OLESTR("three"));
    EXPECT_EQ(start, 18);
    EXPECT_EQ(text.Tokenize(OLESTR(" ,"), start), OLESTR(""));
    EXPECT_EQ(start, -1);
    EXPECT_EQ(text.Tokenize(OLESTR(" ,"), start), OLESTR("")) << "it stays at the end";
    EXPECT_EQ(start, -1);
}

TEST(CStringTokenize, EndsAtTheLastPieceWithoutASeparatorBehindIt)
{
    CString const text(OLESTR("a;b"));
    int start = 2;
    EXPECT_EQ(text.Tokenize(OLESTR(";"), start), OLESTR("b"));
    EXPECT_EQ(start, 4);
    EXPECT_EQ(text.Tokenize(OLESTR(";"), start), OLESTR(""));
    EXPECT_EQ(start, -1);
}

TEST(CStringTokenize, TakesTheWholeRestWithoutSeparators)
{
    CString const text(OLESTR("a b"));
    for (WCHAR const * const units : {OLESTR(""), static_cast<WCHAR const *>(nullptr)})
    {
        int start = 1;
        EXPECT_EQ(text.Tokenize(units, start), OLESTR(" b"));
        EXPECT_EQ(text.Tokenize(units, start), OLESTR(""));
        EXPECT_EQ(start, -1);
    }
}
