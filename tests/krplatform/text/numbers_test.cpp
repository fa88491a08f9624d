#include <krplatform/text/numbers.h>

#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <charconv>
#include <climits>
#include <random>
#include <string>

namespace
{

struct ReadRow
{
    WCHAR const * text;
    int value;
};

struct WriteRow
{
    long value;
    int base;
    WCHAR const * text;
};

} // namespace

TEST(Wtoi, ReadsTheNumberAtTheBeginning)
{
    // clang-format off
    ReadRow const rows[] = {
        { OLESTR("0"),                        0 },
        { OLESTR("42"),                      42 },
        { OLESTR("-42"),                    -42 },
        { OLESTR("+42"),                     42 },
        { OLESTR(" \t\r\n\v\f42"),           42 },
        { OLESTR("\u00A0\u3000\u200342"),    42 },  // the spaces of Unicode too
        { OLESTR("007"),                      7 },
        { OLESTR("12abc"),                   12 },
        { OLESTR("12.9"),                    12 },
        { OLESTR("1 2"),                      1 },
        { OLESTR("0x10"),                     0 },
        { OLESTR("- 5"),                      0 },  // no blank behind the sign
        { OLESTR("--5"),                      0 },
        { OLESTR("+-5"),                      0 },
        { OLESTR(""),                         0 },
        { OLESTR("-"),                        0 },
        { OLESTR("wall"),                     0 },
        { nullptr,                            0 },
        { OLESTR("\uFF11"),                   0 },  // digits of ASCII only
        { OLESTR("2147483647"),         INT_MAX },
        { OLESTR("2147483648"),         INT_MAX },
        { OLESTR("-2147483648"),        INT_MIN },
        { OLESTR("-2147483649"),        INT_MIN },
        { OLESTR("99999999999999999999999999"), INT_MAX },
        { OLESTR("-99999999999999999999999999"), INT_MIN },
        { OLESTR("21474836470"),        INT_MAX },
        { OLESTR("4294967296"),         INT_MAX },
    };
    // clang-format on
    for (ReadRow const & row : rows)
    {
        SCOPED_TRACE(kr::test::Narrow(row.text));
        EXPECT_EQ(_wtoi(row.text), row.value);
        EXPECT_EQ(_wtol(row.text), row.value) << "a long has the limits of 32 bits too";
    }
}

TEST(Wtoi, ReadsBackWhatItowWrites)
{
    std::mt19937 generator(3);
    for (int round = 0; round < 20'000; ++round)
    {
        int const value = static_cast<int>(generator()) >> (round % 32);
        WCHAR text[32];
        ASSERT_EQ(_itow_s(value, text, 32, 10), 0);
        ASSERT_EQ(_wtoi(text), value);
        ASSERT_EQ(kr::test::Narrow(text), std::to_string(value));
    }
}

TEST(Itow, WritesInAnyBase)
{
    // clang-format off
    WriteRow const rows[] = {
        { 0,                    10, OLESTR("0")           },
        { -1,                   10, OLESTR("-1")          },
        { INT_MIN,              10, OLESTR("-2147483648") },
        { INT_MAX,              10, OLESTR("2147483647")  },
        { 255,                  16, OLESTR("ff")          },
        { -1,                   16, OLESTR("ffffffff")    },  // a sign in base 10 only
        { -1,                    2, OLESTR("11111111111111111111111111111111") },
        { 8,                     8, OLESTR("10")          },
        { 35,                   36, OLESTR("z")           },
    };
    // clang-format on
    for (WriteRow const & row : rows)
    {
        SCOPED_TRACE(kr::test::Narrow(row.text));
        WCHAR text[40];
        EXPECT_EQ(_itow_s(static_cast<int>(row.value), text, 40, row.base), 0);
        EXPECT_EQ(kr::test::Narrow(text), kr::test::Narrow(row.text));
        EXPECT_EQ(_ltow_s(row.value, text, 40, row.base), 0);
        EXPECT_EQ(kr::test::Narrow(text), kr::test::Narrow(row.text));
    }
}

TEST(Ltow, WritesTheLow32Bits)
{
    WCHAR text[32];
    EXPECT_EQ(_ltow_s(0x1'0000'0005, text, 32, 10), 0);
    EXPECT_EQ(kr::test::Narrow(text), "5");
    EXPECT_EQ(_ltow_s(0xFFFF'FFFF, text, 32, 10), 0);
    EXPECT_EQ(kr::test::Narrow(text), "-1");
}

TEST(Itow, RefusesBadBasesAndBuffers)
{
    WCHAR text[4] = OLESTR("old");
    EXPECT_EQ(_itow_s(5, nullptr, 4, 10), EINVAL);
    EXPECT_EQ(_itow_s(5, text, 0, 10), EINVAL);
    EXPECT_EQ(kr::test::Narrow(text), "old");
    for (int const base : {-1, 0, 1, 37})
    {
        EXPECT_EQ(_itow_s(5, text, 4, base), EINVAL) << base;
        EXPECT_EQ(kr::test::Narrow(text), "");
    }
}

TEST(Itow, GivesEmptyTextWhereTheNumberDoesNotFit)
{
    WCHAR text[4] = OLESTR("old");
    EXPECT_EQ(_itow_s(1000, text, 4, 10), ERANGE);
    EXPECT_EQ(text[0], 0);
    EXPECT_EQ(_itow_s(-100, text, 4, 10), ERANGE);
    EXPECT_EQ(_itow_s(999, text, 4, 10), 0);
    EXPECT_EQ(kr::test::Narrow(text), "999");
    EXPECT_EQ(_itow_s(0, text, 1, 10), ERANGE);
}
