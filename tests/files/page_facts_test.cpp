// What docs/files.md says of POSIX paths.
#include <krcore/files/krfilename.h>

#include "tests/krplatform/system/test_modules.h"

#include <gtest/gtest.h>

using namespace kr::test;

TEST(FilesPage, SaysOfPosixPathsWhatIsSo)
{
    CKrFileName const name(OLESTR("sub/f.txt"), false);
    EXPECT_EQ(name.GetFullName(true), OLESTR("\\sub\\f.txt"));
    EXPECT_EQ(CKrFileName(OLESTR("/opt/a:b/f.txt"), false).GetDrive(), OLESTR("\\opt\\a"));
    TemporaryDirectory const directory;
    CKrFileName profile(HandedOut(directory / ".profile").c_str(), false);
    EXPECT_FALSE(profile.IsDirName());
    EXPECT_TRUE(profile.IsExisting());
    WriteText(directory / "f.txt", "text");
    CurrentDirectory const current(directory.Path());
    EXPECT_TRUE(CKrFileName(OLESTR("f.txt"), false).IsExisting());
    EXPECT_FALSE(CKrFileName(OLESTR("F.TXT"), false).IsExisting());
}
