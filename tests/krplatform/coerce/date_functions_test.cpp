// The automation functions between dates, text and calendar fields: arguments, failures, ownership.
#include <krplatform/automation/vartext.h>
#include <krplatform/coerce/locale_lookup.h>
#include <krplatform/text/bstr.h>

#include "tests/krplatform/automation/make_variant.h"
#include "tests/support/failing_allocator.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

namespace kr::test
{

namespace
{

constexpr LCID american = 1033;
constexpr LCID unknownLocale = 0xFFFF;
constexpr double outOfRange = 2958466.0;

} // namespace

TEST(VarBstrFromDate, HandsOutANewText)
{
    ASSERT_TRUE(detail::FactsOfLocale(american)); // facts are kept for good
    std::size_t const before = LiveAllocations();
    BSTR text = nullptr;
    EXPECT_EQ(VarBstrFromDate(44270.75, american, 0, &text), S_OK);
    EXPECT_EQ(Narrow(TextOf(text)), "3/15/2021 6:00:00 PM");
    EXPECT_EQ(LiveAllocations(), before + 1);
    SysFreeString(text);
    EXPECT_EQ(VarBstrFromDate(44270.0, american, VAR_TIMEVALUEONLY, &text), S_OK);
    EXPECT_NE(text, nullptr); // empty, but a text
    EXPECT_EQ(SysStringLen(text), 0u);
    SysFreeString(text);
    EXPECT_EQ(LiveAllocations(), before);
}

TEST(VarBstrFromDate, LeavesTheTextWhereItFails)
{
    struct Row
    {
        double date;
        LCID locale;
        ULONG flags;
    };
    // clang-format off
    Row const rows[] = {
        { outOfRange, american,      0 },
        { 44270.0,    unknownLocale, 0 },
        { 44270.0,    american,      3 },     // one part and the other
        { 44270.0,    american,      4 },
        { 44270.0,    american,      0x80000000 },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(testing::Message() << row.date << ", locale " << row.locale << ", flags " << row.flags);
        WCHAR old[] = OLESTR("old");
        BSTR text = old;
        EXPECT_EQ(VarBstrFromDate(row.date, row.locale, row.flags, &text), E_INVALIDARG);
        EXPECT_EQ(text, old);
    }
    EXPECT_EQ(VarBstrFromDate(44270.0, american, 0, nullptr), E_INVALIDARG);
}

TEST(VarBstrFromDate, TellsWantOfMemory)
{
    ASSERT_TRUE(detail::FactsOfLocale(american));
    FailNthAllocation const fail(1);
    BSTR text = nullptr;
    EXPECT_EQ(VarBstrFromDate(44270.0, american, 0, &text), E_OUTOFMEMORY);
    EXPECT_EQ(text, nullptr);
}

TEST(VarDateFromStr, ReadsWithoutAllocating)
{
    ASSERT_TRUE(detail::FactsOfLocale(american));
    std::size_t const before = AllAllocations();
    double date = 0.0;
    EXPECT_EQ(VarDateFromStr(OLESTR("15 March 2021 6:00 PM"), american, 0, &date), S_OK);
    EXPECT_EQ(date, 44270.75);
    EXPECT_EQ(AllAllocations(), before);
}

TEST(VarDateFromStr, LeavesTheDateWhereItFails)
{
    struct Row
    {
        WCHAR const * text;
        LCID locale;
        ULONG flags;
        HRESULT result;
    };
    // clang-format off
    Row const rows[] = {
        { nullptr,               american,      0, DISP_E_TYPEMISMATCH },
        { OLESTR(""),            american,      0, DISP_E_TYPEMISMATCH },
        { OLESTR("abc"),         american,      0, DISP_E_TYPEMISMATCH },
        { OLESTR("13/13/2021"),  american,      0, DISP_E_TYPEMISMATCH },
        { OLESTR("1/1/10000"),   american,      0, DISP_E_TYPEMISMATCH },
        { OLESTR("1/2/2021"),    unknownLocale, 0, E_INVALIDARG        },
        { OLESTR("1/2/2021"),    american,      3, E_INVALIDARG        },
        { OLESTR("1/2/2021"),    american,      8, E_INVALIDARG        },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.text));
        double date = 0.5;
        EXPECT_EQ(VarDateFromStr(row.text, row.locale, row.flags, &date), row.result);
        EXPECT_EQ(date, 0.5);
    }
    EXPECT_EQ(VarDateFromStr(OLESTR("1/2/2021"), american, 0, nullptr), E_INVALIDARG);
}

TEST(CalendarFunctions, RefuseNullAndDatesOutOfRange)
{
    UDATE date = {};
    SYSTEMTIME time = {};
    double made = 0.5;
    EXPECT_EQ(VarUdateFromDate(44270.0, 0, nullptr), E_INVALIDARG);
    EXPECT_EQ(VarUdateFromDate(outOfRange, 0, &date), E_INVALIDARG);
    EXPECT_EQ(date.st.wYear, 0);
    EXPECT_EQ(VariantTimeToSystemTime(44270.0, nullptr), 0);
    EXPECT_EQ(VariantTimeToSystemTime(outOfRange, &time), 0);
    EXPECT_EQ(time.wYear, 0);
    EXPECT_EQ(SystemTimeToVariantTime(nullptr, &made), 0);
    EXPECT_EQ(SystemTimeToVariantTime(&time, nullptr), 0);
    EXPECT_EQ(SystemTimeToVariantTime(&time, &made), 0); // there is no month 0
    EXPECT_EQ(made, 0.5);
}

TEST(CalendarFunctions, SystemTimeToVariantTimeLooksAtNeitherDayOfWeekNorMilliseconds)
{
    SYSTEMTIME const time = {2021, 3, 77, 15, 18, 0, 0, 65535};
    double date = 0.0;
    EXPECT_EQ(SystemTimeToVariantTime(&time, &date), 1);
    EXPECT_EQ(date, 44270.75);
}

} // namespace kr::test
