#include "tests/krplatform/codepage/bytes.h"

#include <cstdio>
#include <stdexcept>
#include <type_traits>

namespace kr::test
{

namespace
{

unsigned NumberOfHex(std::string_view digits)
{
    return static_cast<unsigned>(std::stoul(std::string(digits), nullptr, 16));
}

template <class Unit>
std::basic_string<Unit> TextOfHex(std::string_view digits)
{
    constexpr std::size_t width = 2 * sizeof(Unit);
    if (digits.size() % width != 0)
        throw std::invalid_argument("digits");
    std::basic_string<Unit> text;
    for (std::size_t index = 0; index < digits.size(); index += width)
        text += static_cast<Unit>(NumberOfHex(digits.substr(index, width)));
    return text;
}

template <class Unit>
std::string HexOfText(std::basic_string_view<Unit> text)
{
    using Number = std::conditional_t<sizeof(Unit) == 1, unsigned char, std::uint16_t>;
    constexpr int width = 2 * sizeof(Unit);
    std::string digits;
    for (Unit const unit : text)
    {
        char buffer[8];
        std::snprintf(buffer, sizeof buffer, "%0*X", width, unsigned{static_cast<Number>(unit)});
        digits += buffer;
    }
    return digits;
}

} // namespace

std::string BytesOfHex(std::string_view digits) { return TextOfHex<char>(digits); }

std::basic_string<WCHAR> UnitsOfHex(std::string_view digits) { return TextOfHex<WCHAR>(digits); }

std::string HexOf(std::string_view bytes) { return HexOfText(bytes); }

std::string HexOf(std::basic_string_view<WCHAR> units) { return HexOfText(units); }

std::string NarrowUnit(UINT codePage, DWORD flags, WCHAR unit)
{
    char bytes[4];
    BOOL usedDefault = FALSE;
    int const count = WideCharToMultiByte(codePage, flags, &unit, 1, bytes, 4, nullptr, &usedDefault);
    return count == 0 || usedDefault ? "-" : HexOf({bytes, static_cast<std::size_t>(count)});
}

std::string WidenToUnit(UINT codePage, DWORD flags, std::string_view bytes)
{
    WCHAR unit;
    int const length = static_cast<int>(bytes.size());
    return MultiByteToWideChar(codePage, flags, bytes.data(), length, &unit, 1) == 1 ? HexOf({&unit, 1}) : "-";
}

} // namespace kr::test
