#include <krcore/files/krmodule.h>

#include "tests/krplatform/system/test_modules.h"
#include "tests/support/memory_failure.h"
#include "tests/support/text.h"

#include <krcore/diagnostics/krmessagepool.h>
#include <krplatform/system/resource.h>

#include <gtest/gtest.h>

#include <new>
#include <type_traits>

namespace kr::test
{

namespace
{

CString NameOfFile(std::filesystem::path const & path) { return HandedOut(path).c_str(); }

/// The text of the record's current resources; "none" if there is none.
std::string TextOf(CKrModule const & record, unsigned int id)
{
    CString text(OLESTR("none"));
    bool const isThere = CKrMessagePool::LoadResourceString(id, record.GetResourceHandle(), text);
    EXPECT_EQ(isThere, text != OLESTR("none"));
    return Narrow(text);
}

/// A directory with string resources in English and German.
class CKrModuleTest : public testing::Test
{
protected:
    int Loaded() const { return CountLoadedFrom(m_directory.Path()); }

    TemporaryDirectory m_directory;
    std::filesystem::path m_english = CopyModule("kr_texts_en.so", m_directory);
    std::filesystem::path m_german = CopyModule("kr_texts_de.so", m_directory);
    HINSTANCE m_program = GetModuleHandleW(nullptr);
    HINSTANCE m_library = KrCore::GetModule().GetModuleHandleW();
};

} // namespace

static_assert(std::has_virtual_destructor_v<CKrModule>);

TEST_F(CKrModuleTest, TakesItsHandlesAsTheyAre)
{
    CKrModule const empty;
    EXPECT_EQ(empty.GetModuleHandleW(), nullptr);
    EXPECT_EQ(empty.GetResourceHandle(), nullptr);
    CKrModule const one(m_library);
    EXPECT_EQ(one.GetModuleHandleW(), m_library);
    EXPECT_EQ(one.GetResourceHandle(), m_library);
    CKrModule const two(m_library, m_program);
    EXPECT_EQ(two.GetModuleHandleW(), m_library);
    EXPECT_EQ(two.GetResourceHandle(), m_program);
    CKrModule const null(nullptr, m_program);
    EXPECT_EQ(null.GetModuleHandleW(), nullptr);
    EXPECT_EQ(null.GetResourceHandle(), m_program);
}

TEST_F(CKrModuleTest, NamesTheModuleAndNotItsResources)
{
    LoadedForTest const module(m_english);
    CKrModule const record(module, m_program);
    EXPECT_EQ(Narrow(CString(record.GetFileName())), Narrow(NameOfFile(m_english)));
    EXPECT_EQ(record.GetModuleName(), OLESTR("kr_texts_en"));
    EXPECT_EQ(Narrow(record.GetPath()), Narrow(NameOfFile(m_directory / "")));
}

TEST_F(CKrModuleTest, HasNoNameWithoutAModule)
{
    for (CKrModule const & record : {CKrModule(), CKrModule(nullptr, m_program)})
    {
        EXPECT_EQ(Narrow(CString(record.GetFileName())), "") << "not that of the program";
        EXPECT_EQ(Narrow(record.GetModuleName()), "");
        EXPECT_EQ(Narrow(record.GetPath()), "");
    }
}

TEST_F(CKrModuleTest, LoadsReplacesAndRestoresResourcesInTwoLanguages)
{
    HINSTANCE const current = AfxGetResourceHandle();
    CKrModule record(m_library);
    EXPECT_EQ(TextOf(record, 100), "none");
    EXPECT_TRUE(record.LoadResource(NameOfFile(m_english)));
    EXPECT_EQ(TextOf(record, 100), "wall");
    EXPECT_EQ(TextOf(record, 101), "door");
    EXPECT_TRUE(record.LoadResource(NameOfFile(m_german)));
    EXPECT_EQ(TextOf(record, 100), "Wand");
    EXPECT_EQ(TextOf(record, 101), "T\\u00FCr");
    EXPECT_EQ(Loaded(), 1) << "the first library is freed";
    EXPECT_EQ(record.GetModuleHandleW(), m_library);
    EXPECT_TRUE(record.RestoreResourceHandle());
    EXPECT_EQ(record.GetResourceHandle(), m_library) << "what was before the first of the two";
    EXPECT_EQ(Loaded(), 0);
    EXPECT_TRUE(record.RestoreResourceHandle());
    EXPECT_EQ(record.GetResourceHandle(), m_library);
    EXPECT_EQ(AfxGetResourceHandle(), current) << "the platform's own resources are left alone";
}

TEST_F(CKrModuleTest, GivesTextsOfAtMost1023Characters)
{
    CKrModule record;
    ASSERT_TRUE(record.LoadResource(NameOfFile(m_english)));
    std::string const text = TextOf(record, 102);
    EXPECT_EQ(text.size(), 1023u);
    EXPECT_TRUE(text.ends_with("x!"));
    EXPECT_EQ(TextOf(record, 103), "none") << "empty text is none";
    EXPECT_EQ(TextOf(record, 104), "none");
}

TEST_F(CKrModuleTest, ServesTheMessagesOfAPool)
{
    CKrModule record;
    ASSERT_TRUE(record.LoadResource(NameOfFile(m_german)));
    CKrMessagePool pool;
    EXPECT_TRUE(pool.AddMessageGroup(OLESTR("texts"), record.GetResourceHandle(), false, true));
    CString text;
    EXPECT_TRUE(pool.GetMessageW(100, text));
    EXPECT_EQ(text, OLESTR("Wand"));
    record.RestoreResourceHandle();
    EXPECT_FALSE(pool.GetMessageW(101, text)) << "the library has left";
    EXPECT_TRUE(pool.GetMessageW(100, text)) << "what was fetched is kept";
}

TEST_F(CKrModuleTest, LoadsResourcesWithWhatLiesBesideThem)
{
    CopyModule("kr_plan_parts.so", m_directory);
    CKrModule record;
    EXPECT_TRUE(record.LoadResource(NameOfFile(CopyModule("kr_plan.so", m_directory))));
    EXPECT_EQ(TextOf(record, 1), "plan");
    EXPECT_EQ(Loaded(), 2);
}

TEST_F(CKrModuleTest, LoadsResourcesThroughALinkOrByABareName)
{
    std::filesystem::create_symlink(m_german, m_directory / "language.so");
    CKrModule record;
    EXPECT_TRUE(record.LoadResource(NameOfFile(m_directory / "language.so")));
    EXPECT_EQ(TextOf(record, 100), "Wand");
    EXPECT_TRUE(record.RestoreResourceHandle());
    EXPECT_EQ(Loaded(), 0);
    EXPECT_TRUE(record.LoadResource(OLESTR("kr_texts_en.so"))) << "beside the program";
    EXPECT_EQ(TextOf(record, 100), "wall");
    EXPECT_EQ(Loaded(), 0);
}

TEST_F(CKrModuleTest, IsRestoredWhereLoadingFails)
{
    WriteText(m_directory / "text.so", "not a module");
    std::filesystem::path const paths[] = {m_directory / "none.so", m_directory / "text.so",
                                           m_directory / "text.so/none.so", m_directory / ""};
    for (std::filesystem::path const & path : paths)
    {
        SCOPED_TRACE(path);
        CKrModule record(m_library);
        EXPECT_TRUE(record.LoadResource(NameOfFile(m_english)));
        EXPECT_FALSE(record.LoadResource(NameOfFile(path)));
        EXPECT_EQ(record.GetResourceHandle(), m_library);
        EXPECT_EQ(Loaded(), 0);
        record.ChangeResourceHandle(m_program, false);
        EXPECT_FALSE(record.LoadResource(NameOfFile(path)));
        EXPECT_EQ(record.GetResourceHandle(), m_library) << "an earlier change is taken back";
    }
    CKrModule record(m_library);
    EXPECT_FALSE(record.LoadResource(CString()));
}

TEST_F(CKrModuleTest, GoesBackToTheResourcesBeforeTheFirstChange)
{
    LoadedForTest const english(m_english);
    CKrModule record(m_library);
    EXPECT_TRUE(record.ChangeResourceHandle(m_program, false));
    EXPECT_EQ(record.GetResourceHandle(), m_program);
    EXPECT_TRUE(record.ChangeResourceHandle(english, false));
    EXPECT_EQ(record.GetResourceHandle(), english);
    EXPECT_TRUE(record.RestoreResourceHandle());
    EXPECT_EQ(record.GetResourceHandle(), m_library);
    record.ChangeResourceHandle(english, false);
    EXPECT_TRUE(record.RestoreResourceHandle());
    EXPECT_EQ(record.GetResourceHandle(), m_library) << "remembered anew after each restoring";
    EXPECT_EQ(Loaded(), 1) << "what is not owned is not freed";
}

TEST_F(CKrModuleTest, FreesOwnedResourcesWhenTheyAreChanged)
{
    CKrModule record(m_library);
    record.ChangeResourceHandle(AfxLoadLibrary(NameOfFile(m_english)), true);
    EXPECT_EQ(Loaded(), 1);
    record.ChangeResourceHandle(AfxLoadLibrary(NameOfFile(m_german)), true);
    EXPECT_EQ(Loaded(), 1);
    EXPECT_EQ(TextOf(record, 100), "Wand");
    record.ChangeResourceHandle(m_program, false);
    EXPECT_EQ(Loaded(), 0);
    record.RestoreResourceHandle();
    EXPECT_EQ(record.GetResourceHandle(), m_library);
}

TEST_F(CKrModuleTest, OwnsNoNullResources)
{
    CKrModule record(m_library);
    EXPECT_TRUE(record.ChangeResourceHandle(nullptr, true));
    EXPECT_EQ(record.GetResourceHandle(), nullptr);
    SetLastError(ERROR_SUCCESS);
    EXPECT_TRUE(record.RestoreResourceHandle());
    EXPECT_EQ(GetLastError(), ERROR_SUCCESS) << "nothing was given to the system to free";
    EXPECT_EQ(record.GetResourceHandle(), m_library);
}

TEST_F(CKrModuleTest, RemembersResourcesThatItHasJustFreed)
{
    CKrModule record; // no resources, so none are remembered at the first change
    HINSTANCE const english = AfxLoadLibrary(NameOfFile(m_english));
    record.ChangeResourceHandle(english, true);
    record.ChangeResourceHandle(m_program, false);
    EXPECT_EQ(Loaded(), 0);
    record.RestoreResourceHandle();
    EXPECT_EQ(record.GetResourceHandle(), english) << "the handle of a library that has left";
}

TEST_F(CKrModuleTest, KeepsTheHandleItFreedWhereNoneIsRemembered)
{
    CKrModule record;
    HINSTANCE const english = AfxLoadLibrary(NameOfFile(m_english));
    record.ChangeResourceHandle(english, true);
    EXPECT_TRUE(record.RestoreResourceHandle());
    EXPECT_EQ(record.GetResourceHandle(), english);
    EXPECT_EQ(Loaded(), 0);
}

TEST_F(CKrModuleTest, FreesOwnedResourcesOnce)
{
    LoadedForTest const another(m_english); // a load that is not the record's
    CKrModule record(m_library);
    record.LoadResource(NameOfFile(m_english));
    EXPECT_TRUE(record.RestoreResourceHandle());
    EXPECT_TRUE(record.RestoreResourceHandle());
    EXPECT_EQ(Loaded(), 1);
}

TEST_F(CKrModuleTest, IsSetAnew)
{
    CKrModule record(m_program);
    EXPECT_TRUE(record.LoadResource(NameOfFile(m_english)));
    LoadedForTest const german(m_german);
    EXPECT_TRUE(record.Init(m_library, german));
    EXPECT_EQ(Loaded(), 1) << "the owned library is freed";
    EXPECT_EQ(record.GetModuleHandleW(), m_library);
    EXPECT_EQ(record.GetResourceHandle(), german);
    EXPECT_TRUE(record.RestoreResourceHandle());
    EXPECT_EQ(record.GetResourceHandle(), german) << "the resources before are forgotten";
    EXPECT_EQ(Loaded(), 1) << "the new ones are not owned";
    EXPECT_TRUE(record.Init(nullptr, nullptr));
    EXPECT_EQ(record.GetModuleHandleW(), nullptr);
    EXPECT_EQ(record.GetResourceHandle(), nullptr);
}

TEST_F(CKrModuleTest, FreesOwnedResourcesAtItsEnd)
{
    {
        CKrModule record(m_library);
        record.LoadResource(NameOfFile(m_english));
        EXPECT_EQ(Loaded(), 1);
    }
    EXPECT_EQ(Loaded(), 0);
    LoadedForTest const english(m_english);
    {
        CKrModule record(m_library);
        record.ChangeResourceHandle(english, false);
    }
    EXPECT_EQ(Loaded(), 1);
}

TEST_F(CKrModuleTest, CopiesTheOwnershipOfItsResourcesToo)
{
    AfxLoadLibrary(NameOfFile(m_english)); // one load for each record
    {
        CKrModule record(m_library);
        record.LoadResource(NameOfFile(m_english));
        CKrModule copy(record);
        EXPECT_EQ(copy.GetModuleHandleW(), m_library);
        EXPECT_EQ(copy.GetResourceHandle(), record.GetResourceHandle());
        EXPECT_TRUE(copy.RestoreResourceHandle());
        EXPECT_EQ(copy.GetResourceHandle(), m_library);
        EXPECT_EQ(Loaded(), 1);
    }
    EXPECT_EQ(Loaded(), 0) << "both have freed it";
}

TEST_F(CKrModuleTest, LosesWhatItOwnedByAssignment)
{
    CKrModule record(m_library);
    record.LoadResource(NameOfFile(m_english));
    HINSTANCE const english = record.GetResourceHandle();
    record = CKrModule(m_program);
    EXPECT_EQ(record.GetModuleHandleW(), m_program);
    EXPECT_EQ(record.GetResourceHandle(), m_program);
    EXPECT_TRUE(record.RestoreResourceHandle());
    EXPECT_EQ(record.GetResourceHandle(), m_program);
    EXPECT_EQ(Loaded(), 1) << "not freed";
    EXPECT_TRUE(AfxFreeLibrary(english));
    EXPECT_EQ(Loaded(), 0);
}

TEST_F(CKrModuleTest, TakesOwnershipByAssignment)
{
    CKrModule assigned;
    {
        CKrModule record(m_library);
        AfxLoadLibrary(NameOfFile(m_english));
        record.LoadResource(NameOfFile(m_english));
        assigned = record;
    }
    EXPECT_EQ(Loaded(), 1);
    assigned.RestoreResourceHandle();
    EXPECT_EQ(assigned.GetResourceHandle(), m_library);
    EXPECT_EQ(Loaded(), 0);
}

TEST_F(CKrModuleTest, IsRestoredAndLoadsNothingWhenMemoryRunsOut)
{
    CString const english = NameOfFile(m_english);
    CKrModule record(m_library);
    auto const load = [&]
    {
        if (!record.LoadResource(english))
            throw std::bad_alloc();
    };
    auto const expectRestored = [&]
    {
        EXPECT_EQ(record.GetResourceHandle(), m_library);
        EXPECT_EQ(Loaded(), 0);
    };
    EXPECT_GT(FailUntilItPasses(load, expectRestored), 10u);
    EXPECT_EQ(TextOf(record, 100), "wall");
}

} // namespace kr::test
