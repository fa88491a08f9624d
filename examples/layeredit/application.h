// Registering the application that a description needs.
#pragma once

#include "drawing_file.h"

namespace layeredit
{

/// Adds the patches that register the application of descriptions: its record, the table's count, and where the drawing has handles,
/// the next free one. False, with an error on the stack, where the drawing has no place for it.
bool RegisterApplication(Drawing const & drawing, std::vector<Patch> & patches);

} // namespace layeredit
