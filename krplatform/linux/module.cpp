#include <krplatform/linux/loaded_modules.h>
#include <krplatform/linux/path.h>
#include <krplatform/system/module.h>
#include <krplatform/system/no_memory.h>

#include <algorithm>

#include <dlfcn.h>
#include <link.h>

using namespace kr::detail;

namespace
{

std::optional<LoadedModule> FindByNameOrPath(std::string const & name)
{
    if (name.find('/') != name.npos)
        return FindModuleByPath(AbsolutePath(name));
    std::optional<LoadedModule> module = FindModuleByFileName(name);
    return module ? module : FindModuleByBaseName(name);
}

HMODULE Find(WCHAR const * name)
{
    std::optional<std::string> const native = ToNativePath(name);
    std::optional<LoadedModule> const module = native ? FindByNameOrPath(*native) : std::nullopt;
    if (module)
        return module->handle;
    SetLastError(ERROR_MOD_NOT_FOUND);
    return nullptr;
}

DWORD CopyPath(char const * loaderName, WCHAR * path, DWORD size)
{
    std::basic_string<WCHAR> const whole = FromNativePath(PathOf(loaderName));
    std::size_t const length = std::min<std::size_t>(whole.size(), size - 1);
    std::copy_n(whole.data(), length, path);
    path[length] = 0;
    if (length == whole.size())
        return static_cast<DWORD>(length);
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return size;
}

} // namespace

HMODULE GetModuleHandleW(WCHAR const * name)
{
    return name ? UnlessMemoryRunsOut<HMODULE>(nullptr, [&] { return Find(name); }) : ProgramModule();
}

DWORD GetModuleFileNameW(HMODULE module, WCHAR * path, DWORD size)
{
    if (!path || size == 0)
    {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    path[0] = 0;
    char const * const loaderName = LoaderNameOf(module);
    return loaderName ? UnlessMemoryRunsOut<DWORD>(0, [&] { return CopyPath(loaderName, path, size); }) : 0;
}

FARPROC GetProcAddress(HMODULE module, char const * name)
{
    if (name)
        return reinterpret_cast<FARPROC>(FindSymbol(module, name));
    SetLastError(ERROR_PROC_NOT_FOUND);
    return nullptr;
}

HMODULE AfxModuleFromAddress(void const * address)
{
    Dl_info facts;
    link_map * entry = nullptr;
    if (!dladdr1(address, &facts, reinterpret_cast<void **>(&entry), RTLD_DL_LINKMAP))
        return nullptr;
    return reinterpret_cast<HMODULE>(entry);
}
