#include "tests/examples/layeredit/made_drawing.h"

namespace kr::test
{

namespace
{

std::string Variable(std::string const & name, std::string const & code, std::string const & value)
{
    return value.empty() ? std::string() : "  9\n" + name + "\n" + code + "\n" + value + "\n";
}

std::string Table(std::string const & name, std::string const & records)
{
    return "  0\nTABLE\n  2\n" + name + "\n  5\nA\n 70\n     1\n" + records + "  0\nENDTAB\n";
}

std::string Section(std::string const & name, std::string const & content)
{
    return "  0\nSECTION\n  2\n" + name + "\n" + content + "  0\nENDSEC\n";
}

std::string WithLineEnds(std::string const & text, std::string const & lineEnd)
{
    std::string result;
    for (char const byte : text)
        result += byte == '\n' ? lineEnd : std::string(1, byte);
    return result;
}

} // namespace

std::string MadeDrawing::Get() const
{
    std::string const tables = Table("LTYPE", lineTypes) + Table("LAYER", layers) +
                               (applications.empty() ? std::string() : Table("APPID", applications));
    std::string const variables = Variable("$ACADVER", "  1", version) + Variable("$DWGCODEPAGE", "  3", codePage) +
                                  Variable("$CLAYER", "  8", currentLayer) + header;
    return WithLineEnds(Section("HEADER", variables) + Section("TABLES", tables) + Section("ENTITIES", entities) +
                            "  0\nEOF\n",
                        lineEnd);
}

} // namespace kr::test
