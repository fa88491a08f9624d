// What becomes of a LAYER record: places of new groups, styles of numbers, what is dropped, what is never touched.
#include "tests/examples/layeredit/call.h"
#include "tests/examples/layeredit/layer_table.h"
#include "tests/examples/layeredit/made_drawing.h"

#include <gtest/gtest.h>

namespace kr::test
{

namespace
{

using Arguments = std::vector<std::string>;

/// The bytes of the only record, less the group 0, after the values are set.
std::string After(MadeDrawing const & drawing, Arguments const & values)
{
    Workshop workshop;
    workshop.Put("a.dxf", drawing.Get());
    Arguments arguments = {"a.dxf", "--all", "-o", "b.dxf"};
    for (std::string const & value : values)
        arguments.insert(arguments.end(), {"-s", value});
    Called const called = workshop.Call(arguments);
    EXPECT_EQ(called.status, 0) << called.errors;
    LayerTable const before = SplitDrawing(drawing.Get()), after = SplitDrawing(workshop.Get("b.dxf"));
    EXPECT_EQ(before.before + before.after, after.before + after.after);
    std::string const record = after.records.at(0);
    return record.substr(record.find("LAYER") + 5 + drawing.lineEnd.size());
}

std::string RecordAfter(std::string const & groups, Arguments const & values, std::string const & version = "AC1018")
{
    MadeDrawing drawing;
    drawing.version = version;
    drawing.layers = "  0\nLAYER\n" + groups;
    drawing.applications += "  0\nAPPID\n  2\nAcAecLayerStandard\n 70\n     0\n";
    return After(drawing, values);
}

} // namespace

TEST(LayerEditRecord, ANewGroupGoesBehindItsNearestNeighbourAndNeverIntoAListOrBehindExtendedData)
{
    std::string const list = "102\n{ACAD_XDICTIONARY\n 62\n7\n102\n}\n";
    std::string const data = "1001\nACAD\n 1071\n0\n";
    // clang-format off
    struct { std::string groups; Arguments values; std::string expected; } const rows[] = {
        { "  2\nA\n", { "Color=3" },                     "  2\nA\n 62\n3\n"                                  },
        { "  2\nA\n", { "Frozen=1" },                    "  2\nA\n 70\n1\n"                                  },
        { "  2\nA\n", { "LineWeight=0.5", "Plot=0" },    "  2\nA\n290\n0\n370\n50\n"                         },
        { "  2\nA\n" + data, { "LineType=DASHED" },      "  2\nA\n  6\nDASHED\n" + data                      },
        { "  2\nA\n 70\n0\n390\nF\n" + data, { "LineWeight=0.5" }, "  2\nA\n 70\n0\n370\n50\n390\nF\n" + data },
        { "  2\nA\n 70\n0\n 62\n7\n  6\nContinuous\n390\nF\n", { "Color=#0000ff" },
          "  2\nA\n 70\n0\n 62\n5\n420\n255\n  6\nContinuous\n390\nF\n" },
        { list + "  2\nA\n" + data, { "Color=3" },       list + "  2\nA\n 62\n3\n" + data                    },
        { "  2\nA\n" + list + data, { "Color=3" },       "  2\nA\n 62\n3\n" + list + data                    },
        { " 62\n7\n  6\nContinuous\n 70\n0\n  2\nA\n", { "Color=#0000ff" },  // in an order of its own
          " 62\n5\n420\n255\n  6\nContinuous\n 70\n0\n  2\nA\n" },
        { "  2\nA\n999\nkept\n 62\n7\n", { "Color=3" },  "  2\nA\n999\nkept\n 62\n3\n"                        },
        { "  2\nA\n", { "Description=x" },               "  2\nA\n1001\nAcAecLayerStandard\n1000\n\n1000\nx\n" },
        { "  2\nA\n" + data, { "Description=x" },        "  2\nA\n" + data + "1001\nAcAecLayerStandard\n1000\n\n1000\nx\n" },
        { "  2\nA\n1001\nACAECLAYERSTANDARD\n1000\nu\n1000\nv\n1000\nw\n", { "Description=x" },
          "  2\nA\n1001\nACAECLAYERSTANDARD\n1000\nu\n1000\nx\n1000\nw\n" },
        { "  2\nA\n1001\nAcAecLayerStandard\n1000\nu\n" + data, { "Description=x" },
          "  2\nA\n1001\nAcAecLayerStandard\n1000\nu\n1000\nx\n" + data },
        { "  2\nA\n1001\nAcAecLayerStandard\n" + data, { "Description=x" },
          "  2\nA\n1001\nAcAecLayerStandard\n1000\n\n1000\nx\n" + data },
        { "  2\nA\n" + data + "1001\nAcAecLayerStandard\n1000\n\n1000\nold\n", { "Description=" },
          "  2\nA\n" + data + "1001\nAcAecLayerStandard\n1000\n\n1000\n\n" },
    };
    // clang-format on
    for (auto const & row : rows)
        EXPECT_EQ(RecordAfter(row.groups, row.values), row.expected);
}

TEST(LayerEditRecord, AColourByIndexDropsTrueColourAndBookAndTheSignStays)
{
    std::string const start = "  2\nA\n 70\n0\n";
    // clang-format off
    struct { std::string groups; Arguments values; std::string expected; } const rows[] = {
        { " 62\n-7\n",                                  { "Color=3" },            " 62\n-3\n"              },
        { " 62\n150\n420\n1151726\n",                   { "Color=150" },          " 62\n150\n"             },
        { " 62\n-30\n420\n16564615\n430\nPANTONE$1\n",  { "Color=3" },            " 62\n-3\n"              },
        { " 62\n-30\n420\n16564615\n430\nPANTONE$1\n",  { "Color=#ff0000" },      " 62\n-1\n420\n16711680\n" },
        { " 62\n7\n",                                   { "Color=RGB(0, 0,255)" }, " 62\n5\n420\n255\n"     },
        { " 62\n7\n",                                   { "On=0" },               " 62\n-7\n"              },
        { " 62\n-7\n",                                  { "On=yes" },             " 62\n7\n"               },
        { " 62\n-7\n",                                  { "On=1", "Color=3" },    " 62\n3\n"               },
        { "",                                           { "On=0" },               " 62\n-7\n"              },
        { " 62\n0\n",                                   { "On=0" },               " 62\n-7\n"              },
        { " 62\n-7\n420\n255\n",                        { "On=1" },               " 62\n7\n420\n255\n"     },
    };
    // clang-format on
    for (auto const & row : rows)
        EXPECT_EQ(RecordAfter(start + row.groups, row.values), start + row.expected) << row.groups;
    EXPECT_EQ(RecordAfter(start + " 62\n7\n420\n1\n", {"Color=#ff0000"}, "AC1015"),
              start + " 62\n1\n"); // not held there
}

TEST(LayerEditRecord, OnlyTheBitsForFrozenAndLockedChange)
{
    // clang-format off
    struct { int before; char const * value; int after; } const rows[] = {
        { 0,  "Frozen=1", 1  }, { 66, "Frozen=1", 67 }, { 67, "Frozen=0", 66 }, { 2,  "Locked=1", 6  },
        { 70, "Locked=0", 66 }, { 5,  "Locked=0", 1  }, { 64, "Frozen=0", 64 },
    };
    // clang-format on
    for (auto const & row : rows)
        EXPECT_EQ(RecordAfter("  2\nA\n 70\n" + std::to_string(row.before) + "\n", {row.value}),
                  "  2\nA\n 70\n" + std::to_string(row.after) + "\n");
}

TEST(LayerEditRecord, NumbersKeepTheStyleOfTheRecord)
{
    // clang-format off
    struct { std::string groups; Arguments values; std::string expected; } const rows[] = {
        // right-justified in six columns, and nine for what is longer
        { "  2\nA\n 70\n     0\n 62\n     7\n", { "Color=#102030", "LineWeight=0.5", "Locked=1", "Plot=0" },
          "  2\nA\n 70\n     4\n 62\n   158\n420\n  1056816\n290\n     0\n370\n    50\n" },
        { "  2\nA\n 62\n     7\n", { "On=0" },            "  2\nA\n 62\n    -7\n" },
        { "  2\nA\n370\n    -3\n", { "LineWeight=2.11" }, "  2\nA\n370\n   211\n" },
        { "2\nA\n70\n0\n62\n7\n",  { "Plot=0", "Color=3" }, "2\nA\n70\n0\n62\n3\n290\n0\n" }, // without any blanks
        { "2\nA\n70\n0\n",         { "Color=3" },         "2\nA\n70\n0\n62\n3\n"  },
        { "  2\nA\n 70\n0\n",      { "LineType=dashed" }, "  2\nA\n 70\n0\n  6\nDASHED\n" },
        { "\t2\nA\n 62 \n 7 \n",   { "Color=123" },       "\t2\nA\n 62 \n123\n"   }, // the code line stays in any case
    };
    // clang-format on
    for (auto const & row : rows)
        EXPECT_EQ(RecordAfter(row.groups, row.values), row.expected);
}

TEST(LayerEditRecord, LineEndsStayEachAsItIs)
{
    MadeDrawing drawing;
    drawing.lineEnd = "\r\n";
    drawing.layers = "  0\nLAYER\n  2\nA\n 70\n     0\n";
    EXPECT_EQ(After(drawing, {"Color=3", "Locked=1"}), "  2\r\nA\r\n 70\r\n     4\r\n 62\r\n     3\r\n");

    MadeDrawing mixed;
    mixed.layers = "  0\nLAYER\n  2\nA\r\n 62\r\n7\n 70\n0\r\n";
    EXPECT_EQ(After(mixed, {"Color=3", "Locked=1"}), "  2\nA\r\n 62\r\n3\n 70\n4\r\n");
}

TEST(LayerEditRecord, LineWeightsGoToTheNextOfThe24WithANote)
{
    // clang-format off
    struct { char const * given; char const * written; char const * note; } const rows[] = {
        { "0",       "0",   nullptr }, { "0.05", "5",   nullptr }, { "0.29",  "30", "0.29 is none of the 24 line weights; 0.30 is taken" },
        { "0.33",    "35",  "0.33 is none of the 24 line weights; 0.35 is taken" },
        { "0.5",     "50",  nullptr }, { "0.501", "50", "0.501 is none of the 24 line weights; 0.50 is taken" },
        { "0.51",    "53",  "0.51 is none of the 24 line weights; 0.53 is taken" },
        { "2.11",    "211", nullptr }, { "2.01", "211", "2.01 is none of the 24 line weights; 2.11 is taken" },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        Workshop workshop;
        MadeDrawing drawing;
        drawing.layers = MadeDrawing::Layer("A", "370\n-3\n");
        workshop.Put("a.dxf", drawing.Get());
        Called const called =
            workshop.Call({"a.dxf", "--all", "-s", std::string("LineWeight=") + row.given, "-o", "b.dxf"});
        EXPECT_EQ(GroupsOf(SplitDrawing(workshop.Get("b.dxf")).records.at(0)).back().second, row.written);
        std::string const note = row.note ? std::string("a.dxf: note: ") + row.note + ".\n" : "";
        EXPECT_EQ(called.errors,
                  "a.dxf: R2004, ANSI_1252, 1 layer, current layer \"0\"\n" + note + "a.dxf: 1 of 1 layer changed\n");
    }
}

TEST(LayerEditRecord, WhatIsAbsentReadsAsTheFormatSays)
{
    Workshop workshop;
    MadeDrawing drawing;
    drawing.layers = MadeDrawing::Layer("bare", "") + MadeDrawing::Layer("DEFPOINTS", "290\n1\n") +
                     MadeDrawing::Layer("by", "370\n-1\n 62\n256\n") +
                     MadeDrawing::Layer("block", "370\n-2\n 62\n0\n") +
                     MadeDrawing::Layer("odd", "370\n33\n  6\ncontinuous\n420\n-1023410176\n") +
                     MadeDrawing::Layer("bare", " 62\n -9 \n 70\n  71\n");
    workshop.Put("a.dxf", drawing.Get());
    EXPECT_EQ(workshop.LayersOf("a.dxf"), "Name\tColor\tLineType\tLineWeight\tPlot\tOn\tFrozen\tLocked\tDescription\n"
                                          "bare\t7\tContinuous\tdefault\t1\t1\t0\t0\t\n"
                                          "DEFPOINTS\t7\tContinuous\tdefault\t0\t1\t0\t0\t\n"
                                          "by\t7\tContinuous\tdefault\t1\t1\t0\t0\t\n"
                                          "block\t7\tContinuous\tdefault\t1\t1\t0\t0\t\n"
                                          "odd\t#000000\tContinuous\t0.33\t1\t1\t0\t0\t\n"
                                          "bare\t9\tContinuous\tdefault\t1\t0\t1\t1\t\n"); // a name may stand twice
    EXPECT_EQ(LinesOf(workshop.Call({"a.dxf", "-q", "--where", "LineWeight=0.33"}).output).size(), 2u);
}

} // namespace kr::test
