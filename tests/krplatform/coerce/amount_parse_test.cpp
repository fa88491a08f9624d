#include <krplatform/coerce/amount_parse.h>

#include "tests/krplatform/coerce/locale_samples.h"
#include "tests/support/text.h"

#include <krplatform/coerce/number_text.h>

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace kr::test
{

TEST(AmountParse, ReadsAmountsExactlyAndRoundsHalfToEven)
{
    struct Row
    {
        WCHAR const * text;
        HRESULT result;
        LONGLONG tenThousandths; ///< 99: not written
    };
    constexpr LONGLONG lowest = std::numeric_limits<LONGLONG>::min();
    // clang-format off
    Row const rows[] = {
        { OLESTR("0"),                      S_OK,                0 },
        { OLESTR("1"),                      S_OK,            10000 },
        { OLESTR("-$1,234.5"),              S_OK,        -12345000 },
        { OLESTR("1e-3"),                   S_OK,               10 },
        { OLESTR("0.1234567890123456789"),  S_OK,             1235 },
        { OLESTR("0.00005"),                S_OK,                0 },
        { OLESTR("0.00015"),                S_OK,                2 },
        { OLESTR("0.00005000000001"),       S_OK,                1 },
        { OLESTR("922337203685477.5807"),   S_OK,  9223372036854775807 },
        { OLESTR("922337203685477.58074"),  S_OK,  9223372036854775807 },
        { OLESTR("922337203685477.58075"),  DISP_E_OVERFLOW,    99 },
        { OLESTR("-922337203685477.5808"),  S_OK,           lowest },
        { OLESTR("-922337203685477.5809"),  DISP_E_OVERFLOW,    99 },
        { OLESTR("1e15"),                   DISP_E_OVERFLOW,    99 },
        { OLESTR("1e400"),                  DISP_E_OVERFLOW,    99 },
        { OLESTR("1e-400"),                 S_OK,                0 },
        { OLESTR("&H10"),                   S_OK,           160000 },
        { OLESTR("&HFFFFFFFF"),             S_OK,           -10000 },
        { OLESTR("&H7FFFFFFFFFFFFFFF"),     DISP_E_OVERFLOW,    99 },
        { OLESTR("&H7FFFFFFFFFFFFFFFF"),    DISP_E_OVERFLOW,    99 },
        { OLESTR(""),                       DISP_E_TYPEMISMATCH, 99 },
        { OLESTR("1.2.3"),                  DISP_E_TYPEMISMATCH, 99 },
        { OLESTR("True"),                   DISP_E_TYPEMISMATCH, 99 },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.text));
        LONGLONG amount = 99;
        EXPECT_EQ(detail::ParseAmount(row.text, english, amount), row.result);
        EXPECT_EQ(amount, row.tenThousandths);
    }
}

TEST(AmountParse, ReadsBackEveryAmountThatIsWritten)
{
    std::mt19937_64 random(20210315);
    for (int count = 0; count < 20'000; ++count)
    {
        LONGLONG const amount = static_cast<LONGLONG>(random()) >> (random() % 63);
        LONGLONG read = 99;
        ASSERT_EQ(detail::ParseAmount(detail::AmountText(amount, OLESTR(',')).View(), german, read), S_OK);
        ASSERT_EQ(read, amount);
    }
}

} // namespace kr::test
