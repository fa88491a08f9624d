#include <krplatform/system/file.h>

#include "tests/krplatform/system/surroundings.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>

using namespace kr::test;

namespace
{

using Name = std::basic_string<WCHAR>;

TEST(FileAttributes, TellWhatAFileIs)
{
    TemporaryDirectory const directory;
    std::filesystem::create_directories(directory / "sub/.hidden");
    for (char const * const name : {"file", ".dot", "..two", "a.b", "sub/.hidden/file"})
        WriteText(directory / name, "text");
    std::filesystem::create_symlink(directory / "file", directory / "link");
    std::filesystem::create_symlink(directory / "sub", directory / ".toSub");
    struct Row
    {
        char const * name;
        DWORD attributes;
    };
    // clang-format off
    Row const rows[] = {
        { "file",             FILE_ATTRIBUTE_NORMAL                            },
        { "a.b",              FILE_ATTRIBUTE_NORMAL                            },
        { ".dot",             FILE_ATTRIBUTE_HIDDEN                            },
        { "..two",            FILE_ATTRIBUTE_HIDDEN                            },
        { "sub",              FILE_ATTRIBUTE_DIRECTORY                         },
        { "sub/",             FILE_ATTRIBUTE_DIRECTORY                         },
        { "sub/.",            FILE_ATTRIBUTE_DIRECTORY                         },
        { "sub/..",           FILE_ATTRIBUTE_DIRECTORY                         },
        { "sub/.hidden",      FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN },
        { "sub/.hidden//",    FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN },
        { "sub/.hidden/file", FILE_ATTRIBUTE_NORMAL                            },  // only its own name counts
        { "link",             FILE_ATTRIBUTE_NORMAL                            },
        { ".toSub",           FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(GetFileAttributesW(NameOf(directory / row.name).c_str()), row.attributes);
    }
}

TEST(FileAttributes, TellWhatTheUserMayNotWrite)
{
    TemporaryDirectory const directory;
    WriteText(directory / "file", "text");
    WriteText(directory / ".dot", "text");
    std::filesystem::create_directory(directory / "sub");
    for (char const * const name : {"file", ".dot", "sub"})
        std::filesystem::permissions(directory / name, std::filesystem::perms(0555));
    OrdinaryUser const user;
    EXPECT_EQ(GetFileAttributesW(NameOf(directory / "file").c_str()), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(GetFileAttributesW(NameOf(directory / ".dot").c_str()), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
    EXPECT_EQ(GetFileAttributesW(NameOf(directory / "sub").c_str()),
              FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY);
}

TEST(FileAttributes, TakeNamesInAnySpelling)
{
    TemporaryDirectory const directory;
    std::filesystem::create_directory(directory / "sub");
    WriteText(directory / "sub/\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80", "text");
    Name const last = OLESTR("\u00E4\u20AC\U0001F600");
    Name const sub = NameOf(directory / "sub");
    for (Name const & name : {sub + OLESTR("/") + last, OLESTR("/") + sub + OLESTR("/") + last,
                              HandedOut(directory / "sub") + OLESTR("\\") + last, sub + OLESTR("\\.\\") + last,
                              sub + OLESTR("\\\\") + last, sub + OLESTR("/../sub\\") + last})
    {
        SCOPED_TRACE(Narrow(name));
        EXPECT_EQ(GetFileAttributesW(name.c_str()), FILE_ATTRIBUTE_NORMAL);
    }
    CurrentDirectory const current(directory.Path());
    EXPECT_EQ(GetFileAttributesW((OLESTR("sub\\") + last).c_str()), FILE_ATTRIBUTE_NORMAL);
    for (WCHAR const * const root : {OLESTR("/"), OLESTR("\\"), OLESTR("\\\\")})
        EXPECT_EQ(GetFileAttributesW(root) & ~FILE_ATTRIBUTE_READONLY, FILE_ATTRIBUTE_DIRECTORY);
}

/// Names that reach no file, with the error that each gives.
struct NoFile
{
    Name name;
    DWORD error;
};

std::vector<NoFile> NamesOfNoFile(TemporaryDirectory const & directory)
{
    WriteText(directory / "file", "text");
    std::filesystem::create_symlink(directory / "none", directory / "dangling");
    std::filesystem::create_symlink(directory / "loop", directory / "loop");
    // clang-format off
    return {
        { NameOf(directory / "none"),                             ERROR_FILE_NOT_FOUND        },
        { NameOf(directory / "none/none"),                        ERROR_FILE_NOT_FOUND        },
        { NameOf(directory / "FILE"),                             ERROR_FILE_NOT_FOUND        },
        { NameOf(directory / "dangling"),                         ERROR_FILE_NOT_FOUND        },
        { NameOf(directory / "file/none"),                        ERROR_PATH_NOT_FOUND        },
        { NameOf(directory / "file/"),                            ERROR_PATH_NOT_FOUND        },
        { OLESTR(""),                                             ERROR_PATH_NOT_FOUND        },
        { NameOf(directory / "loop"),                             ERROR_CANT_RESOLVE_FILENAME },
        { NameOf(directory / std::string(300, 'x')),              ERROR_FILENAME_EXCED_RANGE  },
        { NameOf(directory.Path()) + OLESTR("/\xD800"),           ERROR_INVALID_NAME          },
        { NameOf(directory.Path()) + OLESTR("/\xDC00\xD800x"),    ERROR_INVALID_NAME          },
    };
    // clang-format on
}

TEST(FileAttributes, AreInvalidWhereNoFileIs)
{
    TemporaryDirectory const directory;
    for (NoFile const & row : NamesOfNoFile(directory))
    {
        SCOPED_TRACE(Narrow(row.name));
        SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(GetFileAttributesW(row.name.c_str()), INVALID_FILE_ATTRIBUTES);
        EXPECT_EQ(GetLastError(), row.error);
    }
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(GetFileAttributesW(nullptr), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
}

TEST(FileAttributes, AreInvalidInADirectoryThatTheUserMayNotEnter)
{
    TemporaryDirectory const directory;
    std::filesystem::create_directory(directory / "closed");
    WriteText(directory / "closed/file", "text");
    std::filesystem::permissions(directory / "closed", std::filesystem::perms(0700));
    std::filesystem::permissions(directory / "closed", std::filesystem::perms::none);
    {
        OrdinaryUser const user;
        EXPECT_EQ(GetFileAttributesW(NameOf(directory / "closed/file").c_str()), INVALID_FILE_ATTRIBUTES);
        EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    }
    std::filesystem::permissions(directory / "closed", std::filesystem::perms(0700));
}

TEST(FileAttributes, AreInvalidWhenMemoryRunsOut)
{
    TemporaryDirectory const directory;
    Name const name = NameOf(directory.Path()) + Name(20, OLESTR('/')); // too long to need no memory
    EXPECT_GE(FailEveryAllocationOf([&] { return GetFileAttributesW(name.c_str()) != INVALID_FILE_ATTRIBUTES; }), 1u);
}

TEST(FileStatus, TellsTimesSizeAttributesAndFullName)
{
    TemporaryDirectory const directory;
    std::filesystem::path const path = directory / ".file";
    WriteText(path, "seven b");
    timespec const times[] = {{1000000000, 999999999}, {1234567890, 500000000}};
    ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    CFileStatus status;
    ASSERT_TRUE(CFile::GetStatus(NameOf(path).c_str(), status));
    EXPECT_EQ(status.m_atime.GetTime(), 1000000000);
    EXPECT_EQ(status.m_mtime.GetTime(), 1234567890);
    EXPECT_EQ(status.m_size, 7u);
    EXPECT_EQ(status.m_attribute, FILE_ATTRIBUTE_HIDDEN);
    EXPECT_EQ(Narrow(status.m_strFullName.GetString()), Narrow(HandedOut(path)));
}

TEST(FileStatus, OfANormalFileHasNoAttributes)
{
    TemporaryDirectory const directory;
    WriteText(directory / "file", "");
    CFileStatus status;
    status.m_attribute = 0xFF;
    ASSERT_TRUE(CFile::GetStatus(NameOf(directory / "file").c_str(), status));
    EXPECT_EQ(status.m_attribute, 0);
    EXPECT_EQ(status.m_size, 0u);
}

TEST(FileStatus, OfADirectoryHasNoSize)
{
    TemporaryDirectory const directory;
    CFileStatus status;
    status.m_size = 5;
    ASSERT_TRUE(CFile::GetStatus(NameOf(directory.Path()).c_str(), status));
    EXPECT_EQ(status.m_attribute, FILE_ATTRIBUTE_DIRECTORY);
    EXPECT_EQ(status.m_size, 0u);
}

TEST(FileStatus, TellsWhenAFileWasMade)
{
    // directories that are older than the last change of their record
    for (char const * const path : {"/", "/usr", "/etc", "/tmp"})
    {
        SCOPED_TRACE(path);
        struct statx facts;
        ASSERT_EQ(statx(AT_FDCWD, path, 0, STATX_BASIC_STATS | STATX_BTIME, &facts), 0);
        CFileStatus status;
        ASSERT_TRUE(CFile::GetStatus(NameOf(path).c_str(), status));
        bool const isKept = (facts.stx_mask & STATX_BTIME) != 0;
        EXPECT_EQ(status.m_ctime.GetTime(), isKept ? facts.stx_btime.tv_sec : facts.stx_ctime.tv_sec);
    }
}

TEST(FileStatus, HasTheFullNameOfARelativeOne)
{
    TemporaryDirectory const directory;
    std::filesystem::create_directory(directory / "sub");
    CurrentDirectory const current(directory.Path());
    struct Row
    {
        WCHAR const * name;
        Name fullName;
    };
    // clang-format off
    Row const rows[] = {
        { OLESTR("sub"),            HandedOut(directory / "sub")                    },
        { OLESTR(".\\.//sub\\"),    HandedOut(directory / "sub")                    },
        { OLESTR("sub/.."),         HandedOut(directory / "sub") + OLESTR("\\..")   },  // kept for links
        { OLESTR("."),              HandedOut(directory.Path())                     },
        { OLESTR("//"),             OLESTR("\\\\")                                  },
        { OLESTR("/usr//./lib/"),   OLESTR("\\\\usr\\lib")                          },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.name));
        CFileStatus status;
        ASSERT_TRUE(CFile::GetStatus(row.name, status));
        EXPECT_EQ(Narrow(status.m_strFullName.GetString()), Narrow(row.fullName));
    }
}

TEST(FileStatus, StaysAsItWasWhereNoFileIs)
{
    TemporaryDirectory const directory;
    CFileStatus status;
    ASSERT_TRUE(CFile::GetStatus(OLESTR("/usr"), status));
    CFileStatus const before = status;
    for (NoFile const & row : NamesOfNoFile(directory))
    {
        SCOPED_TRACE(Narrow(row.name));
        SetLastError(ERROR_SUCCESS);
        EXPECT_FALSE(CFile::GetStatus(row.name.c_str(), status));
        EXPECT_EQ(GetLastError(), row.error);
    }
    EXPECT_FALSE(CFile::GetStatus(nullptr, status));
    EXPECT_EQ(status.m_ctime.GetTime(), before.m_ctime.GetTime());
    EXPECT_EQ(status.m_attribute, before.m_attribute);
    EXPECT_TRUE(status.m_strFullName == before.m_strFullName);
}

TEST(FileStatus, StaysAsItWasWhenMemoryRunsOut)
{
    TemporaryDirectory const directory;
    std::filesystem::create_directory(directory / "a directory with a long name");
    Name const name = NameOf(directory / "a directory with a long name");
    std::size_t const failures = FailEveryAllocationOf(
        [&]
        {
            CFileStatus status;
            status.m_size = 5;
            bool const succeeded = CFile::GetStatus(name.c_str(), status) != FALSE;
            EXPECT_EQ(status.m_size, succeeded ? 0u : 5u);
            EXPECT_EQ(status.m_strFullName.IsEmpty(), !succeeded);
            return succeeded;
        });
    EXPECT_GT(failures, 2u);
}

} // namespace
