#include <krcore/files/krmodule.h>

#include "tests/krplatform/system/test_modules.h"
#include "tests/support/child_process.h"
#include "tests/support/text.h"

#include <krplatform/system/resource.h>

#include <gtest/gtest.h>

#include <dlfcn.h>

namespace kr::test
{

namespace
{

// Read as early as a program can.
CString const s_pathAtStart = KrCore::GetModule().GetFileName();
HINSTANCE const s_moduleAtStart = KrCore::GetModule().GetModuleHandleW();
HINSTANCE const s_resourcesAtStart = KrCore::GetModule().GetResourceHandle();

} // namespace

TEST(KrCoreModule, KnowsTheLibraryItself)
{
    CKrModule const & record = KrCore::GetModule();
    auto const address = reinterpret_cast<void const *>(&KrCore::GetModule);
    EXPECT_EQ(record.GetModuleHandleW(), AfxModuleFromAddress(address));
    EXPECT_EQ(record.GetResourceHandle(), record.GetModuleHandleW());
    Dl_info facts = {};
    ASSERT_NE(dladdr(address, &facts), 0);
    std::filesystem::path const path = facts.dli_fname;
    ASSERT_TRUE(path.is_absolute());
    EXPECT_EQ(Narrow(CString(record.GetFileName())), Narrow(HandedOut(path)));
    EXPECT_TRUE(record.GetFileName().IsExisting());
    EXPECT_EQ(Narrow(record.GetModuleName()), path.stem().string());
    EXPECT_EQ(Narrow(record.GetPath()), Narrow(HandedOut(path.parent_path() / "")));
}

TEST(KrCoreModule, IsReadyInStaticObjectsOfTheProgram)
{
    EXPECT_NE(s_moduleAtStart, nullptr);
    EXPECT_EQ(s_moduleAtStart, KrCore::GetModule().GetModuleHandleW());
    EXPECT_EQ(s_resourcesAtStart, KrCore::GetModule().GetResourceHandle());
    EXPECT_FALSE(s_pathAtStart.IsEmpty());
    EXPECT_EQ(s_pathAtStart, CString(KrCore::GetModule().GetFileName()));
}

TEST(KrCoreModule, IsOneRecordForAllClients)
{
    LoadedForTest const client(KR_TEST_CLIENT);
    EXPECT_NE(GetProcAddress(client, "KrTestIsReady")(), 0);
    auto const record = reinterpret_cast<CKrModule const **>(GetProcAddress(client, "KrTestRecord"));
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(*record, &KrCore::GetModule());
}

TEST(KrCoreModule, IsReadyWhereTheLibraryIsLoadedForAClientLater)
{
    ChildResult const result = RunProgram({KR_TEST_CLIENT_HOST, KR_TEST_CLIENT});
    EXPECT_EQ(result.exitStatus, 0) << result.output;
    EXPECT_EQ(result.output, "");
}

TEST(KrCoreModule, HasNoStringsOfItsOwn)
{
    WCHAR text[20];
    for (UINT const id : {0u, 1u, 100u})
        EXPECT_EQ(LoadStringW(KrCore::GetModule().GetResourceHandle(), id, text, 20), 0);
}

TEST(KrCoreModule, DISABLED_EndsWithResourcesStillLoaded)
{
    ASSERT_TRUE(KrCore::GetModule().LoadResource(HandedOut(BuiltModules() / "kr_texts_de.so").c_str()));
    EXPECT_NE(KrCore::GetModule().GetResourceHandle(), KrCore::GetModule().GetModuleHandleW());
}

TEST(KrCoreModule, EndsWithResourcesStillLoaded)
{
    ChildResult const result = RunTestInChild("KrCoreModule.DISABLED_EndsWithResourcesStillLoaded", {});
    EXPECT_EQ(result.exitStatus, 0) << result.output;
}

} // namespace kr::test
