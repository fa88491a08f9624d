#include <krcore/text/krstringparser.h>

#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace kr::test;

namespace
{

CString const none;
double const notANumber = std::numeric_limits<double>::quiet_NaN();

CKrStringParser Texts(WCHAR const * text)
{
    return CKrStringParser(text, OLESTR(";"), CKrStringParser::eParserTypeString);
}

CKrStringParser Integers(WCHAR const * text)
{
    return CKrStringParser(text, OLESTR(";"), CKrStringParser::eParserTypeInt);
}

CKrStringParser Doubles(WCHAR const * text)
{
    return CKrStringParser(text, OLESTR(";"), CKrStringParser::eParserTypeDouble);
}

} // namespace

TEST(CKrStringParserSets, CombineAsMultisetsWithASortedResult)
{
    using Operation = CKrStringParser & (CKrStringParser::*)(CKrStringParser const &);
    using TextOperation = CKrStringParser & (CKrStringParser::*)(CString const &, CString const &);
    // clang-format off
    struct { Operation operation; TextOperation textOperation; WCHAR const * own; WCHAR const * other; WCHAR const * result; } const rows[] = {
        { &CKrStringParser::Append,              &CKrStringParser::Append,              OLESTR("3;1"),       OLESTR("2;1"),       OLESTR("3;1;2;1")       }, // not sorted
        { &CKrStringParser::Union,               &CKrStringParser::Union,               OLESTR("2;1;1"),     OLESTR("1;3"),       OLESTR("1;1;2;3")       },
        { &CKrStringParser::Union,               &CKrStringParser::Union,               OLESTR("1"),         OLESTR("2;1;1;1"),   OLESTR("1;1;1;2")       },
        { &CKrStringParser::Union,               &CKrStringParser::Union,               OLESTR("3;2"),       OLESTR(""),          OLESTR("2;3")           }, // sorted even so
        { &CKrStringParser::Intersection,        &CKrStringParser::Intersection,        OLESTR("3;1;1;2;1"), OLESTR("4;1;3;1"),   OLESTR("1;1;3")         },
        { &CKrStringParser::Intersection,        &CKrStringParser::Intersection,        OLESTR("1"),         OLESTR(""),          OLESTR("")              },
        { &CKrStringParser::Difference,          &CKrStringParser::Difference,          OLESTR("2;1;1"),     OLESTR("1"),         OLESTR("1;2")           },
        { &CKrStringParser::Difference,          &CKrStringParser::Difference,          OLESTR("2;1"),       OLESTR("1;1;3"),     OLESTR("2")             },
        { &CKrStringParser::Remove,              &CKrStringParser::Remove,              OLESTR("2;1;1"),     OLESTR("1"),         OLESTR("1;2")           },
        { &CKrStringParser::SymmetricDifference, &CKrStringParser::SymmetricDifference, OLESTR("2;1;1;1"),   OLESTR("3;1"),       OLESTR("1;1;2;3")       },
        { &CKrStringParser::SymmetricDifference, &CKrStringParser::SymmetricDifference, OLESTR("1"),         OLESTR("1;1;1"),     OLESTR("1;1")           },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        for (auto const make : {Texts, Integers, Doubles})
        {
            SCOPED_TRACE(Narrow(row.own) + " and " + Narrow(row.other));
            CKrStringParser own = make(row.own);
            EXPECT_EQ(&(own.*row.operation)(make(row.other)), &own);
            EXPECT_EQ(own.Join(none), row.result);

            CKrStringParser second = make(row.own);
            EXPECT_EQ(&(second.*row.textOperation)(row.other, none), &second);
            EXPECT_EQ(second.Join(none), row.result);
        }
    }
}

TEST(CKrStringParserSets, ReadASecondTextWithAnotherSeparatorButKeepTheirOwn)
{
    CKrStringParser parser = Texts(OLESTR("b;a;a"));
    parser.Union(OLESTR("a,c"), OLESTR(","));
    EXPECT_EQ(parser.GetSeperator(), OLESTR(";"));
    EXPECT_EQ(parser.Join(none), OLESTR("a;a;b;c"));
    EXPECT_TRUE(parser.IsEqual(OLESTR("a,a,b,c"), OLESTR(",")));
    EXPECT_TRUE(parser.IsEqual(OLESTR("a;a;b;c"), none));
    EXPECT_EQ(parser.GetSeperator(), OLESTR(";"));
}

TEST(CKrStringParserSets, SortTextsByCodeUnits)
{
    EXPECT_EQ(Texts(OLESTR("b;A;a;B")).Union(none, none).Join(none), OLESTR("A;B;a;b"));
    EXPECT_EQ(Texts(OLESTR("a;A")).Difference(OLESTR("A"), none).Join(none), OLESTR("a"));
}

TEST(CKrStringParserSets, ChangeNothingForAnotherType)
{
    CKrStringParser switched = Texts(OLESTR("2;1;1")); // holds texts beside its integers
    switched.SetType(CKrStringParser::eParserTypeInt);
    CKrStringParser const others[] = {Integers(OLESTR("1;2")), Integers(OLESTR("")), switched};
    for (CKrStringParser const & other : others)
    {
        CKrStringParser own = Texts(OLESTR("2;1;1"));
        own.Append(other).Union(other).Intersection(other).Difference(other).Remove(other).SymmetricDifference(other);
        EXPECT_EQ(own.Join(none), OLESTR("2;1;1"));
        EXPECT_FALSE(own.IsEqual(other));
    }
}

TEST(CKrStringParserSets, CombineWithThemselves)
{
    CKrStringParser parser = Texts(OLESTR("b;a"));
    EXPECT_EQ(parser.Append(parser).Join(none), OLESTR("b;a;b;a"));
    EXPECT_EQ(parser.Union(parser).Join(none), OLESTR("a;a;b;b"));
    EXPECT_EQ(parser.Difference(parser).Join(none), none);
}

TEST(CKrStringParserSets, CompareDoublesExactly)
{
    CKrStringParser parser(std::vector<double>{1.0}, OLESTR(";"));
    parser.Union(CKrStringParser(std::vector<double>{std::nextafter(1.0, 2.0)}, OLESTR(";")));
    EXPECT_EQ(parser.Join(none), OLESTR("1;1"));
    EXPECT_EQ(parser.Unique().Join(none), OLESTR("1;1"));
}

TEST(CKrStringParserSets, SortWithAndWithoutCase)
{
    EXPECT_EQ(Texts(OLESTR("b;A;c")).Sort(false).Join(none), OLESTR("A;b;c"));
    EXPECT_EQ(Texts(OLESTR("b;A;c")).Sort(true).Join(none), OLESTR("A;b;c"));
    EXPECT_EQ(Texts(OLESTR("a;B")).Sort(true).Join(none), OLESTR("B;a"));
    EXPECT_EQ(Texts(OLESTR("B;a")).Sort(false).Join(none), OLESTR("a;B"));
    for (bool const caseSensitive : {false, true})
    {
        EXPECT_EQ(Integers(OLESTR("10;9;-1")).Sort(caseSensitive).Join(none), OLESTR("-1;9;10"));
        EXPECT_EQ(Doubles(OLESTR("10;9.5;-1")).Sort(caseSensitive).Join(none), OLESTR("-1;9.5;10"));
    }
}

TEST(CKrStringParserSets, ReverseTheOrder)
{
    EXPECT_EQ(Texts(OLESTR("b;a;c")).Reverse().Join(none), OLESTR("c;a;b"));
    EXPECT_EQ(Integers(OLESTR("2;1;3")).Reverse().Join(none), OLESTR("3;1;2"));
    EXPECT_EQ(Doubles(OLESTR("2;1;3")).Reverse().Join(none), OLESTR("3;1;2"));
}

TEST(CKrStringParserSets, DropRepetitionsAndSort)
{
    EXPECT_EQ(Texts(OLESTR("b;a;B;b;;b")).Unique().Join(none), OLESTR(";B;a;b"));
    EXPECT_EQ(Integers(OLESTR("3;1;3;1;2")).Unique().Join(none), OLESTR("1;2;3"));
    EXPECT_EQ(Doubles(OLESTR("3;1;3;1;2")).Unique().Join(none), OLESTR("1;2;3"));
}

TEST(CKrStringParserSets, PutWhatIsNotANumberBehindAllNumbers)
{
    // Many, for a sort that trusts its comparison blindly runs out of the list.
    std::vector<double> items;
    for (int place = 0; place < 100; ++place)
    {
        items.push_back(place % 3 == 0 ? notANumber : 5.0);
        items.push_back(1.0);
    }
    CKrStringParser parser(items, OLESTR(";"));
    parser.Unique();
    CString const text = parser.Join(none);
    EXPECT_EQ(text.Left(4), OLESTR("1;5;"));
    EXPECT_EQ(text.Mid(4).Find(OLESTR(';')), -1) << "one is left of many";

    CKrStringParser const one(std::vector<double>{notANumber}, OLESTR(";"));
    EXPECT_EQ(parser.Difference(one).Join(none), OLESTR("1;5"));
}

TEST(CKrStringParserSets, FindTextsAndIntegers)
{
    CKrStringParser const texts = Texts(OLESTR("a;B;1"));
    EXPECT_TRUE(texts.Has(OLESTR("B")));
    EXPECT_FALSE(texts.Has(OLESTR("b"))) << "case counts";
    EXPECT_FALSE(texts.Has(OLESTR(" 1")));
    EXPECT_FALSE(texts.Has(none));
    CKrStringParser const integers = Integers(OLESTR("1;20"));
    EXPECT_TRUE(integers.Has(OLESTR(" 20x")));
    EXPECT_FALSE(integers.Has(OLESTR("2")));
    EXPECT_FALSE(integers.Has(OLESTR("x"))) << "this is a 0";
    EXPECT_TRUE(Integers(OLESTR("0")).Has(OLESTR("x")));
}

TEST(CKrStringParserSets, ReplaceTextsAndIntegersInPlace)
{
    EXPECT_EQ(Texts(OLESTR("a;b;A;a")).Replace(OLESTR("a"), OLESTR("z")).Join(none), OLESTR("z;b;A;z"));
    EXPECT_EQ(Texts(OLESTR("a;;b")).Replace(none, OLESTR("z")).Join(none), OLESTR("a;z;b"));
    EXPECT_EQ(Integers(OLESTR("3;1;3")).Replace(OLESTR("3x"), OLESTR(" 4")).Join(none), OLESTR("4;1;4"));
}

TEST(CKrStringParserSets, HaveNoDoubleAndReplaceNone)
{
    CKrStringParser parser = Doubles(OLESTR("1.5;2;0"));
    for (WCHAR const * const item : {OLESTR("1.5"), OLESTR("1,5"), OLESTR("2"), OLESTR("0"), OLESTR(""), OLESTR("x")})
    {
        SCOPED_TRACE(Narrow(item));
        EXPECT_FALSE(parser.Has(item));
        EXPECT_EQ(parser.Replace(item, OLESTR("9")).Join(none), OLESTR("1.5;2;0"));
    }
}

TEST(CKrStringParserSets, AreEqualPairByPair)
{
    EXPECT_TRUE(Texts(OLESTR("a;b")).IsEqual(Texts(OLESTR("a;b"))));
    EXPECT_FALSE(Texts(OLESTR("a;b")).IsEqual(Texts(OLESTR("b;a"))));
    EXPECT_FALSE(Texts(OLESTR("a;b")).IsEqual(Texts(OLESTR("a;B"))));
    EXPECT_FALSE(Texts(OLESTR("a;b")).IsEqual(Texts(OLESTR("a"))));
    EXPECT_FALSE(Texts(OLESTR("a")).IsEqual(Texts(OLESTR("a;b"))));
    EXPECT_TRUE(Integers(OLESTR("1;2")).IsEqual(OLESTR(" 1;2x"), none));
    EXPECT_FALSE(Integers(OLESTR("1;2")).IsEqual(OLESTR("1;3"), none));
}

TEST(CKrStringParserSets, OfDoublesAreEqualIfEveryPairDiffers)
{
    // clang-format off
    struct { std::vector<double> left, right; bool equal; } const rows[] = {
        { {},         {},                  true  },
        { {1.0, 2.0}, {1.0, 2.0},          false },
        { {1.0, 2.0}, {2.0, 1.0},          true  },
        { {1.0, 2.0}, {2.0, 2.0},          false }, // one pair is the same
        { {1.0},      {2.0, 3.0},          false },
        { {0.0},      {1e-10},             true  }, // the least difference
        { {0.0},      {0.9e-10},           false },
        { {1e-10},    {0.0},               true  },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        CKrStringParser left(row.left, OLESTR(";"));
        CKrStringParser right(row.right, OLESTR(";"));
        SCOPED_TRACE(Narrow(left.Join(none)) + " and " + Narrow(right.Join(none)));
        EXPECT_EQ(left.IsEqual(right), row.equal);
    }
}

TEST(CKrStringParserSets, FindAnything)
{
    CKrStringParser const parser = Texts(OLESTR("a"));
    EXPECT_TRUE(parser.Find(Texts(OLESTR("b"))));
    EXPECT_TRUE(parser.Find(Integers(OLESTR(""))));
    EXPECT_TRUE(parser.Find(OLESTR("b"), none));
    EXPECT_TRUE(parser.Find(none, none));
}
