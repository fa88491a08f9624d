#include <krplatform/system/textfile.h>

#include "tests/krplatform/system/surroundings.h"
#include "tests/support/failing_allocator.h"

#include <krplatform/system/errorcodes.h>
#include <krplatform/system/file.h>

#include <gtest/gtest.h>

#include <new>

using namespace kr::test;
using kr::detail::TextFile;

namespace
{

/// Whether nobody has the file open.
bool IsFree(std::filesystem::path const & path)
{
    HANDLE const file = CreateFileW(NameOf(path).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    return CloseHandle(file);
}

TEST(TextFile, WritesNothingUntilItIsOpened)
{
    TextFile file;
    EXPECT_FALSE(file.Write("text"));
}

TEST(TextFile, MakesTheFileOrCutsItToNothing)
{
    TemporaryDirectory const directory;
    WriteText(directory / "old", "a longer text");
    for (char const * const name : {"new", "old"})
    {
        SCOPED_TRACE(name);
        TextFile file;
        EXPECT_TRUE(file.Open(NameOf(directory / name).c_str()));
        EXPECT_EQ(ReadText(directory / name), "");
        EXPECT_TRUE(file.Write("one "));
        EXPECT_EQ(ReadText(directory / name), "one ") << "each write reaches the system at once";
        EXPECT_TRUE(file.Write("two"));
        EXPECT_EQ(ReadText(directory / name), "one two");
    }
}

TEST(TextFile, IsSharedWhileItIsOpenAndClosedAtTheEndOfItsLife)
{
    TemporaryDirectory const directory;
    {
        TextFile file;
        TextFile other;
        EXPECT_TRUE(file.Open(NameOf(directory / "file").c_str()));
        EXPECT_TRUE(other.Open(NameOf(directory / "file").c_str()));
        EXPECT_FALSE(IsFree(directory / "file"));
    }
    EXPECT_TRUE(IsFree(directory / "file"));
}

TEST(TextFile, ClosesTheFileThatIsOpenForAnother)
{
    TemporaryDirectory const directory;
    TextFile file;
    EXPECT_TRUE(file.Open(NameOf(directory / "first").c_str()));
    EXPECT_TRUE(file.Write("1"));
    EXPECT_TRUE(file.Open(NameOf(directory / "second").c_str()));
    EXPECT_TRUE(IsFree(directory / "first"));
    EXPECT_TRUE(file.Write("2"));
    EXPECT_EQ(ReadText(directory / "first"), "1");
    EXPECT_EQ(ReadText(directory / "second"), "2");
}

TEST(TextFile, IsClosedWhereItCannotBeOpened)
{
    TemporaryDirectory const directory;
    TextFile file;
    EXPECT_TRUE(file.Open(NameOf(directory / "file").c_str()));
    EXPECT_FALSE(file.Open(NameOf(directory / "none/file").c_str()));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(file.Write("text"));
    EXPECT_EQ(ReadText(directory / "file"), "");
}

TEST(TextFile, ThrowsWhereMemoryRunsOut)
{
    TemporaryDirectory const directory;
    std::basic_string<WCHAR> const name = NameOf(directory / "file");
    TextFile file;
    FailNthAllocation const fail(1);
    EXPECT_THROW(file.Open(name.c_str()), std::bad_alloc);
    EXPECT_FALSE(file.Write("text"));
    EXPECT_FALSE(std::filesystem::exists(directory / "file"));
}

} // namespace
