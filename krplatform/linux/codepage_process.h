// The code page of the process.
#pragma once

#include <krplatform/base/types.h>

namespace kr::detail
{

/// The code page of the user's locale. A change of the environment takes effect at the next call. Any thread may call.
UINT ProcessCodePage();

} // namespace kr::detail
