// The list in its three forms, the grid, and what a terminal gets beside them.
#include "tests/examples/layeredit/call.h"
#include "tests/examples/layeredit/layer_table.h"
#include "tests/examples/layeredit/made_drawing.h"

#include <gtest/gtest.h>

namespace kr::test
{

namespace
{

using Arguments = std::vector<std::string>;

MadeDrawing Drawing()
{
    MadeDrawing drawing;
    drawing.version = "AC1021";
    drawing.lineTypes += MadeDrawing::LineType("Hidden");
    drawing.layers =
        MadeDrawing::Layer("0", " 62\n-7\n") +
        MadeDrawing::Layer("\u8868\u00FC", " 62\n5\n420\n1151726\n370\n35\n  6\nHIDDEN\n 70\n5\n290\n0\n") +
        MadeDrawing::Layer("a\"b\\c\\U+001B", " 62\n7\n1001\nAcAecLayerStandard\n1000\n\n1000\none^Jtwo\n");
    return drawing;
}

std::string OutputOf(Arguments arguments)
{
    Workshop workshop;
    workshop.Put("a.dxf", Drawing().Get());
    workshop.Put("empty.dxf", "");
    arguments.emplace_back("-q");
    return workshop.Call(arguments).output;
}

} // namespace

TEST(LayerEditOutput, ATableHasOneLineALayerInColumnsAsWideAsTheyLook)
{
    EXPECT_EQ(OutputOf({"a.dxf"}), "Name     Color    LineType    LineWeight  Plot  On   Frozen  Locked  Description\n"
                                   "0        7        Continuous  default     yes   no   no      no\n"
                                   "\u8868\u00FC      #1192ee  Hidden      0.35        no    yes  yes     yes\n"
                                   "a\"b\\c^[  7        Continuous  default     yes   yes  no      no      one^Jtwo\n");
}

TEST(LayerEditOutput, TabSeparatedValuesHaveOneLineOfTitlesForAllDrawings)
{
    std::string const titles = "Name\tColor\tLineType\tLineWeight\tPlot\tOn\tFrozen\tLocked\tDescription\n";
    std::string const rows = "0\t7\tContinuous\tdefault\t1\t0\t0\t0\t\n"
                             "\u8868\u00FC\t#1192ee\tHidden\t0.35\t0\t1\t1\t1\t\n"
                             "a\"b\\c^[\t7\tContinuous\tdefault\t1\t1\t0\t0\tone^Jtwo\n";
    EXPECT_EQ(OutputOf({"a.dxf", "--format", "tsv"}), titles + rows);
    EXPECT_EQ(OutputOf({"a.dxf", "empty.dxf", "a.dxf", "--format", "tsv"}), titles + rows + rows);
    EXPECT_EQ(OutputOf({"empty.dxf", "--format", "tsv"}), titles);
}

TEST(LayerEditOutput, JsonIsOneArrayOfObjectsForAllDrawings)
{
    std::string const rows =
        "  {\"Name\": \"0\", \"Color\": \"7\", \"LineType\": \"Continuous\", \"LineWeight\": \"default\", \"Plot\": "
        "true, "
        "\"On\": false, \"Frozen\": false, \"Locked\": false, \"Description\": \"\"},\n"
        "  {\"Name\": \"\u8868\u00FC\", \"Color\": \"#1192ee\", \"LineType\": \"Hidden\", \"LineWeight\": \"0.35\", "
        "\"Plot\": "
        "false, \"On\": true, \"Frozen\": true, \"Locked\": true, \"Description\": \"\"},\n"
        "  {\"Name\": \"a\\\"b\\\\c\\u001b\", \"Color\": \"7\", \"LineType\": \"Continuous\", \"LineWeight\": "
        "\"default\", "
        "\"Plot\": true, \"On\": true, \"Frozen\": false, \"Locked\": false, \"Description\": \"one\\u000atwo\"}";
    EXPECT_EQ(OutputOf({"a.dxf", "--format", "json"}), "[\n" + rows + "\n]\n");
    EXPECT_EQ(OutputOf({"a.dxf", "empty.dxf", "a.dxf", "--format", "json"}), "[\n" + rows + ",\n" + rows + "\n]\n");
    EXPECT_EQ(OutputOf({"empty.dxf", "--format", "json"}), "[]\n");
}

TEST(LayerEditOutput, AGridShowsCategoriesControlsAndWhatDiffersWithCounts)
{
    EXPECT_EQ(OutputOf({"a.dxf", "--grid"}), "[Layer]\n"
                                             "  Name        eEditCtrl   *varied*\n"
                                             "                            0 (1)\n"
                                             "                            \u8868\u00FC (1)\n"
                                             "                            a\"b\\c^[ (1)\n"
                                             "[Appearance]\n"
                                             "  Color       eColorCtrl  *varied*\n"
                                             "                            7 (2)\n"
                                             "                            #1192ee (1)\n"
                                             "  LineType    eComboCtrl  *varied*\n"
                                             "                            Continuous (2)\n"
                                             "                            Hidden (1)\n"
                                             "  LineWeight  eComboCtrl  *varied*\n"
                                             "                            default (2)\n"
                                             "                            0.35 (1)\n"
                                             "[State]\n"
                                             "  Plot        eCheckCtrl  *varied*\n"
                                             "                            yes (2)\n"
                                             "                            no (1)\n"
                                             "  On          eCheckCtrl  *varied*\n"
                                             "                            no (1)\n"
                                             "                            yes (2)\n"
                                             "  Frozen      eCheckCtrl  *varied*\n"
                                             "                            no (2)\n"
                                             "                            yes (1)\n"
                                             "  Locked      eCheckCtrl  *varied*\n"
                                             "                            no (2)\n"
                                             "                            yes (1)\n"
                                             "[Remarks]\n"
                                             "  Description eMemoCtrl   *varied*\n"
                                             "                            \"\" (2)\n"
                                             "                            one^Jtwo (1)\n");
    std::string const one = OutputOf({"a.dxf", "--grid", "--where", "Color=#1192EE", "--where", "plot=no"});
    EXPECT_NE(one.find("  LineWeight  eComboCtrl  0.35\n"), std::string::npos) << one;
    EXPECT_EQ(one.find("*varied*"), std::string::npos);
}

TEST(LayerEditOutput, WhereComparesValuesAndNotTexts)
{
    // clang-format off
    struct { char const * where; std::size_t layers; } const rows[] = {
        { "Color=7", 2 },           { "color=rgb(17, 146, 238)", 1 }, { "Color=5", 0 },  { "LineType=hidden", 1 },
        { "LineWeight=default", 2 }, { "LineWeight=0.35", 1 },        { "LineWeight=0.34", 0 }, { "On=no", 1 },
        { "Frozen=1", 1 },          { "Locked=0", 2 },                { "Name=0", 1 },   { "Description=ONE\ntwo", 1 },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        std::vector<std::string> const lines = LinesOf(OutputOf({"a.dxf", "--where", row.where}));
        EXPECT_EQ(lines.size(), row.layers == 0 ? 0 : row.layers + 1) << row.where;
    }
}

TEST(LayerEditOutput, ATerminalGetsSwatchesUnlessItWantsNone)
{
    Workshop workshop;
    workshop.Put("a.dxf", Drawing().Get());
    if (workshop.Run({"script", "-qec", "true", "/dev/null"}).status != 0)
        GTEST_SKIP() << "there are no terminals to be had here";
    Arguments const command = {"script", "-qec", KR_LAYEREDIT_PROGRAM " a.dxf -q", "/dev/null"};
    std::string const colored = workshop.Run(command, {{"TERM", "xterm"}, {"NO_COLOR", ""}}).output;
    EXPECT_NE(colored.find("\x1B[48;2;17;146;238m  \x1B[0m #1192ee"), std::string::npos) << colored;
    EXPECT_EQ(workshop.Run(command, {{"TERM", "dumb"}, {"NO_COLOR", ""}}).output.find('\x1B'), std::string::npos);
    EXPECT_EQ(workshop.Run(command, {{"TERM", "xterm"}, {"NO_COLOR", "1"}}).output.find('\x1B'), std::string::npos);
    EXPECT_EQ(OutputOf({"a.dxf"}).find('\x1B'), std::string::npos);
}

} // namespace kr::test
