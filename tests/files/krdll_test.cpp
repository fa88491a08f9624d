#include <krcore/files/krdll.h>

#include "tests/krplatform/system/test_modules.h"
#include "tests/support/memory_failure.h"
#include "tests/support/text.h"
#include "tests/support/virtual_slot.h"

#include <gtest/gtest.h>

namespace kr::test
{

namespace
{

CKrDLL Library(std::filesystem::path const & path) { return CKrDLL(CKrFileName(HandedOut(path).c_str(), false)); }

CKrDLL Library(WCHAR const * name) { return CKrDLL(CKrFileName(name, false)); }

std::string NameIn(CKrDLL const & library) { return Narrow(CString(library.GetDLLName())); }

/// A directory with the module kr_texts_en.so.
class CKrDLLTest : public testing::Test
{
protected:
    TemporaryDirectory m_directory;
    std::filesystem::path m_path = CopyModule("kr_texts_en.so", m_directory);
};

} // namespace

TEST(CKrDLLName, KeepsItsVirtualsInOrder)
{
    EXPECT_EQ(VirtualSlotOf(&CKrDLL::operator=), 2u); // behind the two of the destructor
    EXPECT_EQ(VirtualSlotOf(&CKrDLL::IsUsed), 3u);
    EXPECT_EQ(VirtualSlotOf(&CKrDLL::GetFuncAddress), 4u);
}

TEST(CKrDLLName, IsEmptyAtFirst)
{
    CKrDLL library;
    EXPECT_EQ(NameIn(library), "");
    EXPECT_FALSE(library.HasFullPathName());
    EXPECT_FALSE(library.IsValid());
    EXPECT_FALSE(library.IsMapped());
    EXPECT_FALSE(library.IsMappedFromOtherPath());
    EXPECT_FALSE(library.IsUsed());
    EXPECT_EQ(library.GetDLLHandle(), nullptr);
    EXPECT_EQ(library.GetFuncAddress(OLESTR("f")), nullptr);
    EXPECT_FALSE(library.LoadDLL(false));
    EXPECT_FALSE(library.LoadDLL(true));
    EXPECT_FALSE(library.UnloadDLL());
}

TEST(CKrDLLName, KeepsAFullNameAndReducesARelativeOne)
{
    struct Row
    {
        WCHAR const * name;
        bool isPath;
        WCHAR const * kept;
        bool isFull;
    };
    // clang-format off
    constexpr Row rows[] = {
        { OLESTR("foo.dll"),              false, OLESTR("foo.dll"),                   false },
        { OLESTR("sub\\foo.dll"),         false, OLESTR("foo.dll"),                   false },
        { OLESTR("\\sub\\foo.dll"),       false, OLESTR("foo.dll"),                   false },
        { OLESTR("/opt/plan/foo.so"),     false, OLESTR("foo.so"),                    false },  // one slash: no drive
        { OLESTR("//opt/plan/foo.so"),    false, OLESTR("\\\\opt\\plan\\foo.so"),     true  },
        { OLESTR("C:\\none\\foo.dll"),    false, OLESTR("C:\\none\\foo.dll"),         true  },
        { OLESTR("C:\\foo.dll"),          false, OLESTR("C:\\foo.dll"),               true  },
        { OLESTR("sub\\libfoo.so.1"),     false, OLESTR("libfoo.so.1"),               false },
        { OLESTR("C:\\x"),                true,  OLESTR(""),                          false },  // a directory
        { OLESTR("C:\\x\\"),              false, OLESTR(""),                          false },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.name));
        CKrDLL const library(CKrFileName(row.name, row.isPath));
        EXPECT_EQ(NameIn(library), Narrow(row.kept));
        EXPECT_EQ(library.HasFullPathName(), row.isFull);
    }
}

TEST(CKrDLLName, KeepsBaseNameAndExtOfARelativeNameApart)
{
    CKrFileName name;
    name.SetDir(OLESTR("sub"));
    name.SetBaseName(OLESTR("foo.one"));
    EXPECT_EQ(CKrDLL(name).GetDLLName().GetBaseName(), OLESTR("foo.one"));
    name.SetBaseName(CString());
    name.SetExt(OLESTR("so"));
    EXPECT_EQ(CKrDLL(name).GetDLLName().GetExt(), OLESTR("so"));
    EXPECT_EQ(CKrDLL(name).GetDLLName().GetDir(), OLESTR(""));
}

TEST_F(CKrDLLTest, IsValidByItsBaseNameAloneOrByAnExistingPath)
{
    std::filesystem::create_directory(m_directory / "sub.so");
    EXPECT_TRUE(Library(OLESTR("foo.dll")).IsValid()) << "the system will search";
    EXPECT_FALSE(Library(OLESTR("C:\\none\\foo.dll")).IsValid());
    EXPECT_TRUE(Library(m_path).IsValid());
    EXPECT_FALSE(Library(m_directory / "none.so").IsValid());
    EXPECT_FALSE(Library(m_path / "none.so").IsValid()) << "below a file";
    EXPECT_TRUE(Library(m_directory / "sub.so").IsValid()) << "a directory of that name exists";
    EXPECT_FALSE(Library(OLESTR(".so")).IsValid()) << "only an ext";
    EXPECT_FALSE(CKrDLL(CKrFileName(OLESTR("C:\\x"), true)).IsValid());
    std::filesystem::rename(m_path, m_directory / ".so");
    EXPECT_FALSE(Library(m_directory / ".so").IsValid());
}

TEST_F(CKrDLLTest, TakesTheFullNameOfALoadedModule)
{
    LoadedForTest module(m_path);
    EXPECT_EQ(NameIn(CKrDLL(module)), Narrow(HandedOut(m_path)));
    HINSTANCE const stale = module.Free();
    EXPECT_EQ(NameIn(CKrDLL(stale)), "");
}

TEST_F(CKrDLLTest, TakesTheNameOfTheProgramForTheHandleNull)
{
    CKrDLL const program(HINSTANCE{nullptr});
    EXPECT_EQ(NameIn(program), Narrow(HandedOut(std::filesystem::read_symlink("/proc/self/exe"))));
    EXPECT_EQ(program.GetDLLHandle(), GetModuleHandleW(nullptr));
}

TEST_F(CKrDLLTest, TakesNoNameOf512CharactersAndMore)
{
    std::filesystem::path directory = m_directory.Path();
    std::size_t const fixed = directory.string().size() + 1; // and a second leading backslash
    directory /= std::string(200, 'a');
    directory /= std::string(200, 'b');
    std::filesystem::create_directories(directory);
    for (std::size_t const length : {511u, 512u})
    {
        SCOPED_TRACE(length);
        std::filesystem::path const path = directory / (std::string(length - fixed - 403 - 3, 'c') + ".so");
        std::filesystem::copy_file(m_path, path);
        ASSERT_EQ(HandedOut(path).size(), length);
        LoadedForTest const module(path);
        EXPECT_EQ(NameIn(CKrDLL(module)), length < 512 ? Narrow(HandedOut(path)) : "");
    }
}

TEST_F(CKrDLLTest, ThrowsNothingAndStaysEmptyWhenMemoryRunsOut)
{
    LoadedForTest const module(m_path);
    for (std::size_t n = 1;; ++n)
    {
        std::size_t const before = LiveAllocations();
        FailNthAllocation const fail(n);
        CKrDLL const library(module);
        if (!fail.HasFailed())
        {
            EXPECT_GT(n, 3u);
            break;
        }
        EXPECT_TRUE(library.GetDLLName().IsDirName());
        EXPECT_EQ(LiveAllocations(), before);
    }
}

TEST_F(CKrDLLTest, IsCopiedByTheConstructor)
{
    CKrDLL const library = Library(m_path);
    CKrDLL const copy(library);
    EXPECT_EQ(NameIn(copy), Narrow(HandedOut(m_path)));
}

TEST_F(CKrDLLTest, StaysAsItWasUnderAnyAssignment)
{
    CKrDLL library = Library(m_path);
    CKrDLL const other = Library(OLESTR("foo.dll"));
    CKrDLL & result = library = other;
    EXPECT_EQ(&result, &library);
    EXPECT_EQ(NameIn(library), Narrow(HandedOut(m_path)));
    CKrDLL empty;
    empty = library;
    EXPECT_EQ(NameIn(empty), "");
    CKrDLL const & itself = library;
    library = itself;
    EXPECT_EQ(NameIn(library), Narrow(HandedOut(m_path)));
}

TEST_F(CKrDLLTest, IsMappedByItsBaseNameAlone)
{
    TemporaryDirectory const elsewhere;
    std::filesystem::path const same = CopyModule("kr_texts_en.so", elsewhere);
    EXPECT_FALSE(Library(m_path).IsMapped());
    EXPECT_FALSE(Library(OLESTR("kr_texts_en.so")).IsMapped());
    {
        LoadedForTest const module(same);
        EXPECT_TRUE(Library(m_path).IsMapped()) << "loaded from elsewhere counts";
        EXPECT_TRUE(Library(same).IsMapped());
        EXPECT_TRUE(Library(OLESTR("kr_texts_en.so")).IsMapped());
        EXPECT_TRUE(Library(OLESTR("kr_texts_en.xyz")).IsMapped()) << "the ext plays no part";
        EXPECT_FALSE(Library(OLESTR("kr_texts.so")).IsMapped());
        EXPECT_FALSE(Library(m_directory / "none/kr_texts_en.so").IsMapped()) << "the path does not exist";
    }
    EXPECT_FALSE(Library(m_path).IsMapped());
}

TEST_F(CKrDLLTest, TellsALibraryThatIsMappedFromAnotherPath)
{
    TemporaryDirectory const elsewhere;
    std::filesystem::path const same = CopyModule("kr_texts_en.so", elsewhere);
    EXPECT_FALSE(Library(m_path).IsMappedFromOtherPath());
    LoadedForTest const module(same);
    EXPECT_TRUE(Library(m_path).IsMappedFromOtherPath());
    EXPECT_TRUE(Library(m_directory / "none/kr_texts_en.so").IsMappedFromOtherPath()) << "need not exist";
    EXPECT_FALSE(Library(same).IsMappedFromOtherPath());
    EXPECT_FALSE(Library(OLESTR("kr_none.so")).IsMappedFromOtherPath());
}

TEST_F(CKrDLLTest, IgnoresCaseInThePathOfAMappedLibrary)
{
    std::filesystem::create_directory(m_directory / "CASE");
    std::filesystem::rename(m_path, m_directory / "CASE/kr_texts_en.so");
    LoadedForTest const module(m_directory / "CASE/kr_texts_en.so");
    EXPECT_FALSE(Library(m_directory / "case/kr_texts_en.SO").IsMappedFromOtherPath());
    EXPECT_TRUE(Library(m_directory / "cases/kr_texts_en.SO").IsMappedFromOtherPath());
}

TEST_F(CKrDLLTest, TakesEveryMappedLibraryOfABareNameForOneFromAnotherPath)
{
    EXPECT_FALSE(Library(OLESTR("kr_texts_en.so")).IsMappedFromOtherPath());
    LoadedForTest const module(m_path);
    EXPECT_TRUE(Library(OLESTR("kr_texts_en.so")).IsMappedFromOtherPath());
}

TEST_F(CKrDLLTest, GivesTheHandleOfTheFullNameOnly)
{
    TemporaryDirectory const elsewhere;
    std::filesystem::path const same = CopyModule("kr_texts_en.so", elsewhere);
    LoadedForTest module(m_path);
    EXPECT_EQ(Library(m_path).GetDLLHandle(), module);
    EXPECT_EQ(Library(OLESTR("kr_texts_en.so")).GetDLLHandle(), module);
    EXPECT_EQ(Library(OLESTR("kr_texts_en")).GetDLLHandle(), module);
    EXPECT_EQ(Library(same).GetDLLHandle(), nullptr);
    std::filesystem::remove(m_path);
    EXPECT_EQ(Library(m_path).GetDLLHandle(), nullptr) << "in memory, but its file is gone, so the name is not valid";
    EXPECT_EQ(Library(OLESTR("kr_texts_en.so")).GetDLLHandle(), module);
    module.Free(); // asking has not changed the count
    EXPECT_EQ(CountLoadedFrom(m_directory.Path()), 0);
}

TEST(CKrDLLName, LetsSubclassesTellOfUseAndFindSymbols)
{
    struct Used : CKrDLL
    {
        using CKrDLL::operator=;
        bool IsUsed() const override { return true; }
        FARPROC GetFuncAddress(CString const &) const override
        {
            return [] { return 5; };
        }
    };
    Used const used;
    CKrDLL const & library = used;
    EXPECT_TRUE(library.IsUsed());
    EXPECT_EQ(library.GetFuncAddress(OLESTR("any"))(), 5);
}

} // namespace kr::test
