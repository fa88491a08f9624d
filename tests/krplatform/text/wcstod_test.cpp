#include <krplatform/text/numbers.h>

#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <bit>
#include <cfloat>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>

namespace
{

struct Row
{
    WCHAR const * text;
    double value;
    int length; ///< of the number with the spaces before it
};

std::uint64_t BitsOf(double value) { return std::bit_cast<std::uint64_t>(value); }

double Read(std::string const & text) { return wcstod(kr::test::Widen(text).c_str(), nullptr); }

/// `begin`, then `count` times `digit`, then `end`.
std::string Repeat(std::string begin, std::size_t count, char digit, std::string const & end)
{
    begin.append(count, digit);
    begin.append(end);
    return begin;
}

/// The C library reads by the C locale here.
void CheckAgainstTheCLibrary(std::string const & text)
{
    ASSERT_EQ(BitsOf(Read(text)), BitsOf(std::strtod(text.c_str(), nullptr))) << text;
}

} // namespace

TEST(Wcstod, ReadsTheNumberAtTheBeginning)
{
    // clang-format off
    Row const rows[] = {
        { OLESTR("1.5"),                 1.5,     3 },
        { OLESTR("-1.5"),               -1.5,     4 },
        { OLESTR("+1.5"),                1.5,     4 },
        { OLESTR(" \t\u00A01.5"),        1.5,     6 },
        { OLESTR("1.5 walls"),           1.5,     3 },
        { OLESTR("1,5"),                 1.0,     1 },  // the decimal mark is always a point
        { OLESTR(".5"),                  0.5,     2 },
        { OLESTR("5."),                  5.0,     2 },
        { OLESTR("-.5e1"),              -5.0,     5 },
        { OLESTR("1.2.3"),               1.2,     3 },
        { OLESTR("1e3"),              1000.0,     3 },
        { OLESTR("1E+3"),             1000.0,     4 },
        { OLESTR("1e-3"),              0.001,     4 },
        { OLESTR("1e"),                  1.0,     1 },  // an exponent counts only with digits
        { OLESTR("1e+"),                 1.0,     1 },
        { OLESTR("1e 3"),                1.0,     1 },
        { OLESTR("1-2"),                 1.0,     1 },
        { OLESTR("0x10"),                0.0,     1 },
        { OLESTR("0"),                   0.0,     1 },
        { OLESTR("-0"),                 -0.0,     2 },
        { OLESTR("000.000e5"),           0.0,     9 },
        { OLESTR("1e400"),          HUGE_VAL,     5 },
        { OLESTR("-1e400"),        -HUGE_VAL,     6 },
        { OLESTR("1e-400"),              0.0,     6 },
        { OLESTR("-1e-400"),            -0.0,     7 },
        { OLESTR("0e999999999999999999999"),       0.0, 23 },
        { OLESTR("1e999999999999999999999"),  HUGE_VAL, 23 },
        { OLESTR("1e-999999999999999999999"),      0.0, 24 },
        { OLESTR("123456789012345"),       123456789012345.0,  15 },
        { OLESTR("9007199254740993"),     9007199254740992.0,  16 },  // a tie goes to the even neighbour
        { OLESTR("12345.678901234567"),   12345.678901234567,  18 },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(kr::test::Narrow(row.text));
        WCHAR * end = nullptr;
        EXPECT_EQ(BitsOf(wcstod(row.text, &end)), BitsOf(row.value));
        EXPECT_EQ(end - row.text, row.length);
        EXPECT_EQ(BitsOf(wcstod(row.text, nullptr)), BitsOf(row.value));
    }
}

TEST(Wcstod, GivesTheTextItselfAsEndWhereThereIsNoNumber)
{
    for (WCHAR const * const text :
         {OLESTR(""), OLESTR(" "), OLESTR("wall"), OLESTR("."), OLESTR("-"), OLESTR("-."), OLESTR("- 1"), OLESTR("--1"),
          OLESTR("+-1"), OLESTR("-+1"), OLESTR(".e5"), OLESTR("-.e5"), OLESTR("e5"), OLESTR("inf"), OLESTR("-infinity"),
          OLESTR("nan"), OLESTR("  x1"), OLESTR("\uFF11")})
    {
        SCOPED_TRACE(kr::test::Narrow(text));
        WCHAR * end = nullptr;
        EXPECT_EQ(BitsOf(wcstod(text, &end)), BitsOf(0.0)); // a sign alone is no number, and changes none
        EXPECT_EQ(end, text);
    }
    std::basic_string<WCHAR> const points(70, OLESTR('.'));
    WCHAR * end = nullptr;
    EXPECT_EQ(wcstod(points.c_str(), &end), 0.0);
    EXPECT_EQ(end, points.c_str()) << "also where it is longer than ordinary numbers";
    EXPECT_EQ(wcstod(nullptr, &end), 0.0);
    EXPECT_EQ(end, nullptr);
}

TEST(Wcstod, ReadsNumbersOfAnyLengthExactly)
{
    std::string const exactHalf = "1.00000000000000011102230246251565404236316680908203125"; // between 1 and the next
    EXPECT_EQ(Read(exactHalf), 1.0);
    EXPECT_EQ(Read(Repeat(exactHalf, 900, '0', "")), 1.0);
    EXPECT_EQ(Read(Repeat(exactHalf, 900, '0', "1")), std::nextafter(1.0, 2.0)) << "the last digit decides";
    EXPECT_EQ(Read(Repeat("", 1000, '0', "12.5")), 12.5);
    EXPECT_EQ(BitsOf(Read(Repeat("", 1000, '0', "e5"))), BitsOf(0.0));
    EXPECT_EQ(BitsOf(Read(Repeat("-0.", 1000, '0', ""))), BitsOf(-0.0));
    EXPECT_EQ(Read(Repeat("0.", 400, '0', "1e401")), 1.0);
    EXPECT_EQ(Read(Repeat("1", 400, '0', "e-400")), 1.0);
    EXPECT_EQ(Read(Repeat("1", 900, '0', ".5e-900")), 1.0);
    EXPECT_EQ(Read(Repeat("1", 400, '0', "")), HUGE_VAL);
    EXPECT_EQ(Read(Repeat("12.5", 100, '0', "")), 12.5);
    EXPECT_EQ(Read(Repeat("", 70, '.', "")), 0.0);
    CheckAgainstTheCLibrary(Repeat("", 800, '7', "e-795"));
    CheckAgainstTheCLibrary(Repeat("0.000", 800, '3', ""));
    CheckAgainstTheCLibrary("1.7976931348623157e308");
    CheckAgainstTheCLibrary("1.7976931348623158e308");
    CheckAgainstTheCLibrary("1.7976931348623159e308");
    CheckAgainstTheCLibrary("2.2250738585072011e-308");
    CheckAgainstTheCLibrary("4.9406564584124654e-324");
    CheckAgainstTheCLibrary("2.4703282292062327e-324");
    CheckAgainstTheCLibrary("2.4703282292062328e-324");
}

TEST(Wcstod, AgreesWithTheCLibraryOnRandomNumbers)
{
    std::mt19937_64 generator(20240503);
    char text[400];
    for (int round = 0; round < 30'000; ++round)
    {
        double const value = std::bit_cast<double>(generator());
        if (!std::isfinite(value))
            continue;
        std::snprintf(text, sizeof text, "%.*e", round % 25, value);
        CheckAgainstTheCLibrary(text);
        double const ordinary = static_cast<double>(static_cast<std::int64_t>(generator()) >> (round % 60)) / 1e4;
        std::snprintf(text, sizeof text, "%.*f", round % 20, ordinary);
        CheckAgainstTheCLibrary(text);
        std::snprintf(text, sizeof text, "%.17g", value);
        ASSERT_EQ(BitsOf(Read(text)), BitsOf(value)) << text;
    }
}

TEST(Wcstod, FollowsNoLocaleOfTheCLibrary)
{
    for (char const * const name : {"de_DE.UTF-8", "de_DE", "fr_FR.UTF-8"})
        std::setlocale(LC_ALL, name); // where one of them is installed
    EXPECT_EQ(wcstod(OLESTR("1.5"), nullptr), 1.5);
    EXPECT_EQ(wcstod(OLESTR("1,5"), nullptr), 1.0);
    std::setlocale(LC_ALL, "C");
}
