#include <krplatform/linux/utf8.h>
#include <krplatform/system/environment.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <new>

namespace
{

/// The value of a variable; null if it is not set, as for a name that no variable can have.
char const * FindVariable(WCHAR const * name)
{
    std::optional<std::string> const bytes = kr::detail::ToExactUtf8(name);
    if (!bytes || bytes->find('=') != bytes->npos)
        return nullptr;
    return std::getenv(bytes->c_str());
}

} // namespace

int _wdupenv_s(WCHAR ** buffer, std::size_t * count, WCHAR const * name)
{
    if (buffer)
        *buffer = nullptr;
    if (count)
        *count = 0;
    if (!buffer || !name)
        return EINVAL;
    try
    {
        char const * const value = FindVariable(name);
        if (!value)
            return 0;
        std::basic_string<WCHAR> const text = kr::detail::FromUtf8(value);
        *buffer = static_cast<WCHAR *>(std::malloc((text.size() + 1) * sizeof(WCHAR)));
        if (!*buffer)
            return ENOMEM; // GCOVR_EXCL_LINE: the tests can make operator new fail, but not malloc
        std::copy_n(text.c_str(), text.size() + 1, *buffer);
        if (count)
            *count = text.size() + 1;
        return 0;
    }
    catch (std::bad_alloc const &)
    {
        return ENOMEM;
    }
}
