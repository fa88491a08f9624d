#include <krplatform/coerce/number_parse.h>

#include <krplatform/coerce/decimal_scaling.h>
#include <krplatform/coerce/number_reader.h>
#include <krplatform/text/casing.h>

namespace kr::detail
{

namespace
{

bool ReadDecimal(TextView text, LocaleFacts const & locale, ParsedNumber & number)
{
    Marks const marks{locale.number.decimalMark, locale.number.groupMark};
    Marks const amountMarks{locale.currency.decimalMark, locale.currency.groupMark};
    bool hasSymbol = false;
    if (ReadNumber(text, marks, locale.currency.symbol, number, hasSymbol))
        return true;
    return amountMarks != marks && ReadNumber(text, amountMarks, locale.currency.symbol, number, hasSymbol) &&
           hasSymbol;
}

/// The value of a digit in the base that is two to the power of `bitsPerDigit`; -1 for none.
int DigitValue(WCHAR unit, unsigned bitsPerDigit)
{
    int value = -1;
    if (IsDigit(unit))
        value = unit - OLESTR('0');
    else if (unit >= OLESTR('A') && unit <= OLESTR('F'))
        value = unit - OLESTR('A') + 10;
    else if (unit >= OLESTR('a') && unit <= OLESTR('f'))
        value = unit - OLESTR('a') + 10;
    return value < 1 << bitsPerDigit ? value : -1;
}

/// Reads what follows the `&`.
bool ReadBits(TextView text, ParsedNumber & number)
{
    if (text.size() < 2)
        return false;
    bool const isHexadecimal = text[0] == OLESTR('H') || text[0] == OLESTR('h');
    if (!isHexadecimal && text[0] != OLESTR('O') && text[0] != OLESTR('o'))
        return false;
    unsigned const bitsPerDigit = isHexadecimal ? 4 : 3;
    number.Clear();
    number.isBits = true;
    for (WCHAR const unit : text.substr(1))
    {
        int const value = DigitValue(unit, bitsPerDigit);
        if (value < 0)
            return false;
        number.hasMore = number.hasMore || number.leading >> (64 - bitsPerDigit) != 0;
        number.leading = number.leading << bitsPerDigit | static_cast<ULONGLONG>(value);
    }
    return true;
}

TextView WithoutBlanks(TextView text)
{
    while (!text.empty() && IsSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

} // namespace

bool ParseNumber(TextView text, LocaleFacts const & locale, ParsedNumber & number)
{
    TextView const trimmed = WithoutBlanks(text);
    if (!trimmed.empty() && trimmed.front() == OLESTR('&'))
        return ReadBits(trimmed.substr(1), number);
    return ReadDecimal(trimmed, locale, number);
}

HRESULT ParseReal(TextView text, LocaleFacts const & locale, double & real)
{
    bool const isNegative = text.starts_with(OLESTR('-'));
    WCHAR const * position = text.data() + (isNegative ? 1 : 0);
    WCHAR const * const end = text.data() + text.size();
    double magnitude = 0;
    if (ReadPlainReal(position, end, locale.number.decimalMark, magnitude) && position == end)
    {
        real = isNegative ? -magnitude : magnitude;
        return S_OK;
    }
    ParsedNumber number;
    return ParseNumber(text, locale, number) ? NumberToReal(number, real) : DISP_E_TYPEMISMATCH;
}

} // namespace kr::detail
