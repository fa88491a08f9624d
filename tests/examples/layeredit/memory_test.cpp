// The memory that the program takes does not grow with the drawing.
#include "tests/examples/layeredit/large_drawing.h"

#include <gtest/gtest.h>

namespace kr::test
{

TEST(LayerEditMemory, ADrawingIsReadAndWrittenInPieces) { CheckLargeDrawing(40'000'000, 16 * 1024); }

} // namespace kr::test
