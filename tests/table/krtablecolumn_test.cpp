#include <krcore/table/krtablecolumn.h>

#include "tests/krplatform/automation/counted_object.h"
#include "tests/support/memory_failure.h"

#include <gtest/gtest.h>

#include <type_traits>

using kr::test::CountedObject;

namespace
{

using Cells = std::vector<CString>;

CKrTableColumn MakeColumn(CString const & key, CountedObject * range = nullptr)
{
    CKrTableColumn column(key, OLESTR("Width"), OLESTR("Breite"), range);
    column.GetValues() = {OLESTR("1"), OLESTR("2")};
    return column;
}

void ExpectWidth(CKrTableColumn const & column)
{
    EXPECT_EQ(column.GetKey(), OLESTR("Width_#0#"));
    EXPECT_EQ(column.GetInternalName(), OLESTR("Width"));
    EXPECT_EQ(column.GetExternalName(), OLESTR("Breite"));
    EXPECT_EQ(column.GetValues(), (Cells{OLESTR("1"), OLESTR("2")}));
}

} // namespace

static_assert(std::has_virtual_destructor_v<CKrTableColumn>);
static_assert(std::is_nothrow_move_constructible_v<CKrTableColumn>); // a vector that grows then moves its columns

TEST(CKrTableColumn, StartsEmpty)
{
    CKrTableColumn const column;
    EXPECT_TRUE(column.GetKey().IsEmpty());
    EXPECT_TRUE(column.GetInternalName().IsEmpty());
    EXPECT_TRUE(column.GetExternalName().IsEmpty());
    EXPECT_TRUE(column.GetValues().empty());
    EXPECT_EQ(column.GetRangeRef(), nullptr);
}

TEST(CKrTableColumn, HoldsWhatItIsGiven)
{
    CKrTableColumn column = MakeColumn(OLESTR("Width_#0#"));
    ExpectWidth(column);
    EXPECT_EQ(column.GetRangeRef(), nullptr);
    column.SetKey(OLESTR("k"));
    column.SetInternalName(OLESTR("i"));
    column.SetExternalName(OLESTR("e"));
    EXPECT_EQ(column.GetKey(), OLESTR("k"));
    EXPECT_EQ(column.GetInternalName(), OLESTR("i"));
    EXPECT_EQ(column.GetExternalName(), OLESTR("e"));
}

TEST(CKrTableColumn, HoldsOneReferenceOnItsRangeUntilItEnds)
{
    CountedObject range;
    {
        CKrTableColumn const column = MakeColumn(OLESTR("k"), &range);
        EXPECT_EQ(column.GetRangeRef(), &range);
        EXPECT_EQ(range.References(), 1u);
    }
    EXPECT_EQ(range.References(), 0u);
}

TEST(CKrTableColumn, ANewRangeGivesUpTheOldOne)
{
    CountedObject first;
    CountedObject second;
    CKrTableColumn column = MakeColumn(OLESTR("k"), &first);
    column.SetRangeRef(&second);
    EXPECT_EQ(first.References(), 0u);
    EXPECT_EQ(second.References(), 1u);
    column.SetRangeRef(nullptr);
    EXPECT_EQ(second.References(), 0u);
    EXPECT_EQ(column.GetRangeRef(), nullptr);
}

TEST(CKrTableColumn, ACopyTakesTheCellsAndSharesTheRange)
{
    CountedObject range;
    {
        CKrTableColumn column = MakeColumn(OLESTR("Width_#0#"), &range);
        CKrTableColumn const copy(column);
        column.GetValues()[0] = OLESTR("changed");
        ExpectWidth(copy);
        EXPECT_EQ(copy.GetRangeRef(), &range);
        EXPECT_EQ(range.References(), 2u);
    }
    EXPECT_EQ(range.References(), 0u);
}

TEST(CKrTableColumn, AnAssignmentTakesTheCellsAndSharesTheRange)
{
    CountedObject oldRange;
    CountedObject range;
    CKrTableColumn target(OLESTR("old"), OLESTR("old"), OLESTR("old"), &oldRange);
    {
        CKrTableColumn const column = MakeColumn(OLESTR("Width_#0#"), &range);
        EXPECT_EQ(&(target = column), &target);
        EXPECT_EQ(range.References(), 2u);
    }
    ExpectWidth(target);
    EXPECT_EQ(oldRange.References(), 0u);
    EXPECT_EQ(range.References(), 1u);
    CKrTableColumn & same = target;
    target = same;
    ExpectWidth(target);
    EXPECT_EQ(range.References(), 1u);
}

TEST(CKrTableColumn, AMoveHandsTheRangeOver)
{
    CountedObject range;
    CKrTableColumn column = MakeColumn(OLESTR("Width_#0#"), &range);
    CKrTableColumn moved(std::move(column));
    ExpectWidth(moved);
    CKrTableColumn target;
    target = std::move(moved);
    ExpectWidth(target);
    EXPECT_EQ(range.References(), 1u);
    EXPECT_EQ(range.Added(), 1u);
}

TEST(CKrTableColumn, StaysAsItWasWhenAnAssignmentRunsOutOfMemory)
{
    CKrTableColumn const other(MakeColumn(OLESTR("k")));
    CKrTableColumn target = MakeColumn(OLESTR("Width_#0#"));
    EXPECT_GT(kr::test::FailUntilItPasses([&] { target = other; }, [&] { ExpectWidth(target); }), 0u);
    EXPECT_EQ(target.GetKey(), OLESTR("k"));
}
