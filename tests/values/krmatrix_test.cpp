#include <krcore/values/krmatrix.h>

#include "tests/krplatform/automation/thrown_result.h"

#include <krcore/values/krvariant.h>

#include <gtest/gtest.h>

using namespace kr::test;

TEST(KrMatrix, StartsWithoutRowsAndColumns)
{
    kr::matrix<CString> const matrix;
    EXPECT_EQ(matrix.GetRows(), 0);
    EXPECT_EQ(matrix.GetColumns(), 0);
}

TEST(KrMatrix, HoldsElementsRowAfterRow)
{
    kr::matrix<int> matrix;
    matrix.Resize(2, 3);
    for (int place = 0; place < 6; ++place)
        matrix.At(place / 3, place % 3) = place;
    matrix.Resize(3, 2); // the order stays, whatever the shape
    for (int place = 0; place < 6; ++place)
        EXPECT_EQ(matrix.At(place / 2, place % 2), place);
}

TEST(KrMatrix, HoldsIndexesWithinItself)
{
    kr::matrix<int> matrix;
    matrix.Resize(2, 3);
    matrix.At(1, 2) = 12;
    matrix.At(0, 2) = 2;
    matrix.At(1, 0) = 10;
    matrix.At(0, 0) = 100;
    // clang-format off
    struct { int row, column, value; } const rows[] = {
        {  9,  9,  12 },
        {  0,  9,   2 },
        {  9,  0,  10 },
        {  2,  3,  12 },
        { -1, -1, 100 },
    };
    // clang-format on
    for (auto const & row : rows)
        EXPECT_EQ(std::as_const(matrix).At(row.row, row.column), row.value) << row.row << "," << row.column;
}

TEST(KrMatrix, TakesNumbersBelowZeroForZero)
{
    kr::matrix<int> matrix;
    matrix.Resize(-1, 3);
    EXPECT_EQ(matrix.GetRows(), 0);
    EXPECT_EQ(matrix.GetColumns(), 3);
    matrix.Resize(2, -5);
    EXPECT_EQ(matrix.GetColumns(), 0);
}

TEST(KrMatrix, RaisesInvalidArgumentWithoutElements)
{
    kr::matrix<int> matrix;
    EXPECT_EQ(ThrownResult([&] { matrix.At(0, 0) = 1; }), E_INVALIDARG);
}

TEST(KrMatrix, CopiesItsElements)
{
    kr::matrix<CString> source;
    source.Resize(1, 1);
    source.At(0, 0) = OLESTR("a");
    kr::matrix<CString> copy(source);
    copy.At(0, 0) = OLESTR("b");
    EXPECT_EQ(source.At(0, 0), OLESTR("a"));
    EXPECT_TRUE(std::has_virtual_destructor_v<kr::matrix<CString>>);
}
