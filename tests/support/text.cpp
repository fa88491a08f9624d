#include "tests/support/text.h"

#include <cstdio>

namespace kr::test
{

std::string Narrow(std::basic_string_view<WCHAR> text)
{
    std::string result;
    for (WCHAR const unit : text)
    {
        if (unit >= 0x20 && unit < 0x7F && unit != OLESTR('\\'))
            result += static_cast<char>(unit);
        else
        {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\u%04X", static_cast<unsigned>(unit));
            result += escape;
        }
    }
    return result;
}

std::string Narrow(WCHAR const * text) { return text ? Narrow(std::basic_string_view<WCHAR>(text)) : "\\null"; }

std::basic_string<WCHAR> Widen(std::string_view text)
{
    std::basic_string<WCHAR> result;
    for (char const byte : text)
        result += static_cast<WCHAR>(static_cast<unsigned char>(byte));
    return result;
}

} // namespace kr::test
