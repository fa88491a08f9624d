#include <krplatform/coerce/number_text.h>

#include <krplatform/coerce/rounding.h>
#include <krplatform/coerce/significant_digits.h>

#include <charconv>
#include <cmath>

namespace kr::detail
{

namespace
{

void AddExponent(NumberText & text, int exponent)
{
    text.Add(OLESTR('E'));
    text.Add(exponent < 0 ? OLESTR('-') : OLESTR('+'));
    int const magnitude = exponent < 0 ? -exponent : exponent;
    if (magnitude < 10)
        text.Add(OLESTR('0'));
    text.AddDigits(static_cast<ULONGLONG>(magnitude));
}

void AddReal(NumberText & text, SignificantDigits const & digits, int limit, WCHAR decimalMark)
{
    int const places = digits.places - digits.exponent; // behind the point in the plain form
    if (digits.exponent >= limit || places > limit)
    {
        text.AddDigits(digits.units, digits.places, decimalMark);
        AddExponent(text, digits.exponent);
        return;
    }
    if (digits.exponent < 0)
    {
        text.Add(OLESTR('0'));
        text.Add(decimalMark);
        text.AddZeros(-1 - digits.exponent);
        text.AddDigits(digits.units);
        return;
    }
    text.AddDigits(digits.units, places > 0 ? places : 0, decimalMark);
    text.AddZeros(-places);
}

void AddName(NumberText & text, TextView name)
{
    for (WCHAR const unit : name)
        text.Add(unit);
}

template <class Real>
NumberText TextOfReal(Real number, SignificantDigits (*round)(Real), int limit, WCHAR decimalMark)
{
    NumberText text;
    if (std::isnan(number))
    {
        AddName(text, OLESTR("nan"));
        return text;
    }
    if (number < 0)
        text.Add(OLESTR('-'));
    Real const magnitude = std::abs(number);
    if (std::isinf(number))
        AddName(text, OLESTR("inf"));
    else
        AddReal(text, round(magnitude), limit, decimalMark);
    return text;
}

} // namespace

void NumberText::AddZeros(int count)
{
    for (int index = 0; index < count; ++index)
        Add(OLESTR('0'));
}

void NumberText::AddDigits(ULONGLONG number)
{
    char digits[20];
    char const * const end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    for (char const * digit = digits; digit != end; ++digit)
        Add(static_cast<WCHAR>(*digit));
}

void NumberText::AddDigits(ULONGLONG number, int places, WCHAR decimalMark)
{
    AddDigits(number);
    if (places == 0)
        return;
    UINT const point = m_length - static_cast<UINT>(places);
    for (UINT index = m_length++; index > point; --index)
        m_units[index] = m_units[index - 1];
    m_units[point] = decimalMark;
}

NumberText IntegerText(LONGLONG number)
{
    NumberText text;
    if (number < 0)
        text.Add(OLESTR('-'));
    text.AddDigits(MagnitudeOf(number));
    return text;
}

NumberText IntegerText(ULONGLONG number)
{
    NumberText text;
    text.AddDigits(number);
    return text;
}

NumberText RealText(double number, WCHAR decimalMark) { return TextOfReal(number, RoundTo15Digits, 15, decimalMark); }

NumberText RealText(float number, WCHAR decimalMark) { return TextOfReal(number, RoundTo7Digits, 7, decimalMark); }

NumberText AmountText(LONGLONG tenThousandths, WCHAR decimalMark)
{
    NumberText text;
    if (tenThousandths < 0)
        text.Add(OLESTR('-'));
    ULONGLONG const magnitude = MagnitudeOf(tenThousandths);
    text.AddDigits(magnitude / 10000);
    ULONGLONG fraction = magnitude % 10000;
    if (fraction == 0)
        return text;
    text.Add(decimalMark);
    for (ULONGLONG unit = 1000; fraction != 0; unit /= 10)
    {
        text.Add(static_cast<WCHAR>(OLESTR('0') + fraction / unit));
        fraction %= unit;
    }
    return text;
}

} // namespace kr::detail
