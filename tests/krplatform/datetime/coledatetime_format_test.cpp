#include <krplatform/datetime/coledatetime.h>
#include <krplatform/system/resource.h>

#include "tests/krplatform/automation/thrown_result.h"
#include "tests/support/failing_allocator.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

namespace kr::test
{

namespace
{

std::string Show(CString const & text) { return Narrow(text.GetString()); }

COleDateTime WithStatus(COleDateTime::DateTimeStatus status)
{
    COleDateTime date(44270.75);
    date.SetStatus(status);
    return date;
}

constexpr char const * invalidText = "Invalid DateTime";

} // namespace

TEST(COleDateTimeFormat, WritesTheLocalesForm)
{
    COleDateTime const date(2021, 3, 15, 8, 5, 9);
    EXPECT_EQ(Show(date.Format(0, 1033)), "3/15/2021 8:05:09 AM");
    EXPECT_EQ(Show(date.Format(0, 1031)), "15.03.2021 08:05:09");
    EXPECT_EQ(Show(date.Format(VAR_DATEVALUEONLY, 127)), "03/15/2021");
    EXPECT_EQ(Show(date.Format(VAR_TIMEVALUEONLY, 127)), "08:05:09");
    EXPECT_EQ(Show(COleDateTime(0.0).Format(0, 127)), "00:00:00");
    EXPECT_EQ(Show(COleDateTime(-1.25).Format(0, 127)), "12/29/1899 06:00:00");
    EXPECT_EQ(Show(COleDateTime(0.25).Format(VAR_DATEVALUEONLY, 127)), "");
    EXPECT_EQ(Show(date.Format()), Show(date.Format(0, LOCALE_USER_DEFAULT)));
}

TEST(COleDateTimeFormat, WritesByAPattern)
{
    COleDateTime const date(2021, 3, 15, 8, 5, 9);
    EXPECT_EQ(Show(date.Format(OLESTR("%Y-%m-%d %H:%M:%S"))), "2021-03-15 08:05:09");
    EXPECT_EQ(Show(date.Format(OLESTR("%A, %j"))), "Monday, 074");
    EXPECT_EQ(Show(COleDateTime().Format(OLESTR("%Y-%m-%d %H:%M:%S"))), "1899-12-30 00:00:00");
    EXPECT_EQ(Show(COleDateTime(-1.25).Format(OLESTR("%Y-%m-%d %H:%M:%S"))), "1899-12-29 06:00:00");
    EXPECT_EQ(Show(COleDateTime(100, 1, 1, 0, 0, 0).Format(OLESTR("%Y %y"))), "0100 00");
    EXPECT_EQ(Show(COleDateTime(9999, 12, 31, 0, 0, 0).Format(OLESTR("%Y"))), "9999");
    EXPECT_EQ(Show(date.Format(OLESTR(""))), "");
}

TEST(COleDateTimeFormat, LosesAResultOfMoreThan255UnitsAndARefusedPattern)
{
    COleDateTime const date(2021, 3, 15, 8, 5, 9);
    std::basic_string<WCHAR> pattern(255, OLESTR('x'));
    EXPECT_EQ(date.Format(pattern.c_str()).GetLength(), 255);
    pattern += OLESTR('x');
    EXPECT_EQ(date.Format(pattern.c_str()).GetLength(), 0);
    EXPECT_EQ(Show(date.Format(OLESTR("%Y %q"))), "");
}

TEST(COleDateTimeFormat, IsEmptyForNullAndTellsInvalidDates)
{
    struct Row
    {
        COleDateTime date;
        char const * text;
    };
    // clang-format off
    Row const rows[] = {
        { WithStatus(COleDateTime::null),    ""          },
        { WithStatus(COleDateTime::invalid), invalidText },
        { COleDateTime(2958466.0),           invalidText },     // valid, but out of the range
        { COleDateTime(-657435.0),           invalidText },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(testing::Message() << row.date.m_dt << ", status " << row.date.GetStatus());
        EXPECT_EQ(Show(row.date.Format(0, 1033)), row.text);
        EXPECT_EQ(Show(row.date.Format(OLESTR("%Y"))), row.text);
    }
    EXPECT_EQ(Show(COleDateTime(44270.0).Format(3, 1033)), invalidText);
    EXPECT_EQ(Show(COleDateTime(44270.0).Format(0, 0xFFFF)), invalidText);
}

TEST(COleDateTimeFormat, TakesTheTextForInvalidDatesFromTheCurrentResourceModule)
{
    HINSTANCE const old = AfxGetResourceHandle();
    HMODULE const german = LoadLibraryExW(Widen(KR_TEST_RESOURCES).c_str(), nullptr, 0);
    ASSERT_TRUE(german);
    AfxSetResourceHandle(german);
    EXPECT_EQ(Show(WithStatus(COleDateTime::invalid).Format(0, 1033)), "Kein Datum");
    EXPECT_EQ(Show(COleDateTime(2958466.0).Format(OLESTR("%Y"))), "Kein Datum");
    AfxSetResourceHandle(old);
    EXPECT_EQ(Show(WithStatus(COleDateTime::invalid).Format(0, 1033)), invalidText);
    EXPECT_TRUE(FreeLibrary(german));
}

TEST(COleDateTimeFormat, RaisesInvalidArgumentForANullPatternWhateverTheStatus)
{
    WCHAR const * const none = nullptr;
    for (COleDateTime const & date :
         {COleDateTime(44270.0), WithStatus(COleDateTime::null), WithStatus(COleDateTime::invalid)})
        EXPECT_EQ(ThrownResult([&] { date.Format(none); }), E_INVALIDARG);
}

TEST(COleDateTimeFormat, TellsWantOfMemoryAndLeavesNothingBehind)
{
    COleDateTime const date(2021, 3, 15, 8, 5, 9);
    EXPECT_EQ(Show(date.Format(0, 1033)), "3/15/2021 8:05:09 AM"); // the locale is known from here on
    std::size_t const before = LiveAllocations();
    for (std::size_t n = 1; n <= 2; ++n)
    {
        FailNthAllocation const fail(n);
        EXPECT_EQ(ThrownResult([&] { date.Format(0, 1033); }), E_OUTOFMEMORY) << n;
        EXPECT_EQ(LiveAllocations(), before) << n;
    }
    FailNthAllocation const fail(1);
    EXPECT_EQ(ThrownResult([&] { date.Format(OLESTR("%Y-%m-%d")); }), E_OUTOFMEMORY);
    EXPECT_EQ(LiveAllocations(), before);
}

TEST(COleDateTimeParse, TellsWantOfMemoryForALocaleAndLeavesTheDate)
{
    constexpr LCID lao = 1108; // no other test asks for it
    COleDateTime date(44270.75);
    {
        FailNthAllocation const fail(1);
        EXPECT_EQ(ThrownResult([&] { date.ParseDateTime(OLESTR("1/2/2021"), 0, lao); }), E_OUTOFMEMORY);
    }
    EXPECT_EQ(date.m_dt, 44270.75);
    EXPECT_EQ(date.GetStatus(), COleDateTime::valid);
    EXPECT_TRUE(date.ParseDateTime(OLESTR("1/2/2021"), 0, lao));
}

TEST(COleDateTimeParse, ReadsTheLocalesForm)
{
    COleDateTime date;
    date.SetStatus(COleDateTime::null);
    EXPECT_TRUE(date.ParseDateTime(OLESTR("15.3.2021 18:00"), 0, 1031));
    EXPECT_EQ(date.GetStatus(), COleDateTime::valid);
    EXPECT_EQ(date.m_dt, 44270.75);
    EXPECT_TRUE(date.ParseDateTime(OLESTR("15.3.2021 18:00"), VAR_TIMEVALUEONLY, 1031));
    EXPECT_EQ(date.m_dt, 0.75);
    EXPECT_TRUE(date.ParseDateTime(OLESTR("2021-03-15")));
    EXPECT_EQ(date.m_dt, 44270.0);
}

TEST(COleDateTimeParse, MakesTheDateInvalidForOtherText)
{
    for (WCHAR const * const text :
         {OLESTR("abc"), OLESTR(""), OLESTR("13/13/2021"), static_cast<WCHAR const *>(nullptr)})
    {
        SCOPED_TRACE(Narrow(text));
        COleDateTime date(44270.75);
        EXPECT_FALSE(date.ParseDateTime(text, 0, 1033));
        EXPECT_EQ(date.GetStatus(), COleDateTime::invalid);
        EXPECT_EQ(date.m_dt, 0.0);
    }
    COleDateTime date;
    EXPECT_FALSE(date.ParseDateTime(OLESTR("3/15/2021"), 0, 0xFFFF));
    EXPECT_FALSE(date.ParseDateTime(OLESTR("3/15/2021"), 3, 1033));
}

} // namespace kr::test
