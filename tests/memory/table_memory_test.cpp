// Tables of texts where memory runs out, with few columns and with the index of many.
#include <krcore/table/krtabledata.h>

#include "tests/memory/failing_rows.h"

using namespace kr::test;

namespace
{

CString const width(OLESTR("Width"));
CString const widthKey(OLESTR("Width_#0#"));
CString const newKey(OLESTR("Height_#7#"));
CString const value(OLESTR("0.35"));
std::vector<CString> const cells(16, value);

/// With as many columns of one name, of which the first has cells.
CKrTableData MakeTable(int columns)
{
    CKrTableData table;
    for (int column = 0; column < columns; ++column)
        table.AddColumn(width, width, nullptr);
    table.AddColumnValue(widthKey, value);
    return table;
}

/// Keys and cells. Nothing is looked up, which would make an index.
std::string StateOf(CKrTableData const & table) { return Described(table.size(), table.ConvertToString()); }

CKrTableData const & Other()
{
    static CKrTableData const other = MakeTable(9);
    return other;
}

/// In wide tables an index helps, which is done without where there is no memory for it; `withIndex` is added to the ways
/// of the operations that search.
void ExpectTableRows(int columns, unsigned withIndex)
{
    SCOPED_TRACE(columns);
    unsigned const either = throwsMemory | throwsBadAlloc | withIndex;
    unsigned const found = throwsBadAlloc | withIndex;
    // clang-format off
    CKrTableData const table = MakeTable(columns); // of which a copy has no index yet
    ExpectRows([&table] { return CKrTableData(table); }, StateOf, std::vector<Row<CKrTableData>>{
        { "AddColumn",         either,         kept, [](CKrTableData & copy) { copy.AddColumn(width, width, nullptr); } },
        { "AddColumn key",     throwsMemory | throwsBadAlloc, kept, [](CKrTableData & copy) { copy.AddColumn(newKey, width, nullptr); } },
        { "InsertColumn",      either,         kept, [](CKrTableData & copy) { copy.InsertColumn(1, width, width, nullptr); } },
        { "RemoveColumn",      withIndex,      kept, [](CKrTableData & copy) { copy.RemoveColumn(widthKey); } },
        { "Includes",          withIndex,      kept, [](CKrTableData & copy) { static_cast<void>(copy.Includes(newKey)); } },
        { "AddColumnValue",    found,          kept, [](CKrTableData & copy) { copy.AddColumnValue(widthKey, value); } },
        { "GetInternalName",   throwsMemory | withIndex, kept, [](CKrTableData & copy) { copy.GetInternalName(newKey); } },
        { "GetExternalName",   throwsMemory | withIndex, kept, [](CKrTableData & copy) { copy.GetExternalName(newKey); } },
        { "GetColumnValue",    throwsMemory | withIndex, kept, [](CKrTableData & copy) { copy.GetColumnValue(newKey, 0); } },
        { "=",                 throwsBadAlloc, kept, [](CKrTableData & copy) { copy = Other(); } },
        { "copy",              throwsBadAlloc, kept, [](CKrTableData & copy) { CKrTableData const second(copy); } },
        { "GetColumnData",     throwsBadAlloc, kept, [](CKrTableData & copy) { std::vector<CString> read; copy.GetColumnData(0, read); } },
        { "ConvertToString",   throwsMemory,   kept, [](CKrTableData & copy) { copy.ConvertToString(); } },
        { "InsertRow",         throwsBadAlloc, kept, [](CKrTableData & copy) { copy.InsertRow(0, cells); } },
        { "FillMissingValues", throwsBadAlloc, kept, [](CKrTableData & copy) { copy.FillMissingValues(value); } },
    });
    // clang-format on
}

} // namespace

TEST(CKrTableDataMemory, KeepsAFewColumns) { ExpectTableRows(4, takesNone); }

TEST(CKrTableDataMemory, KeepsManyColumnsWithTheirIndex) { ExpectTableRows(16, goesOn); }

TEST(CKrTableDataMemory, LeavesTheOutputOfAReadingAndChangesRowsInPlace)
{
    static CKrTableData const table = []
    {
        CKrTableData made = MakeTable(3);
        made.FillMissingValues(value);
        return made;
    }();
    auto const rowsOf = [](CKrTableData const & rows) { return StateOf(rows); };
    // clang-format off
    ExpectRows([] { return CKrTableData(table); }, rowsOf, std::vector<Row<CKrTableData>>{
        { "rows in place", takesNone, kept, [](CKrTableData & rows)
          {
              rows.ReplaceRow(0, cells);
              rows.RemoveRow(0);
              rows.RemoveAllRows();
              rows.ClearRangeRefs();
          } },
    });
    // clang-format on
    auto const stateOf = [](std::vector<CString> const & read) { return Described(read.size()); };
    // clang-format off
    ExpectRows([] { return std::vector<CString>{width}; }, stateOf, std::vector<Row<std::vector<CString>>>{
        { "GetRowData",    throwsBadAlloc, kept, [](std::vector<CString> & read) { table.GetRowData(0, read); } },
    });
    // clang-format on
}

TEST(CKrTableColumnMemory, KeepsTheColumn)
{
    static CKrTableColumn const other = []
    {
        CKrTableColumn made(newKey, width, width);
        made.GetValues() = cells;
        return made;
    }();
    auto const stateOf = [](CKrTableColumn const & column) {
        return Described(column.GetKey(), column.GetInternalName(), column.GetExternalName(),
                         column.GetValues().size());
    };
    // clang-format off
    ExpectRows([] { return CKrTableColumn(widthKey, width, width); }, stateOf, std::vector<Row<CKrTableColumn>>{
        { "=",      throwsBadAlloc, kept, [](CKrTableColumn & column) { column = other; } },
        { "copy",   throwsBadAlloc, kept, [](CKrTableColumn &) { CKrTableColumn const copy(other); } },
        { "SetKey", takesNone,      kept, [](CKrTableColumn & column) { column.SetKey(newKey); } },
    });
    // clang-format on
}
