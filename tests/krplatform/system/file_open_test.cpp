#include <krplatform/system/file.h>

#include "tests/krplatform/system/surroundings.h"
#include "tests/support/child_process.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace kr::test;

namespace
{

constexpr DWORD alone = 0;
constexpr DWORD shared = FILE_SHARE_READ | FILE_SHARE_WRITE;

HANDLE Open(std::filesystem::path const & path, DWORD access, DWORD share, DWORD creation)
{
    SetLastError(ERROR_SUCCESS);
    return CreateFileW(NameOf(path).c_str(), access, share, nullptr, creation, FILE_ATTRIBUTE_NORMAL, nullptr);
}

/// ERROR_SUCCESS if the file could be opened.
DWORD TryToOpen(std::filesystem::path const & path, DWORD access, DWORD share, DWORD creation)
{
    HANDLE const file = Open(path, access, share, creation);
    DWORD const error = GetLastError();
    EXPECT_EQ(CloseHandle(file), error == ERROR_SUCCESS);
    return error;
}

class FileOpen : public testing::Test
{
protected:
    FileOpen() { WriteText(m_file, "text"); }

    TemporaryDirectory m_directory;
    std::filesystem::path m_file = m_directory / "file";
};

TEST_F(FileOpen, SharesAsAskedFor)
{
    struct Row
    {
        DWORD first;
        DWORD second;
        DWORD error;
    };
    // clang-format off
    Row const rows[] = {
        { alone,           alone,            ERROR_SHARING_VIOLATION },
        { alone,           shared,           ERROR_SHARING_VIOLATION },
        { shared,          alone,            ERROR_SHARING_VIOLATION },
        { shared,          shared,           ERROR_SUCCESS           },
        { FILE_SHARE_READ, FILE_SHARE_WRITE, ERROR_SUCCESS           },
        { FILE_SHARE_READ, alone,            ERROR_SHARING_VIOLATION },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(testing::Message() << row.first << " " << row.second);
        HANDLE const first = Open(m_file, GENERIC_READ, row.first, OPEN_EXISTING);
        ASSERT_NE(first, INVALID_HANDLE_VALUE);
        EXPECT_EQ(TryToOpen(m_file, GENERIC_READ, row.second, OPEN_EXISTING), row.error);
        EXPECT_TRUE(CloseHandle(first));
        EXPECT_EQ(TryToOpen(m_file, GENERIC_READ, alone, OPEN_EXISTING), ERROR_SUCCESS);
    }
}

/// Another process that holds a lock of the file while this object lives.
class LockingProcess
{
public:
    LockingProcess(std::filesystem::path const & path, int kind)
    {
        int toParent[2];
        int toChild[2];
        if (pipe(toParent) != 0 || pipe(toChild) != 0)
            throw std::runtime_error("no pipe");
        m_child = fork();
        if (m_child == 0)
        {
            close(toChild[1]);
            flock(open(path.c_str(), O_RDONLY), kind);
            char byte = 'x';
            bool const ended = write(toParent[1], &byte, 1) == 1 && read(toChild[0], &byte, 1) == 0;
            _exit(ended ? 0 : 1);
        }
        char byte = 0;
        EXPECT_EQ(read(toParent[0], &byte, 1), 1); // it holds the lock now
        for (int const end : {toParent[0], toParent[1], toChild[0]})
            close(end);
        m_end = toChild[1];
    }
    ~LockingProcess()
    {
        close(m_end);
        int status = 0;
        waitpid(m_child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    LockingProcess(LockingProcess const &) = delete;
    LockingProcess & operator=(LockingProcess const &) = delete;

private:
    pid_t m_child;
    int m_end;
};

TEST_F(FileOpen, RespectsTheLocksOfOtherProcesses)
{
    {
        LockingProcess const exclusive(m_file, LOCK_EX);
        EXPECT_EQ(TryToOpen(m_file, GENERIC_READ, alone, OPEN_EXISTING), ERROR_SHARING_VIOLATION);
        EXPECT_EQ(TryToOpen(m_file, GENERIC_READ, shared, OPEN_EXISTING), ERROR_SHARING_VIOLATION);
    }
    {
        LockingProcess const together(m_file, LOCK_SH);
        EXPECT_EQ(TryToOpen(m_file, GENERIC_READ, alone, OPEN_EXISTING), ERROR_SHARING_VIOLATION);
        EXPECT_EQ(TryToOpen(m_file, GENERIC_READ, shared, OPEN_EXISTING), ERROR_SUCCESS);
    }
    EXPECT_EQ(TryToOpen(m_file, GENERIC_READ, alone, OPEN_EXISTING), ERROR_SUCCESS);
}

TEST_F(FileOpen, EmptiesAFileOnlyWhenItIsFree)
{
    {
        LockingProcess const exclusive(m_file, LOCK_EX);
        EXPECT_EQ(TryToOpen(m_file, GENERIC_WRITE, shared, CREATE_ALWAYS), ERROR_SHARING_VIOLATION);
    }
    EXPECT_EQ(ReadText(m_file), "text");
    EXPECT_EQ(TryToOpen(m_file, GENERIC_WRITE, shared, CREATE_ALWAYS), ERROR_SUCCESS);
    EXPECT_EQ(ReadText(m_file), "");
}

TEST_F(FileOpen, TellsThatAFileCannotBeEmptied)
{
    int const sealed = memfd_create("sealed", MFD_ALLOW_SEALING);
    ASSERT_EQ(write(sealed, "text", 4), 4);
    ASSERT_EQ(fcntl(sealed, F_ADD_SEALS, F_SEAL_SHRINK), 0);
    std::filesystem::path const path = "/proc/self/fd/" + std::to_string(sealed);
    EXPECT_EQ(TryToOpen(path, GENERIC_WRITE, shared, OPEN_EXISTING), ERROR_SUCCESS);
    EXPECT_EQ(TryToOpen(path, GENERIC_WRITE, shared, CREATE_ALWAYS), ERROR_ACCESS_DENIED);
    EXPECT_EQ(ReadText(path), "text");
    close(sealed);
}

TEST_F(FileOpen, MakesAFileThatIsNotThere)
{
    EXPECT_EQ(TryToOpen(m_directory / "new", GENERIC_WRITE, alone, CREATE_ALWAYS), ERROR_SUCCESS);
    EXPECT_TRUE(std::filesystem::is_regular_file(m_directory / "new"));
    EXPECT_EQ(TryToOpen(m_directory / "both", GENERIC_READ | GENERIC_WRITE, alone, CREATE_ALWAYS), ERROR_SUCCESS);
}

TEST_F(FileOpen, LeavesTheContentOfAnExistingFile)
{
    EXPECT_EQ(TryToOpen(m_file, GENERIC_WRITE, alone, OPEN_EXISTING), ERROR_SUCCESS);
    EXPECT_EQ(TryToOpen(m_file, GENERIC_READ | GENERIC_WRITE, alone, OPEN_EXISTING), ERROR_SUCCESS);
    EXPECT_EQ(ReadText(m_file), "text");
}

TEST_F(FileOpen, TellsWhyItFails)
{
    std::filesystem::path const missing = m_directory / "none";
    std::filesystem::path const program = std::filesystem::read_symlink("/proc/self/exe");
    // it runs, which is told only to those who might write to it
    DWORD const ofProgram = access(program.c_str(), W_OK) == 0 ? ERROR_SHARING_VIOLATION : ERROR_ACCESS_DENIED;
    struct Row
    {
        std::filesystem::path path;
        DWORD access;
        DWORD creation;
        DWORD error;
    };
    // clang-format off
    Row const rows[] = {
        { missing,               GENERIC_READ,     OPEN_EXISTING, ERROR_FILE_NOT_FOUND    },
        { missing,               GENERIC_WRITE,    OPEN_EXISTING, ERROR_FILE_NOT_FOUND    },
        { missing / "new",       GENERIC_WRITE,    CREATE_ALWAYS, ERROR_FILE_NOT_FOUND    },
        { m_file / "new",        GENERIC_WRITE,    CREATE_ALWAYS, ERROR_PATH_NOT_FOUND    },
        { m_directory.Path(),    GENERIC_READ,     OPEN_EXISTING, ERROR_ACCESS_DENIED     },
        { m_directory.Path(),    GENERIC_WRITE,    OPEN_EXISTING, ERROR_ACCESS_DENIED     },
        { m_directory.Path(),    GENERIC_WRITE,    CREATE_ALWAYS, ERROR_ACCESS_DENIED     },
        { program,               GENERIC_WRITE,    OPEN_EXISTING, ofProgram               },
        { "",                    GENERIC_READ,     OPEN_EXISTING, ERROR_PATH_NOT_FOUND    },
        { m_file,                0,                OPEN_EXISTING, ERROR_INVALID_PARAMETER },
        { m_file,                0x10000000,       OPEN_EXISTING, ERROR_INVALID_PARAMETER },
        { m_file,                GENERIC_READ | 1, OPEN_EXISTING, ERROR_INVALID_PARAMETER },
        { m_file,                GENERIC_READ,     CREATE_ALWAYS, ERROR_INVALID_PARAMETER },
        { missing,               GENERIC_READ,     CREATE_ALWAYS, ERROR_INVALID_PARAMETER },
        { m_file,                GENERIC_WRITE,    1,             ERROR_INVALID_PARAMETER },
        { m_file,                GENERIC_WRITE,    4,             ERROR_INVALID_PARAMETER },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(testing::Message() << row.path << " " << row.access << " " << row.creation);
        EXPECT_EQ(TryToOpen(row.path, row.access, alone, row.creation), row.error);
    }
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(CreateFileW(nullptr, GENERIC_READ, alone, nullptr, OPEN_EXISTING, 0, nullptr), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
    EXPECT_EQ(CreateFileW(OLESTR("\xD800"), GENERIC_WRITE, alone, nullptr, CREATE_ALWAYS, 0, nullptr),
              INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_NAME);
    EXPECT_EQ(ReadText(m_file), "text");
    EXPECT_FALSE(std::filesystem::exists(missing));
}

TEST_F(FileOpen, IsRefusedWhatTheUserHasNoRightTo)
{
    WriteText(m_directory / "closed", "text");
    std::filesystem::permissions(m_directory / "closed", std::filesystem::perms::none);
    std::filesystem::permissions(m_file, std::filesystem::perms(0444));
    OrdinaryUser const user;
    EXPECT_EQ(TryToOpen(m_directory / "closed", GENERIC_READ, alone, OPEN_EXISTING), ERROR_ACCESS_DENIED);
    EXPECT_EQ(TryToOpen(m_file, GENERIC_READ, alone, OPEN_EXISTING), ERROR_SUCCESS);
    EXPECT_EQ(TryToOpen(m_file, GENERIC_WRITE, alone, OPEN_EXISTING), ERROR_ACCESS_DENIED);
    EXPECT_EQ(TryToOpen(m_file, GENERIC_WRITE, alone, CREATE_ALWAYS), ERROR_ACCESS_DENIED);
}

TEST_F(FileOpen, WaitsForNobodyAtAPipe)
{
    std::filesystem::path const pipe = m_directory / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(TryToOpen(pipe, GENERIC_WRITE, shared, OPEN_EXISTING), ERROR_BAD_UNIT); // nobody reads
    EXPECT_EQ(TryToOpen(pipe, GENERIC_READ, shared, OPEN_EXISTING), ERROR_SUCCESS);
}

TEST_F(FileOpen, TellsThatTooManyFilesAreOpen)
{
    rlimit before;
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
    rlimit const none = {0, before.rlim_max};
    setrlimit(RLIMIT_NOFILE, &none);
    DWORD const error = TryToOpen(m_file, GENERIC_READ, alone, OPEN_EXISTING);
    setrlimit(RLIMIT_NOFILE, &before);
    EXPECT_EQ(error, ERROR_TOO_MANY_OPEN_FILES);
}

TEST_F(FileOpen, GivesHandlesThatChildProgramsDoNotInherit)
{
    HANDLE const file = Open(m_file, GENERIC_READ, alone, OPEN_EXISTING);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    ChildResult const child = RunProgram({"/bin/ls", "-l", "/proc/self/fd"});
    EXPECT_EQ(child.exitStatus, 0);
    EXPECT_NE(child.output.find(" 0 -> "), std::string::npos) << child.output;
    EXPECT_EQ(child.output.find(m_file.string()), std::string::npos) << child.output;
    EXPECT_TRUE(CloseHandle(file));
}

TEST_F(FileOpen, ClosesEveryFileThatItRefuses)
{
    LockingProcess const exclusive(m_file, LOCK_EX);
    int const next = dup(STDIN_FILENO);
    close(next);
    TryToOpen(m_file, GENERIC_READ, alone, OPEN_EXISTING);
    TryToOpen(m_directory.Path(), GENERIC_READ, alone, OPEN_EXISTING);
    int const nextNow = dup(STDIN_FILENO);
    close(nextNow);
    EXPECT_EQ(nextNow, next);
}

TEST_F(FileOpen, FailsWhenMemoryRunsOut)
{
    std::basic_string<WCHAR> const name = NameOf(m_file);
    std::size_t const failures = FailEveryAllocationOf(
        [&]
        {
            HANDLE const file = CreateFileW(name.c_str(), GENERIC_READ, alone, nullptr, OPEN_EXISTING, 0, nullptr);
            return file != INVALID_HANDLE_VALUE && CloseHandle(file);
        });
    EXPECT_GE(failures, 1u);
}

TEST_F(FileOpen, GivesHandlesThatCloseOnce)
{
    HANDLE const file = Open(m_file, GENERIC_READ, alone, OPEN_EXISTING);
    EXPECT_NE(file, nullptr);
    EXPECT_TRUE(CloseHandle(file));
    for (HANDLE const handle : {file, HANDLE(nullptr), INVALID_HANDLE_VALUE, reinterpret_cast<HANDLE>(0x7FFFFFFF),
                                reinterpret_cast<HANDLE>(0x100000001)})
    {
        SetLastError(ERROR_SUCCESS);
        EXPECT_FALSE(CloseHandle(handle));
        EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    }
}

} // namespace
