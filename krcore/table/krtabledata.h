// A table of texts, held by columns.
#pragma once

#include <krcore/export.h>
#include <krcore/table/krtablecolumn.h>
#include <krplatform/automation/com_ptr.h>
#include <krplatform/text/cstring.h>

#include <memory>
#include <vector>

/// A table of text cells. Its columns are the elements of the vector, in their order, and are found by keys that the
/// table makes unique by itself; the columns fill independently, and row r is the cell r of each column that is long
/// enough.
///
///     CKrTableData table;
///     CString const width = table.AddColumn(OLESTR("Width"), OLESTR("Breite"), nullptr);    -> "Width_#0#"
///     table.AddColumn(OLESTR("Width"), OLESTR("Breite"), nullptr)                           -> "Width_#1#"
///     table.AddColumnValue(width, OLESTR("0.35"));
///     table.GetColumnValue(width, 0)                                                        -> "0.35"
///     table.GetInternalName(OLESTR("Height_#0#"))                                           -> "#NO_ENTRY#"
///
/// Keys are compared with case; the first of several columns with one key is found. Everything that the vector offers
/// may be used, also to change columns and their keys; what a search knew is then found out anew. A key that no column
/// has changes nothing and reads as "#NO_ENTRY#". Rows and positions are not checked in `GetColumnValue`,
/// `GetColumnData`, `GetRowData` and `ReplaceRow`. When memory runs out `std::bad_alloc` or `CMemoryException *` is
/// thrown, and the table stays as it was. A table belongs to one thread at a time.
class KRCORE_API CKrTableData : public std::vector<CKrTableColumn>
{
public:
    CKrTableData() noexcept;
    /// Share the range references.
    CKrTableData(CKrTableData const & other);
    CKrTableData & operator=(CKrTableData const & other);
    CKrTableData(CKrTableData && other) noexcept;
    CKrTableData & operator=(CKrTableData && other) noexcept;
    virtual ~CKrTableData();

    /// Adds a column without cells and gives its key, "name_#n#" with the lowest n from 0 that is free. The column
    /// holds one more reference on `range`, which may be null.
    ///
    /// Deliberate: a name with "_#" behind its first character is a key already and is kept as it is, also where a
    /// column has it; what stands before the "_#" is the internal name then.
    CString AddColumn(CString const & name, CString const & externalName, IDispatchPtr range);
    /// The same in front of the column at `position`; at the end where there is none.
    CString InsertColumn(unsigned int position, CString const & name, CString const & externalName, IDispatchPtr range);
    /// The first column with this key.
    void RemoveColumn(CString const & key) noexcept;
    bool Includes(CString const & key) const noexcept { return FindColumn(key) != nullptr; }
    CString GetInternalName(CString const & key) const;
    CString GetExternalName(CString const & key) const;

    /// Appends a cell to the column.
    void AddColumnValue(CString const & key, CString const & value);
    CString GetColumnValue(CString const & key, unsigned int row) const;
    void GetColumnData(unsigned int column, std::vector<CString> & values) const;

    /// One cell of every column, in place of what `values` held.
    void GetRowData(unsigned int row, std::vector<CString> & values) const;
    /// Inserts the n-th value into the n-th column, as far as there are both; the other columns stay. `values` is no
    /// column's own list. Deliberate: a column shorter than `row` gets its value at its end, in an earlier row.
    void InsertRow(unsigned int row, std::vector<CString> const & values);
    /// Deliberate: every column gets the same text, the one at position `row` of `values`, not the one at its own
    /// position.
    void ReplaceRow(unsigned int row, std::vector<CString> const & values) noexcept;
    /// Columns that are too short stay.
    void RemoveRow(unsigned int row) noexcept;
    /// The columns stay.
    void RemoveAllRows() noexcept;
    /// Lengthens every column to the longest.
    void FillMissingValues(CString const & value);

    /// The length of the shortest column and the number of columns; false where the lengths differ. No columns have no
    /// rows and are equal.
    bool GetSize(unsigned int & rows, unsigned int & columns) const noexcept;
    /// Whether any column has a cell.
    bool HasData() const noexcept;
    bool HasEqualColumnSize() const noexcept;
    /// Whether there are no columns; a column without cells counts.
    bool IsEmpty() const noexcept { return empty(); }
    /// Gives up all range references, as before their server ends.
    void ClearRangeRefs() noexcept;

    /// For logs: "\n[list data]\n", then a line for each column's key, internal name, external name and each of its
    /// cells. It cannot be read back.
    virtual CString ConvertToString() const;

private:
    kr::detail::ColumnIndex * CurrentIndex() const noexcept;
    CKrTableColumn * FindColumn(CString const & key) noexcept;
    CKrTableColumn const * FindColumn(CString const & key) const noexcept;
    CString MakeKey(CString const & name) const;

    /// Of no use to few columns, which are searched one by one; null for want of memory too.
    mutable std::unique_ptr<kr::detail::ColumnIndex> m_index;
};
