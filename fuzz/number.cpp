// Numbers and their text: a locale, a line of text to be read, then the bytes of numbers to be written.
#include "fuzz/fuzz_locales.h"
#include "fuzz/fuzz_target.h"

#include <krplatform/automation/vartext.h>
#include <krplatform/text/bstr.h>
#include <krplatform/text/casing.h>
#include <krplatform/text/numbers.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace kr::fuzz
{

namespace
{

/// The beginning that consists of the given characters, for the C library.
template <class Predicate>
std::string NarrowBeginning(WCHAR const * text, Predicate belongs)
{
    std::string beginning;
    for (; *text != 0 && *text < 0x80 && belongs(static_cast<char>(*text)); ++text)
        beginning += static_cast<char>(*text);
    return beginning;
}

WCHAR const * SkipSpaces(WCHAR const * text)
{
    while (detail::IsSpace(*text))
        ++text;
    return text;
}

bool IsPartOfReal(char unit) { return std::string_view("0123456789+-.eE").find(unit) != std::string_view::npos; }

bool IsLetterOrDigit(char unit)
{
    return (unit >= '0' && unit <= '9') || (unit >= 'a' && unit <= 'z') || (unit >= 'A' && unit <= 'Z');
}

void CheckReals(WCHAR const * text)
{
    WCHAR const * const start = SkipSpaces(text);
    std::string const narrow = NarrowBeginning(start, IsPartOfReal); // no words, nothing hexadecimal
    char * narrowEnd = nullptr;
    double const expected = std::strtod(narrow.c_str(), &narrowEnd);
    std::ptrdiff_t const length = narrowEnd - narrow.c_str();

    WCHAR * end = nullptr;
    double const value = wcstod(text, &end);
    KR_LAW(value == expected && std::signbit(value) == std::signbit(expected));
    KR_LAW(end == (length == 0 ? text : start + length));

    double scanned = 0.5;
    int position = -1;
    int const count = swscanf(text, OLESTR("%lf%n"), &scanned, &position);
    KR_LAW(count == (length != 0 ? 1 : *start == 0 ? -1 : 0));
    KR_LAW(length != 0 ? scanned == expected && text + position == end : scanned == 0.5 && position == -1);
}

struct Integer
{
    std::ptrdiff_t length = 0; ///< units behind the white space
    bool isNegative = false;
    unsigned long long magnitude = 0;

    LONGLONG Within(LONGLONG lowest, LONGLONG highest) const
    {
        unsigned long long const limit = static_cast<unsigned long long>(isNegative ? -(lowest + 1) : highest);
        LONGLONG const held = static_cast<LONGLONG>(std::min(magnitude, limit));
        return !isNegative ? held : magnitude > limit ? lowest : -held;
    }
};

Integer IntegerByTheCLibrary(WCHAR const * text, int base)
{
    Integer number;
    WCHAR const * const start = SkipSpaces(text);
    number.isNegative = *start == '-';
    WCHAR const * const digits = start + (*start == '-' || *start == '+');
    std::string const narrow = NarrowBeginning(digits, IsLetterOrDigit);
    char * end = nullptr;
    number.magnitude = std::strtoull(narrow.c_str(), &end, base); // the largest where it is larger
    if (end != narrow.c_str())
        number.length = digits - start + (end - narrow.c_str());
    return number;
}

void CheckIntegers(WCHAR const * text)
{
    constexpr LONGLONG lowest = std::numeric_limits<int>::min(), highest = std::numeric_limits<int>::max();
    std::ptrdiff_t const spaces = SkipSpaces(text) - text;

    Integer const decimal = IntegerByTheCLibrary(text, 10);
    KR_LAW(_wtoi(text) == decimal.Within(lowest, highest));
    KR_LAW(_wtol(text) == decimal.Within(lowest, highest));

    struct Conversion
    {
        WCHAR const * format;
        int base;
        bool isSigned;
    };
    constexpr Conversion conversions[] = {{OLESTR("%d%n"), 10, true},
                                          {OLESTR("%i%n"), 0, true},
                                          {OLESTR("%u%n"), 10, false},
                                          {OLESTR("%x%n"), 16, false},
                                          {OLESTR("%o%n"), 8, false}};
    for (Conversion const & conversion : conversions)
    {
        Integer const expected = IntegerByTheCLibrary(text, conversion.base);
        unsigned scanned = 77;
        int position = -1;
        swscanf(text, conversion.format, &scanned, &position);
        KR_LAW(position == (expected.length != 0 ? spaces + expected.length : -1));
        if (expected.length == 0)
            KR_LAW(scanned == 77);
        else if (conversion.isSigned)
            KR_LAW(static_cast<int>(scanned) == expected.Within(lowest, highest));
        else if (expected.magnitude > std::numeric_limits<unsigned>::max())
            KR_LAW(scanned == std::numeric_limits<unsigned>::max());
        else
            KR_LAW(scanned == static_cast<unsigned>(expected.isNegative ? 0 - expected.magnitude : expected.magnitude));
    }
}

template <class Value, class Result>
CString Written(HRESULT (*write)(Value, LCID, ULONG, Result *), Value value, LCID locale)
{
    BSTR text = nullptr;
    KR_LAW(SUCCEEDED(write(value, locale, 0, &text)));
    CString const copy(text, static_cast<int>(SysStringLen(text)));
    SysFreeString(text);
    return copy;
}

/// Reads into a place that holds `before`, which stays after a failure.
template <class Value, class Wide>
HRESULT Read(HRESULT (*read)(Wide const *, LCID, ULONG, Value *), CString const & text, LCID locale, Value & value)
{
    Value before;
    std::memset(&before, 0x5A, sizeof before);
    value = before;
    HRESULT const result = read(text, locale, 0, &value);
    KR_LAW(SUCCEEDED(result) || std::memcmp(&value, &before, sizeof value) == 0);
    KR_LAW(SUCCEEDED(result) || result == DISP_E_TYPEMISMATCH || result == DISP_E_OVERFLOW);
    return result;
}

/// What is written is read back and written the same again.
void CheckWrittenReal(double value, LCID locale)
{
    CString const text = Written(VarBstrFromR8, value, locale);
    double again = 0;
    HRESULT const result = Read(VarR8FromStr, text, locale, again);
    if (!std::isfinite(value))
        KR_LAW(result == DISP_E_TYPEMISMATCH);
    else if (FAILED(result)) // fifteen digits may round past the largest number
        KR_LAW(result == DISP_E_OVERFLOW && std::fabs(value) > 1.7976931348623e308);
    else
        KR_LAW(Written(VarBstrFromR8, again, locale) == text);
}

void CheckAmount(CY amount, LCID locale)
{
    CY again;
    KR_LAW(SUCCEEDED(Read(VarCyFromStr, Written(VarBstrFromCy, amount, locale), locale, again)));
    KR_LAW(again.int64 == amount.int64);
}

void CheckLocaleText(CString const & text, LCID locale)
{
    double value = 0;
    HRESULT const result = Read(VarR8FromStr, text, locale, value);

    double spaced = 0;
    KR_LAW(Read(VarR8FromStr, OLESTR("\t ") + text + OLESTR(" "), locale, spaced) == result);
    KR_LAW(FAILED(result) || spaced == value);

    CY amount;
    HRESULT const amountResult = Read(VarCyFromStr, text, locale, amount);
    VARIANT_BOOL truth = 0;
    HRESULT const truthResult = Read(VarBoolFromStr, text, locale, truth);
    if (FAILED(result))
    {
        KR_LAW(amountResult == result);
        KR_LAW(truthResult == result || (SUCCEEDED(truthResult) && result == DISP_E_TYPEMISMATCH)); // a word
        return;
    }
    KR_LAW(std::isfinite(value));
    CheckWrittenReal(value, locale);
    KR_LAW(SUCCEEDED(truthResult) && truth == (value != 0 ? VARIANT_TRUE : VARIANT_FALSE));
    if (SUCCEEDED(amountResult))
    {
        KR_LAW(std::fabs(static_cast<double>(amount.int64) / 10000 - value) <= 0.00005 + std::fabs(value) * 1e-15);
        CheckAmount(amount, locale);
    }
    else
        KR_LAW(amountResult == DISP_E_OVERFLOW && std::fabs(value) > 922337203685477.0);
}

/// A plain decimal number as ten-thousandths, digit by digit; half goes to the even neighbour.
void CheckPlainAmount(CString const & text)
{
    std::string const narrow = NarrowBeginning(text, [](char) { return true; });
    std::size_t const point = narrow.find('.');
    std::size_t const whole = std::min(point, narrow.size());
    bool const isPlain = narrow.size() == text.View().size() && whole >= 1 && whole <= 12 &&
                         std::ranges::count_if(narrow, [](char unit) { return unit >= '0' && unit <= '9'; }) +
                                 (point != std::string::npos) ==
                             static_cast<std::ptrdiff_t>(narrow.size());
    if (!isPlain)
        return;
    std::string fraction = point == std::string::npos ? std::string() : narrow.substr(point + 1);
    fraction.resize(std::max<std::size_t>(fraction.size(), 5), '0');
    LONGLONG units = std::atoll((narrow.substr(0, whole) + fraction.substr(0, 4)).c_str());
    std::string const rest = fraction.substr(4), half = "5" + std::string(rest.size() - 1, '0');
    units += rest > half || (rest == half && units % 2 != 0);
    CY amount;
    KR_LAW(SUCCEEDED(Read(VarCyFromStr, text, LOCALE_INVARIANT, amount)) && amount.int64 == units);
}

/// What the runtime reads whole is a number for automation too.
void CheckAgreement(CString const & text)
{
    WCHAR * end = nullptr;
    double const expected = wcstod(text, &end);
    double value = 0;
    HRESULT const result = VarR8FromStr(text, LOCALE_INVARIANT, 0, &value);
    if (end != text.GetString() && *end == 0 && std::fabs(expected) != 0x1p-1074) // less than this is nothing there
        KR_LAW(std::isinf(expected) ? result == DISP_E_OVERFLOW : SUCCEEDED(result) && value == expected);
}

/// All digits of a number by the C library, rounded by hand; `0.ddd` times ten to the power of `exponent`.
std::string RoundedDigits(double magnitude, std::size_t count, int & exponent)
{
    char text[800];
    std::snprintf(text, sizeof text, "%.780e", magnitude);
    std::string_view const view(text);
    exponent = std::atoi(text + view.find('e') + 1) + 1;
    std::string all = text[0] + std::string(view.substr(2, 780));
    bool const roundsUp = all[count] >= '5';
    all.resize(count);
    if (roundsUp)
    {
        std::size_t const last = all.find_last_not_of('9');
        if (last == std::string::npos)
        {
            ++exponent;
            return "1";
        }
        all.resize(last + 1);
        ++all[last];
    }
    all.resize(all.find_last_not_of('0') + 1);
    return all;
}

std::string SlowRealText(double value, int limit)
{
    if (value == 0)
        return "0";
    int exponent = 0;
    std::string const digits = RoundedDigits(std::fabs(value), static_cast<std::size_t>(limit), exponent);
    int const count = static_cast<int>(digits.size());
    std::string const sign = value < 0 ? "-" : "";
    if (exponent > limit || count - exponent > limit)
    {
        char mark[16];
        std::snprintf(mark, sizeof mark, "E%+03d", exponent - 1);
        return sign + digits[0] + (count > 1 ? "." + digits.substr(1) : "") + mark;
    }
    if (exponent <= 0)
        return sign + "0." + std::string(static_cast<std::size_t>(-exponent), '0') + digits;
    std::size_t const whole = static_cast<std::size_t>(exponent);
    if (digits.size() <= whole)
        return sign + digits + std::string(whole - digits.size(), '0');
    return sign + digits.substr(0, whole) + "." + digits.substr(whole);
}

void CheckIntegerText(int value, int base)
{
    WCHAR text[34];
    KR_LAW(_itow_s(value, text, std::size(text), base) == 0);
    std::string const narrow = NarrowBeginning(text, [](char) { return true; });
    long long const read = std::strtoll(narrow.c_str(), nullptr, base);
    KR_LAW(base == 10 ? read == value : read == static_cast<unsigned>(value));
    KR_LAW(base != 10 || _wtoi(text) == value);

    std::size_t const size = narrow.size();
    WCHAR tight[34] = {'?'};
    KR_LAW(_itow_s(value, tight, size, base) == ERANGE && tight[0] == 0);
    KR_LAW(_itow_s(value, tight, size + 1, base) == 0 && CString(tight) == text);
}

} // namespace

void CheckLaws(FuzzInput input)
{
    LCID const locale = locales[input.Below(localeCount)];
    CString const text = TextOf(input.TextLine()).GetString(); // up to its first zero
    CheckReals(text);
    CheckIntegers(text);
    CheckLocaleText(text, locale);
    CheckAgreement(text);
    CheckPlainAmount(text);

    double const real = input.Number<double>();
    CheckWrittenReal(real, locale);
    if (std::isfinite(real))
        KR_LAW(Written(VarBstrFromR8, real, LOCALE_INVARIANT) == CString(SlowRealText(real, 15).c_str()));
    float const shortReal = input.Number<float>();
    if (std::isfinite(shortReal))
        KR_LAW(Written(VarBstrFromR4, shortReal, LOCALE_INVARIANT) ==
               CString(SlowRealText(static_cast<double>(shortReal), 7).c_str()));
    CheckAmount(CY{.int64 = input.Number<LONGLONG>()}, locale);
    CheckIntegerText(input.Number<int>(), 2 + static_cast<int>(input.Below(35)));
}

} // namespace kr::fuzz
