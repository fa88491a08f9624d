// Drawings that are built in other ways than usual, and are sound all the same.
#include "tests/examples/layeredit/call.h"
#include "tests/examples/layeredit/layer_table.h"
#include "tests/examples/layeredit/made_drawing.h"

#include <gtest/gtest.h>

namespace kr::test
{

namespace
{

std::string const s_layers =
    "  0\nSECTION\n  2\nTABLES\n  0\nTABLE\n  2\nLAYER\n  0\nLAYER\n  2\n\\U+0041\xDC\n 62\n7\n"
    "  0\nENDTAB\n  0\nENDSEC\n";
std::string const s_header = "  0\nSECTION\n  2\nHEADER\n  9\n$DWGCODEPAGE\n  3\nANSI_1253\n  9\n$CLAYER\n  8\nA\xDC\n"
                             "  9\n$PUCSNAME\n  2\nLAYER\n  0\nENDSEC\n";
std::string const s_end = "  0\nEOF\n";

std::string Replaced(std::string text, std::string const & old, std::string const & other)
{
    for (std::size_t place = 0; (place = text.find(old, place)) != std::string::npos; place += other.size())
        text.replace(place, old.size(), other);
    return text;
}

/// Sets the colour of the only layer, whose 62 is 7, and looks at what is listed and written.
void CheckEdit(std::string const & drawing, std::string const & listedName)
{
    Workshop workshop;
    workshop.Put("a.dxf", drawing);
    Called const called = workshop.Call({"a.dxf", "--all", "-s", "Color=3", "--in-place"});
    EXPECT_EQ(called.status, 0) << called.errors;
    std::size_t const color = drawing.find("7", drawing.find("62\n"));
    EXPECT_EQ(workshop.Get("a.dxf"), std::string(drawing).replace(color, 1, "3"));
    std::vector<std::string> const lines = LinesOf(workshop.LayersOf("a.dxf"));
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[1].substr(0, lines[1].find('\t')), listedName);
}

} // namespace

TEST(LayerEditStructure, SectionsMayBeMissingAndStandInAnyOrder)
{
    CheckEdit(s_layers + s_end, "A\u00DC");
    CheckEdit(s_header + s_layers + s_end, "A\u03AC");
    CheckEdit(s_layers + s_header + s_end, "A\u03AC"); // the code page is known behind the names
    CheckEdit("999\na comment\n" + s_header + "999\nanother\n" + s_layers + s_end, "A\u03AC");
    std::string const blocks =
        "  0\nSECTION\n  2\nBLOCKS\n  0\nTABLE\n  2\nLAYER\n  0\nLAYER\n  2\nno layer\n  0\nENDSEC\n";
    CheckEdit(s_layers + blocks + s_end, "A\u00DC");
    CheckEdit(blocks + s_layers + s_end, "A\u00DC");
}

TEST(LayerEditStructure, BlanksAroundCodesAndWordsDoNotCount)
{
    CheckEdit(Replaced(s_layers, "LAYER\n", " LAYER \n") + s_end, "A\u00DC");
    CheckEdit(Replaced(Replaced(s_layers, "TABLES\n", "TABLES \n"), "ENDTAB", "\tENDTAB ") + " 0 \n EOF \n", "A\u00DC");
    CheckEdit(Replaced(s_layers, "  2\n", "2\n") + "0\nEOF", "A\u00DC");
    CheckEdit(Replaced(s_header, "$", " $") + s_layers + s_end, "A\u03AC");
}

TEST(LayerEditStructure, TablesStandInAnyOrderAndWithHeadsOfAnyLength)
{
    MadeDrawing drawing;
    drawing.lineTypes.clear();
    drawing.layers = MadeDrawing::Layer("A", "  6\ncontinuous\n 62\n7\n");
    std::string text = drawing.Get();
    std::string const lineTypes = "  0\nTABLE\n  2\nLTYPE\n 70\n1\n  0\nLTYPE\n  2\nContinuous\n  0\nENDTAB\n";
    text.insert(text.rfind("  0\nENDSEC\n  0\nSECTION"), lineTypes);
    text = Replaced(text, "  2\nLAYER\n",
                    "  2\nLAYER\n102\n{ACAD_XDICTIONARY\n360\n18E\n102\n}\n330\n0\n100\nAcDbSymbolTable\n");
    Workshop workshop;
    workshop.Put("a.dxf", text);
    EXPECT_EQ(LinesOf(workshop.LayersOf("a.dxf")).at(1), "A\t7\tContinuous\tdefault\t1\t1\t0\t0\t\n");
    EXPECT_EQ(workshop.Call({"a.dxf", "-q", "--all", "-s", "LineType=CONTINUOUS", "-n"}).output, "");
}

TEST(LayerEditStructure, ManyLayersAreManyLayers)
{
    Workshop workshop;
    MadeDrawing drawing;
    drawing.layers.clear();
    for (int layer = 0; layer < 257; ++layer)
        drawing.layers += MadeDrawing::Layer("L" + std::to_string(layer), " 62\n7\n");
    workshop.Put("a.dxf", drawing.Get());
    Called const called = workshop.Call({"a.dxf", "-l", "L?5*", "-s", "Color=3", "--in-place"});
    EXPECT_EQ(LinesOf(called.errors).back(), "a.dxf: 26 of 257 layers changed\n"); // 15 to 95, 150 to 159, 250 to 256
    EXPECT_EQ(LinesOf(workshop.Call({"a.dxf", "-q", "--where", "Color=3"}).output).size(), 27u);
}

} // namespace kr::test
