#include <krplatform/coerce/decimal_scaling.h>
#include <krplatform/text/casing.h>
#include <krplatform/text/numberscan.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

namespace kr::detail
{

namespace
{

bool IsDecimalDigit(WCHAR unit) { return unit >= '0' && unit <= '9'; }

constexpr unsigned noDigit = 36;

/// `noDigit` for what is no digit of any base.
unsigned DigitOf(WCHAR unit)
{
    unsigned const decimal = unit - unsigned{'0'};
    if (decimal <= 9)
        return decimal;
    unsigned const letter = (unit | 0x20u) - unsigned{'a'};
    return letter < 26 ? letter + 10 : noDigit;
}

/// Reads the units of a text one after the other; a zero where the limit is reached.
class Reader
{
public:
    Reader(WCHAR const * text, std::size_t limit)
        : m_begin(text), m_at(text), m_end(limit == noLimit ? nullptr : text + limit)
    {
    }

    WCHAR Peek() const { return m_at == m_end ? WCHAR() : *m_at; }
    void Skip() { ++m_at; }
    std::size_t GetPosition() const { return static_cast<std::size_t>(m_at - m_begin); }

    /// Whether a minus sign was taken.
    bool TakeSign()
    {
        WCHAR const sign = Peek();
        if (sign == '-' || sign == '+')
            Skip();
        return sign == '-';
    }

private:
    WCHAR const * m_begin;
    WCHAR const * m_at;
    WCHAR const * m_end; ///< null: none, the terminator ends every number
};

/// What is left of a limit behind `count` units.
std::size_t Behind(std::size_t limit, std::size_t count) { return limit == noLimit ? noLimit : limit - count; }

/// The significant digits of a decimal number and the power of ten that they are counted in.
class Decimal
{
public:
    void AddWholeDigit(WCHAR digit) { m_exponent += Add(digit) ? 0 : m_count != 0; }
    void AddFractionDigit(WCHAR digit) { m_exponent -= Add(digit) || m_count == 0; }
    void AddExponent(long long exponent) { m_exponent += exponent; }

    double GetValue()
    {
        if (m_count == 0)
            return 0.0;
        if (m_isCut) // any digit behind the last one that counts tells the right side of a tie
        {
            m_digits[m_count++] = '1';
            --m_exponent;
        }
        char * end = m_digits + m_count;
        *end++ = 'e';
        end = std::to_chars(end, std::end(m_digits), m_exponent).ptr;
        double value = 0.0;
        if (std::from_chars(m_digits, end, value).ec == std::errc::result_out_of_range)
            value = static_cast<long long>(m_count) + m_exponent > 0 ? HUGE_VAL : 0.0;
        return value;
    }

private:
    /// False where the digit is a zero in front, or one of more than any double is decided by.
    bool Add(WCHAR digit)
    {
        if (m_count == 0 && digit == '0')
            return false;
        if (m_count == decidingDigits)
        {
            m_isCut = m_isCut || digit != '0';
            return false;
        }
        m_digits[m_count++] = static_cast<char>(digit);
        return true;
    }

    static constexpr std::size_t decidingDigits = 768;

    char m_digits[decidingDigits + 32];
    std::size_t m_count = 0;
    bool m_isCut = false;
    long long m_exponent = 0;
};

/// A plain number without a sign. False for any other, and where only a longer calculation can tell.
bool ScanPlainReal(WCHAR const * text, std::size_t limit, ScannedReal & number)
{
    WCHAR const * const end = limit == noLimit ? nullptr : text + limit; // null: the terminator ends every number
    WCHAR const * position = text;
    double value = 0;
    if (!ReadPlainReal(position, end, OLESTR('.'), value))
        return false;
    number = {static_cast<std::size_t>(position - text), value};
    return true;
}

/// A number of up to 64 units without a sign, read by the standard library. False where the number is longer, or too large or
/// small to be told.
bool ScanShortReal(Reader reader, ScannedReal & number)
{
    char text[64];
    std::size_t length = 0;
    for (;; reader.Skip())
    {
        WCHAR const unit = reader.Peek();
        if (length == std::size(text))
            return false;
        if (!IsDecimalDigit(unit) && unit != '.' && (unit | 0x20) != 'e' && unit != '+' && unit != '-')
            break;
        text[length++] = static_cast<char>(unit);
    }
    auto const [stop, error] = std::from_chars(text, text + length, number.value);
    number.length = error == std::errc() ? static_cast<std::size_t>(stop - text) : 0;
    return error != std::errc::result_out_of_range;
}

/// Any number of digits, without a sign.
ScannedReal ScanLongReal(WCHAR const * text, std::size_t limit)
{
    Reader reader(text, limit);
    Decimal decimal;
    ScannedReal number;
    for (; IsDecimalDigit(reader.Peek()); reader.Skip())
        decimal.AddWholeDigit(reader.Peek());
    number.length = reader.GetPosition();
    if (reader.Peek() == '.')
    {
        reader.Skip();
        for (; IsDecimalDigit(reader.Peek()); reader.Skip())
            decimal.AddFractionDigit(reader.Peek());
        if (reader.GetPosition() == 1) // the point alone
            return {};
        number.length = reader.GetPosition();
    }
    if ((reader.Peek() | 0x20) == 'e')
    {
        constexpr std::uint64_t beyondAll = 1'000'000'000'000; // more digits than this fit into no text
        std::size_t const start = number.length + 1;
        ScannedInteger const exponent = ScanInteger(text + start, Behind(limit, start), 10);
        long long const magnitude = static_cast<long long>(std::min(exponent.magnitude, beyondAll));
        decimal.AddExponent(exponent.isNegative ? -magnitude : magnitude);
        if (exponent.length != 0)
            number.length = start + exponent.length;
    }
    number.value = decimal.GetValue();
    return number;
}

} // namespace

std::int64_t ScannedInteger::GetSigned(std::size_t bytes) const
{
    std::uint64_t const limit = std::uint64_t{1} << (8 * bytes - 1);
    if (isNegative)
        return static_cast<std::int64_t>(0 - std::min(magnitude, limit));
    return static_cast<std::int64_t>(std::min(magnitude, limit - 1));
}

std::uint64_t ScannedInteger::GetUnsigned(std::size_t bytes) const
{
    std::uint64_t const limit = ~std::uint64_t{0} >> (64 - 8 * bytes);
    if (magnitude > limit)
        return limit;
    return isNegative ? (0 - magnitude) & limit : magnitude;
}

ScannedInteger ScanInteger(WCHAR const * text, std::size_t limit, unsigned base)
{
    constexpr std::uint64_t largest = ~std::uint64_t{0}, alwaysFits = largest / 64;
    Reader reader(text, limit);
    ScannedInteger number;
    number.isNegative = reader.TakeSign();
    if (reader.Peek() == '0' && (base == 0 || base == 16))
    {
        reader.Skip();
        number.length = reader.GetPosition();
        Reader behindMark = reader;
        behindMark.Skip();
        bool const hasMark = (reader.Peek() | 0x20) == 'x' && DigitOf(behindMark.Peek()) < 16;
        if (hasMark)
            reader = behindMark;
        base = hasMark || base == 16 ? 16 : 8;
    }
    else if (base == 0)
        base = 10;
    std::size_t const start = reader.GetPosition();
    std::uint64_t magnitude = 0;
    for (unsigned digit = 0; (digit = DigitOf(reader.Peek())) < base; reader.Skip())
    {
        bool const fits = magnitude <= alwaysFits || magnitude <= (largest - digit) / base;
        magnitude = fits ? magnitude * base + digit : largest;
    }
    if (reader.GetPosition() != start)
        number.length = reader.GetPosition();
    number.magnitude = magnitude;
    return number;
}

ScannedReal ScanReal(WCHAR const * text, std::size_t limit)
{
    Reader reader(text, limit);
    bool const isNegative = reader.TakeSign();
    ScannedReal number;
    if (IsDecimalDigit(reader.Peek()) || reader.Peek() == '.')
    {
        std::size_t const signLength = reader.GetPosition();
        WCHAR const * const digits = text + signLength;
        std::size_t const rest = Behind(limit, signLength);
        if (!ScanPlainReal(digits, rest, number) && !ScanShortReal(reader, number))
            number = ScanLongReal(digits, rest);
        if (number.length == 0)
            return {};
        number.length += signLength;
        if (isNegative)
            number.value = -number.value;
    }
    return number;
}

std::size_t CountSpaces(WCHAR const * text)
{
    std::size_t count = 0;
    while (IsSpace(text[count]))
        ++count;
    return count;
}

} // namespace kr::detail
