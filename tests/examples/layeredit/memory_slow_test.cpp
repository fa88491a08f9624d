// The bound that is promised for a very large drawing.
#include "tests/examples/layeredit/large_drawing.h"

#include <gtest/gtest.h>

namespace kr::test
{

TEST(LayerEditMemory, ADrawingOf300MegabytesTakes64AtMost) { CheckLargeDrawing(300'000'000, 64 * 1024); }

} // namespace kr::test
