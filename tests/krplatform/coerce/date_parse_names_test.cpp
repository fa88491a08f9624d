// Months by name, words of patterns, and marks that dates and times share.
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

std::string Read(detail::TextView text, detail::LocaleFacts const & facts)
{
    double date = 0.0;
    if (!detail::TextToDate(text, 0, facts, date))
        return "none";
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

TEST(MonthNames, StandAnywhereAndInAnyCase)
{
    // clang-format off
    Row const rows[] = {
        { OLESTR("15 March 2021"),        "03/15/2021" },
        { OLESTR("15 mar 2021"),          "03/15/2021" },
        { OLESTR("15-MAR-2021"),          "03/15/2021" },
        { OLESTR("15/March/2021"),        "03/15/2021" },
        { OLESTR("15March2021"),          "03/15/2021" },
        { OLESTR("March 15, 2021"),       "03/15/2021" },
        { OLESTR("march15,2021"),         "03/15/2021" },
        { OLESTR("March, 15 2021"),       "03/15/2021" },
        { OLESTR("2021 March 15"),        "03/15/2021" },
        { OLESTR("2021 15 March"),        "03/15/2021" },     // year, day, month
        { OLESTR("15 3 March"),           "03/03/2015" },     // so the year leads here too
        { OLESTR("8:05 PM 15 March 2021"), "03/15/2021 20:05:00" },
        { OLESTR("March 15, 2021, 8:05"), "03/15/2021 08:05:00" },
        { OLESTR("15 March 21"),          "03/15/2021" },     // a day leads before a year does
        { OLESTR("15 March 99"),          "03/15/1999" },
        { OLESTR("99 March 15"),          "03/15/1999" },
        { OLESTR("31 May 2021"),          "05/31/2021" },
        { OLESTR("March 2021"),           "03/01/2021" },
        { OLESTR("2021 March"),           "03/01/2021" },
        { OLESTR("March 35"),             "03/01/2035" },
        { OLESTR("35 March"),             "03/01/2035" },
        { OLESTR("31 April 2021"),        "none" },
        { OLESTR("0 March 2021"),         "none" },
        { OLESTR("32 March 2021"),        "none" },
        { OLESTR("March"),                "none" },
        { OLESTR("15 March 3 2021"),      "none" },
        { OLESTR("15 Marc 2021"),         "none" },
        { OLESTR("15 Ma 2021"),           "none" },
        { OLESTR("15 Marchx 2021"),       "none" },
        { OLESTR("JanFeb 2021"),          "none" },           // a word ends where no letter follows
        { OLESTR("15 xMarch 2021"),       "none" },
        { OLESTR("15th March 2021"),      "none" },
        { OLESTR("15 of March 2021"),     "none" },
        { OLESTR("15:March:2021"),        "none" },
        { OLESTR("Monday 15 March 2021"), "none" },           // days of the week are not read
    };
    // clang-format on
    for (WCHAR const * const pattern : {OLESTR("M/d/yyyy"), OLESTR("dd/MM/yyyy"), OLESTR("yyyy-MM-dd")})
    {
        SCOPED_TRACE(Narrow(pattern));
        detail::LocaleFacts const facts = FactsWithPatterns(pattern, OLESTR("H:mm:ss"));
        CheckRows(rows, facts);
        EXPECT_EQ(Read(OLESTR("15 March"), facts), "03/15/" + RunningYear());
        EXPECT_EQ(Read(OLESTR("Mar 15"), facts), "03/15/" + RunningYear());
    }
}

TEST(MonthNames, ASecondOneCountsAsTheNumberOfItsMonth)
{
    EXPECT_EQ(Read(OLESTR("Jan Feb 2021"), detail::InvariantFacts()), "01/02/2021");
}

TEST(MonthNames, AreReadInEveryFormOfTheLocale)
{
    detail::LocaleFacts facts = FactsWithPatterns(OLESTR("dd/MM/yyyy"), OLESTR("HH:mm:ss"));
    facts.date.monthNames[6] = OLESTR("juillet");
    facts.date.shortMonthNames[6] = OLESTR("juil.");
    facts.date.monthNamesInDates[6] = OLESTR("de Juillet");
    facts.date.shortMonthNamesInDates[6] = OLESTR("\u00C9t\u00E9");
    detail::CompleteDateFacts(facts.date);
    // clang-format off
    Row const rows[] = {
        { OLESTR("15 juillet 2021"),           "07/15/2021" },
        { OLESTR("15 JUIL. 2021"),             "07/15/2021" },
        { OLESTR("15 juil 2021"),              "07/15/2021" },     // without the point
        { OLESTR("15-juil.-2021"),             "07/15/2021" },
        { OLESTR("juil.15,2021"),              "07/15/2021" },
        { OLESTR("15 de juillet 2021"),        "07/15/2021" },     // the longest name counts
        { OLESTR("15 \u00E9T\u00C9 2021"),     "07/15/2021" },
        { OLESTR("15 July 2021"),              "none"       },     // of another language
    };
    // clang-format on
    CheckRows(rows, facts);
}

TEST(PatternWords, AreReadOver)
{
    detail::LocaleFacts const chinese = FactsWithPatterns(OLESTR("yyyy\u5E74M\u6708d\u65E5"), OLESTR("H:mm:ss"));
    EXPECT_EQ(Read(OLESTR("2021\u5E743\u670815\u65E5 8:05:09"), chinese), "03/15/2021 08:05:09");
    detail::LocaleFacts const bulgarian = FactsWithPatterns(OLESTR("d.MM.yyyy '\u0433'."), OLESTR("H:mm:ss '\u0447'."));
    EXPECT_EQ(Read(OLESTR("15.03.2021 \u0433. 8:05:09 \u0447."), bulgarian), "03/15/2021 08:05:09");
    EXPECT_EQ(Read(OLESTR("15.03.2021 \u0413."), bulgarian), "03/15/2021");
    EXPECT_EQ(Read(OLESTR("15.03.2021 \u0433. 8:05:09 \u0447."), detail::InvariantFacts()), "none");
}

TEST(DateMark, StandsBehindTheDateWhereTheLocaleWritesItSo)
{
    detail::LocaleFacts const hungarian = FactsWithPatterns(OLESTR("yyyy. MM. dd."), OLESTR("H:mm:ss"));
    // clang-format off
    Row const rows[] = {
        { OLESTR("2021. 03. 15."),           "03/15/2021"          },
        { OLESTR("2021. 03. 15. 8:05:09"),   "03/15/2021 08:05:09" },
        { OLESTR("8:05 2021. 03. 15."),      "03/15/2021 08:05:00" },
        { OLESTR("2021. 03. 15"),            "03/15/2021"          },
        { OLESTR("2021. 03. 8:05"),          "none"                },     // there the mark joins a number
        { OLESTR("2021. 03. 15.."),          "none"                },
    };
    // clang-format on
    CheckRows(rows, hungarian);
}

TEST(DateMark, JoinsTheDateFirstAndThenTheTimeWhereBothHaveIt)
{
    detail::LocaleFacts const finnish = FactsWithPatterns(OLESTR("d.M.yyyy"), OLESTR("H.mm.ss"));
    // clang-format off
    Row const rows[] = {
        { OLESTR("15.3.2021 8.05.09"),   "03/15/2021 08:05:09" },
        { OLESTR("15.3.2021 8.05"),      "03/15/2021 08:05:00" },
        { OLESTR("15.3.2021 8:05"),      "03/15/2021 08:05:00" },
        { OLESTR("15.3.2021"),           "03/15/2021"          },
        { OLESTR("8.5.09"),              "05/08/2009"          },      // a time alone cannot be told from a date
        { OLESTR("8.05.09 15.3.2021"),   "none"                },
    };
    // clang-format on
    CheckRows(rows, finnish);
}

} // namespace kr::test
