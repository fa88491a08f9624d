#include <krplatform/automation/variant.h>

#include "tests/krplatform/automation/make_variant.h"
#include "tests/krplatform/coerce/user_locale.h"
#include "tests/support/failing_allocator.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

namespace kr::test
{

namespace
{

constexpr LCID s_unknownLocale = 0xFFFF;
constexpr LCID s_german = 1031;
constexpr LCID s_english = 1033;

} // namespace

TEST(VariantChangeTypeEx, WritesAndReadsNumbersInTheLocale)
{
    Cleared value(MakeR8(1234.5));
    EXPECT_EQ(VariantChangeTypeEx(value.Get(), value.Get(), s_german, 0, VT_BSTR), S_OK);
    EXPECT_EQ(Narrow(value->bstrVal), "1234,5");
    EXPECT_EQ(VariantChangeTypeEx(value.Get(), value.Get(), s_english, 0, VT_R8), S_OK);
    EXPECT_EQ(value->dblVal, 12345.0);
}

TEST(VariantChangeTypeEx, TakesTheSourceFromElsewhere)
{
    Cleared const source(MakeTextVariant(OLESTR("1.5")));
    Cleared destination(MakeTextVariant(OLESTR("before")));
    EXPECT_EQ(VariantChangeTypeEx(destination.Get(), &*source, LOCALE_INVARIANT, 0, VT_R8), S_OK);
    EXPECT_EQ(destination->vt, VT_R8);
    EXPECT_EQ(destination->dblVal, 1.5);
    EXPECT_EQ(Narrow((*source).bstrVal), "1.5");
}

TEST(VariantChangeTypeEx, AnUnknownLocaleFailsWhereItIsNeededOnly)
{
    Cleared text(MakeTextVariant(OLESTR("1")));
    EXPECT_EQ(VariantChangeTypeEx(text.Get(), text.Get(), s_unknownLocale, 0, VT_R8), E_INVALIDARG);
    EXPECT_EQ(Narrow(text->bstrVal), "1");
    Cleared real(MakeR8(1.5));
    EXPECT_EQ(VariantChangeTypeEx(real.Get(), real.Get(), s_unknownLocale, 0, VT_BSTR), E_INVALIDARG);
    EXPECT_EQ(real->dblVal, 1.5);
    EXPECT_EQ(VariantChangeTypeEx(real.Get(), real.Get(), s_unknownLocale, 0, VT_I4), S_OK);
    EXPECT_EQ(real->lVal, 2);
    EXPECT_EQ(VariantChangeTypeEx(real.Get(), real.Get(), s_unknownLocale, 0, VT_BSTR), S_OK);
    EXPECT_EQ(Narrow(real->bstrVal), "2");
}

TEST(VariantChangeTypeEx, NumbersBecomeNumbersWithoutAnAllocation)
{
    Cleared value(MakeR8(44.5));
    std::size_t const before = AllAllocations();
    for (int const target : {VT_I4, VT_CY, VT_R4, VT_BOOL, VT_UI1, VT_DATE, VT_R8})
        EXPECT_EQ(VariantChangeTypeEx(value.Get(), value.Get(), s_german, 0, static_cast<VARTYPE>(target)), S_OK);
    EXPECT_EQ(AllAllocations(), before);
    EXPECT_EQ(value->dblVal, 255.0);
}

TEST(VariantChangeTypeEx, RefusesFlagsAndMissingVariants)
{
    Cleared value(MakeR8(1.5));
    EXPECT_EQ(VariantChangeTypeEx(value.Get(), value.Get(), s_english, 1, VT_I4), E_INVALIDARG);
    EXPECT_EQ(VariantChangeTypeEx(value.Get(), value.Get(), s_english, 16, VT_BSTR), E_INVALIDARG);
    EXPECT_EQ(VariantChangeTypeEx(nullptr, value.Get(), s_english, 0, VT_I4), E_INVALIDARG);
    EXPECT_EQ(VariantChangeTypeEx(value.Get(), nullptr, s_english, 0, VT_I4), E_INVALIDARG);
    EXPECT_EQ(VariantChangeType(value.Get(), value.Get(), 2, VT_I4), E_INVALIDARG);
    EXPECT_EQ(VariantChangeType(nullptr, value.Get(), 0, VT_I4), E_INVALIDARG);
    EXPECT_EQ(value->dblVal, 1.5);
}

TEST(VariantChangeType, FollowsTheLocaleOfTheUser)
{
    Cleared const source(MakeR8(2.5));
    Cleared text(MakeBits(VT_EMPTY, 0));
    {
        UserLocale const locale("de_DE");
        EXPECT_EQ(VariantChangeType(text.Get(), &*source, 0, VT_BSTR), S_OK);
        EXPECT_EQ(Narrow(text->bstrVal), "2,5");
        EXPECT_EQ(VariantChangeTypeEx(text.Get(), &*source, LOCALE_NEUTRAL, 0, VT_BSTR), S_OK);
        EXPECT_EQ(Narrow(text->bstrVal), "2,5");
        EXPECT_EQ(VariantChangeTypeEx(text.Get(), &*source, LOCALE_INVARIANT, 0, VT_BSTR), S_OK);
        EXPECT_EQ(Narrow(text->bstrVal), "2.5");
    }
    UserLocale const locale("en_US");
    EXPECT_EQ(VariantChangeType(text.Get(), &*source, 0, VT_BSTR), S_OK);
    EXPECT_EQ(Narrow(text->bstrVal), "2.5");
}

TEST(VariantChangeType, WithoutMemoryLeavesTheDestination)
{
    Cleared const source(MakeR8(2.5));
    Cleared destination(MakeBits(VT_I4, 4711));
    VariantChangeType(destination.Get(), &*source, 0, VT_I4); // the facts of the locale are kept from the first use on
    VariantChangeTypeEx(destination.Get(), &*source, LOCALE_INVARIANT, 0, VT_BSTR);
    VariantClear(destination.Get());
    FailNthAllocation const fail(1);
    EXPECT_EQ(VariantChangeTypeEx(destination.Get(), &*source, LOCALE_INVARIANT, 0, VT_BSTR), E_OUTOFMEMORY);
    EXPECT_TRUE(fail.HasFailed());
    EXPECT_EQ(destination->vt, VT_EMPTY);
}

} // namespace kr::test
