#include <krplatform/linux/loaded_modules.h>
#include <krplatform/linux/path.h>

#include <algorithm>
#include <new>

#include <climits>
#include <dlfcn.h>
#include <link.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kr::detail
{

namespace
{

HMODULE HandleOf(link_map const * entry) { return reinterpret_cast<HMODULE>(const_cast<link_map *>(entry)); }

link_map const * EntryOf(void * loaderHandle)
{
    link_map const * entry = nullptr;
    dlinfo(loaderHandle, RTLD_DI_LINKMAP, &entry);
    return entry;
}

/// The program's entry, with which the list begins.
link_map const * FirstEntry()
{
    static link_map const * const s_first = EntryOf(ModuleReference(dlopen(nullptr, RTLD_LAZY)).Get());
    return s_first;
}

/// The loader calls this with its list locked, once for each module. The first call walks the whole list.
template <class Visitor>
int WalkEntries(dl_phdr_info *, std::size_t, void * visitor)
{
    link_map const * entry = FirstEntry();
    while (entry && !(*static_cast<Visitor *>(visitor))(entry))
        entry = entry->l_next;
    return 1; // no call for the other modules
}

/// Calls `visit` with each entry of the loader's list, until it returns true. The list is locked meanwhile, and an
/// exception must not pass the loader.
template <class Visitor>
void VisitEntries(Visitor visit)
{
    FirstEntry(); // which asks the loader the first time, and so not when the list is locked
    dl_iterate_phdr(WalkEntries<Visitor>, &visit);
}

/// Adds the module; false when memory runs out.
bool Add(std::vector<LoadedModule> & modules, link_map const * entry)
{
    // a name without a directory is that of code without a file, which the kernel adds to every process
    std::string_view const name = entry->l_name;
    if (!name.empty() && name.find('/') == name.npos)
        return true;
    try
    {
        modules.push_back({HandleOf(entry), std::string(name)});
        return true;
    }
    catch (std::bad_alloc const &)
    {
        return false;
    }
}

std::string PathOfProgram()
{
    char path[PATH_MAX];
    ssize_t const length = readlink("/proc/self/exe", path, sizeof path);
    return std::string(path, length > 0 ? static_cast<std::size_t>(length) : 0);
}

/// The path of a module that was loaded by a relative one. The loader has kept the directory it had then.
std::string PathOfRelative(std::string const & loaderName)
{
    ModuleReference const reference(loaderName.c_str());
    char directory[2 * PATH_MAX] = ""; // the current directory of that time and the relative path
    if (reference)
        dlinfo(reference.Get(), RTLD_DI_ORIGIN, directory);
    return AbsolutePath(std::string(directory).append("/").append(FileNameOf(loaderName)));
}

/// The first module whose file name meets `isMeant`.
template <class Predicate>
std::optional<LoadedModule> FindFirst(Predicate isMeant)
{
    std::vector<LoadedModule> modules = LoadedModules();
    for (LoadedModule & module : modules)
    {
        std::string const path = module.loaderName.empty() ? PathOfProgram() : module.loaderName;
        if (isMeant(FileNameOf(path)))
            return std::move(module);
    }
    return std::nullopt;
}

} // namespace

std::vector<LoadedModule> LoadedModules()
{
    std::vector<LoadedModule> modules;
    bool isComplete = true;
    VisitEntries([&](link_map const * entry) { return !(isComplete = Add(modules, entry)); });
    if (!isComplete)
        throw std::bad_alloc();
    return modules;
}

HMODULE ProgramModule() { return HandleOf(FirstEntry()); }

char const * LoaderNameOf(HMODULE handle)
{
    if (!handle)
        return "";
    char const * name = nullptr;
    VisitEntries([&](link_map const * entry) { return HandleOf(entry) == handle && (name = entry->l_name); });
    if (!name)
        SetLastError(ERROR_INVALID_HANDLE);
    return name;
}

std::string PathOf(std::string const & loaderName)
{
    if (loaderName.empty())
        return PathOfProgram();
    return loaderName.starts_with('/') ? loaderName : PathOfRelative(loaderName);
}

std::optional<LoadedModule> FindModuleByFileName(std::string_view fileName)
{
    return FindFirst([fileName](std::string_view name) { return name == fileName; });
}

std::optional<LoadedModule> FindModuleByBaseName(std::string_view baseName)
{
    return FindFirst([baseName](std::string_view name) { return name.substr(0, name.rfind('.')) == baseName; });
}

std::optional<LoadedModule> FindModuleByPath(std::string const & path)
{
    struct stat wanted;
    bool const exists = stat(path.c_str(), &wanted) == 0;
    std::vector<LoadedModule> modules = LoadedModules();
    for (LoadedModule & module : modules)
    {
        std::string const modulePath = PathOf(module.loaderName);
        struct stat facts;
        if (modulePath == path || (exists && stat(modulePath.c_str(), &facts) == 0 && facts.st_dev == wanted.st_dev &&
                                   facts.st_ino == wanted.st_ino))
            return std::move(module);
    }
    return std::nullopt;
}

void * FindSymbol(HMODULE handle, char const * name)
{
    char const * const loaderName = LoaderNameOf(handle);
    if (!loaderName)
        return nullptr;
    ModuleReference const reference(loaderName);
    void * const symbol = reference ? dlsym(reference.Get(), name) : nullptr;
    // dlsym looks into the libraries that the module needs as well
    if (symbol && AfxModuleFromAddress(symbol) == (handle ? handle : ProgramModule()))
        return symbol;
    SetLastError(ERROR_PROC_NOT_FOUND);
    return nullptr;
}

ModuleReference::ModuleReference(char const * loaderName)
    : m_handle(dlopen(*loaderName ? loaderName : nullptr, RTLD_LAZY | RTLD_NOLOAD))
{
}

ModuleReference::~ModuleReference()
{
    if (m_handle)
        dlclose(m_handle);
}

HMODULE ModuleReference::Release()
{
    HMODULE const module = m_handle ? HandleOf(EntryOf(m_handle)) : nullptr;
    m_handle = nullptr;
    return module;
}

} // namespace kr::detail
