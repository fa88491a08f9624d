// Drawings of any size, and what the program needs for them.
#pragma once

#include <cstddef>
#include <filesystem>

namespace kr::test
{

/// Writes a drawing of at least that size, piece by piece.
void WriteLargeDrawing(std::filesystem::path const & path, std::size_t bytes);

/// Changes the colour of all layers of such a drawing, in its own place. Fails unless the program takes less memory than that, and unless
/// the drawing differs from what it was by the one digit of each layer.
void CheckLargeDrawing(std::size_t bytes, long kilobytes);

} // namespace kr::test
