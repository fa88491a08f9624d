#include <krcore/graphics/krcolor.h>

#include "tests/graphics/color_fields.h"

#include <gtest/gtest.h>

#include <cmath>

using kr::test::ColorFields;
using kr::test::FieldsOf;

namespace
{

void ExpectRow(int index, int red, int green, int blue)
{
    SCOPED_TRACE(index);
    CKrColor color(index);
    EXPECT_EQ(color.GetAsColorRef(), static_cast<unsigned long>(red | green << 8 | blue << 16));
    EXPECT_EQ(&color.IndexToRGB(), &color);
    EXPECT_EQ(FieldsOf(color), (ColorFields{CKrColor::eColorSpaceRGB, red, green, blue, 0}));
}

/// How much of a channel a hue has on the wheel of 24 hues: from `rise` on it grows by quarters over four steps, stays
/// whole up to `rise` + 12 and falls again by quarters up to `rise` + 16.
double Fraction(int hue, int rise)
{
    int const step = (hue - rise + 24) % 24;
    if (step <= 4)
        return step * 0.25;
    if (step <= 12)
        return 1.0;
    return step <= 16 ? (16 - step) * 0.25 : 0.0;
}

int Channel(double brightness, bool isPale, double fraction)
{
    return static_cast<int>(std::floor(isPale ? brightness * (0.5 + 0.5 * fraction) : brightness * fraction));
}

} // namespace

TEST(CKrColorTable, HoldsTheNamedRows)
{
    struct Row
    {
        int index, red, green, blue;
    };
    // clang-format off
    Row const rows[] = {
        // index  red  green  blue
        {   0,     0,    0,    0 },
        {   1,   255,    0,    0 },
        {   2,   255,  255,    0 },
        {   3,     0,  255,    0 },
        {   4,     0,  255,  255 },
        {   5,     0,    0,  255 },
        {   6,   255,    0,  255 },
        {   7,     0,    0,    0 },         // Deliberate: black, and not white
        {   8,   128,  128,  128 },
        {   9,   192,  192,  192 },
        {  10,   255,    0,    0 },
        {  11,   255,  127,  127 },
        {  12,   204,    0,    0 },
        {  21,   255,  159,  127 },
        {  33,   204,  153,  102 },
        {  40,   255,  191,    0 },
        {  77,    95,  127,   63 },
        { 130,     0,  255,  255 },
        { 165,    76,   95,  153 },
        { 249,    76,   38,   47 },
        { 250,    51,   51,   51 },
        { 251,    91,   91,   91 },
        { 252,   132,  132,  132 },
        { 253,   173,  173,  173 },
        { 254,   214,  214,  214 },
        { 255,   255,  255,  255 },
    };
    // clang-format on
    for (Row const & row : rows)
        ExpectRow(row.index, row.red, row.green, row.blue);
}

TEST(CKrColorTable, FollowsTheWheelOfHuesFrom10To249)
{
    for (int index = 10; index < 250; ++index)
    {
        constexpr double brightnesses[] = {255, 204, 153, 127, 76};
        int const hue = (index - 10) / 10;
        int const row = index % 10;
        double const brightness = brightnesses[row / 2];
        bool const isPale = row % 2 == 1;
        ExpectRow(index, Channel(brightness, isPale, Fraction(hue, 16)), Channel(brightness, isPale, Fraction(hue, 0)),
                  Channel(brightness, isPale, Fraction(hue, 8)));
    }
}

TEST(CKrColorTable, HasNoRowsOutsideOf0To255)
{
    for (int const index : {256, 258, 1000, 32767, -1, -7, -249, -32768})
    {
        SCOPED_TRACE(index);
        CKrColor color(index);
        EXPECT_EQ(color.GetAsColorRef(), 0u);
        EXPECT_EQ(&color.IndexToRGB(), &color);
        EXPECT_EQ(FieldsOf(color), (ColorFields{CKrColor::eColorSpaceIndex, 0, 0, 0, index}));
    }
}

TEST(CKrColorTable, GivesTheRGBFieldsWhereThereIsNoRow)
{
    CKrColor byLayer(256);
    byLayer.SetRed(1);
    byLayer.SetGreen(2);
    byLayer.SetBlue(3);
    EXPECT_EQ(byLayer.GetAsColorRef(), 0x00030201u);

    CKrColor index(3);
    index.SetRed(1);
    EXPECT_EQ(index.GetAsColorRef(), 0x0000FF00u); // the row, not the fields
}

TEST(CKrColorTable, IsAskedInTheIndexColourSpaceOnly)
{
    for (int const space : {1, 11, 12, 0, 2, -1})
    {
        SCOPED_TRACE(space);
        CKrColor color(3);
        color.SetBlue(5);
        color.SetColorSpace(static_cast<CKrColor::ColorSpace>(space));
        CKrColor const before = color;
        EXPECT_EQ(color.GetAsColorRef(), 0x00050000u);
        EXPECT_EQ(&color.IndexToRGB(), &color);
        EXPECT_EQ(FieldsOf(color), FieldsOf(before));
    }
}

TEST(CKrColorTable, LeavesAlphaAlone)
{
    CKrColor color(3);
    color.SetAlpha(9);
    color.IndexToRGB();
    EXPECT_EQ(FieldsOf(color), (ColorFields{CKrColor::eColorSpaceRGB, 0, 255, 0, 0, 9, true}));
}
