// A file for traces that is deleted in the end.
#pragma once

#include <filesystem>
#include <string>

namespace kr::bench
{

class TraceFile
{
public:
    explicit TraceFile(std::string const & name) : m_path(std::filesystem::temp_directory_path() / name) {}
    ~TraceFile()
    {
        std::error_code ignored;
        std::filesystem::remove(m_path, ignored);
    }
    TraceFile(TraceFile const &) = delete;
    TraceFile & operator=(TraceFile const &) = delete;

    std::string GetName() const { return m_path.string(); }

private:
    std::filesystem::path m_path;
};

/// What is traced.
inline constexpr char const * line = "layer Walls: colour 7 becomes 1, 3 of 17 layers changed";

} // namespace kr::bench
