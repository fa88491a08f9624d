// The text class against the facts of the vector files.
#include <krplatform/text/cstring.h>

#include "tests/support/text.h"
#include "tests/support/vectors.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace
{

using kr::test::VectorFile;
using kr::test::VectorRow;
using Text = std::basic_string<WCHAR>;

struct Fact
{
    CString receiver;
    std::vector<Text> arguments;

    WCHAR const * GetText(std::size_t index) const { return arguments.at(index).c_str(); }
    WCHAR GetUnit(std::size_t index) const { return arguments.at(index).at(0); }
    int GetNumber(std::size_t index) const { return std::stoi(kr::test::Narrow(arguments.at(index))); }
};

CString Number(int value) { return CString(std::to_string(value).c_str()); }

int SignOf(int value) { return (value > 0) - (value < 0); }

std::map<std::string, std::function<CString(Fact &)>> const & Operations()
{
    // clang-format off
    static std::map<std::string, std::function<CString(Fact &)>> const operations = {
        { "IsEmpty",      [](Fact & fact) { return Number(fact.receiver.IsEmpty()); } },
        { "GetLength",    [](Fact & fact) { return Number(fact.receiver.GetLength()); } },
        { "Empty",        [](Fact & fact) { fact.receiver.Empty(); return CString("-"); } },
        { "Plus",         [](Fact & fact) { return fact.receiver + fact.GetText(0); } },
        { "Copy",         [](Fact & fact) { return CString(fact.receiver); } },
        { "AssignNarrow", [](Fact & fact) { fact.receiver = kr::test::Narrow(fact.arguments[0]).c_str();
                                            return CString("-"); } },
        { "Compare",      [](Fact & fact) { return Number(SignOf(fact.receiver.Compare(fact.GetText(0)))); } },
        { "CompareNoCase", [](Fact & fact) { return Number(SignOf(fact.receiver.CompareNoCase(fact.GetText(0)))); } },
        { "MakeUpper",    [](Fact & fact) { return fact.receiver.MakeUpper(); } },
        { "MakeLower",    [](Fact & fact) { return fact.receiver.MakeLower(); } },
        { "MakeReverse",  [](Fact & fact) { return fact.receiver.MakeReverse(); } },
        { "Find",         [](Fact & fact) { return Number(fact.receiver.Find(fact.GetText(0), fact.GetNumber(1))); } },
        { "FindChar",     [](Fact & fact) { return Number(fact.receiver.Find(fact.GetUnit(0), fact.GetNumber(1))); } },
        { "ReverseFind",  [](Fact & fact) { return Number(fact.receiver.ReverseFind(fact.GetUnit(0))); } },
        { "FormatInt",    [](Fact & fact) { fact.receiver.Format(fact.GetText(0), fact.GetNumber(1));
                                            return CString("-"); } },
        { "FormatTwo",    [](Fact & fact) { fact.receiver.Format(fact.GetText(0), fact.GetNumber(1), fact.GetNumber(2));
                                            return CString("-"); } },
        { "Mid",          [](Fact & fact) { return fact.receiver.Mid(fact.GetNumber(0)); } },
        { "Mid2",         [](Fact & fact) { return fact.receiver.Mid(fact.GetNumber(0), fact.GetNumber(1)); } },
        { "Left",         [](Fact & fact) { return fact.receiver.Left(fact.GetNumber(0)); } },
        { "Right",        [](Fact & fact) { return fact.receiver.Right(fact.GetNumber(0)); } },
        { "Replace",      [](Fact & fact) { return Number(fact.receiver.Replace(fact.GetText(0), fact.GetText(1))); } },
        { "ReplaceChar",  [](Fact & fact) { return Number(fact.receiver.Replace(fact.GetUnit(0), fact.GetUnit(1))); } },
        { "Remove",       [](Fact & fact) { return Number(fact.receiver.Remove(fact.GetUnit(0))); } },
        { "Trim",         [](Fact & fact) { return fact.receiver.Trim(); } },
        { "LoadString",   [](Fact & fact) { return Number(fact.receiver.LoadString(
                                                static_cast<UINT>(fact.GetNumber(0)))); } },
    };
    // clang-format on
    return operations;
}

/// Arguments are parted by a bar; "-" stands for none.
std::vector<Text> SplitArguments(std::string const & field)
{
    std::vector<Text> arguments;
    if (field == "-")
        return arguments;
    for (std::size_t start = 0;;)
    {
        std::size_t const end = field.find('|', start);
        arguments.push_back(kr::test::DecodeField(field.substr(start, end - start)));
        if (end == std::string::npos)
            return arguments;
        start = end + 1;
    }
}

struct KnownDifference
{
    WCHAR const * left;
    WCHAR const * right;
    int sign;
};

} // namespace

TEST(CStringVectors, EveryFactOfTheTextClassHolds)
{
    VectorFile const file("cstring_facts");
    for (VectorRow const & row : file.GetRows())
    {
        SCOPED_TRACE(row.ToString());
        ASSERT_TRUE(Operations().contains(row["operation"]));
        Fact fact{CString(row.GetText("receiver")->c_str()), SplitArguments(row["arguments"])};
        CString const copyMadeBefore(fact.receiver);
        EXPECT_EQ(Operations().at(row["operation"])(fact), row.GetText("returns")->c_str());
        EXPECT_EQ(fact.receiver, row.GetText("after")->c_str());
        EXPECT_EQ(copyMadeBefore, row.GetText("receiver")->c_str());
    }
}

TEST(CStringVectors, EveryCaseFactOfTheRuntimeHoldsButForLettersBeyondAscii)
{
    // The runtime of the file folds A to Z alone; this system folds the letters of all scripts.
    // clang-format off
    KnownDifference const differences[] = {
        { OLESTR("\uFF21"),  OLESTR("\uFF41"),   0 },
        { OLESTR("\u03A3"),  OLESTR("\u03C2"),   1 },  // the small sigma, U+03C3, stands behind the final one
    };
    // clang-format on
    VectorFile const file("case_facts");
    for (VectorRow const & row : file.GetRows())
    {
        SCOPED_TRACE(row.ToString());
        CString const left(row.GetText("left")->c_str()), right(row.GetText("right")->c_str());
        int expected = static_cast<int>(row.GetInteger("runtime_sign"));
        for (KnownDifference const & difference : differences)
        {
            if (left == difference.left && right == difference.right)
                expected = difference.sign;
        }
        EXPECT_EQ(SignOf(left.CompareNoCase(right)), expected);
    }
}
