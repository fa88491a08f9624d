// The work on one drawing.
#pragma once

#include "layer_list.h"
#include "messages.h"
#include "options.h"

namespace layeredit
{

/// Does what the options ask for with one drawing: lists it, shows it as a grid, or changes it. Messages go to standard error, changes
/// and failures to the trace. The exit status of this drawing.
ExitStatus WorkOn(CString const & title, Options const & options, LayerList & list);

} // namespace layeredit
