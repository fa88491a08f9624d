// What a conversion owns, frees and leaves alone.
#include <krplatform/coerce/coerce.h>

#include "tests/krplatform/automation/counted_object.h"
#include "tests/krplatform/automation/make_variant.h"
#include "tests/krplatform/coerce/locale_samples.h"
#include "tests/support/failing_allocator.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace kr::test
{

namespace
{

using Units = std::basic_string_view<WCHAR>;

VARIANT MakeObject(VARTYPE tag, IDispatch & object)
{
    VARIANT value = MakeBits(tag, 0);
    value.pdispVal = &object;
    return value;
}

VARIANT MakeBytes(std::string_view bytes)
{
    SAFEARRAY * const array = SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size()));
    std::copy(bytes.begin(), bytes.end(), static_cast<char *>(array->pvData));
    return MakeArrayVariant(array);
}

std::string_view BytesOf(VARIANT const & value)
{
    return {static_cast<char const *>(value.parray->pvData), value.parray->rgsabound[0].cElements};
}

HRESULT Coerce(Cleared & destination, VARIANT const & source, int target)
{
    return detail::Coerce(*destination.Get(), source, static_cast<VARTYPE>(target), &english);
}

} // namespace

TEST(CoerceOwnership, FreesWhatTheDestinationHeld)
{
    std::size_t const before = LiveAllocations();
    {
        Cleared const source(MakeBits(VT_I4, 333));
        Cleared destination(MakeTextVariant(OLESTR("some longer text")));
        EXPECT_EQ(Coerce(destination, *source, VT_BSTR), S_OK);
        EXPECT_EQ(Narrow(destination->bstrVal), "333");
        EXPECT_EQ(LiveAllocations(), before + 1);
    }
    EXPECT_EQ(LiveAllocations(), before);
}

TEST(CoerceOwnership, ConvertsInPlace)
{
    std::size_t const before = LiveAllocations();
    Cleared value(MakeBits(VT_I4, 44));
    EXPECT_EQ(Coerce(value, *value, VT_BSTR), S_OK);
    EXPECT_EQ(Narrow(value->bstrVal), "44");
    EXPECT_EQ(Coerce(value, *value, VT_R8), S_OK);
    EXPECT_EQ(value->dblVal, 44.0);
    EXPECT_EQ(LiveAllocations(), before);
}

TEST(CoerceOwnership, AFailureInPlaceLeavesTheText)
{
    Cleared value(MakeTextVariant(OLESTR("abc")));
    BSTR const text = value->bstrVal;
    EXPECT_EQ(Coerce(value, *value, VT_I4), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(Coerce(value, *value, VT_BLOB), DISP_E_BADVARTYPE);
    EXPECT_EQ(value->vt, VT_BSTR);
    EXPECT_EQ(value->bstrVal, text);
    EXPECT_EQ(Narrow(text), "abc");
}

TEST(CoerceOwnership, TheSameTypeIsCopiedDeeplyWithZerosInside)
{
    Cleared const source(MakeTextVariant(Units(OLESTR("a\0b"), 3)));
    Cleared destination(MakeBits(VT_EMPTY, 0));
    EXPECT_EQ(Coerce(destination, *source, VT_BSTR), S_OK);
    EXPECT_NE(destination->bstrVal, source.operator*().bstrVal);
    EXPECT_EQ(TextOf(destination->bstrVal), Units(OLESTR("a\0b"), 3));
}

TEST(CoerceOwnership, NoTextIsCopiedAsEmptyText)
{
    Cleared const source(MakeBits(VT_BSTR, 0));
    Cleared destination(MakeBits(VT_EMPTY, 0));
    EXPECT_EQ(Coerce(destination, *source, VT_BSTR), S_OK);
    ASSERT_NE(destination->bstrVal, nullptr);
    EXPECT_EQ(SysStringLen(destination->bstrVal), 0u);
}

TEST(CoerceOwnership, TheSameTypeInPlaceTouchesNothing)
{
    Cleared value(MakeTextVariant(OLESTR("abc")));
    BSTR const text = value->bstrVal;
    std::size_t const before = AllAllocations();
    EXPECT_EQ(Coerce(value, *value, VT_BSTR), S_OK);
    EXPECT_EQ(value->bstrVal, text);
    EXPECT_EQ(AllAllocations(), before);
}

TEST(CoerceOwnership, ArraysOfOneTypeAreCopiedDeeply)
{
    Cleared const source(MakeBytes("xyz"));
    Cleared destination(MakeBits(VT_EMPTY, 0));
    EXPECT_EQ(Coerce(destination, *source, VT_ARRAY | VT_UI1), S_OK);
    EXPECT_NE(destination->parray, (*source).parray);
    EXPECT_EQ(BytesOf(*destination), "xyz");
}

TEST(CoerceOwnership, BytesBecomeTextByteForByteAndBack)
{
    for (std::string_view const bytes : {std::string_view(""), std::string_view("A\0B\0", 4), std::string_view("odd"),
                                         std::string_view("\0\0\0\0\xFF", 5)})
    {
        SCOPED_TRACE(bytes.size());
        Cleared const source(MakeBytes(bytes));
        Cleared text(MakeBits(VT_EMPTY, 0));
        EXPECT_EQ(Coerce(text, *source, VT_BSTR), S_OK);
        EXPECT_EQ(SysStringByteLen(text->bstrVal), bytes.size());
        Cleared back(MakeBits(VT_EMPTY, 0));
        EXPECT_EQ(Coerce(back, *text, VT_ARRAY | VT_UI1), S_OK);
        EXPECT_EQ(back->vt, VT_ARRAY | VT_UI1);
        EXPECT_EQ(back->parray->rgsabound[0].lLbound, 0);
        EXPECT_EQ(BytesOf(*back), bytes);
    }
}

TEST(CoerceOwnership, NoTextBecomesNoBytes)
{
    Cleared const source(MakeBits(VT_BSTR, 0));
    Cleared destination(MakeBits(VT_EMPTY, 0));
    EXPECT_EQ(Coerce(destination, *source, VT_ARRAY | VT_UI1), S_OK);
    EXPECT_EQ(BytesOf(*destination), "");
}

TEST(CoerceOwnership, OnlyBytesInARowBecomeText)
{
    SAFEARRAYBOUND const bounds[] = {{2, 0}, {2, 0}};
    Cleared const table(MakeArrayVariant(SafeArrayCreate(VT_UI1, 2, bounds)));
    Cleared const missing(MakeBits(VT_ARRAY | VT_UI1, 0));
    Cleared destination(MakeBits(VT_I4, 4711));
    EXPECT_EQ(Coerce(destination, *table, VT_BSTR), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(Coerce(destination, *missing, VT_BSTR), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(destination->lVal, 4711);
}

TEST(CoerceOwnership, AReferenceIsAskedForTheOtherInterfaceAndCounted)
{
    CountedObject object;
    {
        VARIANT const source = MakeObject(VT_DISPATCH, object);
        Cleared destination(MakeBits(VT_EMPTY, 0));
        EXPECT_EQ(Coerce(destination, source, VT_UNKNOWN), S_OK);
        EXPECT_EQ(destination->punkVal, &object);
        EXPECT_EQ(object.References(), 1u);
        EXPECT_EQ(Coerce(destination, *destination, VT_DISPATCH), S_OK);
        EXPECT_EQ(destination->pdispVal, &object);
        EXPECT_EQ(object.References(), 1u);
        EXPECT_EQ(Coerce(destination, *destination, VT_EMPTY), S_OK);
        EXPECT_EQ(object.References(), 0u);
    }
    EXPECT_EQ(object.References(), 0u);
}

TEST(CoerceOwnership, AReferenceThatRefusesIsLeftAlone)
{
    CountedObject object;
    object.queryResult = E_NOINTERFACE;
    VARIANT const source = MakeObject(VT_UNKNOWN, object);
    Cleared destination(MakeBits(VT_I4, 4711));
    EXPECT_EQ(Coerce(destination, source, VT_DISPATCH), E_NOINTERFACE);
    EXPECT_EQ(Coerce(destination, source, VT_I4), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(destination->lVal, 4711);
    EXPECT_EQ(object.Added(), 0u);
}

TEST(CoerceOwnership, ADestinationThatCannotBeClearedStaysAndNothingLeaks)
{
    Cleared const source(MakeBits(VT_I4, 333));
    Cleared locked(MakeBytes("xyz"));
    SafeArrayLock(locked->parray);
    std::size_t const before = LiveAllocations();
    EXPECT_EQ(Coerce(locked, *source, VT_BSTR), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(BytesOf(*locked), "xyz");
    EXPECT_EQ(LiveAllocations(), before);
    SafeArrayUnlock(locked->parray);

    Cleared unknown(MakeBits(15, 4711));
    EXPECT_EQ(Coerce(unknown, *source, VT_BSTR), DISP_E_BADVARTYPE);
    EXPECT_EQ(unknown->vt, 15);
    EXPECT_EQ(unknown->lVal, 4711);
    EXPECT_EQ(LiveAllocations(), before);
}

TEST(CoerceOwnership, TheSourceMayLieInsideTheDestination)
{
    std::size_t const before = LiveAllocations();
    {
        Cleared array(MakeArrayVariant(SafeArrayCreateVector(VT_VARIANT, 0, 1)));
        VARIANT * const element = static_cast<VARIANT *>(array->parray->pvData);
        *element = MakeTextVariant(OLESTR("12"));
        EXPECT_EQ(Coerce(array, *element, VT_BSTR), S_OK);
        EXPECT_EQ(Narrow(array->bstrVal), "12");
    }
    EXPECT_EQ(LiveAllocations(), before);
}

TEST(CoerceOwnership, WithoutMemoryTheDestinationStays)
{
    struct Row
    {
        VARIANT source;
        int target;
    };
    Row const rows[] = {
        {MakeBits(VT_EMPTY, 0), VT_BSTR},
        {MakeBits(VT_I4, 333), VT_BSTR},
        {MakeR8(1.5), VT_BSTR},
        {MakeBits(VT_CY, 15000), VT_BSTR},
        {MakeBits(VT_DATE, 0), VT_BSTR},
        {MakeTextVariant(OLESTR("abc")), VT_BSTR},
        {MakeTextVariant(OLESTR("abc")), VT_ARRAY | VT_UI1},
        {MakeBytes("xyz"), VT_BSTR},
        {MakeBytes("xyz"), VT_ARRAY | VT_UI1},
    };
    Cleared destination(MakeTextVariant(OLESTR("before")));
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.source.vt);
        SCOPED_TRACE(row.target);
        std::size_t const before = LiveAllocations();
        bool failed = true;
        for (std::size_t nth = 1; failed; ++nth)
        {
            FailNthAllocation const fail(nth);
            HRESULT const result = Coerce(destination, row.source, row.target);
            failed = fail.HasFailed();
            ASSERT_LT(nth, 10u);
            EXPECT_EQ(result, failed ? E_OUTOFMEMORY : S_OK);
            if (failed)
            {
                EXPECT_EQ(Narrow(destination->bstrVal), "before");
                EXPECT_EQ(LiveAllocations(), before);
            }
            EXPECT_TRUE(failed || nth > 1) << "nothing was allocated";
        }
        VariantClear(destination.Get());
        *destination.Get() = MakeTextVariant(OLESTR("before"));
    }
    for (Row const & row : rows)
    {
        VARIANT source = row.source;
        VariantClear(&source);
    }
}

} // namespace kr::test
