#include <krplatform/text/cstring.h>

#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace
{

struct Row
{
    WCHAR const * left;
    WCHAR const * right;
    int ordinal;
    int withoutCase;
};

int SignOf(std::strong_ordering order) { return (order > 0) - (order < 0); }

} // namespace

TEST(CStringCompare, ComparesByCodeUnitsAndWithoutCase)
{
    // clang-format off
    Row const rows[] = {
        // left                   right                  ordinal  without case
        { OLESTR(""),             OLESTR(""),             0,  0 },
        { OLESTR(""),             nullptr,                0,  0 },
        { OLESTR("a"),            nullptr,                1,  1 },
        { OLESTR(""),             OLESTR("a"),           -1, -1 },
        { OLESTR("abc"),          OLESTR("abc"),          0,  0 },
        { OLESTR("abc"),          OLESTR("abcd"),        -1, -1 },
        { OLESTR("abcdefgh"),     OLESTR("abcdefgx"),    -1, -1 },
        { OLESTR("abcdefghi"),    OLESTR("abcdefgh"),     1,  1 },
        { OLESTR("ABC"),          OLESTR("abc"),         -1,  0 },
        { OLESTR("B"),            OLESTR("a"),           -1,  1 },
        { OLESTR("_"),            OLESTR("A"),            1, -1 },  // lower case counts, so '_' stands before letters
        { OLESTR("["),            OLESTR("a"),           -1, -1 },
        { OLESTR("\u00C4"),       OLESTR("\u00E4"),      -1,  0 },
        { OLESTR("\u0414"),       OLESTR("\u0434"),      -1,  0 },
        { OLESTR("\uFF21"),       OLESTR("\uFF41"),      -1,  0 },
        { OLESTR("Stra\u00DFe"),  OLESTR("STRASSE"),      1,  1 },  // one unit to one unit
        { OLESTR("\u03A3"),       OLESTR("\u03C2"),      -1,  1 },  // the final sigma has no capital of its own
        { OLESTR("\u0131"),       OLESTR("I"),            1,  1 },
        { OLESTR("\u00B5"),       OLESTR("\u039C"),      -1, -1 },
        { OLESTR("\uFFFF"),       OLESTR("\U00010000"),   1,  1 },  // units, not characters
        { OLESTR("\U00010400"),   OLESTR("\U00010428"),  -1, -1 },  // halves of surrogate pairs have no case
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(kr::test::Narrow(row.left) + " and " + kr::test::Narrow(row.right));
        CString const left(row.left), right(row.right);
        EXPECT_EQ(left.Compare(row.right), row.ordinal);
        EXPECT_EQ(left.Compare(right), row.ordinal);
        EXPECT_EQ(right.Compare(left), -row.ordinal);
        EXPECT_EQ(SignOf(left <=> right), row.ordinal);
        EXPECT_EQ(left == right, row.ordinal == 0);
        EXPECT_EQ(left < right, row.ordinal < 0);
        EXPECT_EQ(left.CompareNoCase(row.right), row.withoutCase);
        EXPECT_EQ(left.CompareNoCase(right), row.withoutCase);
        EXPECT_EQ(right.CompareNoCase(left), -row.withoutCase);
        if (row.right)
        {
            EXPECT_EQ(left == row.right, row.ordinal == 0);
            EXPECT_EQ(row.right == left, row.ordinal == 0);
            EXPECT_EQ(SignOf(left <=> row.right), row.ordinal);
            EXPECT_EQ(left != row.right, row.ordinal != 0);
        }
    }
}

TEST(CStringCompare, ComparesWithNarrowText)
{
    EXPECT_TRUE(CString(OLESTR("wall")) == "wall");
    EXPECT_TRUE("wall" == CString(OLESTR("wall")));
    EXPECT_TRUE(CString(OLESTR("wall")) < "window");
    EXPECT_EQ(CString(OLESTR("wall")).Compare("wall"), 0);
}

TEST(CStringCompare, LooksBehindZerosOfObjectsButNotOfPlainText)
{
    CString const longer(OLESTR("a\0b"), 3), shorter(OLESTR("a"));
    EXPECT_EQ(longer.Compare(shorter), 1);
    EXPECT_EQ(shorter.Compare(longer), -1);
    EXPECT_FALSE(longer == shorter);
    EXPECT_EQ(longer.CompareNoCase(shorter), 1);
    EXPECT_EQ(shorter.Compare(longer.GetString()), 0);
    EXPECT_EQ(longer.Compare(OLESTR("a")), 1);
}

TEST(CStringCompare, AgreesWithTheStandardLibraryOnRandomTexts)
{
    std::mt19937 generator(20240501);
    std::uniform_int_distribution<int> length(0, 24), unit(0, 3);
    WCHAR const units[] = {OLESTR('a'), 0x00FF, 0x7FFF, 0xFFFF};
    for (int round = 0; round < 20'000; ++round)
    {
        std::basic_string<WCHAR> left, right;
        for (int count = length(generator); count > 0; --count)
            left += units[unit(generator)];
        right = left.substr(0, left.size() / 2);
        for (int count = length(generator) / 2; count > 0; --count)
            right += units[unit(generator)];
        int const expected = (left > right) - (left < right);
        ASSERT_EQ(CString(left.c_str()).Compare(right.c_str()), expected) << kr::test::Narrow(left);
        ASSERT_EQ(CString(left.c_str()).Compare(CString(right.c_str())), expected) << kr::test::Narrow(right);
    }
}

TEST(CStringCompare, TellsEachPlaceOfEachLengthApart)
{
    for (int length = 0; length <= 40; ++length)
    {
        CString const text(OLESTR('m'), length);
        CString const same(text.GetString()); // with units of its own
        ASSERT_EQ(text.Compare(same), 0) << length;
        ASSERT_TRUE(text == same) << length;
        ASSERT_EQ(text.Find(same), 0) << length;
        for (int place = 0; place < length; ++place)
        {
            CString other(text);
            other.SetAt(place, OLESTR('n'));
            ASSERT_EQ(text.Compare(other), -1) << length << ", " << place;
            ASSERT_EQ(other.Compare(text), 1) << length << ", " << place;
            ASSERT_FALSE(text == other) << length << ", " << place;
            ASSERT_EQ(text.Find(other), -1) << length << ", " << place;
        }
    }
}

TEST(CStringCompare, NarrowTextFoldsAsciiOnly)
{
    EXPECT_EQ(CStringA("WALL_az").CompareNoCase("wall_AZ"), 0);
    EXPECT_NE(CStringA("\xC4").CompareNoCase("\xE4"), 0);
    EXPECT_EQ(CStringA("_").CompareNoCase("A"), -1);
    EXPECT_EQ(CStringA("\xE4").CompareNoCase("a"), 1);
}
