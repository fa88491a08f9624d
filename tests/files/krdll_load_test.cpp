#include <krcore/files/krdll.h>

#include "tests/krplatform/system/test_modules.h"
#include "tests/support/child_process.h"
#include "tests/support/memory_failure.h"
#include "tests/support/text.h"

#include <krcore/diagnostics/krtrace.h>
#include <krcore/files/krmodule.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

namespace kr::test
{

namespace
{

CKrDLL Library(std::filesystem::path const & path) { return CKrDLL(CKrFileName(HandedOut(path).c_str(), false)); }

CKrDLL Library(WCHAR const * name) { return CKrDLL(CKrFileName(name, false)); }

std::string NameIn(CKrDLL const & library) { return Narrow(CString(library.GetDLLName())); }

/// A directory with the module kr_plan.so and the library that it needs.
class CKrDLLLoad : public testing::Test
{
protected:
    CKrDLLLoad() { CopyModule("kr_plan_parts.so", m_directory); }

    int Loaded() const { return CountLoadedFrom(m_directory.Path()); }

    TemporaryDirectory m_directory;
    std::filesystem::path m_path = CopyModule("kr_plan.so", m_directory);
};

/// The process's trace goes to a file meanwhile.
class CKrDLLTrace : public CKrDLLLoad
{
protected:
    CKrDLLTrace() { CKrTrace::SetObject(new CKrTrace(CString(m_file.c_str()), CString()), true); }
    ~CKrDLLTrace() override { CKrTrace::SetObject(nullptr, true); }

    /// The last line behind its time.
    std::string LastLine() const
    {
        std::string const text = ReadText(m_file);
        std::size_t const begin = text.empty() ? 0 : text.rfind('\n', text.size() - 2) + 1;
        return text.substr(std::min(text.size(), begin + std::string_view("hh:mm:ss").size()));
    }

    std::filesystem::path m_file = m_directory / "trace.log";
};

std::string LineOf(std::string const & name, int line)
{
    return "-krdll                         (" + std::to_string(line) + "): \t" + name + " not mapped\n";
}

} // namespace

TEST_F(CKrDLLLoad, LoadsALibraryWithWhatLiesBesideIt)
{
    CKrDLL library = Library(m_path);
    EXPECT_TRUE(library.LoadDLL(true));
    EXPECT_EQ(Loaded(), 2);
    EXPECT_TRUE(library.IsMapped());
    EXPECT_FALSE(library.IsUsed()) << "the class has no knowledge of use";
    EXPECT_EQ(NameIn(library), Narrow(HandedOut(m_path)));
    auto const address = reinterpret_cast<void *>(library.GetFuncAddress(OLESTR("KrTestPlan")));
    auto const plan = reinterpret_cast<int (*)(int)>(address);
    ASSERT_NE(plan, nullptr);
    EXPECT_EQ(plan(4), 7);
    EXPECT_TRUE(library.UnloadDLL());
    EXPECT_EQ(Loaded(), 0);
    EXPECT_FALSE(library.UnloadDLL());
    EXPECT_EQ(NameIn(library), Narrow(HandedOut(m_path))) << "the name stays";
}

TEST_F(CKrDLLLoad, DoesNotLookBesideTheLibraryUnlessAsked)
{
    CKrDLL library = Library(m_path);
    EXPECT_FALSE(library.LoadDLL(false));
    EXPECT_EQ(Loaded(), 0);
    EXPECT_EQ(NameIn(library), Narrow(HandedOut(m_path)));
}

TEST_F(CKrDLLLoad, LoadsByAPathWithoutLookingBeside)
{
    std::filesystem::path const path = CopyModule("kr_texts_en.so", m_directory);
    CKrDLL library = Library(path);
    EXPECT_TRUE(library.LoadDLL(false));
    EXPECT_EQ(library.GetDLLHandle(), GetModuleHandleW(NameOf(path).c_str()));
    EXPECT_TRUE(library.UnloadDLL());
    EXPECT_EQ(Loaded(), 0);
}

TEST_F(CKrDLLLoad, CountsWithTheSystemAndNotByItself)
{
    CopyModule("kr_texts_en.so", m_directory);
    {
        CKrDLL first = Library(m_directory / "kr_texts_en.so");
        CKrDLL second(first);
        EXPECT_TRUE(first.LoadDLL(true));
        EXPECT_TRUE(first.LoadDLL(true));
        EXPECT_TRUE(second.LoadDLL(false));
    }
    EXPECT_EQ(Loaded(), 1) << "dropping an object unloads nothing";
    CKrDLL library = Library(m_directory / "kr_texts_en.so");
    EXPECT_TRUE(library.UnloadDLL());
    EXPECT_TRUE(library.UnloadDLL());
    EXPECT_EQ(Loaded(), 1);
    EXPECT_TRUE(library.UnloadDLL());
    EXPECT_EQ(Loaded(), 0);
    EXPECT_FALSE(library.UnloadDLL());
}

TEST_F(CKrDLLLoad, LoadsNothingOnceMoreWhoseFileIsGone)
{
    LoadedForTest module(CopyModule("kr_texts_en.so", m_directory));
    std::filesystem::remove(m_directory / "kr_texts_en.so");
    EXPECT_FALSE(Library(m_directory / "kr_texts_en.so").LoadDLL(true));
    EXPECT_FALSE(Library(m_directory / "kr_texts_en.so").UnloadDLL());
    EXPECT_EQ(Loaded(), 1);
    module.Free();
    EXPECT_EQ(Loaded(), 0);
}

TEST_F(CKrDLLLoad, KeepsTheNameOfALinkByWhichItIsLoadedFirst)
{
    CopyModule("kr_texts_en.so", m_directory);
    std::filesystem::create_symlink(m_directory / "kr_texts_en.so", m_directory / "link.so");
    CKrDLL link = Library(m_directory / "link.so");
    EXPECT_TRUE(link.LoadDLL(true));
    EXPECT_EQ(NameIn(link), Narrow(HandedOut(m_directory / "link.so")));
    EXPECT_TRUE(link.IsMapped());
    EXPECT_EQ(Library(m_directory / "kr_texts_en.so").GetDLLHandle(), link.GetDLLHandle()) << "one file, one module";
    EXPECT_TRUE(link.UnloadDLL());
    EXPECT_EQ(Loaded(), 0);
}

TEST_F(CKrDLLLoad, TakesTheNameOfTheModuleInMemoryForALinkToIt)
{
    CopyModule("kr_texts_en.so", m_directory);
    std::filesystem::create_symlink("kr_texts_en.so", m_directory / "link.so");
    CKrDLL library = Library(m_directory / "kr_texts_en.so");
    CKrDLL link = Library(m_directory / "link.so");
    EXPECT_TRUE(library.LoadDLL(true));
    EXPECT_TRUE(link.LoadDLL(true));
    EXPECT_EQ(NameIn(link), Narrow(HandedOut(m_directory / "kr_texts_en.so")));
    EXPECT_EQ(Loaded(), 1);
    EXPECT_TRUE(link.UnloadDLL());
    EXPECT_TRUE(library.UnloadDLL());
    EXPECT_EQ(Loaded(), 0);
}

TEST_F(CKrDLLLoad, FindsABareNameBesideTheProgramAndKnowsItsPlaceThen)
{
    for (bool const alteredSearchPath : {false, true})
    {
        CKrDLL library = Library(OLESTR("sub\\kr_texts_de.so"));
        EXPECT_FALSE(library.HasFullPathName());
        EXPECT_TRUE(library.LoadDLL(alteredSearchPath));
        EXPECT_TRUE(library.HasFullPathName());
        EXPECT_EQ(NameIn(library), Narrow(HandedOut(BuiltModules() / "kr_texts_de.so")));
        EXPECT_FALSE(library.IsMappedFromOtherPath());
        EXPECT_TRUE(library.UnloadDLL());
        EXPECT_FALSE(library.IsMapped());
    }
}

TEST(CKrDLLSearch, DISABLED_FindsABareNameOnTheSearchPath)
{
    CKrDLL library = Library(OLESTR("kr_sought.so"));
    ASSERT_TRUE(library.LoadDLL(false));
    EXPECT_EQ(NameIn(library),
              Narrow(HandedOut(std::filesystem::path(std::getenv("LD_LIBRARY_PATH")) / "kr_sought.so")));
    EXPECT_TRUE(library.UnloadDLL());
}

TEST_F(CKrDLLLoad, FindsABareNameOnTheSearchPath)
{
    CopyModule("kr_texts_en.so", m_directory, "kr_sought.so");
    CKrDLL library = Library(OLESTR("kr_sought.so"));
    EXPECT_FALSE(library.LoadDLL(false)) << "it is not on the path of this process";
    ChildResult const result = RunTestInChild("CKrDLLSearch.DISABLED_FindsABareNameOnTheSearchPath",
                                              {{"LD_LIBRARY_PATH", m_directory.Path().string()}});
    EXPECT_EQ(result.exitStatus, 0) << result.output;
}

TEST_F(CKrDLLLoad, LoadsNothingThatIsNoLibrary)
{
    WriteText(m_directory / "text.so", "not a module at all, but a text of some length that fills a header of its own");
    WriteText(m_directory / "empty.so", "");
    CopyModule("kr_texts_en.so", m_directory, "cut.so");
    std::filesystem::resize_file(m_directory / "cut.so", 3000);
    std::filesystem::create_directory(m_directory / "directory.so");
    std::filesystem::create_symlink("nowhere.so", m_directory / "dangling.so");
    std::filesystem::path const paths[] = {
        m_directory / "text.so",      m_directory / "empty.so",    m_directory / "cut.so",
        m_directory / "directory.so", m_directory / "dangling.so", m_directory / "none.so",
        m_directory / "text.so/x.so", m_directory / "none/x.so",   "/dev/full",
    };
    for (std::filesystem::path const & path : paths)
    {
        SCOPED_TRACE(path);
        CKrDLL library = Library(path);
        EXPECT_FALSE(library.LoadDLL(false));
        EXPECT_FALSE(library.LoadDLL(true));
        EXPECT_EQ(NameIn(library), Narrow(HandedOut(path)));
        EXPECT_FALSE(library.UnloadDLL());
    }
    EXPECT_FALSE(Library(OLESTR("kr_no_such_module.so")).LoadDLL(false));
    EXPECT_EQ(Loaded(), 0);
}

TEST_F(CKrDLLLoad, GivesALibraryBackWhoseFullNameItCannotHold)
{
    std::filesystem::path const directory = m_directory.Path() / std::string(250, 'a') / std::string(250, 'b');
    std::filesystem::create_directories(directory);
    std::filesystem::copy_file(BuiltModules() / "kr_texts_en.so", directory / "kr_texts_en.so");
    CKrDLL library = Library(directory / "kr_texts_en.so");
    EXPECT_TRUE(library.IsValid());
    EXPECT_FALSE(library.LoadDLL(true));
    EXPECT_EQ(Loaded(), 0);
    EXPECT_EQ(NameIn(library), Narrow(HandedOut(directory / "kr_texts_en.so")));
}

TEST_F(CKrDLLLoad, TakesNothingFromALibraryTheProgramIsLinkedWith)
{
    CKrDLL library(KrCore::GetModule().GetModuleHandleW());
    EXPECT_TRUE(library.IsMapped());
    EXPECT_FALSE(library.UnloadDLL());
    EXPECT_TRUE(library.IsMapped());
    EXPECT_TRUE(library.LoadDLL(true));
    EXPECT_TRUE(library.UnloadDLL()) << "but what was taken";
    EXPECT_FALSE(library.UnloadDLL());
}

TEST_F(CKrDLLLoad, LoadsNothingAndKeepsItsNameWhenMemoryRunsOut)
{
    CKrDLL library = Library(m_path);
    auto const load = [&]
    {
        if (!library.LoadDLL(true))
            throw std::bad_alloc();
    };
    std::size_t const failures = FailUntilItPasses(load,
                                                   [&]
                                                   {
                                                       EXPECT_EQ(Loaded(), 0);
                                                       EXPECT_EQ(NameIn(library), Narrow(HandedOut(m_path)));
                                                   });
    EXPECT_GT(failures, 10u);
    EXPECT_EQ(Loaded(), 2);
    EXPECT_TRUE(library.UnloadDLL());
}

TEST_F(CKrDLLTrace, FindsSymbolsByTheirNarrowNames)
{
    CKrDLL library = Library(m_path);
    ASSERT_TRUE(library.LoadDLL(true));
    EXPECT_NE(library.GetFuncAddress(OLESTR("KrTestPlan")), nullptr);
    CKrDLL const bare = Library(OLESTR("kr_plan.so"));
    EXPECT_EQ(bare.GetFuncAddress(OLESTR("KrTestPlan")), library.GetFuncAddress(OLESTR("KrTestPlan")));
    ASSERT_NE(library.GetFuncAddress(OLESTR("KrTestGr\u00F6\u00DFe")), nullptr) << "in the code page of the process";
    EXPECT_EQ(library.GetFuncAddress(OLESTR("KrTestGr\u00F6\u00DFe"))(), 7);
    EXPECT_EQ(LastLine(), "") << "what is found is not traced";
    EXPECT_TRUE(library.UnloadDLL());
}

TEST_F(CKrDLLLoad, MakesTheTraceThatItWritesToWhereThereIsNone)
{
    CKrTrace::SetObject(nullptr, true);
    EXPECT_EQ(Library(m_path).GetFuncAddress(OLESTR("KrTestPlan")), nullptr);
    ASSERT_NE(CKrTrace::GetObjectW(false), nullptr);
    EXPECT_FALSE(CKrTrace::GetObjectW(false)->IsOn());
    CKrTrace::SetObject(nullptr, true);
}

TEST_F(CKrDLLTrace, TracesALibraryThatIsNotMappedWithLine270)
{
    CKrDLL const library = Library(m_path);
    EXPECT_EQ(library.GetFuncAddress(OLESTR("KrTestPlan")), nullptr);
    EXPECT_EQ(LastLine(), LineOf(CStringA(CString(library.GetDLLName())).GetString(), 270));
    CKrDLL const missing = Library(OLESTR("C:\\none\\foo.dll"));
    EXPECT_EQ(missing.GetFuncAddress(OLESTR("f")), nullptr);
    EXPECT_EQ(LastLine(), LineOf("C:\\none\\foo.dll", 270));
    EXPECT_EQ(CKrDLL().GetFuncAddress(OLESTR("f")), nullptr);
    EXPECT_EQ(LastLine(), LineOf("", 270));
}

TEST_F(CKrDLLTrace, TracesTheLibraryAndNotTheSymbolThatIsMissingWithLine281)
{
    CKrDLL library = Library(m_path);
    ASSERT_TRUE(library.LoadDLL(true));
    for (WCHAR const * const symbol :
         {OLESTR("KrTestNone"), OLESTR("krtestplan"), OLESTR(""), OLESTR("KrTestPartCount"), OLESTR("malloc")})
    {
        SCOPED_TRACE(Narrow(symbol));
        CKrTrace::GetObjectW(true)->Trace(OLESTR("before"), true);
        EXPECT_EQ(library.GetFuncAddress(symbol), nullptr);
        EXPECT_EQ(LastLine(), LineOf(CStringA(CString(library.GetDLLName())).GetString(), 281));
    }
    EXPECT_TRUE(library.UnloadDLL());
}

TEST_F(CKrDLLTrace, TurnsTheTraceOffForGoodWhereItFailsFirst)
{
    CKrTrace::SetObject(nullptr, true);
    EXPECT_EQ(CKrDLL().GetFuncAddress(OLESTR("f")), nullptr);
    ASSERT_NE(CKrTrace::GetObjectW(false), nullptr);
    EXPECT_FALSE(CKrTrace::GetObjectW(CString(m_file.c_str()), CString())->IsOn());
}

TEST_F(CKrDLLTrace, ThrowsNothingWhenMemoryRunsOut)
{
    CKrDLL library = Library(m_path);
    ASSERT_TRUE(library.LoadDLL(true));
    CString const names[] = {OLESTR("KrTestPlan"), OLESTR("KrTestNone")};
    for (CString const & name : names)
    {
        SCOPED_TRACE(Narrow(name));
        for (std::size_t n = 1;; ++n)
        {
            std::size_t const before = LiveAllocations();
            bool hasFailed = false;
            FARPROC address = nullptr;
            {
                FailNthAllocation const fail(n);
                address = library.GetFuncAddress(name);
                hasFailed = fail.HasFailed();
            }
            EXPECT_EQ(LiveAllocations(), before);
            if (!hasFailed)
            {
                EXPECT_EQ(address != nullptr, name == names[0]);
                EXPECT_GT(n, 3u);
                break;
            }
            EXPECT_EQ(address, nullptr);
        }
    }
    EXPECT_TRUE(library.UnloadDLL());
}

} // namespace kr::test
