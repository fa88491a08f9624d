#include <krplatform/coerce/number_text.h>

#include <krplatform/coerce/rounding.h>
#include <krplatform/coerce/significant_digits.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace kr::detail
{

namespace
{

// Each of these writes to `end` and gives the place behind what it wrote.

WCHAR * Put(WCHAR unit, WCHAR * end)
{
    *end = unit;
    return end + 1;
}

WCHAR * PutName(TextView name, WCHAR * end) { return std::copy(name.begin(), name.end(), end); }

WCHAR * PutZeros(int count, WCHAR * end) { return count > 0 ? std::fill_n(end, count, OLESTR('0')) : end; }

WCHAR * PutDigits(ULONGLONG number, WCHAR * end)
{
    char digits[20];
    return std::copy(digits, std::to_chars(digits, std::end(digits), number).ptr, end);
}

// "00" to "99", for two digits in one step.
constexpr auto s_digitPairs = []
{
    std::array<std::array<WCHAR, 2>, 100> pairs{};
    for (std::size_t index = 0; index < pairs.size(); ++index)
        pairs[index] = {static_cast<WCHAR>(OLESTR('0') + index / 10), static_cast<WCHAR>(OLESTR('0') + index % 10)};
    return pairs;
}();

/// Writes the last `count` digits of `number` in front of `end`. Gives the digits that are left.
ULONGLONG PutLastDigits(ULONGLONG number, int count, WCHAR * end)
{
    for (; count >= 2; count -= 2, number /= 100)
    {
        auto const & pair = s_digitPairs[number % 100];
        end = std::copy_backward(pair.begin(), pair.end(), end);
    }
    if (count == 0)
        return number;
    *(end - 1) = static_cast<WCHAR>(OLESTR('0') + number % 10);
    return number / 10;
}

/// The digits of a number, which are `count`. The last `places` stand behind the decimal mark, which is not there without them.
WCHAR * PutDigits(ULONGLONG number, int count, int places, WCHAR decimalMark, WCHAR * end)
{
    WCHAR * point = end + count;
    WCHAR * behind = point;
    if (places > 0)
    {
        point -= places;
        ++behind;
        number = PutLastDigits(number, places, behind);
        count -= places;
        *point = decimalMark;
    }
    PutLastDigits(number, count, point);
    return behind;
}

WCHAR * PutExponent(int exponent, WCHAR * end)
{
    end = Put(OLESTR('E'), end);
    end = Put(exponent < 0 ? OLESTR('-') : OLESTR('+'), end);
    int const magnitude = exponent < 0 ? -exponent : exponent;
    end = PutZeros(magnitude < 10 ? 1 : 0, end);
    return PutDigits(static_cast<ULONGLONG>(magnitude), end);
}

WCHAR * PutDigits(SignificantDigits const & digits, int limit, WCHAR decimalMark, WCHAR * end)
{
    int const count = digits.places + 1;
    int const places = digits.places - digits.exponent; // behind the point in the plain form
    if (digits.exponent >= limit || places > limit)
        return PutExponent(digits.exponent, PutDigits(digits.units, count, digits.places, decimalMark, end));
    if (digits.exponent < 0)
    {
        end = Put(decimalMark, Put(OLESTR('0'), end));
        return PutDigits(digits.units, count, 0, decimalMark, PutZeros(-1 - digits.exponent, end));
    }
    return PutZeros(-places, PutDigits(digits.units, count, places, decimalMark, end));
}

template <class Real>
WCHAR * PutReal(Real number, SignificantDigits (*round)(Real), int limit, WCHAR decimalMark, WCHAR * end)
{
    if (std::isnan(number))
        return PutName(OLESTR("nan"), end);
    if (number < 0)
        end = Put(OLESTR('-'), end);
    Real const magnitude = std::abs(number);
    return std::isinf(number) ? PutName(OLESTR("inf"), end) : PutDigits(round(magnitude), limit, decimalMark, end);
}

} // namespace

NumberText IntegerText(LONGLONG number)
{
    return NumberText([number](WCHAR * end)
                      { return PutDigits(MagnitudeOf(number), number < 0 ? Put(OLESTR('-'), end) : end); });
}

NumberText IntegerText(ULONGLONG number)
{
    return NumberText([number](WCHAR * end) { return PutDigits(number, end); });
}

WCHAR * WriteReal(double number, WCHAR decimalMark, WCHAR * destination)
{
    return PutReal(number, RoundTo15Digits, 15, decimalMark, destination);
}

NumberText RealText(double number, WCHAR decimalMark)
{
    return NumberText([number, decimalMark](WCHAR * end) { return WriteReal(number, decimalMark, end); });
}

NumberText RealText(float number, WCHAR decimalMark)
{
    return NumberText([number, decimalMark](WCHAR * end)
                      { return PutReal(number, RoundTo7Digits, 7, decimalMark, end); });
}

NumberText AmountText(LONGLONG tenThousandths, WCHAR decimalMark)
{
    auto const write = [tenThousandths, decimalMark](WCHAR * end)
    {
        if (tenThousandths < 0)
            end = Put(OLESTR('-'), end);
        ULONGLONG const magnitude = MagnitudeOf(tenThousandths);
        end = PutDigits(magnitude / 10000, end);
        ULONGLONG fraction = magnitude % 10000;
        if (fraction == 0)
            return end;
        end = Put(decimalMark, end);
        for (ULONGLONG unit = 1000; fraction != 0; unit /= 10)
        {
            end = Put(static_cast<WCHAR>(OLESTR('0') + fraction / unit), end);
            fraction %= unit;
        }
        return end;
    };
    return NumberText(write);
}

} // namespace kr::detail
