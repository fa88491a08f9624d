#include <krplatform/coerce/locale_lookup.h>

#include "tests/support/child_process.h"
#include "tests/support/failing_allocator.h"
#include "tests/support/icu_memory.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <array>
#include <thread>

namespace kr::test
{

namespace
{

struct Row
{
    LCID locale;
    char const * shortDate;
    char const * longTime;
    WCHAR decimalMark;
    WCHAR groupMark;
    WCHAR const * currency;
};

constexpr WCHAR noBreakBlank = 0x00A0;

void CheckRow(Row const & row)
{
    SCOPED_TRACE(row.locale);
    detail::LocaleFacts const * const facts = detail::FactsOfLocale(row.locale);
    ASSERT_TRUE(facts);
    EXPECT_EQ(Narrow(facts->date.shortDate), row.shortDate);
    EXPECT_EQ(Narrow(facts->date.longTime), row.longTime);
    EXPECT_EQ(facts->number.decimalMark, row.decimalMark);
    EXPECT_EQ(facts->number.groupMark, row.groupMark);
    EXPECT_EQ(facts->currency.decimalMark, row.decimalMark);
    EXPECT_EQ(facts->currency.groupMark, row.groupMark);
    EXPECT_EQ(Narrow(facts->currency.symbol), Narrow(row.currency));
}

} // namespace

TEST(FactsOfLocale, AreThePlatformsForItsTenBestKnownLocales)
{
    // clang-format off
    Row const rows[] = {
        //  locale   short date     time            decimal      group         currency
        {  127,     "MM/dd/yyyy",  "HH:mm:ss",     OLESTR('.'), OLESTR(','),  OLESTR("\u00A4") },
        { 1033,     "M/d/yyyy",    "h:mm:ss tt",   OLESTR('.'), OLESTR(','),  OLESTR("$")      },
        { 2057,     "dd/MM/yyyy",  "HH:mm:ss",     OLESTR('.'), OLESTR(','),  OLESTR("\u00A3") },
        { 1031,     "dd.MM.yyyy",  "HH:mm:ss",     OLESTR(','), OLESTR('.'),  OLESTR("\u20AC") },
        { 1036,     "dd/MM/yyyy",  "HH:mm:ss",     OLESTR(','), noBreakBlank, OLESTR("\u20AC") },
        { 1041,     "yyyy/MM/dd",  "H:mm:ss",      OLESTR('.'), OLESTR(','),  OLESTR("\u00A5") },
        { 1049,     "dd.MM.yyyy",  "H:mm:ss",      OLESTR(','), noBreakBlank, OLESTR("\u20BD") },
        { 1040,     "dd/MM/yyyy",  "HH:mm:ss",     OLESTR(','), OLESTR('.'),  OLESTR("\u20AC") },
        { 3082,     "dd/MM/yyyy",  "H:mm:ss",      OLESTR(','), OLESTR('.'),  OLESTR("\u20AC") },
        { 2052,     "yyyy/M/d",    "H:mm:ss",      OLESTR('.'), OLESTR(','),  OLESTR("\u00A5") },
    };
    // clang-format on
    for (Row const & row : rows)
        CheckRow(row);
}

TEST(FactsOfLocale, FollowTheCollectionOrTheTableOfDifferencesForOthers)
{
    // clang-format off
    Row const rows[] = {
        {    9,     "M/d/yyyy",    "h:mm:ss tt",   OLESTR('.'), OLESTR(','),  OLESTR("$")        },    // English alone
        { 1034,     "dd/MM/yyyy",  "H:mm:ss",      OLESTR(','), OLESTR('.'),  OLESTR("\u20AC")   },    // another sorting
        { 1030,     "dd-MM-yyyy",  "HH:mm:ss",     OLESTR(','), OLESTR('.'),  OLESTR("kr.")      },
        { 1042,     "yyyy-MM-dd",  "tt h:mm:ss",   OLESTR('.'), OLESTR(','),  OLESTR("\u20A9")   },
        { 1043,     "d-M-yyyy",    "HH:mm:ss",     OLESTR(','), OLESTR('.'),  OLESTR("\u20AC")   },
        { 1045,     "dd.MM.yyyy",  "HH:mm:ss",     OLESTR(','), noBreakBlank, OLESTR("z\u0142")  },
        { 1046,     "dd/MM/yyyy",  "HH:mm:ss",     OLESTR(','), OLESTR('.'),  OLESTR("R$")       },
        { 1053,     "yyyy-MM-dd",  "HH:mm:ss",     OLESTR(','), noBreakBlank, OLESTR("kr")       },
        { 3084,     "yyyy-MM-dd",  "HH:mm:ss",     OLESTR(','), noBreakBlank, OLESTR("$")        },
        { 4105,     "yyyy-MM-dd",  "h:mm:ss tt",   OLESTR('.'), OLESTR(','),  OLESTR("$")        },
        { 1054,     "d/M/yyyy",    "HH:mm:ss",     OLESTR('.'), OLESTR(','),  OLESTR("\u0E3F")   },    // the Gregorian year
        { 1081,     "d/M/yyyy",    "h:mm:ss tt",   OLESTR('.'), OLESTR(','),  OLESTR("\u20B9")   },    // ASCII digits
    };
    // clang-format on
    for (Row const & row : rows)
        CheckRow(row);
}

TEST(FactsOfLocale, KnowTheMonthsInEveryForm)
{
    detail::DateFacts const & german = detail::FactsOfLocale(1031)->date;
    EXPECT_EQ(Narrow(german.monthNames[2]), "M\\u00E4rz");
    EXPECT_EQ(Narrow(german.shortMonthNames[2]), "M\\u00E4r");
    detail::DateFacts const & russian = detail::FactsOfLocale(1049)->date;
    EXPECT_EQ(Narrow(russian.monthNames[4]), "\\u043C\\u0430\\u0439");
    EXPECT_EQ(Narrow(russian.monthNamesInDates[4]), "\\u043C\\u0430\\u044F");
    detail::DateFacts const & persian = detail::FactsOfLocale(1065)->date; // has another calendar of its own
    EXPECT_EQ(Narrow(persian.monthNames[0]), "\\u0698\\u0627\\u0646\\u0648\\u06CC\\u0647");
    EXPECT_EQ(Narrow(detail::FactsOfLocale(2057)->date.shortMonthNames[8]), "Sep");
    EXPECT_EQ(Narrow(detail::FactsOfLocale(2057)->date.shortMonthNamesInDates[8]), "Sept");
}

TEST(FactsOfLocale, KnowTheWordsForTrueAndFalse)
{
    struct WordRow
    {
        LCID locale;
        char const * yes;
        char const * no;
    };
    // clang-format off
    WordRow const rows[] = {
        {  127, "True",      "False"  },
        { 1033, "True",      "False"  },
        { 1031, "Wahr",      "Falsch" },
        { 3079, "Wahr",      "Falsch" },     // Austria
        { 1036, "Vrai",      "Faux"   },
        { 1040, "Vero",      "Falso"  },
        { 3082, "Verdadero", "Falso"  },
        { 1041, "True",      "False"  },
    };
    // clang-format on
    for (WordRow const & row : rows)
    {
        EXPECT_EQ(Narrow(detail::FactsOfLocale(row.locale)->yes), row.yes) << row.locale;
        EXPECT_EQ(Narrow(detail::FactsOfLocale(row.locale)->no), row.no) << row.locale;
    }
}

TEST(FactsOfLocale, AreNoneForAnUnknownIdentifier)
{
    for (LCID const locale : {0xFFFFu, 0xFFFFFFFFu, 999u, 0x7FFFFFFFu, 3072u})
    {
        detail::LocaleFacts const * facts = &detail::InvariantFacts();
        EXPECT_EQ(detail::FindFactsOfLocale(locale, facts), E_INVALIDARG) << locale;
        EXPECT_EQ(facts, nullptr);
        EXPECT_EQ(detail::FactsOfLocale(locale), nullptr);
    }
}

TEST(FactsOfLocale, AreTheSameObjectEachTime)
{
    EXPECT_EQ(detail::FactsOfLocale(127), detail::FactsOfLocale(127));
    EXPECT_EQ(detail::FactsOfLocale(1031), detail::FactsOfLocale(1031));
    EXPECT_EQ(detail::FactsOfLocale(1024), detail::FactsOfLocale(0));
    EXPECT_EQ(detail::FactsOfLocale(1024), detail::FactsOfLocale(2048));
    EXPECT_NE(detail::FactsOfLocale(1031), detail::FactsOfLocale(1036));
}

TEST(FactsOfLocale, AreFoundWithoutAllocatingOnceTheyAreKnown)
{
    ASSERT_TRUE(detail::FactsOfLocale(1031) && detail::FactsOfLocale(1024));
    std::size_t const before = AllAllocations();
    EXPECT_TRUE(detail::FactsOfLocale(1031) && detail::FactsOfLocale(1024));
    EXPECT_EQ(AllAllocations(), before);
}

TEST(FactsOfLocale, TellWantOfMemoryAndAreFoundLater)
{
    constexpr LCID khmer = 1107; // no other test asks for it
    detail::LocaleFacts const * facts = nullptr;
    bool failed = true;
    std::size_t failures = 0;
    for (; failed; ++failures)
    {
        facts = &detail::InvariantFacts();
        FailNthAllocation const fail(failures + 1);
        HRESULT const result = detail::FindFactsOfLocale(khmer, facts);
        failed = fail.HasFailed();
        ASSERT_EQ(result, failed ? E_OUTOFMEMORY : S_OK);
        ASSERT_EQ(facts == nullptr, failed);
    }
    EXPECT_GT(failures, 10u);
    EXPECT_EQ(Narrow(facts->date.shortDate), "d/M/yyyy");
    EXPECT_EQ(facts->date.words.size(), 16u); // the names are one form each
}

TEST(FactsOfLocale, DISABLED_WithoutMemoryForLocaleData)
{
    IcuMemory memory;
    ASSERT_TRUE(memory.IsMade());
    detail::LocaleFacts const * facts = nullptr;
    ASSERT_EQ(detail::FindFactsOfLocale(1033, facts), S_OK);
    memory.RunOut();
    EXPECT_EQ(detail::FindFactsOfLocale(1031, facts), E_OUTOFMEMORY);
    EXPECT_EQ(facts, nullptr);
    memory.ComeBack();
    EXPECT_EQ(detail::FindFactsOfLocale(1031, facts), S_OK);
    EXPECT_EQ(Narrow(facts->date.shortDate), "dd.MM.yyyy");
}

TEST(FactsOfLocale, TellWantOfMemoryForLocaleDataAndAreFoundLater)
{
    ChildResult const child = RunTestInChild("FactsOfLocale.DISABLED_WithoutMemoryForLocaleData", {});
    EXPECT_EQ(child.exitStatus, 0) << child.output;
}

TEST(FactsOfLocale, AreGivenToManyThreadsAtOnce)
{
    constexpr std::array<LCID, 6> locales = {1029, 1032, 1038, 1055, 1060, 2070};
    std::array<std::array<detail::LocaleFacts const *, locales.size()>, 8> found = {};
    std::vector<std::thread> threads;
    for (auto & row : found)
    {
        threads.emplace_back(
            [&row, &locales]
            {
                for (std::size_t index = 0; index < locales.size(); ++index)
                    row[index] = detail::FactsOfLocale(locales[index]);
            });
    }
    for (std::thread & thread : threads)
        thread.join();
    for (auto const & row : found)
    {
        EXPECT_EQ(row, found[0]);
        for (detail::LocaleFacts const * facts : row)
            EXPECT_TRUE(facts);
    }
}

TEST(RunningYear, IsThatOfTheClock)
{
    std::time_t const now = std::time(nullptr);
    EXPECT_EQ(detail::RunningYear(), std::localtime(&now)->tm_year + 1900);
}

} // namespace kr::test
