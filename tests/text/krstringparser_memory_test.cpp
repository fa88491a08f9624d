// The string parser where memory runs out: at each allocation lists and separator stay as they were.
#include <krcore/text/krstringparser.h>

#include "tests/support/memory_failure.h"

#include <gtest/gtest.h>

using namespace kr::test;

namespace
{

CString const none;
CString const text = OLESTR("2,5;1;3");
CString const separator = OLESTR(";");
CString const other = OLESTR("+");

constexpr CKrStringParser::EParserType allTypes[] = {
    CKrStringParser::eParserTypeString,
    CKrStringParser::eParserTypeDouble,
    CKrStringParser::eParserTypeInt,
};

CString JoinedOf(CKrStringParser parser) { return parser.Join(none); }

// Runs `operation` on a parser of each type until it passes; each time before that the parser must be as it was.
template <class Operation>
void ExpectKept(Operation operation)
{
    for (CKrStringParser::EParserType const type : allTypes)
    {
        SCOPED_TRACE(type);
        CKrStringParser parser(text, separator, type);
        CString const before = JoinedOf(parser);
        std::size_t const failures = FailUntilItPasses([&] { operation(parser); },
                                                       [&]
                                                       {
                                                           EXPECT_EQ(JoinedOf(parser), before);
                                                           EXPECT_EQ(parser.GetSeperator(), separator);
                                                           EXPECT_EQ(parser.GetType(), type);
                                                       });
        EXPECT_GE(failures, 1u);
    }
}

template <class Item>
void ExpectItemsKept(std::vector<Item> const & start)
{
    std::vector<Item> items = start;
    std::size_t const failures =
        FailUntilItPasses([&] { CKrStringParser::Split(text, separator, items); }, [&] { EXPECT_EQ(items, start); });
    EXPECT_GE(failures, 2u);
    EXPECT_EQ(items.size(), 3u);
}

} // namespace

TEST(CKrStringParserMemory, KeepsTheItemsThatASplitWouldReplace)
{
    ExpectItemsKept<CString>({OLESTR("old")});
    ExpectItemsKept<double>({7.5});
    ExpectItemsKept<int>({7});
    ExpectKept([](CKrStringParser & parser) { parser.Split(OLESTR("7+8+9+10+11"), other); });
}

TEST(CKrStringParserMemory, KeepsTheSeparatorThatAJoinWouldReplace)
{
    ExpectKept([](CKrStringParser & parser) { parser.Join(other); });
}

TEST(CKrStringParserMemory, KeepsAListThatASetOperationWouldReplace)
{
    static CKrStringParser const sets[] = {
        CKrStringParser(OLESTR("3;4"), separator, allTypes[0]),
        CKrStringParser(OLESTR("3;4"), separator, allTypes[1]),
        CKrStringParser(OLESTR("3;4"), separator, allTypes[2]),
    };
    ExpectKept([](CKrStringParser & parser) { parser.Append(sets[parser.GetType()]); });
    ExpectKept([](CKrStringParser & parser) { parser.Union(sets[parser.GetType()]); });
    ExpectKept([](CKrStringParser & parser) { parser.Intersection(sets[parser.GetType()]); });
    ExpectKept([](CKrStringParser & parser) { parser.Difference(sets[parser.GetType()]); });
    ExpectKept([](CKrStringParser & parser) { parser.SymmetricDifference(sets[parser.GetType()]); });
    ExpectKept([](CKrStringParser & parser) { parser.Append(OLESTR("3+4"), other); });
    ExpectKept([](CKrStringParser & parser) { parser.Union(OLESTR("3+4"), other); });
}

TEST(CKrStringParserMemory, KeepsAllThatAnAssignmentWouldReplace)
{
    CKrStringParser source(OLESTR("7+8"), other, CKrStringParser::eParserTypeString);
    source.SetType(CKrStringParser::eParserTypeInt);
    source.Split(OLESTR("9+10"), none);
    ExpectKept([&](CKrStringParser & parser) { parser = source; });
}

TEST(CKrStringParserMemory, LeavesNothingOfAParserThatCannotBeMade)
{
    auto const nothing = [] {};
    for (CKrStringParser::EParserType const type : allTypes)
    {
        CKrStringParser const source(text, separator, type);
        EXPECT_GE(FailUntilItPasses([&] { CKrStringParser const made(text, separator, type); }, nothing), 2u);
        EXPECT_EQ(FailUntilItPasses([&] { CKrStringParser const made(source); }, nothing), 1u);
        EXPECT_GE(FailUntilItPasses([&] { source.IsEqual(text, none); }, nothing), 2u);
    }
}
