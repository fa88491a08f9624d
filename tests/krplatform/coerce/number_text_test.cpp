#include <krplatform/coerce/number_text.h>

#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <limits>

namespace kr::test
{

using detail::AmountText;
using detail::IntegerText;
using detail::RealText;

namespace
{

template <class Real>
struct Row
{
    Real number;
    char const * text;
};

template <class Real>
void CheckReal(Row<Real> const & row)
{
    SCOPED_TRACE(row.text);
    EXPECT_EQ(Narrow(RealText(row.number, OLESTR('.')).View()), row.text);
    if (row.number != 0 && row.text[0] != 'n')
    {
        EXPECT_EQ(Narrow(RealText(-row.number, OLESTR('.')).View()), std::string("-") + row.text);
    }
}

constexpr double s_infinity = std::numeric_limits<double>::infinity();

} // namespace

TEST(NumberText, DoublesHaveUpTo15DigitsAndNoZerosAtTheEnd)
{
    // clang-format off
    Row<double> const rows[] = {
        { 1,                         "1"                    },
        { 10,                        "10"                   },
        { 1200,                      "1200"                 },
        { 1.5,                       "1.5"                  },
        { 1234.5678,                 "1234.5678"            },
        { 0.1,                       "0.1"                  },
        { 0.1 + 0.2,                 "0.3"                  },
        { 2.0 / 3,                   "0.666666666666667"    },
        { 3.14159265358979323846,    "3.14159265358979"     },
        { 9.9999999999999991,        "10"                   },
        { 99.9999999999999858,       "100"                  },
        { 123456789.123456789,       "123456789.123457"     },
    };
    // clang-format on
    for (Row<double> const & row : rows)
        CheckReal(row);
}

TEST(NumberText, DoublesArePlainWhileFifteenPlacesBeforeAndBehindThePointAreEnough)
{
    // clang-format off
    Row<double> const rows[] = {
        { 123456789012345,           "123456789012345"      },
        { 999999999999999,           "999999999999999"      },
        { 999999999999999.4,         "999999999999999"      },
        { 999999999999999.5,         "1E+15"                },
        { 1e14,                      "100000000000000"      },
        { 1e15,                      "1E+15"                },
        { 1234567890123456,          "1.23456789012346E+15" },
        { 0.00001,                   "0.00001"              },
        { 1e-15,                     "0.000000000000001"    },
        { 1.5e-14,                   "0.000000000000015"    },
        { 1e-16,                     "1E-16"                },
        { 1.5e-15,                   "1.5E-15"              },  // 16 places would be needed
        { 0.000123456789012345,      "1.23456789012345E-04" },  // 18
        { 0.012345678901234,         "0.012345678901234"    },  // 15
        { 1.0 / 30,                  "3.33333333333333E-02" },  // Deliberate: not 0.0333333333333333
        { 100.1 - 100,               "9.99999999999943E-02" },
    };
    // clang-format on
    for (Row<double> const & row : rows)
        CheckReal(row);
}

TEST(NumberText, ExponentsHaveTwoDigitsOrThree)
{
    // clang-format off
    Row<double> const rows[] = {
        { 1e99,                      "1E+99"                },
        { 1e100,                     "1E+100"               },
        { 1e-99,                     "1E-99"                },
        { 1.25e-100,                 "1.25E-100"            },
        { std::numeric_limits<double>::max(),        "1.79769313486232E+308" },
        { std::numeric_limits<double>::min(),        "2.2250738585072E-308"  },
        { std::numeric_limits<double>::denorm_min(), "4.94065645841247E-324" },
    };
    // clang-format on
    for (Row<double> const & row : rows)
        CheckReal(row);
}

TEST(NumberText, TiesGoAwayFromZero)
{
    // clang-format off
    Row<double> const rows[] = {
        { 100000000000000.5,         "100000000000001"      },
        { 100000000000001.5,         "100000000000002"      },
        { 12345678901234.25,         "12345678901234.3"     },  // to even would be .2
        { 0.00001239776611328125,    "1.23977661132813E-05" },
        { 1000000000000005,          "1.00000000000001E+15" },
        { 1000000000000015,          "1.00000000000002E+15" },
        { 10000000000000050,         "1.00000000000001E+16" },
        { 17999999999999950,         "1.8E+16"              },
    };
    // clang-format on
    for (Row<double> const & row : rows)
        CheckReal(row);
}

TEST(NumberText, FloatsHaveUpToSevenDigits)
{
    // clang-format off
    Row<float> const rows[] = {
        { 0.1f,                      "0.1"                  },
        { 1.0f / 3,                  "0.3333333"            },
        { 1.0f / 30,                 "3.333334E-02"         },
        { 654322.25f,                "654322.3"             },  // a tie
        { 1000000.5f,                "1000001"              },
        { 9999999.0f,                "9999999"              },
        { 10000000.0f,               "1E+07"                },
        { 16777216.0f,               "1.677722E+07"         },
        { 10000005.0f,               "1.000001E+07"         },  // a tie
        { 1e-7f,                     "0.0000001"            },
        { 1.2e-6f,                   "0.0000012"            },
        { 1.2e-7f,                   "1.2E-07"              },
        { 8589973504.0f,             "8.589974E+09"         },
        { 1e20f,                     "1E+20"                },
        { std::numeric_limits<float>::max(),         "3.402823E+38" },
        { std::numeric_limits<float>::denorm_min(),  "1.401298E-45" },
    };
    // clang-format on
    for (Row<float> const & row : rows)
        CheckReal(row);
}

TEST(NumberText, EitherZeroIsZero)
{
    EXPECT_EQ(Narrow(RealText(0.0, OLESTR('.')).View()), "0");
    EXPECT_EQ(Narrow(RealText(-0.0, OLESTR('.')).View()), "0");
    EXPECT_EQ(Narrow(RealText(-0.0f, OLESTR('.')).View()), "0");
}

TEST(NumberText, WhatIsNoNumberHasAName)
{
    EXPECT_EQ(Narrow(RealText(s_infinity, OLESTR('.')).View()), "inf");
    EXPECT_EQ(Narrow(RealText(-s_infinity, OLESTR('.')).View()), "-inf");
    EXPECT_EQ(Narrow(RealText(std::numeric_limits<double>::quiet_NaN(), OLESTR('.')).View()), "nan");
    EXPECT_EQ(Narrow(RealText(-std::numeric_limits<double>::quiet_NaN(), OLESTR('.')).View()), "nan");
    EXPECT_EQ(Narrow(RealText(std::numeric_limits<float>::infinity(), OLESTR('.')).View()), "inf");
}

TEST(NumberText, TheDecimalMarkStandsInEveryForm)
{
    EXPECT_EQ(Narrow(RealText(1234.5, OLESTR(',')).View()), "1234,5");
    EXPECT_EQ(Narrow(RealText(0.25, OLESTR(',')).View()), "0,25");
    EXPECT_EQ(Narrow(RealText(1.5e20, OLESTR(',')).View()), "1,5E+20");
    EXPECT_EQ(Narrow(RealText(1e20, OLESTR(',')).View()), "1E+20");
    EXPECT_EQ(Narrow(AmountText(-12345, OLESTR(',')).View()), "-1,2345");
}

TEST(NumberText, AmountsHaveAsManyPlacesAsNeeded)
{
    struct AmountRow
    {
        LONGLONG tenThousandths;
        char const * text;
    };
    // clang-format off
    AmountRow const rows[] = {
        {                    0, "0"                     },
        {                    1, "0.0001"                },
        {                   10, "0.001"                 },
        {                  100, "0.01"                  },
        {                 1000, "0.1"                   },
        {                10000, "1"                     },
        {                10010, "1.001"                 },
        {               -12340, "-1.234"                },
        {           1000000000, "100000"                },
        {  9223372036854775807, "922337203685477.5807"  },
        { -9223372036854775807, "-922337203685477.5807" },
        { std::numeric_limits<LONGLONG>::min(), "-922337203685477.5808" },
    };
    // clang-format on
    for (AmountRow const & row : rows)
    {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(Narrow(AmountText(row.tenThousandths, OLESTR('.')).View()), row.text);
    }
}

TEST(NumberText, IntegersReachTheirLimits)
{
    EXPECT_EQ(Narrow(IntegerText(LONGLONG{0}).View()), "0");
    EXPECT_EQ(Narrow(IntegerText(LONGLONG{-10}).View()), "-10");
    EXPECT_EQ(Narrow(IntegerText(std::numeric_limits<LONGLONG>::max()).View()), "9223372036854775807");
    EXPECT_EQ(Narrow(IntegerText(std::numeric_limits<LONGLONG>::min()).View()), "-9223372036854775808");
    EXPECT_EQ(Narrow(IntegerText(std::numeric_limits<ULONGLONG>::max()).View()), "18446744073709551615");
}

} // namespace kr::test
