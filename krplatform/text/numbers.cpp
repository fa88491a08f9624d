#include <krplatform/text/numbers.h>
#include <krplatform/text/numberscan.h>

#include <algorithm>
#include <charconv>
#include <limits>

namespace
{

LONG ReadLong(WCHAR const * text)
{
    constexpr LONGLONG largest = std::numeric_limits<LONG>::max();
    if (!text)
        return 0;
    text += kr::detail::CountSpaces(text);
    bool const isNegative = *text == '-';
    if (isNegative || *text == '+')
        ++text;
    LONGLONG value = 0;
    for (; *text >= '0' && *text <= '9'; ++text)
    {
        if (value <= largest)
            value = value * 10 + (*text - '0');
    }
    return static_cast<LONG>(isNegative ? -std::min(value, largest + 1) : std::min(value, largest));
}

} // namespace

int _wtoi(WCHAR const * text) { return ReadLong(text); }

long _wtol(WCHAR const * text) { return ReadLong(text); }

double wcstod(WCHAR const * text, WCHAR ** end)
{
    kr::detail::ScannedReal number;
    std::size_t spaces = 0;
    if (text)
    {
        spaces = kr::detail::CountSpaces(text);
        number = kr::detail::ScanReal(text + spaces, kr::detail::noLimit);
    }
    if (end)
        *end = const_cast<WCHAR *>(number.length != 0 ? text + spaces + number.length : text);
    return number.value;
}

int _itow_s(int value, WCHAR * buffer, std::size_t size, int base)
{
    if (!buffer || size == 0)
        return EINVAL;
    buffer[0] = 0;
    if (base < 2 || base > 36)
        return EINVAL;
    char digits[34]; // a sign, or 32 binary digits
    char const * const end = (base == 10 ? std::to_chars(digits, std::end(digits), value)
                                         : std::to_chars(digits, std::end(digits), static_cast<UINT>(value), base))
                                 .ptr;
    if (static_cast<std::size_t>(end - digits) >= size)
        return ERANGE;
    *std::copy(static_cast<char const *>(digits), end, buffer) = 0;
    return 0;
}

int _ltow_s(long value, WCHAR * buffer, std::size_t size, int base)
{
    return _itow_s(static_cast<int>(value), buffer, size, base);
}
