#include <krplatform/automation/safearray.h>

#include "tests/krplatform/automation/counted_object.h"
#include "tests/krplatform/automation/make_variant.h"
#include "tests/support/failing_allocator.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <cstring>

using namespace kr::test;

namespace
{

// An array of three elements with lower bound 10 that is destroyed at the end, and a count of what is alive.
class SafeArrayElements : public testing::Test
{
protected:
    ~SafeArrayElements() override
    {
        EXPECT_EQ(SafeArrayDestroy(m_array), S_OK);
        EXPECT_EQ(LiveAllocations(), m_before);
    }

    void Create(VARTYPE element) { m_array = SafeArrayCreateVector(element, 10, 3); }
    HRESULT Put(LONG index, void const * element) { return SafeArrayPutElement(m_array, &index, element); }
    HRESULT Get(LONG index, void * element) { return SafeArrayGetElement(m_array, &index, element); }
    template <class Value>
    Value & At(LONG index)
    {
        void * place = nullptr;
        EXPECT_EQ(SafeArrayPtrOfIndex(m_array, &index, &place), S_OK);
        return *static_cast<Value *>(place);
    }

    std::size_t const m_before = LiveAllocations();
    SAFEARRAY * m_array = nullptr;
};

} // namespace

TEST_F(SafeArrayElements, NumbersGoInAndComeOut)
{
    Create(VT_R8);
    for (LONG const index : {10, 11, 12})
    {
        double const number = index / 8.0;
        EXPECT_EQ(Put(index, &number), S_OK);
    }
    for (LONG const index : {10, 11, 12})
    {
        double number = 0;
        EXPECT_EQ(Get(index, &number), S_OK);
        EXPECT_EQ(number, index / 8.0);
    }
}

TEST_F(SafeArrayElements, OnlyTheBytesOfTheElementAreTouched)
{
    Create(VT_I2);
    SHORT const number = 5;
    EXPECT_EQ(Put(11, &number), S_OK);
    EXPECT_EQ(At<SHORT>(10), 0);
    EXPECT_EQ(At<SHORT>(12), 0);
    SHORT read[2] = {-1, -1};
    EXPECT_EQ(Get(11, read), S_OK);
    EXPECT_EQ(read[0], 5);
    EXPECT_EQ(read[1], -1);
}

TEST_F(SafeArrayElements, IndicesOutsideTheBoundsChangeNothing)
{
    Create(VT_I4);
    LONG number = 5;
    for (LONG const index : {9, 13, 0, -1})
    {
        EXPECT_EQ(Put(index, &number), DISP_E_BADINDEX);
        EXPECT_EQ(Get(index, &number), DISP_E_BADINDEX);
        EXPECT_EQ(number, 5);
    }
}

TEST_F(SafeArrayElements, ATextIsCopiedInWithItsLength)
{
    Create(VT_BSTR);
    std::basic_string_view<WCHAR> const text(OLESTR("a\0b"), 3);
    BSTR const mine = MakeText(text);
    EXPECT_EQ(Put(10, mine), S_OK);
    EXPECT_NE(At<BSTR>(10), mine);
    SysFreeString(mine); // it stayed the caller's
    EXPECT_EQ(Narrow(TextOf(At<BSTR>(10))), Narrow(text));
}

TEST_F(SafeArrayElements, ATextIsCopiedOut)
{
    Create(VT_BSTR);
    At<BSTR>(10) = MakeText(OLESTR("text"));
    BSTR mine = nullptr;
    EXPECT_EQ(Get(10, &mine), S_OK);
    EXPECT_NE(mine, At<BSTR>(10));
    EXPECT_EQ(Narrow(mine), "text");
    SysFreeString(mine);
    EXPECT_EQ(Narrow(At<BSTR>(10)), "text");
}

TEST_F(SafeArrayElements, ATextThatWasNeverWrittenIsNoText)
{
    Create(VT_BSTR);
    BSTR mine = MakeText(OLESTR("mine"));
    BSTR const kept = mine;
    EXPECT_EQ(Get(11, &mine), S_OK);
    EXPECT_EQ(mine, nullptr);
    SysFreeString(kept); // what the caller's variable held was not read
}

TEST_F(SafeArrayElements, NoTextReplacesAText)
{
    Create(VT_BSTR);
    At<BSTR>(10) = MakeText(OLESTR("text"));
    EXPECT_EQ(Put(10, nullptr), S_OK);
    EXPECT_EQ(At<BSTR>(10), nullptr);
}

TEST_F(SafeArrayElements, ATextIsReplacedByItself)
{
    Create(VT_BSTR);
    At<BSTR>(10) = MakeText(OLESTR("text"));
    EXPECT_EQ(Put(10, At<BSTR>(10)), S_OK);
    EXPECT_EQ(Narrow(At<BSTR>(10)), "text");
}

TEST_F(SafeArrayElements, ReferencesAreCounted)
{
    for (VARTYPE const element : {VARTYPE{VT_DISPATCH}, VARTYPE{VT_UNKNOWN}})
    {
        CountedObject object;
        CountedObject other;
        SAFEARRAY * const array = SafeArrayCreateVector(element, 0, 1);
        LONG const index = 0;
        EXPECT_EQ(SafeArrayPutElement(array, &index, static_cast<IDispatch *>(&object)), S_OK);
        EXPECT_EQ(object.References(), 1u);

        IDispatch * mine = nullptr;
        EXPECT_EQ(SafeArrayGetElement(array, &index, &mine), S_OK);
        EXPECT_EQ(mine, &object);
        EXPECT_EQ(object.References(), 2u);
        mine->Release();

        EXPECT_EQ(SafeArrayPutElement(array, &index, static_cast<IDispatch *>(&other)), S_OK);
        EXPECT_EQ(object.References(), 0u);
        EXPECT_EQ(other.References(), 1u);
        EXPECT_EQ(SafeArrayPutElement(array, &index, static_cast<IDispatch *>(&other)), S_OK);
        EXPECT_EQ(other.References(), 1u);
        EXPECT_EQ(SafeArrayDestroy(array), S_OK);
        EXPECT_EQ(other.References(), 0u);
    }
}

TEST_F(SafeArrayElements, NullReplacesAReference)
{
    Create(VT_DISPATCH);
    CountedObject object;
    EXPECT_EQ(Put(10, static_cast<IDispatch *>(&object)), S_OK);
    EXPECT_EQ(Put(10, nullptr), S_OK);
    EXPECT_EQ(object.References(), 0u);
    IDispatch * mine = &object;
    EXPECT_EQ(Get(10, &mine), S_OK);
    EXPECT_EQ(mine, nullptr);
}

TEST_F(SafeArrayElements, TheNewReferenceIsInPlaceBeforeTheOldOneGoes)
{
    Create(VT_DISPATCH);
    CountedObject object;
    EXPECT_EQ(Put(10, static_cast<IDispatch *>(&object)), S_OK);
    IDispatch * seen = &object;
    object.onRelease = [&] { seen = At<IDispatch *>(10); };
    EXPECT_EQ(Put(10, nullptr), S_OK);
    EXPECT_EQ(seen, nullptr);
}

TEST_F(SafeArrayElements, VariantsAreCopiedDeeplyBothWays)
{
    Create(VT_VARIANT);
    VARIANT mine = MakeTextVariant(OLESTR("text"));
    EXPECT_EQ(Put(10, &mine), S_OK);
    EXPECT_NE(At<VARIANT>(10).bstrVal, mine.bstrVal);
    VariantClear(&mine);

    std::memset(&mine, 0xCC, sizeof mine); // what it holds is not read
    EXPECT_EQ(Get(10, &mine), S_OK);
    EXPECT_EQ(mine.vt, VT_BSTR);
    EXPECT_NE(mine.bstrVal, At<VARIANT>(10).bstrVal);
    EXPECT_EQ(Narrow(mine.bstrVal), "text");
    VariantClear(&mine);

    EXPECT_EQ(Get(11, &mine), S_OK);
    EXPECT_EQ(mine.vt, VT_EMPTY);
}

TEST_F(SafeArrayElements, AVariantReleasesTheOneBefore)
{
    Create(VT_VARIANT);
    CountedObject object;
    VARIANT reference = MakeBits(VT_DISPATCH, 0);
    reference.pdispVal = &object;
    EXPECT_EQ(Put(10, &reference), S_OK);
    EXPECT_EQ(object.References(), 1u);
    VARIANT const number = MakeBits(VT_I4, 5);
    EXPECT_EQ(Put(10, &number), S_OK);
    EXPECT_EQ(object.References(), 0u);
    EXPECT_EQ(Put(10, &At<VARIANT>(10)), S_OK);
    EXPECT_EQ(At<VARIANT>(10).lVal, 5);
}

TEST_F(SafeArrayElements, AVariantThatCannotBeCopiedChangesNothing)
{
    Create(VT_VARIANT);
    VARIANT number = MakeBits(VT_I4, 5);
    VARIANT const unknown = MakeBits(VT_BYREF | VT_I4, 8);
    EXPECT_EQ(Put(10, &number), S_OK);
    EXPECT_EQ(Put(10, &unknown), DISP_E_BADVARTYPE);
    EXPECT_EQ(Put(10, nullptr), E_INVALIDARG);
    EXPECT_EQ(At<VARIANT>(10).lVal, 5);

    At<VARIANT>(11) = unknown;
    EXPECT_EQ(Get(11, &number), DISP_E_BADVARTYPE);
    EXPECT_EQ(number.lVal, 5);
    EXPECT_EQ(number.vt, VT_I4);
}

TEST_F(SafeArrayElements, ElementsMayBePutWhileTheArrayIsLocked)
{
    Create(VT_I4);
    SafeArrayLock(m_array);
    LONG const number = 5;
    EXPECT_EQ(Put(10, &number), S_OK);
    EXPECT_EQ(At<LONG>(10), 5);
    SafeArrayUnlock(m_array);
}

TEST_F(SafeArrayElements, TheOldTextStaysWhenMemoryRunsOut)
{
    Create(VT_BSTR);
    At<BSTR>(10) = MakeText(OLESTR("old"));
    BSTR const newText = MakeText(OLESTR("new"));
    BSTR mine = nullptr;
    {
        FailNthAllocation const fail(1);
        EXPECT_EQ(Put(10, newText), E_OUTOFMEMORY);
    }
    {
        FailNthAllocation const fail(1);
        EXPECT_EQ(Get(10, &mine), E_OUTOFMEMORY);
    }
    EXPECT_EQ(mine, nullptr);
    EXPECT_EQ(Narrow(At<BSTR>(10)), "old");
    SysFreeString(newText);
}

TEST_F(SafeArrayElements, TheOldVariantStaysWhenMemoryRunsOut)
{
    Create(VT_VARIANT);
    At<VARIANT>(10) = MakeTextVariant(OLESTR("old"));
    Cleared newText(MakeTextVariant(OLESTR("new")));
    VARIANT mine = MakeBits(VT_I4, 5);
    {
        FailNthAllocation const fail(1);
        EXPECT_EQ(Put(10, newText.Get()), E_OUTOFMEMORY);
    }
    {
        FailNthAllocation const fail(1);
        EXPECT_EQ(Get(10, &mine), E_OUTOFMEMORY);
    }
    EXPECT_EQ(mine.lVal, 5);
    EXPECT_EQ(Narrow(At<VARIANT>(10).bstrVal), "old");
}

TEST_F(SafeArrayElements, ALockedArrayInAVariantStaysWithWhoeverLockedIt)
{
    Create(VT_VARIANT);
    SAFEARRAY * const inner = SafeArrayCreateVector(VT_I4, 0, 3);
    At<VARIANT>(10) = MakeArrayVariant(inner);
    SafeArrayLock(inner);
    VARIANT const number = MakeBits(VT_I4, 5);
    EXPECT_EQ(Put(10, &number), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(At<VARIANT>(10).parray, inner);

    SafeArrayDestroy(m_array);
    m_array = nullptr;
    EXPECT_EQ(SafeArrayUnlock(inner), S_OK);
    EXPECT_EQ(SafeArrayDestroy(inner), S_OK);
}
