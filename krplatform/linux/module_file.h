// What a module's file tells before it is loaded.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <link.h>

namespace kr::detail
{

/// Reads a module's file with care: whatever the bytes are, nothing outside the file is touched. Throws
/// `std::bad_alloc` when memory runs out.
class ModuleFile
{
public:
    explicit ModuleFile(std::string const & path);
    ~ModuleFile();
    ModuleFile(ModuleFile const &) = delete;
    ModuleFile & operator=(ModuleFile const &) = delete;

    /// Whether there is a file that can be read.
    bool IsOpen() const { return m_file >= 0; }

    /// Whether this is a module of this machine's kind and all parts that are loaded lie in the file. The loader does
    /// not look: a process that loads half a file ends at the first touch of the missing half.
    bool IsComplete() const;

    /// The names of the libraries that it asks the loader for, in the file's order. None for a damaged file.
    std::vector<std::string> NeededLibraries() const;

private:
    /// `count` values from `offset` on; none if they do not lie in the file as a whole.
    template <class T>
    std::vector<T> Read(std::uint64_t offset, std::uint64_t count) const;
    bool Holds(std::uint64_t offset, std::uint64_t count, std::uint64_t size) const;

    std::uint64_t m_size = 0;
    int m_file; ///< -1 if it is no regular file or cannot be opened
    std::vector<ElfW(Phdr)> m_segments;
};

} // namespace kr::detail
