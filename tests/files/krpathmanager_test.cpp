#include <krcore/files/krpathmanager.h>

#include "tests/files/counted_pathmanager.h"
#include "tests/support/memory_failure.h"
#include "tests/support/text.h"
#include "tests/support/virtual_slot.h"

#include <gtest/gtest.h>

#include <iterator>
#include <memory>
#include <typeinfo>

namespace kr::test
{

namespace
{

CKrFileName Dir(WCHAR const * text) { return CKrFileName(text, true); }

CString TextOf(CKrFileName const & name) { return name.GetFullName(false); }

struct KeyRow
{
    WCHAR const * key;
    CKrFileName (CKrPathmanager::*get)() const;
};

// clang-format off
constexpr KeyRow standardKeys[] = {
    { OLESTR("bin"), &CKrPathmanager::GetBinPath },
    { OLESTR("dll"), &CKrPathmanager::GetDllPath },
    { OLESTR("doc"), &CKrPathmanager::GetDocPath },
    { OLESTR("log"), &CKrPathmanager::GetLogPath },
    { OLESTR("xml"), &CKrPathmanager::GetXmlPath },
    { OLESTR("tmp"), &CKrPathmanager::GetTmpPath },
};
// clang-format on

} // namespace

TEST(CKrPathmanager, KeepsItsVirtualsInOrder)
{
    EXPECT_EQ(VirtualSlotOf(&CKrPathmanager::Clone), 2u); // behind the two of the destructor
}

TEST(CKrPathmanager, IsEmptyAtFirst)
{
    CKrPathmanager const manager;
    EXPECT_EQ(TextOf(manager.GetRootPath()), OLESTR(""));
    EXPECT_EQ(TextOf(manager.GetWorkPath()), OLESTR(""));
    EXPECT_EQ(TextOf(manager.GetPath(CString())), OLESTR(""));
}

TEST(CKrPathmanager, MakesNoDirectoryFromTheRoot)
{
    CKrPathmanager const manager(Dir(OLESTR("C:\\root")));
    EXPECT_EQ(TextOf(manager.GetRootPath()), OLESTR("C:\\root"));
    for (KeyRow const & row : standardKeys)
    {
        SCOPED_TRACE(Narrow(row.key));
        CKrFileName const path = (manager.*row.get)();
        EXPECT_EQ(TextOf(path), OLESTR(""));
        EXPECT_TRUE(path.IsDirName());
    }
}

TEST(CKrPathmanager, ReadsEachStandardKeyByAnOperationOfItsOwn)
{
    for (KeyRow const & row : standardKeys)
    {
        SCOPED_TRACE(Narrow(row.key));
        CKrPathmanager manager;
        manager.SetUserPath(row.key, Dir(OLESTR("C:\\p")));
        for (KeyRow const & other : standardKeys)
            EXPECT_EQ(TextOf((manager.*other.get)()), &row == &other ? OLESTR("C:\\p") : OLESTR(""));
        EXPECT_EQ(TextOf(manager.GetPath(row.key)), OLESTR("C:\\p"));
    }
}

TEST(CKrPathmanager, KnowsOneValueForRootAndWorkPath)
{
    CKrPathmanager manager(Dir(OLESTR("C:\\root")));
    manager.SetUserPath(OLESTR("doc"), Dir(OLESTR("C:\\p")));
    manager.SetRootPath(Dir(OLESTR("D:\\other")));
    EXPECT_EQ(TextOf(manager.GetRootPath()), OLESTR("D:\\other"));
    EXPECT_EQ(TextOf(manager.GetWorkPath()), OLESTR("D:\\other"));
    EXPECT_EQ(TextOf(manager.GetDocPath()), OLESTR("C:\\p")) << "the table is not touched";
}

TEST(CKrPathmanager, LetsUsersReplaceTheirEntries)
{
    CKrPathmanager manager;
    manager.SetUserPath(OLESTR("doc"), Dir(OLESTR("C:\\p")));
    manager.SetUserPath(OLESTR("doc"), Dir(OLESTR("C:\\q")));
    EXPECT_EQ(TextOf(manager.GetDocPath()), OLESTR("C:\\q"));
}

TEST(CKrPathmanager, KeepsFixedEntriesFromUsers)
{
    CountedPathmanager manager;
    manager.SetPath(OLESTR("doc"), Dir(OLESTR("C:\\fixed")), false);
    manager.SetUserPath(OLESTR("doc"), Dir(OLESTR("C:\\user")));
    EXPECT_EQ(TextOf(manager.GetDocPath()), OLESTR("C:\\fixed"));
}

TEST(CKrPathmanager, SetsAnyEntryWithItsFlagForSubclasses)
{
    CountedPathmanager manager;
    manager.SetPath(OLESTR("doc"), Dir(OLESTR("C:\\a")), false);
    manager.SetPath(OLESTR("doc"), Dir(OLESTR("C:\\b")), true);
    EXPECT_EQ(TextOf(manager.GetDocPath()), OLESTR("C:\\b"));
    manager.SetUserPath(OLESTR("doc"), Dir(OLESTR("C:\\c")));
    EXPECT_EQ(TextOf(manager.GetDocPath()), OLESTR("C:\\c")) << "the flag was set";
    manager.SetPath(OLESTR("doc"), Dir(OLESTR("C:\\d")), false);
    manager.SetUserPath(OLESTR("doc"), Dir(OLESTR("C:\\e")));
    EXPECT_EQ(TextOf(manager.GetDocPath()), OLESTR("C:\\d")) << "the flag was cleared";
}

TEST(CKrPathmanager, HeedsCaseInKeysAndTakesAnEmptyOneAsItStands)
{
    CKrPathmanager manager;
    manager.SetUserPath(OLESTR("bin"), Dir(OLESTR("C:\\b")));
    EXPECT_EQ(TextOf(manager.GetPath(OLESTR("BIN"))), OLESTR(""));
    manager.SetUserPath(CString(), Dir(OLESTR("C:\\none")));
    EXPECT_EQ(TextOf(manager.GetPath(CString())), OLESTR("C:\\none"));
    EXPECT_EQ(TextOf(manager.GetPath(OLESTR("#NO_GROUP#"))), OLESTR(""));
}

TEST(CKrPathmanager, GivesBackWhatWasStoredEvenAFileName)
{
    CKrPathmanager manager;
    manager.SetUserPath(OLESTR("doc"), CKrFileName(OLESTR("sub\\f.txt"), false));
    EXPECT_EQ(TextOf(manager.GetDocPath()), OLESTR("\\sub\\f.txt"));
}

TEST(CKrPathmanager, ClonesIntoAnIndependentTable)
{
    CKrPathmanager manager(Dir(OLESTR("C:\\root")));
    manager.SetUserPath(OLESTR("doc"), Dir(OLESTR("C:\\p")));
    std::unique_ptr<CKrPathmanager> const clone(manager.Clone());
    CKrPathmanager const copy(manager);
    manager.SetUserPath(OLESTR("doc"), Dir(OLESTR("C:\\q")));
    manager.SetRootPath(CKrFileName());
    for (CKrPathmanager const * const other : {static_cast<CKrPathmanager const *>(clone.get()), &copy})
    {
        EXPECT_EQ(TextOf(other->GetRootPath()), OLESTR("C:\\root"));
        EXPECT_EQ(TextOf(other->GetDocPath()), OLESTR("C:\\p"));
    }
    CKrPathmanager const & cloned = *clone;
    EXPECT_EQ(typeid(cloned), typeid(CKrPathmanager));
}

TEST(CKrPathmanager, ClonesFixedEntriesAsFixed)
{
    CountedPathmanager manager;
    manager.SetPath(OLESTR("doc"), Dir(OLESTR("C:\\p")), false);
    CKrPathmanager const & base = manager;
    std::unique_ptr<CKrPathmanager> const clone(base.Clone());
    CKrPathmanager const & cloned = *clone;
    EXPECT_EQ(typeid(cloned), typeid(CountedPathmanager));
    clone->SetUserPath(OLESTR("doc"), Dir(OLESTR("C:\\q")));
    EXPECT_EQ(TextOf(clone->GetDocPath()), OLESTR("C:\\p"));
}

TEST(CKrPathmanager, TakesRootAndTableByAssignment)
{
    CKrPathmanager manager(Dir(OLESTR("C:\\root")));
    manager.SetUserPath(OLESTR("doc"), Dir(OLESTR("C:\\p")));
    CKrPathmanager assigned;
    assigned.SetUserPath(OLESTR("bin"), Dir(OLESTR("C:\\b")));
    assigned = manager;
    CKrPathmanager const & itself = assigned;
    assigned = itself;
    EXPECT_EQ(TextOf(assigned.GetRootPath()), OLESTR("C:\\root"));
    EXPECT_EQ(TextOf(assigned.GetDocPath()), OLESTR("C:\\p"));
    EXPECT_EQ(TextOf(assigned.GetBinPath()), OLESTR(""));
}

TEST(CKrPathmanager, StaysAsItWasWhenMemoryRunsOut)
{
    CKrPathmanager source(Dir(OLESTR("C:\\root")));
    for (KeyRow const & row : standardKeys)
        source.SetUserPath(row.key, Dir(OLESTR("C:\\source")));
    CKrPathmanager manager;
    manager.SetUserPath(OLESTR("doc"), Dir(OLESTR("C:\\p")));
    auto const expectUnchanged = [&]
    {
        EXPECT_EQ(TextOf(manager.GetRootPath()), OLESTR(""));
        EXPECT_EQ(TextOf(manager.GetDocPath()), OLESTR("C:\\p"));
        EXPECT_EQ(TextOf(manager.GetBinPath()), OLESTR(""));
    };
    CString const key(OLESTR("bin"));
    CKrFileName const path = Dir(OLESTR("C:\\b"));
    EXPECT_EQ(FailUntilItPasses([&] { manager.SetUserPath(key, path); }, expectUnchanged), 1u);
    manager = CKrPathmanager();
    manager.SetUserPath(OLESTR("doc"), Dir(OLESTR("C:\\p")));
    EXPECT_EQ(FailUntilItPasses([&] { manager = source; }, expectUnchanged), std::size(standardKeys));
    EXPECT_EQ(FailUntilItPasses([&] { std::unique_ptr<CKrPathmanager> const clone(source.Clone()); }, [] {}),
              std::size(standardKeys) + 1);
}

} // namespace kr::test
