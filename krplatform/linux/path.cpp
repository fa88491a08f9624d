#include <krplatform/base/lasterror.h>
#include <krplatform/linux/path.h>
#include <krplatform/linux/utf8.h>
#include <krplatform/system/errorcodes.h>

#include <algorithm>
#include <memory>

#include <cstdlib>
#include <unistd.h>

namespace kr::detail
{

namespace
{

struct FreeMemory
{
    void operator()(char * memory) const { std::free(memory); }
};

/// Adds the parts of `path` to `result`, each with a `/` in front.
void AppendParts(std::string & result, std::string_view path)
{
    while (!path.empty())
    {
        std::string_view const part = path.substr(0, path.find('/'));
        path.remove_prefix(std::min(part.size() + 1, path.size()));
        if (!part.empty() && part != ".")
            result.append("/").append(part);
    }
}

} // namespace

std::optional<std::string> ToNativePath(WCHAR const * name)
{
    if (!name || !*name)
    {
        SetLastError(ERROR_PATH_NOT_FOUND);
        return std::nullopt;
    }
    std::optional<std::string> path = ToExactUtf8(name);
    if (path)
        std::ranges::replace(*path, '\\', '/');
    else
        SetLastError(ERROR_INVALID_NAME);
    return path;
}

std::basic_string<WCHAR> FromNativePath(std::string_view path)
{
    std::basic_string<WCHAR> name = FromUtf8(path);
    std::ranges::replace(name, OLESTR('/'), OLESTR('\\'));
    if (name.starts_with(OLESTR('\\')) && !name.starts_with(OLESTR("\\\\")))
        name.insert(name.begin(), OLESTR('\\'));
    return name;
}

std::string AbsolutePath(std::string_view path)
{
    std::string result;
    if (!path.starts_with('/'))
    {
        // null where the directory is out of reach; the path then starts from the root and leads nowhere
        std::unique_ptr<char, FreeMemory> const current(getcwd(nullptr, 0));
        if (current)
            AppendParts(result, current.get());
    }
    AppendParts(result, path);
    return result.empty() ? "/" : result;
}

std::string_view FileNameOf(std::string_view path) { return path.substr(path.rfind('/') + 1); }

std::string_view DirectoryOf(std::string_view path) { return path.substr(0, path.rfind('/')); }

} // namespace kr::detail
