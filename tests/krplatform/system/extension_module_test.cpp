#include <krplatform/system/resource.h>

#include "tests/krplatform/system/test_modules.h"

#include <gtest/gtest.h>

using namespace kr::test;

namespace
{

// The program (see resource_test.cpp) has string 100, kr_plain 500, kr_leaf 700.
class ExtensionModule : public testing::Test
{
protected:
    ExtensionModule() : m_plain(CopyModule("kr_plain.so", m_directory)), m_leaf(CopyModule("kr_leaf.so", m_directory))
    {
        AfxInitExtensionModule(m_plainRecord, m_plain);
        AfxInitExtensionModule(m_leafRecord, m_leaf);
    }
    ~ExtensionModule() override { AfxTermExtensionModule(m_plainRecord, TRUE); }

    TemporaryDirectory m_directory;
    LoadedForTest m_plain;
    LoadedForTest m_leaf;
    AFX_EXTENSION_MODULE m_plainRecord = {};
    AFX_EXTENSION_MODULE m_leafRecord = {};
};

TEST_F(ExtensionModule, RecordHoldsTheModuleAsItsOwnResources)
{
    EXPECT_TRUE(m_plainRecord.bInitialized);
    EXPECT_EQ(m_plainRecord.hModule, m_plain);
    EXPECT_EQ(m_plainRecord.hResource, m_plain);
}

TEST_F(ExtensionModule, RecordStaysAsItWasForNoModule)
{
    EXPECT_FALSE(AfxInitExtensionModule(m_plainRecord, nullptr));
    EXPECT_EQ(m_plainRecord.hModule, m_plain);
}

TEST_F(ExtensionModule, IsLookedIntoBehindTheCurrentResources)
{
    HMODULE const program = GetModuleHandleW(nullptr);
    EXPECT_EQ(AfxFindStringResourceHandle(500), program); // not known yet
    CDynLinkLibrary const * const library = new CDynLinkLibrary(m_plainRecord);
    EXPECT_EQ(library->m_hModule, m_plain);
    EXPECT_EQ(library->m_hResource, m_plain);
    EXPECT_EQ(AfxFindStringResourceHandle(500), m_plain);
    EXPECT_EQ(AfxFindStringResourceHandle(501), m_plain); // empty text is text
    EXPECT_EQ(AfxFindStringResourceHandle(100), program);
    EXPECT_EQ(AfxFindStringResourceHandle(999), program); // nobody has it
    AfxSetResourceHandle(m_leaf);
    EXPECT_EQ(AfxFindStringResourceHandle(700), m_leaf);
    EXPECT_EQ(AfxFindStringResourceHandle(500), m_plain);
    EXPECT_EQ(AfxFindStringResourceHandle(100), m_leaf); // Deliberate: the program counts only as the current module
    AfxSetResourceHandle(nullptr);
}

TEST_F(ExtensionModule, MadeKnownLastIsLookedIntoFirst)
{
    TemporaryDirectory const directory;
    LoadedForTest const second(CopyModule("kr_plain.so", directory));
    AFX_EXTENSION_MODULE secondRecord = {};
    AfxInitExtensionModule(secondRecord, second);
    new CDynLinkLibrary(m_plainRecord);
    EXPECT_EQ(AfxFindStringResourceHandle(500), m_plain);
    new CDynLinkLibrary(secondRecord);
    new CDynLinkLibrary(m_leafRecord);
    EXPECT_EQ(AfxFindStringResourceHandle(500), second);
    AfxTermExtensionModule(secondRecord);
    EXPECT_EQ(AfxFindStringResourceHandle(500), m_plain);
    EXPECT_EQ(AfxFindStringResourceHandle(700), m_leaf);
}

TEST_F(ExtensionModule, IsForgottenWithItsRecord)
{
    std::size_t const before = LiveAllocations();
    new CDynLinkLibrary(m_plainRecord);
    new CDynLinkLibrary(m_plainRecord);
    new CDynLinkLibrary(m_leafRecord);
    AfxTermExtensionModule(m_plainRecord);
    EXPECT_EQ(LiveAllocations(), before + 1);
    EXPECT_FALSE(m_plainRecord.bInitialized);
    EXPECT_EQ(m_plainRecord.hModule, nullptr);
    EXPECT_EQ(m_plainRecord.hResource, nullptr);
    EXPECT_EQ(AfxFindStringResourceHandle(500), GetModuleHandleW(nullptr));
    EXPECT_EQ(AfxFindStringResourceHandle(700), m_leaf);
    AfxTermExtensionModule(m_plainRecord); // once more changes nothing
    EXPECT_EQ(LiveAllocations(), before + 1);
    AfxTermExtensionModule(m_plainRecord, TRUE);
    EXPECT_EQ(LiveAllocations(), before);
    EXPECT_EQ(AfxFindStringResourceHandle(700), GetModuleHandleW(nullptr));
}

TEST_F(ExtensionModule, MayHaveLeftOrHaveNoRecord)
{
    new CDynLinkLibrary(m_plainRecord);
    AFX_EXTENSION_MODULE empty = {};
    new CDynLinkLibrary(empty);
    m_plain.Free();
    AfxSetResourceHandle(m_leaf);
    EXPECT_EQ(AfxFindStringResourceHandle(500), m_leaf);
    EXPECT_EQ(AfxFindStringResourceHandle(100), m_leaf); // no record does not stand for the program
    AfxSetResourceHandle(nullptr);
}

TEST_F(ExtensionModule, IsNotFoundWhenMemoryRunsOut)
{
    new CDynLinkLibrary(m_plainRecord);
    SetLastError(ERROR_SUCCESS);
    {
        FailNthAllocation const fail(1);
        EXPECT_EQ(AfxFindStringResourceHandle(500), GetModuleHandleW(nullptr));
        EXPECT_TRUE(fail.HasFailed());
    }
    EXPECT_EQ(GetLastError(), ERROR_NOT_ENOUGH_MEMORY);
    EXPECT_EQ(AfxFindStringResourceHandle(500), m_plain);
}

} // namespace
