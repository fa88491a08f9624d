#include <krplatform/system/module.h>

#include "tests/krplatform/system/test_modules.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <dlfcn.h>

using namespace kr::test;

namespace
{

using Name = std::basic_string<WCHAR>;

Name FileNameOf(HMODULE module)
{
    WCHAR path[PATH_MAX];
    DWORD const length = GetModuleFileNameW(module, path, PATH_MAX);
    EXPECT_EQ(Name(path).size(), length);
    return path;
}

TEST(GetModuleFileName, GivesThePathOfTheProgramForNull)
{
    Name const expected = HandedOut(std::filesystem::read_symlink("/proc/self/exe"));
    EXPECT_EQ(Narrow(FileNameOf(nullptr)), Narrow(expected));
    EXPECT_EQ(Narrow(FileNameOf(GetModuleHandleW(nullptr))), Narrow(expected));
}

TEST(GetModuleFileName, GivesThePathByWhichTheModuleWasLoaded)
{
    TemporaryDirectory const directory;
    CopyModule("kr_plain.so", directory);
    std::filesystem::create_symlink(directory / "kr_plain.so", directory / "link.so");
    LoadedForTest const module(directory / "link.so");
    EXPECT_EQ(Narrow(FileNameOf(module)), Narrow(HandedOut(directory / "link.so")));
    EXPECT_EQ(GetModuleHandleW(FileNameOf(module).c_str()), module);
}

TEST(GetModuleFileName, GivesANameOutsideASCIIAsItsCharacters)
{
    TemporaryDirectory const directory;
    LoadedForTest const text(CopyModule("kr_plain.so", directory, "plain.so"));
    HMODULE const module =
        LoadLibraryExW((NameOf(directory.Path()) + OLESTR("/none-\u00E4\U0001F600.so")).c_str(), nullptr, 0);
    EXPECT_EQ(module, nullptr);
    CopyModule("kr_plain.so", directory, "some-\xC3\xA4\xF0\x9F\x98\x80.so");
    Name const name = NameOf(directory.Path()) + OLESTR("/some-\u00E4\U0001F600.so");
    HMODULE const found = LoadLibraryExW(name.c_str(), nullptr, 0);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(Narrow(FileNameOf(found)), Narrow(HandedOut(directory.Path()) + OLESTR("\\some-\u00E4\U0001F600.so")));
    EXPECT_EQ(GetModuleHandleW(OLESTR("some-\u00E4\U0001F600")), found);
    EXPECT_TRUE(FreeLibrary(found));
}

TEST(GetModuleFileName, ReplacesBytesThatAreNoUTF8)
{
    TemporaryDirectory const directory;
    std::filesystem::path const path = CopyModule("kr_plain.so", directory, "a\xFF.so");
    void * const opened = dlopen(path.c_str(), RTLD_NOW);
    HMODULE const module = AfxModuleFromAddress(dlsym(opened, "KrTestAnswer"));
    EXPECT_EQ(Narrow(FileNameOf(module)), Narrow(HandedOut(directory.Path()) + OLESTR("\\a\uFFFD.so")));
    dlclose(opened);
}

TEST(GetModuleFileName, KnowsTheDirectoryInWhichARelativePathWasLoaded)
{
    TemporaryDirectory const directory;
    CopyModule("kr_plain.so", directory);
    void * opened = nullptr;
    {
        CurrentDirectory const current(directory.Path());
        opened = dlopen("./kr_plain.so", RTLD_NOW); // not by this library, which makes paths absolute
    }
    HMODULE const module = AfxModuleFromAddress(dlsym(opened, "KrTestAnswer"));
    EXPECT_EQ(Narrow(FileNameOf(module)), Narrow(HandedOut(directory / "kr_plain.so")));
    EXPECT_EQ(GetModuleHandleW(NameOf(directory / "kr_plain.so").c_str()), module);
    dlclose(opened);
}

TEST(GetModuleFileName, CutsWhatDoesNotFit)
{
    Name const whole = FileNameOf(nullptr);
    DWORD const length = static_cast<DWORD>(whole.size());
    struct Row
    {
        DWORD size;
        DWORD result;
        DWORD error;
    };
    // clang-format off
    Row const rows[] = {
        { length + 2, length,     ERROR_SUCCESS             },
        { length + 1, length,     ERROR_SUCCESS             },
        { length,     length,     ERROR_INSUFFICIENT_BUFFER },
        { 5,          5,          ERROR_INSUFFICIENT_BUFFER },
        { 1,          1,          ERROR_INSUFFICIENT_BUFFER },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.size);
        Name buffer(length + 4, OLESTR('#'));
        SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(GetModuleFileNameW(nullptr, buffer.data(), row.size), row.result);
        EXPECT_EQ(GetLastError(), row.error);
        EXPECT_EQ(Narrow(buffer.c_str()), Narrow(whole.substr(0, row.size - 1)));
        EXPECT_EQ(buffer[row.size], OLESTR('#'));
    }
}

TEST(GetModuleFileName, TouchesNothingWithoutRoom)
{
    WCHAR buffer = OLESTR('#');
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(GetModuleFileNameW(nullptr, &buffer, 0), 0u);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(buffer, OLESTR('#'));
    EXPECT_EQ(GetModuleFileNameW(nullptr, nullptr, 10), 0u);
}

TEST(GetModuleFileName, RefusesAModuleThatHasLeft)
{
    TemporaryDirectory const directory;
    LoadedForTest module(CopyModule("kr_plain.so", directory));
    HMODULE const stale = module.Free();
    WCHAR buffer[10] = OLESTR("old");
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(GetModuleFileNameW(stale, buffer, 10), 0u);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_EQ(Narrow(buffer), "");
}

TEST(GetModuleFileName, FailsWhenMemoryRunsOut)
{
    WCHAR path[PATH_MAX];
    EXPECT_GT(FailEveryAllocationOf([&] { return GetModuleFileNameW(nullptr, path, PATH_MAX) != 0; }), 1u);
}

TEST(GetProcAddress, FindsWhatTheModuleExports)
{
    TemporaryDirectory const directory;
    LoadedForTest const module(CopyModule("kr_plain.so", directory));
    EXPECT_EQ(GetProcAddress(module, "KrTestAnswer")(), 42);
    EXPECT_EQ(*reinterpret_cast<int *>(GetProcAddress(module, "KrTestNumber")), 7);
}

TEST(GetProcAddress, DoesNotFindWhatOnlyItsLibrariesExport)
{
    TemporaryDirectory const directory;
    for (char const * const name : {"kr_leaf.so", "kr_middle.so"})
        CopyModule(name, directory);
    HMODULE const module =
        LoadLibraryExW(NameOf(directory / "kr_middle.so").c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    ASSERT_NE(module, nullptr);
    EXPECT_NE(GetProcAddress(module, "KrTestMiddle"), nullptr);
    EXPECT_NE(GetProcAddress(GetModuleHandleW(OLESTR("kr_leaf")), "KrTestLeaf"), nullptr);
    for (char const * const name : {"KrTestLeaf", "malloc", "KrTestNone", "krtestmiddle", ""})
    {
        SCOPED_TRACE(name);
        SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(GetProcAddress(module, name), nullptr);
        EXPECT_EQ(GetLastError(), ERROR_PROC_NOT_FOUND);
    }
    EXPECT_TRUE(FreeLibrary(module));
}

TEST(GetProcAddress, SeeksInTheProgramForANullModule)
{
    EXPECT_NE(GetProcAddress(nullptr, "AfxStringTable"), nullptr);
    EXPECT_EQ(GetProcAddress(nullptr, "GetProcAddress"), nullptr);
}

TEST(GetProcAddress, RefusesNoNameAndModulesThatHaveLeft)
{
    TemporaryDirectory const directory;
    LoadedForTest module(CopyModule("kr_plain.so", directory));
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(GetProcAddress(module, nullptr), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_PROC_NOT_FOUND);
    HMODULE const stale = module.Free();
    EXPECT_EQ(GetProcAddress(stale, "KrTestAnswer"), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

TEST(AfxModuleFromAddress, FindsTheModuleThatHoldsIt)
{
    TemporaryDirectory const directory;
    LoadedForTest module(CopyModule("kr_plain.so", directory));
    auto const function = reinterpret_cast<void const *>(GetProcAddress(module, "KrTestAnswer"));
    EXPECT_EQ(AfxModuleFromAddress(function), module);
    EXPECT_EQ(AfxModuleFromAddress(reinterpret_cast<void const *>(GetProcAddress(module, "KrTestNumber"))), module);
    int const onStack = 0;
    EXPECT_EQ(AfxModuleFromAddress(&onStack), nullptr);
    EXPECT_EQ(AfxModuleFromAddress(nullptr), nullptr);
    module.Free();
    EXPECT_EQ(CountLoadedFrom(directory.Path()), 0);
    EXPECT_EQ(AfxModuleFromAddress(function), nullptr);
}

} // namespace
