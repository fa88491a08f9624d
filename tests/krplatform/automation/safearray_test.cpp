#include <krplatform/automation/safearray.h>

#include "tests/krplatform/automation/make_variant.h"
#include "tests/support/failing_allocator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <vector>

using namespace kr::test;

namespace
{

constexpr LONG minimumLong = std::numeric_limits<LONG>::min();
constexpr LONG maximumLong = std::numeric_limits<LONG>::max();

struct DestroyArray
{
    void operator()(SAFEARRAY * array) const
    {
        while (SUCCEEDED(SafeArrayUnlock(array))) {}
        EXPECT_EQ(SafeArrayDestroy(array), S_OK);
    }
};
using Array = std::unique_ptr<SAFEARRAY, DestroyArray>;

Array CreateVector(VARTYPE element, LONG lowerBound, ULONG count)
{
    return Array(SafeArrayCreateVector(element, lowerBound, count));
}

// Two rows from 1 and three columns from -1.
Array CreateTable()
{
    SAFEARRAYBOUND const bounds[] = {{2, 1}, {3, -1}};
    return Array(SafeArrayCreate(VT_I4, 2, bounds));
}

struct ElementRow
{
    char const * name;
    VARTYPE tag;
    ULONG size;
    USHORT owns;
};

// clang-format off
constexpr ElementRow elementRows[] = {
    // name        tag           bytes            owns
    { "I2",        VT_I2,        2,               0             },
    { "I4",        VT_I4,        4,               0             },
    { "R4",        VT_R4,        4,               0             },
    { "R8",        VT_R8,        8,               0             },
    { "CY",        VT_CY,        8,               0             },
    { "DATE",      VT_DATE,      8,               0             },
    { "BSTR",      VT_BSTR,      8,               FADF_BSTR     },
    { "DISPATCH",  VT_DISPATCH,  8,               FADF_DISPATCH },
    { "ERROR",     VT_ERROR,     4,               0             },
    { "BOOL",      VT_BOOL,      2,               0             },
    { "VARIANT",   VT_VARIANT,   sizeof(VARIANT), FADF_VARIANT  },
    { "UNKNOWN",   VT_UNKNOWN,   8,               FADF_UNKNOWN  },
    { "I1",        VT_I1,        1,               0             },
    { "UI1",       VT_UI1,       1,               0             },
    { "UI2",       VT_UI2,       2,               0             },
    { "UI4",       VT_UI4,       4,               0             },
    { "I8",        VT_I8,        8,               0             },
    { "UI8",       VT_UI8,       8,               0             },
    { "INT",       VT_INT,       4,               0             },
    { "UINT",      VT_UINT,      4,               0             },
};

struct BoundRow
{
    char const * name;
    std::vector<SAFEARRAYBOUND> bounds;
    bool isPossible;
};

BoundRow const boundRows[] = {
    // name                                  elements and lower bounds                        possible
    { "one byte",                            { {1, 0} },                                      true  },
    { "no elements",                         { {0, 42} },                                     true  },
    { "no elements in one of two",           { {5, 0}, {0, 0} },                              true  },
    { "no elements beside too many",         { {0xFFFFFFFF, -2147483647}, {0, 0} },           true  },
    { "up to the greatest index",            { {2, maximumLong - 1} },                        true  },
    { "past the greatest index",             { {2, maximumLong} },                            false },
    { "down to the least index",             { {1, minimumLong} },                            true  },
    { "no elements below the least index",   { {0, minimumLong} },                            false },
    { "2 GiB",                               { {0x80000000, -1} },                            false },
    { "2 GiB in two",                        { {0x8000, 0}, {0x10000, 0} },                   false },
    { "a count that overflows 32 bits",      { {0x10000, 0}, {0x10000, 0} },                  false },
    { "a count that overflows 64 bits",      { {0x10000, 0}, {0x10000, 0}, {0x10000, 0},
                                               {0x10000, 0}, {0x10000, 0} },                  false },
};
// clang-format on

} // namespace

TEST(SafeArrayCreate, KnowsTheElementTypes)
{
    for (ElementRow const & row : elementRows)
    {
        SCOPED_TRACE(row.name);
        Array const array = CreateVector(row.tag, 0, 3);
        ASSERT_TRUE(array);
        EXPECT_EQ(SafeArrayGetElemsize(array.get()), row.size);
        EXPECT_EQ(array->fFeatures, FADF_HAVEVARTYPE | row.owns);
        VARTYPE element = VT_EMPTY;
        EXPECT_EQ(SafeArrayGetVartype(array.get(), &element), S_OK);
        EXPECT_EQ(element, row.tag);
    }
}

TEST(SafeArrayCreate, RefusesOtherElementTypes)
{
    for (int const tag :
         {+VT_EMPTY, +VT_NULL, 14, 15, +VT_VOID, +VT_PTR, +VT_BLOB, VT_ARRAY | VT_I4, VT_BYREF | VT_I4, 0xFFFF})
        EXPECT_EQ(SafeArrayCreateVector(static_cast<VARTYPE>(tag), 0, 1), nullptr) << tag;
}

TEST(SafeArrayCreate, SetsAllElementsToZero)
{
    Array const array = CreateVector(VT_UI1, 0, 1000);
    BYTE const * const bytes = static_cast<BYTE const *>(array->pvData);
    EXPECT_TRUE(std::all_of(bytes, bytes + 1000, [](BYTE byte) { return byte == 0; }));
}

TEST(SafeArrayCreate, TakesBoundsWhoseIndicesFit)
{
    for (BoundRow const & row : boundRows)
    {
        SCOPED_TRACE(row.name);
        Array const array(SafeArrayCreate(VT_UI1, static_cast<UINT>(row.bounds.size()), row.bounds.data()));
        EXPECT_EQ(array != nullptr, row.isPossible);
    }
}

TEST(SafeArrayCreate, CountsTheBytesOfWholeElements)
{
    EXPECT_EQ(SafeArrayCreateVector(VT_VARIANT, 0, 0x08000000), nullptr);
    EXPECT_EQ(SafeArrayCreateVector(VT_R8, 0, 0x10000000), nullptr);
}

TEST(SafeArrayCreate, RefusesNoDimensionsTooManyAndNoBounds)
{
    SAFEARRAYBOUND const bound = {1, 0};
    EXPECT_EQ(SafeArrayCreate(VT_I4, 0, &bound), nullptr);
    EXPECT_EQ(SafeArrayCreate(VT_I4, 1, nullptr), nullptr);
    std::vector<SAFEARRAYBOUND> const many(0x10000, bound);
    EXPECT_EQ(SafeArrayCreate(VT_I4, 0x10000, many.data()), nullptr);
    Array const array(SafeArrayCreate(VT_I4, 0xFFFF, many.data()));
    ASSERT_TRUE(array);
    EXPECT_EQ(SafeArrayGetDim(array.get()), 0xFFFFu);
}

TEST(SafeArrayCreate, GivesNullWhenMemoryRunsOut)
{
    std::size_t const failures = FailEveryAllocation(
        []
        {
            SAFEARRAY * const array = SafeArrayCreateVector(VT_I4, 0, 3);
            EXPECT_EQ(SafeArrayDestroy(array), S_OK);
        },
        [] { FAIL() << "SafeArrayCreate never throws"; });
    EXPECT_EQ(failures, 2u); // the descriptor and the data
    FailNthAllocation const fail(1);
    EXPECT_EQ(SafeArrayCreateVector(VT_I4, 0, 3), nullptr);
}

TEST(SafeArrayBounds, AreStoredInReverse)
{
    Array const array = CreateTable();
    EXPECT_EQ(array->cDims, 2);
    EXPECT_EQ(array->rgsabound[0].cElements, 3u);
    EXPECT_EQ(array->rgsabound[0].lLbound, -1);
    SAFEARRAYBOUND const * const bounds = array->rgsabound;
    EXPECT_EQ(bounds[1].cElements, 2u);
    EXPECT_EQ(bounds[1].lLbound, 1);
}

TEST(SafeArrayBounds, AreAskedByDimensionFromOne)
{
    struct Row
    {
        UINT dimension;
        HRESULT result;
        LONG lower;
        LONG upper;
    };
    // clang-format off
    constexpr Row rows[] = {
        { 0,          DISP_E_BADINDEX, 77, 77 },
        { 1,          S_OK,             1,  2 },
        { 2,          S_OK,            -1,  1 },
        { 3,          DISP_E_BADINDEX, 77, 77 },
        { 0xFFFFFFFF, DISP_E_BADINDEX, 77, 77 },
    };
    // clang-format on
    Array const array = CreateTable();
    EXPECT_EQ(SafeArrayGetDim(array.get()), 2u);
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.dimension);
        LONG lower = 77;
        LONG upper = 77;
        EXPECT_EQ(SafeArrayGetLBound(array.get(), row.dimension, &lower), row.result);
        EXPECT_EQ(SafeArrayGetUBound(array.get(), row.dimension, &upper), row.result);
        EXPECT_EQ(lower, row.lower);
        EXPECT_EQ(upper, row.upper);
    }
}

TEST(SafeArrayBounds, OfNoElementsEndBelowTheirBeginning)
{
    Array const array = CreateVector(VT_I4, 42, 0);
    LONG upper = 0;
    EXPECT_EQ(SafeArrayGetUBound(array.get(), 1, &upper), S_OK);
    EXPECT_EQ(upper, 41);
}

TEST(SafeArrayPtrOfIndex, RunsThroughTheFirstDimensionFastest)
{
    Array const array = CreateTable();
    auto * const data = static_cast<LONG *>(array->pvData);
    std::ptrdiff_t expected = 0;
    for (LONG column = -1; column <= 1; ++column)
    {
        for (LONG row = 1; row <= 2; ++row)
        {
            LONG const indices[] = {row, column};
            void * place = nullptr;
            EXPECT_EQ(SafeArrayPtrOfIndex(array.get(), indices, &place), S_OK);
            EXPECT_EQ(static_cast<LONG *>(place) - data, expected++);
        }
    }
}

TEST(SafeArrayPtrOfIndex, RefusesIndicesOutsideTheBounds)
{
    Array const array = CreateTable();
    LONG const outside[][2] = {{0, 0}, {3, 0}, {1, -2}, {1, 2}, {minimumLong, 0}, {maximumLong, 0}, {1, maximumLong}};
    for (LONG const(&indices)[2] : outside)
    {
        SCOPED_TRACE(testing::Message() << indices[0] << ", " << indices[1]);
        void * place = &place;
        EXPECT_EQ(SafeArrayPtrOfIndex(array.get(), indices, &place), DISP_E_BADINDEX);
        EXPECT_EQ(place, &place);
    }
}

TEST(SafeArrayPtrOfIndex, FindsNothingInAnEmptyDimension)
{
    Array const array = CreateVector(VT_I4, 42, 0);
    for (LONG const index : {41, 42, 0})
    {
        void * place = nullptr;
        EXPECT_EQ(SafeArrayPtrOfIndex(array.get(), &index, &place), DISP_E_BADINDEX);
    }
}

TEST(SafeArrayPtrOfIndex, ReachesTheEndsOfTheRangeOfIndices)
{
    for (LONG const index : {minimumLong, maximumLong})
    {
        Array const array = CreateVector(VT_I4, index, 1);
        void * place = nullptr;
        EXPECT_EQ(SafeArrayPtrOfIndex(array.get(), &index, &place), S_OK);
        EXPECT_EQ(place, array->pvData);
    }
}

TEST(SafeArrayLock, CountsUsers)
{
    Array const array = CreateVector(VT_I4, 0, 3);
    void * data = nullptr;
    EXPECT_EQ(SafeArrayAccessData(array.get(), &data), S_OK);
    EXPECT_EQ(data, array->pvData);
    EXPECT_EQ(SafeArrayLock(array.get()), S_OK);
    EXPECT_EQ(array->cLocks, 2u);
    EXPECT_EQ(SafeArrayUnlock(array.get()), S_OK);
    EXPECT_EQ(SafeArrayUnaccessData(array.get()), S_OK);
    EXPECT_EQ(array->cLocks, 0u);
    EXPECT_EQ(SafeArrayUnaccessData(array.get()), E_UNEXPECTED);
    EXPECT_EQ(SafeArrayUnlock(array.get()), E_UNEXPECTED);
    EXPECT_EQ(array->cLocks, 0u);
}

TEST(SafeArrayLock, RefusesToCountPastTheEnd)
{
    Array const array = CreateVector(VT_I4, 0, 3);
    array->cLocks = std::numeric_limits<ULONG>::max();
    void * data = &data;
    EXPECT_EQ(SafeArrayLock(array.get()), E_UNEXPECTED);
    EXPECT_EQ(SafeArrayAccessData(array.get(), &data), E_UNEXPECTED);
    EXPECT_EQ(data, nullptr);
    EXPECT_EQ(array->cLocks, std::numeric_limits<ULONG>::max());
    array->cLocks = 0;
}

TEST(SafeArrayLock, AllowsAnArrayWithoutElements)
{
    Array const array = CreateVector(VT_I4, 0, 0);
    void * data = &data;
    EXPECT_EQ(SafeArrayAccessData(array.get(), &data), S_OK);
    EXPECT_EQ(data, nullptr);
}

TEST(SafeArrayDestroy, RefusesALockedArray)
{
    std::size_t const before = LiveAllocations();
    SAFEARRAY * const array = SafeArrayCreateVector(VT_I4, 0, 3);
    SafeArrayLock(array);
    EXPECT_EQ(SafeArrayDestroy(array), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(array->cLocks, 1u);
    SafeArrayUnlock(array);
    EXPECT_EQ(SafeArrayDestroy(array), S_OK);
    EXPECT_EQ(LiveAllocations(), before);
}

TEST(SafeArray, AnswersNullWithInvalidArgument)
{
    Array const owner = CreateVector(VT_I4, 0, 3);
    SAFEARRAY * const array = owner.get();
    LONG const index = 0;
    LONG bound = 0;
    LONG element = 0;
    VARTYPE tag = VT_EMPTY;
    void * place = nullptr;
    SAFEARRAYBOUND const newBound = {1, 0};

    EXPECT_EQ(SafeArrayDestroy(nullptr), S_OK);
    EXPECT_EQ(SafeArrayGetDim(nullptr), 0u);
    EXPECT_EQ(SafeArrayGetElemsize(nullptr), 0u);
    EXPECT_EQ(SafeArrayGetVartype(nullptr, &tag), E_INVALIDARG);
    EXPECT_EQ(SafeArrayGetVartype(array, nullptr), E_INVALIDARG);
    EXPECT_EQ(SafeArrayGetLBound(nullptr, 1, &bound), E_INVALIDARG);
    EXPECT_EQ(SafeArrayGetLBound(array, 1, nullptr), E_INVALIDARG);
    EXPECT_EQ(SafeArrayGetUBound(nullptr, 1, &bound), E_INVALIDARG);
    EXPECT_EQ(SafeArrayGetUBound(array, 1, nullptr), E_INVALIDARG);
    EXPECT_EQ(SafeArrayLock(nullptr), E_INVALIDARG);
    EXPECT_EQ(SafeArrayUnlock(nullptr), E_INVALIDARG);
    EXPECT_EQ(SafeArrayAccessData(nullptr, &place), E_INVALIDARG);
    EXPECT_EQ(SafeArrayAccessData(array, nullptr), E_INVALIDARG);
    EXPECT_EQ(array->cLocks, 0u);
    EXPECT_EQ(SafeArrayUnaccessData(nullptr), E_INVALIDARG);
    EXPECT_EQ(SafeArrayPtrOfIndex(nullptr, &index, &place), E_INVALIDARG);
    EXPECT_EQ(SafeArrayPtrOfIndex(array, nullptr, &place), E_INVALIDARG);
    EXPECT_EQ(SafeArrayPtrOfIndex(array, &index, nullptr), E_INVALIDARG);
    EXPECT_EQ(SafeArrayGetElement(nullptr, &index, &element), E_INVALIDARG);
    EXPECT_EQ(SafeArrayGetElement(array, nullptr, &element), E_INVALIDARG);
    EXPECT_EQ(SafeArrayGetElement(array, &index, nullptr), E_INVALIDARG);
    EXPECT_EQ(SafeArrayPutElement(nullptr, &index, &element), E_INVALIDARG);
    EXPECT_EQ(SafeArrayPutElement(array, nullptr, &element), E_INVALIDARG);
    EXPECT_EQ(SafeArrayPutElement(array, &index, nullptr), E_INVALIDARG);
    EXPECT_EQ(SafeArrayRedim(nullptr, &newBound), E_INVALIDARG);
    EXPECT_EQ(SafeArrayRedim(array, nullptr), E_INVALIDARG);
    EXPECT_EQ(SafeArrayCopy(array, nullptr), E_INVALIDARG);
}
