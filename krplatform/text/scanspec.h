// One conversion of a scanning format, as it is written. Internal to the text functions.
#pragma once

#include <krplatform/text/formatspec.h>

namespace kr::detail
{

struct ScanSpec
{
    bool isSkipped = false; ///< '*': read, but not stored
    std::size_t width = 0;  ///< 0: none
    FormatSize size{};
    WCHAR letter = 0; ///< 0 where there is none
    TextView set;     ///< what stands between the brackets of '['
};

/// Reads what stands behind a '%'; `format` moves behind it.
ScanSpec ReadScanSpec(WCHAR const *& format);

/// Whether a set as "a-z_" or "^,;" names the unit.
bool IsInSet(TextView set, WCHAR unit);

} // namespace kr::detail
