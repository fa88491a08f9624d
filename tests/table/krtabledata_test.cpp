// Columns and their keys; rows stand in krtabledata_rows_test.cpp.
#include <krcore/table/krtabledata.h>

#include "tests/krplatform/automation/counted_object.h"
#include "tests/support/memory_failure.h"
#include "tests/support/text.h"
#include "tests/support/virtual_slot.h"

#include <gtest/gtest.h>

#include <type_traits>

using kr::test::CountedObject;
using kr::test::FailUntilItPasses;
using kr::test::Narrow;

namespace
{

CString Add(CKrTableData & table, CString const & name) { return table.AddColumn(name, OLESTR("external"), nullptr); }

CString KeysOf(CKrTableData const & table)
{
    CString keys;
    for (CKrTableColumn const & column : table)
        keys += (keys.IsEmpty() ? OLESTR("") : OLESTR(" ")) + column.GetKey();
    return keys;
}

class Speaking : public CKrTableData
{
public:
    CString ConvertToString() const override { return OLESTR("spoken"); }
};

} // namespace

static_assert(std::has_virtual_destructor_v<CKrTableData>);
static_assert(std::is_base_of_v<std::vector<CKrTableColumn>, CKrTableData>);

TEST(CKrTableData, StartsWithoutColumns)
{
    CKrTableData const table;
    EXPECT_TRUE(table.IsEmpty());
    EXPECT_EQ(table.size(), 0u);
}

TEST(CKrTableData, AddingAColumnGivesItsKey)
{
    struct Row
    {
        WCHAR const * name;
        WCHAR const * key;
        WCHAR const * internalName;
    };
    // clang-format off
    Row const rows[] = {
        { OLESTR("Width"),      OLESTR("Width_#0#"),     OLESTR("Width")    },
        { OLESTR("Width"),      OLESTR("Width_#1#"),     OLESTR("Width")    },
        { OLESTR("width"),      OLESTR("width_#0#"),     OLESTR("width")    },  // case counts
        { OLESTR("Width_"),     OLESTR("Width__#0#"),    OLESTR("Width_")   },
        { OLESTR("Width#"),     OLESTR("Width#_#0#"),    OLESTR("Width#")   },
        { OLESTR(""),           OLESTR("_#0#"),          OLESTR("")         },
        { OLESTR(""),           OLESTR("_#1#"),          OLESTR("")         },
        { OLESTR("_#Width"),    OLESTR("_#Width_#0#"),   OLESTR("_#Width")  },  // begins with the ending
        { OLESTR("_#Width"),    OLESTR("_#Width_#1#"),   OLESTR("_#Width")  },
        { OLESTR("_#"),         OLESTR("_#_#0#"),        OLESTR("_#")       },
        { OLESTR("_#a_#0#"),    OLESTR("_#a_#0#_#0#"),   OLESTR("_#a_#0#")  },  // the first "_#" decides
        { OLESTR("Height_#7#"), OLESTR("Height_#7#"),    OLESTR("Height")   },  // a key already
        { OLESTR("Height"),     OLESTR("Height_#0#"),    OLESTR("Height")   },
        { OLESTR("a_#b"),       OLESTR("a_#b"),          OLESTR("a")        },  // no counter is asked for
        { OLESTR("a_#b_#3#"),   OLESTR("a_#b_#3#"),      OLESTR("a")        },
        { OLESTR("x_#"),        OLESTR("x_#"),           OLESTR("x")        },
    };
    // clang-format on
    CKrTableData table;
    for (Row const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.key));
        EXPECT_EQ(table.AddColumn(row.name, OLESTR("external"), nullptr), row.key);
        EXPECT_EQ(table.back().GetKey(), row.key);
        EXPECT_EQ(table.back().GetInternalName(), row.internalName);
        EXPECT_EQ(table.back().GetExternalName(), OLESTR("external"));
        EXPECT_TRUE(table.back().GetValues().empty());
        EXPECT_EQ(table.back().GetRangeRef(), nullptr);
    }
    EXPECT_EQ(table.size(), std::size(rows));
}

TEST(CKrTableData, TakesTheLowestFreeCounter)
{
    CKrTableData table;
    Add(table, OLESTR("Width_#1#"));
    Add(table, OLESTR("Width_#02#")); // not a counter's text
    EXPECT_EQ(Add(table, OLESTR("Width")), OLESTR("Width_#0#"));
    EXPECT_EQ(Add(table, OLESTR("Width")), OLESTR("Width_#2#"));
    table.RemoveColumn(OLESTR("Width_#0#"));
    table.RemoveColumn(OLESTR("Width_#1#"));
    EXPECT_EQ(Add(table, OLESTR("Width")), OLESTR("Width_#0#"));
    EXPECT_EQ(Add(table, OLESTR("Width")), OLESTR("Width_#1#"));
    EXPECT_EQ(Add(table, OLESTR("Width")), OLESTR("Width_#3#"));
}

TEST(CKrTableData, InsertsInFrontOfAPositionOrAtTheEnd)
{
    CKrTableData table;
    EXPECT_EQ(table.InsertColumn(5, OLESTR("a"), CString(), nullptr), OLESTR("a_#0#"));
    table.InsertColumn(0, OLESTR("b"), CString(), nullptr);
    table.InsertColumn(1, OLESTR("c"), CString(), nullptr);
    table.InsertColumn(3, OLESTR("d"), CString(), nullptr);
    table.InsertColumn(0xFFFFFFFF, OLESTR("e"), CString(), nullptr);
    EXPECT_EQ(KeysOf(table), OLESTR("b_#0# c_#0# a_#0# d_#0# e_#0#"));
}

TEST(CKrTableData, KeepsAGivenKeyThatAColumnHasAlreadyAndFindsTheFirst)
{
    CKrTableData table;
    Add(table, OLESTR("Width"));
    EXPECT_EQ(table.AddColumn(OLESTR("Width_#0#"), OLESTR("second"), nullptr), OLESTR("Width_#0#"));
    EXPECT_EQ(table.size(), 2u);
    EXPECT_EQ(table.GetExternalName(OLESTR("Width_#0#")), OLESTR("external"));
    table.InsertColumn(0, OLESTR("Width_#0#"), OLESTR("third"), nullptr);
    EXPECT_EQ(table.GetExternalName(OLESTR("Width_#0#")), OLESTR("third"));
    table.RemoveColumn(OLESTR("Width_#0#"));
    EXPECT_EQ(table.GetExternalName(OLESTR("Width_#0#")), OLESTR("external"));
    table.RemoveColumn(OLESTR("Width_#0#"));
    EXPECT_EQ(table.GetExternalName(OLESTR("Width_#0#")), OLESTR("second"));
}

TEST(CKrTableData, AsksForColumnsByTheirExactKey)
{
    CKrTableData table;
    table.AddColumn(OLESTR("Width"), OLESTR("Breite"), nullptr);
    struct Row
    {
        WCHAR const * key;
        bool isIncluded;
        WCHAR const * internalName;
        WCHAR const * externalName;
    };
    // clang-format off
    Row const rows[] = {
        { OLESTR("Width_#0#"),  true,  OLESTR("Width"),      OLESTR("Breite")     },
        { OLESTR("width_#0#"),  false, OLESTR("#NO_ENTRY#"), OLESTR("#NO_ENTRY#") },
        { OLESTR("Width"),      false, OLESTR("#NO_ENTRY#"), OLESTR("#NO_ENTRY#") },
        { OLESTR("Width_#0# "), false, OLESTR("#NO_ENTRY#"), OLESTR("#NO_ENTRY#") },
        { OLESTR(""),           false, OLESTR("#NO_ENTRY#"), OLESTR("#NO_ENTRY#") },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.key));
        EXPECT_EQ(table.Includes(row.key), row.isIncluded);
        EXPECT_EQ(table.GetInternalName(row.key), row.internalName);
        EXPECT_EQ(table.GetExternalName(row.key), row.externalName);
    }
}

TEST(CKrTableData, RemovesTheColumnOfAKey)
{
    CKrTableData table;
    Add(table, OLESTR("a"));
    Add(table, OLESTR("b"));
    Add(table, OLESTR("c"));
    table.RemoveColumn(OLESTR("B_#0#"));
    EXPECT_EQ(table.size(), 3u);
    table.RemoveColumn(table[1].GetKey()); // the key of the column that goes
    EXPECT_EQ(KeysOf(table), OLESTR("a_#0# c_#0#"));
    EXPECT_FALSE(table.Includes(OLESTR("b_#0#")));
}

TEST(CKrTableData, ReadsAndAppendsTheCellsOfAColumn)
{
    CKrTableData table;
    CString const first = Add(table, OLESTR("a"));
    CString const second = Add(table, OLESTR("b"));
    table.AddColumnValue(first, OLESTR("1"));
    table.AddColumnValue(second, OLESTR("2"));
    table.AddColumnValue(second, OLESTR("3"));
    table.AddColumnValue(OLESTR("c_#0#"), OLESTR("4"));
    EXPECT_EQ(table.GetColumnValue(second, 1), OLESTR("3"));
    EXPECT_EQ(table.GetColumnValue(OLESTR("c_#0#"), 0), OLESTR("#NO_ENTRY#"));
    std::vector<CString> values{OLESTR("old")};
    table.GetColumnData(1, values);
    EXPECT_EQ(values, (std::vector<CString>{OLESTR("2"), OLESTR("3")}));
    table.GetColumnData(0, values);
    EXPECT_EQ(values, std::vector<CString>{OLESTR("1")});
    table.AddColumnValue(second, table[1].GetValues()[0]); // a cell that moves as the column grows
    EXPECT_EQ(table.GetColumnValue(second, 2), OLESTR("2"));
}

TEST(CKrTableData, ACellThatReadsAsNoEntryIsAllowed)
{
    CKrTableData table;
    CString const key = table.AddColumn(OLESTR("#NO_ENTRY#"), OLESTR("#NO_ENTRY#"), nullptr);
    EXPECT_EQ(table.GetInternalName(key), OLESTR("#NO_ENTRY#"));
    EXPECT_TRUE(table.Includes(key));
}

TEST(CKrTableData, HoldsAReferenceOnEachRangeUntilItIsCleared)
{
    CountedObject range;
    CKrTableData table;
    table.AddColumn(OLESTR("a"), CString(), IDispatchPtr(&range));
    table.InsertColumn(0, OLESTR("b"), CString(), IDispatchPtr(&range));
    Add(table, OLESTR("c"));
    EXPECT_EQ(range.References(), 2u);
    table.RemoveColumn(OLESTR("a_#0#"));
    EXPECT_EQ(range.References(), 1u);
    table.AddColumnValue(OLESTR("b_#0#"), OLESTR("cell"));
    table.ClearRangeRefs();
    EXPECT_EQ(range.References(), 0u);
    EXPECT_EQ(table[0].GetRangeRef(), nullptr);
    EXPECT_EQ(KeysOf(table), OLESTR("b_#0# c_#0#"));
    EXPECT_EQ(table.GetColumnValue(OLESTR("b_#0#"), 0), OLESTR("cell"));
    table.ClearRangeRefs();
    EXPECT_EQ(range.References(), 0u);
}

TEST(CKrTableData, ACopyTakesTheCellsAndSharesTheRanges)
{
    CountedObject range;
    {
        CKrTableData table;
        CString const key = table.AddColumn(OLESTR("a"), OLESTR("x"), IDispatchPtr(&range));
        table.AddColumnValue(key, OLESTR("1"));
        CKrTableData const copy(table);
        CKrTableData assigned;
        Add(assigned, OLESTR("old"));
        EXPECT_EQ(&(assigned = table), &assigned);
        table.AddColumnValue(key, OLESTR("2"));
        EXPECT_EQ(range.References(), 3u);
        for (CKrTableData const * other : {&copy, static_cast<CKrTableData const *>(&assigned)})
        {
            EXPECT_EQ(KeysOf(*other), OLESTR("a_#0#"));
            EXPECT_EQ(other->at(0).GetValues(), std::vector<CString>{OLESTR("1")});
        }
        CKrTableData & same = assigned;
        assigned = same;
        EXPECT_EQ(KeysOf(assigned), OLESTR("a_#0#"));
    }
    EXPECT_EQ(range.References(), 0u);
}

TEST(CKrTableData, AMoveTakesTheColumnsAlong)
{
    CountedObject range;
    CKrTableData table;
    table.AddColumn(OLESTR("a"), CString(), IDispatchPtr(&range));
    CKrTableData moved(std::move(table));
    CKrTableData assigned;
    assigned = std::move(moved);
    EXPECT_EQ(KeysOf(assigned), OLESTR("a_#0#"));
    EXPECT_EQ(range.Added(), 1u);
}

TEST(CKrTableData, WritesItselfLineByLine)
{
    CKrTableData table;
    EXPECT_EQ(table.ConvertToString(), OLESTR("\n[list data]\n"));
    CString const width = table.AddColumn(OLESTR("Width"), OLESTR("Breite"), nullptr);
    table.AddColumn(OLESTR("Height_#7#"), CString(), nullptr);
    table.AddColumnValue(width, OLESTR("0.35"));
    table.AddColumnValue(width, CString());
    EXPECT_EQ(table.ConvertToString(),
              OLESTR("\n[list data]\nWidth_#0#\nWidth\nBreite\n0.35\n\nHeight_#7#\nHeight\n\n"));
}

TEST(CKrTableData, TheTextIsItsOnlyVirtualOperationBesideTheDestructor)
{
    EXPECT_EQ(kr::test::VirtualSlotOf(&CKrTableData::ConvertToString), 2u);
    Speaking const speaking;
    EXPECT_EQ(static_cast<CKrTableData const &>(speaking).ConvertToString(), OLESTR("spoken"));
}

TEST(CKrTableData, StaysAsItWasWhenMemoryRunsOut)
{
    CKrTableData table;
    CString const key = Add(table, OLESTR("a"));
    auto const isUnchanged = [&]
    {
        EXPECT_EQ(KeysOf(table), OLESTR("a_#0#"));
        EXPECT_TRUE(table[0].GetValues().empty());
    };
    CString const value(OLESTR("1"));
    EXPECT_GT(FailUntilItPasses([&] { table.AddColumnValue(key, value); }, isUnchanged), 0u);
    table.RemoveAllRows();
    table.shrink_to_fit();
    CString const name(OLESTR("b"));
    EXPECT_GT(FailUntilItPasses([&] { table.InsertColumn(0, name, name, nullptr); }, isUnchanged), 1u);
    EXPECT_EQ(KeysOf(table), OLESTR("b_#0# a_#0#"));
    CKrTableData other;
    EXPECT_GT(FailUntilItPasses([&] { other = table; }, [&] { EXPECT_TRUE(other.IsEmpty()); }), 0u);
    EXPECT_GT(FailUntilItPasses([&] { CKrTableData(table).ConvertToString(); }, [] {}), 0u);
}
