// What is written is read back, in many locales.
#include <krplatform/automation/vartext.h>
#include <krplatform/coerce/calendar.h>
#include <krplatform/text/bstr.h>

#include "tests/krplatform/automation/make_variant.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace kr::test
{

namespace
{

// clang-format off
constexpr LCID s_locales[] = {
    127, 1024,
    1025, 1026, 1027, 1028, 1029, 1030, 1031, 1032, 1033, 1035, 1036, 1037, 1038, 1039, 1040, 1041, 1042, 1043, 1044,
    1045, 1046, 1048, 1049, 1050, 1051, 1052, 1053, 1054, 1055, 1057, 1058, 1060, 1061, 1062, 1063, 1065, 1066, 1069,
    1078, 1079, 1081, 1087, 1110, 2052, 2055, 2057, 2058, 2060, 2070, 3076, 3079, 3081, 3082, 3084, 4103, 4105, 4108,
    5124, 6153, 7177, 9242, 10266, 11274, 16393,
};
// clang-format on

constexpr LCID finnish = 1035;

std::string Text(double date, LCID locale)
{
    BSTR text = nullptr;
    EXPECT_EQ(VarBstrFromDate(date, locale, 0, &text), S_OK);
    std::string const shown = Narrow(TextOf(text));
    SysFreeString(text);
    return shown;
}

double ReadBack(double date, LCID locale)
{
    BSTR text = nullptr;
    EXPECT_EQ(VarBstrFromDate(date, locale, 0, &text), S_OK);
    double read = NAN;
    EXPECT_EQ(VarDateFromStr(text, locale, 0, &read), S_OK);
    SysFreeString(text);
    return read;
}

/// A date on a whole second, as text can hold it.
double RandomDate(std::mt19937 & random)
{
    std::uniform_int_distribution<int> days(detail::firstDay, detail::lastDay);
    std::uniform_int_distribution<int> seconds(0, detail::secondsPerDay - 1);
    int const second = seconds(random);
    return detail::DateOf(days(random), second / 3600, second / 60 % 60, second % 60);
}

} // namespace

TEST(DateText, IsReadBackInItsLocale)
{
    constexpr unsigned seed = 141;
    std::mt19937 random(seed);
    for (LCID const locale : s_locales)
    {
        for (int count = 0; count < 200; ++count)
        {
            double const date = RandomDate(random);
            SCOPED_TRACE(testing::Message() << "seed " << seed << ", locale " << locale << ", date " << date << ": "
                                            << Text(date, locale));
            ASSERT_EQ(ReadBack(date, locale), date);
            ASSERT_EQ(ReadBack(std::trunc(date), locale), std::trunc(date));
        }
    }
}

TEST(DateText, OfATimeAloneIsReadBackInItsLocale)
{
    double const times[] = {detail::DateOf(0, 0, 0, 0),  detail::DateOf(0, 6, 0, 0),    detail::DateOf(0, 12, 0, 0),
                            detail::DateOf(0, 13, 1, 2), detail::DateOf(0, 23, 59, 59), detail::DateOf(0, 0, 0, 1)};
    for (LCID const locale : s_locales)
    {
        if (locale == finnish)
            continue; // 6.00.00 is a date there as well
        for (double const time : times)
        {
            SCOPED_TRACE(testing::Message() << "locale " << locale << ": " << Text(time, locale));
            ASSERT_EQ(ReadBack(time, locale), time);
        }
    }
}

} // namespace kr::test
