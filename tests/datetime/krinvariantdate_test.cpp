// The forms of files are written and read without the detour of a pattern and a locale, and with the same result.
#include <krcore/datetime/krdatetime.h>

#include "tests/datetime/date_state.h"
#include "tests/krplatform/coerce/user_locale.h"
#include "tests/support/text.h"

#include <krplatform/automation/vartext.h>

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace kr::test
{

namespace
{

using Text = std::basic_string<WCHAR>;

constexpr int firstDay = -657434; // 1 January 100
constexpr int lastDay = 2958465;  // 31 December 9999

void ExpectTextOfThePattern(COleDateTime const & date)
{
    CKrDateTime const moment(date);
    CKrDate const day(date);
    CKrTime const time(date);
    ASSERT_EQ(moment.FormatInvariant(), moment.Format(OLESTR("%Y-%m-%d %H:%M:%S"))) << date.m_dt;
    ASSERT_EQ(day.FormatInvariant(), day.Format(OLESTR("%Y-%m-%d"))) << date.m_dt;
    ASSERT_EQ(time.FormatInvariant(), time.Format(OLESTR("%H:%M:%S"))) << date.m_dt;
}

/// The date that the platform reads in the user's locale, or zero.
double ReadByThePlatform(Text const & text)
{
    DATE date = 0.0;
    VarDateFromStr(text.c_str(), LOCALE_USER_DEFAULT, 0, &date);
    return date;
}

void ExpectDateOfThePlatform(Text const & text)
{
    CKrDateTime moment(COleDateTime(7.5));
    moment.Parse(text.c_str());
    ASSERT_EQ(StateOf(moment), Valid(ReadByThePlatform(text))) << Narrow(text);
}

/// The text, and with each of its units replaced, left out and doubled.
void ExpectDateOfThePlatformAround(Text const & text)
{
    ExpectDateOfThePlatform(text);
    for (std::size_t place = 0; place < text.size(); ++place)
    {
        for (WCHAR const unit : Text(OLESTR("0123456789-:/. ap\u0663\u3000")))
        {
            Text changed = text;
            changed[place] = unit;
            ExpectDateOfThePlatform(changed);
        }
        Text shorter = text;
        ExpectDateOfThePlatform(shorter.erase(place, 1));
        Text longer = text;
        ExpectDateOfThePlatform(longer.insert(place, 1, text[place]));
    }
}

} // namespace

TEST(InvariantDate, IsWrittenAsThePatternWritesIt)
{
    constexpr double golden = 0.6180339887498949; // its multiples spread over the day
    for (int day = firstDay; day <= lastDay; day += 17)
    {
        double const time = day * golden - std::floor(day * golden);
        ExpectTextOfThePattern(COleDateTime(day < 0 ? day - time : day + time));
    }
}

TEST(InvariantDate, IsWrittenAsThePatternWritesItAtTheEdges)
{
    constexpr double halfSecond = 0.5 / 86400;
    for (double const date :
         {0.0, -0.0, 1.0 - halfSecond, 44270.0 - halfSecond, -1.0 - halfSecond, firstDay + 0.0, lastDay + 0.5,
          lastDay + 1.0 - 0.1 * halfSecond, lastDay + 1.0, firstDay - 1.0, 1e300, -1e300, std::nan("")})
        ExpectTextOfThePattern(COleDateTime(date));
}

TEST(InvariantDate, IsReadAlikeInTheLocaleOfEveryLanguage)
{
    struct Row
    {
        WCHAR const * text;
        COleDateTime date;
    };
    // clang-format off
    Row const rows[] = {
        { OLESTR("2021-03-15 20:05:09"), COleDateTime(2021,  3, 15, 20,  5,  9) },
        { OLESTR("2012-11-10"),          COleDateTime(2012, 11, 10,  0,  0,  0) },
        { OLESTR("2011-12-10"),          COleDateTime(2011, 12, 10,  0,  0,  0) },
        { OLESTR("0100-01-02 03:04:05"), COleDateTime( 100,  1,  2,  3,  4,  5) },
        { OLESTR("9999-12-31 23:59:59"), COleDateTime(9999, 12, 31, 23, 59, 59) },
        { OLESTR("1899-12-29 06:00:00"), COleDateTime(1899, 12, 29,  6,  0,  0) },
        { OLESTR("20:05:09"),            COleDateTime(1899, 12, 30, 20,  5,  9) },
        { OLESTR("00:00:00"),            COleDateTime()                         },
    };
    // clang-format on
    constexpr LCID ownCountry = 0x400;
    constexpr LCID languages = 0x100;
    int locales = 0;
    for (LCID locale = ownCountry + 1; locale < ownCountry + languages; ++locale)
    {
        DATE any = 0.0;
        if (VarDateFromStr(OLESTR("12:00"), locale, 0, &any) == E_INVALIDARG)
            continue; // no such locale
        ++locales;
        for (Row const & row : rows)
        {
            DATE date = 7.5;
            EXPECT_EQ(VarDateFromStr(row.text, locale, 0, &date), S_OK) << locale;
            EXPECT_EQ(date, row.date.m_dt) << Narrow(row.text) << " in " << locale;
        }
    }
    EXPECT_GT(locales, 100);
}

TEST(InvariantDate, IsReadAsThePlatformReadsItWithEveryUnitChanged)
{
    for (char const * const name : {"en_US.UTF-8", "de_DE.UTF-8", "en_GB.UTF-8", "sv_SE.UTF-8", "hu_HU.UTF-8",
                                    "ko_KR.UTF-8", "fa_IR.UTF-8", "th_TH.UTF-8", "bn_IN.UTF-8"})
    {
        UserLocale const locale(name);
        SCOPED_TRACE(name);
        ExpectDateOfThePlatformAround(OLESTR("2021-03-15 20:05:09"));
        ExpectDateOfThePlatformAround(OLESTR("2012-11-10"));
        ExpectDateOfThePlatformAround(OLESTR("20:05:09"));
    }
}

TEST(InvariantDate, LeavesYearsBefore100AndOtherOrdersToTheLocale)
{
    for (WCHAR const * const text :
         {OLESTR("0031-12-11"), OLESTR("0005-03-15"), OLESTR("0099-12-31"), OLESTR("2021-15-03"), OLESTR("2021-02-30"),
          OLESTR("2021-03-15 24:00:00"), OLESTR("2021-03-15T20:05:09"), OLESTR("10-11-2012"), OLESTR("10000-01-01"),
          OLESTR("99:99:99"), OLESTR("08:05 PM"), OLESTR("March 2021")})
        ExpectDateOfThePlatform(text);
    CKrDate date;
    EXPECT_EQ(date.Parse(OLESTR("0031-12-11")).FormatInvariant(), OLESTR("2031-12-11")) << "two digits are of our time";
}

} // namespace kr::test
