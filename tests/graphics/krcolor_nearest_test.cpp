#include <krcore/graphics/krcolor.h>

#include "tests/graphics/color_fields.h"
#include "tests/graphics/naive_nearest.h"

#include <gtest/gtest.h>

using kr::test::ColorFields;
using kr::test::FieldsOf;

TEST(CKrColorNearest, FindsTheRowOfLeastDistance)
{
    struct Row
    {
        unsigned int red, green, blue;
        short index;
    };
    // clang-format off
    Row const rows[] = {
        // red, green, blue   index
        { 255, 255, 255,      255 },
        {   0,   0,   0,        7 },        // Deliberate: index 0 takes no part
        {   1,   1,   1,        7 },        // distance 3
        { 255,   0,   0,        1 },        // row 10 has the same colour
        { 254,   1,   0,        1 },
        { 128, 128, 128,        8 },
        { 192, 192, 192,        9 },
        {  51,  51,  51,      250 },
        { 255, 127, 127,       11 },
        { 204, 153, 102,       33 },
        {  76,  38,  47,      249 },
        { 214, 214, 214,      254 },
        { 234, 235, 234,      254 },        // 61 from index 254, 62 from index 255
        { 235, 235, 235,      255 },        // 63 from index 254, 60 from index 255
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(testing::Message() << row.red << ' ' << row.green << ' ' << row.blue);
        CKrColor color(row.red, row.green, row.blue);
        EXPECT_EQ(color.GetAsColorIndex(), row.index);
        color.RGBToIndex();
        EXPECT_EQ(FieldsOf(color), (ColorFields{CKrColor::eColorSpaceIndex, 0, 0, 0, row.index}));
    }
}

TEST(CKrColorNearest, TakesTheLowestIndexOfEqualDistance)
{
    kr::test::NaiveNearest const naive;
    struct Row
    {
        int red, green, blue;
        int distance;
        short index;
        short other; // as far away
    };
    // clang-format off
    Row const rows[] = {
        // red, green, blue   distance  index  other
        {   0,   0,   0,       0,         7,     0 },       // Deliberate: index 0 takes no part
        { 255,   0,   0,       0,         1,    10 },
        { 255, 255,   0,       0,         2,    50 },
        {   0, 255,   0,       0,         3,    90 },
        {   0, 255, 255,       0,         4,   130 },
        {   0,   0, 255,       0,         5,   170 },
        { 255,   0, 255,       0,         6,   210 },
        { 203, 179, 214,      46,         9,   254 },       // in different blocks of eight
        { 150, 218, 212,      70,       133,   254 },
        {  60,  22,  23,      42,        28,   248 },
        {   9, 125, 111,      27,       126,   136 },
        {  63, 192,  55,      73,        95,    97 },       // in one block of eight
        {  49,  52, 164,      62,       175,   177 },
        { 163,  96, 239,      51,       181,   193 },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(testing::Message() << row.red << ' ' << row.green << ' ' << row.blue);
        EXPECT_EQ(naive.Distance(row.index, row.red, row.green, row.blue), row.distance);
        EXPECT_EQ(naive.Distance(row.other, row.red, row.green, row.blue), row.distance);
        CKrColor const color(static_cast<unsigned long>(row.red | row.green << 8 | row.blue << 16));
        EXPECT_EQ(color.GetAsColorIndex(), row.index);
    }
}

TEST(CKrColorNearest, ActsOnRGBColoursOnly)
{
    for (int const space : {0, 2, 3, 11, 12, -1})
    {
        SCOPED_TRACE(space);
        CKrColor color(255, 0, 0);
        color.SetColorSpace(static_cast<CKrColor::ColorSpace>(space));
        CKrColor const before = color;
        EXPECT_EQ(&color.RGBToIndex(), &color);
        EXPECT_EQ(FieldsOf(color), FieldsOf(before));
    }
}

TEST(CKrColorNearest, ReturnsTheObjectAndLeavesAlphaAlone)
{
    CKrColor color(255, 0, 0);
    color.SetAlpha(9);
    EXPECT_EQ(&color.RGBToIndex(), &color);
    EXPECT_EQ(FieldsOf(color), (ColorFields{CKrColor::eColorSpaceIndex, 0, 0, 0, 1, 9, true}));
}

TEST(CKrColorNearest, AsksForTheIndexWithoutChangingTheColour)
{
    CKrColor const color(255, 0, 0);
    EXPECT_EQ(color.GetAsColorIndex(), 1);
    EXPECT_EQ(FieldsOf(color), (ColorFields{CKrColor::eColorSpaceRGB, 255, 0, 0, 0}));
}

TEST(CKrColorNearest, GivesTheIndexFieldOfAllColoursThatAreNotRGB)
{
    EXPECT_EQ(CKrColor(short(12)).GetAsColorIndex(), 12);
    EXPECT_EQ(CKrColor(256).GetAsColorIndex(), 256);
    EXPECT_EQ(CKrColor(-3).GetAsColorIndex(), -3);
    EXPECT_EQ(CKrColor::NoColor().GetAsColorIndex(), 257);

    // Deliberate: an inherited colour does not look at its RGB.
    CKrColor inherited(255, 0, 0);
    inherited.SetInheritedColor();
    EXPECT_EQ(inherited.GetAsColorIndex(), 0);
    inherited.SetColorIndex(12);
    inherited.SetInheritedColor();
    EXPECT_EQ(inherited.GetAsColorIndex(), 12);

    CKrColor unknown(255, 0, 0);
    unknown.SetColorSpace(static_cast<CKrColor::ColorSpace>(2));
    EXPECT_EQ(unknown.GetAsColorIndex(), 0);
}

TEST(CKrColorNearest, AgreesWithTheNaiveSearchOnALatticeOfColours)
{
    kr::test::NaiveNearest const naive;
    for (int red = 0; red < 256; red += 5)
        for (int green = 0; green < 256; green += 5)
            for (int blue = 0; blue < 256; blue += 5)
            {
                CKrColor const color(static_cast<unsigned long>(red | green << 8 | blue << 16));
                ASSERT_EQ(color.GetAsColorIndex(), naive.Find(red, green, blue)) << red << ' ' << green << ' ' << blue;
            }
}

TEST(CKrColorNearest, GivesEachRowTheLowestIndexOfItsColour)
{
    for (short index = 1; index < 256; ++index)
    {
        unsigned long const row = CKrColor(index).GetAsColorRef();
        short lowest = 1;
        while (CKrColor(lowest).GetAsColorRef() != row)
            ++lowest;
        EXPECT_EQ(CKrColor(row).GetAsColorIndex(), lowest) << index;
    }
}
