#include <krcore/graphics/krstyles.h>

#include "tests/graphics/color_fields.h"

#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

using kr::test::ColorFields;
using kr::test::FieldsOf;

namespace
{

struct Flags
{
    bool visible;
    bool frozen;
    bool locked;
    bool hidden;
    bool current;

    bool operator==(Flags const &) const = default;
};

Flags FlagsOf(CKrLayerStyle const & layer)
{
    return {layer.IsVisible(), layer.IsFrozen(), layer.IsLocked(), layer.IsHidden(), layer.IsCurrent()};
}

constexpr Flags s_visibleOnly{true, false, false, false, false};

/// A layer with nothing at its default.
CKrLayerStyle FullLayer()
{
    CKrLayerStyle layer(OLESTR("Walls"), CKrColor(3), CKrLineStyle::AcadLineStyle(25, OLESTR("DASHED")), false);
    layer.SetFrozen(true);
    layer.SetLocked(true);
    layer.SetHidden(true);
    layer.SetCurrent(true);
    return layer;
}

void ExpectFull(CKrLayerStyle const & layer)
{
    EXPECT_EQ(layer.GetName(), OLESTR("Walls"));
    EXPECT_EQ(layer.GetColor().GetColorIndex(), 3);
    EXPECT_EQ(layer.GetLineStyle().GetName(), OLESTR("DASHED"));
    EXPECT_EQ(layer.GetLineStyle().GetLineWidth(), 0.25);
    EXPECT_EQ(layer.GetLineStyle().GetLineWeight(), 25);
    EXPECT_TRUE(FlagsOf(layer) == (Flags{false, true, true, true, true}));
}

} // namespace

TEST(CKrLayerStyle, StartsVisibleWithDefaults)
{
    CKrLayerStyle const layer;
    EXPECT_TRUE(layer.GetName().IsEmpty());
    EXPECT_EQ(FieldsOf(layer.GetColor()), FieldsOf(CKrColor()));
    EXPECT_TRUE(layer.GetLineStyle() == CKrLineStyle());
    EXPECT_TRUE(FlagsOf(layer) == s_visibleOnly);
}

TEST(CKrLayerStyle, IsDestroyedThroughAPointerToIt) { EXPECT_TRUE(std::has_virtual_destructor_v<CKrLayerStyle>); }

TEST(CKrLayerStyle, TakesAName)
{
    CKrLayerStyle const layer(OLESTR("Walls"));
    EXPECT_EQ(layer.GetName(), OLESTR("Walls"));
    EXPECT_EQ(FieldsOf(layer.GetColor()), FieldsOf(CKrColor()));
    EXPECT_TRUE(layer.GetLineStyle() == CKrLineStyle());
    EXPECT_TRUE(FlagsOf(layer) == s_visibleOnly);
}

TEST(CKrLayerStyle, TakesNameColourLineStyleAndVisibility)
{
    CKrLineStyle const line = CKrLineStyle::AcadLineStyle(25, OLESTR("DASHED"));
    CKrLayerStyle const layer(OLESTR("Walls"), CKrColor(3), line, true);
    EXPECT_EQ(layer.GetName(), OLESTR("Walls"));
    EXPECT_TRUE(layer.GetColor() == CKrColor(3));
    EXPECT_TRUE(layer.GetLineStyle() == line);
    EXPECT_TRUE(FlagsOf(layer) == s_visibleOnly);
    EXPECT_TRUE(FlagsOf(CKrLayerStyle(OLESTR(""), CKrColor(), line, false)) == Flags{});
}

TEST(CKrLayerStyle, CopiesAllFields)
{
    CKrLayerStyle source = FullLayer();
    CKrLayerStyle const copy(source);
    CKrLayerStyle assigned;
    assigned = source;
    source = CKrLayerStyle();
    EXPECT_TRUE(FlagsOf(source) == s_visibleOnly);
    ExpectFull(copy);
    ExpectFull(assigned);
    CKrLayerStyle & same = assigned;
    assigned = same;
    ExpectFull(assigned);
}

TEST(CKrLayerStyle, SetsNameColourAndLineStyle)
{
    CKrLayerStyle layer;
    layer.SetName(OLESTR("Doors"));
    layer.SetColor(CKrColor(1u, 2u, 3u));
    layer.SetLineStyle(CKrLineStyle(OLESTR("DOTTED"), 50));
    EXPECT_EQ(layer.GetName(), OLESTR("Doors"));
    EXPECT_TRUE(layer.GetColor() == CKrColor(1u, 2u, 3u));
    EXPECT_TRUE(layer.GetLineStyle() == CKrLineStyle(OLESTR("DOTTED"), 50));
    EXPECT_TRUE(FlagsOf(layer) == s_visibleOnly);
}

TEST(CKrLayerStyle, LendsColourAndLineStyleOpenToChange)
{
    CKrLayerStyle layer = FullLayer();
    layer.GetColor().SetColorIndex(5);
    layer.GetLineStyle().SetLineWeight(100);
    EXPECT_EQ(layer.GetColor().GetColorIndex(), 5);
    EXPECT_EQ(layer.GetLineStyle().GetLineWeight(), 100);

    CKrLayerStyle const & constant = layer;
    EXPECT_EQ(&constant.GetColor(), &layer.GetColor());
    EXPECT_EQ(&constant.GetLineStyle(), &layer.GetLineStyle());
    EXPECT_TRUE((std::is_same_v<decltype(constant.GetColor()), CKrColor const &>));
    EXPECT_TRUE((std::is_same_v<decltype(constant.GetLineStyle()), CKrLineStyle const &>));
}

TEST(CKrLayerStyle, SetsEachFlagByItself)
{
    for (bool const start : {false, true})
    {
        CKrLayerStyle layer(OLESTR(""), CKrColor(), CKrLineStyle(), start);
        layer.SetFrozen(start);
        layer.SetLocked(start);
        layer.SetHidden(start);
        layer.SetCurrent(start);
        auto const expectAfter = [&](void (CKrLayerStyle::*set)(bool), Flags flags)
        {
            CKrLayerStyle changed(layer);
            (changed.*set)(!start);
            EXPECT_TRUE(FlagsOf(changed) == flags);
        };
        bool const s = start;
        expectAfter(&CKrLayerStyle::SetVisible, {!s, s, s, s, s});
        expectAfter(&CKrLayerStyle::SetFrozen, {s, !s, s, s, s});
        expectAfter(&CKrLayerStyle::SetLocked, {s, s, !s, s, s});
        expectAfter(&CKrLayerStyle::SetHidden, {s, s, s, !s, s});
        expectAfter(&CKrLayerStyle::SetCurrent, {s, s, s, s, !s});
    }
}

TEST(CKrLayerStyleAcad, HasColour7AndAContinuousLine)
{
    CKrLayerStyle const layer = CKrLayerStyle::AcadLayer(OLESTR("Walls"));
    EXPECT_EQ(layer.GetName(), OLESTR("Walls"));
    EXPECT_EQ(FieldsOf(layer.GetColor()), (ColorFields{CKrColor::eColorSpaceIndex, 0, 0, 0, 7}));
    EXPECT_EQ(layer.GetColor().Format(false), OLESTR("7"));
    EXPECT_TRUE(layer.GetLineStyle() == CKrLineStyle::AcadLineStyle());
    EXPECT_EQ(layer.GetLineStyle().GetName(), OLESTR("CONTINUOUS"));
    EXPECT_TRUE(FlagsOf(layer) == s_visibleOnly);
    EXPECT_TRUE(CKrLayerStyle::AcadLayer(OLESTR("")).GetName().IsEmpty());
}

TEST(CKrLayerStyleAcad, TakesAnotherColour)
{
    CKrLayerStyle const layer = CKrLayerStyle::AcadLayer(OLESTR("Walls"), CKrColor(1u, 2u, 3u));
    EXPECT_EQ(layer.GetName(), OLESTR("Walls"));
    EXPECT_TRUE(layer.GetColor() == CKrColor(1u, 2u, 3u));
    EXPECT_TRUE(layer.GetLineStyle() == CKrLineStyle::AcadLineStyle());
    EXPECT_TRUE(FlagsOf(layer) == s_visibleOnly);
}

TEST(CKrLayerStyleEquality, LooksAtTheNameWithoutCase)
{
    EXPECT_TRUE(CKrLayerStyle(OLESTR("Walls")) == CKrLayerStyle(OLESTR("WALLS")));
    EXPECT_FALSE(CKrLayerStyle(OLESTR("Walls")) == CKrLayerStyle(OLESTR("Wall")));
    EXPECT_TRUE(CKrLayerStyle(OLESTR("Walls")) != CKrLayerStyle(OLESTR("Wall")));
}

TEST(CKrLayerStyleEquality, LooksAtEveryField)
{
    CKrLayerStyle const layer = FullLayer();
    EXPECT_TRUE(layer == FullLayer());
    auto const differs = [&](auto change)
    {
        CKrLayerStyle changed(layer);
        change(changed);
        return !(layer == changed) && !(changed == layer);
    };
    EXPECT_TRUE(differs([](CKrLayerStyle & changed) { changed.SetName(OLESTR("Doors")); }));
    EXPECT_TRUE(differs([](CKrLayerStyle & changed) { changed.SetColor(CKrColor(4)); }));
    EXPECT_TRUE(
        differs([](CKrLayerStyle & changed) { changed.GetColor().IndexToRGB(); })); // although it looks the same
    EXPECT_TRUE(differs([](CKrLayerStyle & changed) { changed.GetLineStyle().SetLineWidth(0.3); }));
    EXPECT_TRUE(differs([](CKrLayerStyle & changed) { changed.SetVisible(true); }));
    EXPECT_TRUE(differs([](CKrLayerStyle & changed) { changed.SetFrozen(false); }));
    EXPECT_TRUE(differs([](CKrLayerStyle & changed) { changed.SetLocked(false); }));
    EXPECT_TRUE(differs([](CKrLayerStyle & changed) { changed.SetHidden(false); }));
    EXPECT_TRUE(differs([](CKrLayerStyle & changed) { changed.SetCurrent(false); }));
    EXPECT_FALSE(differs([](CKrLayerStyle & changed) { changed.GetLineStyle().SetName(OLESTR("dashed")); }));
    EXPECT_FALSE(differs([](CKrLayerStyle & changed) { changed.GetLineStyle().SetLineWidth(0.25000000001); }));
}

TEST(CKrLayerStyleEquality, HoldsForTheSameObjectWhateverItsLine)
{
    CKrLayerStyle layer;
    layer.GetLineStyle().SetLineWidth(std::numeric_limits<double>::quiet_NaN());
    EXPECT_TRUE(layer == layer);
    EXPECT_FALSE(layer == CKrLayerStyle(layer));
}

TEST(CKrLayerStyle, IsWhatTheDocumentShows)
{
    CKrLayerStyle layer = CKrLayerStyle::AcadLayer(OLESTR("Walls"));
    EXPECT_EQ(layer.GetColor().Format(false), OLESTR("7"));
    EXPECT_EQ(layer.GetLineStyle().GetName(), OLESTR("CONTINUOUS"));

    CKrLineStyle line = CKrLineStyle::AcadLineStyle(0.26, OLESTR("DASHED"));
    EXPECT_EQ(line.GetLineWeight(), 30);
    EXPECT_EQ(line.GetLineWidth(), 0.26);
}
