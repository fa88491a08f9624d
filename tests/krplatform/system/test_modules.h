// The modules that the tests load, each test from a directory of its own.
#pragma once

#include "tests/krplatform/system/surroundings.h"

#include <krplatform/system/module.h>

namespace kr::test
{

/// The directory where the build has put the modules.
std::filesystem::path BuiltModules();

/// Copies a module of the build into `directory`, under another name if one is given, and returns its path.
std::filesystem::path CopyModule(std::string_view module, TemporaryDirectory const & directory,
                                 std::string_view name = {});

/// How many modules in memory come from below `directory`, by the loader's own list.
int CountLoadedFrom(std::filesystem::path const & directory);

/// Loads a module by its path, and frees it in the end unless it was freed before.
class LoadedForTest
{
public:
    explicit LoadedForTest(std::filesystem::path const & path)
        : m_module(LoadLibraryExW(NameOf(path).c_str(), nullptr, 0))
    {
        EXPECT_NE(m_module, nullptr) << path;
    }
    ~LoadedForTest()
    {
        if (m_module)
            FreeLibrary(m_module);
    }
    LoadedForTest(LoadedForTest const &) = delete;
    LoadedForTest & operator=(LoadedForTest const &) = delete;

    operator HMODULE() const { return m_module; }
    /// Frees the module now and gives its old handle.
    HMODULE Free()
    {
        HMODULE const module = m_module;
        EXPECT_TRUE(FreeLibrary(module));
        m_module = nullptr;
        return module;
    }

private:
    HMODULE m_module;
};

} // namespace kr::test
