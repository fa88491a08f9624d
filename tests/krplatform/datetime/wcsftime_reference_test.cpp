// Pattern formatting against the C library's, where the two agree: in the C locale, without `#` and zones.
#include <krplatform/datetime/clock.h>

#include "tests/support/text.h"

#include <gtest/gtest.h>

namespace kr::test
{

TEST(WcsftimeReference, EveryConversionOfEveryDayOfFortyYearsIsTheCLibrarys)
{
    std::string const pattern =
        "%a %A %b %B %c %C %d %D %e %F %g %G %h %H %I %j %m %M %p %r %R %S %T %u %U %V %w %W %x "
        "%X %y %Y %%";
    constexpr std::int64_t step = 86400 + 3607; // other hours, minutes and seconds each day
    for (std::int64_t seconds = 946684800; seconds < 946684800 + std::int64_t{40} * 365 * 86400; seconds += step)
    {
        std::tm fields = {};
        ASSERT_EQ(_gmtime64_s(&fields, &seconds), 0);
        char expected[256];
        ASSERT_GT(std::strftime(expected, sizeof expected, pattern.c_str(), &fields), 0u);
        WCHAR text[256];
        ASSERT_GT(wcsftime(text, 256, Widen(pattern).c_str(), &fields), 0u);
        ASSERT_EQ(Narrow(text), expected);
    }
}

TEST(WcsftimeReference, TheIsoWeeksOfEveryDayOfFourCenturiesAreTheCLibrarys)
{
    for (std::int64_t day = -25567; day < -25567 + 146097; ++day)
    {
        std::int64_t const seconds = day * 86400;
        std::tm fields = {};
        ASSERT_EQ(_gmtime64_s(&fields, &seconds), 0);
        char expected[32];
        ASSERT_GT(std::strftime(expected, sizeof expected, "%G %g %V", &fields), 0u);
        WCHAR text[32];
        ASSERT_GT(wcsftime(text, 32, OLESTR("%G %g %V"), &fields), 0u);
        ASSERT_EQ(Narrow(text), expected);
    }
}

} // namespace kr::test
