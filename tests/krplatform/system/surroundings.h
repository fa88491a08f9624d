// What tests of the system's services set up around themselves and put back.
#pragma once

#include <krplatform/base/lasterror.h>
#include <tests/support/failing_allocator.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>

namespace kr::test
{

/// A new directory, removed in the end with all it holds.
class TemporaryDirectory
{
public:
    TemporaryDirectory();
    ~TemporaryDirectory();
    TemporaryDirectory(TemporaryDirectory const &) = delete;
    TemporaryDirectory & operator=(TemporaryDirectory const &) = delete;

    std::filesystem::path operator/(std::string_view name) const { return m_path / name; }
    std::filesystem::path const & Path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

/// The name in POSIX spelling, of bytes below 128.
std::basic_string<WCHAR> NameOf(std::filesystem::path const & path);
/// The spelling in which the platform hands out the path.
std::basic_string<WCHAR> HandedOut(std::filesystem::path const & path);

void WriteText(std::filesystem::path const & path, std::string_view text);
std::string ReadText(std::filesystem::path const & path);

/// Another current directory.
class CurrentDirectory
{
public:
    explicit CurrentDirectory(std::filesystem::path const & path) : m_before(std::filesystem::current_path())
    {
        std::filesystem::current_path(path);
    }
    ~CurrentDirectory() { std::filesystem::current_path(m_before); }
    CurrentDirectory(CurrentDirectory const &) = delete;
    CurrentDirectory & operator=(CurrentDirectory const &) = delete;

private:
    std::filesystem::path m_before;
};

/// Takes the rights of the administrator away, whom no file refuses, and gives them back.
class OrdinaryUser
{
public:
    OrdinaryUser();
    ~OrdinaryUser();
    OrdinaryUser(OrdinaryUser const &) = delete;
    OrdinaryUser & operator=(OrdinaryUser const &) = delete;
};

/// Runs `operation`, which tells whether it succeeded, with the first, second, ... allocation failing until none fails.
/// Each failing run must fail with ERROR_NOT_ENOUGH_MEMORY and leave no allocation behind. Returns their number.
template <class Operation>
std::size_t FailEveryAllocationOf(Operation operation)
{
    for (std::size_t n = 1;; ++n)
    {
        SCOPED_TRACE(n);
        std::size_t const before = LiveAllocations();
        SetLastError(ERROR_SUCCESS);
        bool succeeded = false;
        bool hasFailed = false;
        {
            FailNthAllocation const fail(n);
            succeeded = operation();
            hasFailed = fail.HasFailed();
        }
        EXPECT_EQ(succeeded, !hasFailed);
        EXPECT_EQ(GetLastError(), hasFailed ? ERROR_NOT_ENOUGH_MEMORY : ERROR_SUCCESS);
        EXPECT_EQ(LiveAllocations(), before);
        if (!hasFailed || n > 1000)
            return n - 1;
    }
}

} // namespace kr::test
