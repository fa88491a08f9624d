#include <krplatform/coerce/number_parse.h>

#include "tests/krplatform/coerce/locale_samples.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <optional>

namespace kr::test
{

using detail::LocaleFacts;
using detail::ParsedNumber;
using detail::TextView;

namespace
{

std::optional<double> Read(TextView text, LocaleFacts const & locale)
{
    ParsedNumber number;
    double real = 0;
    if (!detail::ParseNumber(text, locale, number) || FAILED(detail::NumberToReal(number, real)))
        return std::nullopt;
    return real;
}

constexpr std::nullopt_t none = std::nullopt;

struct Row
{
    WCHAR const * text;
    std::optional<double> number;
};

template <std::size_t Count>
void CheckRows(LocaleFacts const & locale, Row const (&rows)[Count])
{
    for (Row const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.text));
        EXPECT_EQ(Read(row.text, locale), row.number);
    }
}

} // namespace

TEST(NumberParse, ReadsDigitsWithThePointOnEitherSide)
{
    // clang-format off
    Row const rows[] = {
        { OLESTR("0"),           0      },
        { OLESTR("00012"),       12     },
        { OLESTR("1.5"),         1.5    },
        { OLESTR("5."),          5      },
        { OLESTR(".5"),          0.5    },
        { OLESTR("-.5"),         -0.5   },
        { OLESTR("0.0001"),      0.0001 },
        { OLESTR(""),            none   },
        { OLESTR(" "),           none   },
        { OLESTR("."),           none   },
        { OLESTR("-."),          none   },
        { OLESTR("1..2"),        none   },
        { OLESTR("1.2.3"),       none   },
        { OLESTR("abc"),         none   },
        { OLESTR("1abc"),        none   },
        { OLESTR("abc1"),        none   },
        { OLESTR("50%"),         none   },
        { OLESTR("1/2"),         none   },
        { OLESTR("nan"),         none   },
        { OLESTR("inf"),         none   },
        { OLESTR("1.#INF"),      none   },
        { OLESTR("\uFF11"),      none   },  // a wide digit
        { OLESTR("\u0661"),      none   },  // an Arabic one
    };
    // clang-format on
    CheckRows(english, rows);
}

TEST(NumberParse, TakesOneSignBeforeOrBehind)
{
    // clang-format off
    Row const rows[] = {
        { OLESTR("+1"),          1      },
        { OLESTR("-1"),          -1     },
        { OLESTR("1+"),          1      },
        { OLESTR("1-"),          -1     },
        { OLESTR("- 1"),         -1     },
        { OLESTR("1 -"),         -1     },
        { OLESTR("+"),           none   },
        { OLESTR("-"),           none   },
        { OLESTR("--1"),         none   },
        { OLESTR("++1"),         none   },
        { OLESTR("1--"),         none   },
        { OLESTR("-1-"),         none   },
        { OLESTR("+1-"),         none   },
        { OLESTR("1+-"),         none   },
        { OLESTR("+-1"),         -1     },  // one of each kind is let pass in front
        { OLESTR("\u22121"),     none   },  // the mathematical minus
    };
    // clang-format on
    CheckRows(english, rows);
}

TEST(NumberParse, TakesParenthesesForAMinus)
{
    // clang-format off
    Row const rows[] = {
        { OLESTR("(1)"),         -1     },
        { OLESTR("(1.5)"),       -1.5   },
        { OLESTR("( 1 )"),       -1     },
        { OLESTR("(-1)"),        -1     },
        { OLESTR("($1)"),        -1     },
        { OLESTR("$(1)"),        -1     },
        { OLESTR("(1"),          none   },
        { OLESTR("1)"),          none   },
        { OLESTR("((1))"),       none   },
        { OLESTR("(1))"),        none   },
        { OLESTR("()"),          none   },
    };
    // clang-format on
    CheckRows(english, rows);
}

TEST(NumberParse, TakesBlanksOfAnyKindAroundButNotWithin)
{
    // clang-format off
    Row const rows[] = {
        { OLESTR("  12  "),      12     },
        { OLESTR("\t\n\v\f\r1"), 1      },
        { OLESTR("1\u0085"),     1      },
        { OLESTR("\u00A01"),     1      },
        { OLESTR("\u20031\u2009"), 1    },
        { OLESTR("\u30001"),     1      },
        { OLESTR("\u200B1"),     none   },  // of no width, and no blank
        { OLESTR("1 2"),         none   },
        { OLESTR("1 .5"),        none   },
        { OLESTR("1\u00A0234"),  none   },
    };
    // clang-format on
    CheckRows(english, rows);
}

TEST(NumberParse, GroupMarksCountNowhereButDoNotLead)
{
    // clang-format off
    Row const rows[] = {
        { OLESTR("1,234.5"),     1234.5 },
        { OLESTR("1,2,3"),       123    },
        { OLESTR("1,,2"),        12     },
        { OLESTR("12,"),         12     },
        { OLESTR("1.2,3"),       1.23   },
        { OLESTR("1,e,+,3,"),    1000   },
        { OLESTR(",1"),          none   },
        { OLESTR("-,1"),         none   },
        { OLESTR(".,5"),         none   },
    };
    Row const germanRows[] = {
        { OLESTR("1.5"),         15       },
        { OLESTR("1,5"),         1.5      },
        { OLESTR("1.234,5"),     1234.5   },
        { OLESTR("1,234.5"),     1.2345   },
        { OLESTR("15.03.2021"),  15032021 },
        { OLESTR(".5"),          none     },
    };
    // clang-format on
    CheckRows(english, rows);
    CheckRows(german, germanRows);
}

TEST(NumberParse, AGroupMarkThatIsABlankMayBeAnyOfTheBlanksThatPartDigits)
{
    // clang-format off
    Row const rows[] = {
        { OLESTR("1\u00A0234,5"), 1234.5 },
        { OLESTR("1 234,5"),      1234.5 },
        { OLESTR("1\u202F234,5"), 1234.5 },
        { OLESTR("1 e3"),         1000   },
        { OLESTR(" 1 "),          1      },
        { OLESTR("1\u2003234"),   none   },
        { OLESTR("1.5"),          none   },
    };
    // clang-format on
    CheckRows(french, rows);
}

TEST(NumberParse, ALocaleWithoutGroupMarkHasNone)
{
    LocaleFacts const locale = MakeLocale(OLESTR('.'), 0, OLESTR(""));
    WCHAR const withZero[] = {OLESTR('1'), 0, OLESTR('2')};
    EXPECT_EQ(Read(TextView(withZero, 3), locale), none);
    EXPECT_EQ(Read(OLESTR("1,2"), locale), none);
    EXPECT_EQ(Read(OLESTR("12"), locale), 12.0);
}

TEST(NumberParse, TakesTheCurrencySymbolOnceBeforeOrBehind)
{
    // clang-format off
    Row const rows[] = {
        { OLESTR("$1"),          1      },
        { OLESTR("$ 1"),         1      },
        { OLESTR("1$"),          1      },
        { OLESTR("1 $"),         1      },
        { OLESTR("-$1"),         -1     },
        { OLESTR("$-1"),         -1     },
        { OLESTR("$1-"),         -1     },
        { OLESTR("$1,234.50"),   1234.5 },
        { OLESTR("$"),           none   },
        { OLESTR("$$1"),         none   },
        { OLESTR("$1$"),         none   },
        { OLESTR("\u20AC1"),     none   },
        { OLESTR("1 USD"),       none   },
    };
    // clang-format on
    CheckRows(english, rows);
    EXPECT_EQ(Read(OLESTR("1.234,50 \u20AC"), german), 1234.5);
    EXPECT_EQ(Read(OLESTR("-1,50\u20AC"), german), -1.5);
}

TEST(NumberParse, TheMarksOfAmountsCountWithTheSymbol)
{
    // clang-format off
    Row const rows[] = {
        { OLESTR("1 234,5"),         1234.5 },
        { OLESTR("1 234,5 Fr."),     1234.5 },
        { OLESTR("Fr. 1'234.50"),    1234.5 },
        { OLESTR("1'234.50 Fr."),    1234.5 },
        { OLESTR("(Fr. 1.5)"),       -1.5   },
        { OLESTR("1'234.50"),        none   },
        { OLESTR("1.5"),             none   },
        { OLESTR("Fr. 1'234,50"),    none   },
    };
    // clang-format on
    CheckRows(swissFrench, rows);
}

TEST(NumberParse, ExponentsFollowWithoutABlank)
{
    // clang-format off
    Row const rows[] = {
        { OLESTR("1e3"),         1000   },
        { OLESTR("1E+03"),       1000   },
        { OLESTR("1.5e-5"),      1.5e-5 },
        { OLESTR("1.e2"),        100    },
        { OLESTR(".5e1"),        5      },
        { OLESTR("(1e2)"),       -100   },
        { OLESTR("1e2-"),        -100   },
        { OLESTR("0e999999999999999999999"), 0 },
        { OLESTR("1e-999999999999999999999"), 0 },
        { OLESTR("1e999999999999999999999"), none },
        { OLESTR("1e18446744073709551617"), none },  // 1 in 64 bits
        { OLESTR("1e"),          none   },
        { OLESTR("1e+"),         none   },
        { OLESTR("1 e3"),        none   },
        { OLESTR("1e 3"),        none   },
        { OLESTR("1e1.5"),       none   },
        { OLESTR("1d3"),         none   },
        { OLESTR("e1"),          none   },
    };
    // clang-format on
    CheckRows(english, rows);
}

TEST(NumberParse, HexadecimalAndOctalNumbersAreBits)
{
    // clang-format off
    Row const rows[] = {
        { OLESTR("&H1F"),        31         },
        { OLESTR("&hff"),        255        },
        { OLESTR("&O17"),        15         },
        { OLESTR("&o777"),       511        },
        { OLESTR(" &H10 "),      16         },
        { OLESTR("&HFFFF"),      65535      },
        { OLESTR("&H7FFFFFFF"),  2147483647 },
        { OLESTR("&H80000000"),  -2147483648.0 },  // bits of a signed number
        { OLESTR("&HFFFFFFFF"),  -1         },
        { OLESTR("&H100000000"), 4294967296 },
        { OLESTR("&HFFFFFFFFFFFFFFFF"),  -1   },
        { OLESTR("&H0FFFFFFFFFFFFFFFF"), -1   },
        { OLESTR("&H10000000000000000"), none },
        { OLESTR("&O1777777777777777777777"), -1 },
        { OLESTR("&O2000000000000000000000"), none },
        { OLESTR("&"),           none       },
        { OLESTR("&H"),          none       },
        { OLESTR("&17"),         none       },
        { OLESTR("&HG"),         none       },
        { OLESTR("&O8"),         none       },
        { OLESTR("&H1.0"),       none       },
        { OLESTR("-&H10"),       none       },
        { OLESTR("&H10-"),       none       },
        { OLESTR("0x10"),        none       },
        { OLESTR("0b101"),       none       },
    };
    // clang-format on
    CheckRows(english, rows);
}

TEST(NumberParse, AnEarlierNumberLeavesNothingBehind)
{
    ParsedNumber number;
    ASSERT_TRUE(detail::ParseNumber(OLESTR("-1234.5e7"), english, number));
    ASSERT_TRUE(detail::ParseNumber(OLESTR("2"), english, number));
    double real = 0;
    ASSERT_EQ(detail::NumberToReal(number, real), S_OK);
    EXPECT_EQ(real, 2.0);
    ASSERT_TRUE(detail::ParseNumber(OLESTR("&H3"), english, number));
    ASSERT_EQ(detail::NumberToReal(number, real), S_OK);
    EXPECT_EQ(real, 3.0);
}

} // namespace kr::test
