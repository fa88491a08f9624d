// The modules in memory, as the loader lists them.
#pragma once

#include <krplatform/system/module.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kr::detail
{

/// A handle is the address of the module's entry in the loader's list: the same for every load of one module, and valid
/// as long as the module stays in memory.
struct LoadedModule
{
    HMODULE handle;
    std::string loaderName;
};

/// The program first, the others in the order of loading. Throws `std::bad_alloc` when memory runs out.
std::vector<LoadedModule> LoadedModules();

HMODULE ProgramModule();

/// The path by which a module (null: the program) was loaded; empty for the program. The loader's own text, which stays
/// as long as the module. Null, with the last error set, if the handle is not in the loader's list, so that a stale one
/// is answered and not followed.
char const * LoaderNameOf(HMODULE handle);

/// The full path of a module in memory, by its loader's name.
std::string PathOf(std::string const & loaderName);

/// A module by the name of its file, without a directory.
std::optional<LoadedModule> FindModuleByFileName(std::string_view fileName);

/// A module by the name of its file without the last ending.
std::optional<LoadedModule> FindModuleByBaseName(std::string_view baseName);

/// A module by an absolute path to its file, in any spelling and through links.
std::optional<LoadedModule> FindModuleByPath(std::string const & path);

/// The address of a symbol that the module itself exports; null, with the last error set, if there is none. What the
/// libraries export that the module needs does not count.
void * FindSymbol(HMODULE handle, char const * name);

/// One load of a module, taken back in the end unless it is released to a caller.
class ModuleReference
{
public:
    explicit ModuleReference(void * loaderHandle) : m_handle(loaderHandle) {}
    /// Holds a module in memory by its loader's name; empty where it has left in the meantime.
    explicit ModuleReference(char const * loaderName);
    ~ModuleReference();
    ModuleReference(ModuleReference const &) = delete;
    ModuleReference & operator=(ModuleReference const &) = delete;

    explicit operator bool() const { return m_handle != nullptr; }
    void * Get() const { return m_handle; }
    /// Gives the load to the caller, who takes it back with `FreeLibrary`. Null if there is none.
    HMODULE Release();

private:
    void * m_handle;
};

} // namespace kr::detail
