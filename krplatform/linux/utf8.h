// Text as the UTF-8 bytes that the system takes and gives.
#pragma once

#include <krplatform/base/wchar.h>

#include <optional>
#include <string>
#include <string_view>

namespace kr::detail
{

/// Nothing for text with a lone surrogate. Throws `std::bad_alloc` when memory runs out.
std::optional<std::string> ToExactUtf8(TextView text);

/// Bytes that are not UTF-8 become U+FFFD. Throws `std::bad_alloc` when memory runs out.
std::basic_string<WCHAR> FromUtf8(std::string_view bytes);

} // namespace kr::detail
