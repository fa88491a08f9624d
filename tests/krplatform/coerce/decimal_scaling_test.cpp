#include <krplatform/coerce/decimal_scaling.h>

#include <krplatform/base/types.h>

#include <gtest/gtest.h>

#include <charconv>
#include <random>
#include <string>

namespace detail = kr::detail;

namespace
{

double Nearest(std::uint64_t digits, int exponent)
{
    std::string const text = std::to_string(digits) + "e" + std::to_string(exponent);
    double real = 0;
    std::from_chars(text.data(), text.data() + text.size(), real);
    return real;
}

/// Checks digits against the standard library; whether they could be scaled.
bool CheckScaled(std::uint64_t digits, int exponent)
{
    double real = -1;
    if (!detail::ScaleDecimal(digits, exponent, real))
    {
        EXPECT_EQ(real, -1) << digits << "e" << exponent;
        return false;
    }
    EXPECT_EQ(real, Nearest(digits, exponent)) << digits << "e" << exponent;
    return true;
}

struct Plain
{
    detail::TextView text;
    double real; ///< -1: cannot be read
    std::size_t length;
};

} // namespace

TEST(DecimalScaling, RoundsOnceWhereBothFactorsAreExact)
{
    for (std::uint64_t const digits : {0ull, 1ull, 3ull, 12345678ull, 9007199254740991ull, 9007199254740992ull})
    {
        for (int exponent = -22; exponent <= 22; ++exponent)
            EXPECT_TRUE(CheckScaled(digits, exponent));
    }
}

TEST(DecimalScaling, LeavesLargeExponentsToOthers)
{
    for (int const exponent : {-23, 23, -400, 400})
        EXPECT_FALSE(CheckScaled(1, exponent));
}

TEST(DecimalScaling, RoundsWholeNumbersOfAllLengths)
{
    for (std::uint64_t const digits : {9007199254740993ull, 9007199254740995ull, 12345678901234567ull,
                                       9223372036854775809ull, 9999999999999999999ull})
        EXPECT_TRUE(CheckScaled(digits, 0)) << digits;
}

TEST(DecimalScaling, AgreesWithTheStandardLibraryOnLongDigits)
{
    constexpr unsigned seed = 20260801;
    std::mt19937_64 random(seed);
    std::uniform_int_distribution<std::uint64_t> anyDigits(1, 9999999999999999999ull);
    std::uniform_int_distribution<int> anyExponent(-22, 22);
    int scaled = 0;
    for (int round = 0; round < 100000; ++round)
        scaled += CheckScaled(anyDigits(random), anyExponent(random));
    EXPECT_GT(scaled, 99900) << "seed " << seed; // hardly ever in doubt
}

TEST(DecimalScaling, IsInDoubtNextToTheMiddleOfTwoDoubles)
{
    EXPECT_FALSE(CheckScaled(90071992547409930, -1)); // 2^53 + 1 exactly, and digits that say so only in full
    EXPECT_TRUE(CheckScaled(90071992547409931, -1));
    EXPECT_TRUE(CheckScaled(90071992547409929, -1));
}

TEST(PlainReal, IsReadAsFarAsItGoes)
{
    // clang-format off
    Plain const rows[] = {
        // text                          real        length
        { OLESTR("0"),                   0,           1 },
        { OLESTR("12345.678"),           12345.678,   9 },
        { OLESTR("5."),                  5,           2 },
        { OLESTR(".5"),                  0.5,         2 },
        { OLESTR("1.2.3"),               1.2,         3 },
        { OLESTR("17 m"),                17,          2 },
        { OLESTR("1-2"),                 1,           1 },
        { OLESTR("1e3"),                 1000,        3 },
        { OLESTR("1E+03x"),              1000,        5 },
        { OLESTR("25e-1"),               2.5,         5 },
        { OLESTR("1.5e1.5"),             15,          5 },
        { OLESTR("1e"),                  1,           1 },  // an e without digits is left standing
        { OLESTR("1e+"),                 1,           1 },
        { OLESTR("1ex"),                 1,           1 },
        { OLESTR("0000000000000000001"), 1,          19 },
        { OLESTR("00000000000000000001"), -1,         0 },  // 20 digits
        { OLESTR("1e23"),                -1,          0 },
        { OLESTR("1e99999999999"),       -1,          0 },
        { OLESTR("1e-99999999999"),      -1,          0 },
        { OLESTR(""),                    -1,          0 },
        { OLESTR("."),                   -1,          0 },
        { OLESTR("-1"),                  -1,          0 },
        { OLESTR("e5"),                  -1,          0 },
        { OLESTR("x"),                   -1,          0 },
        { OLESTR("\u0661"),              -1,          0 },  // a digit of another script
    };
    // clang-format on
    for (Plain const & row : rows)
    {
        SCOPED_TRACE(std::string(row.text.begin(), row.text.end()));
        WCHAR const * position = row.text.data();
        double real = -1;
        bool const isRead = detail::ReadPlainReal(position, row.text.data() + row.text.size(), OLESTR('.'), real);
        EXPECT_EQ(isRead, row.real != -1);
        EXPECT_EQ(real, row.real);
        EXPECT_EQ(position - row.text.data(), static_cast<std::ptrdiff_t>(row.length));
    }
}

TEST(PlainReal, TakesTheMarkThatItIsGiven)
{
    detail::TextView const text = OLESTR("1,5.2");
    WCHAR const * position = text.data();
    double real = 0;
    EXPECT_TRUE(detail::ReadPlainReal(position, text.data() + text.size(), OLESTR(','), real));
    EXPECT_EQ(real, 1.5);
    EXPECT_EQ(position, text.data() + 3);
}

TEST(PlainReal, EndsAtTheTerminatorWhereNoEndIsKnown)
{
    WCHAR const text[] = OLESTR("2.5e1");
    WCHAR const * position = text;
    double real = 0;
    EXPECT_TRUE(detail::ReadPlainReal(position, nullptr, OLESTR('.'), real));
    EXPECT_EQ(real, 25);
    EXPECT_EQ(position, text + 5);
}
