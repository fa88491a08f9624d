#include <krplatform/text/formatnumber.h>

#include <array>
#include <charconv>
#include <cstdint>

namespace kr::detail
{

namespace
{

/// Of digits up to the base 16.
void ToUpperCase(char * first, char * end)
{
    for (; first != end; ++first)
    {
        if (*first >= 'a')
            *first = static_cast<char>(*first - 'a' + 'A');
    }
}

std::uint64_t CutToBytes(std::uint64_t value, std::size_t bytes)
{
    return bytes >= 8 ? value : value & ((std::uint64_t{1} << (8 * bytes)) - 1);
}

std::int64_t SignedOfBytes(std::uint64_t value, std::size_t bytes)
{
    std::size_t const unused = 64 - 8 * bytes;
    return static_cast<std::int64_t>(value << unused) >> unused;
}

std::string_view BaseMark(FormatSpec const & spec, std::uint64_t value)
{
    if (!spec.isAlternate || spec.conversion.base != 16 || value == 0)
        return {};
    return spec.conversion.isUpperCase ? "0X" : "0x";
}

} // namespace

std::string_view SignOf(FormatSpec const & spec, bool isNegative)
{
    return isNegative ? "-" : spec.hasPlus ? "+" : spec.hasBlank ? " " : "";
}

void FormatInteger(FormatSpec const & spec, FormatArgument const & argument, FormattedNumber & text)
{
    std::size_t const argumentBytes = argument.kind == FormatArgument::Kind::Integer ? 4 : 8;
    std::size_t const bytes = std::min(spec.size.integerBytes, argumentBytes);
    std::uint64_t magnitude = CutToBytes(static_cast<std::uint64_t>(argument.integer), bytes);
    if (spec.conversion.kind == ConversionKind::Signed)
    {
        std::int64_t const value = SignedOfBytes(magnitude, bytes);
        text.sign = SignOf(spec, value < 0);
        if (value < 0)
            magnitude = 0 - static_cast<std::uint64_t>(value);
    }
    else
        text.baseMark = BaseMark(spec, magnitude);

    char * end = text.buffer;
    if (magnitude != 0 || spec.precision != 0)
        end = std::to_chars(text.buffer, std::end(text.buffer), magnitude, spec.conversion.base).ptr;
    if (spec.conversion.isUpperCase)
        ToUpperCase(text.buffer, end);
    text.body = {text.buffer, static_cast<std::size_t>(end - text.buffer)};
    text.leadingZeros = std::max(spec.precision - static_cast<int>(text.body.size()), 0);
    if (spec.isAlternate && spec.conversion.base == 8 && text.leadingZeros == 0 && !text.body.starts_with('0'))
        text.leadingZeros = 1;
    text.canFillWithZeros = spec.precision < 0;
}

void FormatPointer(void const * address, FormattedNumber & text)
{
    constexpr int digits = 16;
    char * const end =
        std::to_chars(text.buffer, std::end(text.buffer), reinterpret_cast<std::uintptr_t>(address), 16).ptr;
    ToUpperCase(text.buffer, end);
    text.body = {text.buffer, static_cast<std::size_t>(end - text.buffer)};
    text.leadingZeros = digits - static_cast<int>(text.body.size());
}

} // namespace kr::detail
