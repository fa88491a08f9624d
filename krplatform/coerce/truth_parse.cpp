#include <krplatform/coerce/truth_parse.h>

#include <krplatform/coerce/number_parse.h>

#include <algorithm>

namespace kr::detail
{

namespace
{

WCHAR LowerAscii(WCHAR unit)
{
    return unit >= OLESTR('A') && unit <= OLESTR('Z') ? static_cast<WCHAR>(unit + 0x20) : unit;
}

bool IsWord(TextView text, TextView word) { return std::ranges::equal(text, word, {}, LowerAscii, LowerAscii); }

} // namespace

HRESULT ParseTruth(TextView text, LocaleFacts const & locale, bool acceptLocalWords, VARIANT_BOOL & truth)
{
    bool const isTrue = IsWord(text, OLESTR("True")) || text == OLESTR("#TRUE#");
    bool const isFalse = IsWord(text, OLESTR("False")) || text == OLESTR("#FALSE#");
    bool const isLocalTrue = acceptLocalWords && IsWord(text, locale.yes);
    bool const isLocalFalse = acceptLocalWords && IsWord(text, locale.no);
    if (isTrue || isFalse || isLocalTrue || isLocalFalse)
    {
        truth = isTrue || isLocalTrue ? VARIANT_TRUE : VARIANT_FALSE;
        return S_OK;
    }
    ParsedNumber number;
    if (!ParseNumber(text, locale, number))
        return DISP_E_TYPEMISMATCH;
    double real = 0;
    HRESULT const result = NumberToReal(number, real);
    if (SUCCEEDED(result))
        truth = real != 0 ? VARIANT_TRUE : VARIANT_FALSE;
    return result;
}

} // namespace kr::detail
