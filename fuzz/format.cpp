// CString::Format: first a format as it comes with fixed arguments, then, from a further line, conversions with arguments made for them.
#include "fuzz/fuzz_target.h"

#include <krplatform/base/cexception.h>
#include <krplatform/text/cstring.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <optional>

namespace kr::fuzz
{

namespace
{

/// As a character it is the same in both widths.
constexpr long long bigNumber = 0x300000000 + '5';

/// The formatted text; none where the format is refused, which leaves the text as it was.
template <class Text>
std::optional<Text> Formatted(typename Text::XCHAR const * format)
{
    Text text;
    text.AppendChar('?');
    try
    {
        text.Format(format, 7, -3, 2.5, bigNumber, 'x');
        return text;
    }
    catch (COleException * exception)
    {
        KR_LAW(exception->m_sc == E_INVALIDARG);
        exception->Delete();
    }
    KR_LAW(text.GetLength() == 1 && text[0] == '?');
    return std::nullopt;
}

/// Digits in a row that would make texts of more than some thousand units.
bool AsksForTooMuch(Units const & format)
{
    int digits = 0;
    return std::ranges::any_of(format, [&digits](WCHAR unit)
                               { return (digits = unit >= '0' && unit <= '9' ? digits + 1 : 0) > 4; });
}

void CheckAnyFormat(Units const & units)
{
    if (AsksForTooMuch(units))
        return;
    CString const format = TextOf(units).GetString();
    std::optional<CString> const wide = Formatted<CString>(format);
    KR_LAW(wide || format.Find(OLESTR('%')) >= 0);
    if (format.Find(OLESTR('%')) < 0)
        KR_LAW(*wide == format);
    if (wide)
    {
        CString appended(OLESTR("before"));
        appended.AppendFormat(format, 7, -3, 2.5, bigNumber, 'x');
        KR_LAW(appended == OLESTR("before") + *wide);
        KR_LAW(*Formatted<CString>(format + OLESTR("%%\u00E4")) == *wide + OLESTR("%\u00E4"));
    }
    auto const isAscii = [](auto const & text)
    { return std::ranges::all_of(text, [](auto unit) { return unit >= 0 && unit < 0x80; }); };
    if (!isAscii(units))
        return;
    std::optional<CStringA> const narrow = Formatted<CStringA>(CStringA(format));
    KR_LAW(narrow.has_value() == wide.has_value());
    if (wide && isAscii(wide->View())) // characters beyond are converted by one of the two
        KR_LAW(std::ranges::equal(narrow->View(), wide->View()));
}

template <class Value>
CStringA ByTheCLibrary(std::string const & format, Value value)
{
    char text[3000];
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    int const length = std::snprintf(text, sizeof text, format.c_str(), value);
#pragma GCC diagnostic pop
    KR_LAW(length >= 0 && length < static_cast<int>(sizeof text));
    return CStringA(text, length);
}

template <class Value>
void CheckAgainstTheCLibrary(std::string const & format, Value value)
{
    CStringA const expected = ByTheCLibrary(format, value);
    CStringA narrow;
    narrow.Format(format.c_str(), value);
    KR_LAW(narrow == expected);
    CString wide;
    wide.Format(CString(format.c_str()), value);
    KR_LAW(wide == CString(expected));
}

void CheckTexts(std::string const & beginning, std::string const & text)
{
    CStringA const expected = ByTheCLibrary(beginning + "s", text.c_str());
    CString const wideText(text.c_str());
    for (std::string const conversion : {"s", "hs"})
    {
        CStringA narrow;
        narrow.Format((beginning + conversion).c_str(), text.c_str());
        KR_LAW(narrow == expected);
    }
    for (std::string const conversion : {"S", "ls", "ws"})
    {
        CStringA narrow;
        narrow.Format((beginning + conversion).c_str(), wideText);
        KR_LAW(narrow == expected);
    }
    CString wide, widened;
    wide.Format(CString((beginning + "s").c_str()), wideText);
    widened.Format(CString((beginning + "S").c_str()), text.c_str());
    KR_LAW(wide == CString(expected) && widened == wide);
}

char Pick(FuzzInput & input, std::string_view choices)
{
    return choices[input.Below(static_cast<unsigned>(choices.size()))];
}

struct Beginning
{
    std::string text; ///< from the sign to the precision
    bool isAlternate = false;
    bool hasZeros = false;
    bool hasPrecision = false;
};

Beginning MakeBeginning(FuzzInput & input)
{
    Beginning beginning;
    unsigned const flags = input.Byte();
    for (unsigned index = 0; index < 5; ++index)
    {
        if (flags >> index & 1)
            beginning.text += "-+ #0"[index];
    }
    beginning.isAlternate = (flags >> 3 & 1) != 0;
    beginning.hasZeros = (flags >> 4 & 1) != 0;
    beginning.hasPrecision = (flags >> 6 & 1) != 0;
    if (flags >> 5 & 1)
        beginning.text += std::to_string(input.Below(100) + 1);
    if (beginning.hasPrecision)
        beginning.text += "." + std::to_string(input.Below(60));
    beginning.text.insert(0, "%");
    return beginning;
}

/// With '#' the C library drops the zeros of "%g" where rounding carries into a new digit; ours keep them.
bool LosesDigitsInTheCLibrary(Beginning const & beginning, char letter, double value)
{
    double const digits = std::log10(std::fabs(value));
    return beginning.isAlternate && (letter | 0x20) == 'g' && value != 0.0 && digits - std::floor(digits) > 0.9;
}

void CheckOneConversion(FuzzInput & input)
{
    Beginning const beginning = MakeBeginning(input);
    switch (input.Below(4))
    {
    case 0:
        return CheckAgainstTheCLibrary(beginning.text + Pick(input, "diuoxX"), input.Number<int>());
    case 1:
        return CheckAgainstTheCLibrary(beginning.text + Pick(input, "lzjt") + Pick(input, "diuoxX"),
                                       input.Number<long>());
    case 2:
    {
        char const letter = Pick(input, "fFeEgGaA");
        double const value = input.Number<double>();
        bool const isOurs = !std::isfinite(value) || ((letter | 0x20) == 'a' && !beginning.hasPrecision) ||
                            LosesDigitsInTheCLibrary(beginning, letter, value);
        if (!isOurs)
            CheckAgainstTheCLibrary(beginning.text + letter, value);
        return;
    }
    default:
    {
        std::string const text(input.Line());
        bool const isAscii = std::ranges::all_of(text, [](char unit) { return static_cast<signed char>(unit) >= 0; });
        if (isAscii && !beginning.hasZeros) // zeros in front of text mean nothing to the C library
            CheckTexts(beginning.text, text);
    }
    }
}

} // namespace

void CheckLaws(FuzzInput input)
{
    CheckAnyFormat(input.TextLine());
    while (!input.IsAtEnd())
        CheckOneConversion(input);
}

} // namespace kr::fuzz
