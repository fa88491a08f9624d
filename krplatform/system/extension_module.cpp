#include <krplatform/system/no_memory.h>
#include <krplatform/system/resource.h>

#include <mutex>
#include <vector>

namespace
{

std::mutex s_mutex;
CDynLinkLibrary * s_newest = nullptr; // guarded by s_mutex

/// The newest record of `module`, or of any with `all`; null if there is none.
CDynLinkLibrary * FindKnown(HMODULE module, bool all)
{
    std::lock_guard const lock(s_mutex);
    CDynLinkLibrary * library = s_newest;
    while (library && !all && library->m_hModule != module)
        library = library->m_pNextDLL;
    return library;
}

/// The resource modules, newest first. They are asked for strings without the lock: a module that is being loaded holds
/// the loader's lock when it takes this one.
std::vector<HMODULE> KnownResources()
{
    std::lock_guard const lock(s_mutex);
    std::vector<HMODULE> modules;
    for (CDynLinkLibrary const * library = s_newest; library; library = library->m_pNextDLL)
        modules.push_back(library->m_hResource);
    return modules;
}

bool HasString(HMODULE module, UINT id)
{
    WCHAR const * text = nullptr;
    LoadStringW(module, id, reinterpret_cast<WCHAR *>(&text), 0);
    return text != nullptr;
}

HMODULE FindKnownWithString(UINT id, HMODULE otherwise)
{
    for (HMODULE const module : KnownResources())
    {
        if (module && HasString(module, id))
            return module;
    }
    return otherwise;
}

} // namespace

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE & record, HMODULE module)
{
    if (!module)
        return FALSE;
    record = {TRUE, module, module};
    return TRUE;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE & record, BOOL all)
{
    while (CDynLinkLibrary * const library = FindKnown(record.hModule, all != FALSE))
        delete library;
    record = {};
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE & record)
    : m_hModule(record.hModule), m_hResource(record.hResource)
{
    std::lock_guard const lock(s_mutex);
    m_pNextDLL = s_newest;
    s_newest = this;
}

CDynLinkLibrary::~CDynLinkLibrary()
{
    std::lock_guard const lock(s_mutex);
    CDynLinkLibrary ** link = &s_newest;
    while (*link != this)
        link = &(*link)->m_pNextDLL;
    *link = m_pNextDLL;
}

HINSTANCE AfxFindStringResourceHandle(UINT id)
{
    HINSTANCE const current = AfxGetResourceHandle();
    if (HasString(current, id))
        return current;
    return kr::detail::UnlessMemoryRunsOut<HINSTANCE>(current, [&] { return FindKnownWithString(id, current); });
}
