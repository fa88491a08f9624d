#include <krplatform/system/file.h>

#include "tests/krplatform/system/surroundings.h"

#include <gtest/gtest.h>

#include <atomic>
#include <csignal>
#include <fstream>
#include <thread>

#include <fcntl.h>
#include <pthread.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace kr::test;

namespace
{

HANDLE Create(std::filesystem::path const & path)
{
    HANDLE const file = CreateFileW(NameOf(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    EXPECT_NE(file, INVALID_HANDLE_VALUE);
    return file;
}

TEST(WriteFile, WritesAllBytesBehindThoseBefore)
{
    TemporaryDirectory const directory;
    HANDLE const file = Create(directory / "file");
    DWORD written = 77;
    EXPECT_TRUE(WriteFile(file, "one\0", 4, &written, nullptr));
    EXPECT_EQ(written, 4u);
    EXPECT_TRUE(WriteFile(file, "two", 3, nullptr, nullptr));
    EXPECT_TRUE(WriteFile(file, nullptr, 0, &written, nullptr));
    EXPECT_EQ(written, 0u);
    EXPECT_EQ(ReadText(directory / "file"), std::string("one\0two", 7)); // nothing waits in a buffer
    EXPECT_TRUE(CloseHandle(file));
}

TEST(WriteFile, WritesToTheFirstNumberTooWhereStandardInputIsClosed)
{
    TemporaryDirectory const directory;
    int const input = dup(STDIN_FILENO);
    ASSERT_GT(input, STDIN_FILENO);
    close(STDIN_FILENO);
    HANDLE const file = Create(directory / "file");
    EXPECT_TRUE(WriteFile(file, "one", 3, nullptr, nullptr));
    EXPECT_TRUE(CloseHandle(file));
    dup2(input, STDIN_FILENO);
    close(input);
    EXPECT_EQ(ReadText(directory / "file"), "one");
}

/// The calls of the system that have written so far in this process; -1 where the system does not count them.
long CountWrites()
{
    std::ifstream stream("/proc/self/io");
    std::string name;
    for (long value; stream >> name >> value;)
    {
        if (name == "syscw:")
            return value;
    }
    return -1;
}

TEST(WriteFile, NeedsOneCallOfTheSystem)
{
    if (CountWrites() < 0)
        GTEST_SKIP() << "the system does not count calls";
    TemporaryDirectory const directory;
    HANDLE const file = Create(directory / "file");
    std::string const line(100000, 'x');
    long const before = CountWrites();
    EXPECT_TRUE(WriteFile(file, line.data(), static_cast<DWORD>(line.size()), nullptr, nullptr));
    EXPECT_EQ(CountWrites(), before + 1);
    EXPECT_TRUE(CloseHandle(file));
}

TEST(WriteFile, TellsThatTheDiskIsFull)
{
    HANDLE const file = Create("/dev/full");
    DWORD written = 77;
    SetLastError(ERROR_SUCCESS);
    EXPECT_FALSE(WriteFile(file, "text", 4, &written, nullptr));
    EXPECT_EQ(GetLastError(), ERROR_DISK_FULL);
    EXPECT_EQ(written, 0u);
    EXPECT_TRUE(CloseHandle(file));
}

TEST(WriteFile, TellsHowMuchFitted)
{
    TemporaryDirectory const directory;
    HANDLE const file = Create(directory / "file");
    rlimit before;
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    auto const handlerBefore = std::signal(SIGXFSZ, SIG_IGN);
    rlimit const ten = {10, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &ten);
    DWORD written = 77;
    BOOL const succeeded = WriteFile(file, "text of twenty bytes", 20, &written, nullptr);
    DWORD const error = GetLastError();
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handlerBefore);
    EXPECT_FALSE(succeeded);
    EXPECT_EQ(error, ERROR_FILE_TOO_LARGE);
    EXPECT_EQ(written, 10u);
    EXPECT_EQ(ReadText(directory / "file"), "text of tw");
    EXPECT_TRUE(CloseHandle(file));
}

std::atomic<int> s_signals = 0;

void CountSignal(int) { ++s_signals; }

void Interrupt(pthread_t thread)
{
    int const before = s_signals;
    pthread_kill(thread, SIGUSR1);
    while (s_signals == before)
        std::this_thread::yield();
}

/// Reads a pipe until it is empty and the writer has ended. Before each piece it interrupts the writer, whom the full
/// pipe keeps waiting: the first time in the midst of its bytes, then before it could write one.
std::string ReadWithSignals(int pipe, pthread_t writer, std::atomic<bool> const & hasEnded)
{
    std::string text;
    for (bool isLast = false; !isLast;)
    {
        for (int times = 0; times < 4 && !hasEnded; ++times)
            Interrupt(writer);
        bool const wasComplete = hasEnded;
        char bytes[5000];
        ssize_t const count = read(pipe, bytes, sizeof bytes);
        text.append(bytes, count > 0 ? static_cast<std::size_t>(count) : 0);
        isLast = wasComplete && count <= 0;
    }
    return text;
}

TEST(WriteFile, GoesOnAfterSignals)
{
    TemporaryDirectory const directory;
    std::filesystem::path const path = directory / "pipe";
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    int const reader = open(path.c_str(), O_RDONLY | O_NONBLOCK);
    HANDLE const file = Create(path);
    struct sigaction interrupting = {}; // calls are not taken up again by themselves
    struct sigaction before;
    interrupting.sa_handler = CountSignal;
    sigaction(SIGUSR1, &interrupting, &before);
    std::string received;
    std::atomic<bool> hasEnded = false;
    std::thread reading([&, writer = pthread_self()] { received = ReadWithSignals(reader, writer, hasEnded); });
    std::string const text(1000000, 'x');
    DWORD written = 0;
    EXPECT_TRUE(WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr));
    hasEnded = true;
    reading.join();
    sigaction(SIGUSR1, &before, nullptr);
    EXPECT_EQ(written, text.size());
    EXPECT_TRUE(received == text);
    EXPECT_TRUE(CloseHandle(file));
    close(reader);
}

TEST(WriteFile, RefusesWhatItCannotDo)
{
    TemporaryDirectory const directory;
    WriteText(directory / "file", "text");
    HANDLE const readOnly = CreateFileW(NameOf(directory / "file").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                        FILE_ATTRIBUTE_NORMAL, nullptr);
    HANDLE const file = Create(directory / "other");
    int overlapped = 0;
    struct Row
    {
        char const * what;
        HANDLE file;
        char const * bytes;
        void * overlapped;
        DWORD error;
    };
    // clang-format off
    Row const rows[] = {
        { "opened for reading",  readOnly,             "text",  nullptr,     ERROR_INVALID_HANDLE    },
        { "no handle",           nullptr,              "text",  nullptr,     ERROR_INVALID_HANDLE    },
        { "the invalid handle",  INVALID_HANDLE_VALUE, "text",  nullptr,     ERROR_INVALID_HANDLE    },
        { "no bytes",            file,                 nullptr, nullptr,     ERROR_INVALID_PARAMETER },
        { "overlapped",          file,                 "text",  &overlapped, ERROR_INVALID_PARAMETER },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.what);
        DWORD written = 77;
        SetLastError(ERROR_SUCCESS);
        EXPECT_FALSE(WriteFile(row.file, row.bytes, 4, &written, row.overlapped));
        EXPECT_EQ(GetLastError(), row.error);
        EXPECT_EQ(written, 0u);
    }
    EXPECT_TRUE(CloseHandle(readOnly));
    EXPECT_TRUE(CloseHandle(file));
    EXPECT_EQ(ReadText(directory / "file"), "text");
    EXPECT_EQ(ReadText(directory / "other"), "");
}

} // namespace
