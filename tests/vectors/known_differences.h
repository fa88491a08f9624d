// Rows of the vector files that are knowingly answered otherwise, each with its reason. Every test of a vector file asks
// here, and nowhere else.
#pragma once

#include "tests/support/vectors.h"

#include <string_view>
#include <vector>

namespace kr::test
{

struct KnownDifference
{
    std::string_view file;
    std::string_view row; ///< how `VectorRow::ToString` of it begins
    std::string_view reason;
};

/// There are none.
inline std::vector<KnownDifference> const knownDifferences = {};

inline bool IsKnownDifference(std::string_view file, VectorRow const & row)
{
    for (KnownDifference const & difference : knownDifferences)
    {
        if (difference.file == file && row.ToString().starts_with(difference.row))
            return true;
    }
    return false;
}

/// Whether a row has to be answered as it stands: it is neither doubtful nor in the list above.
inline bool IsBinding(std::string_view file, VectorRow const & row)
{
    return !row.IsDoubtful() && !IsKnownDifference(file, row);
}

} // namespace kr::test
