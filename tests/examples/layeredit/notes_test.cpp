// What is told beside the work: notes, the line about a drawing, what changes.
#include "tests/examples/layeredit/call.h"
#include "tests/examples/layeredit/layer_table.h"
#include "tests/examples/layeredit/made_drawing.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace kr::test
{

namespace
{

using Arguments = std::vector<std::string>;

Called CallOn(std::string const & drawing, Arguments arguments = {})
{
    Workshop workshop;
    workshop.Put("a.dxf", drawing);
    arguments.insert(arguments.begin(), "a.dxf");
    return workshop.Call(arguments);
}

/// What is told behind the line about the drawing.
std::string NotesOn(std::string const & drawing, Arguments const & arguments = {})
{
    std::string const errors = CallOn(drawing, arguments).errors;
    return errors.substr(errors.find('\n') + 1);
}

std::string LineAbout(MadeDrawing const & drawing, Arguments const & arguments = {})
{
    return LinesOf(CallOn(drawing.Get(), arguments).errors).at(0);
}

/// The number of the line that the text begins.
std::string LineOf(std::string const & drawing, std::string const & text)
{
    return "line " + std::to_string(1 + std::ranges::count(drawing.substr(0, drawing.find("\n" + text) + 1), '\n'));
}

std::string Replaced(std::string text, std::string const & old, std::string const & other)
{
    return text.replace(text.find(old), old.size(), other);
}

} // namespace

TEST(LayerEditNotes, OneLineTellsWhatDrawingItIs)
{
    // clang-format off
    struct { char const * version; char const * page; char const * name; } const rows[] = {
        { "AC1006", "",          "R10, code page 1252"          }, { "AC1009", "dos850",    "R12, dos850"       },
        { "AC1012", "ANSI_1252", "R13, ANSI_1252"               }, { "AC1014", "ascii",     "R14, ascii"        },
        { "AC1015", "ANSI_932",  "R2000, ANSI_932"              }, { "AC1018", "ansi_936",  "R2004, ansi_936"   },
        { "AC1021", "ANSI_1252", "R2007, UTF-8"                 }, { "AC1024", "",          "R2010, UTF-8"      },
        { "AC1027", "ANSI_932",  "R2013, UTF-8"                 }, { "AC1032", "ANSI_1252", "R2018, UTF-8"      },
        { "",       "",          "R12 or older, code page 1252" }, { "AC1099", "",          "AC1099, UTF-8"     },
        { "AC2.10", "",          "AC2.10, code page 1252"       }, { "AC1015", "X",         "R2000, code page 1252" },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        MadeDrawing drawing;
        drawing.version = row.version;
        drawing.codePage = row.page;
        EXPECT_EQ(LineAbout(drawing), std::string("a.dxf: ") + row.name + ", 1 layer, current layer \"0\"\n");
    }
}

TEST(LayerEditNotes, TheTimeOfTheLastChangeCountsFromMidnight)
{
    MadeDrawing drawing;
    drawing.currentLayer.clear();
    drawing.layers += MadeDrawing::Layer("B", "");
    drawing.header = "  9\n$TDUPDATE\n 40\n2451544.91568287\n  9\n$TDUUPDATE\n 40\n1.0\n";
    EXPECT_EQ(LineAbout(drawing), "a.dxf: R2004, ANSI_1252, 2 layers, saved 1999-12-31 21:58:35\n");
    drawing.header =
        "  9\n$PUCSNAME\n  2\nTABLES\n  9\n$TDUPDATE\n 40\n2459909.2982060187\n"; // a group 2 in the header
    EXPECT_EQ(LineAbout(drawing), "a.dxf: R2004, ANSI_1252, 2 layers, saved 2022-11-25 07:09:25\n");
}

TEST(LayerEditNotes, DamageBehindTheLayerTableIsANoteAndTheLayersCanBeEdited)
{
    std::string const drawing = MadeDrawing().Get();
    std::string const broken = Replaced(drawing, "LINE\n", "LINE\n  1\ntext with\na line break\n");
    EXPECT_EQ(NotesOn(broken),
              "a.dxf, " + LineOf(broken, "a line break") +
                  ": note: the drawing is damaged behind its layer table (\"a line break\" "
                  "stands where a group code should); the layers are sound, the rest stays as it is.\n");
    std::string const cut = drawing.substr(0, drawing.find("  0\nEOF"));
    EXPECT_EQ(NotesOn(cut), "a.dxf, " + LineOf(drawing, "  0\nEOF") +
                                ": note: the drawing is cut off behind its layer table, there is no EOF; "
                                "the layers are sound, but look for a whole copy.\n");
    for (std::string const & damaged : {broken, cut, drawing + "rubbish\nbehind\nEOF", drawing + "\x1A"})
    {
        Workshop workshop;
        workshop.Put("a.dxf", damaged);
        ASSERT_EQ(workshop.Call({"a.dxf", "--all", "-s", "Color=3", "--in-place"}).status, 0);
        EXPECT_EQ(workshop.Get("a.dxf"), Replaced(damaged, " 62\n     7\n", " 62\n     3\n"));
    }
    EXPECT_EQ(NotesOn(drawing + "rubbish\nbehind\nEOF"), "");
}

TEST(LayerEditNotes, ALineWithoutEndAndAVeryLongValueAreBorne)
{
    std::string const drawing = MadeDrawing().Get();
    std::string const withoutEnd = drawing.substr(0, drawing.size() - 1);
    EXPECT_EQ(NotesOn(withoutEnd), "");
    std::string const longValue(3'000'000, 'x');
    for (std::string const & text : {longValue, longValue.substr(0, 256 * 1024), longValue.substr(0, 256 * 1024 - 300)})
    {
        Workshop workshop;
        std::string const wide = Replaced(drawing, "LINE\n", "LINE\n  1\n" + text + "\n  1\n" + text + "\n");
        workshop.Put("a.dxf", wide);
        Called const called = workshop.Call({"a.dxf", "--all", "-s", "Color=3", "--in-place"});
        EXPECT_EQ(LinesOf(called.errors).size(), 2u) << called.errors;
        EXPECT_EQ(workshop.Get("a.dxf"), Replaced(wide, " 62\n     7\n", " 62\n     3\n"));
    }
    std::string const inLayer = Replaced(drawing, " 62\n     7\n", " 62\n" + longValue + "\n");
    EXPECT_EQ(CallOn(inLayer).status, 1);
}

TEST(LayerEditNotes, LayersOfReferencesAreLeftOutUnlessAskedFor)
{
    Workshop workshop;
    MadeDrawing drawing;
    drawing.layers += MadeDrawing::Layer("ref|A", " 70\n48\n") + MadeDrawing::Layer("ref|B", " 70\n16\n");
    workshop.Put("a.dxf", drawing.Get());
    Called called = workshop.Call({"a.dxf", "--all", "-s", "Color=3", "-n"});
    EXPECT_EQ(called.output, "0: Color 7 -> 3\n");
    EXPECT_EQ(LinesOf(called.errors).at(1),
              "a.dxf: note: layers that come from references are left out (2); --xref changes them too.\n");
    called = workshop.Call({"a.dxf", "--all", "-s", "Color=3", "-n", "--xref"});
    EXPECT_EQ(called.output, "0: Color 7 -> 3\nref|A: Color 7 -> 3\nref|B: Color 7 -> 3\n");
    called = workshop.Call({"a.dxf", "-l", "ref*", "-s", "Color=3", "--in-place"});
    EXPECT_EQ(called.status, 0);
    EXPECT_EQ(LinesOf(called.errors).back(), "a.dxf: 0 of 3 layers changed\n");
    EXPECT_EQ(workshop.Get("a.dxf"), drawing.Get());
}

TEST(LayerEditNotes, ATrueColourBelowR2004BecomesTheNearestIndex)
{
    MadeDrawing drawing;
    drawing.version = "AC1015";
    Called const called = CallOn(drawing.Get(), {"--all", "-s", "Color=#fa0300", "-n"});
    EXPECT_EQ(called.output, "0: Color 7 -> 1\n");
    EXPECT_EQ(LinesOf(called.errors).at(1),
              "a.dxf: note: R2000 has no true colour; #fa0300 becomes the nearest index, 1.\n");
    drawing.version = "AC1018";
    EXPECT_EQ(CallOn(drawing.Get(), {"--all", "-s", "Color=#fa0300", "-n"}).output, "0: Color 7 -> #fa0300\n");
}

TEST(LayerEditNotes, OtherNotesSayWhatWasTakenForWhat)
{
    MadeDrawing drawing;
    drawing.layers = MadeDrawing::Layer("A", " 62\n256\n");
    EXPECT_EQ(NotesOn(drawing.Get()),
              "a.dxf, " + LineOf(drawing.Get(), "256") +
                  ": note: the layer \"A\" has the colour 256, which is none for a layer; it counts as 7.\n");
    drawing = MadeDrawing();
    EXPECT_EQ(NotesOn(drawing.Get(), {"--encoding", "932"}),
              "a.dxf: note: --encoding is not used, the drawing says by itself that its texts are ANSI_1252.\n");
    drawing.codePage = "KLINGON";
    EXPECT_EQ(NotesOn(drawing.Get()),
              "a.dxf: note: the code page \"KLINGON\" is unknown, texts are read as code page 1252; "
              "--encoding tells another.\n");
    EXPECT_EQ(CallOn(drawing.Get(), {"-q"}).errors, "");
}

TEST(LayerEditNotes, EachChangeIsOneLineAndWhatIsSoAlreadyIsNone)
{
    Workshop workshop;
    std::string const name = workshop.Take("r2004-all-properties.dxf");
    Called const called = workshop.Call(
        {name, "-l", "Layer_O*", "-l", "layer_lo?k", "-s", "color=1", "-s", "locked=yes", "-s", "DESCRIPTION=new"});
    EXPECT_EQ(called.output,
              "Layer_Off: Color 7 -> 1\nLayer_Off: Locked no -> yes\nLayer_Off: Description \"\" -> new\n"
              "Layer_Lock: Color 7 -> 1\nLayer_Lock: Description \"\" -> new\n");
    EXPECT_EQ(LinesOf(called.errors).back(), name + ": 2 of 17 layers would change\n");
    EXPECT_EQ(workshop.Call({name, "-q", "--not", "L*", "--not", "D*", "-s", "Color=2"}).output,
              "0: Color 7 -> 2\n0 @ 1: Color 7 -> 2\n"); // --not alone takes away from all
    EXPECT_EQ(workshop.Get(name), Workshop::BundledDrawing(name));
    EXPECT_EQ(workshop.Call({name, "--all", "-s", "LineType=CONTINUOUS", "--where", "LineType=continuous"}).output, "");
    Called const quiet = workshop.Call({name, "-q", "-l", "Layer_Off", "-s", "On=1", "-o", "b.dxf"});
    EXPECT_EQ(quiet.output + quiet.errors, "");
}

} // namespace kr::test
