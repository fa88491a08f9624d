// The user's locale under many environments.
#include <krplatform/automation/vartext.h>
#include <krplatform/coerce/locale_lookup.h>
#include <krplatform/text/bstr.h>

#include "tests/krplatform/automation/make_variant.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <optional>
#include <string>
#include <thread>

#include <unistd.h>

namespace kr::test
{

namespace
{

constexpr std::array<char const *, 6> s_variables = {"LC_ALL",  "LC_CTYPE",    "LC_NUMERIC",
                                                     "LC_TIME", "LC_MONETARY", "LANG"};

/// The variables of locales, emptied for a test and put back.
class UserLocale : public testing::Test
{
protected:
    void SetUp() override
    {
        for (std::size_t index = 0; index < s_variables.size(); ++index)
        {
            char const * const value = std::getenv(s_variables[index]);
            m_old[index] = value ? std::optional<std::string>(value) : std::nullopt;
            unsetenv(s_variables[index]);
        }
    }

    void TearDown() override
    {
        for (std::size_t index = 0; index < s_variables.size(); ++index)
        {
            if (m_old[index])
                setenv(s_variables[index], m_old[index]->c_str(), 1);
            else
                unsetenv(s_variables[index]);
        }
    }

    static void Set(char const * variable, char const * value) { setenv(variable, value, 1); }

private:
    std::array<std::optional<std::string>, s_variables.size()> m_old;
};

std::string UserDate()
{
    BSTR text = nullptr;
    EXPECT_EQ(VarBstrFromDate(44270.25, LOCALE_USER_DEFAULT, 0, &text), S_OK);
    std::string const shown = Narrow(TextOf(text));
    SysFreeString(text);
    return shown;
}

constexpr char const * american = "3/15/2021 6:00:00 AM";
constexpr char const * german = "15.03.2021 06:00:00";
constexpr char const * french = "15/03/2021 06:00:00";
constexpr char const * swedish = "2021-03-15 06:00:00";

} // namespace

TEST_F(UserLocale, IsTheFirstOfAllTheCategorysAndLangThatIsSet)
{
    EXPECT_EQ(UserDate(), american);
    Set("LANG", "de_DE");
    EXPECT_EQ(UserDate(), german);
    Set("LC_TIME", "fr_FR");
    EXPECT_EQ(UserDate(), french);
    Set("LC_ALL", "sv_SE");
    EXPECT_EQ(UserDate(), swedish);
    Set("LC_ALL", ""); // empty counts as not set
    EXPECT_EQ(UserDate(), french);
    Set("LC_TIME", "");
    EXPECT_EQ(UserDate(), german);
    Set("LANG", "");
    EXPECT_EQ(UserDate(), american);
}

TEST_F(UserLocale, IsTheFirstThatIsNotEmptyWhereAVariableStandsTwice)
{
    struct Row
    {
        char const * first;
        char const * second;
        char const * date;
    };
    // clang-format off
    Row const rows[] = {
        { "LC_TIME=de_DE", "LC_TIME=fr_FR", german   },
        { "LC_TIME=",      "LC_TIME=fr_FR", french   },
        { "LC_TIME=de_DE", "LC_TIME=",      german   },
        { "LC_TIME=",      "LC_TIME=",      american },
    };
    // clang-format on
    char ** const before = environ;
    for (Row const & row : rows)
    {
        char * entries[] = {const_cast<char *>(row.first), const_cast<char *>(row.second), nullptr};
        environ = entries;
        std::string const date = UserDate();
        environ = before;
        EXPECT_EQ(date, row.date) << row.first << " " << row.second;
    }
}

TEST_F(UserLocale, IsLookedUpByLanguageAndTerritory)
{
    struct Row
    {
        char const * name;
        char const * date;
    };
    // clang-format off
    Row const rows[] = {
        { "de_DE",              german   },
        { "de_DE.UTF-8",        german   },
        { "de_DE@euro",         german   },
        { "de_DE.ISO-8859-15@euro", german },
        { "de",                 german   },
        { "de_XX",              german   },     // the territory need not be known
        { "fr_FR",              french   },
        { "sv_SE.UTF-8",        swedish  },
        { "en_US.UTF-8",        american },
        { "C",                  american },
        { "C.UTF-8",            american },
        { "POSIX",              american },
        { "xx_YY",              american },     // unknown
        { "nonsense",           american },
        { ".UTF-8",             american },
        { "@euro",              american },
        { "../../etc/passwd",   american },
        { "sr_RS@latin",        "15.3.2021. 06:00:00" },
        { "sr_RS@cyrillic",     "15.3.2021. 06:00:00" },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        Set("LC_ALL", row.name);
        EXPECT_EQ(UserDate(), row.date) << row.name;
    }
    Set("LC_ALL", std::string(5000, 'x').c_str());
    EXPECT_EQ(UserDate(), american);
}

TEST_F(UserLocale, TakesTheScriptFromTheModifier)
{
    Set("LC_ALL", "sr_RS@latin");
    EXPECT_EQ(Narrow(detail::FactsOfLocale(1024)->date.monthNames[2]), "mart");
    Set("LC_ALL", "sr_RS");
    EXPECT_EQ(Narrow(detail::FactsOfLocale(1024)->date.monthNames[2]), "\\u043C\\u0430\\u0440\\u0442");
    Set("LC_ALL", "uz_UZ@cyrillic");
    EXPECT_EQ(Narrow(detail::FactsOfLocale(1024)->date.monthNames[2]), "\\u043C\\u0430\\u0440\\u0442");
}

TEST_F(UserLocale, PutsItsFactsTogetherFromTheCategories)
{
    Set("LC_NUMERIC", "fr_FR");
    Set("LC_TIME", "de_DE");
    Set("LC_MONETARY", "ja_JP");
    detail::LocaleFacts const * const facts = detail::FactsOfLocale(1024);
    ASSERT_TRUE(facts);
    EXPECT_EQ(facts->number.decimalMark, OLESTR(','));
    EXPECT_EQ(facts->number.groupMark, 0x00A0);
    EXPECT_EQ(Narrow(facts->date.shortDate), "dd.MM.yyyy");
    EXPECT_EQ(Narrow(facts->yes), "Wahr");
    EXPECT_EQ(Narrow(facts->currency.symbol), "\\u00A5");
    EXPECT_EQ(facts, detail::FactsOfLocale(0));
    EXPECT_EQ(UserDate(), german); // the composite's patterns are its own
    Set("LC_NUMERIC", "de_DE");
    EXPECT_EQ(Narrow(detail::FactsOfLocale(1024)->currency.symbol), "\\u00A5");
    double date = 0.0;
    EXPECT_EQ(VarDateFromStr(OLESTR("15. M\u00E4rz 2021"), 1024, 0, &date), S_OK);
    EXPECT_EQ(date, 44270.0);
}

TEST_F(UserLocale, OfOneNameInAllCategoriesIsThatLocale)
{
    Set("LANG", "de_DE.UTF-8");
    EXPECT_EQ(detail::FactsOfLocale(1024), detail::FactsOfLocale(1031));
    Set("LC_NUMERIC", "de_DE");
    EXPECT_EQ(detail::FactsOfLocale(1024), detail::FactsOfLocale(1031));
    Set("LC_NUMERIC", "fr_FR");
    EXPECT_NE(detail::FactsOfLocale(1024), detail::FactsOfLocale(1031));
    unsetenv("LC_NUMERIC");
    EXPECT_EQ(detail::FactsOfLocale(1024), detail::FactsOfLocale(1031));
    Set("LC_ALL", "fr_FR");
    EXPECT_EQ(detail::FactsOfLocale(1024), detail::FactsOfLocale(1036));
}

TEST_F(UserLocale, IsSeenByEveryThread)
{
    Set("LANG", "de_DE");
    EXPECT_EQ(UserDate(), german);
    std::string other;
    std::thread([&other] { other = UserDate(); }).join();
    EXPECT_EQ(other, german);
    Set("LANG", "fr_FR");
    std::thread([&other] { other = UserDate(); }).join();
    EXPECT_EQ(other, french);
    EXPECT_EQ(UserDate(), french);
}

TEST_F(UserLocale, GivesItsRawNameByCategory)
{
    using detail::LocaleCategory;
    EXPECT_STREQ(detail::UserLocaleName(LocaleCategory::characters), "C");
    Set("LANG", "de_DE.UTF-8@euro");
    EXPECT_STREQ(detail::UserLocaleName(LocaleCategory::characters), "de_DE.UTF-8@euro");
    Set("LC_CTYPE", "fr_FR.ISO-8859-1");
    Set("LC_NUMERIC", "it_IT");
    Set("LC_TIME", "ja_JP");
    Set("LC_MONETARY", "en_GB");
    EXPECT_STREQ(detail::UserLocaleName(LocaleCategory::characters), "fr_FR.ISO-8859-1");
    EXPECT_STREQ(detail::UserLocaleName(LocaleCategory::numbers), "it_IT");
    EXPECT_STREQ(detail::UserLocaleName(LocaleCategory::dates), "ja_JP");
    EXPECT_STREQ(detail::UserLocaleName(LocaleCategory::amounts), "en_GB");
    Set("LC_ALL", "C.UTF-8");
    EXPECT_STREQ(detail::UserLocaleName(LocaleCategory::characters), "C.UTF-8");
    EXPECT_STREQ(detail::UserLocaleName(LocaleCategory::dates), "C.UTF-8");
}

TEST_F(UserLocale, IsNotMistakenForAVariableThatOnlyBeginsLikeOne)
{
    setenv("LANGUAGE", "de_DE", 1);
    setenv("LC_TIMEX", "de_DE", 1);
    setenv("LC_AL", "de_DE", 1);
    EXPECT_EQ(UserDate(), american);
    unsetenv("LANGUAGE");
    unsetenv("LC_TIMEX");
    unsetenv("LC_AL");
}

TEST_F(UserLocale, IsAmericanWithoutAnyEnvironment)
{
    char ** const old = environ;
    environ = nullptr;
    std::string const date = UserDate();
    environ = old;
    EXPECT_EQ(date, american);
}

} // namespace kr::test
