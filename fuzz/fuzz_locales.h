// Locales for targets that read and write in one: they differ in marks, order of the date, names and digits.
#pragma once

#include <krplatform/base/types.h>

#include <iterator>

namespace kr::fuzz
{

// clang-format off
constexpr LCID locales[] = {
    127,  // invariant
    1033, // English, United States
    1031, // German
    1036, // French: a narrow blank parts the digits
    2055, // German, Switzerland: an apostrophe does
    1041, // Japanese: the year first
    1042, // Korean: AM and PM before the time
    1049, // Russian: month names change beside a day
    1038, // Hungarian: a mark behind the day too
    1055, // Turkish
    1025, // Arabic
    1024, // the user's
};
// clang-format on
constexpr unsigned localeCount = static_cast<unsigned>(std::size(locales));

} // namespace kr::fuzz
