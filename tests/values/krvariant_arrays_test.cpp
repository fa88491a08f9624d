#include <krcore/values/krvariant.h>

#include "tests/krplatform/automation/counted_object.h"
#include "tests/krplatform/automation/thrown_result.h"
#include "tests/support/memory_failure.h"

#include <krplatform/automation/colesafearray.h>
#include <krplatform/text/bstr.h>

#include <gtest/gtest.h>

using namespace kr::test;

namespace
{

kr::matrix<CString> MakeTexts(int rows, int columns)
{
    kr::matrix<CString> texts;
    texts.Resize(rows, columns);
    for (int row = 0; row < rows; ++row)
    {
        for (int column = 0; column < columns; ++column)
            texts.At(row, column).Format(OLESTR("%d/%d"), row, column);
    }
    return texts;
}

template <class T>
HRESULT FailureOf(CKrVariant const & value)
{
    return ThrownResult(
        [&]
        {
            T read;
            value.GetValue(read);
        });
}

} // namespace

TEST(CKrVariantArrays, ArePackedWithTagVtAndLowerBoundZero)
{
    // clang-format off
    struct { char const * what; CKrVariant value; CKrVariant::EType type; int element; UINT dimensions; } const rows[] = {
        { "texts",    CKrVariant(std::vector<CString>{OLESTR("a"), OLESTR("b")}), CKrVariant::eStringVector,   VT_BSTR,     1 },
        { "doubles",  CKrVariant(std::vector<double>{1.5, 2.5}),                  CKrVariant::eDoubleVector,   VT_R8,       1 },
        { "longs",    CKrVariant(std::vector<long>{1, 2}),                        CKrVariant::eLongVector,     VT_I4,       1 },
        { "objects",  CKrVariant(std::vector<IDispatch *>{nullptr}),              CKrVariant::eDispatchVector, VT_DISPATCH, 1 },
        { "variants", CKrVariant(std::vector<VARIANT>(2)),                        CKrVariant::eVariantVector,  VT_VARIANT,  1 },
        { "cells",    CKrVariant(kr::matrix<CKrVariant>()),                       CKrVariant::eVariantMatrix,  VT_VARIANT,  2 },
        { "names",    CKrVariant(MakeTexts(2, 3)),                                CKrVariant::eVariantMatrix,  VT_BSTR,     2 },
        { "point",    CKrVariant(CKrPoint3(1, 2, 3)),                             CKrVariant::ePoint3,         VT_R8,       1 },
        { "vector",   CKrVariant(CKrVector3(1, 2, 3)),                            CKrVariant::eVector3,        VT_R8,       1 },
        { "points",   CKrVariant(CKrPoint3List(2)),                               CKrVariant::ePoint3List,     VT_VARIANT,  1 },
        { "vectors",  CKrVariant(CKrVector3List(2)),                              CKrVariant::eVector3List,    VT_VARIANT,  1 },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(row.value.GetType(), row.type);
        EXPECT_EQ(row.value.vt, VT_ARRAY | row.element);
        ASSERT_EQ(SafeArrayGetDim(row.value.parray), row.dimensions);
        for (UINT dimension = 1; dimension <= row.dimensions; ++dimension)
        {
            LONG lower = -1;
            EXPECT_EQ(SafeArrayGetLBound(row.value.parray, dimension, &lower), S_OK);
            EXPECT_EQ(lower, 0);
        }
    }
}

TEST(CKrVariantArrays, GiveBackWhatWasPutIn)
{
    std::vector<CString> const texts = {OLESTR("a"), OLESTR(""), CString(OLESTR("x\0y"), 3)};
    EXPECT_EQ(CKrVariant(texts).GetStringVector(), texts);
    std::vector<double> const doubles = {1.5, -0.25};
    EXPECT_EQ(CKrVariant(doubles).GetDoubleVector(), doubles);
    std::vector<long> const longs = {1, -2};
    EXPECT_EQ(CKrVariant(longs).GetLongVector(), longs);
    EXPECT_EQ(CKrVariant(std::vector<long>{0x1234567812345678}).GetLongVector().front(), 0x12345678);
    EXPECT_EQ(CKrVariant(CKrPoint3(1, 2, 3)).GetPoint3(), CKrPoint3(1, 2, 3));
    EXPECT_EQ(CKrVariant(CKrVector3(1, 2, 3)).GetVector3(), CKrVector3(1, 2, 3));
    CKrPoint3List const points = {CKrPoint3(1, 2, 3), CKrPoint3(4, 5, 6)};
    EXPECT_EQ(CKrVariant(points).GetPoint3List(), points);
}

TEST(CKrVariantArrays, ReadByOperatorAndByName)
{
    std::vector<CString> const texts = CKrVariant(std::vector<CString>{OLESTR("a")});
    EXPECT_EQ(texts.front(), OLESTR("a"));
    std::vector<double> const doubles = CKrVariant(std::vector<double>{1.5});
    EXPECT_EQ(doubles.front(), 1.5);
    std::vector<long> const longs = CKrVariant(std::vector<long>{7});
    EXPECT_EQ(longs.front(), 7);
    kr::matrix<CString> const names = CKrVariant(MakeTexts(1, 1));
    EXPECT_EQ(names.At(0, 0), OLESTR("0/0"));
    CKrPoint3 const point = CKrVariant(CKrPoint3(1, 2, 3));
    EXPECT_EQ(point.z, 3.0);
    CKrVector3 const vector = CKrVariant(CKrVector3(1, 2, 3));
    EXPECT_EQ(vector.y, 2.0);
    CKrPoint3List const points = CKrVariant(CKrPoint3List(3));
    EXPECT_EQ(points.size(), 3u);
    kr::matrix<CKrVariant> cells;
    cells.Resize(1, 2);
    kr::matrix<CKrVariant> const readCells = CKrVariant(cells);
    EXPECT_EQ(readCells.GetColumns(), 2);
    std::vector<VARIANT> const variants = CKrVariant(std::vector<VARIANT>(3));
    EXPECT_EQ(variants.size(), 3u);
    CKrVector3List const vectors = CKrVariant(CKrVector3List());
    EXPECT_TRUE(vectors.empty());
}

TEST(CKrVariantArrays, ReadAPointListAsAListOfVectors)
{
    CKrVariant const value(CKrPoint3List{CKrPoint3(1, 2, 3), CKrPoint3(4, 5, 6)});
    EXPECT_EQ(value.GetVector3List(), (CKrVector3List{CKrVector3(1, 2, 3), CKrVector3(4, 5, 6)}));
}

TEST(CKrVariantArrays, KeepEmptyListsEmpty)
{
    EXPECT_TRUE(CKrVariant(std::vector<CString>()).GetStringVector().empty());
    EXPECT_TRUE(CKrVariant(std::vector<double>()).GetDoubleVector().empty());
    EXPECT_TRUE(CKrVariant(std::vector<long>()).GetLongVector().empty());
    EXPECT_TRUE(CKrVariant(std::vector<VARIANT>()).GetVARIANTVector().empty());
    EXPECT_TRUE(CKrVariant(CKrPoint3List()).GetPoint3List().empty());
    EXPECT_TRUE(CKrVariant(CKrVector3List()).GetVector3List().empty());
    EXPECT_EQ(CKrVariant(kr::matrix<CString>()).GetStringMatrix().GetRows(), 0);
}

TEST(CKrVariantArrays, KeepTheShapeAndCellsOfAMatrix)
{
    CKrVariant const value(MakeTexts(2, 3));
    EXPECT_TRUE(value.IsVariantMatrix());
    EXPECT_FALSE(value.IsStringMatrix());
    kr::matrix<CString> const read = value.GetStringMatrix();
    ASSERT_EQ(read.GetRows(), 2);
    ASSERT_EQ(read.GetColumns(), 3);
    for (int row = 0; row < 2; ++row)
    {
        for (int column = 0; column < 3; ++column)
            EXPECT_EQ(read.At(row, column), MakeTexts(2, 3).At(row, column));
    }
}

TEST(CKrVariantArrays, TakeTheTagsOfCellsFromTheirVt)
{
    kr::matrix<CKrVariant> cells;
    cells.Resize(1, 3);
    cells.At(0, 0) = CKrVariant(5);
    cells.At(0, 1) = CKrVariant(CKrColor(5));
    cells.At(0, 2) = CKrVariant(CKrPoint3(1, 2, 3));
    kr::matrix<CKrVariant> const read = CKrVariant(cells).GetVariantMatrix();
    EXPECT_TRUE(read.At(0, 0).IsLong());
    EXPECT_TRUE(read.At(0, 1).IsLong());
    EXPECT_EQ(read.At(0, 1).lVal, -5);
    EXPECT_TRUE(read.At(0, 2).IsDoubleVector());
}

TEST(CKrVariantArrays, KeepANullCellAsNull)
{
    COleSafeArray array;
    DWORD const counts[] = {1, 1};
    array.Create(VT_VARIANT, 2, counts);
    VARIANT null;
    VariantInit(&null);
    null.vt = VT_NULL;
    LONG const first[] = {0, 0};
    array.PutElement(first, &null);
    EXPECT_EQ(CKrVariant(static_cast<VARIANT const &>(array)).GetVariantMatrix().At(0, 0).GetType(), CKrVariant::eNull);
}

TEST(CKrVariantArrays, HonourTheLowerBoundsOfForeignArrays)
{
    SAFEARRAYBOUND const bounds[] = {{2, 1}, {3, 1}};
    COleSafeArray array;
    array.Create(VT_BSTR, 2, bounds);
    for (LONG row = 1; row <= 2; ++row)
    {
        for (LONG column = 1; column <= 3; ++column)
        {
            CString text;
            text.Format(OLESTR("%d/%d"), row, column);
            LONG const indices[] = {row, column};
            BSTR const copied = text.AllocSysString();
            array.PutElement(indices, copied);
            SysFreeString(copied);
        }
    }
    kr::matrix<CString> const read = CKrVariant(static_cast<VARIANT const &>(array)).GetStringMatrix();
    ASSERT_EQ(read.GetRows(), 2);
    ASSERT_EQ(read.GetColumns(), 3);
    EXPECT_EQ(read.At(0, 0), OLESTR("1/1"));
    EXPECT_EQ(read.At(1, 0), OLESTR("2/1"));
    EXPECT_EQ(read.At(0, 2), OLESTR("1/3"));
}

TEST(CKrVariantArrays, CountTheElementsOfForeignVectorsFromTheirLowerBound)
{
    SAFEARRAYBOUND const bound = {3, -5};
    COleSafeArray array;
    array.Create(VT_R8, 1, &bound);
    for (LONG index = -5; index < -2; ++index)
    {
        double const number = index;
        array.PutElement(&index, &number);
    }
    CKrVariant const value(static_cast<VARIANT const &>(array));
    EXPECT_EQ(value.GetDoubleVector(), (std::vector<double>{-5, -4, -3}));
    EXPECT_EQ(value.GetPoint3(), CKrPoint3(-5, -4, -3));
}

TEST(CKrVariantArrays, ReadAPointAsItsThreeNumbers)
{
    CKrVariant const value(CKrPoint3(1, 2, 3));
    EXPECT_FALSE(value.IsDoubleVector());
    EXPECT_EQ(value.GetDoubleVector(), (std::vector<double>{1, 2, 3}));
    EXPECT_EQ(CKrVariant(std::vector<double>{4, 5, 6, 7}).GetPoint3(), CKrPoint3(4, 5, 6));
}

TEST(CKrVariantArrays, CountTheReferencesOfAVectorOfObjects)
{
    CountedObject object;
    {
        CKrVariant const value(std::vector<IDispatch *>{&object, nullptr, &object});
        EXPECT_EQ(object.References(), 2u);
        std::vector<IDispatch *> const borrowed = value;
        EXPECT_EQ(borrowed, (std::vector<IDispatch *>{&object, nullptr, &object}));
        EXPECT_EQ(object.References(), 2u); // reading adds none
    }
    EXPECT_EQ(object.References(), 0u);
}

TEST(CKrVariantArrays, TakeOverVariantsBitByBitAndReadThemDeeply)
{
    CountedObject object;
    VARIANT element;
    VariantInit(&element);
    element.vt = VT_DISPATCH;
    element.pdispVal = &object;
    object.AddRef();
    {
        CKrVariant const value(std::vector<VARIANT>{element});
        EXPECT_EQ(object.References(), 1u); // taken over, not copied
        std::vector<VARIANT> read = value.GetVARIANTVector();
        EXPECT_EQ(object.References(), 2u);
        for (VARIANT & copy : read)
            VariantClear(&copy);
    }
    EXPECT_EQ(object.References(), 0u);
}

TEST(CKrVariantArrays, HoldEmptyElementsForAListOfVectors)
{
    CKrVariant const value(CKrVector3List(2));
    auto const * const elements = static_cast<VARIANT const *>(value.parray->pvData);
    EXPECT_EQ(value.parray->rgsabound[0].cElements, 2u);
    EXPECT_EQ(elements[0].vt, VT_EMPTY);
    EXPECT_EQ(elements[1].vt, VT_EMPTY);
    EXPECT_EQ(FailureOf<CKrVector3List>(value), DISP_E_TYPEMISMATCH);
    CKrVariant const copy(value); // nothing is freed twice
    EXPECT_TRUE(copy == value);
}

TEST(CKrVariantArrays, RaiseThePlatformsFailureWhereAnArrayIsMissingOrAnother)
{
    EXPECT_EQ(FailureOf<std::vector<CString>>(CKrVariant(OLESTR("a"))), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(FailureOf<std::vector<double>>(CKrVariant(1.5)), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(FailureOf<std::vector<double>>(CKrVariant(std::vector<long>{1})), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(FailureOf<std::vector<long>>(CKrVariant()), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(FailureOf<std::vector<VARIANT>>(CKrVariant(7)), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(FailureOf<CKrPoint3>(CKrVariant(7)), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(FailureOf<CKrPoint3>(CKrVariant(std::vector<double>{1, 2})), DISP_E_BADINDEX);
    EXPECT_EQ(FailureOf<CKrPoint3List>(CKrVariant(std::vector<double>{1, 2, 3})), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(FailureOf<kr::matrix<CString>>(CKrVariant(std::vector<CString>{OLESTR("a")})), DISP_E_BADINDEX);
    EXPECT_EQ(FailureOf<kr::matrix<CKrVariant>>(CKrVariant(MakeTexts(1, 1))), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(FailureOf<std::vector<CString>>(CKrVariant(MakeTexts(1, 1))), E_INVALIDARG);
    CKrVariant const number(7);
    EXPECT_EQ(ThrownResult([&] { std::vector<IDispatch *> const read = number; }), DISP_E_TYPEMISMATCH);
}

TEST(CKrVariantArrays, RaiseThePlatformsFailureForArraysThatAreNoneOrOfOtherShapes)
{
    CKrVariant none;
    none.vt = VT_ARRAY | VT_R8; // without an array behind it
    EXPECT_EQ(FailureOf<std::vector<double>>(none), DISP_E_TYPEMISMATCH);

    DWORD const counts[] = {1, 1, 1};
    COleSafeArray cube;
    cube.Create(VT_BSTR, 3, counts);
    CKrVariant const threeDimensions(static_cast<VARIANT const &>(cube));
    EXPECT_EQ(FailureOf<kr::matrix<CString>>(threeDimensions), DISP_E_BADINDEX);
    EXPECT_EQ(FailureOf<std::vector<CString>>(threeDimensions), E_INVALIDARG);

    COleSafeArray integers;
    integers.Create(VT_INT, 1, counts);
    CKrVariant const otherNumbers(static_cast<VARIANT const &>(integers));
    EXPECT_TRUE(otherNumbers.IsLongVector());
    EXPECT_EQ(FailureOf<std::vector<long>>(otherNumbers), DISP_E_TYPEMISMATCH) << "only VT_I4 reads as a long";
}

TEST(CKrVariantArrays, LeaveTheOutputAsItWasAfterAFailure)
{
    std::vector<double> doubles = {9};
    EXPECT_NE(ThrownResult([&] { CKrVariant(7).GetValue(doubles); }), S_OK);
    EXPECT_EQ(doubles, std::vector<double>{9});
    CKrPoint3List points(1);
    EXPECT_NE(ThrownResult([&] { CKrVariant(std::vector<VARIANT>(2)).GetValue(points); }), S_OK);
    EXPECT_EQ(points.size(), 1u);
}

TEST(CKrVariantArrays, LeaveReferencesToTheCallerWhereMemoryRunsOut)
{
    CountedObject object;
    std::vector<IDispatch *> const objects{&object, &object};
    auto const hasNoReference = [&object]
    {
        ExpectWantOfMemory();
        EXPECT_EQ(object.References(), 0u);
    };
    EXPECT_GE(FailEveryAllocation([&] { CKrVariant made(objects); }, hasNoReference), 1u);

    std::vector<VARIANT> elements(1);
    elements[0].vt = VT_DISPATCH;
    elements[0].pdispVal = &object;
    auto const takeOver = [&]
    {
        object.AddRef();
        CKrVariant made(elements);
    };
    auto const isStillTheCallers = [&object]
    {
        ExpectWantOfMemory();
        EXPECT_EQ(object.Release(), 0u);
    };
    EXPECT_GE(FailEveryAllocation(takeOver, isStillTheCallers), 1u);
    EXPECT_EQ(object.References(), 0u);
}

TEST(CKrVariantArrays, LeaveTheOutputAsItWasWhereMemoryRunsOut)
{
    CKrVariant const texts(std::vector<CString>{OLESTR("a"), OLESTR("b")});
    std::vector<CString> readTexts(1, OLESTR("old"));
    auto const textsAreOld = [&] { EXPECT_EQ(readTexts, std::vector<CString>(1, OLESTR("old"))); };
    EXPECT_GE(FailUntilItPasses([&] { texts.GetValue(readTexts); }, textsAreOld), 3u);

    CKrVariant const numbers(std::vector<double>{1, 2, 3});
    std::vector<double> readNumbers(1, 9.0);
    auto const numbersAreOld = [&] { EXPECT_EQ(readNumbers, std::vector<double>(1, 9.0)); };
    EXPECT_GE(FailUntilItPasses([&] { numbers.GetValue(readNumbers); }, numbersAreOld), 1u);

    CKrVariant const longs(std::vector<long>{1, 2, 3});
    std::vector<long> readLongs(1, 9);
    auto const longsAreOld = [&] { EXPECT_EQ(readLongs, std::vector<long>(1, 9)); };
    EXPECT_GE(FailUntilItPasses([&] { longs.GetValue(readLongs); }, longsAreOld), 1u);

    CKrVariant const names(MakeTexts(2, 2));
    kr::matrix<CString> readNames = MakeTexts(1, 1);
    auto const namesAreOld = [&] { EXPECT_EQ(readNames.GetRows(), 1); };
    EXPECT_GE(FailUntilItPasses([&] { names.GetValue(readNames); }, namesAreOld), 5u);

    kr::matrix<CKrVariant> cells;
    cells.Resize(1, 2);
    cells.At(0, 1) = CKrVariant(OLESTR("x"));
    CKrVariant const values(cells);
    kr::matrix<CKrVariant> readCells;
    auto const cellsAreOld = [&] { EXPECT_EQ(readCells.GetRows(), 0); };
    EXPECT_GE(FailUntilItPasses([&] { values.GetValue(readCells); }, cellsAreOld), 2u);

    CKrVariant const points(CKrPoint3List(3));
    CKrPoint3List readPoints(1);
    auto const pointsAreOld = [&] { EXPECT_EQ(readPoints.size(), 1u); };
    EXPECT_GE(FailUntilItPasses([&] { points.GetValue(readPoints); }, pointsAreOld), 1u);
    std::vector<VARIANT> readVariants(1);
    auto const variantsAreOld = [&] { EXPECT_EQ(readVariants.size(), 1u); };
    EXPECT_GE(FailUntilItPasses(
                  [&]
                  {
                      points.GetValue(readVariants);
                      for (VARIANT & copy : readVariants)
                          VariantClear(&copy);
                  },
                  variantsAreOld),
              3u);
}

TEST(CKrVariantArrays, LeakNothingWhereMemoryRunsOut)
{
    std::vector<CString> const texts = {OLESTR("a"), OLESTR("b")};
    kr::matrix<CString> const names = MakeTexts(2, 2);
    kr::matrix<CKrVariant> cells;
    cells.Resize(2, 2);
    cells.At(1, 1) = CKrVariant(OLESTR("x"));
    CKrPoint3List const points(3);
    CKrVector3List const vectors(3);
    std::vector<double> const doubles(3);
    std::vector<long> const longs(3);
    auto const isMemoryFailure = [] { ExpectWantOfMemory(); };
    EXPECT_GE(FailEveryAllocation([&] { CKrVariant made(texts); }, isMemoryFailure), 3u);
    EXPECT_GE(FailEveryAllocation([&] { CKrVariant made(names); }, isMemoryFailure), 5u);
    EXPECT_GE(FailEveryAllocation([&] { CKrVariant made(cells); }, isMemoryFailure), 2u);
    EXPECT_GE(FailEveryAllocation([&] { CKrVariant made(points); }, isMemoryFailure), 4u);
    EXPECT_GE(FailEveryAllocation([&] { CKrVariant made(vectors); }, isMemoryFailure), 1u);
    EXPECT_GE(FailEveryAllocation([&] { CKrVariant made(doubles); }, isMemoryFailure), 1u);
    EXPECT_GE(FailEveryAllocation([&] { CKrVariant made(longs); }, isMemoryFailure), 1u);
    EXPECT_GE(FailEveryAllocation([] { CKrVariant made(CKrPoint3(1, 2, 3)); }, isMemoryFailure), 1u);
    EXPECT_GE(FailEveryAllocation([] { CKrVariant made(CKrVector3(1, 2, 3)); }, isMemoryFailure), 1u);
}
