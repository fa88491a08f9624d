#include <krplatform/text/scanspec.h>

namespace kr::detail
{

ScanSpec ReadScanSpec(WCHAR const *& format)
{
    constexpr std::size_t largestWidth = 1'000'000'000;
    ScanSpec spec;
    if (*format == '*')
    {
        spec.isSkipped = true;
        ++format;
    }
    for (; *format >= '0' && *format <= '9'; ++format)
        spec.width = std::min(spec.width * 10 + (*format - std::size_t{'0'}), largestWidth);
    spec.size = ReadFormatSize(format);
    spec.letter = *format;
    if (*format != 0)
        ++format;
    if (spec.letter == '[')
    {
        WCHAR const * const first = format;
        format += *format == '^';
        format += *format == ']'; // in front it belongs to the set
        while (*format != 0 && *format != ']')
            ++format;
        spec.set = {first, static_cast<std::size_t>(format - first)};
        if (*format == 0)
            spec.letter = 0;
        else
            ++format;
    }
    return spec;
}

bool IsInSet(TextView set, WCHAR unit)
{
    bool const isInverted = set.starts_with('^');
    if (isInverted)
        set.remove_prefix(1);
    for (std::size_t index = 0; index < set.size(); ++index)
    {
        WCHAR const first = set[index];
        bool const isRange = index + 2 < set.size() && set[index + 1] == '-';
        WCHAR const last = isRange ? set[index + 2] : first;
        if (unit >= std::min(first, last) && unit <= std::max(first, last))
            return !isInverted;
        if (isRange)
            index += 2;
    }
    return isInverted;
}

} // namespace kr::detail
