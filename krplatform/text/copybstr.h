// Automation text copied as it is.
#pragma once

#include <krplatform/base/types.h>

namespace kr::detail
{

/// A new copy of a text, also of odd bytes; an empty one for null. Null when memory runs out.
BSTR CopyText(BSTR text) noexcept;

} // namespace kr::detail
