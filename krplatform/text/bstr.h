// Allocation of automation text.
#pragma once

#include <krplatform/base/types.h>
#include <krplatform/export.h>

/// A new copy of `text`, which the caller frees with `SysFreeString`. Null for a null `text` and when memory runs out.
KRPLATFORM_API BSTR SysAllocString(OLECHAR const * text);

/// The same with a stated number of units; zeros inside are kept. A null `text` leaves the units unset.
KRPLATFORM_API BSTR SysAllocStringLen(OLECHAR const * text, UINT length);

/// The same for bytes; the number may be odd. A zero unit follows the bytes in any case.
KRPLATFORM_API BSTR SysAllocStringByteLen(char const * bytes, UINT length);

/// Replaces `*text` by a copy of `source`, which may lie inside the old text. False when memory runs out; the old text
/// stays.
KRPLATFORM_API bool SysReAllocString(BSTR * text, OLECHAR const * source);
KRPLATFORM_API bool SysReAllocStringLen(BSTR * text, OLECHAR const * source, UINT length);

/// Frees the text. Null is allowed.
KRPLATFORM_API void SysFreeString(BSTR text);

/// The length in units; 0 for null.
KRPLATFORM_API UINT SysStringLen(BSTR text);

/// The length in bytes; 0 for null.
KRPLATFORM_API UINT SysStringByteLen(BSTR text);
