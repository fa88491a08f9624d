#include "tests/support/vectors.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <bit>
#include <cstdint>
#include <stdexcept>

namespace kr::test
{

namespace
{

std::string ReadAll(std::string const & path)
{
    // gzopen reads plain files as they are
    gzFile const file = gzopen(path.c_str(), "rb");
    if (!file)
        throw std::runtime_error("cannot open " + path);
    std::string content;
    char buffer[65536];
    for (int count; (count = gzread(file, buffer, sizeof buffer)) > 0;)
        content.append(buffer, static_cast<std::size_t>(count));
    gzclose(file);
    return content;
}

std::vector<std::string> SplitAt(std::string_view text, char separator)
{
    std::vector<std::string> parts;
    for (std::size_t start = 0;;)
    {
        std::size_t const end = text.find(separator, start);
        parts.emplace_back(text.substr(start, end - start));
        if (end == std::string_view::npos)
            return parts;
        start = end + 1;
    }
}

std::uint64_t ReadBits(std::string_view field)
{
    std::size_t const colon = field.find(':');
    return std::stoull(std::string(colon == std::string_view::npos ? field : field.substr(colon + 1)), nullptr, 16);
}

} // namespace

VectorRow::VectorRow(std::vector<std::string> const & columns, std::vector<std::string> fields)
    : m_columns(columns), m_fields(std::move(fields))
{
    m_fields.resize(m_columns.size());
}

std::string const & VectorRow::operator[](std::string_view column) const
{
    for (std::size_t index = 0; index < m_columns.size(); ++index)
    {
        if (m_columns[index] == column)
            return m_fields[index];
    }
    throw std::runtime_error("no column " + std::string(column));
}

std::optional<std::basic_string<WCHAR>> VectorRow::GetText(std::string_view column) const
{
    std::string const & field = (*this)[column];
    if (field == "\\null")
        return std::nullopt;
    return DecodeField(field);
}

long long VectorRow::GetInteger(std::string_view column) const { return std::stoll((*this)[column]); }

HRESULT VectorRow::GetHresult(std::string_view column) const
{
    return static_cast<HRESULT>(static_cast<std::uint32_t>(std::stoul((*this)[column], nullptr, 16)));
}

double VectorRow::GetDouble(std::string_view column) const { return std::bit_cast<double>(ReadBits((*this)[column])); }

float VectorRow::GetFloat(std::string_view column) const
{
    return std::bit_cast<float>(static_cast<std::uint32_t>(ReadBits((*this)[column])));
}

bool VectorRow::IsDoubtful() const
{
    for (std::size_t index = 0; index < m_columns.size(); ++index)
    {
        if (m_columns[index] == "trust")
            return m_fields[index] == "doubt";
    }
    return false;
}

std::string VectorRow::ToString() const
{
    std::string text;
    for (std::size_t index = 0; index < m_columns.size(); ++index)
        text += (index ? ", " : "") + m_columns[index] + " = " + m_fields[index];
    return text;
}

VectorFile::VectorFile(std::string_view name)
{
    std::string const path = std::string(KR_TEST_VECTORS "/").append(name);
    std::string content;
    try
    {
        content = ReadAll(path + ".tsv");
    }
    catch (std::runtime_error const &)
    {
        content = ReadAll(path + ".tsv.gz");
    }
    std::vector<std::string> const lines = SplitAt(content, '\n');
    m_columns = SplitAt(lines.front(), '\t');
    for (std::size_t index = 1; index < lines.size(); ++index)
    {
        if (!lines[index].empty())
            m_rows.emplace_back(m_columns, SplitAt(lines[index], '\t'));
    }
    EXPECT_FALSE(m_rows.empty()) << name;
}

std::basic_string<WCHAR> DecodeField(std::string_view field)
{
    std::basic_string<WCHAR> text;
    if (field == "\\empty")
        return text;
    for (std::size_t index = 0; index < field.size(); ++index)
    {
        if (field[index] == '\\' && index + 5 < field.size() && field[index + 1] == 'u')
        {
            text += static_cast<WCHAR>(std::stoul(std::string(field.substr(index + 2, 4)), nullptr, 16));
            index += 5;
        }
        else
            text += static_cast<WCHAR>(static_cast<unsigned char>(field[index]));
    }
    return text;
}

} // namespace kr::test
