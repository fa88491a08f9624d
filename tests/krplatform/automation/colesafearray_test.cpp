#include <krplatform/automation/colesafearray.h>

#include "tests/krplatform/automation/counted_object.h"
#include "tests/krplatform/automation/make_variant.h"
#include "tests/krplatform/automation/thrown_result.h"
#include "tests/support/failing_allocator.h"
#include "tests/support/text.h"

#include <krplatform/automation/colevariant.h>

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <utility>

using namespace kr::test;

static_assert(sizeof(COleSafeArray) == sizeof(VARIANT));
static_assert(std::is_nothrow_move_constructible_v<COleSafeArray>);
static_assert(std::is_nothrow_move_assignable_v<COleSafeArray>);

namespace
{

COleSafeArray MakeNumbers(std::initializer_list<double> numbers)
{
    COleSafeArray array;
    array.CreateOneDim(VT_R8, static_cast<DWORD>(numbers.size()), numbers.begin());
    return array;
}

COleSafeArray MakeTexts()
{
    COleSafeArray array;
    array.CreateOneDim(VT_BSTR, 2);
    for (LONG index = 0; index < 2; ++index)
    {
        BSTR const text = MakeText(OLESTR("text"));
        array.PutElement(&index, text);
        SysFreeString(text);
    }
    return array;
}

double NumberAt(COleSafeArray const & array, LONG index)
{
    double number = 0;
    array.GetElement(&index, &number);
    return number;
}

} // namespace

TEST(COleSafeArray, IsEmptyAtFirst)
{
    COleSafeArray const array;
    EXPECT_EQ(array.vt, VT_EMPTY);
    EXPECT_EQ(array.parray, nullptr);
    EXPECT_EQ(array.GetDim(), 0u);
    EXPECT_EQ(array.GetElemSize(), 0u);
}

TEST(COleSafeArray, IsPassedWhereAVariantIsExpected)
{
    COleSafeArray array = MakeNumbers({1, 2});
    VARIANT * const writable = array;
    VARIANT const * const readable = std::as_const(array);
    EXPECT_EQ(writable, &static_cast<VARIANT &>(array));
    EXPECT_EQ(readable, writable);
    EXPECT_EQ(readable->vt, VT_ARRAY | VT_R8);
}

TEST(COleSafeArray, AfxSafeArrayInitDoesNotReadTheOldValue)
{
    alignas(COleSafeArray) std::byte memory[sizeof(COleSafeArray)];
    auto * const array = new (memory) COleSafeArray;
    std::memset(memory, 0xCC, sizeof memory);
    AfxSafeArrayInit(array);
    EXPECT_EQ(array->vt, VT_EMPTY);
    array->~COleSafeArray();
    AfxSafeArrayInit(nullptr);
}

TEST(COleSafeArray, TakesACopyOfAnArrayInAVariant)
{
    COleSafeArray const source = MakeNumbers({1, 2, 3});
    VARIANT const & plain = source;
    COleSafeArray const fromPointer(&plain);
    COleSafeArray const fromVariant(plain);
    COleSafeArray const fromArray(source.parray, VT_R8);
    COleSafeArray const copy(source);
    for (COleSafeArray const * array : {&fromPointer, &fromVariant, &fromArray, &copy})
    {
        EXPECT_EQ(array->vt, VT_ARRAY | VT_R8);
        EXPECT_NE(array->parray, source.parray);
        EXPECT_TRUE(*array == source);
    }
}

TEST(COleSafeArray, RefusesWhatHoldsNoArray)
{
    COleVariant const number(5L);
    COleVariant const text(OLESTR("text"));
    COleVariant const empty;
    for (VARIANT const * source : {static_cast<VARIANT const *>(&number), static_cast<VARIANT const *>(&text),
                                   static_cast<VARIANT const *>(&empty)})
    {
        EXPECT_EQ(ThrownResult([&] { COleSafeArray array(source); }), DISP_E_TYPEMISMATCH);
        EXPECT_EQ(ThrownResult([&] { COleSafeArray array(*source); }), DISP_E_TYPEMISMATCH);
        COleSafeArray array = MakeNumbers({1});
        EXPECT_EQ(ThrownResult([&] { array = *source; }), DISP_E_TYPEMISMATCH);
        EXPECT_EQ(NumberAt(array, 0), 1);
    }
    EXPECT_EQ(ThrownResult([] { COleSafeArray array(static_cast<VARIANT const *>(nullptr)); }), E_INVALIDARG);
    VARIANT const reference = MakeBits(VT_BYREF | VT_ARRAY | VT_R8, 8);
    EXPECT_EQ(ThrownResult([&] { COleSafeArray array(&reference); }), DISP_E_BADVARTYPE);
}

TEST(COleSafeArray, RefusesAnArrayOfOtherElements)
{
    COleSafeArray const source = MakeNumbers({1, 2, 3});
    EXPECT_EQ(ThrownResult([&] { COleSafeArray array(source.parray, VT_DATE); }), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(ThrownResult([] { COleSafeArray array(static_cast<SAFEARRAY const *>(nullptr), VT_R8); }), E_INVALIDARG);
}

TEST(COleSafeArray, CopiesAnEmptyObjectAndATagWithoutArray)
{
    COleSafeArray const empty;
    COleSafeArray const copy(empty);
    EXPECT_EQ(copy.vt, VT_EMPTY);
    VARIANT const none = MakeBits(VT_ARRAY | VT_R8, 0);
    COleSafeArray array(none);
    EXPECT_EQ(array.vt, VT_ARRAY | VT_R8);
    EXPECT_EQ(array.parray, nullptr);
    EXPECT_EQ(ThrownResult([&] { array.GetOneDimSize(); }), E_INVALIDARG);
    array = empty;
    EXPECT_EQ(array.vt, VT_EMPTY);
}

TEST(COleSafeArray, AssignsCopies)
{
    COleSafeArray const source = MakeNumbers({1, 2, 3});
    COleSafeArray array = MakeTexts();
    array = source;
    EXPECT_TRUE(array == source);
    EXPECT_NE(array.parray, source.parray);
    array = MakeTexts();
    array = static_cast<VARIANT const &>(source);
    EXPECT_TRUE(array == source);
    COleSafeArray const & itself = array;
    array = itself;
    EXPECT_TRUE(array == source);
}

TEST(COleSafeArray, MovesWithoutACopy)
{
    COleSafeArray source = MakeNumbers({1, 2, 3});
    SAFEARRAY * const numbers = source.parray;
    COleSafeArray moved(std::move(source));
    EXPECT_EQ(moved.parray, numbers);
    EXPECT_EQ(source.vt, VT_EMPTY);
    COleSafeArray target = MakeTexts();
    target = std::move(moved);
    EXPECT_EQ(target.parray, numbers);
    EXPECT_EQ(moved.vt, VT_EMPTY);
    COleSafeArray & itself = target;
    target = std::move(itself);
    EXPECT_EQ(target.parray, numbers);
}

TEST(COleSafeArrayCreate, MakesZeroedElements)
{
    COleSafeArray array = MakeTexts();
    DWORD const counts[] = {2, 3};
    array.Create(VT_I4, 2, counts);
    EXPECT_EQ(array.vt, VT_ARRAY | VT_I4);
    EXPECT_EQ(array.GetDim(), 2u);
    EXPECT_EQ(array.GetElemSize(), 4u);
    LONG lower = -1;
    LONG upper = -1;
    array.GetLBound(2, &lower);
    array.GetUBound(2, &upper);
    EXPECT_EQ(lower, 0);
    EXPECT_EQ(upper, 2);
    LONG const indices[] = {1, 2};
    LONG number = -1;
    array.GetElement(indices, &number);
    EXPECT_EQ(number, 0);
}

TEST(COleSafeArrayCreate, TakesBounds)
{
    SAFEARRAYBOUND const bounds[] = {{2, 1}, {3, -1}};
    COleSafeArray array;
    array.Create(VT_I4, 2, bounds);
    long lower = 0;
    long upper = 0;
    array.GetLBound(1, &lower);
    array.GetUBound(1, &upper);
    EXPECT_EQ(lower, 1);
    EXPECT_EQ(upper, 2);
    array.GetLBound(2, &lower);
    array.GetUBound(2, &upper);
    EXPECT_EQ(lower, -1);
    EXPECT_EQ(upper, 1);
}

TEST(COleSafeArrayCreate, RefusesWhatNoArrayCanBe)
{
    COleSafeArray array = MakeNumbers({1});
    DWORD const counts[] = {2, 3};
    SAFEARRAYBOUND const bounds[] = {{2, 1}, {3, -1}};
    EXPECT_EQ(ThrownResult([&] { array.Create(VT_NULL, 2, counts); }), E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { array.Create(VT_BLOB, 2, bounds); }), E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { array.Create(VT_I4, 0, counts); }), E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { array.Create(VT_I4, 0, bounds); }), E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { array.Create(VT_I4, 0x10000, counts); }), E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { array.Create(VT_I4, 0x10000, bounds); }), E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { array.Create(VT_I4, 1, static_cast<DWORD const *>(nullptr)); }), E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { array.Create(VT_I4, 1, static_cast<SAFEARRAYBOUND const *>(nullptr)); }),
              E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { array.CreateOneDim(VT_EMPTY, 1); }), E_INVALIDARG);
    DWORD const tooMany[] = {0x10000, 0x10000};
    EXPECT_EQ(ThrownResult([&] { array.Create(VT_I4, 2, tooMany); }), E_OUTOFMEMORY);
    EXPECT_EQ(NumberAt(array, 0), 1);
}

TEST(COleSafeArrayCreate, CopiesTheGivenElementsBitByBit)
{
    COleSafeArray array;
    BSTR const text = MakeText(OLESTR("text"));
    BSTR const texts[] = {text, nullptr};
    array.CreateOneDim(VT_BSTR, 2, texts, 5);
    EXPECT_EQ(array.GetOneDimSize(), 2u);
    LONG lower = 0;
    array.GetLBound(1, &lower);
    EXPECT_EQ(lower, 5);
    EXPECT_EQ(*static_cast<BSTR *>(array.parray->pvData), text); // now the array's
}

TEST(COleSafeArrayCreate, LeavesTheGivenElementsAfterAFailure)
{
    COleSafeArray array = MakeNumbers({1});
    array.Lock();
    BSTR const text = MakeText(OLESTR("text"));
    EXPECT_EQ(ThrownResult([&] { array.CreateOneDim(VT_BSTR, 1, &text); }), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(Narrow(text), "text");
    SysFreeString(text);
    array.Unlock();
    EXPECT_EQ(NumberAt(array, 0), 1);
}

TEST(COleSafeArrayCreate, AllowsNoElements)
{
    COleSafeArray array;
    double const none = 0;
    array.CreateOneDim(VT_R8, 0, &none);
    EXPECT_EQ(array.GetOneDimSize(), 0u);
    LONG upper = 0;
    array.GetUBound(1, &upper);
    EXPECT_EQ(upper, -1);
    void * data = &upper;
    array.AccessData(&data);
    EXPECT_EQ(data, nullptr);
    array.UnaccessData();
}

TEST(COleSafeArrayData, IsReachedBetweenAccessAndUnaccess)
{
    COleSafeArray array = MakeNumbers({1, 2, 3});
    void * data = nullptr;
    array.AccessData(&data);
    EXPECT_EQ(static_cast<double *>(data)[2], 3);
    EXPECT_EQ(ThrownResult([&] { array.Clear(); }), DISP_E_ARRAYISLOCKED);
    array.UnaccessData();
    EXPECT_EQ(ThrownResult([&] { array.UnaccessData(); }), E_UNEXPECTED);
    array.Lock();
    array.Unlock();
    EXPECT_EQ(ThrownResult([&] { array.Unlock(); }), E_UNEXPECTED);
}

TEST(COleSafeArrayData, OneDimensionIsCountedAndResized)
{
    COleSafeArray array;
    double const numbers[] = {1, 2, 3};
    array.CreateOneDim(VT_R8, 3, numbers, 5);
    array.ResizeOneDim(4);
    EXPECT_EQ(array.GetOneDimSize(), 4u);
    EXPECT_EQ(NumberAt(array, 5), 1);
    EXPECT_EQ(NumberAt(array, 8), 0);
    array.ResizeOneDim(1);
    EXPECT_EQ(array.GetOneDimSize(), 1u);
    EXPECT_EQ(NumberAt(array, 5), 1);

    DWORD const counts[] = {2, 3};
    array.Create(VT_R8, 2, counts);
    EXPECT_EQ(ThrownResult([&] { array.GetOneDimSize(); }), E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { array.ResizeOneDim(4); }), E_INVALIDARG);
    SAFEARRAYBOUND const newBound = {4, 0};
    array.Redim(&newBound);
    LONG upper = 0;
    array.GetUBound(2, &upper);
    EXPECT_EQ(upper, 3);
}

TEST(COleSafeArrayData, BoundsOfOtherDimensionsAreABadIndex)
{
    COleSafeArray const array = MakeNumbers({1, 2, 3});
    for (DWORD const dimension : {0u, 2u})
    {
        LONG narrow = 77;
        long wide = 77;
        EXPECT_EQ(ThrownResult([&] { array.GetLBound(dimension, &narrow); }), DISP_E_BADINDEX);
        EXPECT_EQ(ThrownResult([&] { array.GetUBound(dimension, &wide); }), DISP_E_BADINDEX);
        EXPECT_EQ(narrow, 77);
        EXPECT_EQ(wide, 77);
    }
    LONG * volatile nowhereNarrow = nullptr; // volatile: an optimiser that sees the null warns of it
    long * volatile nowhereWide = nullptr;
    EXPECT_EQ(ThrownResult([&] { array.GetLBound(1, nowhereNarrow); }), E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { array.GetLBound(1, nowhereWide); }), E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { array.GetUBound(1, nowhereWide); }), E_INVALIDARG);
}

TEST(COleSafeArrayElements, GoInAndOutAsCopies)
{
    COleSafeArray array;
    array.CreateOneDim(VT_BSTR, 1);
    BSTR const mine = MakeText(OLESTR("text"));
    LONG const index = 0;
    array.PutElement(&index, mine);
    SysFreeString(mine);
    BSTR read = nullptr;
    array.GetElement(&index, &read);
    EXPECT_EQ(Narrow(read), "text");
    EXPECT_NE(read, *static_cast<BSTR *>(array.parray->pvData));
    SysFreeString(read);
}

TEST(COleSafeArrayElements, CountReferences)
{
    CountedObject object;
    {
        COleSafeArray array;
        array.CreateOneDim(VT_DISPATCH, 2);
        LONG const index = 1;
        array.PutElement(&index, static_cast<IDispatch *>(&object));
        EXPECT_EQ(object.References(), 1u);
        COleSafeArray const copy(array);
        EXPECT_EQ(object.References(), 2u);
    }
    EXPECT_EQ(object.References(), 0u);
}

TEST(COleSafeArrayElements, AreReachedByIndicesOfEitherWidth)
{
    DWORD const counts[] = {2, 2, 2, 2, 2};
    COleSafeArray array;
    array.Create(VT_I4, 5, counts);
    long const wide[] = {1, 0, 1, 0, 1};
    LONG const narrow[] = {1, 0, 1, 0, 1};
    LONG const number = 5;
    array.PutElement(wide, &number);
    LONG read = 0;
    array.GetElement(narrow, &read);
    EXPECT_EQ(read, 5);
    read = 0;
    array.GetElement(wide, &read);
    EXPECT_EQ(read, 5);
    void * place = nullptr;
    array.PtrOfIndex(narrow, &place);
    EXPECT_EQ(*static_cast<LONG *>(place), 5);
}

TEST(COleSafeArrayElements, AWideIndexIsNotCut)
{
    COleSafeArray array = MakeNumbers({1, 2, 3});
    double number = 7;
    for (long const index : {long{3}, long{-1}, long{1} << 32, std::numeric_limits<long>::min()})
    {
        EXPECT_EQ(ThrownResult([&] { array.GetElement(&index, &number); }), DISP_E_BADINDEX);
        EXPECT_EQ(ThrownResult([&] { array.PutElement(&index, &number); }), DISP_E_BADINDEX);
    }
    EXPECT_EQ(number, 7);
    EXPECT_EQ(ThrownResult([&] { array.GetElement(static_cast<long *>(nullptr), &number); }), E_INVALIDARG);
}

TEST(COleSafeArrayElements, OfNoArrayRaiseInvalidArgument)
{
    COleSafeArray array;
    LONG const index = 0;
    long bound = 0;
    double number = 0;
    void * place = nullptr;
    SAFEARRAYBOUND const newBound = {1, 0};
    EXPECT_EQ(ThrownResult([&] { array.AccessData(&place); }), E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { array.UnaccessData(); }), E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { array.Lock(); }), E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { array.Unlock(); }), E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { array.GetOneDimSize(); }), E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { array.ResizeOneDim(1); }), E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { array.Redim(&newBound); }), E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { array.GetLBound(1, &bound); }), E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { array.GetUBound(1, &bound); }), E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { array.GetElement(&index, &number); }), E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { array.PutElement(&index, &number); }), E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { array.PtrOfIndex(&index, &place); }), E_INVALIDARG);
}

TEST(COleSafeArrayOwnership, ClearFreesTheArray)
{
    COleSafeArray array;
    std::size_t const before = LiveAllocations();
    array = MakeTexts();
    array.Clear();
    EXPECT_EQ(array.vt, VT_EMPTY);
    EXPECT_EQ(LiveAllocations(), before);
    array.Clear();
}

TEST(COleSafeArrayOwnership, AttachTakesTheArrayOver)
{
    COleSafeArray array = MakeTexts();
    VARIANT source = MakeArrayVariant(SafeArrayCreateVector(VT_I4, 0, 3));
    SAFEARRAY * const numbers = source.parray;
    array.Attach(source);
    EXPECT_EQ(array.parray, numbers);
    EXPECT_EQ(array.vt, VT_ARRAY | VT_I4);
    EXPECT_EQ(source.vt, VT_EMPTY);
    array.Attach(array);
    EXPECT_EQ(array.parray, numbers);
}

TEST(COleSafeArrayOwnership, AttachRefusesWhatHoldsNoArray)
{
    COleSafeArray array = MakeNumbers({1});
    VARIANT number = MakeBits(VT_I4, 5);
    EXPECT_EQ(ThrownResult([&] { array.Attach(number); }), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(number.lVal, 5);
    EXPECT_EQ(NumberAt(array, 0), 1);
}

TEST(COleSafeArrayOwnership, DetachHandsTheArrayOut)
{
    COleSafeArray array = MakeNumbers({1, 2, 3});
    SAFEARRAY * const numbers = array.parray;
    Cleared detached(array.Detach());
    EXPECT_EQ(detached->vt, VT_ARRAY | VT_R8);
    EXPECT_EQ(detached->parray, numbers);
    EXPECT_EQ(array.vt, VT_EMPTY);
}

TEST(COleSafeArrayOwnership, ALockedArrayStays)
{
    COleSafeArray array = MakeNumbers({1});
    COleSafeArray other = MakeNumbers({2});
    array.Lock();
    EXPECT_EQ(ThrownResult([&] { array.Clear(); }), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(ThrownResult([&] { array.CreateOneDim(VT_I4, 1); }), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(ThrownResult([&] { array = other; }), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(ThrownResult([&] { array.Attach(other); }), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(ThrownResult([&] { array.ResizeOneDim(2); }), DISP_E_ARRAYISLOCKED);
    array.Unlock();
    EXPECT_EQ(NumberAt(array, 0), 1);
    EXPECT_EQ(NumberAt(other, 0), 2);
}

TEST(COleSafeArrayMemory, LeaksNothingWhenItRunsOut)
{
    COleSafeArray const texts = MakeTexts();
    DWORD const counts[] = {2, 2, 2, 2, 2};
    long const indices[] = {0, 0, 0, 0, 0};
    COleSafeArray table;
    table.Create(VT_I4, 5, counts);
    LONG number = 0;
    auto const check = [] { EXPECT_EQ(ThrownResult([] { throw; }), E_OUTOFMEMORY); };

    EXPECT_EQ(FailEveryAllocation([&] { COleSafeArray const copy(texts); }, check), 4u);
    EXPECT_EQ(FailEveryAllocation([&] { COleSafeArray const copy(static_cast<VARIANT const &>(texts)); }, check), 4u);
    EXPECT_EQ(FailEveryAllocation([&] { COleSafeArray const copy(texts.parray, VT_BSTR); }, check), 4u);
    EXPECT_EQ(FailEveryAllocation([&] { COleSafeArray().Create(VT_I4, 5, counts); }, check), 3u);
    EXPECT_EQ(FailEveryAllocation([&] { COleSafeArray().CreateOneDim(VT_I4, 3); }, check), 2u);
    EXPECT_EQ(FailEveryAllocation([&] { table.GetElement(indices, &number); }, check), 1u);
}

TEST(COleSafeArrayMemory, KeepsTheOldArrayWhenItRunsOut)
{
    COleSafeArray const texts = MakeTexts();
    COleSafeArray array = MakeNumbers({1});
    auto const failing = [&](std::size_t n, auto operation)
    {
        FailNthAllocation const fail(n);
        EXPECT_EQ(ThrownResult(operation), E_OUTOFMEMORY);
        EXPECT_EQ(NumberAt(array, 0), 1);
    };
    for (std::size_t n = 1; n <= 4; ++n)
        failing(n, [&] { array = texts; });
    for (std::size_t n = 1; n <= 2; ++n)
        failing(n, [&] { array.CreateOneDim(VT_I4, 3); });
    failing(1, [&] { array.ResizeOneDim(100); });
}
