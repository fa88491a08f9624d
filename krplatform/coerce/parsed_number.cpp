#include <krplatform/coerce/parsed_number.h>

#include <krplatform/coerce/decimal_scaling.h>

#include <charconv>
#include <cstring>
#include <limits>
#include <string_view>

namespace kr::detail
{

namespace
{

// Ten to the power of this is above every double, and a tenth of the other below every one.
constexpr LONGLONG s_tooLarge = 309;
constexpr LONGLONG s_tooSmall = -324;

// The smallest double begins so, at the power -324; nobody writes the digits that follow.
constexpr std::string_view s_smallestDigits = "49406564584124654417656879286822137236505980";

std::string_view DigitsOf(ParsedNumber const & number) { return {number.digits, number.count}; }

/// The exponent of the first digit.
LONGLONG LeadingExponent(ParsedNumber const & number) { return number.exponent + number.count - 1; }

bool IsBelowSmallest(ParsedNumber const & number)
{
    LONGLONG const exponent = LeadingExponent(number);
    return exponent < s_tooSmall || (exponent == s_tooSmall && DigitsOf(number) < s_smallestDigits);
}

HRESULT ReadDigits(ParsedNumber const & number, double & real)
{
    char text[ParsedNumber::capacity + 24];
    std::memcpy(text, number.digits, number.count);
    char * end = text + number.count;
    LONGLONG exponent = number.exponent;
    if (number.hasMore)
    {
        *end++ = '1';
        --exponent;
    }
    *end++ = 'e';
    end = std::to_chars(end, text + sizeof text, exponent).ptr;
    bool const isRead = std::from_chars(text, end, real).ec == std::errc();
    return isRead && real <= std::numeric_limits<double>::max() ? S_OK : DISP_E_OVERFLOW;
}

HRESULT MagnitudeToReal(ParsedNumber const & number, double & real)
{
    if (number.count <= longestScaledDecimal && ScaleDecimal(number.leading, number.exponent, real))
        return S_OK;
    if (IsBelowSmallest(number))
    {
        real = 0;
        return S_OK;
    }
    return LeadingExponent(number) < s_tooLarge ? ReadDigits(number, real) : DISP_E_OVERFLOW;
}

double BitsToReal(ULONGLONG bits)
{
    if (bits <= std::numeric_limits<ULONG>::max())
        return static_cast<LONG>(static_cast<ULONG>(bits));
    return static_cast<double>(static_cast<LONGLONG>(bits));
}

bool AppendDigit(ULONGLONG & units, unsigned digit)
{
    constexpr ULONGLONG limit = std::numeric_limits<ULONGLONG>::max();
    if (units > (limit - digit) / 10)
        return false;
    units = units * 10 + digit;
    return true;
}

/// Whether the digits from `first` on, a fraction, round the units before them up.
bool RoundsUp(ParsedNumber const & number, std::size_t first, bool isOdd)
{
    std::string_view const fraction = DigitsOf(number).substr(first);
    if (fraction.empty() || fraction[0] != '5')
        return !fraction.empty() && fraction[0] > '5';
    bool const isAboveHalf = fraction.find_first_not_of('0', 1) != std::string_view::npos || number.hasMore;
    return isAboveHalf || isOdd;
}

} // namespace

HRESULT NumberToReal(ParsedNumber const & number, double & real)
{
    if (number.isBits)
    {
        if (number.hasMore)
            return DISP_E_OVERFLOW;
        real = BitsToReal(number.leading);
        return S_OK;
    }
    double magnitude = 0;
    HRESULT const result = number.count != 0 ? MagnitudeToReal(number, magnitude) : S_OK;
    if (SUCCEEDED(result))
        real = number.isNegative ? -magnitude : magnitude;
    return result;
}

HRESULT NumberToUnits(ParsedNumber const & number, int places, ULONGLONG & units)
{
    LONGLONG const point = number.exponent + number.count + places; // how many digits the units have
    if (number.count == 0 || point < 0)
    {
        units = 0;
        return S_OK;
    }
    if (point > std::numeric_limits<ULONGLONG>::digits10 + 1)
        return DISP_E_OVERFLOW;
    ULONGLONG rounded = 0;
    for (UINT index = 0; index < static_cast<UINT>(point); ++index)
    {
        unsigned const digit = index < number.count ? static_cast<unsigned>(number.digits[index] - '0') : 0;
        if (!AppendDigit(rounded, digit))
            return DISP_E_OVERFLOW;
    }
    if (static_cast<UINT>(point) < number.count && RoundsUp(number, static_cast<std::size_t>(point), rounded % 2 != 0))
    {
        if (++rounded == 0)
            return DISP_E_OVERFLOW;
    }
    units = rounded;
    return S_OK;
}

} // namespace kr::detail
