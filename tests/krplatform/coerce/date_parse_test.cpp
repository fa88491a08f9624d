#include <krplatform/coerce/calendar.h>
#include <krplatform/coerce/date_parse.h>
#include <krplatform/coerce/date_text.h>
#include <krplatform/coerce/locale_lookup.h>

#include "tests/krplatform/coerce/date_facts.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

namespace kr::test
{

namespace
{

constexpr double untouched = -0.123;

detail::LocaleFacts const american = FactsWithPatterns(OLESTR("M/d/yyyy"), OLESTR("h:mm:ss tt"));
detail::LocaleFacts const british = FactsWithPatterns(OLESTR("dd/MM/yyyy"), OLESTR("HH:mm:ss"));
detail::LocaleFacts const japanese = FactsWithPatterns(OLESTR("yyyy/MM/dd"), OLESTR("H:mm:ss"));
detail::LocaleFacts const german = FactsWithPatterns(OLESTR("dd.MM.yyyy"), OLESTR("HH:mm:ss"));

/// What was read, by the numbers of year, month and day in the invariant pattern; "none" for text that is no date.
std::string Read(detail::TextView text, detail::LocaleFacts const & facts, unsigned flags = 0)
{
    double date = untouched;
    if (!detail::TextToDate(text, flags, facts, date))
        return date == untouched ? "none" : "none, but touched";
    detail::Text shown;
    EXPECT_TRUE(detail::DateToText(date, 0, detail::InvariantFacts().date, shown));
    return Narrow(shown);
}

struct Row
{
    WCHAR const * text;
    char const * date;
};

template <std::size_t Count>
void CheckRows(Row const (&rows)[Count], detail::LocaleFacts const & facts)
{
    for (Row const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.text));
        EXPECT_EQ(Read(row.text, facts), row.date);
    }
}

std::string RunningYear() { return std::to_string(detail::RunningYear()); }

} // namespace

TEST(TextToDate, TriesThreeNumbersInTheOrderOfTheLocaleFirst)
{
    struct OrderRow
    {
        WCHAR const * text;
        char const * american;
        char const * british;
        char const * japanese;
    };
    // clang-format off
    OrderRow const rows[] = {
        // text                   M/d/y          d/M/y          y/M/d
        { OLESTR("1/2/3"),       "01/02/2003",  "02/01/2003",  "02/03/2001" },
        { OLESTR("2/3/2021"),    "02/03/2021",  "03/02/2021",  "02/03/2021" },     // no year of four digits leads
        { OLESTR("3/15/2021"),   "03/15/2021",  "03/15/2021",  "03/15/2021" },     // there is no month 15
        { OLESTR("15/3/2021"),   "03/15/2021",  "03/15/2021",  "03/15/2021" },
        { OLESTR("2021/3/15"),   "03/15/2021",  "03/15/2021",  "03/15/2021" },
        { OLESTR("2021/15/3"),   "03/15/2021",  "03/15/2021",  "03/15/2021" },
        { OLESTR("14/2/3"),      "02/03/2014",  "02/14/2003",  "02/03/2014" },     // the year leads before the day does
        { OLESTR("31/4/21"),     "04/21/2031",  "04/21/2031",  "04/21/2031" },     // there is no 31 April
        { OLESTR("13/13/5"),     "05/13/2013",  "05/13/2013",  "05/13/2013" },
        { OLESTR("5/0/21"),      "none",        "none",        "none"       },     // no order has the year in the middle
        { OLESTR("13/13/2021"),  "none",        "none",        "none"       },
        { OLESTR("32/1/99"),     "none",        "none",        "none"       },
    };
    // clang-format on
    for (OrderRow const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.text));
        EXPECT_EQ(Read(row.text, american), row.american);
        EXPECT_EQ(Read(row.text, british), row.british);
        EXPECT_EQ(Read(row.text, japanese), row.japanese);
    }
}

TEST(TextToDate, TakesTwoNumbersForADayOfTheRunningYearBeforeAMonth)
{
    // clang-format off
    Row const rows[] = {
        { OLESTR("3/75"),     "03/01/1975" },
        { OLESTR("75/3"),     "03/01/1975" },
        { OLESTR("3/2021"),   "03/01/2021" },
        { OLESTR("2021-3"),   "03/01/2021" },
        { OLESTR("2/30"),     "02/01/2030" },     // there is no 30 February
        { OLESTR("30/2"),     "02/01/2030" },
        { OLESTR("0/5"),      "05/01/2000" },
        { OLESTR("13/13"),    "none"       },
        { OLESTR("32/49"),    "none"       },
    };
    // clang-format on
    CheckRows(rows, american);
    CheckRows(rows, british);
    CheckRows(rows, japanese);
    EXPECT_EQ(Read(OLESTR("1/2"), american), "01/02/" + RunningYear());
    EXPECT_EQ(Read(OLESTR("1/2"), japanese), "01/02/" + RunningYear());
    EXPECT_EQ(Read(OLESTR("1/2"), british), "02/01/" + RunningYear());
    EXPECT_EQ(Read(OLESTR("15/3"), american), "03/15/" + RunningYear());
    EXPECT_EQ(Read(OLESTR("3/15 8:05"), british), "03/15/" + RunningYear() + " 08:05:00");
}

TEST(TextToDate, CompletesYearsOfTwoDigits)
{
    // clang-format off
    Row const rows[] = {
        { OLESTR("1/2/0"),      "01/02/2000" },
        { OLESTR("1/2/49"),     "01/02/2049" },
        { OLESTR("1/2/50"),     "01/02/1950" },
        { OLESTR("1/2/99"),     "01/02/1999" },
        { OLESTR("1/2/100"),    "01/02/100"  },
        { OLESTR("1/2/999"),    "01/02/999"  },
        { OLESTR("0021-3-15"),  "03/15/2021" },
        { OLESTR("1/2/9999"),   "01/02/9999" },
        { OLESTR("1/2/10000"),  "none"       },
        { OLESTR("1/2/99999999999999999999"), "none" },
        { OLESTR("4294967297/2/2021"), "none"    },     // 1, were it cut to 32 bits
        { OLESTR("0000000000001/2/2021"), "01/02/2021" },
    };
    // clang-format on
    CheckRows(rows, american);
}

TEST(TextToDate, JoinsNumbersOfADateByBlanksAndMarks)
{
    // clang-format off
    Row const rows[] = {
        { OLESTR("3 15 2021"),         "03/15/2021" },
        { OLESTR("3-15/2021"),         "03/15/2021" },
        { OLESTR("3 / 15 / 2021"),     "03/15/2021" },
        { OLESTR("3,15,2021"),         "03/15/2021" },
        { OLESTR("  3/15/2021\t\n"),   "03/15/2021" },
        { OLESTR("3\u00A015\u30002021"), "03/15/2021" },
        { OLESTR("3//15/2021"),        "none" },
        { OLESTR("3/-15/2021"),        "none" },
        { OLESTR("3,,15,2021"),        "none" },
        { OLESTR("/3/15/2021"),        "none" },
        { OLESTR("-3-15-2021"),        "none" },
        { OLESTR("3/15/2021/"),        "none" },
        { OLESTR("3/15/2021,"),        "none" },
        { OLESTR("1/2/3/4"),           "none" },
        { OLESTR("3*15*2021"),         "none" },
        { OLESTR("3\\15\\2021"),       "none" },
        { OLESTR("(3/15/2021)"),       "none" },
        { OLESTR("3x/15/2021"),        "none" },
        { OLESTR("\u0663/15/2021"),    "none" },      // digits of other scripts are none
    };
    // clang-format on
    CheckRows(rows, american);
}

TEST(TextToDate, TakesThePointForTheLocalesMarkOrForATime)
{
    // clang-format off
    Row const germanRows[] = {
        { OLESTR("15.3.2021"),         "03/15/2021" },
        { OLESTR("15.3.2021 8:05"),    "03/15/2021 08:05:00" },
        { OLESTR("8:05 15.3.2021"),    "03/15/2021 08:05:00" },
        { OLESTR("15. March 2021"),    "03/15/2021" },
        { OLESTR("15-3.2021"),         "03/15/2021" },
        { OLESTR("15.3.2021 8.05"),    "none"       },     // five numbers of a date
        { OLESTR("8.05:09"),           "none"       },
        { OLESTR("8:05 15.3."),        "none"       },
    };
    Row const americanRows[] = {
        { OLESTR("8.05"),              "08:05:00"   },
        { OLESTR("8.05.09"),           "08:05:09"   },
        { OLESTR("8.05:09"),           "08:05:09"   },
        { OLESTR("3/15/2021 8.05"),    "03/15/2021 08:05:00" },
        { OLESTR("15.3.21"),           "15:03:21"   },
        { OLESTR("15.3.2021"),         "none"       },     // there is no second 2021
        { OLESTR("15. March 2021"),    "none"       },
        { OLESTR("15-3.2021"),         "none"       },     // 3 would belong to both
        { OLESTR("8.05 15.03.2021"),   "none"       },     // two times
    };
    // clang-format on
    CheckRows(germanRows, german);
    CheckRows(americanRows, american);
}

TEST(TextToDate, ReadsTimesOfOneToThreeNumbers)
{
    // clang-format off
    Row const rows[] = {
        { OLESTR("8:05"),            "08:05:00" },
        { OLESTR("8:5:9"),           "08:05:09" },
        { OLESTR("0:00"),            "00:00:00" },
        { OLESTR("23:59:59"),        "23:59:59" },
        { OLESTR("8 : 05 : 09"),     "08:05:09" },
        { OLESTR("24:00"),           "none" },
        { OLESTR("8:60"),            "none" },
        { OLESTR("8:05:60"),         "none" },
        { OLESTR("8:05:09:10"),      "none" },
        { OLESTR("8:05:09.5"),       "none" },       // no fractions of a second
        { OLESTR("8:"),              "none" },
        { OLESTR(":05"),             "none" },
        { OLESTR("8:05 9:05"),       "none" },
        { OLESTR("8:05 9 PM"),       "none" },
        { OLESTR("8 AM 9 PM"),       "none" },
        { OLESTR("8"),               "none" },
        { OLESTR("44270.5"),         "none" },
        { OLESTR("1 2 3 4:5"),       "01/02/2003 04:05:00" },
        { OLESTR("1:2 3 4 5"),       "03/04/2005 01:02:00" },
        { OLESTR("1/2/3 4:5:6"),     "01/02/2003 04:05:06" },
        { OLESTR("1/2/3, 4:5"),      "01/02/2003 04:05:00" },
        { OLESTR("1 2:3 4"),         "none" },       // a time does not part a date
        { OLESTR("1 2:3:4 5"),       "none" },
        { OLESTR("March 2 PM 2021"), "none" },
        { OLESTR("1/2/3/4:5"),       "none" },
        { OLESTR("1/2/3 4:5:6 PM 7"), "none" },      // one item too many
        { OLESTR("1:2/3/4"),         "none" },
        { OLESTR("1/2/34:5"),        "none" },
        { OLESTR("2021-03-15T08:05:09"), "none" },
        { OLESTR("2021-03-15 08:05:09Z"), "none" },
        { OLESTR("2021-03-15 08:05:09+01:00"), "none" },
    };
    // clang-format on
    CheckRows(rows, american);
}

TEST(TextToDate, ReadsTheHalfOfTheDayBehindATimeOrANumber)
{
    // clang-format off
    Row const rows[] = {
        { OLESTR("8 AM"),               "08:00:00" },
        { OLESTR("8 pm"),               "20:00:00" },
        { OLESTR("8p"),                 "20:00:00" },
        { OLESTR("8:05 a"),             "08:05:00" },
        { OLESTR("8:05:09PM"),          "20:05:09" },
        { OLESTR("12 AM"),              "00:00:00" },
        { OLESTR("12:30 AM"),           "00:30:00" },
        { OLESTR("12 PM"),              "12:00:00" },
        { OLESTR("0:00 PM"),            "12:00:00" },
        { OLESTR("13:00 AM"),           "13:00:00" },      // the hour tells, whatever the mark says
        { OLESTR("13:00 PM"),           "13:00:00" },
        { OLESTR("24 AM"),              "none" },
        { OLESTR("1 2 3 am"),           "none" },          // two numbers: a day of the running year, below
        { OLESTR("1 2 3 4 am"),         "01/02/2003 04:00:00" },
        { OLESTR("4 am 1 2 3"),         "01/02/2003 04:00:00" },
        { OLESTR("3/15/2021 8:05 PM"),  "03/15/2021 20:05:00" },
        { OLESTR("8:05 PM 3/15/2021"),  "03/15/2021 20:05:00" },
        { OLESTR("AM"),                 "none" },
        { OLESTR("AM 8:05"),            "none" },
        { OLESTR("8:05 AM PM"),         "none" },
        { OLESTR("8:05 P.M."),          "none" },
        { OLESTR("8:05 XM"),            "none" },
        { OLESTR("8:05 AMx"),           "none" },
        { OLESTR("8:05 AM:09"),         "none" },
        { OLESTR("3/15/2021 PM"),       "none" },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        if (detail::TextView(row.text) == OLESTR("1 2 3 am"))
            EXPECT_EQ(Read(row.text, american), "01/02/" + RunningYear() + " 03:00:00");
        else
            EXPECT_EQ(Read(row.text, american), row.date) << Narrow(row.text);
    }
}

TEST(TextToDate, ReadsTheMarkBeforeTheTimeWhereTheLocaleWritesItSo)
{
    detail::LocaleFacts const korean = FactsWithPatterns(OLESTR("yyyy-MM-dd"), OLESTR("tt h:mm:ss"));
    EXPECT_EQ(Read(OLESTR("2021-03-15 PM 8:05:09"), korean), "03/15/2021 20:05:09");
    EXPECT_EQ(Read(OLESTR("AM 8"), korean), "08:00:00");
    EXPECT_EQ(Read(OLESTR("8:05 PM"), korean), "20:05:00");
    EXPECT_EQ(Read(OLESTR("PM 8:05 PM"), korean), "none");
    EXPECT_EQ(Read(OLESTR("PM"), korean), "none");
    EXPECT_EQ(Read(OLESTR("PM March"), korean), "none");
}

TEST(TextToDate, KeepsThePartThatTheFlagsAskFor)
{
    EXPECT_EQ(Read(OLESTR("3/15/2021 8:05"), american, detail::dateTextTimeOnly), "08:05:00");
    EXPECT_EQ(Read(OLESTR("3/15/2021 8:05"), american, detail::dateTextDateOnly), "03/15/2021");
    EXPECT_EQ(Read(OLESTR("3/15/2021"), american, detail::dateTextTimeOnly), "00:00:00");
    EXPECT_EQ(Read(OLESTR("8:05"), american, detail::dateTextDateOnly), "00:00:00");
    EXPECT_EQ(Read(OLESTR("13/13/2021 8:05"), american, detail::dateTextTimeOnly), "none");
    EXPECT_EQ(Read(OLESTR("3/15/2021 24:00"), american, detail::dateTextDateOnly), "none");
}

TEST(TextToDate, CountsTheTimeOfDayForwardBelow0)
{
    double date = 0.0;
    EXPECT_TRUE(detail::TextToDate(OLESTR("12/29/1899 6:00"), 0, american, date));
    EXPECT_EQ(date, -1.25);
    EXPECT_TRUE(detail::TextToDate(OLESTR("12/29/1899 6:00"), detail::dateTextTimeOnly, american, date));
    EXPECT_EQ(date, 0.25);
}

TEST(TextToDate, RefusesTextWithoutADate)
{
    for (WCHAR const * const text : {OLESTR(""), OLESTR(" "), OLESTR("abc"), OLESTR("now"), OLESTR(","), OLESTR("."),
                                     OLESTR("2021"), OLESTR("1 2 3 4 5"), OLESTR("1 2 3 4 5 6 7 8 9")})
        EXPECT_EQ(Read(text, american), "none") << Narrow(text);
}

TEST(TextToDate, SeesAZeroInsideATextAsNoDate) { EXPECT_EQ(Read({OLESTR("3/15/2021\0"), 10}, american), "none"); }

} // namespace kr::test
