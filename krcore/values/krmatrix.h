// A matrix of values by rows and columns.
#pragma once

#include <krplatform/base/cexception.h>

#include <algorithm>
#include <vector>

namespace kr
{

/// Rows and columns of values, held row after row. A new matrix has neither rows nor columns.
///
///     kr::matrix<CString> names;
///     names.Resize(2, 3);
///     names.At(9, 9)              -> the element of the last row and column: indexes are held within the matrix
template <class T>
class matrix
{
public:
    matrix() = default;
    matrix(matrix const &) = default;
    matrix(matrix &&) noexcept = default;
    matrix & operator=(matrix const &) = default;
    matrix & operator=(matrix &&) noexcept = default;
    virtual ~matrix() = default;

    int GetRows() const noexcept { return m_rows; }
    int GetColumns() const noexcept { return m_columns; }

    /// Makes the matrix that large. The elements stay in their order, row after row, whatever the old shape was; numbers below 0
    /// count as 0.
    void Resize(int rows, int columns)
    {
        rows = std::max(rows, 0);
        columns = std::max(columns, 0);
        m_elements.resize(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns));
        m_rows = rows;
        m_columns = columns;
    }

    /// The element; an index outside is held at the first or last one. A matrix without elements raises E_INVALIDARG.
    T & At(int row, int column) { return m_elements[PlaceOf(row, column)]; }
    T const & At(int row, int column) const { return m_elements[PlaceOf(row, column)]; }

private:
    std::size_t PlaceOf(int row, int column) const
    {
        if (m_elements.empty())
            AtlThrow(E_INVALIDARG);
        return static_cast<std::size_t>(std::clamp(row, 0, m_rows - 1)) * static_cast<std::size_t>(m_columns) +
               static_cast<std::size_t>(std::clamp(column, 0, m_columns - 1));
    }

    int m_rows = 0;
    int m_columns = 0;
    std::vector<T> m_elements;
};

} // namespace kr
