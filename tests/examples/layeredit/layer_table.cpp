#include "tests/examples/layeredit/layer_table.h"

namespace kr::test
{

namespace
{

std::string Bare(std::string_view line)
{
    std::size_t const first = line.find_first_not_of(" \t\r\n");
    return first == std::string_view::npos
               ? std::string()
               : std::string(line.substr(first, line.find_last_not_of(" \t\r\n") + 1 - first));
}

} // namespace

std::vector<std::string> LinesOf(std::string_view text)
{
    std::vector<std::string> lines;
    while (!text.empty())
    {
        std::size_t const end = text.find('\n');
        std::size_t const length = end == std::string_view::npos ? text.size() : end + 1;
        lines.emplace_back(text.substr(0, length));
        text.remove_prefix(length);
    }
    return lines;
}

LayerTable SplitDrawing(std::string_view drawing)
{
    std::vector<std::string> const lines = LinesOf(drawing);
    LayerTable table;
    bool isInTable = false, isOver = false;
    for (std::size_t place = 0; place + 1 < lines.size(); place += 2)
    {
        std::string const code = Bare(lines[place]), value = Bare(lines[place + 1]);
        bool const opens = place >= 2 && Bare(lines[place - 2]) == "0" && Bare(lines[place - 1]) == "TABLE";
        if (opens && code == "2" && value == "LAYER")
            isInTable = true;
        else if (isInTable && !isOver && code == "0")
        {
            isOver = value == "ENDTAB";
            if (!isOver)
                table.records.emplace_back();
        }
        std::string & piece = isOver ? table.after : table.records.empty() ? table.before : table.records.back();
        piece += lines[place] + lines[place + 1];
    }
    if (lines.size() % 2)
        table.after += lines.back();
    return table;
}

std::string Join(LayerTable const & table)
{
    std::string drawing = table.before;
    for (std::string const & record : table.records)
        drawing += record;
    return drawing + table.after;
}

Groups GroupsOf(std::string_view record)
{
    std::vector<std::string> const lines = LinesOf(record);
    Groups groups;
    for (std::size_t place = 0; place + 1 < lines.size(); place += 2)
        groups.emplace_back(std::stoi(lines[place]), Bare(lines[place + 1]));
    return groups;
}

} // namespace kr::test
