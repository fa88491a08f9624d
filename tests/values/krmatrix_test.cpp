#include <krcore/values/krmatrix.h>

#include "tests/krplatform/automation/thrown_result.h"
#include "tests/support/failing_allocator.h"

#include <krcore/values/krvariant.h>

#include <gtest/gtest.h>

#include <climits>
#include <stdexcept>
#include <type_traits>

static_assert(std::is_nothrow_move_constructible_v<kr::matrix<CString>>);
static_assert(std::is_nothrow_move_assignable_v<kr::matrix<CString>>);

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

TEST(KrMatrix, LeavesTheSourceOfAMoveWithoutRowsAndColumns)
{
    kr::matrix<int> source;
    source.Resize(2, 3);
    source.At(1, 2) = 12;
    kr::matrix<int> moved(std::move(source));
    EXPECT_EQ(moved.At(1, 2), 12);
    EXPECT_EQ(source.GetRows(), 0);
    EXPECT_EQ(source.GetColumns(), 0);
    source = std::move(moved);
    EXPECT_EQ(source.GetColumns(), 3);
    EXPECT_EQ(source.At(1, 2), 12);
    EXPECT_EQ(moved.GetRows(), 0);
    EXPECT_EQ(moved.GetColumns(), 0);
    kr::matrix<int> & same = source;
    source = std::move(same);
    EXPECT_EQ(source.At(1, 2), 12);
}

TEST(KrMatrix, StaysAsItWasWhereMemoryRunsOut)
{
    kr::matrix<int> matrix;
    matrix.Resize(1, 2);
    matrix.At(0, 1) = 7;
    auto const isUnchanged = [&]
    {
        ASSERT_EQ(matrix.GetRows(), 1);
        ASSERT_EQ(matrix.GetColumns(), 2);
        EXPECT_EQ(matrix.At(9, 9), 7);
    };
    kr::matrix<int> large;
    large.Resize(30, 40);
    {
        FailNthAllocation const fail(1);
        EXPECT_THROW(matrix = large, std::bad_alloc);
    }
    isUnchanged();
    {
        FailNthAllocation const fail(1);
        EXPECT_THROW(matrix.Resize(30, 40), std::bad_alloc);
    }
    isUnchanged();
    EXPECT_THROW(matrix.Resize(INT_MAX, INT_MAX), std::length_error);
    isUnchanged();
}
