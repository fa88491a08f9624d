#include <krplatform/codepage/codepage.h>
#include <krplatform/linux/utf8.h>

#include <limits>
#include <new>

namespace kr::detail
{

namespace
{

/// The conversions count in `int`; text beyond that would not fit in memory once it is converted.
int CheckedLength(std::size_t length)
{
    if (length > static_cast<std::size_t>(std::numeric_limits<int>::max()) / 3)
        throw std::bad_alloc(); // GCOVR_EXCL_LINE: only the slow tests make such a text
    return static_cast<int>(length);
}

} // namespace

std::optional<std::string> ToExactUtf8(TextView text)
{
    std::string bytes;
    if (text.empty())
        return bytes;
    int const length = CheckedLength(text.size());
    int const needed =
        WideCharToMultiByte(CP_UTF8, WC_ERR_INVALID_CHARS, text.data(), length, nullptr, 0, nullptr, nullptr);
    if (needed == 0)
        return std::nullopt;
    bytes.resize(static_cast<std::size_t>(needed));
    WideCharToMultiByte(CP_UTF8, WC_ERR_INVALID_CHARS, text.data(), length, bytes.data(), needed, nullptr, nullptr);
    return bytes;
}

std::basic_string<WCHAR> FromUtf8(std::string_view bytes)
{
    std::basic_string<WCHAR> text;
    if (bytes.empty())
        return text;
    int const length = CheckedLength(bytes.size());
    int const needed = MultiByteToWideChar(CP_UTF8, 0, bytes.data(), length, nullptr, 0);
    text.resize(static_cast<std::size_t>(needed));
    MultiByteToWideChar(CP_UTF8, 0, bytes.data(), length, text.data(), needed);
    return text;
}

} // namespace kr::detail
