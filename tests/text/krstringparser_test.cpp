#include <krcore/text/krstringparser.h>

#include "tests/krplatform/automation/thrown_result.h"
#include "tests/support/failing_allocator.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>

using namespace kr::test;

namespace
{

// The items as one text, each in brackets.
CString Shown(std::vector<CString> const & items)
{
    CString shown;
    for (CString const & item : items)
        shown += CString(OLESTR("[")) + item + OLESTR("]");
    return shown;
}

CString const none;

} // namespace

TEST(CKrStringParser, CutsTextsAtEverySeparator)
{
    // clang-format off
    struct { WCHAR const * text; WCHAR const * separator; WCHAR const * items; } const rows[] = {
        { OLESTR("a"),          OLESTR(","),  OLESTR("[a]")            },
        { OLESTR("a,b"),        OLESTR(","),  OLESTR("[a][b]")         },
        { OLESTR("a,,b"),       OLESTR(","),  OLESTR("[a][][b]")       },
        { OLESTR("a,"),         OLESTR(","),  OLESTR("[a][]")          },
        { OLESTR(",a"),         OLESTR(","),  OLESTR("[][a]")          },
        { OLESTR(","),          OLESTR(","),  OLESTR("[][]")           },
        { OLESTR(",,"),         OLESTR(","),  OLESTR("[][][]")         },
        { OLESTR(" a , b "),    OLESTR(","),  OLESTR("[ a ][ b ]")     }, // nothing is trimmed
        { OLESTR("\"a,b\",c"),  OLESTR(","),  OLESTR("[\"a][b\"][c]")  }, // quotation marks are characters like others
        { OLESTR("a\\,b"),      OLESTR(","),  OLESTR("[a\\][b]")       },
        { OLESTR("a; b;c"),     OLESTR("; "), OLESTR("[a][b;c]")       },
        { OLESTR("aaa"),        OLESTR("aa"), OLESTR("[][a]")          }, // searched on behind the separator
        { OLESTR("aXbxc"),      OLESTR("x"),  OLESTR("[aXb][c]")       }, // case counts
        { OLESTR("a"),          OLESTR("ab"), OLESTR("[a]")            },
        { OLESTR("ab"),         OLESTR("ab"), OLESTR("[][]")           },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.text));
        std::vector<CString> items(1, CString(OLESTR("old")));
        EXPECT_TRUE(CKrStringParser::Split(row.text, row.separator, items));
        EXPECT_EQ(Shown(items), row.items);
    }
}

TEST(CKrStringParser, LeavesTheItemsForEmptyText)
{
    std::vector<CString> texts(1, CString(OLESTR("old")));
    std::vector<double> doubles(1, 1.5);
    std::vector<int> integers(1, 7);
    EXPECT_TRUE(CKrStringParser::Split(none, OLESTR(","), texts));
    EXPECT_TRUE(CKrStringParser::Split(none, OLESTR(","), doubles));
    EXPECT_TRUE(CKrStringParser::Split(none, OLESTR(","), integers));
    EXPECT_EQ(Shown(texts), OLESTR("[old]"));
    EXPECT_EQ(doubles, std::vector<double>{1.5});
    EXPECT_EQ(integers, std::vector<int>{7});
    EXPECT_TRUE(CKrStringParser::Split(none, none, texts)) << "an empty separator is only bad where there is text";

    CKrStringParser parser(OLESTR("a;b"), OLESTR(";"), CKrStringParser::eParserTypeString);
    EXPECT_TRUE(parser.Split(none, none));
    EXPECT_EQ(parser.Join(none), OLESTR("a;b"));
}

TEST(CKrStringParser, EndsAtOnceForAnEmptySeparator)
{
    std::vector<CString> texts(1, CString(OLESTR("old")));
    std::vector<double> doubles(1, 1.5);
    std::vector<int> integers(1, 7);
    EXPECT_EQ(ThrownResult([&] { CKrStringParser::Split(OLESTR("a"), none, texts); }), E_OUTOFMEMORY);
    EXPECT_EQ(ThrownResult([&] { CKrStringParser::Split(OLESTR("a"), none, doubles); }), E_OUTOFMEMORY);
    EXPECT_EQ(ThrownResult([&] { CKrStringParser::Split(OLESTR("a"), none, integers); }), E_OUTOFMEMORY);
    EXPECT_EQ(Shown(texts), OLESTR("[old]"));
    EXPECT_EQ(doubles, std::vector<double>{1.5});
    EXPECT_EQ(integers, std::vector<int>{7});

    CKrStringParser parser;
    EXPECT_EQ(ThrownResult([&] { parser.Split(OLESTR("a"), none); }), E_OUTOFMEMORY);
    EXPECT_EQ(ThrownResult([&] { parser.Union(OLESTR("a"), none); }), E_OUTOFMEMORY);
    EXPECT_EQ(ThrownResult([&] { parser.Append(OLESTR("a"), none); }), E_OUTOFMEMORY);
    EXPECT_EQ(ThrownResult([&] { parser.IsEqual(OLESTR("a"), none); }), E_OUTOFMEMORY);
    EXPECT_EQ(ThrownResult([&] { parser.Find(OLESTR("a"), none); }), E_OUTOFMEMORY);
    for (auto const type : {CKrStringParser::eParserTypeString, CKrStringParser::eParserTypeInt})
        EXPECT_EQ(ThrownResult([&] { CKrStringParser const made(OLESTR("a"), none, type); }), E_OUTOFMEMORY);
    EXPECT_EQ(parser.Join(none), none);
    EXPECT_TRUE(parser.Split(OLESTR("a"), OLESTR(";")));
}

TEST(CKrStringParser, EndsBeforeAnythingIsAllocatedForAnEmptySeparator)
{
    CString const text(OLESTR("a"));
    std::vector<CString> items;
    CKrStringParser parser;
    std::size_t const before = AllAllocations();
    EXPECT_EQ(ThrownResult([&] { CKrStringParser::Split(text, none, items); }), E_OUTOFMEMORY);
    EXPECT_EQ(ThrownResult([&] { parser.Split(text, none); }), E_OUTOFMEMORY);
    EXPECT_EQ(AllAllocations(), before);
}

TEST(CKrStringParser, ReadsIntegersUntilTheFirstCharacterThatDoesNotFit)
{
    std::vector<int> items(1, 99);
    EXPECT_TRUE(CKrStringParser::Split(OLESTR("1,x,3"), OLESTR(","), items));
    EXPECT_EQ(items, (std::vector<int>{1, 0, 3}));
    EXPECT_TRUE(CKrStringParser::Split(OLESTR(" 12, -3x,+4,5.9,,0x10,"), OLESTR(","), items));
    EXPECT_EQ(items, (std::vector<int>{12, -3, 4, 5, 0, 0, 0}));
}

TEST(CKrStringParser, ReadsDoublesWithACommaForAPoint)
{
    std::vector<double> items(1, 99.0);
    EXPECT_TRUE(CKrStringParser::Split(OLESTR("1,5;2.5"), OLESTR(";"), items));
    EXPECT_EQ(items, (std::vector<double>{1.5, 2.5}));
    EXPECT_TRUE(CKrStringParser::Split(OLESTR("1,5"), OLESTR(","), items)) << "a separator first";
    EXPECT_EQ(items, (std::vector<double>{1.0, 5.0}));
    EXPECT_TRUE(CKrStringParser::Split(OLESTR(" -1,25e2x;x;;nan;inf;"), OLESTR(";"), items));
    EXPECT_EQ(items, (std::vector<double>{-125.0, 0.0, 0.0, 0.0, 0.0, 0.0}));
}

TEST(CKrStringParser, ReadsPiecesOfAnyLength)
{
    // the number is at the end, behind white space
    for (int const length : {1, 62, 63, 64, 65, 200})
    {
        SCOPED_TRACE(length);
        CString const piece = CString(OLESTR(' '), length - 1) + OLESTR("7");
        CString const text = piece + OLESTR(";") + piece + OLESTR(",5");
        std::vector<int> integers;
        std::vector<double> doubles;
        CKrStringParser::Split(text, OLESTR(";"), integers);
        CKrStringParser::Split(text, OLESTR(";"), doubles);
        EXPECT_EQ(integers, (std::vector<int>{7, 7}));
        EXPECT_EQ(doubles, (std::vector<double>{7.0, 7.5}));
    }
}

TEST(CKrStringParser, JoinsWithTheSeparatorBetweenItemsOnly)
{
    std::vector<CString> const texts = {none, OLESTR("a"), none, OLESTR("b")};
    EXPECT_EQ(CKrStringParser::Join(OLESTR(", "), texts), OLESTR(", a, , b"));
    EXPECT_EQ(CKrStringParser::Join(none, texts), OLESTR("ab"));
    EXPECT_EQ(CKrStringParser::Join(OLESTR(","), std::vector<CString>()), none);
    EXPECT_EQ(CKrStringParser::JoinSkipEmpty(OLESTR(", "), texts), OLESTR("a, b"));
    EXPECT_EQ(CKrStringParser::JoinSkipEmpty(OLESTR(","), {none, none}), none);
    int const least = std::numeric_limits<int>::min();
    EXPECT_EQ(CKrStringParser::Join(OLESTR(";"), std::vector<int>{-1, 0, 12, least}), OLESTR("-1;0;12;-2147483648"));
    EXPECT_EQ(CKrStringParser::Join(OLESTR(";"), std::vector<double>{1.5, -2.0, 0.1, 1e20, 1.0 / 3.0}),
              OLESTR("1.5;-2;0.1;1E+20;0.333333333333333"));
}

TEST(CKrStringParser, JoinsIntegersOfEveryLength)
{
    constexpr long long least = std::numeric_limits<int>::min();
    constexpr long long greatest = std::numeric_limits<int>::max();
    for (long long power = 1; power <= 10 * greatest; power *= 10)
        for (long long const near : {power - 1, power, power + 1, 2 * power, 5 * power + 7})
            for (long long const number : {near, -near, std::min(near, greatest), std::max(-near, least)})
            {
                if (number < least || number > greatest)
                    continue;
                std::vector<int> const items(2, static_cast<int>(number));
                std::string const text = std::to_string(number);
                EXPECT_EQ(Narrow(CKrStringParser::Join(OLESTR(";"), items)), text + ";" + text);
            }
}

TEST(CKrStringParser, JoinsAnyNumberOfDoublesWithAnySeparator)
{
    constexpr double numbers[] = {-1.5, 0.25, 1234.5, -1.23456789012345e-300, 7.0};
    constexpr char const * texts[] = {"-1.5", "0.25", "1234.5", "-1.23456789012345E-300", "7"};
    for (int const length : {0, 1, 2, 511, 512, 513, 2000})
    {
        SCOPED_TRACE(length);
        CString const separator(OLESTR('/'), length);
        std::vector<double> items;
        std::string expected;
        for (std::size_t index = 0; index < 80; ++index)
        {
            items.push_back(numbers[index % 5]);
            expected += (index == 0 ? "" : Narrow(separator)) + texts[index % 5];
            ASSERT_EQ(Narrow(CKrStringParser::Join(separator, items)), expected);
        }
    }
}

TEST(CKrStringParser, MakesTheListOfTextsInOneStep)
{
    for (WCHAR const * const separator : {OLESTR(";"), OLESTR("; ")})
    {
        CString text(OLESTR("a"));
        for (std::size_t count = 1; count < 60; ++count, text += CString(separator) + CString(OLESTR('b'), 3))
        {
            std::vector<CString> items;
            CKrStringParser::Split(text, separator, items);
            EXPECT_EQ(items.size(), count);
            EXPECT_EQ(items.capacity(), count);
        }
    }
}

TEST(CKrStringParser, StartsWithTheItemsOfItsArguments)
{
    CKrStringParser const fresh;
    EXPECT_EQ(fresh.GetType(), CKrStringParser::eParserTypeString);
    EXPECT_EQ(fresh.GetSeperator(), none);

    CKrStringParser empty(OLESTR(";"), CKrStringParser::eParserTypeInt);
    EXPECT_EQ(empty.GetType(), CKrStringParser::eParserTypeInt);
    EXPECT_EQ(empty.GetSeperator(), OLESTR(";"));
    EXPECT_EQ(empty.Join(none), none);

    EXPECT_EQ(CKrStringParser(OLESTR("1x;2"), OLESTR(";"), CKrStringParser::eParserTypeInt).Join(none), OLESTR("1;2"));
    CKrStringParser texts(std::vector<CString>{OLESTR("a"), OLESTR("b")}, OLESTR("-"));
    CKrStringParser doubles(std::vector<double>{1.5, 2.0}, OLESTR("-"));
    CKrStringParser integers(std::vector<int>{3, 4}, OLESTR("-"));
    EXPECT_EQ(texts.GetType(), CKrStringParser::eParserTypeString);
    EXPECT_EQ(doubles.GetType(), CKrStringParser::eParserTypeDouble);
    EXPECT_EQ(integers.GetType(), CKrStringParser::eParserTypeInt);
    EXPECT_EQ(texts.Join(none), OLESTR("a-b"));
    EXPECT_EQ(doubles.Join(none), OLESTR("1.5-2"));
    EXPECT_EQ(integers.Join(none), OLESTR("3-4"));
}

TEST(CKrStringParser, KeepsAGivenSeparatorForGood)
{
    CKrStringParser parser(OLESTR("a;b"), OLESTR(";"), CKrStringParser::eParserTypeString);
    EXPECT_EQ(parser.Join(OLESTR("+")), OLESTR("a+b"));
    EXPECT_EQ(parser.GetSeperator(), OLESTR("+"));
    EXPECT_EQ(parser.Join(none), OLESTR("a+b"));
    EXPECT_TRUE(parser.Split(OLESTR("c-d"), OLESTR("-")));
    EXPECT_EQ(parser.GetSeperator(), OLESTR("-"));
    parser.SetSeperator(OLESTR("/"));
    EXPECT_EQ(parser.Join(none), OLESTR("c/d"));
}

TEST(CKrStringParser, KeepsThreeListsThatConvertIntoNothing)
{
    CKrStringParser parser(OLESTR("1;2"), OLESTR(";"), CKrStringParser::eParserTypeString);
    parser.SetType(CKrStringParser::eParserTypeInt);
    EXPECT_EQ(parser.Join(none), none);
    parser.Split(OLESTR("3;4"), none);
    parser.SetType(CKrStringParser::eParserTypeDouble);
    EXPECT_EQ(parser.Join(none), none);
    parser.Split(OLESTR("5;6"), none);
    parser.Reverse();

    CKrStringParser copy(parser);
    CKrStringParser assigned;
    assigned = parser;
    for (CKrStringParser * const one : {&parser, &copy, &assigned})
    {
        EXPECT_EQ(one->GetType(), CKrStringParser::eParserTypeDouble);
        EXPECT_EQ(one->Join(none), OLESTR("6;5"));
        one->SetType(CKrStringParser::eParserTypeString);
        EXPECT_EQ(one->Join(none), OLESTR("1;2"));
        one->SetType(CKrStringParser::eParserTypeInt);
        EXPECT_EQ(one->Join(none), OLESTR("3;4"));
        one->Clear();
        for (auto const type :
             {CKrStringParser::eParserTypeString, CKrStringParser::eParserTypeDouble, CKrStringParser::eParserTypeInt})
        {
            one->SetType(type);
            EXPECT_EQ(one->Join(none), none);
        }
        EXPECT_EQ(one->GetSeperator(), OLESTR(";"));
    }
}

TEST(CKrStringParser, DoesNothingWithAnUnknownType)
{
    auto const unknown = static_cast<CKrStringParser::EParserType>(3);
    CKrStringParser parser(OLESTR("b;a"), OLESTR(";"), CKrStringParser::eParserTypeString);
    parser.SetType(unknown);
    CKrStringParser const other(OLESTR(";"), unknown);
    EXPECT_FALSE(parser.Split(OLESTR("x"), none));
    EXPECT_EQ(parser.Join(none), none);
    EXPECT_FALSE(parser.Has(OLESTR("a")));
    EXPECT_TRUE(parser.IsEqual(other));
    parser.Sort(true).Reverse().Unique().Replace(OLESTR("a"), OLESTR("c")).Append(other).Union(other).Difference(other);
    parser.SetType(CKrStringParser::eParserTypeString);
    EXPECT_EQ(parser.Join(none), OLESTR("b;a"));
}

TEST(CKrStringParser, JoinsNothingLongerThanATextCanBe)
{
    constexpr int million = 1 << 20;
    CString const wide(OLESTR(' '), million);
    std::vector<int> const numbers(2049); // 2048 separators fill the greatest length alone
    EXPECT_EQ(ThrownResult([&] { CKrStringParser::Join(wide, numbers); }), E_OUTOFMEMORY);
    EXPECT_EQ(CKrStringParser::Join(wide, std::vector<int>(2)).GetLength(), million + 2);
}
