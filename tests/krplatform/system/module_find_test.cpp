#include <krplatform/system/module.h>

#include "tests/krplatform/system/test_modules.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <atomic>
#include <climits>
#include <thread>

#include <dlfcn.h>

using namespace kr::test;

namespace
{

using Name = std::basic_string<WCHAR>;

TEST(GetModuleHandle, GivesTheProgramForANullName)
{
    std::filesystem::path const program = std::filesystem::read_symlink("/proc/self/exe");
    HMODULE const module = GetModuleHandleW(nullptr);
    ASSERT_NE(module, nullptr);
    static int const inProgram = 0;
    EXPECT_EQ(AfxModuleFromAddress(&inProgram), module);
    EXPECT_EQ(GetModuleHandleW(NameOf(program).c_str()), module);
    EXPECT_EQ(GetModuleHandleW(NameOf(program.filename()).c_str()), module);
}

TEST(GetModuleHandle, FindsAModuleInMemoryByItsNames)
{
    TemporaryDirectory const directory;
    std::filesystem::path const path = CopyModule("kr_plain.so", directory, "kr_part.one.so");
    std::filesystem::create_directory(directory / "sub");
    std::filesystem::create_symlink(path, directory / "sub/link.xyz");
    std::filesystem::create_directory_symlink(directory.Path(), directory / "sub/back");
    std::filesystem::create_hard_link(path, directory / "hard.so");
    CopyModule("kr_plain.so", directory, "other.so");
    LoadedForTest const module(path);
    struct Row
    {
        Name name;
        bool isFound;
    };
    // clang-format off
    Row const rows[] = {
        { OLESTR("kr_part.one.so"),                     true  },
        { OLESTR("kr_part.one"),                        true  },  // without the last ending
        { OLESTR("kr_part"),                            false },
        { OLESTR("kr_part.one.s"),                      false },
        { OLESTR("KR_PART.ONE.SO"),                     false },  // case counts as in the file system
        { OLESTR("kr_part.one.so.so"),                  false },
        { OLESTR("part.one.so"),                        false },
        { OLESTR(""),                                   false },
        { OLESTR("\xDC00"),                             false },
        { NameOf(path),                                 true  },
        { OLESTR("/") + NameOf(path),                   true  },
        { HandedOut(path),                              true  },
        { NameOf(directory / "./kr_part.one.so"),       true  },
        { NameOf(directory / "sub/../kr_part.one.so"),  true  },
        { NameOf(directory / "sub/link.xyz"),           true  },
        { NameOf(directory / "sub/back/hard.so"),       true  },
        { NameOf(directory / "kr_part.one"),            false },  // a path is whole
        { NameOf(directory / "other.so"),               false },  // the same content is not the same file
        { NameOf(directory / "none.so"),                false },
        { OLESTR("./kr_part.one.so"),                   false },  // of another directory
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.name));
        SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(GetModuleHandleW(row.name.c_str()), row.isFound ? HMODULE(module) : nullptr);
        EXPECT_EQ(GetLastError(), row.isFound ? ERROR_SUCCESS : ERROR_MOD_NOT_FOUND);
    }
    CurrentDirectory const current(directory.Path());
    EXPECT_EQ(GetModuleHandleW(OLESTR(".\\kr_part.one.so")), module);
}

TEST(GetModuleHandle, PrefersTheWholeFileName)
{
    TemporaryDirectory const directory;
    LoadedForTest const withEnding(CopyModule("kr_plain.so", directory, "kr_twice.so"));
    EXPECT_EQ(GetModuleHandleW(OLESTR("kr_twice")), withEnding);
    LoadedForTest const without(CopyModule("kr_plain.so", directory, "kr_twice"));
    EXPECT_EQ(GetModuleHandleW(OLESTR("kr_twice")), without);
    EXPECT_EQ(GetModuleHandleW(OLESTR("kr_twice.so")), withEnding);
}

TEST(GetModuleHandle, FindsTheModuleThatWasLoadedFirstOfTwoOfOneName)
{
    TemporaryDirectory const first;
    TemporaryDirectory const second;
    LoadedForTest const one(CopyModule("kr_plain.so", first));
    LoadedForTest const other(CopyModule("kr_plain.so", second));
    EXPECT_EQ(GetModuleHandleW(OLESTR("kr_plain")), one);
    EXPECT_EQ(GetModuleHandleW(NameOf(second / "kr_plain.so").c_str()), other);
}

TEST(GetModuleHandle, FindsAModuleWhoseFileIsGone)
{
    TemporaryDirectory const directory;
    std::filesystem::path const path = CopyModule("kr_plain.so", directory);
    LoadedForTest const module(path);
    std::filesystem::remove(path);
    EXPECT_EQ(GetModuleHandleW(NameOf(path).c_str()), module);
    EXPECT_EQ(GetModuleHandleW(HandedOut(path).c_str()), module);
    EXPECT_EQ(GetModuleHandleW(OLESTR("kr_plain")), module);
}

TEST(GetModuleHandle, LeavesTheCountAsItWas)
{
    TemporaryDirectory const directory;
    std::filesystem::path const path = CopyModule("kr_plain.so", directory);
    std::filesystem::create_symlink(path, directory / "link.so");
    LoadedForTest module(path);
    for (Name const & name : {Name(OLESTR("kr_plain")), NameOf(path), NameOf(directory / "link.so")})
    {
        EXPECT_EQ(GetModuleHandleW(name.c_str()), module);
        WCHAR text[PATH_MAX];
        EXPECT_GT(GetModuleFileNameW(module, text, PATH_MAX), 0u);
        EXPECT_NE(GetProcAddress(module, "KrTestAnswer"), nullptr);
        EXPECT_EQ(GetProcAddress(module, "KrTestNone"), nullptr);
    }
    module.Free();
    EXPECT_EQ(CountLoadedFrom(directory.Path()), 0);
    EXPECT_EQ(GetModuleHandleW(OLESTR("kr_plain")), nullptr);
}

TEST(GetModuleHandle, GivesHandlesThatTheLoaderKnows)
{
    TemporaryDirectory const directory;
    std::filesystem::path const path = CopyModule("kr_plain.so", directory);
    void * const opened = dlopen(path.c_str(), RTLD_NOW);
    HMODULE const module = GetModuleHandleW(OLESTR("kr_plain"));
    EXPECT_EQ(AfxModuleFromAddress(dlsym(opened, "KrTestAnswer")), module);
    EXPECT_TRUE(FreeLibrary(module));
    EXPECT_EQ(CountLoadedFrom(directory.Path()), 0);
}

TEST(GetModuleHandle, LooksWhileModulesComeAndGo)
{
    TemporaryDirectory const directory;
    Name const path = NameOf(CopyModule("kr_plain.so", directory));
    std::atomic<bool> isDone = false;
    std::thread looking(
        [&]
        {
            WCHAR text[PATH_MAX];
            while (!isDone)
            {
                EXPECT_EQ(GetModuleHandleW(OLESTR("kr_no_such_module")), nullptr);
                EXPECT_GT(GetModuleFileNameW(nullptr, text, PATH_MAX), 0u);
            }
        });
    for (int times = 0; times < 200; ++times)
    {
        HMODULE const module = AfxLoadLibrary(path.c_str());
        EXPECT_NE(module, nullptr);
        EXPECT_TRUE(AfxFreeLibrary(module));
    }
    isDone = true;
    looking.join();
}

TEST(GetModuleHandle, FindsNothingWhenMemoryRunsOut)
{
    TemporaryDirectory const directory;
    std::filesystem::path const path = CopyModule("kr_plain.so", directory);
    LoadedForTest const module(path);
    Name const name = NameOf(path);
    EXPECT_GT(FailEveryAllocationOf([&] { return GetModuleHandleW(name.c_str()) != nullptr; }), 3u);
    EXPECT_GT(FailEveryAllocationOf([] { return GetModuleHandleW(OLESTR("kr_plain")) != nullptr; }), 3u);
}

} // namespace
