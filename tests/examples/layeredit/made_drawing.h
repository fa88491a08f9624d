// Drawings made up for tests, from what a test wants to be in them.
#pragma once

#include <string>
#include <vector>

namespace kr::test
{

/// A whole small drawing. Texts are bytes; every group is written as code, line end, value, line end.
struct MadeDrawing
{
    std::string version = "AC1018";     ///< empty: no $ACADVER
    std::string codePage = "ANSI_1252"; ///< empty: no $DWGCODEPAGE
    std::string currentLayer = "0";
    std::string header; ///< further header groups
    std::string lineTypes = LineType("ByLayer") + LineType("Continuous") + LineType("DASHED");
    std::string layers = Layer("0", " 70\n     0\n 62\n     7\n  6\nContinuous\n");
    std::string applications = "  0\nAPPID\n  2\nACAD\n 70\n     0\n";
    std::string entities = "  0\nLINE\n  5\n2F\n  8\n0\n";
    std::string lineEnd = "\n";

    static std::string Layer(std::string const & name, std::string const & groups)
    {
        return "  0\nLAYER\n  5\n10\n100\nAcDbLayerTableRecord\n  2\n" + name + "\n" + groups;
    }
    static std::string LineType(std::string const & name, std::string const & flags = "0")
    {
        return "  0\nLTYPE\n  2\n" + name + "\n 70\n" + flags + "\n";
    }

    std::string Get() const;
};

} // namespace kr::test
