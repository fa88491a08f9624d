// The message box at start, which each system shows in its way.
#pragma once

#include <krplatform/base/types.h>

namespace kr::detail
{

/// Shows `text` and returns the answer.
int ShowMessageBox(WCHAR const * text, unsigned int style, unsigned int helpContext);

} // namespace kr::detail
