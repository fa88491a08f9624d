#include <krcore/graphics/krcolor.h>

#include "tests/graphics/color_fields.h"

#include <gtest/gtest.h>

#include <climits>
#include <type_traits>

using kr::test::ColorFields;
using kr::test::FieldsOf;

namespace
{

constexpr int RGB = CKrColor::eColorSpaceRGB;
constexpr int Index = CKrColor::eColorSpaceIndex;
constexpr int NoColor = CKrColor::eColorSpaceNoColor;

constexpr int s_spaces[] = {RGB, Index, CKrColor::eColorSpaceInherited, NoColor, 0, 2, -1, INT_MAX, INT_MIN};

CKrColor InSpace(CKrColor color, int space)
{
    color.SetColorSpace(static_cast<CKrColor::ColorSpace>(space));
    return color;
}

} // namespace

TEST(CKrColor, KeepsTheNumbersOfItsColourSpaces)
{
    EXPECT_EQ(int(CKrColor::eColorSpaceRGB), 1);
    EXPECT_EQ(int(CKrColor::eColorSpaceIndex), 3);
    EXPECT_EQ(int(CKrColor::eColorSpaceInherited), 11);
    EXPECT_EQ(int(CKrColor::eColorSpaceNoColor), 12);
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<CKrColor::ColorSpace>, int>));
}

TEST(CKrColor, StartsBlackByRGBWithoutAlpha) { EXPECT_EQ(FieldsOf(CKrColor()), (ColorFields{RGB, 0, 0, 0, 0})); }

TEST(CKrColor, IsDestroyedThroughAPointerToIt) { EXPECT_TRUE(std::has_virtual_destructor_v<CKrColor>); }

TEST(CKrColor, TakesAShortAsAnIndex)
{
    EXPECT_EQ(FieldsOf(CKrColor(short(5))), (ColorFields{Index, 0, 0, 0, 5}));
    EXPECT_EQ(FieldsOf(CKrColor(short(0))), (ColorFields{Index, 0, 0, 0, 0}));
    EXPECT_EQ(FieldsOf(CKrColor(short(256))), (ColorFields{Index, 0, 0, 0, 256}));
    EXPECT_EQ(FieldsOf(CKrColor(short(257))), (ColorFields{NoColor, 0, 0, 0, 257}));
    EXPECT_EQ(FieldsOf(CKrColor(short(258))), (ColorFields{Index, 0, 0, 0, 258}));
    EXPECT_EQ(FieldsOf(CKrColor(short(-257))), (ColorFields{Index, 0, 0, 0, -257}));
    EXPECT_EQ(FieldsOf(CKrColor(SHRT_MAX)), (ColorFields{Index, 0, 0, 0, SHRT_MAX}));
}

TEST(CKrColor, TakesAnIntAsAnIndexCutTo16Bits)
{
    EXPECT_EQ(FieldsOf(CKrColor(0)), (ColorFields{Index, 0, 0, 0, 0}));
    EXPECT_EQ(FieldsOf(CKrColor(256)), (ColorFields{Index, 0, 0, 0, 256}));
    EXPECT_EQ(FieldsOf(CKrColor(257)), (ColorFields{NoColor, 0, 0, 0, 257}));
    EXPECT_EQ(FieldsOf(CKrColor(-1)), (ColorFields{Index, 0, 0, 0, -1}));
    EXPECT_EQ(FieldsOf(CKrColor(32768)), (ColorFields{Index, 0, 0, 0, -32768}));
    EXPECT_EQ(FieldsOf(CKrColor(65536 + 7)), (ColorFields{Index, 0, 0, 0, 7}));
    EXPECT_EQ(FieldsOf(CKrColor(65536 + 257)), (ColorFields{NoColor, 0, 0, 0, 257}));
}

TEST(CKrColor, CutsThreeNumbersToTheirLowBytes)
{
    EXPECT_EQ(FieldsOf(CKrColor(1u, 2u, 3u)), (ColorFields{RGB, 1, 2, 3, 0}));
    EXPECT_EQ(FieldsOf(CKrColor(300, 0, 0)), (ColorFields{RGB, 44, 0, 0, 0})); // Deliberate: the low byte
    EXPECT_EQ(FieldsOf(CKrColor(255, 256, 257)), (ColorFields{RGB, 255, 0, 1, 0}));
    EXPECT_EQ(FieldsOf(CKrColor(~0u, 0x1234FFu, 0x12345600u)), (ColorFields{RGB, 255, 255, 0, 0}));
}

TEST(CKrColor, TakesAnUnsignedNumberAsRGBWithRedInTheLowByte)
{
    EXPECT_EQ(FieldsOf(CKrColor(0x0000FF00UL)), (ColorFields{RGB, 0, 255, 0, 0}));
    EXPECT_EQ(FieldsOf(CKrColor(0x00030201UL)), (ColorFields{RGB, 1, 2, 3, 0}));
    EXPECT_EQ(FieldsOf(CKrColor(0xFF030201UL)), (ColorFields{RGB, 1, 2, 3, 0}));
    EXPECT_EQ(FieldsOf(CKrColor(~0UL)), (ColorFields{RGB, 255, 255, 255, 0}));
    EXPECT_EQ(FieldsOf(CKrColor(257UL)), (ColorFields{RGB, 1, 1, 0, 0})); // no index
    EXPECT_EQ(FieldsOf(CKrColor(5u)), (ColorFields{RGB, 5, 0, 0, 0}));    // no index either
    EXPECT_EQ(FieldsOf(CKrColor(DWORD{0xFF030201})), (ColorFields{RGB, 1, 2, 3, 0}));
}

TEST(CKrColor, AsksForACastWhereANumberIsNeitherIndexNorRGB)
{
    EXPECT_FALSE((std::is_constructible_v<CKrColor, long>));
    EXPECT_FALSE((std::is_constructible_v<CKrColor, double>));
    EXPECT_FALSE((std::is_constructible_v<CKrColor, CString>));
}

TEST(CKrColor, CopiesAllFields)
{
    CKrColor source(7);
    source.SetRed(1);
    source.SetGreen(2);
    source.SetBlue(3);
    source.SetAlpha(4);
    source.SetInheritedColor();
    ColorFields const fields{CKrColor::eColorSpaceInherited, 1, 2, 3, 7, 4, true};

    CKrColor const copy(source);
    EXPECT_EQ(FieldsOf(copy), fields);
    CKrColor assigned(9);
    assigned = source;
    EXPECT_EQ(FieldsOf(assigned), fields);
    source.SetRed(99);
    EXPECT_EQ(FieldsOf(copy), fields);

    CKrColor & same = assigned;
    assigned = same;
    EXPECT_EQ(FieldsOf(assigned), fields);
}

TEST(CKrColor, ClearsAlphaAndItsFlagByAssignment)
{
    CKrColor color;
    color.SetAlpha(4);
    color = CKrColor(1u, 2u, 3u);
    EXPECT_EQ(FieldsOf(color), (ColorFields{RGB, 1, 2, 3, 0, 0, false}));
}

TEST(CKrColor, MakesNoColour) { EXPECT_EQ(FieldsOf(CKrColor::NoColor()), (ColorFields{NoColor, 0, 0, 0, 257})); }

TEST(CKrColor, StoresAnyColourSpaceAndChangesNothingElse)
{
    for (int const space : s_spaces)
    {
        SCOPED_TRACE(space);
        CKrColor color(1u, 2u, 3u);
        color.SetAlpha(4);
        EXPECT_EQ(FieldsOf(InSpace(color, space)), (ColorFields{space, 1, 2, 3, 0, 4, true}));
        CKrColor const index(300);
        EXPECT_EQ(FieldsOf(InSpace(index, space)), (ColorFields{space, 0, 0, 0, 300}));
    }
}

TEST(CKrColor, AnswersWhatItIsByTheColourSpaceAlone)
{
    for (int const space : s_spaces)
    {
        SCOPED_TRACE(space);
        for (CKrColor const & color : {CKrColor(1u, 2u, 3u), CKrColor(256), CKrColor(257)})
        {
            EXPECT_EQ(InSpace(color, space).IsInheritedColor(), space == 11);
            EXPECT_EQ(InSpace(color, space).IsNoColor(), space == 12);
        }
    }
    EXPECT_TRUE(CKrColor(257).IsNoColor());
    EXPECT_FALSE(CKrColor(256).IsNoColor());
}

TEST(CKrColor, HoldsChannelsAt255AndKeepsTheColourSpace)
{
    for (int const space : s_spaces)
    {
        SCOPED_TRACE(space);
        CKrColor color = InSpace(CKrColor(9), space);
        color.SetRed(300); // Deliberate: held, while the constructor cuts
        EXPECT_EQ(FieldsOf(color), (ColorFields{space, 255, 0, 0, 9}));
        color.SetGreen(255);
        EXPECT_EQ(FieldsOf(color), (ColorFields{space, 255, 255, 0, 9}));
        color.SetBlue(~0u);
        EXPECT_EQ(FieldsOf(color), (ColorFields{space, 255, 255, 255, 9}));
        color.SetRed(256);
        color.SetGreen(254);
        color.SetBlue(0);
        EXPECT_EQ(FieldsOf(color), (ColorFields{space, 255, 254, 0, 9}));
    }
}

TEST(CKrColor, SetsAnIndexAndKeepsAlpha)
{
    CKrColor color(1u, 2u, 3u);
    color.SetAlpha(4);
    color.SetColorIndex(9);
    EXPECT_EQ(FieldsOf(color), (ColorFields{Index, 0, 0, 0, 9, 4, true}));
    color.SetColorIndex(257);
    EXPECT_EQ(FieldsOf(color), (ColorFields{NoColor, 0, 0, 0, 257, 4, true}));
    color.SetColorIndex(256);
    EXPECT_EQ(FieldsOf(color), (ColorFields{Index, 0, 0, 0, 256, 4, true}));
    color.SetColorIndex(-5);
    EXPECT_EQ(FieldsOf(color), (ColorFields{Index, 0, 0, 0, -5, 4, true}));
}

TEST(CKrColor, SetsRGBFromOneNumberAndKeepsAlpha)
{
    CKrColor color(257);
    color.SetAlpha(4);
    color.SetColorRef(0x00030201);
    EXPECT_EQ(FieldsOf(color), (ColorFields{RGB, 1, 2, 3, 0, 4, true}));
    color.SetColorRef(~0UL);
    EXPECT_EQ(FieldsOf(color), (ColorFields{RGB, 255, 255, 255, 0, 4, true}));
}

TEST(CKrColor, GivesItsRGBFieldsAsOneNumberInAnyColourSpace)
{
    for (int const space : s_spaces)
        EXPECT_EQ(InSpace(CKrColor(1u, 2u, 3u), space).GetColorRef(), 0x00030201u) << space;
    EXPECT_EQ(CKrColor(3).GetColorRef(), 0u);
    EXPECT_EQ(CKrColor(0xFF030201UL).GetColorRef(), 0x00030201u);
    EXPECT_EQ(CKrColor(255, 255, 255).GetColorRef(), 0x00FFFFFFu);
    EXPECT_TRUE((std::is_same_v<decltype(CKrColor().GetColorRef()), unsigned long>));
    EXPECT_TRUE((std::is_same_v<decltype(CKrColor().GetAsColorRef()), unsigned long>));
}

TEST(CKrColor, GivesItsRGBFieldsWhereItIsNoIndexColour)
{
    EXPECT_EQ(CKrColor(1u, 2u, 3u).GetAsColorRef(), 0x00030201u);
    EXPECT_EQ(CKrColor::NoColor().GetAsColorRef(), 0u);
    EXPECT_EQ(CKrColor(256).GetAsColorRef(), 0u);
    EXPECT_EQ(CKrColor(3).GetAsColorRef(), 0x0000FF00u);
}

TEST(CKrColor, KeepsTheAlphaFlagOnceItIsSet)
{
    CKrColor color;
    EXPECT_FALSE(color.IsAlpha());
    color.SetAlpha(0);
    EXPECT_FALSE(color.IsAlpha());
    color.SetAlpha(-1);
    EXPECT_FALSE(color.IsAlpha());
    EXPECT_EQ(color.GetAlpha(), -1);
    color.SetAlpha(10);
    EXPECT_TRUE(color.IsAlpha());
    EXPECT_EQ(color.GetAlpha(), 10);
    color.SetAlpha(0); // Deliberate: the flag stays
    EXPECT_TRUE(color.IsAlpha());
    EXPECT_EQ(color.GetAlpha(), 0);
    color.SetAlpha(INT_MIN);
    EXPECT_TRUE(color.IsAlpha());
    EXPECT_EQ(color.GetAlpha(), INT_MIN);
    color.SetAlpha(INT_MAX);
    EXPECT_EQ(color.GetAlpha(), INT_MAX);
}

TEST(CKrColor, BecomesInheritedAndKeepsAllElse)
{
    CKrColor color(1u, 2u, 3u);
    color.SetAlpha(4);
    color.SetInheritedColor();
    EXPECT_EQ(FieldsOf(color), (ColorFields{CKrColor::eColorSpaceInherited, 1, 2, 3, 0, 4, true}));
}

TEST(CKrColor, BecomesNoColourAndKeepsAlpha)
{
    CKrColor color(1u, 2u, 3u);
    color.SetAlpha(4);
    color.SetNoColor();
    EXPECT_EQ(FieldsOf(color), (ColorFields{NoColor, 0, 0, 0, 257, 4, true}));
}

TEST(CKrColor, ComparesIndexColoursByIndex)
{
    EXPECT_TRUE(CKrColor(5) == CKrColor(short(5)));
    EXPECT_FALSE(CKrColor(5) != CKrColor(5));
    EXPECT_FALSE(CKrColor(1) == CKrColor(10)); // the same row of the table
    EXPECT_TRUE(CKrColor(1) != CKrColor(10));

    CKrColor reddened(5);
    reddened.SetRed(1);
    EXPECT_TRUE(reddened == CKrColor(5)); // RGB takes no part
}

TEST(CKrColor, ComparesAllOtherColoursByRGB)
{
    for (int const space : s_spaces)
    {
        if (space == Index)
            continue;
        SCOPED_TRACE(space);
        CKrColor const color = InSpace(CKrColor(1u, 2u, 3u), space);
        EXPECT_TRUE(color == InSpace(CKrColor(1u, 2u, 3u), space));
        EXPECT_FALSE(color == InSpace(CKrColor(9u, 2u, 3u), space));
        EXPECT_FALSE(color == InSpace(CKrColor(1u, 9u, 3u), space));
        EXPECT_FALSE(color == InSpace(CKrColor(1u, 2u, 9u), space));
        EXPECT_TRUE(InSpace(CKrColor(5), space) == InSpace(CKrColor(6), space)); // Deliberate: the index takes no part
    }
}

TEST(CKrColor, DiffersInColourSpaceAndAlphaButNotInTheAlphaFlag)
{
    CKrColor const red(255, 0, 0);
    EXPECT_FALSE(red == CKrColor(1)); // Deliberate: although they look the same
    EXPECT_FALSE(CKrColor() == InSpace(CKrColor(), CKrColor::eColorSpaceInherited));

    CKrColor transparent = red;
    transparent.SetAlpha(1);
    EXPECT_FALSE(transparent == red);
    transparent.SetAlpha(0);
    EXPECT_TRUE(transparent.IsAlpha());
    EXPECT_TRUE(transparent == red); // the flag takes no part

    CKrColor index(5);
    index.SetAlpha(-1);
    EXPECT_FALSE(index == CKrColor(5));
    EXPECT_TRUE(index == index);
}

TEST(CKrColor, IsWhatTheDocumentShows)
{
    CKrColor color;
    color.Parse(OLESTR("rgb(250, 3, 0)"));
    EXPECT_EQ(color.GetRed(), 250);
    EXPECT_EQ(color.Format(true), OLESTR("#fa0300"));

    color.RGBToIndex();
    EXPECT_EQ(color.GetColorIndex(), 1);
    EXPECT_EQ(color.Format(false), OLESTR("1"));
    EXPECT_EQ(color.GetAsColorRef(), 0x000000FFu);

    color.Parse(OLESTR("ByLayer"));
    EXPECT_EQ(color.GetColorIndex(), 256);
    EXPECT_FALSE(color.IsNoColor());
}
