#include <krplatform/linux/loaded_modules.h>
#include <krplatform/system/resource.h>

#include <algorithm>

using namespace kr::detail;

extern "C" [[gnu::weak]] AfxStringEntry const AfxStringTable[];

namespace
{

/// A program exports only what the libraries it is linked with ask for. This asks for its table; it is found through
/// the loader like that of any module.
[[gnu::used]] AfxStringEntry const * const s_request = AfxStringTable;

/// The text of that number; null, with the last error set, if the module has none.
WCHAR const * FindString(HINSTANCE module, UINT id)
{
    auto const * entry = static_cast<AfxStringEntry const *>(FindSymbol(module, AfxStringTableSymbol));
    if (!entry)
    {
        if (GetLastError() == ERROR_PROC_NOT_FOUND)
            SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
        return nullptr;
    }
    while (entry->text && entry->id != id)
        ++entry;
    if (!entry->text)
        SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
    return entry->text;
}

} // namespace

int LoadStringW(HINSTANCE module, UINT id, WCHAR * buffer, int size)
{
    if (!buffer || size < 0)
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    WCHAR const * const text = FindString(module, id);
    TextView const string = text ? TextView(text) : TextView();
    if (size == 0)
    {
        *reinterpret_cast<WCHAR const **>(buffer) = text;
        return static_cast<int>(string.size());
    }
    std::size_t const length = std::min(string.size(), static_cast<std::size_t>(size - 1));
    std::copy_n(string.data(), length, buffer);
    buffer[length] = 0;
    return static_cast<int>(length);
}
