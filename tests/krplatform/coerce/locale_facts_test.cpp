#include <krplatform/coerce/locale_facts.h>

#include "tests/krplatform/coerce/date_facts.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace kr::test
{

using detail::DateOrder;
using detail::DateWord;

TEST(InvariantFacts, AreEnglishWithThePlatformsPatterns)
{
    detail::LocaleFacts const & facts = detail::InvariantFacts();
    EXPECT_EQ(Narrow(facts.date.shortDate), "MM/dd/yyyy");
    EXPECT_EQ(Narrow(facts.date.longTime), "HH:mm:ss");
    EXPECT_EQ(Narrow(facts.date.monthNames[11]), "December");
    EXPECT_EQ(Narrow(facts.date.shortMonthNames[8]), "Sep");
    EXPECT_EQ(Narrow(facts.date.am), "AM");
    EXPECT_EQ(Narrow(facts.date.pm), "PM");
    EXPECT_EQ(facts.number.decimalMark, OLESTR('.'));
    EXPECT_EQ(facts.number.groupMark, OLESTR(','));
    EXPECT_EQ(facts.currency.decimalMark, OLESTR('.'));
    EXPECT_EQ(facts.currency.groupMark, OLESTR(','));
    EXPECT_EQ(Narrow(facts.currency.symbol), "\\u00A4");
    EXPECT_EQ(Narrow(facts.yes), "True");
    EXPECT_EQ(Narrow(facts.no), "False");
}

TEST(CompleteDateFacts, ReadsOrderAndMarksFromThePatterns)
{
    struct Row
    {
        WCHAR const * shortDate;
        WCHAR const * longTime;
        DateOrder order;
        WCHAR dateMark;
        WCHAR timeMark;
        bool markEndsDate;
        bool halfBeforeTime;
    };
    // clang-format off
    Row const rows[] = {
        { OLESTR("M/d/yyyy"),         OLESTR("h:mm:ss tt"),  DateOrder::monthDayYear, OLESTR('/'), OLESTR(':'), false, false },
        { OLESTR("dd.MM.yyyy"),       OLESTR("HH:mm:ss"),    DateOrder::dayMonthYear, OLESTR('.'), OLESTR(':'), false, false },
        { OLESTR("yyyy-MM-dd"),       OLESTR("tt h:mm:ss"),  DateOrder::yearMonthDay, OLESTR('-'), OLESTR(':'), false, true  },
        { OLESTR("d.M.yyyy"),         OLESTR("H.mm.ss"),     DateOrder::dayMonthYear, OLESTR('.'), OLESTR('.'), false, false },
        { OLESTR("yyyy. MM. dd."),    OLESTR("H:mm:ss"),     DateOrder::yearMonthDay, OLESTR('.'), OLESTR(':'), true,  false },
        { OLESTR("d. M. yyyy."),      OLESTR("HH:mm:ss"),    DateOrder::dayMonthYear, OLESTR('.'), OLESTR(':'), true,  false },
        { OLESTR("d.MM.yyyy '\u0433'."), OLESTR("H:mm:ss '\u0447'."), DateOrder::dayMonthYear, OLESTR('.'), OLESTR(':'), true, false },
        { OLESTR("dd/MM/yyyy."),      OLESTR("H:mm"),        DateOrder::dayMonthYear, OLESTR('/'), OLESTR(':'), false, false },   // another mark at the end
        { OLESTR("'on' d MMM yyyy"),  OLESTR("H 'h'"),       DateOrder::dayMonthYear, OLESTR('/'), OLESTR(':'), false, false },   // no marks
        { OLESTR("yyyy\u5E74M\u6708d\u65E5"), OLESTR("H:mm"), DateOrder::yearMonthDay, OLESTR('/'), OLESTR(':'), false, false },
        { OLESTR("d'D'M'Y'yyyy"),     OLESTR("H'H'mm"),      DateOrder::dayMonthYear, OLESTR('/'), OLESTR(':'), false, false },   // letters are words
        { OLESTR("d'a'M'z'yyyy"),     OLESTR("H'Z'mm"),      DateOrder::dayMonthYear, OLESTR('/'), OLESTR(':'), false, false },
        { OLESTR("d_M_yyyy"),         OLESTR("H~mm"),        DateOrder::dayMonthYear, OLESTR('_'), OLESTR('~'), false, false },   // marks between and behind the letters
        { OLESTR("(d-M-yyyy"),        OLESTR("H:mm"),        DateOrder::dayMonthYear, OLESTR('-'), OLESTR(':'), false, false },   // a mark in front joins nothing
        { OLESTR(""),                 OLESTR(""),            DateOrder::monthDayYear, OLESTR('/'), OLESTR(':'), false, false },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.shortDate));
        detail::DateFacts const facts = FactsWithPatterns(row.shortDate, row.longTime).date;
        EXPECT_EQ(facts.order, row.order);
        EXPECT_EQ(facts.dateMark, row.dateMark);
        EXPECT_EQ(facts.timeMark, row.timeMark);
        EXPECT_EQ(facts.markEndsDate, row.markEndsDate);
        EXPECT_EQ(facts.halfBeforeTime, row.halfBeforeTime);
    }
}

TEST(CompleteDateFacts, ListsTheWordsLongestFirstAndEachOnce)
{
    std::vector<DateWord> const & words = detail::InvariantFacts().date.words;
    EXPECT_TRUE(std::is_sorted(words.begin(), words.end(),
                               [](DateWord const & left, DateWord const & right)
                               { return left.folded.size() > right.folded.size(); }));
    EXPECT_EQ(Narrow(words.front().folded), "september");
    EXPECT_EQ(words.size(), 27u); // 12 and 11 names ("may" is both), am, pm, a, p
    auto const isMay = [](DateWord const & word) { return word.folded == OLESTR("may"); };
    EXPECT_EQ(std::count_if(words.begin(), words.end(), isMay), 1);
}

TEST(CompleteDateFacts, MayBeCalledAgain)
{
    detail::DateFacts facts = detail::InvariantFacts().date;
    facts.shortDate = OLESTR("yyyy-MM-dd");
    detail::CompleteDateFacts(facts);
    EXPECT_EQ(facts.words.size(), detail::InvariantFacts().date.words.size());
    EXPECT_EQ(facts.datePieces.size(), 5u);
    EXPECT_EQ(facts.dateMark, OLESTR('-'));
}

} // namespace kr::test
