// Rows of a table, across its columns.
#include <krcore/table/krtabledata.h>

#include <algorithm>

namespace
{

/// Room for `count` cells, and for more where some were added before: a table that is filled row by row moves each cell
/// a few times only.
void MakeRoom(std::vector<CString> & cells, std::size_t count)
{
    if (count > cells.capacity())
        cells.reserve(std::max(count, 2 * cells.capacity()));
}

} // namespace

void CKrTableData::GetColumnData(unsigned int column, std::vector<CString> & values) const
{
    values = (*this)[column].GetValues();
}

void CKrTableData::GetRowData(unsigned int row, std::vector<CString> & values) const
{
    values.reserve(size());
    values.clear();
    for (CKrTableColumn const & column : *this)
        values.push_back(column.GetValues()[row]);
}

void CKrTableData::InsertRow(unsigned int row, std::vector<CString> const & values)
{
    std::size_t const count = std::min(size(), values.size());
    for (std::size_t index = 0; index < count; ++index)
    {
        std::vector<CString> & cells = (*this)[index].GetValues();
        MakeRoom(cells, cells.size() + 1); // in all columns before any changes: what follows needs no memory
    }
    for (std::size_t index = 0; index < count; ++index)
    {
        std::vector<CString> & cells = (*this)[index].GetValues();
        cells.insert(cells.begin() + std::min<std::ptrdiff_t>(row, std::ssize(cells)), values[index]);
    }
}

void CKrTableData::ReplaceRow(unsigned int row, std::vector<CString> const & values) noexcept
{
    for (CKrTableColumn & column : *this)
        column.GetValues()[row] = values[row];
}

void CKrTableData::RemoveRow(unsigned int row) noexcept
{
    for (CKrTableColumn & column : *this)
        if (row < column.GetValues().size())
            column.GetValues().erase(column.GetValues().begin() + row);
}

void CKrTableData::RemoveAllRows() noexcept
{
    for (CKrTableColumn & column : *this)
        column.GetValues().clear();
}

void CKrTableData::FillMissingValues(CString const & value)
{
    CString const text(value); // which may be a cell that moves
    std::size_t longest = 0;
    for (CKrTableColumn const & column : *this)
        longest = std::max(longest, column.GetValues().size());
    for (CKrTableColumn & column : *this)
        MakeRoom(column.GetValues(), longest);
    for (CKrTableColumn & column : *this)
        column.GetValues().resize(longest, text);
}

bool CKrTableData::GetSize(unsigned int & rows, unsigned int & columns) const noexcept
{
    rows = empty() ? 0 : static_cast<unsigned int>(front().GetValues().size());
    columns = static_cast<unsigned int>(size());
    for (CKrTableColumn const & column : *this)
        rows = std::min(rows, static_cast<unsigned int>(column.GetValues().size()));
    return HasEqualColumnSize();
}

bool CKrTableData::HasData() const noexcept
{
    return std::any_of(begin(), end(), [](CKrTableColumn const & column) { return !column.GetValues().empty(); });
}

bool CKrTableData::HasEqualColumnSize() const noexcept
{
    return std::all_of(begin(), end(),
                       [&](CKrTableColumn const & column)
                       { return column.GetValues().size() == front().GetValues().size(); });
}
