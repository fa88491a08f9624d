#include <krplatform/coerce/date_text.h>

#include "tests/krplatform/coerce/date_facts.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

namespace kr::test
{

namespace
{

std::string Write(double date, unsigned flags, detail::DateFacts const & facts)
{
    detail::Text text = OLESTR("old text");
    return detail::DateToText(date, flags, facts, text) ? Narrow(text) : "refused, left " + Narrow(text);
}

constexpr double afternoon = 44270.836909722224; // 15 March 2021, 20:05:09
constexpr double morning = 44257.340324074;      //  2 March 2021,  8:10:04

} // namespace

TEST(DateToText, LeavesOutTheTimeOfAWholeDayAndTheDateOfDay0)
{
    struct Row
    {
        double date;
        unsigned flags;
        char const * text;
    };
    // clang-format off
    Row const rows[] = {
        { 44270.75,      0,                        "03/15/2021 18:00:00" },
        { 44270.0,       0,                        "03/15/2021"          },
        {     0.25,      0,                        "06:00:00"            },
        {    -0.25,      0,                        "06:00:00"            },
        {     0.0,       0,                        "00:00:00"            },    // not nothing
        {    -1.25,      0,                        "12/29/1899 06:00:00" },
        { 44270.75,      detail::dateTextTimeOnly, "18:00:00"            },
        { 44270.75,      detail::dateTextDateOnly, "03/15/2021"          },
        { 44270.0,       detail::dateTextTimeOnly, ""                    },    // Deliberate: a whole day has no time
        {     0.25,      detail::dateTextDateOnly, ""                    },    // Deliberate: a time has no date
        {     0.0,       detail::dateTextTimeOnly, "00:00:00"            },
        {     0.0,       detail::dateTextDateOnly, ""                    },
        { 44270.9999999, 0,                        "03/16/2021 00:00:00" },    // not a whole day, though it shows so
        {     0.9999999, 0,                        "00:00:00"            },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(testing::Message() << row.date << ", flags " << row.flags);
        EXPECT_EQ(Write(row.date, row.flags, detail::InvariantFacts().date), row.text);
    }
}

TEST(DateToText, WritesEveryFieldOfAPattern)
{
    struct Row
    {
        WCHAR const * date;
        WCHAR const * time;
        char const * text;
    };
    // clang-format off
    Row const rows[] = {
        { OLESTR("M/d/yyyy"),          OLESTR("h:mm:ss tt"),     "3/15/2021 8:05:09 PM"         },
        { OLESTR("MM/dd/yyyy"),        OLESTR("hh:mm:ss tt"),    "03/15/2021 08:05:09 PM"       },
        { OLESTR("d MMM yyyy"),        OLESTR("H:m:s"),          "15 Mar 2021 20:5:9"           },
        { OLESTR("d. MMMM yyyy"),      OLESTR("HH.mm.ss"),       "15. March 2021 20.05.09"      },
        { OLESTR("yyyy'year'"),        OLESTR("'at' H"),         "2021year at 20"               },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.date));
        EXPECT_EQ(Write(afternoon, 0, FactsWithPatterns(row.date, row.time).date), row.text);
    }
}

TEST(DateToText, PadsNumbersAsThePatternSays)
{
    EXPECT_EQ(Write(morning, 0, FactsWithPatterns(OLESTR("d/M/yyyy"), OLESTR("H:m:s")).date), "2/3/2021 8:10:4");
    EXPECT_EQ(Write(morning, 0, FactsWithPatterns(OLESTR("dd/MM/yyyy"), OLESTR("HH:mm:ss")).date),
              "02/03/2021 08:10:04");
}

TEST(DateToText, WritesYearsBelow1000WithThreeDigits)
{
    EXPECT_EQ(Write(-657434.0, 0, detail::InvariantFacts().date), "01/01/100");
}

TEST(DateToText, CountsTwelveHoursFromTwelve)
{
    struct Row
    {
        double date;
        char const * text;
    };
    // clang-format off
    Row const rows[] = {
        { 0.0,          "12:00 AM" },
        { 1.0 / 24,      "1:00 AM" },
        { 11.0 / 24,    "11:00 AM" },
        { 12.0 / 24,    "12:00 PM" },
        { 13.0 / 24,     "1:00 PM" },
        { 23.0 / 24,    "11:00 PM" },
    };
    // clang-format on
    detail::LocaleFacts const facts = FactsWithPatterns(OLESTR("d"), OLESTR("h:mm tt"));
    for (Row const & row : rows)
        EXPECT_EQ(Write(row.date, 0, facts.date), row.text);
}

TEST(DateToText, PrefersTheMonthsFormBesideADay)
{
    detail::LocaleFacts facts = FactsWithPatterns(OLESTR("d MMMM yyyy"), OLESTR("H"));
    facts.date.monthNamesInDates[2] = OLESTR("of March");
    EXPECT_EQ(Write(44270.0, 0, facts.date), "15 of March 2021");
    EXPECT_EQ(Write(44301.0, 0, facts.date), "15 April 2021");
    facts = FactsWithPatterns(OLESTR("d MMM yyyy"), OLESTR("H"));
    facts.date.shortMonthNamesInDates[2] = OLESTR("Mar.");
    EXPECT_EQ(Write(44270.0, 0, facts.date), "15 Mar. 2021");
}

TEST(DateToText, RefusesDatesOutsideTheRangeAndLeavesTheText)
{
    EXPECT_EQ(Write(-657435.0, 0, detail::InvariantFacts().date), "refused, left old text");
    EXPECT_EQ(Write(2958466.0, 0, detail::InvariantFacts().date), "refused, left old text");
}

TEST(DateToText, CutsWhatHasNoRoom)
{
    std::basic_string<WCHAR> const literal(300, OLESTR('-'));
    detail::LocaleFacts const facts = FactsWithPatterns((OLESTR("d") + literal + OLESTR("yyyy")).c_str(), OLESTR("H"));
    EXPECT_EQ(Write(44270.0, 0, facts.date), "15" + std::string(254, '-'));
}

} // namespace kr::test
