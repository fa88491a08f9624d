// The samples of docs/graphics.md.
#include <krcore/graphics/krcolorschememap.h>
#include <krcore/graphics/krstyles.h>

#include <gtest/gtest.h>

TEST(GraphicsPage, SampleGivesWhatItSays)
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

    CKrLayerStyle const layer = CKrLayerStyle::AcadLayer(OLESTR("Walls"));
    EXPECT_EQ(layer.GetColor().Format(false), OLESTR("7"));
    EXPECT_EQ(layer.GetLineStyle().GetName(), OLESTR("CONTINUOUS"));

    CKrLineStyle const line = CKrLineStyle::AcadLineStyle(0.26, OLESTR("DASHED"));
    EXPECT_EQ(line.GetLineWeight(), 30);
    EXPECT_EQ(line.GetLineWidth(), 0.26);
}

TEST(GraphicsPage, SampleOfSchemesGivesWhatItSays)
{
    CKrColorSchemeMap shared;
    shared.AddObject(OLESTR("Dark"), new CKrColorSchemeBase);
    shared.AddObject(OLESTR("Light"), new CKrColorSchemeBase);

    CKrColorSchemeMap map;
    map.AddObject(OLESTR("Dark"), new CKrColorSchemeBase);
    map.SetInheritedSchemeMap(&shared);
    EXPECT_EQ(map.GetColorScheme(OLESTR("Dark")), map.GetObjectAt(0));
    EXPECT_EQ(map.GetColorScheme(OLESTR("Light")), shared.GetObjectAt(1));
    EXPECT_EQ(map.GetColorScheme(OLESTR("dark")), nullptr);

    map.SetCurrentScheme(OLESTR("Dark"));
    map.BackupCurrentScheme();
    map.SetCurrentScheme(OLESTR("Light"));
    map.RestoreBackupScheme();
    EXPECT_EQ(map.GetCurrentScheme(), OLESTR("Dark"));
}
