#include <krplatform/linux/path.h>
#include <krplatform/linux/system_error.h>
#include <krplatform/system/file.h>
#include <krplatform/system/no_memory.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace kr::detail;

namespace
{

bool HasHiddenName(std::string_view path)
{
    while (path.ends_with('/'))
        path.remove_suffix(1);
    std::string_view const name = FileNameOf(path);
    return name.starts_with('.') && name != "." && name != "..";
}

DWORD AttributesOf(std::string const & path, struct statx const & facts)
{
    DWORD attributes = 0;
    if (S_ISDIR(facts.stx_mode))
        attributes |= FILE_ATTRIBUTE_DIRECTORY;
    if (faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0)
        attributes |= FILE_ATTRIBUTE_READONLY;
    if (HasHiddenName(path))
        attributes |= FILE_ATTRIBUTE_HIDDEN;
    return attributes;
}

/// False, with the last error set, if there is no such file.
bool Ask(std::string const & path, struct statx & facts)
{
    if (statx(AT_FDCWD, path.c_str(), 0, STATX_BASIC_STATS | STATX_BTIME, &facts) == 0)
        return true;
    SetLastErrorFromSystem();
    return false;
}

CString TextOf(std::basic_string<WCHAR> const & text) { return {text.data(), static_cast<int>(text.size())}; }

DWORD AttributesByName(WCHAR const * name)
{
    std::optional<std::string> const path = ToNativePath(name);
    struct statx facts;
    if (!path || !Ask(*path, facts))
        return INVALID_FILE_ATTRIBUTES;
    DWORD const attributes = AttributesOf(*path, facts);
    return attributes ? attributes : FILE_ATTRIBUTE_NORMAL;
}

BOOL FillByName(WCHAR const * name, CFileStatus & status)
{
    std::optional<std::string> const path = ToNativePath(name);
    struct statx facts;
    if (!path || !Ask(*path, facts))
        return FALSE;
    CString const fullName = TextOf(FromNativePath(AbsolutePath(*path)));
    bool const knowsMaking = (facts.stx_mask & STATX_BTIME) != 0;
    status.m_ctime = CTime(knowsMaking ? facts.stx_btime.tv_sec : facts.stx_ctime.tv_sec);
    status.m_mtime = CTime(facts.stx_mtime.tv_sec);
    status.m_atime = CTime(facts.stx_atime.tv_sec);
    status.m_size = S_ISDIR(facts.stx_mode) ? 0 : facts.stx_size;
    status.m_attribute = static_cast<BYTE>(AttributesOf(*path, facts));
    status.m_strFullName = fullName;
    return TRUE;
}

} // namespace

DWORD GetFileAttributesW(WCHAR const * name)
{
    return UnlessMemoryRunsOut<DWORD>(INVALID_FILE_ATTRIBUTES, [&] { return AttributesByName(name); });
}

BOOL CFile::GetStatus(WCHAR const * name, CFileStatus & status)
{
    return UnlessMemoryRunsOut<BOOL>(FALSE, [&] { return FillByName(name, status); });
}
