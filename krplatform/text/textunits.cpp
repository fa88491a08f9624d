#include <krplatform/base/cexception.h>
#include <krplatform/codepage/codepage.h>
#include <krplatform/text/textunits.h>

#include <limits>

namespace kr::detail
{

namespace
{

int HeldLength(std::size_t length)
{
    if (length > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        AfxThrowMemoryException(); // GCOVR_EXCL_LINE: only the slow tests make such a text
    return static_cast<int>(length);
}

} // namespace

std::size_t ConvertedLength(std::basic_string_view<char> text)
{
    return static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, text.data(), HeldLength(text.size()), nullptr, 0));
}

std::size_t ConvertedLength(std::basic_string_view<WCHAR> text)
{
    return static_cast<std::size_t>(
        WideCharToMultiByte(CP_ACP, 0, text.data(), HeldLength(text.size()), nullptr, 0, nullptr, nullptr));
}

void Convert(std::basic_string_view<char> text, WCHAR * units, std::size_t count)
{
    MultiByteToWideChar(CP_ACP, 0, text.data(), HeldLength(text.size()), units, HeldLength(count));
}

void Convert(std::basic_string_view<WCHAR> text, char * bytes, std::size_t count)
{
    WideCharToMultiByte(CP_ACP, 0, text.data(), HeldLength(text.size()), bytes, HeldLength(count), nullptr, nullptr);
}

} // namespace kr::detail
