// Text to truth values.
#pragma once

#include <krplatform/base/hresult.h>
#include <krplatform/coerce/locale_facts.h>

namespace kr::detail
{

/// Reads `True` and `False` in any case, `#TRUE#` and `#FALSE#`, and any number of the locale, which is -1 unless zero.
/// No blanks stand around the words. With `acceptLocalWords` the locale's own words count too, their ASCII letters in
/// any case. Other text is a type mismatch; a number past the doubles overflows.
HRESULT ParseTruth(TextView text, LocaleFacts const & locale, bool acceptLocalWords, VARIANT_BOOL & truth);

} // namespace kr::detail
