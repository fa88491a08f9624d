// Libraries that are taken from the directory of the module that needs them.
#pragma once

#include <string>
#include <vector>

namespace kr::detail
{

/// The loader fixes its search path when the program starts, and where a module needs a library that is in memory
/// already, it takes that one. So libraries beside a module are loaded before it by their paths, and held until the
/// module, which then holds them itself, is in memory.
///
/// The loader knows them again by the name they carry (their SONAME, as every linked library has one).
class LibrariesBeside
{
public:
    LibrariesBeside() = default;
    ~LibrariesBeside();
    LibrariesBeside(LibrariesBeside const &) = delete;
    LibrariesBeside & operator=(LibrariesBeside const &) = delete;

    /// Loads the libraries that the file at `path` (absolute) needs and that lie in its directory, those first that
    /// they need themselves. What is in memory already, lies elsewhere or cannot be loaded is left to the loader.
    void LoadNeededBy(std::string const & path);

private:
    void Load(std::string const & directory, std::string const & name);

    std::vector<std::string> m_seen;
    std::vector<void *> m_held;
};

} // namespace kr::detail
