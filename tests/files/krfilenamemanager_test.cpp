#include <krcore/files/krfilenamemanager.h>

#include "tests/files/counted_pathmanager.h"
#include "tests/support/memory_failure.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>
#include <typeinfo>
#include <vector>

namespace kr::test
{

namespace
{

CKrFileName File(WCHAR const * text) { return CKrFileName(text, false); }

CString TextOf(CKrFileName const & name) { return name.GetFullName(true); }

/// What is open to subclasses only.
class OpenManager : public CKrFileNameManager
{
public:
    using CKrFileNameManager::ConvertGroupName;
    using CKrFileNameManager::CopyFileNames;
};

/// All entries: "group/key=full name", parted by blanks.
CString ContentOf(CKrFileNameManager const & manager)
{
    std::vector<CString> groups, keys;
    std::vector<CKrFileName> files;
    EXPECT_TRUE(manager.GetContent(groups, keys, files));
    EXPECT_EQ(keys.size(), groups.size());
    EXPECT_EQ(files.size(), groups.size());
    CString text;
    for (std::size_t index = 0; index < groups.size(); ++index)
    {
        text += index == 0 ? OLESTR("") : OLESTR(" ");
        text += groups[index] + OLESTR("/") + keys[index] + OLESTR("=") + TextOf(files[index]);
    }
    return text;
}

/// The directory `C:\p` under "doc".
std::unique_ptr<CountedPathmanager> MakePaths()
{
    auto paths = std::make_unique<CountedPathmanager>();
    paths->SetPath(OLESTR("doc"), CKrFileName(OLESTR("C:\\p"), true), false);
    return paths;
}

/// The fixed entry f and the user entry u in "doc".
CKrFileNameManager MakeManager()
{
    CKrFileNameManager manager(MakePaths().release());
    manager.AddFileName(OLESTR("f"), File(OLESTR("fixed.txt")), false, OLESTR("doc"));
    manager.AddFileName(OLESTR("u"), File(OLESTR("user.txt")), true, OLESTR("doc"));
    return manager;
}

} // namespace

static_assert(std::has_virtual_destructor_v<CKrFileNameManager>);
static_assert(!std::is_default_constructible_v<CKrFileNameManager>);
static_assert(!std::is_copy_assignable_v<CKrFileNameManager>);

TEST(CKrFileNameManager, MakesItsOwnPathManager)
{
    CKrFileNameManager const manager(CKrFileName(OLESTR("C:\\root"), true));
    ASSERT_NE(manager.GetPathmanager(), nullptr);
    EXPECT_EQ(TextOf(manager.GetPathmanager()->GetRootPath()), OLESTR("C:\\root\\"));
    OpenManager const open;
    ASSERT_NE(open.GetPathmanager(), nullptr);
    EXPECT_EQ(TextOf(open.GetPathmanager()->GetRootPath()), OLESTR(""));
    EXPECT_EQ(ContentOf(manager), OLESTR(""));
}

TEST(CKrFileNameManager, OwnsThePathManagerItTakes)
{
    int const before = CountedPathmanager::Living();
    {
        auto const first = new CountedPathmanager;
        CKrFileNameManager manager(first);
        EXPECT_EQ(manager.GetPathmanager(), first);
        manager.AddFileName(OLESTR("a"), File(OLESTR("a.txt")), true, CString());
        manager.SetPathmanager(first);
        EXPECT_EQ(CountedPathmanager::Living(), before + 1) << "the one it holds has no effect";
        auto const second = new CountedPathmanager;
        manager.SetPathmanager(second);
        EXPECT_EQ(CountedPathmanager::Living(), before + 1);
        EXPECT_EQ(manager.GetPathmanager(), second);
        EXPECT_TRUE(manager.HasFileName(OLESTR("a"), CString())) << "the entries are kept";
        manager.SetPathmanager(nullptr);
        EXPECT_EQ(CountedPathmanager::Living(), before);
        manager.SetPathmanager(new CountedPathmanager);
    }
    EXPECT_EQ(CountedPathmanager::Living(), before);
}

TEST(CKrFileNameManager, WorksWithoutAPathManagerButForRelativeFullNames)
{
    CKrFileNameManager manager(static_cast<CKrPathmanager *>(nullptr));
    EXPECT_EQ(manager.GetPathmanager(), nullptr);
    manager.AddFileName(OLESTR("d"), File(OLESTR("D:\\a.txt")), true, OLESTR("doc"));
    EXPECT_EQ(TextOf(manager.GetFullFileName(OLESTR("d"), OLESTR("doc"))), OLESTR("D:\\a.txt"));
    CKrFileNameManager const copy(manager);
    EXPECT_EQ(copy.GetPathmanager(), nullptr);
    EXPECT_EQ(ContentOf(copy), OLESTR("doc/d=D:\\a.txt"));
}

TEST(CKrFileNameManager, CopiesEntriesAndClonesThePathManager)
{
    int const before = CountedPathmanager::Living();
    {
        CKrFileNameManager manager = MakeManager();
        CKrFileNameManager const copy(manager);
        ASSERT_NE(copy.GetPathmanager(), manager.GetPathmanager());
        CKrPathmanager const & paths = *copy.GetPathmanager();
        EXPECT_EQ(typeid(paths), typeid(CountedPathmanager));
        EXPECT_EQ(CountedPathmanager::Living(), before + 2);
        manager.RemoveFileNameGroup(OLESTR("doc"));
        EXPECT_EQ(ContentOf(copy), OLESTR("doc/f=C:\\p\\fixed.txt doc/u=C:\\p\\user.txt"));
    }
    EXPECT_EQ(CountedPathmanager::Living(), before);
}

TEST(CKrFileNameManager, CopiesTheUserFlags)
{
    CKrFileNameManager copy(MakeManager());
    EXPECT_FALSE(copy.RemoveFileName(OLESTR("f"), OLESTR("doc")));
    EXPECT_TRUE(copy.RemoveFileName(OLESTR("u"), OLESTR("doc")));
}

TEST(CKrFileNameManager, HasANameForTheEmptyGroup)
{
    EXPECT_EQ(OpenManager::ConvertGroupName(CString()), OLESTR("#NO_GROUP#"));
    EXPECT_EQ(OpenManager::ConvertGroupName(OLESTR("doc")), OLESTR("doc"));
    OpenManager manager;
    EXPECT_TRUE(manager.AddFileName(OLESTR("a"), File(OLESTR("a.txt")), true, CString()));
    EXPECT_TRUE(manager.HasFileName(OLESTR("a"), OLESTR("#NO_GROUP#")));
    EXPECT_TRUE(manager.HasFileName(OLESTR("a"), CString()));
    EXPECT_FALSE(manager.AddFileName(OLESTR("a"), File(OLESTR("b.txt")), true, OLESTR("#NO_GROUP#")));
    EXPECT_EQ(TextOf(manager.GetFileName(OLESTR("a"), OLESTR("#NO_GROUP#"))), OLESTR("a.txt"));
    EXPECT_TRUE(manager.RemoveFileName(OLESTR("a"), OLESTR("#NO_GROUP#")));
    EXPECT_TRUE(manager.AddFileName(OLESTR("a"), File(OLESTR("a.txt")), true, OLESTR("#NO_GROUP#")));
    EXPECT_TRUE(manager.RemoveFileNameGroup(CString()));
}

TEST(CKrFileNameManager, AddsOnlyNewKeys)
{
    CKrFileNameManager manager = MakeManager();
    EXPECT_FALSE(manager.AddFileName(OLESTR("u"), File(OLESTR("new.txt")), true, OLESTR("doc")));
    EXPECT_TRUE(manager.AddFileName(OLESTR("U"), File(OLESTR("upper.txt")), true, OLESTR("doc")));
    EXPECT_TRUE(manager.AddFileName(OLESTR("u"), File(OLESTR("other.txt")), true, OLESTR("DOC")));
    EXPECT_TRUE(manager.AddFileName(CString(), File(OLESTR("empty.txt")), true, OLESTR("doc")));
    EXPECT_EQ(ContentOf(manager), OLESTR("DOC/u=other.txt doc/=C:\\p\\empty.txt doc/U=C:\\p\\upper.txt "
                                         "doc/f=C:\\p\\fixed.txt doc/u=C:\\p\\user.txt"));
}

TEST(CKrFileNameManager, SetsAUserNameInPlaceOfAnyAndAFixedOneOnlyWhereThereIsNone)
{
    CKrFileNameManager manager = MakeManager();
    manager.SetFileName(OLESTR("f"), File(OLESTR("x.txt")), false, OLESTR("doc"));
    manager.SetFileName(OLESTR("u"), File(OLESTR("x.txt")), false, OLESTR("doc"));
    manager.SetFileName(OLESTR("n"), File(OLESTR("x.txt")), false, OLESTR("doc"));
    EXPECT_EQ(ContentOf(manager), OLESTR("doc/f=C:\\p\\fixed.txt doc/n=C:\\p\\x.txt doc/u=C:\\p\\user.txt"));
    EXPECT_FALSE(manager.RemoveFileName(OLESTR("n"), OLESTR("doc"))) << "stored as a fixed one";
    manager.SetFileName(OLESTR("f"), File(OLESTR("y.txt")), true, OLESTR("doc"));
    EXPECT_EQ(TextOf(manager.GetFileName(OLESTR("f"), OLESTR("doc"))), OLESTR("y.txt"));
    EXPECT_TRUE(manager.RemoveFileName(OLESTR("f"), OLESTR("doc"))) << "a user entry now";
    manager.SetFileName(OLESTR("m"), File(OLESTR("m.txt")), true, OLESTR("new"));
    EXPECT_TRUE(manager.RemoveFileName(OLESTR("m"), OLESTR("new")));
}

TEST(CKrFileNameManager, KeepsFixedEntriesFromUsers)
{
    CKrFileNameManager manager = MakeManager();
    manager.SetUserFileName(OLESTR("f"), File(OLESTR("x.txt")), OLESTR("doc"));
    manager.SetUserFileName(OLESTR("u"), File(OLESTR("y.txt")), OLESTR("doc"));
    manager.SetUserFileName(OLESTR("n"), File(OLESTR("z.txt")), OLESTR("doc"));
    manager.SetUserFileName(OLESTR("n"), File(OLESTR("z.txt")), OLESTR("new"));
    EXPECT_EQ(ContentOf(manager), OLESTR("doc/f=C:\\p\\fixed.txt doc/n=C:\\p\\z.txt doc/u=C:\\p\\y.txt new/n=z.txt"));
    EXPECT_TRUE(manager.RemoveFileName(OLESTR("n"), OLESTR("doc"))) << "stored as a user entry";
    EXPECT_TRUE(manager.RemoveFileName(OLESTR("u"), OLESTR("doc")));
    EXPECT_FALSE(manager.RemoveFileName(OLESTR("f"), OLESTR("doc")));
}

TEST(CKrFileNameManager, GivesNamesAsTheyWereStored)
{
    CKrFileNameManager const manager = MakeManager();
    EXPECT_EQ(TextOf(manager.GetFileName(OLESTR("u"), OLESTR("doc"))), OLESTR("user.txt"));
    EXPECT_EQ(TextOf(manager.GetFileName(OLESTR("U"), OLESTR("doc"))), OLESTR(""));
    EXPECT_EQ(TextOf(manager.GetFileName(OLESTR("u"), OLESTR("Doc"))), OLESTR(""));
    EXPECT_EQ(TextOf(manager.GetFileName(OLESTR("u"), CString())), OLESTR(""));
    EXPECT_FALSE(manager.HasFileName(OLESTR("U"), OLESTR("doc")));
    EXPECT_FALSE(manager.HasFileName(OLESTR("u"), OLESTR("Doc")));
}

TEST(CKrFileNameManager, CompletesRelativeNamesWithTheDirectoryOfTheGroup)
{
    struct Row
    {
        WCHAR const * file;
        WCHAR const * group;
        WCHAR const * fullName;
    };
    // clang-format off
    constexpr Row rows[] = {
        { OLESTR("sub\\a.txt"),     OLESTR("doc"),  OLESTR("C:\\p\\sub\\a.txt")   },
        { OLESTR("a.txt"),          OLESTR("doc"),  OLESTR("C:\\p\\a.txt")        },
        { OLESTR("\\x\\a.txt"),     OLESTR("doc"),  OLESTR("C:\\p\\x\\a.txt")     },
        { OLESTR("D:\\a.txt"),      OLESTR("doc"),  OLESTR("D:\\a.txt")           },
        { OLESTR("\\\\s\\x\\a"),    OLESTR("doc"),  OLESTR("\\\\s\\x\\a")         },
        { OLESTR(""),               OLESTR("doc"),  OLESTR("C:\\p\\")             },
        { OLESTR("sub\\a.txt"),     OLESTR("DOC"),  OLESTR("\\sub\\a.txt")        },  // no directory under that name
        { OLESTR("sub\\a.txt"),     OLESTR("unc"),  OLESTR("\\\\srv\\sub\\a.txt") },
        { OLESTR("sub\\a.txt"),     OLESTR("rel"),  OLESTR("\\r\\sub\\a.txt")     },
        { OLESTR("sub\\a.txt"),     OLESTR("file"), OLESTR("\\sub\\a.txt")        },  // a file name is no directory
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.file) + " in " + Narrow(row.group));
        auto paths = MakePaths();
        paths->SetPath(OLESTR("unc"), CKrFileName(OLESTR("//srv"), true), false);
        paths->SetPath(OLESTR("rel"), CKrFileName(OLESTR("r"), true), false);
        paths->SetPath(OLESTR("file"), File(OLESTR("C:\\p\\f.txt")), false);
        CKrFileNameManager manager(paths.release());
        manager.AddFileName(OLESTR("a"), File(row.file), false, row.group);
        EXPECT_EQ(TextOf(manager.GetFullFileName(OLESTR("a"), row.group)), row.fullName);
        EXPECT_EQ(TextOf(manager.GetFileName(OLESTR("a"), row.group)), TextOf(File(row.file)));
    }
}

TEST(CKrFileNameManager, CompletesAMissingNameToTheDirectory)
{
    CKrFileNameManager const manager = MakeManager();
    CKrFileName const name = manager.GetFullFileName(OLESTR("none"), OLESTR("doc"));
    EXPECT_TRUE(name.IsDirName());
    EXPECT_EQ(TextOf(name), OLESTR("C:\\p\\"));
    EXPECT_EQ(TextOf(manager.GetFullFileName(OLESTR("none"), OLESTR("none"))), OLESTR(""));
}

TEST(CKrFileNameManager, ChangesNothingOfANameWithoutADirectory)
{
    CKrFileName odd(OLESTR("a.txt"), false);
    odd.SetDir(OLESTR("x:y\\.\\.\\z"));
    OpenManager manager;
    manager.AddFileName(OLESTR("a"), odd, false, CString());
    CKrFileName const full = manager.GetFullFileName(OLESTR("a"), CString());
    EXPECT_EQ(full.GetDrive(), OLESTR(""));
    EXPECT_EQ(full.GetDir(), OLESTR("\\x:y\\.\\z"));
}

TEST(CKrFileNameManager, AsksForTheEmptyGroupAsItIsGiven)
{
    auto paths = MakePaths();
    paths->SetPath(CString(), CKrFileName(OLESTR("C:\\empty"), true), false);
    paths->SetPath(OLESTR("#NO_GROUP#"), CKrFileName(OLESTR("C:\\none"), true), false);
    CKrFileNameManager manager(paths.release());
    manager.AddFileName(OLESTR("a"), File(OLESTR("a.txt")), false, CString());
    EXPECT_EQ(TextOf(manager.GetFullFileName(OLESTR("a"), CString())), OLESTR("C:\\empty\\a.txt"));
    EXPECT_EQ(TextOf(manager.GetFullFileName(OLESTR("a"), OLESTR("#NO_GROUP#"))), OLESTR("C:\\none\\a.txt"));
    EXPECT_EQ(ContentOf(manager), OLESTR("#NO_GROUP#/a=C:\\none\\a.txt"));
}

TEST(CKrFileNameManager, RemovesUserEntriesOneByOneAndGroupsAsAWhole)
{
    CKrFileNameManager manager = MakeManager();
    EXPECT_FALSE(manager.RemoveFileName(OLESTR("f"), OLESTR("doc")));
    EXPECT_FALSE(manager.RemoveFileName(OLESTR("none"), OLESTR("doc")));
    EXPECT_FALSE(manager.RemoveFileName(OLESTR("u"), OLESTR("none")));
    EXPECT_TRUE(manager.RemoveFileName(OLESTR("u"), OLESTR("doc")));
    EXPECT_FALSE(manager.RemoveFileName(OLESTR("u"), OLESTR("doc")));
    EXPECT_EQ(ContentOf(manager), OLESTR("doc/f=C:\\p\\fixed.txt"));
    EXPECT_TRUE(manager.RemoveFileNameGroup(OLESTR("doc"))) << "the fixed one too";
    EXPECT_FALSE(manager.RemoveFileNameGroup(OLESTR("doc")));
    EXPECT_EQ(ContentOf(manager), OLESTR(""));
}

TEST(CKrFileNameManager, ForgetsAGroupWithItsLastEntry)
{
    OpenManager manager;
    manager.AddFileName(OLESTR("a"), File(OLESTR("a.txt")), true, OLESTR("old"));
    manager.AddFileName(OLESTR("b"), File(OLESTR("b.txt")), true, OLESTR("old"));
    EXPECT_TRUE(manager.RemoveFileName(OLESTR("a"), OLESTR("old")));
    EXPECT_TRUE(manager.RenameFileNameGroup(OLESTR("old"), OLESTR("new")));
    EXPECT_TRUE(manager.RemoveFileName(OLESTR("b"), OLESTR("new")));
    EXPECT_FALSE(manager.RenameFileNameGroup(OLESTR("new"), OLESTR("old")));
    EXPECT_FALSE(manager.RemoveFileNameGroup(OLESTR("new")));
}

TEST(CKrFileNameManager, RenamesAGroupThatIsThereToOneThatIsNot)
{
    CKrFileNameManager manager = MakeManager();
    manager.AddFileName(OLESTR("a"), File(OLESTR("a.txt")), true, OLESTR("taken"));
    EXPECT_FALSE(manager.RenameFileNameGroup(OLESTR("doc"), OLESTR("taken"))) << "groups are not merged";
    EXPECT_FALSE(manager.RenameFileNameGroup(OLESTR("none"), OLESTR("new")));
    EXPECT_FALSE(manager.RenameFileNameGroup(OLESTR("none"), OLESTR("taken")));
    EXPECT_TRUE(manager.RenameFileNameGroup(OLESTR("none"), OLESTR("none")))
        << "equal names, though there is no such group";
    EXPECT_TRUE(manager.RenameFileNameGroup(OLESTR("doc"), OLESTR("doc")));
    EXPECT_TRUE(manager.RenameFileNameGroup(CString(), OLESTR("#NO_GROUP#")));
    EXPECT_TRUE(manager.RenameFileNameGroup(OLESTR("doc"), OLESTR("Doc")));
    EXPECT_EQ(ContentOf(manager), OLESTR("Doc/f=fixed.txt Doc/u=user.txt taken/a=a.txt"));
    EXPECT_FALSE(manager.RemoveFileName(OLESTR("f"), OLESTR("Doc"))) << "the flags came along";
    EXPECT_TRUE(manager.RemoveFileName(OLESTR("u"), OLESTR("Doc")));
    EXPECT_TRUE(manager.RenameFileNameGroup(OLESTR("Doc"), CString()));
    EXPECT_EQ(ContentOf(manager), OLESTR("#NO_GROUP#/f=fixed.txt taken/a=a.txt"));
}

TEST(CKrFileNameManager, IsClearedButForThePathManager)
{
    CKrFileNameManager manager = MakeManager();
    CKrPathmanager const * const paths = manager.GetPathmanager();
    EXPECT_TRUE(manager.Clear());
    EXPECT_EQ(ContentOf(manager), OLESTR(""));
    EXPECT_EQ(manager.GetPathmanager(), paths);
    EXPECT_TRUE(manager.Clear());
}

TEST(CKrFileNameManager, AppendsItsContentToWhatIsThere)
{
    CKrFileNameManager const manager = MakeManager();
    std::vector<CString> groups, keys;
    std::vector<CKrFileName> files;
    EXPECT_TRUE(manager.GetContent(groups, keys, files));
    EXPECT_TRUE(manager.GetContent(groups, keys, files));
    EXPECT_EQ(groups, std::vector<CString>(4, CString(OLESTR("doc"))));
    EXPECT_EQ(keys, (std::vector<CString>{OLESTR("f"), OLESTR("u"), OLESTR("f"), OLESTR("u")}));
    ASSERT_EQ(files.size(), 4u);
    EXPECT_EQ(TextOf(files[3]), OLESTR("C:\\p\\user.txt"));
    EXPECT_TRUE(manager.GetAllFileNames(files));
    ASSERT_EQ(files.size(), 6u);
    EXPECT_EQ(TextOf(files[4]), OLESTR("C:\\p\\fixed.txt"));
    EXPECT_TRUE(OpenManager().GetContent(groups, keys, files));
    EXPECT_TRUE(OpenManager().GetAllFileNames(files));
    EXPECT_EQ(groups.size(), 4u);
    EXPECT_EQ(files.size(), 6u);
}

TEST(CKrFileNameManager, TakesTheEntriesOfAnotherForSubclasses)
{
    CKrFileNameManager const source = MakeManager();
    OpenManager manager;
    CKrPathmanager const * const paths = manager.GetPathmanager();
    manager.AddFileName(OLESTR("a"), File(OLESTR("a.txt")), true, OLESTR("own"));
    manager.CopyFileNames(source);
    EXPECT_EQ(ContentOf(manager), OLESTR("doc/f=fixed.txt doc/u=user.txt"));
    EXPECT_EQ(manager.GetPathmanager(), paths);
    manager.CopyFileNames(manager);
    EXPECT_EQ(ContentOf(manager), OLESTR("doc/f=fixed.txt doc/u=user.txt"));
}

TEST(CKrFileNameManager, StaysAsItWasWhenMemoryRunsOut)
{
    using Change = void (*)(OpenManager &);
    // clang-format off
    constexpr Change changes[] = {
        [](OpenManager & manager) { manager.AddFileName(OLESTR("n"), File(OLESTR("n.txt")), true, OLESTR("doc")); },
        [](OpenManager & manager) { manager.AddFileName(OLESTR("n"), File(OLESTR("n.txt")), true, CString()); },
        [](OpenManager & manager) { manager.SetFileName(OLESTR("u"), File(OLESTR("n.txt")), true, OLESTR("doc")); },
        [](OpenManager & manager) { manager.SetUserFileName(OLESTR("n"), File(OLESTR("n.txt")), OLESTR("new")); },
        [](OpenManager & manager) { manager.RemoveFileName(OLESTR("u"), OLESTR("doc")); },
        [](OpenManager & manager) { manager.RenameFileNameGroup(OLESTR("doc"), OLESTR("new")); },
        [](OpenManager & manager) { manager.CopyFileNames(MakeManager()); },
    };
    // clang-format on
    for (Change const change : changes)
    {
        SCOPED_TRACE(&change - changes);
        OpenManager manager;
        manager.AddFileName(OLESTR("u"), File(OLESTR("user.txt")), true, OLESTR("doc"));
        auto const expectUnchanged = [&]
        {
            EXPECT_EQ(ContentOf(manager), OLESTR("doc/u=user.txt"));
            EXPECT_FALSE(manager.RemoveFileNameGroup(CString())) << "no group without an entry is left";
        };
        EXPECT_GE(FailUntilItPasses([&] { change(manager); }, expectUnchanged), 1u);
        EXPECT_NE(ContentOf(manager), OLESTR("doc/u=user.txt"));
    }
}

TEST(CKrFileNameManager, LeavesTheVectorsAsTheyWereWhenMemoryRunsOut)
{
    CKrFileNameManager const manager = MakeManager();
    auto const append = [&]
    {
        std::vector<CString> groups, keys;
        std::vector<CKrFileName> files;
        try
        {
            manager.GetContent(groups, keys, files);
        }
        catch (...)
        {
            EXPECT_TRUE(groups.empty() && keys.empty() && files.empty());
            throw;
        }
    };
    EXPECT_GE(FailUntilItPasses(append, [] {}), 5u);
}

TEST(CKrFileNameManager, LeaksNothingWhereACopyRunsOutOfMemory)
{
    int const before = CountedPathmanager::Living();
    CKrFileNameManager const manager = MakeManager();
    std::size_t const failures = FailUntilItPasses([&] { CKrFileNameManager const copy(manager); },
                                                   [&] { EXPECT_EQ(CountedPathmanager::Living(), before + 1); });
    EXPECT_GE(failures, 3u);
}

} // namespace kr::test
