// Text to amounts.
#pragma once

#include <krplatform/base/hresult.h>
#include <krplatform/coerce/locale_facts.h>

namespace kr::detail
{

/// Reads a number of the locale exactly, as a count of ten-thousandths, and rounds half to even. Other text is a type
/// mismatch; what 64 bits cannot hold overflows.
HRESULT ParseAmount(TextView text, LocaleFacts const & locale, LONGLONG & tenThousandths);

} // namespace kr::detail
