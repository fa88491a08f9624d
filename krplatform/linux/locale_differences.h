// Where the platform's own facts of a locale differ from the collection's.
#pragma once

#include <krplatform/coerce/locale_facts.h>

#include <string_view>

namespace kr::detail
{

/// Replaces what the platform writes otherwise in that language and territory (two or three letters each, as ICU has
/// them). Nothing happens for others.
void ApplyPlatformDifferences(std::string_view language, std::string_view territory, LocaleFacts & facts);

} // namespace kr::detail
