// The simple case mapping of Unicode, one code unit to one code unit, in all scripts and without a locale.
#pragma once

#include <krplatform/base/types.h>
#include <krplatform/export.h>

namespace kr::detail
{

/// Units without a counterpart of one unit (among them the micro sign, sharp s, dotless i, long s, final sigma and the
/// title-case digraphs) stay as they are. Halves of surrogate pairs stay as well.
KRPLATFORM_API WCHAR UpperCase(WCHAR unit) noexcept;
KRPLATFORM_API WCHAR LowerCase(WCHAR unit) noexcept;

/// White space in the sense of the platform's runtime.
KRPLATFORM_API bool IsSpace(WCHAR unit) noexcept;

} // namespace kr::detail
