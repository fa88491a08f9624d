// Registering the application that a description needs: its record, the table's count, the next handle, and nothing else.
#include "tests/examples/layeredit/call.h"
#include "tests/examples/layeredit/layer_table.h"
#include "tests/examples/layeredit/made_drawing.h"

#include <gtest/gtest.h>

namespace kr::test
{

namespace
{

std::string const s_seed = "  9\n$HANDSEED\n  5\n";

MadeDrawing WithSeed(std::string const & seed)
{
    MadeDrawing drawing;
    drawing.header = seed.empty() ? seed : s_seed + seed + "\n";
    return drawing;
}

Called Describe(Workshop const & workshop)
{
    return workshop.Call({"a.dxf", "-q", "--all", "-s", "Description=x", "--add-appid", "-o", "b.dxf"});
}

/// The drawing as it should be: with the record, one more in the count, the next seed, and the description.
std::string Expected(MadeDrawing drawing, std::string const & record, std::string const & seed)
{
    if (!seed.empty())
        drawing.header = s_seed + seed + "\n";
    drawing.layers += "1001\nAcAecLayerStandard\n1000\n\n1000\nx\n";
    drawing.applications += record;
    std::string text = drawing.Get();
    std::size_t const count = text.find("     1\n", text.find("APPID"));
    return text.replace(count, 7, "     2\n");
}

std::string RecordWithHandle(std::string const & handle)
{
    return "  0\nAPPID\n  5\n" + handle +
           "\n330\nA\n100\nAcDbSymbolTableRecord\n100\nAcDbRegAppTableRecord\n  2\nAcAecLayerStandard\n 70\n     0\n";
}

} // namespace

TEST(LayerEditApplication, TakesTheNextHandleAboveAllThatTheDrawingSaysOrHas)
{
    // clang-format off
    struct { char const * seed; char const * handle; char const * nextSeed; } const rows[] = {
        { "C5D", "C5D", "C5E" },
        { "FF",  "FF",  "100" },
        { "3",   "30",  "31"  }, // the line has 2F: the seed is wrong
        { "",    "30",  ""    }, // no seed in the header, and none afterwards
        { "xyz", "30",  "31"  },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        Workshop workshop;
        MadeDrawing const drawing = WithSeed(row.seed);
        workshop.Put("a.dxf", drawing.Get());
        EXPECT_EQ(Describe(workshop).status, 0);
        EXPECT_EQ(workshop.Get("b.dxf"), Expected(drawing, RecordWithHandle(row.handle), row.nextSeed)) << row.seed;
    }
}

TEST(LayerEditApplication, BelowR13ThereAreNoHandles)
{
    Workshop workshop;
    MadeDrawing drawing = WithSeed("C5D");
    drawing.version = "AC1009";
    workshop.Put("a.dxf", drawing.Get());
    EXPECT_EQ(Describe(workshop).status, 0);
    EXPECT_EQ(workshop.Get("b.dxf"), Expected(drawing, "  0\nAPPID\n  2\nAcAecLayerStandard\n 70\n     0\n", "C5D"));
}

TEST(LayerEditApplication, FollowsTheLineEndsAndTheStyleOfTheTable)
{
    Workshop workshop;
    MadeDrawing drawing = WithSeed("C5D");
    drawing.lineEnd = "\r\n";
    workshop.Put("a.dxf", drawing.Get());
    EXPECT_EQ(Describe(workshop).status, 0);
    EXPECT_EQ(workshop.Get("b.dxf").find("\n", workshop.Get("b.dxf").find("AcDbRegAppTableRecord")),
              workshop.Get("b.dxf").find("\r\n", workshop.Get("b.dxf").find("AcDbRegAppTableRecord")) + 1);
    EXPECT_EQ(LinesOf(workshop.Get("b.dxf")).size(), LinesOf(drawing.Get()).size() + 6 + 14);
}

TEST(LayerEditApplication, IsLeftAloneWhereItIsThereOrNotNeeded)
{
    Workshop workshop;
    MadeDrawing drawing = WithSeed("C5D");
    workshop.Put("a.dxf", drawing.Get());
    EXPECT_EQ(workshop.Call({"a.dxf", "-q", "--all", "-s", "Description=", "--add-appid", "-o", "b.dxf"}).status, 0);
    EXPECT_EQ(workshop.Get("b.dxf"), drawing.Get());
    drawing.applications += "  0\nAPPID\n  2\nacaecLAYERstandard\n 70\n     0\n";
    workshop.Put("a.dxf", drawing.Get());
    EXPECT_EQ(Describe(workshop).status, 0);
    drawing.layers += "1001\nacaecLAYERstandard\n1000\n\n1000\nx\n"; // spelt as the table spells it
    EXPECT_EQ(workshop.Get("b.dxf"), drawing.Get());
}

TEST(LayerEditApplication, IsRefusedWhereTheDrawingHasNoPlaceOrNoHandleForIt)
{
    Workshop workshop;
    MadeDrawing drawing = WithSeed("C5D");
    drawing.applications.clear();
    workshop.Put("a.dxf", drawing.Get());
    Called called = Describe(workshop);
    EXPECT_EQ(called.status, 4);
    EXPECT_EQ(called.errors, "a.dxf: the drawing has no table of applications, which a description needs, nothing was "
                             "written; save it anew.\n");
    drawing = WithSeed("");
    std::string const whole = drawing.Get();
    workshop.Put("a.dxf", whole.substr(0, whole.size() - 10)); // the handles behind the cut are unknown
    called = Describe(workshop);
    EXPECT_EQ(called.status, 4);
    EXPECT_EQ(called.errors, "a.dxf: no free handle is known for the application that a description needs, nothing was "
                             "written; repair the drawing first.\n");
    EXPECT_FALSE(workshop.Has("b.dxf"));
}

TEST(LayerEditApplication, TheOtherReaderFindsItInTheDrawing)
{
    Workshop workshop;
    std::string const name = workshop.Take("r2004-932-unicode-escapes.dxf");
    std::string const description = "Description=\u8868\u4E00";
    EXPECT_EQ(workshop.Call({name, "--all", "-s", description, "-o", "b.dxf"}).status, 4);
    EXPECT_EQ(workshop.Call({name, "--all", "-s", description, "-o", "b.dxf", "--add-appid"}).status, 0);
    Called const other =
        workshop.Run({"/usr/bin/python3", "-c",
                      "import ezdxf.recover as r; d, a = r.readfile('b.dxf'); e = d.appids.get('AcAecLayerStandard'); "
                      "print(e.dxf.handle, d.entitydb[e.dxf.handle] is e, a.has_errors)"});
    EXPECT_EQ(other.output, "44 True False\n") << other.errors;
    workshop.ExpectOtherReaderAgrees({"b.dxf"});
}

} // namespace kr::test
