#include <krplatform/linux/libraries_beside.h>
#include <krplatform/linux/loaded_modules.h>
#include <krplatform/linux/module_file.h>
#include <krplatform/linux/path.h>
#include <krplatform/system/errorcodes.h>
#include <krplatform/system/module.h>
#include <krplatform/system/no_memory.h>

#include <dlfcn.h>
#include <locale.h>

using namespace kr::detail;

namespace
{

struct LoaderMessage
{
    std::string_view part;
    DWORD code;
};

// The loader tells why it failed in words only. The first row whose words occur counts.
// clang-format off
constexpr LoaderMessage s_messages[] = {
    { "Permission denied",              ERROR_ACCESS_DENIED     },
    { "Is a directory",                 ERROR_ACCESS_DENIED     },
    { "cannot open shared object file", ERROR_MOD_NOT_FOUND     },  // the module, or one that it needs
    { "undefined symbol",               ERROR_PROC_NOT_FOUND    },
    { "version `",                      ERROR_PROC_NOT_FOUND    },  // a needed library is too old
    { "annot allocate memory",          ERROR_NOT_ENOUGH_MEMORY },  // told with and without a capital
};
// clang-format on

/// The last message of the loader in English, whatever language the program has set for the C library. Valid until the
/// next call of the loader in this thread.
std::string_view LastLoaderMessage()
{
    static locale_t const s_english = newlocale(LC_ALL_MASK, "C", locale_t());
    locale_t const before = uselocale(s_english);
    char const * const message = dlerror();
    uselocale(before);
    return message ? message : "";
}

/// What kept the module at `path` from being loaded. Any other failure than those listed is one of the file's content.
DWORD CodeOfLoaderFailure(std::string_view path)
{
    std::string_view message = LastLoaderMessage();
    if (message.starts_with(path))
        message.remove_prefix(path.size());
    for (LoaderMessage const & row : s_messages)
    {
        if (message.find(row.part) != message.npos)
            return row.code;
    }
    return ERROR_BAD_EXE_FORMAT;
}

/// One more load of a module in memory; null if it is none.
HMODULE LoadAgain(std::optional<LoadedModule> const & module)
{
    return module ? ModuleReference(module->loaderName.c_str()).Release() : nullptr;
}

HMODULE LoadAnew(std::string const & nameOrPath)
{
    ModuleReference reference(dlopen(nameOrPath.c_str(), RTLD_NOW | RTLD_LOCAL));
    if (!reference)
        SetLastError(CodeOfLoaderFailure(nameOrPath));
    return reference.Release();
}

HMODULE LoadByPath(std::string const & path, bool searchesBeside)
{
    if (HMODULE const module = LoadAgain(FindModuleByPath(path)))
        return module;
    if (ModuleFile const file(path); file.IsOpen() && !file.IsComplete())
    {
        SetLastError(ERROR_BAD_EXE_FORMAT);
        return nullptr;
    }
    LibrariesBeside beside;
    if (searchesBeside)
        beside.LoadNeededBy(path);
    return LoadAnew(path);
}

HMODULE LoadByName(std::string const & name)
{
    if (HMODULE const module = LoadAgain(FindModuleByFileName(name)))
        return module;
    std::string const besideProgram = std::string(DirectoryOf(PathOf(LoaderNameOf(nullptr)))).append("/").append(name);
    return ModuleFile(besideProgram).IsOpen() ? LoadByPath(besideProgram, false) : LoadAnew(name);
}

HMODULE LoadByNameOrPath(WCHAR const * fileName, bool searchesBeside)
{
    std::optional<std::string> const name = ToNativePath(fileName);
    if (!name)
        return nullptr;
    bool const isPath = name->find('/') != name->npos;
    return isPath ? LoadByPath(AbsolutePath(*name), searchesBeside) : LoadByName(*name);
}

} // namespace

HMODULE LoadLibraryExW(WCHAR const * fileName, void *, DWORD flags)
{
    if (!fileName || !*fileName || (flags & ~LOAD_WITH_ALTERED_SEARCH_PATH) != 0)
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    return UnlessMemoryRunsOut<HMODULE>(nullptr, [&] { return LoadByNameOrPath(fileName, flags != 0); });
}

HINSTANCE AfxLoadLibrary(WCHAR const * fileName) { return LoadLibraryExW(fileName, nullptr, 0); }

BOOL FreeLibrary(HMODULE module)
{
    char const * const name = module ? LoaderNameOf(module) : nullptr;
    if (!name)
    {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    // The reference is taken back at once and only tells the loader's handle, so that what is closed is the caller's
    // load. Closing fails where none is left, as for a library that the program was linked with.
    void * const handle = ModuleReference(name).Get();
    if (module != ProgramModule() && handle && dlclose(handle) == 0)
        return TRUE;
    SetLastError(ERROR_BUSY);
    return FALSE;
}

BOOL AfxFreeLibrary(HINSTANCE module) { return FreeLibrary(module); }
