// What a failure of the C library is called on the platform.
#pragma once

#include <krplatform/base/types.h>

namespace kr::detail
{

/// The platform's code for a value of `errno`; ERROR_GEN_FAILURE for one that has no counterpart.
DWORD CodeOfSystemError(int number);

/// Sets the last error from `errno`.
void SetLastErrorFromSystem();

} // namespace kr::detail
