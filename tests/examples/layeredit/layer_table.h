// The layer table of a drawing, found the slow and obvious way: line by line.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kr::test
{

/// A drawing in pieces, which make the drawing when they are put together.
struct LayerTable
{
    std::string before; ///< up to the first LAYER record
    std::vector<std::string> records;
    std::string after; ///< from ENDTAB on
};

LayerTable SplitDrawing(std::string_view drawing);
std::string Join(LayerTable const & table);

/// Code and value of each group of a record, blanks around them cut off.
using Groups = std::vector<std::pair<int, std::string>>;
Groups GroupsOf(std::string_view record);

/// The lines with their ends.
std::vector<std::string> LinesOf(std::string_view text);

} // namespace kr::test
