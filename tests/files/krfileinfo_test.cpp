#include <krcore/files/krfileinfo.h>

#include <gtest/gtest.h>

#include <type_traits>

namespace kr::test
{

namespace
{

CKrFileInfo MakeInfo()
{
    CKrFileInfo info;
    info.SetFileName(CKrFileName(OLESTR("C:\\a\\b.txt"), false));
    info.SetCreationTime(CTime(100));
    info.SetLastWriteTime(CTime(200));
    info.SetLastAccessTime(CTime(300));
    info.SetSize(0x123456789A);
    info.SetAttributes(0x11);
    return info;
}

void ExpectMade(CKrFileInfo const & info)
{
    EXPECT_EQ(info.GetFileName().GetFullName(true), OLESTR("C:\\a\\b.txt"));
    EXPECT_EQ(info.GetCreationTime().GetTime(), 100);
    EXPECT_EQ(info.GetLastWriteTime().GetTime(), 200);
    EXPECT_EQ(info.GetLastAccessTime().GetTime(), 300);
    EXPECT_EQ(info.GetSize(), 0x123456789Au);
    EXPECT_TRUE(info.IsDirectory());
    EXPECT_TRUE(info.IsReadOnly());
}

} // namespace

static_assert(std::has_virtual_destructor_v<CKrFileInfo>);
static_assert(
    std::is_same_v<decltype(&CKrFileInfo::GetFileName), CKrFileName const & (CKrFileInfo::*)() const noexcept>);
static_assert(
    std::is_same_v<decltype(&CKrFileInfo::GetSize), unsigned long long const & (CKrFileInfo::*)() const noexcept>);

TEST(CKrFileInfo, IsAFileOfNothingAtFirst)
{
    CKrFileInfo const info;
    EXPECT_EQ(info.GetFileName().GetFullName(true), OLESTR(""));
    EXPECT_EQ(info.GetCreationTime().GetTime(), 0);
    EXPECT_EQ(info.GetLastWriteTime().GetTime(), 0);
    EXPECT_EQ(info.GetLastAccessTime().GetTime(), 0);
    EXPECT_EQ(info.GetSize(), 0u);
    EXPECT_TRUE(info.IsFile());
    EXPECT_FALSE(info.IsDirectory());
    EXPECT_FALSE(info.IsReadOnly());
}

TEST(CKrFileInfo, HoldsWhatItIsGiven) { ExpectMade(MakeInfo()); }

TEST(CKrFileInfo, CopiesAllFields)
{
    CKrFileInfo const info = MakeInfo();
    CKrFileInfo const copy(info);
    CKrFileInfo assigned;
    assigned = info;
    ExpectMade(copy);
    ExpectMade(assigned);
    CKrFileInfo const & itself = assigned;
    assigned = itself;
    ExpectMade(assigned);
}

TEST(CKrFileInfo, IsACopyOfItsOwn)
{
    CKrFileInfo const info = MakeInfo();
    CKrFileInfo copy(info);
    copy.SetFileName(CKrFileName());
    copy.SetSize(1);
    copy.SetAttributes(0);
    ExpectMade(info);
}

TEST(CKrFileInfo, LendsItsNameAndSize)
{
    CKrFileInfo info;
    CKrFileName const & name = info.GetFileName();
    unsigned long long const & size = info.GetSize();
    info.SetFileName(CKrFileName(OLESTR("x.y"), false));
    info.SetSize(0xFFFFFFFFFFFFFFFF);
    EXPECT_EQ(name.GetName(), OLESTR("x.y"));
    EXPECT_EQ(size, 0xFFFFFFFFFFFFFFFF);
}

TEST(CKrFileInfo, ReadsTwoBitsOfTheAttributes)
{
    struct Row
    {
        unsigned long attributes;
        bool isDirectory;
        bool isReadOnly;
    };
    // clang-format off
    constexpr Row rows[] = {
        { 0x00,       false, false },
        { 0x01,       false, true  },
        { 0x10,       true,  false },
        { 0x11,       true,  true  },
        { 0xFFFFFFEE, false, false },  // all others
        { 0xFFFFFFFF, true,  true  },
        { ~0ul,       true,  true  },
    };
    // clang-format on
    CKrFileInfo info;
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.attributes);
        info.SetAttributes(row.attributes);
        EXPECT_EQ(info.IsDirectory(), row.isDirectory);
        EXPECT_EQ(info.IsFile(), !row.isDirectory);
        EXPECT_EQ(info.IsReadOnly(), row.isReadOnly);
    }
}

TEST(CKrFileInfo, SetsAndClearsReadOnly)
{
    CKrFileInfo info;
    info.SetDirectory(true);
    info.SetReadOnly(true);
    EXPECT_TRUE(info.IsReadOnly());
    info.SetReadOnly(true);
    EXPECT_TRUE(info.IsReadOnly());
    EXPECT_TRUE(info.IsDirectory());
    info.SetReadOnly(false);
    EXPECT_FALSE(info.IsReadOnly());
    EXPECT_TRUE(info.IsDirectory());
}

TEST(CKrFileInfo, StaysADirectoryWhenThatIsSetToFalse)
{
    CKrFileInfo info;
    info.SetReadOnly(true);
    info.SetDirectory(false);
    EXPECT_FALSE(info.IsDirectory());
    info.SetDirectory(true);
    EXPECT_TRUE(info.IsDirectory());
    info.SetDirectory(false);
    EXPECT_TRUE(info.IsDirectory());
    EXPECT_TRUE(info.IsReadOnly());
    info.SetAttributes(0);
    EXPECT_FALSE(info.IsDirectory());
}

} // namespace kr::test
