// Colours written to and read from text.
#include <krcore/graphics/krcolor.h>

#include <krplatform/text/casing.h>
#include <krplatform/text/numbers.h>

#include <algorithm>
#include <array>

namespace
{

using kr::detail::TextView;

constexpr TextView byLayerText = OLESTR("BYLAYER");
constexpr TextView noColorText = OLESTR("NOCOLOR");
constexpr TextView rgbOpening = OLESTR("RGB(");
constexpr TextView hexOpening = OLESTR("#");

/// Room for the longest text that is written, "RGB(255,255,255)".
constexpr int longestText = 16;

WCHAR * Write(WCHAR * at, TextView text) { return std::copy(text.begin(), text.end(), at); }

WCHAR * WriteDecimal(WCHAR * at, int value)
{
    if (value < 0)
        *at++ = OLESTR('-');
    unsigned int rest = static_cast<unsigned int>(value < 0 ? -value : value);
    WCHAR * const end = at + (rest < 10 ? 1 : rest < 100 ? 2 : rest < 1000 ? 3 : rest < 10000 ? 4 : 5);
    for (WCHAR * digit = end; digit != at; rest /= 10)
        *--digit = static_cast<WCHAR>(OLESTR('0') + rest % 10);
    return end;
}

WCHAR * WriteHexByte(WCHAR * at, int value)
{
    constexpr TextView digits = OLESTR("0123456789abcdef");
    *at++ = digits[static_cast<std::size_t>(value >> 4)];
    *at++ = digits[static_cast<std::size_t>(value & 0xF)];
    return at;
}

bool IsSpace(WCHAR unit)
{
    return unit < 0x80 ? unit == OLESTR(' ') || (unit >= OLESTR('\t') && unit <= OLESTR('\r'))
                       : kr::detail::IsSpace(unit);
}

TextView Trim(TextView text)
{
    while (!text.empty() && IsSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

/// Capitals of A to Z are enough, since no other unit has its capital among them.
WCHAR Upper(WCHAR unit)
{
    return unit >= OLESTR('a') && unit <= OLESTR('z') ? static_cast<WCHAR>(unit - OLESTR('a') + OLESTR('A')) : unit;
}

bool BeginsInCapitals(TextView text, TextView capitals)
{
    if (text.size() < capitals.size())
        return false;
    for (std::size_t index = 0; index < capitals.size(); ++index)
        if (Upper(text[index]) != capitals[index])
            return false;
    return true;
}

bool EqualsInCapitals(TextView text, TextView capitals)
{
    return text.size() == capitals.size() && BeginsInCapitals(text, capitals);
}

/// What is read of red, green and blue; 0 where the text has no number.
struct Channels
{
    unsigned int red = 0;
    unsigned int green = 0;
    unsigned int blue = 0;
};

/// The digits at the beginning of `text`, taken off it with the white space in front of them; false if there is none,
/// or more of them than surely fit.
bool ReadDigits(TextView & text, unsigned int & value)
{
    constexpr std::size_t mostDigits = 9;
    while (!text.empty() && IsSpace(text.front()))
        text.remove_prefix(1);
    std::size_t count = 0;
    unsigned int number = 0;
    for (; count < text.size(); ++count)
    {
        unsigned int const digit = text[count] - static_cast<unsigned int>(OLESTR('0'));
        if (digit > 9)
            break;
        number = number * 10 + digit;
    }
    text.remove_prefix(count);
    value = number;
    return count != 0 && count <= mostDigits;
}

bool ReadComma(TextView & text)
{
    if (text.empty() || text.front() != OLESTR(','))
        return false;
    text.remove_prefix(1);
    return true;
}

/// Whether `text` is three unsigned numbers joined by commas. Anything else is a matter for `swscanf`.
bool ReadPlainDecimals(TextView text, Channels & channels)
{
    return ReadDigits(text, channels.red) && ReadComma(text) && ReadDigits(text, channels.green) && ReadComma(text) &&
           ReadDigits(text, channels.blue);
}

constexpr unsigned char noDigit = 0xF0;

/// By the lower byte of a unit: 0 to 15, or `noDigit`.
constexpr std::array<unsigned char, 256> hexDigits = []
{
    std::array<unsigned char, 256> digits{};
    digits.fill(noDigit);
    for (unsigned char digit = 0; digit < 16; ++digit)
    {
        digits[static_cast<unsigned char>("0123456789abcdef"[digit])] = digit;
        digits[static_cast<unsigned char>("0123456789ABCDEF"[digit])] = digit;
    }
    return digits;
}();

/// Whether `text` begins with six hexadecimal digits. Anything else is a matter for `swscanf`.
bool ReadPlainHex(TextView text, Channels & channels)
{
    if (text.size() < 6)
        return false;
    unsigned int number = 0;
    unsigned int wrong = 0;
#pragma GCC unroll 6
    for (std::size_t index = 0; index < 6; ++index)
    {
        unsigned int const unit = text[index];
        unsigned int const digit = hexDigits[unit & 0xFF];
        wrong |= (unit & 0xFF00) | (digit & noDigit);
        number = number << 4 | (digit & 0xF);
    }
    if (wrong != 0)
        return false;
    channels = {number >> 16, number >> 8, number};
    return true;
}

/// `text` is the rest of a terminated text, so that `swscanf` ends where that does; the white space that was trimmed
/// off its end means nothing to it.
Channels ReadDecimals(TextView text)
{
    Channels channels;
    if (ReadPlainDecimals(text, channels))
        return channels;
    int red = 0;
    int green = 0;
    int blue = 0;
    swscanf(text.data(), OLESTR("%d,%d,%d"), &red, &green, &blue);
    return {static_cast<unsigned int>(red), static_cast<unsigned int>(green), static_cast<unsigned int>(blue)};
}

Channels ReadHex(TextView text)
{
    Channels channels;
    if (!ReadPlainHex(text, channels))
        swscanf(text.data(), OLESTR("%2x%2x%2x"), &channels.red, &channels.green, &channels.blue);
    return channels;
}

} // namespace

CString CKrColor::Format(bool hex) const
{
    WCHAR text[longestText];
    WCHAR * end = text;
    if (m_colorSpace == eColorSpaceNoColor || (m_colorSpace == eColorSpaceIndex && m_colorIndex == s_noColorIndex))
    {
        end = Write(end, noColorText);
    }
    else if (m_colorSpace == eColorSpaceIndex)
    {
        end = m_colorIndex == s_byLayerIndex ? Write(end, byLayerText) : WriteDecimal(end, m_colorIndex);
    }
    else if (m_colorSpace == eColorSpaceRGB && hex)
    {
        end = WriteHexByte(WriteHexByte(WriteHexByte(Write(end, hexOpening), m_red), m_green), m_blue);
    }
    else if (m_colorSpace == eColorSpaceRGB)
    {
        end = WriteDecimal(Write(end, rgbOpening), m_red);
        end = WriteDecimal(Write(end, OLESTR(",")), m_green);
        end = WriteDecimal(Write(end, OLESTR(",")), m_blue);
        end = Write(end, OLESTR(")"));
    }
    return CString(text, static_cast<int>(end - text));
}

void CKrColor::Parse(CString const & text)
{
    TextView const trimmed = Trim(text.View());
    if (trimmed.empty() || EqualsInCapitals(trimmed, noColorText))
    {
        SetNoColor();
    }
    else if (trimmed.front() == hexOpening.front())
    {
        Channels const channels = ReadHex(trimmed.substr(hexOpening.size()));
        *this = CKrColor(channels.red, channels.green, channels.blue);
    }
    else if (BeginsInCapitals(trimmed, rgbOpening))
    {
        Channels const channels = ReadDecimals(trimmed.substr(rgbOpening.size()));
        *this = CKrColor(channels.red, channels.green, channels.blue);
    }
    else if (EqualsInCapitals(trimmed, byLayerText))
    {
        *this = CKrColor(s_byLayerIndex);
    }
    else
    {
        *this = CKrColor(_wtoi(trimmed.data()));
    }
}
