#include <krplatform/datetime/colecurrency.h>

#include "tests/krplatform/automation/make_variant.h"
#include "tests/krplatform/automation/thrown_result.h"
#include "tests/support/failing_allocator.h"
#include "tests/support/text.h"
#include "tests/support/vectors.h"
#include "tests/vectors/known_differences.h"

#include <gtest/gtest.h>

#include <limits>

namespace kr::test
{

namespace
{

constexpr long highest = std::numeric_limits<LONGLONG>::max();
constexpr long lowest = std::numeric_limits<LONGLONG>::min();

CY Amount(LONGLONG tenThousandths)
{
    CY amount;
    amount.int64 = tenThousandths;
    return amount;
}

VARIANT MakeAmount(LONGLONG tenThousandths) { return MakeBits(VT_CY, static_cast<ULONGLONG>(tenThousandths)); }

std::string Show(CString const & text) { return Narrow(text.GetString()); }

COleCurrency WithStatus(LONGLONG amount, COleCurrency::CurrencyStatus status)
{
    COleCurrency currency(Amount(amount));
    currency.SetStatus(status);
    return currency;
}

} // namespace

TEST(COleCurrency, StartsAsTheValidAmount0)
{
    COleCurrency const amount;
    EXPECT_EQ(amount.GetStatus(), COleCurrency::valid);
    EXPECT_EQ(amount.m_cur.int64, 0);
    EXPECT_EQ(COleCurrency(Amount(125000)).m_cur.int64, 125000);
    EXPECT_EQ(static_cast<CY>(COleCurrency(Amount(-1))).int64, -1);
}

TEST(COleCurrency, AddsUpUnitsAndTenThousandths)
{
    struct Row
    {
        long units;
        long fraction;
        LONGLONG amount;
        COleCurrency::CurrencyStatus status;
    };
    // clang-format off
    Row const rows[] = {
        {               12,     5000,           125000, COleCurrency::valid   },
        {              -12,    -5000,          -125000, COleCurrency::valid   },
        {                1,    -5000,             5000, COleCurrency::valid   },
        {                0,   123456,           123456, COleCurrency::valid   },
        {  922337203685477,     5807,          highest, COleCurrency::valid   },
        {  922337203685477,     5808,                0, COleCurrency::invalid },
        {  922337203685478,        0,                0, COleCurrency::invalid },
        { -922337203685477,    -5808,           lowest, COleCurrency::valid   },
        { -922337203685477,    -5809,                0, COleCurrency::invalid },
        { -922337203685478,        0,                0, COleCurrency::invalid },
        {                1,  highest,                0, COleCurrency::invalid },
        {          highest,        0,                0, COleCurrency::invalid },
        {           lowest,        0,                0, COleCurrency::invalid },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(testing::Message() << row.units << ", " << row.fraction);
        COleCurrency const amount(row.units, row.fraction);
        EXPECT_EQ(amount.GetStatus(), row.status);
        EXPECT_EQ(amount.m_cur.int64, row.amount);
    }
}

TEST(COleCurrency, IsMadeOfAVariantAndTakesOne)
{
    struct Row
    {
        VARIANT value;
        COleCurrency::CurrencyStatus status;
        LONGLONG amount;
    };
    Cleared noNumber(MakeTextVariant(OLESTR("abc")));
    // clang-format off
    Row const rows[] = {
        { MakeAmount(125000),      COleCurrency::valid,   125000  },
        { MakeAmount(-1),          COleCurrency::valid,   -1      },
        { MakeR8(2.5),             COleCurrency::valid,   25000   },
        { MakeBits(VT_I2, 7),      COleCurrency::valid,   70000   },
        { MakeBits(VT_EMPTY, 0),   COleCurrency::null,    0       },
        { MakeBits(VT_NULL, 0),    COleCurrency::null,    0       },
        { *noNumber,               COleCurrency::invalid, 0       },
        { MakeR8(1e300),           COleCurrency::invalid, 0       },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.value.vt);
        COleCurrency const made(row.value);
        EXPECT_EQ(made.GetStatus(), row.status);
        EXPECT_EQ(made.m_cur.int64, row.amount);
        COleCurrency assigned = WithStatus(99, COleCurrency::null);
        EXPECT_EQ(&(assigned = row.value), &assigned);
        EXPECT_EQ(assigned.GetStatus(), row.status);
        EXPECT_EQ(assigned.m_cur.int64, row.amount);
    }
}

TEST(COleCurrency, WritesTheVectorFilesTexts)
{
    VectorFile const file("bstr_from_cy");
    for (VectorRow const & row : file.GetRows())
    {
        if (!IsBinding("bstr_from_cy", row))
            continue;
        SCOPED_TRACE(row.ToString());
        COleCurrency const amount(Amount(row.GetInteger("cy")));
        EXPECT_EQ(Show(amount.Format(0, static_cast<LCID>(row.GetInteger("lcid")))), Narrow(*row.GetText("text")));
    }
}

TEST(COleCurrency, IsEmptyTextForNullAndTellsInvalidAmounts)
{
    EXPECT_EQ(Show(WithStatus(5, COleCurrency::null).Format(0, 127)), "");
    EXPECT_EQ(Show(WithStatus(5, COleCurrency::invalid).Format(0, 127)), "Invalid Currency");
    EXPECT_EQ(Show(COleCurrency(Amount(5)).Format(0, 0xFFFF)), "Invalid Currency");
    EXPECT_EQ(Show(COleCurrency(12, 5000).Format()), Show(COleCurrency(12, 5000).Format(0, LOCALE_USER_DEFAULT)));
}

TEST(COleCurrency, ReadsANumberOfTheLocale)
{
    COleCurrency amount = WithStatus(0, COleCurrency::null);
    EXPECT_TRUE(amount.ParseCurrency(OLESTR("2,5"), 0, 1031));
    EXPECT_EQ(amount.GetStatus(), COleCurrency::valid);
    EXPECT_EQ(amount.m_cur.int64, 25000);
    for (WCHAR const * const text : {OLESTR("abc"), OLESTR(""), static_cast<WCHAR const *>(nullptr)})
    {
        SCOPED_TRACE(Narrow(text));
        amount = COleCurrency(Amount(5));
        EXPECT_FALSE(amount.ParseCurrency(text, 0, 1031));
        EXPECT_EQ(amount.GetStatus(), COleCurrency::invalid);
        EXPECT_EQ(amount.m_cur.int64, 0);
    }
}

TEST(COleCurrency, ComparesAmountsAndOtherwiseTheStatus)
{
    EXPECT_TRUE(COleCurrency(Amount(1)) < COleCurrency(Amount(2)));
    EXPECT_TRUE(COleCurrency(Amount(-1)) < COleCurrency(Amount(0)));
    EXPECT_FALSE(COleCurrency(Amount(2)) < COleCurrency(Amount(1)));
    EXPECT_TRUE(COleCurrency(Amount(2)) == COleCurrency(Amount(2)));
    EXPECT_TRUE(COleCurrency(Amount(1)) != COleCurrency(Amount(2)));
    COleCurrency const null = WithStatus(1, COleCurrency::null);
    COleCurrency const invalid = WithStatus(1, COleCurrency::invalid);
    EXPECT_TRUE(null == WithStatus(2, COleCurrency::null));
    EXPECT_TRUE(null <= WithStatus(2, COleCurrency::null));
    EXPECT_FALSE(null < WithStatus(2, COleCurrency::null));
    EXPECT_FALSE(null == invalid);
    EXPECT_FALSE(null == COleCurrency(Amount(1)));
    EXPECT_FALSE(null < COleCurrency(Amount(2)));
    EXPECT_FALSE(COleCurrency(Amount(0)) < null);
}

TEST(COleCurrency, TellsWantOfMemoryAndLeavesNothingBehind)
{
    COleCurrency const amount(12, 5000);
    EXPECT_EQ(Show(amount.Format(0, 127)), "12.5");
    std::size_t const before = LiveAllocations();
    for (std::size_t n = 1; n <= 2; ++n)
    {
        FailNthAllocation const fail(n);
        EXPECT_EQ(ThrownResult([&] { amount.Format(0, 127); }), E_OUTOFMEMORY) << n;
        EXPECT_EQ(LiveAllocations(), before) << n;
    }
}

TEST(COleCurrency, TellsWantOfMemoryForALocaleAndStaysAsItWas)
{
    constexpr LCID burmese = 1109; // no other test asks for it
    COleCurrency amount(12, 5000);
    {
        FailNthAllocation const fail(1);
        EXPECT_EQ(ThrownResult([&] { amount.ParseCurrency(OLESTR("1.5"), 0, burmese); }), E_OUTOFMEMORY);
    }
    EXPECT_EQ(amount, COleCurrency(12, 5000));
    EXPECT_TRUE(amount.ParseCurrency(OLESTR("1.5"), 0, burmese));
    EXPECT_EQ(amount, COleCurrency(1, 5000));
}

} // namespace kr::test
