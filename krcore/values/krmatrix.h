// A matrix of values by rows and columns.
#pragma once

#include <krplatform/base/cexception.h>

#include <algorithm>
#include <utility>
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
    /// The source is left without rows and columns.
    matrix(matrix && other) noexcept
        : m_rows(std::exchange(other.m_rows, 0)),
          m_columns(std::exchange(other.m_columns, 0)),
          m_elements(std::move(other.m_elements))
    {
    }
    /// Copies, or moves from a temporary. When memory runs out the matrix stays as it was.
    matrix & operator=(matrix other) noexcept
    {
        m_rows = other.m_rows;
        m_columns = other.m_columns;
        m_elements.swap(other.m_elements);
        return *this;
    }
    virtual ~matrix() = default;

    int GetRows() const noexcept { return m_rows; }
    int GetColumns() const noexcept { return m_columns; }

    /// Makes the matrix that large. The elements stay in their order, row after row, whatever the old shape was;
    /// numbers below 0 count as 0. Throws `std::bad_alloc` or `std::length_error` for more elements than memory holds;
    /// the matrix then stays as it was.
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
