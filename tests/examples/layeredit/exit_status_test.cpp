// Each exit status, and each sentence that a user may read, word for word.
#include "tests/examples/layeredit/call.h"
#include "tests/examples/layeredit/made_drawing.h"

#include <gtest/gtest.h>

namespace kr::test
{

namespace
{

using Arguments = std::vector<std::string>;

Called CallOn(std::string const & drawing, Arguments arguments)
{
    Workshop workshop;
    workshop.Put("a.dxf", drawing);
    arguments.insert(arguments.begin(), {"a.dxf", "-q"});
    Called called = workshop.Call(arguments);
    EXPECT_EQ(workshop.Get("a.dxf"), drawing);
    return called;
}

std::string const s_anyNames = "Name, Color, LineType, LineWeight, Plot, On, Frozen, Locked, Description";

} // namespace

TEST(LayerEditCall, AWrongCallIsToldAndOpensNothing)
{
    struct Row
    {
        Arguments arguments;
        std::string sentence;
    };
    std::string const more = "; layeredit --help tells the options.\n";
    // clang-format off
    Row const rows[] = {
        { {},                                          "layeredit: DRAWING is required" + more },
        { { "a", "--bad" },                            "layeredit: The following argument was not expected: --bad" + more },
        { { "a", "--all", "-s", "Color" },             "layeredit: \"Color\" should read PROPERTY=VALUE.\n" },
        { { "a", "--where", "x" },                     "layeredit: \"x\" should read PROPERTY=VALUE.\n" },
        { { "a", "--all", "-s", "Width=1" },           "layeredit: \"Width\" is no property; a layer has " + s_anyNames + ".\n" },
        { { "a", "--all", "-s", "Name=1" },            "layeredit: Name cannot be set.\n" },
        { { "a", "--all", "-s", "Color=0" },           "layeredit: Color cannot be \"0\"; it is 1 to 255, RGB(r,g,b) or #rrggbb.\n" },
        { { "a", "--all", "-s", "LineWeight=2.12" },   "layeredit: LineWeight cannot be \"2.12\"; it is 0 to 2.11 millimetres, or default.\n" },
        { { "a", "--all", "-s", "Plot=2" },            "layeredit: Plot cannot be \"2\"; it is 0 or 1, no or yes.\n" },
        { { "a", "--where", "On=maybe" },              "layeredit: On cannot be \"maybe\"; it is 0 or 1, no or yes.\n" },
        { { "a", "--all", "-s", "On=1", "-s", "on=0" }, "layeredit: On is set twice.\n" },
        { { "a", "-s", "On=1" },                       "layeredit: --set needs --layer, --not or --all.\n" },
        { { "a", "--where", "On=1", "-s", "On=0" },    "layeredit: --set needs --layer, --not or --all.\n" },
        { { "a", "--all", "-s", "On=1", "--grid" },    "layeredit: --grid changes nothing, so it does not go with --set" + more },
        { { "a", "-o", "b" },                          "layeredit: -o, --in-place and --dry-run need --set" + more },
        { { "a", "-n" },                               "layeredit: -o, --in-place and --dry-run need --set" + more },
        { { "a", "b", "--all", "-s", "On=1", "-o", "c" }, "layeredit: -o takes one drawing; --in-place takes many" + more },
        { { "a", "--all", "-s", "On=1", "--in-place", "--backup", "x/y" }, "layeredit: --backup takes what is put behind a name, without a slash" + more },
        { { "a", "--encoding", "klingon" },            "layeredit: the code page \"klingon\" is unknown; give a word such as ANSI_932, or its number.\n" },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        Workshop workshop;
        Called const called = workshop.Call(row.arguments);
        EXPECT_EQ(called.status, 2) << row.sentence;
        EXPECT_EQ(called.errors, row.sentence);
        EXPECT_EQ(called.output, "");
        EXPECT_TRUE(workshop.List().empty());
    }
    for (Arguments const & arguments :
         {Arguments{"a", "--all", "-s", "On=1", "--in-place", "-o", "b"},
          Arguments{"a", "--all", "-s", "On=1", "--backup", ".bak"}, Arguments{"a", "--format", "xml"}})
        EXPECT_EQ(Workshop().Call(arguments).status, 2) << arguments.back();
}

TEST(LayerEditCall, HelpAndVersionAreNoFailures)
{
    Called const help = Workshop().Call({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_TRUE(help.output.find("--add-appid") != std::string::npos);
    EXPECT_EQ(help.errors, "");
    Called const version = Workshop().Call({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.output, "layeredit 141.0.0\n");
}

TEST(LayerEditCall, WhatIsNoSoundDrawingIsRefusedWithALineAndARemedy)
{
    struct Row
    {
        std::string drawing;
        std::string sentence;
    };
    std::string const start = "  0\nSECTION\n  2\nTABLES\n  0\nTABLE\n  2\nLAYER\n";
    std::string const layer = "  0\nLAYER\n  2\nA\n";
    std::string const repair = "; repair the line or save the drawing anew.\n";
    // clang-format off
    Row const rows[] = {
        { "", "a.dxf: the file is empty; look for a whole copy.\n" },
        { std::string("AutoCAD Binary DXF\r\n\x1A\0\0\0", 24), "a.dxf: this is a binary DXF drawing; save it as ASCII DXF.\n" },
        { std::string("AC1018\0\0", 8), "a.dxf: this is a DWG drawing; save it as ASCII DXF.\n" },
        { std::string("AC1.50\0\0", 8), "a.dxf: this is a DWG drawing; save it as ASCII DXF.\n" },
        { std::string("AC2.10\0\0", 8), "a.dxf: this is a DWG drawing; save it as ASCII DXF.\n" },
        { std::string("\xFF\xFE \0 \0", 6), "a.dxf: this is text in UTF-16, which no drawing is; save the drawing anew as ASCII DXF.\n" },
        { "<html>\n<p>404\n", "a.dxf, line 1: this is no DXF drawing, which begins with a SECTION (\"<html>\" stands there); give another file.\n" },
        { "\x1B[31m\nx\n", "a.dxf, line 1: this is no DXF drawing, which begins with a SECTION (\"^[[31m\" stands there); give another file.\n" },
        { "999\ncomment\n  0\nHALLO\n", "a.dxf, line 3: this is no DXF drawing, which begins with a SECTION (\"HALLO\" stands there); give another file.\n" },
        { "\n\n\n", "a.dxf, line 1: this is no DXF drawing, which begins with a SECTION (\"\" stands there); give another file.\n" },
        { "  0\nSECTION\n  2\nHEADER\n<<<<<<< HEAD\n  9\n", "a.dxf, line 5: the drawing is damaged: \"<<<<<<< HEAD\" stands where a group code should" + repair },
        { start + layer + " 6x\nContinuous\n", "a.dxf, line 13: the drawing is damaged: \"6x\" stands where a group code should" + repair },
        { start + layer + "1072\nx\n", "a.dxf, line 13: the drawing is damaged: \"1072\" stands where a group code should" + repair },
        { start + layer, "a.dxf, line 13: the drawing is cut off before the end of its layer table; look for a whole copy.\n" },
        { start + layer + " 62\n", "a.dxf, line 13: the drawing is cut off before the end of its layer table; look for a whole copy.\n" },
        { start + layer + "  0\nENDSEC\n", "a.dxf, line 13: the drawing is damaged: the layer table is not ended where ENDSEC stands; save the drawing anew.\n" },
        { start + layer + "  0\nTABLE\n", "a.dxf, line 13: the drawing is damaged: the layer table is not ended where TABLE stands; save the drawing anew.\n" },
        { start + layer + "  0\nEOF\n", "a.dxf, line 13: the drawing is damaged: the layer table is not ended where EOF stands; save the drawing anew.\n" },
        { start + layer + " 70\nab\n  0\nENDTAB\n  0\nEOF\n", "a.dxf, line 14: the drawing is damaged: group 70 of a layer is \"ab\", which is no number for it" + repair },
        { start + layer + " 62\n7.5\n  0\nENDTAB\n  0\nEOF\n", "a.dxf, line 14: the drawing is damaged: group 62 of a layer is \"7.5\", which is no number for it" + repair },
        { start + "  0\nLAYER\n 62\n7\n  0\nENDTAB\n  0\nEOF\n", "a.dxf, line 11: the drawing is damaged: a layer has no name; repair the record or save the drawing anew.\n" },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        Called const called = CallOn(row.drawing, {});
        EXPECT_EQ(called.status, 1) << row.sentence;
        EXPECT_EQ(called.errors, row.sentence);
    }
}

TEST(LayerEditCall, WhatADrawingOrLayerCannotHoldIsRefusedByName)
{
    struct Row
    {
        std::string version;
        Arguments arguments;
        std::string sentence;
    };
    // clang-format off
    Row const rows[] = {
        { "AC1009", { "LineWeight=0.5" },  "R12 has no LineWeight, nothing was written; save the drawing as R2000 or later." },
        { "AC1014", { "LineWeight=0.5" },  "R14 has no LineWeight, nothing was written; save the drawing as R2000 or later." },
        { "",       { "Plot=1" },          "R12 or older has no Plot, nothing was written; save the drawing as R2000 or later." },
        { "AC2.10", { "Plot=1" },          "AC2.10 has no Plot, nothing was written; save the drawing as R2000 or later." },
        { "AC1006", { "Description=x" },   "R10 has no Description, nothing was written; save the drawing as R12 or later." },
        { "AC1018", { "Frozen=1" },        "the layer \"0\" is the current one and cannot be frozen, nothing was written; take it out by --not, or make another one current." },
        { "AC1018", { "LineType=nix" },    "the line type \"nix\" is not in the drawing, nothing was written; load it there first." },
        { "AC1018", { "LineType=BYLAYER" }, "the line type \"BYLAYER\" is none for a layer, nothing was written; take another one." },
        { "AC1018", { "LineType=ref|dash" }, "the line type \"ref|dash\" is none for a layer, nothing was written; take another one." },
        { "AC1018", { "Plot=1" },          "the layer \"defpoints\" is never plotted, nothing was written; take it out by --not." },
        { "AC1018", { "Description=x" },   "a description needs the application AcAecLayerStandard, which the drawing lacks, nothing was written; --add-appid registers it." },
        { "AC1018", { "Description=" + std::string(256, 'x') }, "the description takes 256 bytes in this drawing, which holds 255, nothing was written; shorten it." },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        MadeDrawing drawing;
        drawing.version = row.version;
        drawing.layers += MadeDrawing::Layer("defpoints", " 62\n5\n");
        drawing.lineTypes += MadeDrawing::LineType("ref|dash", "16");
        for (char const * const output : {"b.dxf", ""})
        {
            Workshop workshop;
            workshop.Put("a.dxf", drawing.Get());
            Arguments arguments = {"a.dxf", "-q", "--all", "--set"};
            arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
            if (*output)
                arguments.insert(arguments.end(), {"-o", output});
            else
                arguments.emplace_back("--in-place");
            Called const called = workshop.Call(arguments);
            EXPECT_EQ(called.status, 4) << row.sentence;
            EXPECT_EQ(called.errors, "a.dxf: " + row.sentence + "\n");
            EXPECT_EQ(workshop.Get("a.dxf"), drawing.Get());
            EXPECT_EQ(workshop.List(), (std::vector<std::string>{"a.dxf"}));
        }
    }
}

TEST(LayerEditCall, AValueThatIsAlreadySoIsNotRefused)
{
    MadeDrawing drawing;
    drawing.layers = MadeDrawing::Layer("0", " 70\n1\n") + MadeDrawing::Layer("Defpoints", "290\n0\n");
    for (Arguments const & arguments : {Arguments{"--all", "-s", "Frozen=1"}, Arguments{"--all", "-s", "Frozen=0"},
                                        Arguments{"--all", "-s", "Plot=0", "--not", "0"},
                                        Arguments{"-l", "0", "-s", "Plot=1"}, Arguments{"--all", "-s", "Description="}})
        EXPECT_EQ(CallOn(drawing.Get(), arguments).status, 0) << arguments.back();
}

TEST(LayerEditCall, NoLayerThatMatchesIsStatusThree)
{
    MadeDrawing drawing;
    for (Arguments const & arguments :
         {Arguments{"-l", "x*"}, Arguments{"--not", "*"}, Arguments{"--where", "Color=1", "--grid"},
          Arguments{"-l", "x", "-s", "On=0", "-n"}})
    {
        Called const called = CallOn(drawing.Get(), arguments);
        EXPECT_EQ(called.status, 3);
        EXPECT_EQ(called.errors,
                  "a.dxf: no layer matches (the drawing has 1); a call without options lists them all.\n");
    }
    drawing.layers.clear();
    EXPECT_EQ(CallOn(drawing.Get(), {}).status, 3);
}

TEST(LayerEditCall, FilesThatCannotBeReadOrWrittenAreStatusOne)
{
    Workshop workshop;
    workshop.Put("a.dxf", MadeDrawing().Get());
    Called const missing = workshop.Call({"nix.dxf"});
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.errors, "nix.dxf: the file cannot be read: The file was not found.\n");
    EXPECT_EQ(workshop.Call({"."}).status, 1);
    EXPECT_EQ(workshop.Call({"/dev/null"}).errors, "/dev/null: this is no regular file; give the name of a drawing.\n");
    Called const nowhere = workshop.Call({"a.dxf", "-q", "--all", "-s", "On=0", "-o", "nix/b.dxf"});
    EXPECT_EQ(nowhere.status, 1);
    EXPECT_EQ(nowhere.errors, "nix/b.dxf: the folder is not there; make it first.\n");
    EXPECT_EQ(workshop.Call({"a.dxf", "-q", "--all", "-s", "On=0", "-o", "/dev/null"}).status, 1);
}

TEST(LayerEditCall, TheHighestOfSeveralStatusesCountsAndTheOthersAreDone)
{
    Workshop workshop;
    MadeDrawing old;
    old.version = "AC1009";
    workshop.Put("old.dxf", old.Get());
    workshop.Put("bad.dxf", "");
    workshop.Put("good.dxf", MadeDrawing().Get());
    Called const called =
        workshop.Call({"bad.dxf", "old.dxf", "good.dxf", "-q", "--all", "-s", "LineWeight=1", "--in-place"});
    EXPECT_EQ(called.status, 4);
    EXPECT_EQ(workshop.Get("old.dxf"), old.Get());
    EXPECT_NE(workshop.Get("good.dxf").find("370\n   100\n"), std::string::npos);
    EXPECT_EQ(workshop.Call({"bad.dxf", "good.dxf", "-q"}).status, 1);
}

} // namespace kr::test
