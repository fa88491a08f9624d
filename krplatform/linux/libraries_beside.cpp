#include <krplatform/linux/libraries_beside.h>
#include <krplatform/linux/loaded_modules.h>
#include <krplatform/linux/module_file.h>
#include <krplatform/linux/path.h>

#include <algorithm>

#include <dlfcn.h>

namespace kr::detail
{

LibrariesBeside::~LibrariesBeside()
{
    while (!m_held.empty())
    {
        dlclose(m_held.back());
        m_held.pop_back();
    }
}

void LibrariesBeside::LoadNeededBy(std::string const & path)
{
    std::string const directory(DirectoryOf(path));
    for (std::string const & name : ModuleFile(path).NeededLibraries())
    {
        if (name.find('/') == name.npos && std::ranges::find(m_seen, name) == m_seen.end())
            Load(directory, name);
    }
}

void LibrariesBeside::Load(std::string const & directory, std::string const & name)
{
    m_seen.push_back(name);
    std::string const path = directory + "/" + name;
    if (!ModuleFile(path).IsComplete() || ModuleReference(dlopen(name.c_str(), RTLD_LAZY | RTLD_NOLOAD)))
        return;
    LoadNeededBy(path);
    m_held.reserve(m_held.size() + 1);
    if (void * const handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL))
        m_held.push_back(handle);
}

} // namespace kr::detail
