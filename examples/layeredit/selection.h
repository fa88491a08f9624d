// Which layers are meant.
#pragma once

#include "options.h"

#include <krcore/property/krpropertyset.h>

namespace layeredit
{

/// Whether the whole text fits a pattern of `*` (any text) and `?` (one character), in any case.
bool MatchesPattern(CString const & text, CString const & pattern);

/// Whether the options select the layer; without patterns they select all.
bool IsSelected(Options const & options, CKrPropertySet const & layer);

} // namespace layeredit
