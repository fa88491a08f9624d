#include <krplatform/system/module.h>

#include "tests/krplatform/system/test_modules.h"

#include <gtest/gtest.h>

#include <cstdlib>

using namespace kr::test;

namespace
{

// kr_root needs kr_middle, which needs kr_leaf. None of them knows where the others lie.
void CopyAll(TemporaryDirectory const & directory)
{
    for (char const * const name : {"kr_root.so", "kr_middle.so", "kr_leaf.so"})
        CopyModule(name, directory);
}

HMODULE LoadRoot(TemporaryDirectory const & directory, DWORD flags)
{
    return LoadLibraryExW(NameOf(directory / "kr_root.so").c_str(), nullptr, flags);
}

TEST(LoadLibraryBeside, FindsWhatTheModuleNeedsAndWhatThatNeeds)
{
    TemporaryDirectory const directory;
    CopyAll(directory);
    HMODULE const module = LoadRoot(directory, LOAD_WITH_ALTERED_SEARCH_PATH);
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(GetProcAddress(module, "KrTestRoot")(), 111);
    EXPECT_EQ(CountLoadedFrom(directory.Path()), 3);
    EXPECT_TRUE(FreeLibrary(module));
    EXPECT_EQ(CountLoadedFrom(directory.Path()), 0);
}

TEST(LoadLibraryBeside, DoesNotLookThereWithoutTheFlag)
{
    TemporaryDirectory const directory;
    CopyAll(directory);
    EXPECT_EQ(LoadRoot(directory, 0), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_MOD_NOT_FOUND);
    EXPECT_EQ(CountLoadedFrom(directory.Path()), 0);
}

TEST(LoadLibraryBeside, LeavesNothingBehindWhereSomethingIsMissing)
{
    TemporaryDirectory const directory;
    CopyAll(directory);
    std::filesystem::remove(directory / "kr_leaf.so");
    EXPECT_EQ(LoadRoot(directory, LOAD_WITH_ALTERED_SEARCH_PATH), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_MOD_NOT_FOUND);
    EXPECT_EQ(CountLoadedFrom(directory.Path()), 0);
}

TEST(LoadLibraryBeside, DoesNotTakeADamagedLibrary)
{
    TemporaryDirectory const directory;
    CopyAll(directory);
    std::filesystem::resize_file(directory / "kr_leaf.so", 2000);
    EXPECT_EQ(LoadRoot(directory, LOAD_WITH_ALTERED_SEARCH_PATH), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_MOD_NOT_FOUND);
    EXPECT_EQ(CountLoadedFrom(directory.Path()), 0);
}

TEST(LoadLibraryBeside, TakesWhatIsInMemoryAlready)
{
    TemporaryDirectory const first;
    TemporaryDirectory const second;
    CopyAll(second);
    unsetenv("KR_TEST_LEAF_LOADS");
    LoadedForTest const leaf(CopyModule("kr_leaf.so", first));
    HMODULE const module = LoadRoot(second, LOAD_WITH_ALTERED_SEARCH_PATH);
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(GetProcAddress(module, "KrTestRoot")(), 111);
    EXPECT_EQ(CountLoadedFrom(first.Path()), 1);
    EXPECT_EQ(CountLoadedFrom(second.Path()), 2);
    EXPECT_STREQ(std::getenv("KR_TEST_LEAF_LOADS"), "x"); // not even for a while twice
    EXPECT_TRUE(FreeLibrary(module));
    EXPECT_EQ(CountLoadedFrom(second.Path()), 0);
}

TEST(LoadLibraryBeside, FailsWithoutATraceWhenMemoryRunsOut)
{
    TemporaryDirectory const directory;
    CopyAll(directory);
    std::basic_string<WCHAR> const path = NameOf(directory / "kr_root.so");
    std::size_t const failures = FailEveryAllocationOf(
        [&]
        {
            HMODULE const module = LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
            return module && FreeLibrary(module);
        });
    EXPECT_GT(failures, 10u);
    EXPECT_EQ(CountLoadedFrom(directory.Path()), 0);
}

} // namespace
