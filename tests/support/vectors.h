// The vector files: facts about platform functions, one row a question.
#pragma once

#include <krplatform/base/types.h>

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace kr::test
{

/// One row of a vector file; fields are found by the name of their column.
class VectorRow
{
public:
    VectorRow(std::vector<std::string> const & columns, std::vector<std::string> fields);

    /// The field as it stands in the file. A column that the file lacks fails the test.
    std::string const & operator[](std::string_view column) const;

    /// The text of a field, its escapes decoded; none for "\null".
    std::optional<std::basic_string<WCHAR>> GetText(std::string_view column) const;
    long long GetInteger(std::string_view column) const;
    HRESULT GetHresult(std::string_view column = "hr") const;
    /// The double of a field of 16 hexadecimal digits, or of "value:digits".
    double GetDouble(std::string_view column) const;
    float GetFloat(std::string_view column) const;

    /// Whether the row's answer may differ between versions of the platform.
    bool IsDoubtful() const;

    /// The whole row, for the message of a failing test.
    std::string ToString() const;

private:
    std::vector<std::string> const & m_columns;
    std::vector<std::string> m_fields;
};

/// The rows of a vector file, `tests/vectors/<name>.tsv` or `.tsv.gz`. The object must outlive its rows.
class VectorFile
{
public:
    explicit VectorFile(std::string_view name);

    std::vector<VectorRow> const & GetRows() const { return m_rows; }

private:
    std::vector<std::string> m_columns;
    std::vector<VectorRow> m_rows;
};

/// Decodes the escapes of a field: \uXXXX, and "\empty" for empty text.
std::basic_string<WCHAR> DecodeField(std::string_view field);

} // namespace kr::test
