#include <krplatform/linux/path.h>
#include <krplatform/linux/system_error.h>
#include <krplatform/system/file.h>
#include <krplatform/system/no_memory.h>

#include <cerrno>
#include <climits>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace kr::detail;

namespace
{

/// An open file, closed in the end unless it is released to a caller.
class OpenFile
{
public:
    OpenFile(std::string const & path, int flags) : m_file(open(path.c_str(), flags, 0666)) {}
    ~OpenFile()
    {
        if (m_file >= 0)
            close(m_file);
    }
    OpenFile(OpenFile const &) = delete;
    OpenFile & operator=(OpenFile const &) = delete;

    explicit operator bool() const { return m_file >= 0; }
    int Get() const { return m_file; }
    /// A handle is the number of the file and one, so that none is null.
    HANDLE Release()
    {
        auto const handle = reinterpret_cast<HANDLE>(static_cast<std::uintptr_t>(m_file) + 1);
        m_file = -1;
        return handle;
    }

private:
    int m_file;
};

/// The number of the file; -1 for a handle that cannot be one.
int FileOf(HANDLE handle)
{
    auto const value = reinterpret_cast<std::uintptr_t>(handle);
    return value >= 1 && value <= static_cast<std::uintptr_t>(INT_MAX) ? static_cast<int>(value - 1) : -1;
}

bool Refuse(DWORD code)
{
    SetLastError(code);
    return false;
}

bool AreUnderstood(DWORD access, DWORD creation)
{
    bool const writes = (access & GENERIC_WRITE) != 0;
    bool const reads = (access & GENERIC_READ) != 0;
    return (access & ~(GENERIC_READ | GENERIC_WRITE)) == 0 && (reads || writes) &&
           (creation == OPEN_EXISTING || (creation == CREATE_ALWAYS && writes));
}

/// O_NONBLOCK lets opening a pipe wait for nobody. The file is emptied only when it is known to be free.
int OpenFlags(DWORD access, DWORD creation)
{
    int const mode = !(access & GENERIC_WRITE) ? O_RDONLY : (access & GENERIC_READ) ? O_RDWR : O_WRONLY;
    return mode | O_CLOEXEC | O_NOCTTY | O_NONBLOCK | (creation == CREATE_ALWAYS ? O_CREAT : 0);
}

/// Locks the file as `share` asks for. A file system without locks shares every file.
bool Lock(OpenFile const & file, DWORD share)
{
    int const kind = share & (FILE_SHARE_READ | FILE_SHARE_WRITE) ? LOCK_SH : LOCK_EX;
    if (flock(file.Get(), kind | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        return Refuse(ERROR_SHARING_VIOLATION);
    return true;
}

bool Prepare(OpenFile const & file, DWORD share, DWORD creation)
{
    struct stat facts;
    if (!file || fstat(file.Get(), &facts) != 0)
        return Refuse(CodeOfSystemError(errno));
    if (S_ISDIR(facts.st_mode))
        return Refuse(ERROR_ACCESS_DENIED);
    if (!Lock(file, share))
        return false;
    bool const isEmptied = creation == CREATE_ALWAYS && S_ISREG(facts.st_mode);
    if ((isEmptied && ftruncate(file.Get(), 0) != 0) ||
        fcntl(file.Get(), F_SETFL, fcntl(file.Get(), F_GETFL) & ~O_NONBLOCK) != 0)
        return Refuse(CodeOfSystemError(errno));
    return true;
}

HANDLE OpenByName(WCHAR const * name, DWORD access, DWORD share, DWORD creation)
{
    std::optional<std::string> const path = ToNativePath(name);
    if (!path)
        return INVALID_HANDLE_VALUE;
    OpenFile file(*path, OpenFlags(access, creation));
    return Prepare(file, share, creation) ? file.Release() : INVALID_HANDLE_VALUE;
}

} // namespace

HANDLE CreateFileW(WCHAR const * name, DWORD access, DWORD share, void *, DWORD creation, DWORD, HANDLE)
{
    if (!AreUnderstood(access, creation))
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return INVALID_HANDLE_VALUE;
    }
    return UnlessMemoryRunsOut<HANDLE>(INVALID_HANDLE_VALUE, [&] { return OpenByName(name, access, share, creation); });
}

BOOL CloseHandle(HANDLE handle)
{
    // an interrupted close has closed the file all the same
    if (close(FileOf(handle)) == 0 || errno == EINTR)
        return TRUE;
    SetLastErrorFromSystem();
    return FALSE;
}

BOOL WriteFile(HANDLE handle, void const * bytes, DWORD count, DWORD * written, void * overlapped)
{
    if (written)
        *written = 0;
    if ((!bytes && count != 0) || overlapped)
        return Refuse(ERROR_INVALID_PARAMETER);
    int const file = FileOf(handle);
    char const * const begin = static_cast<char const *>(bytes);
    DWORD done = 0;
    do
    {
        ssize_t const taken = write(file, begin + done, count - done);
        if (taken < 0 && errno == EINTR)
            continue;
        if (taken < 0)
            return Refuse(CodeOfSystemError(errno));
        if (taken == 0 && count != 0)
            return Refuse(ERROR_DISK_FULL); // GCOVR_EXCL_LINE: a device that takes no more; none at hand is so silent
        done += static_cast<DWORD>(taken);
        if (written)
            *written = done;
    } while (done < count);
    return TRUE;
}
