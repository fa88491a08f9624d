#include <krcore/graphics/krstyles.h>

#include "tests/support/failing_allocator.h"

#include <krplatform/base/cexception.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

namespace
{

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

CKrLineStyle Style(CString const & name, double width, int weight)
{
    CKrLineStyle style(name, width);
    style.SetLineWeight(weight);
    return style;
}

void ExpectFields(CKrLineStyle const & style, WCHAR const * name, double width, int weight)
{
    EXPECT_EQ(style.GetName(), name);
    EXPECT_EQ(style.GetLineWidth(), width);
    EXPECT_EQ(style.GetLineWeight(), weight);
}

} // namespace

TEST(CKrLineStyle, StartsEmpty) { ExpectFields(CKrLineStyle(), OLESTR(""), 0.0, 0); }

TEST(CKrLineStyle, IsDestroyedThroughAPointerToIt) { EXPECT_TRUE(std::has_virtual_destructor_v<CKrLineStyle>); }

TEST(CKrLineStyle, TakesAWeightOrAWidthButDoesNotDeriveTheOther)
{
    ExpectFields(CKrLineStyle(OLESTR("DASHED"), 25), OLESTR("DASHED"), 0.0, 25);
    ExpectFields(CKrLineStyle(OLESTR("DASHED"), 0.25), OLESTR("DASHED"), 0.25, 0);
    ExpectFields(CKrLineStyle(OLESTR(""), -7), OLESTR(""), 0.0, -7);
    ExpectFields(CKrLineStyle(OLESTR(""), -7.0), OLESTR(""), -7.0, 0);
}

TEST(CKrLineStyle, CopiesAllFields)
{
    CKrLineStyle source = Style(OLESTR("DASHED"), 0.25, 30);
    CKrLineStyle const copy(source);
    CKrLineStyle assigned;
    assigned = source;
    source.SetName(OLESTR("DOTTED"));
    source.SetLineWidth(1);
    source.SetLineWeight(1);
    ExpectFields(copy, OLESTR("DASHED"), 0.25, 30);
    ExpectFields(assigned, OLESTR("DASHED"), 0.25, 30);
    CKrLineStyle & same = assigned;
    assigned = same;
    ExpectFields(assigned, OLESTR("DASHED"), 0.25, 30);
}

TEST(CKrLineStyle, SetsEachFieldByItself)
{
    CKrLineStyle style = Style(OLESTR("DASHED"), 0.25, 25);
    style.SetName(OLESTR("DOTTED"));
    ExpectFields(style, OLESTR("DOTTED"), 0.25, 25);
    style.SetLineWidth(0.5); // Deliberate: the weight isn't adjusted
    ExpectFields(style, OLESTR("DOTTED"), 0.5, 25);
    style.SetLineWeight(100); // Deliberate: the width isn't adjusted
    ExpectFields(style, OLESTR("DOTTED"), 0.5, 100);
    style.SetName(OLESTR(""));
    ExpectFields(style, OLESTR(""), 0.5, 100);
    EXPECT_TRUE((std::is_same_v<decltype(style.GetName()), CString const &>));
}

TEST(CKrLineStyleAcad, IsAContinuousLine) { ExpectFields(CKrLineStyle::AcadLineStyle(), OLESTR("CONTINUOUS"), 0.0, 0); }

TEST(CKrLineStyleAcad, DerivesTheWidthFromAWeightAbove0)
{
    ExpectFields(CKrLineStyle::AcadLineStyle(25, OLESTR("")), OLESTR("CONTINUOUS"), 0.25, 25);
    ExpectFields(CKrLineStyle::AcadLineStyle(25, OLESTR("Dashed")), OLESTR("Dashed"), 0.25, 25);
    ExpectFields(CKrLineStyle::AcadLineStyle(1, OLESTR("")), OLESTR("CONTINUOUS"), 0.01, 1);
    ExpectFields(CKrLineStyle::AcadLineStyle(26, OLESTR("")), OLESTR("CONTINUOUS"), 0.26, 26); // not held to the table
    ExpectFields(CKrLineStyle::AcadLineStyle(10000, OLESTR(" ")), OLESTR(" "), 100.0, 10000);
}

TEST(CKrLineStyleAcad, StoresOtherWeightsWithWidth0)
{
    ExpectFields(CKrLineStyle::AcadLineStyle(0, OLESTR("")), OLESTR("CONTINUOUS"), 0.0, 0);
    ExpectFields(CKrLineStyle::AcadLineStyle(-1, OLESTR("x")), OLESTR("x"), 0.0, -1);
    ExpectFields(CKrLineStyle::AcadLineStyle(-3, OLESTR("x")), OLESTR("x"), 0.0, -3);
    int const smallest = std::numeric_limits<int>::min();
    ExpectFields(CKrLineStyle::AcadLineStyle(smallest, OLESTR("x")), OLESTR("x"), 0.0, smallest);
}

TEST(CKrLineStyleAcad, FindsTheWeightOfAWidth)
{
    struct Row
    {
        double width;
        int weight;
    };
    // clang-format off
    Row const rows[] = {
        // width       weight
        {  0.0,          0 },
        {  0.25,        25 },
        {  0.26,        30 },           // the next value up
        {  0.30,        30 },
        {  2.11,       211 },
        {  5.0,        211 },           // above the last value
        // hundredths are cut toward zero before the table is asked
        {  0.009999,     0 },
        {  0.01,         5 },
        {  0.0599,       5 },
        {  0.06,         9 },
        {  0.136,       13 },           // Deliberate: 13.6 counts as 13
        {  0.139999,    13 },
        {  0.14,        15 },
        {  0.309,       30 },
        {  0.2599,      25 },
        {  2.009,      200 },
        {  2.02,       211 },
        {  2.119,      211 },
        // products that a double puts just below the whole number
        {  0.29,        30 },           // 28.999999999999996
        {  0.57,        60 },           // 56.99999999999999
        {  1.15,       120 },           // 114.99999999999999
        {  2.01,       200 },           // 200.99999999999997, Deliberate: cut to 200
        // below zero, and out of any range
        { -0.0,          0 },
        { -0.009,        0 },
        { -0.25,         0 },
        { -1e300,        0 },
        { -infinity,     0 },
        {  1e300,      211 },
        {  infinity,   211 },
        {  2147483648.0, 211 },
        { -2147483649.0,   0 },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.width);
        ExpectFields(CKrLineStyle::AcadLineStyle(row.width, OLESTR("x")), OLESTR("x"), row.width, row.weight);
    }
}

TEST(CKrLineStyleAcad, GivesWeight0ToAWidthThatIsNotANumber)
{
    CKrLineStyle const style = CKrLineStyle::AcadLineStyle(notANumber, OLESTR("x"));
    EXPECT_EQ(style.GetLineWeight(), 0);
    EXPECT_TRUE(std::isnan(style.GetLineWidth()));
}

TEST(CKrLineStyleAcad, KnowsThe24LineWeights)
{
    constexpr int weights[] = {0,  5,  9,  13, 15, 18,  20,  25,  30,  35,  40,  50,
                               53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};
    int next = 0;
    for (int hundredths = 0; hundredths <= 211; ++hundredths)
    {
        SCOPED_TRACE(hundredths);
        if (hundredths > weights[next])
            ++next;
        // Half a hundredth more keeps clear of what a double cannot hold.
        EXPECT_EQ(CKrLineStyle::AcadLineStyle((hundredths + 0.5) / 100.0, OLESTR("")).GetLineWeight(), weights[next]);
    }
    EXPECT_EQ(next, 23);
}

TEST(CKrLineStyleAcad, FindsTheWeightAgainFromTheWidthThatAWeightGave)
{
    for (int const weight :
         {0, 5, 9, 13, 15, 18, 20, 25, 30, 35, 40, 50, 53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211})
    {
        double const width = CKrLineStyle::AcadLineStyle(weight, OLESTR("")).GetLineWidth();
        EXPECT_EQ(CKrLineStyle::AcadLineStyle(width, OLESTR("")).GetLineWeight(), weight);
    }
}

TEST(CKrLineStyleAcad, NamesAnUnnamedLineOfAWidth)
{
    ExpectFields(CKrLineStyle::AcadLineStyle(0.25, OLESTR("")), OLESTR("CONTINUOUS"), 0.25, 25);
    ExpectFields(CKrLineStyle::AcadLineStyle(5.0, OLESTR("")), OLESTR("CONTINUOUS"), 5.0, 211); // the width stays
    ExpectFields(CKrLineStyle::AcadLineStyle(0.25, OLESTR("Dashed")), OLESTR("Dashed"), 0.25, 25);
}

TEST(CKrLineStyleAcad, ThrowsWithoutMemoryAndLeavesNothingBehind)
{
    CString const none;
    auto const isMemoryFailure = [] { EXPECT_THROW(throw, CMemoryException *); };
    EXPECT_EQ(kr::test::FailEveryAllocation([&] { CKrLineStyle::AcadLineStyle(25, none); }, isMemoryFailure), 1u);
    EXPECT_EQ(kr::test::FailEveryAllocation([&] { CKrLineStyle::AcadLineStyle(0.25, none); }, isMemoryFailure), 1u);
}

TEST(CKrLineStyleEquality, LooksAtNameWithoutCaseWidthAndWeight)
{
    CKrLineStyle const style = Style(OLESTR("Dashed"), 0.25, 25);
    EXPECT_TRUE(style == Style(OLESTR("Dashed"), 0.25, 25));
    EXPECT_TRUE(style == Style(OLESTR("DASHED"), 0.25, 25));
    EXPECT_FALSE(style == Style(OLESTR("Dashed2"), 0.25, 25));
    EXPECT_FALSE(style == Style(OLESTR("Dashed"), 0.26, 25));
    EXPECT_FALSE(style == Style(OLESTR("Dashed"), 0.25, 26));
    EXPECT_TRUE(style != Style(OLESTR("Dashed"), 0.25, 26));
}

TEST(CKrLineStyleEquality, TakesWidthsCloserThan1e8ForEqual)
{
    CKrLineStyle const style = Style(OLESTR("x"), 0.25, 25);
    EXPECT_TRUE(style == Style(OLESTR("x"), 0.25000000001, 25));
    EXPECT_TRUE(Style(OLESTR("x"), 0.25000000001, 25) == style);
    EXPECT_TRUE(Style(OLESTR("x"), 0.0, 0) == Style(OLESTR("x"), 0.99e-8, 0));
    EXPECT_FALSE(Style(OLESTR("x"), 0.0, 0) == Style(OLESTR("x"), 1e-8, 0)); // below, not at
    EXPECT_FALSE(Style(OLESTR("x"), 0.0, 0) == Style(OLESTR("x"), -1.01e-8, 0));
}

TEST(CKrLineStyleEquality, HoldsForTheSameObjectWhateverItsWidth)
{
    for (double const width : {infinity, notANumber})
    {
        SCOPED_TRACE(width);
        CKrLineStyle const style = Style(OLESTR("x"), width, 0);
        CKrLineStyle const copy(style);
        EXPECT_TRUE(style == style);
        EXPECT_FALSE(style == copy);
    }
}
