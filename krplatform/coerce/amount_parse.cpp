#include <krplatform/coerce/amount_parse.h>

#include <krplatform/coerce/number_parse.h>
#include <krplatform/coerce/rounding.h>

namespace kr::detail
{

HRESULT ParseAmount(TextView text, LocaleFacts const & locale, LONGLONG & tenThousandths)
{
    ParsedNumber number;
    if (!ParseNumber(text, locale, number))
        return DISP_E_TYPEMISMATCH;
    if (number.isBits)
    {
        double real = 0;
        HRESULT const result = NumberToReal(number, real);
        return SUCCEEDED(result) ? RealToAmount(real, tenThousandths) : result;
    }
    ULONGLONG magnitude = 0;
    HRESULT const result = NumberToUnits(number, 4, magnitude);
    return SUCCEEDED(result) ? FitMagnitude(number.isNegative, magnitude, tenThousandths) : result;
}

} // namespace kr::detail
