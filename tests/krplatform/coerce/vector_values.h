// Variants as the vector files write them.
#pragma once

#include <krplatform/automation/variant.h>

#include <string>
#include <string_view>

namespace kr::test
{

/// The tag of a type's name: `I4`, `BSTR`, `ARRAY_UI1`, `VT15`. An unknown name fails the test.
VARTYPE TagOf(std::string_view name);

/// The value of a source field, owned by the caller.
VARIANT MakeValue(std::string_view type, std::string const & field);

/// How a result field writes the value: numbers with their bits, text with its escapes.
std::string Show(VARIANT const & value);

/// Whether a result field says that value. A day of the running year, written `Y:MM-DD hh:mm:ss`, and a date that is
/// noted as approximate agree to a fraction of a second.
bool Says(std::string const & field, bool isApproximate, VARIANT const & value);

} // namespace kr::test
