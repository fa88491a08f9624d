// How many allocations an operation makes.
#pragma once

#include <cstddef>

namespace kr::bench
{

/// The allocations by `operator new` that this program has made so far. A peer that takes its memory elsewhere is not seen.
std::size_t CountAllocations() noexcept;

} // namespace kr::bench
