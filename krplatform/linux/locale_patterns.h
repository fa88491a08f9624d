// Patterns of dates and times as the locale collection writes them, brought to the platform's forms.
#pragma once

#include <krplatform/coerce/locale_facts.h>

namespace kr::detail
{

/// The pattern in the platform's letters: the year always has four, the half of the day is `tt` and parted by a blank,
/// blanks of any width are U+0020, marks of the writing direction are left out. Empty for a pattern with fields that the
/// platform's dates do not have (eras, days of the week).
Text PlatformPattern(TextView pattern);

} // namespace kr::detail
