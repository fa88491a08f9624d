#include <krplatform/automation/safearray.h>

#include "tests/krplatform/automation/counted_object.h"
#include "tests/krplatform/automation/make_variant.h"
#include "tests/support/failing_allocator.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <numeric>

using namespace kr::test;

namespace
{

// Two rows from 1 and `columns` columns from -1, numbered in the order of memory.
SAFEARRAY * CreateTable(ULONG columns)
{
    SAFEARRAYBOUND const bounds[] = {{2, 1}, {columns, -1}};
    SAFEARRAY * const array = SafeArrayCreate(VT_I4, 2, bounds);
    LONG * const numbers = static_cast<LONG *>(array->pvData);
    std::iota(numbers, numbers + 2 * columns, 1);
    return array;
}

SAFEARRAY * CreateTexts(ULONG count)
{
    SAFEARRAY * const array = SafeArrayCreateVector(VT_BSTR, 0, count);
    for (ULONG index = 0; index < count; ++index)
        static_cast<BSTR *>(array->pvData)[index] = MakeText(OLESTR("text"));
    return array;
}

std::vector<LONG> NumbersOf(SAFEARRAY const * array, std::size_t count)
{
    LONG const * const numbers = static_cast<LONG const *>(array->pvData);
    return std::vector<LONG>(numbers, numbers + count);
}

} // namespace

TEST(SafeArrayCopy, HasBoundsElementsAndTypeOfTheSource)
{
    SAFEARRAY * const source = CreateTable(3);
    SAFEARRAY * copy = nullptr;
    EXPECT_EQ(SafeArrayCopy(source, &copy), S_OK);
    ASSERT_NE(copy, nullptr);
    EXPECT_NE(copy->pvData, source->pvData);
    EXPECT_EQ(copy->fFeatures, source->fFeatures);
    Cleared const one(MakeArrayVariant(source));
    Cleared const other(MakeArrayVariant(copy));
    EXPECT_TRUE(*one == *other);
    EXPECT_EQ(NumbersOf(copy, 6), (std::vector<LONG>{1, 2, 3, 4, 5, 6}));
}

TEST(SafeArrayCopy, IsUnlocked)
{
    SAFEARRAY * const source = CreateTable(3);
    SafeArrayLock(source);
    SAFEARRAY * copy = nullptr;
    EXPECT_EQ(SafeArrayCopy(source, &copy), S_OK);
    EXPECT_EQ(copy->cLocks, 0u);
    EXPECT_EQ(SafeArrayDestroy(copy), S_OK);
    SafeArrayUnlock(source);
    EXPECT_EQ(SafeArrayDestroy(source), S_OK);
}

TEST(SafeArrayCopy, OfNoArrayIsNone)
{
    SAFEARRAY * copy = CreateTable(1);
    SAFEARRAY * const kept = copy;
    EXPECT_EQ(SafeArrayCopy(nullptr, &copy), S_OK);
    EXPECT_EQ(copy, nullptr);
    SafeArrayDestroy(kept);
}

TEST(SafeArrayCopy, OfNoElementsHasNone)
{
    SAFEARRAY * const source = SafeArrayCreateVector(VT_BSTR, 42, 0);
    SAFEARRAY * copy = nullptr;
    EXPECT_EQ(SafeArrayCopy(source, &copy), S_OK);
    LONG upper = 0;
    EXPECT_EQ(SafeArrayGetUBound(copy, 1, &upper), S_OK);
    EXPECT_EQ(upper, 41);
    SafeArrayDestroy(copy);
    SafeArrayDestroy(source);
}

TEST(SafeArrayCopy, KeepsATextThatWasNeverWritten)
{
    SAFEARRAY * const source = SafeArrayCreateVector(VT_BSTR, 0, 1);
    SAFEARRAY * copy = nullptr;
    EXPECT_EQ(SafeArrayCopy(source, &copy), S_OK);
    EXPECT_EQ(*static_cast<BSTR *>(copy->pvData), nullptr);
    SafeArrayDestroy(copy);
    SafeArrayDestroy(source);
}

TEST(SafeArrayCopy, AddsAReferenceForEachElement)
{
    CountedObject object;
    SAFEARRAY * const source = SafeArrayCreateVector(VT_DISPATCH, 0, 3);
    for (LONG const index : {0, 2})
        SafeArrayPutElement(source, &index, static_cast<IDispatch *>(&object));
    SAFEARRAY * copy = nullptr;
    EXPECT_EQ(SafeArrayCopy(source, &copy), S_OK);
    EXPECT_EQ(object.References(), 4u);
    SafeArrayDestroy(source);
    EXPECT_EQ(object.References(), 2u);
    SafeArrayDestroy(copy);
    EXPECT_EQ(object.References(), 0u);
}

TEST(SafeArrayCopy, ThatFailsInTheMiddleReleasesWhatItMade)
{
    CountedObject object;
    SAFEARRAY * const source = SafeArrayCreateVector(VT_VARIANT, 0, 3);
    VARIANT * const elements = static_cast<VARIANT *>(source->pvData);
    elements[0] = MakeBits(VT_DISPATCH, 0);
    elements[0].pdispVal = &object;
    object.AddRef();
    elements[1] = MakeTextVariant(OLESTR("text"));
    elements[2] = MakeBits(VT_BYREF | VT_I4, 8);
    std::size_t const before = LiveAllocations();

    SAFEARRAY * copy = source;
    EXPECT_EQ(SafeArrayCopy(source, &copy), DISP_E_BADVARTYPE);
    EXPECT_EQ(copy, nullptr);
    EXPECT_EQ(object.References(), 1u);
    EXPECT_EQ(LiveAllocations(), before);
    SafeArrayDestroy(source);
    EXPECT_EQ(object.References(), 0u);
}

TEST(SafeArrayCopy, LeaksNothingWhenMemoryRunsOut)
{
    // Two arrays of two texts each inside an array of variants.
    SAFEARRAY * const source = SafeArrayCreateVector(VT_VARIANT, 0, 2);
    VARIANT * const elements = static_cast<VARIANT *>(source->pvData);
    elements[0] = MakeArrayVariant(CreateTexts(2));
    elements[1] = MakeArrayVariant(CreateTexts(2));
    auto const copyIt = [&]
    {
        SAFEARRAY * copy = source;
        HRESULT const result = SafeArrayCopy(source, &copy);
        EXPECT_EQ(result, copy ? S_OK : E_OUTOFMEMORY);
        EXPECT_NE(copy, source);
        SafeArrayDestroy(copy);
    };
    EXPECT_EQ(FailEveryAllocation(copyIt, [] { FAIL() << "SafeArrayCopy never throws"; }), 2u + 2u * 4u);
    SafeArrayDestroy(source);
}

TEST(SafeArrayRedim, AddsZeroedElementsToTheLastDimension)
{
    SAFEARRAY * const array = CreateTable(2);
    SAFEARRAYBOUND const newBound = {3, 7};
    EXPECT_EQ(SafeArrayRedim(array, &newBound), S_OK);
    EXPECT_EQ(NumbersOf(array, 6), (std::vector<LONG>{1, 2, 3, 4, 0, 0}));
    LONG lower = 0;
    LONG upper = 0;
    SafeArrayGetLBound(array, 2, &lower);
    SafeArrayGetUBound(array, 2, &upper);
    EXPECT_EQ(lower, 7);
    EXPECT_EQ(upper, 9);
    SafeArrayGetUBound(array, 1, &upper);
    EXPECT_EQ(upper, 2);
    SafeArrayDestroy(array);
}

TEST(SafeArrayRedim, ReleasesTheElementsThatFallAway)
{
    std::size_t const before = LiveAllocations();
    SAFEARRAY * const array = CreateTexts(5);
    SAFEARRAYBOUND newBound = {2, 0};
    EXPECT_EQ(SafeArrayRedim(array, &newBound), S_OK);
    EXPECT_EQ(LiveAllocations(), before + 4); // descriptor, data and two texts
    EXPECT_EQ(Narrow(static_cast<BSTR *>(array->pvData)[1]), "text");

    newBound.cElements = 4;
    EXPECT_EQ(SafeArrayRedim(array, &newBound), S_OK);
    EXPECT_EQ(Narrow(static_cast<BSTR *>(array->pvData)[1]), "text");
    EXPECT_EQ(static_cast<BSTR *>(array->pvData)[2], nullptr);
    EXPECT_EQ(static_cast<BSTR *>(array->pvData)[3], nullptr);

    newBound.cElements = 0;
    EXPECT_EQ(SafeArrayRedim(array, &newBound), S_OK);
    SafeArrayDestroy(array);
    EXPECT_EQ(LiveAllocations(), before);
}

TEST(SafeArrayRedim, FillsAnArrayThatWasEmpty)
{
    SAFEARRAY * const array = SafeArrayCreateVector(VT_I4, 0, 0);
    SAFEARRAYBOUND const newBound = {2, 0};
    EXPECT_EQ(SafeArrayRedim(array, &newBound), S_OK);
    EXPECT_EQ(NumbersOf(array, 2), (std::vector<LONG>{0, 0}));
    SafeArrayDestroy(array);
}

TEST(SafeArrayRedim, TakesTheArraysOwnBound)
{
    SAFEARRAY * const array = CreateTable(2);
    EXPECT_EQ(SafeArrayRedim(array, array->rgsabound), S_OK);
    EXPECT_EQ(NumbersOf(array, 4), (std::vector<LONG>{1, 2, 3, 4}));
    SafeArrayDestroy(array);
}

TEST(SafeArrayRedim, RefusesALockedArray)
{
    SAFEARRAY * const array = CreateTable(2);
    SafeArrayLock(array);
    SAFEARRAYBOUND const newBound = {3, 0};
    EXPECT_EQ(SafeArrayRedim(array, &newBound), DISP_E_ARRAYISLOCKED);
    SafeArrayUnlock(array);
    EXPECT_EQ(array->rgsabound[0].cElements, 2u);
    SafeArrayDestroy(array);
}

TEST(SafeArrayRedim, LeavesTheArrayAfterAFailure)
{
    SAFEARRAY * const array = CreateTable(2);
    void const * const data = array->pvData;
    SAFEARRAYBOUND const tooMany = {0x10000000, 0};
    SAFEARRAYBOUND const pastTheRange = {3, 0x7FFFFFFE};
    SAFEARRAYBOUND const three = {3, 0};
    EXPECT_EQ(SafeArrayRedim(array, &tooMany), E_OUTOFMEMORY);
    EXPECT_EQ(SafeArrayRedim(array, &pastTheRange), E_OUTOFMEMORY);
    {
        FailNthAllocation const fail(1);
        EXPECT_EQ(SafeArrayRedim(array, &three), E_OUTOFMEMORY);
    }
    EXPECT_EQ(array->pvData, data);
    EXPECT_EQ(array->rgsabound[0].cElements, 2u);
    EXPECT_EQ(array->rgsabound[0].lLbound, -1);
    EXPECT_EQ(NumbersOf(array, 4), (std::vector<LONG>{1, 2, 3, 4}));
    SafeArrayDestroy(array);
}
