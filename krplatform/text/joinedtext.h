// Texts put together from pieces. Internal to the library.
#pragma once

#include <krplatform/export.h>
#include <krplatform/text/cstring.h>

#include <span>

namespace kr::detail
{

/// The pieces as one text, in one block of the right size.
KRPLATFORM_API CString JoinedText(std::span<TextView const> pieces);

} // namespace kr::detail
