#include <krcore/table/krtabledata.h>

#include "tests/support/memory_failure.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

using kr::test::FailUntilItPasses;

namespace
{

using Cells = std::vector<CString>;

/// A table with a column for each list of cells.
CKrTableData MakeTable(std::vector<Cells> const & columns)
{
    CKrTableData table;
    for (Cells const & cells : columns)
    {
        table.AddColumn(OLESTR("c"), CString(), nullptr);
        table.back().GetValues() = cells;
    }
    return table;
}

std::vector<Cells> CellsOf(CKrTableData const & table)
{
    std::vector<Cells> columns;
    for (CKrTableColumn const & column : table)
        columns.push_back(column.GetValues());
    return columns;
}

Cells Letters(WCHAR const * text)
{
    Cells cells;
    for (; *text; ++text)
        cells.push_back(CString(*text));
    return cells;
}

struct Size
{
    unsigned int rows;
    unsigned int columns;
    bool isEven;

    bool operator==(Size const &) const = default;
};

Size SizeOf(CKrTableData const & table)
{
    Size size{77, 77, false};
    size.isEven = table.GetSize(size.rows, size.columns);
    return size;
}

using Table = std::vector<Cells>;

} // namespace

TEST(CKrTableDataRows, ReadsACellOfEachColumn)
{
    CKrTableData const table = MakeTable({Letters(OLESTR("ab")), Letters(OLESTR("cde")), Letters(OLESTR("fg"))});
    Cells values{OLESTR("old"), OLESTR("old")};
    table.GetRowData(1, values);
    EXPECT_EQ(values, Letters(OLESTR("bdg")));
    table.GetRowData(0, values);
    EXPECT_EQ(values, Letters(OLESTR("acf")));
    CKrTableData().GetRowData(5, values);
    EXPECT_TRUE(values.empty());
}

TEST(CKrTableDataRows, InsertsAValueIntoEachColumn)
{
    struct Row
    {
        char const * what;
        Table before;
        unsigned int row;
        WCHAR const * values;
        Table after;
    };
    // clang-format off
    Row const rows[] = {
        { "in front", {Letters(OLESTR("ab")), Letters(OLESTR("cd"))}, 0, OLESTR("xy"),
          {Letters(OLESTR("xab")), Letters(OLESTR("ycd"))} },
        { "in between", {Letters(OLESTR("ab")), Letters(OLESTR("cd"))}, 1, OLESTR("xy"),
          {Letters(OLESTR("axb")), Letters(OLESTR("cyd"))} },
        { "at the end", {Letters(OLESTR("ab")), Letters(OLESTR("cd"))}, 2, OLESTR("xy"),
          {Letters(OLESTR("abx")), Letters(OLESTR("cdy"))} },
        { "behind the end it is appended", {Letters(OLESTR("ab"))}, 0xFFFFFFFF, OLESTR("x"), {Letters(OLESTR("abx"))} },
        { "a short column gets it in an earlier row", {Letters(OLESTR("abc")), Letters(OLESTR("d"))}, 2, OLESTR("xy"),
          {Letters(OLESTR("abxc")), Letters(OLESTR("dy"))} },
        { "columns beyond the values stay", {{}, Letters(OLESTR("a")), Letters(OLESTR("b"))}, 0, OLESTR("xy"),
          {Letters(OLESTR("x")), Letters(OLESTR("ya")), Letters(OLESTR("b"))} },
        { "values beyond the columns are left", {Letters(OLESTR("a"))}, 0, OLESTR("xyz"), {Letters(OLESTR("xa"))} },
        { "no values", {Letters(OLESTR("a"))}, 0, OLESTR(""), {Letters(OLESTR("a"))} },
        { "no columns", {}, 0, OLESTR("xy"), {} },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.what);
        CKrTableData table = MakeTable(row.before);
        table.InsertRow(row.row, Letters(row.values));
        EXPECT_EQ(CellsOf(table), row.after);
    }
}

TEST(CKrTableDataRows, ReplacingARowPutsTheValueAtTheRowsPositionIntoEveryColumn)
{
    CKrTableData table = MakeTable({Letters(OLESTR("ab")), Letters(OLESTR("cde")), Letters(OLESTR("fg"))});
    table.ReplaceRow(1, Letters(OLESTR("xyz")));
    EXPECT_EQ(CellsOf(table), (Table{Letters(OLESTR("ay")), Letters(OLESTR("cye")), Letters(OLESTR("fy"))}));
    table.ReplaceRow(0, table[1].GetValues());
    EXPECT_EQ(CellsOf(table), (Table{Letters(OLESTR("cy")), Letters(OLESTR("cye")), Letters(OLESTR("cy"))}));
}

TEST(CKrTableDataRows, RemovesARowWhereThereIsOne)
{
    CKrTableData table = MakeTable({Letters(OLESTR("abc")), Letters(OLESTR("defgh")), {}});
    table.RemoveRow(4);
    EXPECT_EQ(CellsOf(table), (Table{Letters(OLESTR("abc")), Letters(OLESTR("defg")), {}}));
    table.RemoveRow(3);
    EXPECT_EQ(CellsOf(table), (Table{Letters(OLESTR("abc")), Letters(OLESTR("def")), {}}));
    table.RemoveRow(1);
    EXPECT_EQ(CellsOf(table), (Table{Letters(OLESTR("ac")), Letters(OLESTR("df")), {}}));
    table.RemoveRow(0xFFFFFFFF);
    EXPECT_EQ(CellsOf(table), (Table{Letters(OLESTR("ac")), Letters(OLESTR("df")), {}}));
}

TEST(CKrTableDataRows, RemovingAllRowsLeavesTheColumns)
{
    CKrTableData table = MakeTable({Letters(OLESTR("ab")), {}, Letters(OLESTR("c"))});
    table.RemoveAllRows();
    EXPECT_EQ(CellsOf(table), Table(3));
    EXPECT_TRUE(table.Includes(OLESTR("c_#2#")));
}

TEST(CKrTableDataRows, FillsShortColumnsToTheLengthOfTheLongest)
{
    CKrTableData table = MakeTable({Letters(OLESTR("abc")), Letters(OLESTR("d")), {}});
    table.FillMissingValues(OLESTR("-"));
    EXPECT_EQ(CellsOf(table), (Table{Letters(OLESTR("abc")), Letters(OLESTR("d--")), Letters(OLESTR("---"))}));
    table.FillMissingValues(OLESTR("+"));
    EXPECT_EQ(table.GetColumnValue(OLESTR("c_#1#"), 2), OLESTR("-"));
    CKrTableData none;
    none.FillMissingValues(OLESTR("-"));
    EXPECT_TRUE(none.IsEmpty());
}

TEST(CKrTableDataRows, FillsWithACellOfTheTableItself)
{
    CKrTableData table = MakeTable({{OLESTR("only")}, Letters(OLESTR("abcdefgh"))});
    table.FillMissingValues(table[0].GetValues()[0]);
    EXPECT_EQ(table[0].GetValues(), Cells(8, OLESTR("only")));
}

TEST(CKrTableDataRows, TellsHowManyRowsAreComplete)
{
    struct Row
    {
        Table columns;
        Size size;
        bool hasData;
        bool isEmpty;
    };
    // clang-format off
    Row const rows[] = {
        // columns                                            size            data   empty
        { {},                                                 {0, 0, true},   false, true  },
        { {{}},                                               {0, 1, true},   false, false },
        { {{}, {}},                                           {0, 2, true},   false, false },
        { {{}, Letters(OLESTR("a"))},                         {0, 2, false},  true,  false },
        { {Letters(OLESTR("a")), {}},                         {0, 2, false},  true,  false },
        { {Letters(OLESTR("abc")), Letters(OLESTR("defgh"))}, {3, 2, false},  true,  false },
        { {Letters(OLESTR("defgh")), Letters(OLESTR("abc"))}, {3, 2, false},  true,  false },
        { {Letters(OLESTR("ab")), Letters(OLESTR("cd"))},     {2, 2, true},   true,  false },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        CKrTableData const table = MakeTable(row.columns);
        SCOPED_TRACE(kr::test::Narrow(table.ConvertToString()));
        EXPECT_EQ(SizeOf(table), row.size);
        EXPECT_EQ(table.HasEqualColumnSize(), row.size.isEven);
        EXPECT_EQ(table.HasData(), row.hasData);
        EXPECT_EQ(table.IsEmpty(), row.isEmpty);
    }
}

TEST(CKrTableDataRows, AFilledTableIsEven)
{
    CKrTableData table = MakeTable({Letters(OLESTR("abc")), Letters(OLESTR("defgh"))});
    table.FillMissingValues(CString());
    EXPECT_TRUE(table.HasEqualColumnSize());
    EXPECT_EQ(SizeOf(table), (Size{5, 2, true}));
}

TEST(CKrTableDataRows, StaysAsItWasWhenMemoryRunsOut)
{
    Table const before{Letters(OLESTR("ab")), Letters(OLESTR("c")), Letters(OLESTR("de"))};
    CKrTableData table = MakeTable(before);
    Cells const values = Letters(OLESTR("xyz"));
    auto const isUnchanged = [&] { EXPECT_EQ(CellsOf(table), before); };
    EXPECT_EQ(FailUntilItPasses([&] { table.InsertRow(1, values); }, isUnchanged),
              2u); // the first has its room by then
    EXPECT_EQ(CellsOf(table), (Table{Letters(OLESTR("axb")), Letters(OLESTR("cy")), Letters(OLESTR("dze"))}));

    Cells read = Letters(OLESTR("old"));
    CString const missing(OLESTR("-"));
    read.shrink_to_fit();
    table.AddColumn(OLESTR("c"), CString(), nullptr);
    EXPECT_EQ(FailUntilItPasses([&] { table.FillMissingValues(missing); },
                                [&]
                                {
                                    EXPECT_EQ(table[1].GetValues(), Letters(OLESTR("cy")));
                                    EXPECT_TRUE(table[3].GetValues().empty());
                                }),
              2u);
    EXPECT_EQ(FailUntilItPasses([&] { table.GetRowData(0, read); }, [&] { EXPECT_EQ(read, Letters(OLESTR("old"))); }),
              1u);
    EXPECT_EQ(read, (Cells{OLESTR("a"), OLESTR("c"), OLESTR("d"), OLESTR("-")}));
}

TEST(CKrTableDataRows, ATableFilledRowByRowMovesEachCellAFewTimesOnly)
{
    CKrTableData inserted = MakeTable({{}});
    CKrTableData filled = MakeTable({{}, {}});
    Cells const values = Letters(OLESTR("x"));
    std::size_t const before = kr::test::AllAllocations();
    for (unsigned int row = 0; row < 1000; ++row)
    {
        inserted.InsertRow(row, values);
        filled[0].GetValues().push_back(values[0]);
        filled.FillMissingValues(values[0]);
    }
    EXPECT_LT(kr::test::AllAllocations() - before, 50u);
}
