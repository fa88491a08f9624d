// The environment of the process.
#pragma once

#include <krplatform/base/types.h>
#include <krplatform/export.h>

#include <cstddef>

/// A new copy of the variable's value in `*buffer`, made by `malloc` and owned by the caller, with its units, the zero
/// included, in `*count` (which may be null). Null and 0 if it is not set. 0, EINVAL for null arguments, ENOMEM.
KRPLATFORM_API int _wdupenv_s(WCHAR ** buffer, std::size_t * count, WCHAR const * name);
