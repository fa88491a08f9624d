#include <krcore/files/krfilename.h>

#include "tests/krplatform/system/surroundings.h"

#include <krplatform/system/file.h>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace kr::test
{

namespace
{

/// A directory that holds the directory "sub" and the file "f.txt", for the length of a test.
class CKrFileNameSystem : public testing::Test
{
protected:
    void SetUp() override
    {
        std::string path = (std::filesystem::temp_directory_path() / "krfilenameXXXXXX").string();
        ASSERT_NE(mkdtemp(path.data()), nullptr);
        m_path = path;
        std::filesystem::create_directory(m_path / "sub");
        std::ofstream(m_path / "f.txt") << "text";
    }
    void TearDown() override { std::filesystem::remove_all(m_path); }

    /// The absolute path with two leading slashes, so that it has a drive.
    CKrFileName Name(char const * below, bool isPath) const
    {
        return CKrFileName(CString(("/" + (m_path / below).string()).c_str()), isPath);
    }

    std::filesystem::path m_path;
};

} // namespace

TEST_F(CKrFileNameSystem, FindsAnAbsolutePathInItsSpellingWithTwoSlashes)
{
    CKrFileName const file = Name("f.txt", false);
    EXPECT_FALSE(file.HasRelativePath());
    EXPECT_EQ(file.GetDrive(), OLESTR("\\"));
    EXPECT_TRUE(file.IsExisting());
    EXPECT_TRUE(CKrFileName(CString((m_path / "f.txt").c_str()), false).IsExisting());
}

TEST_F(CKrFileNameSystem, FindsDirectoriesByADirectoryName)
{
    EXPECT_TRUE(Name("sub", true).IsExisting());
    EXPECT_TRUE(Name("sub", true).IsExistingPath());
    EXPECT_FALSE(Name("gone", true).IsExisting());
    EXPECT_FALSE(Name("gone", true).IsExistingPath());
}

TEST_F(CKrFileNameSystem, FindsNoFileByADirectoryName)
{
    EXPECT_FALSE(Name("f.txt", true).IsExisting());
    EXPECT_FALSE(Name("f.txt", true).IsExistingPath());
}

TEST_F(CKrFileNameSystem, FindsFilesAndDirectoriesByAFileName)
{
    EXPECT_TRUE(Name("f.txt", false).IsExisting());
    EXPECT_TRUE(Name("sub", false).IsExisting());
    EXPECT_TRUE(Name("sub", false).IsFileName());
    EXPECT_FALSE(Name("gone.txt", false).IsExisting());
    EXPECT_FALSE(Name("f.tx", false).IsExisting());
}

TEST_F(CKrFileNameSystem, LooksAtThePathAloneAlsoInAFileName)
{
    EXPECT_TRUE(Name("gone.txt", false).IsExistingPath());
    EXPECT_TRUE(Name("sub/gone.txt", false).IsExistingPath());
    EXPECT_FALSE(Name("gone/f.txt", false).IsExistingPath());
    EXPECT_FALSE(Name("f.txt/f.txt", false).IsExistingPath());
}

TEST_F(CKrFileNameSystem, FindsNothingByAnEmptyName)
{
    EXPECT_FALSE(CKrFileName().IsExisting());
    EXPECT_FALSE(CKrFileName().IsExistingPath());
    EXPECT_FALSE(CKrFileName().IsAlreadyOpen());
    EXPECT_FALSE(CKrFileName(OLESTR("b.txt"), false).IsExistingPath());
}

TEST_F(CKrFileNameSystem, TakesALockOfAnotherDescriptorForOpen)
{
    CKrFileName const file = Name("f.txt", false);
    EXPECT_FALSE(file.IsAlreadyOpen());
    int const descriptor = open((m_path / "f.txt").c_str(), O_RDONLY);
    ASSERT_GE(descriptor, 0);
    EXPECT_FALSE(file.IsAlreadyOpen()) << "open, but not locked";
    ASSERT_EQ(flock(descriptor, LOCK_EX), 0);
    EXPECT_TRUE(file.IsAlreadyOpen());
    EXPECT_TRUE(file.IsAlreadyOpen()) << "asking changes nothing";
    ASSERT_EQ(flock(descriptor, LOCK_UN), 0);
    EXPECT_FALSE(file.IsAlreadyOpen());
    close(descriptor);
}

TEST_F(CKrFileNameSystem, TakesASharedLockOfAnotherForOpenToo)
{
    int const descriptor = open((m_path / "f.txt").c_str(), O_RDONLY);
    ASSERT_EQ(flock(descriptor, LOCK_SH), 0);
    EXPECT_TRUE(Name("f.txt", false).IsAlreadyOpen()) << "it cannot be had alone";
    close(descriptor);
}

TEST_F(CKrFileNameSystem, ClosesWhatItOpenedToAsk)
{
    EXPECT_FALSE(Name("f.txt", false).IsAlreadyOpen());
    int const descriptor = open((m_path / "f.txt").c_str(), O_RDONLY);
    ASSERT_GE(descriptor, 0);
    EXPECT_EQ(flock(descriptor, LOCK_EX | LOCK_NB), 0);
    close(descriptor);
}

TEST_F(CKrFileNameSystem, HoldsNothingOpenThatIsMissingOrADirectory)
{
    EXPECT_FALSE(Name("gone.txt", false).IsAlreadyOpen());
    EXPECT_FALSE(std::filesystem::exists(m_path / "gone.txt"));
    EXPECT_FALSE(Name("sub", true).IsAlreadyOpen());
    EXPECT_FALSE(Name("sub", false).IsAlreadyOpen());
}

TEST_F(CKrFileNameSystem, TakesAFileOpenedWithoutSharingForOpen)
{
    CKrFileName const file = Name("f.txt", false);
    HANDLE const handle =
        CreateFileW(file.GetFullName(true), GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(handle, INVALID_HANDLE_VALUE);
    EXPECT_TRUE(file.IsAlreadyOpen());
    CloseHandle(handle);
    EXPECT_FALSE(file.IsAlreadyOpen());
}

TEST_F(CKrFileNameSystem, FindsTheRootByTwoSeparatorsAlone)
{
    EXPECT_TRUE(CKrFileName(OLESTR("//"), true).IsExisting());
    EXPECT_TRUE(CKrFileName(OLESTR("\\\\"), true).IsExistingPath());
    EXPECT_FALSE(CKrFileName(OLESTR("/"), true).IsExisting()) << "reads as an empty name";
}

TEST_F(CKrFileNameSystem, FindsDevicesAsFiles)
{
    CKrFileName const device(OLESTR("//dev/full"), false);
    EXPECT_TRUE(device.IsExisting());
    EXPECT_FALSE(CKrFileName(OLESTR("//dev/full"), true).IsExisting());
    EXPECT_FALSE(CKrFileName(OLESTR("//dev/full/x"), false).IsExisting());
}

TEST_F(CKrFileNameSystem, FindsNothingByNamesTheSystemCannotHold)
{
    for (std::basic_string<WCHAR> const & name :
         {std::basic_string<WCHAR>(OLESTR("a\xD800.txt")), std::basic_string<WCHAR>(300, OLESTR('a'))})
    {
        CKrFileName const file(Name("", true) + CKrFileName(name.c_str(), false));
        EXPECT_FALSE(file.IsExisting());
        EXPECT_FALSE(file.IsAlreadyOpen());
        EXPECT_TRUE(file.IsExistingPath());
    }
}

TEST_F(CKrFileNameSystem, AnswersFalseWhereTheUserMayNotLook)
{
    std::ofstream(m_path / "sub/g.txt") << "text";
    std::filesystem::permissions(m_path, std::filesystem::perms(0755));
    std::filesystem::permissions(m_path / "f.txt", std::filesystem::perms::none);
    std::filesystem::permissions(m_path / "sub", std::filesystem::perms::none);
    {
        OrdinaryUser const user;
        EXPECT_TRUE(Name("f.txt", false).IsExisting()) << "there, though it may not be read";
        EXPECT_FALSE(Name("f.txt", false).IsAlreadyOpen()) << "refused, which is no sharing failure";
        EXPECT_TRUE(Name("sub", true).IsExisting());
        EXPECT_FALSE(Name("sub/g.txt", false).IsExisting());
    }
    std::filesystem::permissions(m_path / "sub", std::filesystem::perms(0755));
}

} // namespace kr::test
