#include <krplatform/automation/variant.h>
#include <krplatform/base/cexception.h>
#include <krplatform/text/takebstr.h>
#include <krplatform/text/textsources.h>

namespace kr::detail
{

CString TextOf(VARIANT const & value)
{
    VARIANT text;
    VariantInit(&text);
    HRESULT const result = VariantChangeType(&text, &value, 0, VT_BSTR);
    if (FAILED(result))
        AtlThrow(result);
    return TakeBstr(text.bstrVal);
}

CString TextOf(wchar_t const * text)
{
    constexpr WCHAR replacement = 0xFFFD;
    CString result;
    for (; text && *text; ++text)
    {
        std::uint32_t const character = static_cast<std::uint32_t>(*text);
        if (character <= 0xFFFF)
            result.AppendChar(static_cast<WCHAR>(character));
        else if (character > 0x10FFFF)
            result.AppendChar(replacement);
        else
        {
            result.AppendChar(static_cast<WCHAR>(0xD7C0 + (character >> 10)));
            result.AppendChar(static_cast<WCHAR>(0xDC00 + (character & 0x3FF)));
        }
    }
    return result;
}

TextView ResourceText(HINSTANCE module, UINT id)
{
    WCHAR const * text = nullptr;
    int const length = LoadStringW(module, id, reinterpret_cast<WCHAR *>(&text), 0);
    return length > 0 ? TextView(text, static_cast<std::size_t>(length)) : TextView();
}

} // namespace kr::detail
