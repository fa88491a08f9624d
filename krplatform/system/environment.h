// The environment of the process.
#pragma once

#include <krplatform/base/types.h>
#include <krplatform/export.h>

#include <cstddef>

/// A new copy of the variable's value in `*buffer`, made by `malloc` and owned by the caller, who frees it with `free`;
/// its units, the zero included, in `*count` (which may be null). Null and 0 if the variable is not set. Names and
/// values are UTF-8 in the environment; what is not becomes U+FFFD. Returns 0, EINVAL for a null buffer or name, or
/// ENOMEM.
KRPLATFORM_API int _wdupenv_s(WCHAR ** buffer, std::size_t * count, WCHAR const * name);
