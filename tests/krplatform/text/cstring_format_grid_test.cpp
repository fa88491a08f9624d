// Formatting compared with the C library: every conversion with every set of flags, and random numbers.
#include <krplatform/text/cstring.h>

#include <gtest/gtest.h>

#include <bit>
#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

namespace
{

char const * const s_flags[] = {"",   "-",  "+",   " ",   "#",   "0",   "-0",  "+0",  " 0",  "+ ",   "-+",
                                "#0", "-#", "+#0", " #0", "-#0", "- #", "-+0", "+ 0", "#+-", "-+ #0"};
char const * const s_widths[] = {"", "1", "8", "30"};
char const * const s_precisions[] = {"", ".", ".0", ".1", ".5", ".20"};

template <class Value>
std::string ByTheCLibrary(std::string const & format, Value value)
{
    char text[3000];
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    int const length = std::snprintf(text, sizeof text, format.c_str(), value);
#pragma GCC diagnostic pop
    return std::string(text, static_cast<std::size_t>(length));
}

template <class Value>
void CheckAgainstTheCLibrary(std::string const & format, Value value)
{
    CStringA narrow;
    narrow.Format(format.c_str(), value);
    std::string const expected = ByTheCLibrary(format, value);
    ASSERT_EQ(narrow, expected.c_str()) << format << " of " << value;
    CString wide;
    wide.Format(CString(format.c_str()), value);
    ASSERT_EQ(wide, CString(expected.c_str())) << format << " of " << value;
}

/// With '#' the C library drops the zeros of "%g" where rounding carries into a new digit; ours keep them.
bool LosesDigitsInTheCLibrary(std::string const & format, double value)
{
    double const digits = std::log10(std::fabs(value));
    bool const carries = value != 0.0 && digits - std::floor(digits) > 0.999;
    return carries && format.find('#') != std::string::npos && (format.back() | 0x20) == 'g';
}

/// Calls `check` with every mix of flags, width and precision in front of `conversion`.
template <class Check>
void ForEachFormat(std::string const & conversion, Check check)
{
    for (char const * const flags : s_flags)
    {
        for (char const * const width : s_widths)
        {
            for (char const * const precision : s_precisions)
            {
                check(std::string("%") + flags + width + precision + conversion);
                if (testing::Test::HasFatalFailure())
                    return;
            }
        }
    }
}

} // namespace

TEST(CStringFormatGrid, IntegersAgreeWithTheCLibrary)
{
    for (std::string const conversion : {"d", "i", "u", "o", "x", "X"})
    {
        ForEachFormat(conversion,
                      [](std::string const & format)
                      {
                          for (int const value : {0, 1, -1, 7, 8, 255, -12345, INT_MAX, INT_MIN})
                              CheckAgainstTheCLibrary(format, value);
                      });
    }
}

TEST(CStringFormatGrid, LongIntegersAgreeWithTheCLibrary)
{
    for (std::string const conversion : {"ld", "lu", "lo", "lx", "llX", "zd", "jd", "td"})
    {
        ForEachFormat(conversion,
                      [](std::string const & format)
                      {
                          for (long const value : {0L, -1L, 5'000'000'000L, LONG_MAX, LONG_MIN})
                              CheckAgainstTheCLibrary(format, value);
                      });
    }
}

TEST(CStringFormatGrid, RealsAgreeWithTheCLibrary)
{
    for (std::string const conversion : {"f", "F", "e", "E", "g", "G"})
    {
        ForEachFormat(conversion,
                      [](std::string const & format)
                      {
                          for (double const value : {0.0, -0.0, 1.0, -2.5, 0.5, 9.9999996, 999999.5, 1e-5, 0.0001,
                                                     123456789.125, 1e15, 1e22, 1e100, 5e-324})
                          {
                              if (!LosesDigitsInTheCLibrary(format, value))
                                  CheckAgainstTheCLibrary(format, value);
                          }
                      });
    }
}

TEST(CStringFormatGrid, HexadecimalRealsAgreeWithTheCLibraryWhereThePrecisionIsGiven)
{
    for (std::string const conversion : {"a", "A"})
    {
        ForEachFormat(conversion,
                      [](std::string const & format)
                      {
                          if (format.find('.') == std::string::npos)
                              return;
                          for (double const value :
                               {0.0, -0.0, 1.0, 1.5, 1.03125, 1.09375, 1.96875, 0.1, DBL_MAX, 5e-324, 3e-310})
                              CheckAgainstTheCLibrary(format, value);
                      });
    }
}

TEST(CStringFormatGrid, TextsAgreeWithTheCLibraryButForZerosInFront)
{
    ForEachFormat("s",
                  [](std::string const & format)
                  {
                      if (format.find('0') < format.find_first_of("123456789.s"))
                          return; // the C library has no meaning for it
                      for (char const * const value : {"", "a", "abcdefghijklmnopqrstuvwxyz"})
                      {
                          CStringA text;
                          text.Format(format.c_str(), value);
                          ASSERT_EQ(text, ByTheCLibrary(format, value).c_str()) << format;
                      }
                  });
}

TEST(CStringFormatGrid, RandomRealsAgreeWithTheCLibrary)
{
    std::mt19937_64 generator(20240502);
    std::vector<std::string> const formats = {"%f",   "%e",    "%g",    "%.17g", "%.3f",
                                              "%.0f", "%.15e", "%.40f", "%#.9g", "%.13a"};
    for (int round = 0; round < 20'000; ++round)
    {
        double const value = std::bit_cast<double>(generator());
        if (std::isfinite(value))
            CheckAgainstTheCLibrary(formats[static_cast<std::size_t>(round) % formats.size()], value);
        double const ordinary = static_cast<double>(static_cast<std::int64_t>(generator()) >> 30) / 1000.0;
        CheckAgainstTheCLibrary(formats[static_cast<std::size_t>(round) % formats.size()], ordinary);
    }
}

TEST(CStringFormatGrid, TheLongestNumbersAgreeWithTheCLibrary)
{
    for (std::string const format : {"%.1074f", "%.1080f", "%.1200f", "%.800e", "%.1300e", "%.1100g", "%#.1300g"})
    {
        CheckAgainstTheCLibrary(format, 5e-324);
        CheckAgainstTheCLibrary(format, DBL_MIN);
        CheckAgainstTheCLibrary(format, 0.1);
        CheckAgainstTheCLibrary(format, DBL_MAX);
    }
}
