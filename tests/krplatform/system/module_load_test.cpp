#include <krplatform/system/module.h>

#include "tests/krplatform/system/test_modules.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <libintl.h>

using namespace kr::test;

namespace
{

using Name = std::basic_string<WCHAR>;

TEST(LoadLibrary, LoadsAModuleByItsPathInAnySpelling)
{
    TemporaryDirectory const directory;
    Name const path = NameOf(CopyModule("kr_plain.so", directory));
    Name const spellings[] = {path, OLESTR("/") + path, HandedOut(directory / "kr_plain.so")};
    for (Name const & spelling : spellings)
    {
        SCOPED_TRACE(Narrow(spelling));
        HMODULE const module = LoadLibraryExW(spelling.c_str(), nullptr, 0);
        ASSERT_NE(module, nullptr);
        EXPECT_EQ(CountLoadedFrom(directory.Path()), 1);
        EXPECT_EQ(GetProcAddress(module, "KrTestAnswer")(), 42);
        EXPECT_TRUE(FreeLibrary(module));
        EXPECT_EQ(CountLoadedFrom(directory.Path()), 0);
    }
}

TEST(LoadLibrary, GivesTheSameHandleForEveryLoadAndCountsThem)
{
    TemporaryDirectory const directory;
    Name const path = NameOf(CopyModule("kr_plain.so", directory));
    std::filesystem::create_symlink(directory / "kr_plain.so", directory / "link.so");
    HMODULE const module = LoadLibraryExW(path.c_str(), nullptr, 0);
    EXPECT_EQ(AfxLoadLibrary(path.c_str()), module);
    EXPECT_EQ(AfxLoadLibrary(NameOf(directory / "link.so").c_str()), module);
    EXPECT_TRUE(FreeLibrary(module));
    EXPECT_TRUE(AfxFreeLibrary(module));
    EXPECT_EQ(CountLoadedFrom(directory.Path()), 1);
    EXPECT_TRUE(AfxFreeLibrary(module));
    EXPECT_EQ(CountLoadedFrom(directory.Path()), 0);
}

TEST(LoadLibrary, LoadsTwoFilesOfOneNameAsTwoModules)
{
    TemporaryDirectory const first;
    TemporaryDirectory const second;
    LoadedForTest const one(CopyModule("kr_plain.so", first));
    LoadedForTest const other(CopyModule("kr_plain.so", second));
    EXPECT_NE(HMODULE(one), HMODULE(other));
}

TEST(LoadLibrary, TakesARelativePathFromTheCurrentDirectory)
{
    TemporaryDirectory const directory;
    CopyModule("kr_plain.so", directory);
    CurrentDirectory const current(directory.Path());
    HMODULE const module = AfxLoadLibrary(OLESTR(".\\kr_plain.so"));
    ASSERT_NE(module, nullptr);
    WCHAR path[PATH_MAX];
    GetModuleFileNameW(module, path, PATH_MAX);
    EXPECT_EQ(Narrow(path), Narrow(HandedOut(directory / "kr_plain.so")));
    EXPECT_TRUE(AfxFreeLibrary(module));
}

TEST(LoadLibrary, DoesNotSeekANameInTheCurrentDirectory)
{
    TemporaryDirectory const directory;
    CopyModule("kr_plain.so", directory, "kr_elsewhere.so");
    CurrentDirectory const current(directory.Path());
    EXPECT_EQ(AfxLoadLibrary(OLESTR("kr_elsewhere.so")), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_MOD_NOT_FOUND);
}

TEST(LoadLibrary, TakesANameFromMemoryFirst)
{
    TemporaryDirectory const directory;
    LoadedForTest const module(CopyModule("kr_plain.so", directory, "kr_elsewhere.so"));
    EXPECT_EQ(AfxLoadLibrary(OLESTR("kr_elsewhere.so")), module);
    EXPECT_TRUE(AfxFreeLibrary(module));
    EXPECT_EQ(CountLoadedFrom(directory.Path()), 1);
}

TEST(LoadLibrary, SeeksANameBesideTheProgram)
{
    ASSERT_TRUE(
        std::filesystem::equivalent(std::filesystem::read_symlink("/proc/self/exe").parent_path(), BuiltModules()));
    ASSERT_EQ(GetModuleHandleW(OLESTR("kr_plain.so")), nullptr);
    HMODULE const module = AfxLoadLibrary(OLESTR("kr_plain.so"));
    ASSERT_NE(module, nullptr);
    EXPECT_TRUE(AfxFreeLibrary(module));
    EXPECT_EQ(GetModuleHandleW(OLESTR("kr_plain.so")), nullptr);
}

TEST(LoadLibrary, SeeksANameThroughTheLoader)
{
    Name const name = OLESTR("libanl.so.1"); // a part of the C library that nothing here needs
    ASSERT_EQ(GetModuleHandleW(name.c_str()), nullptr);
    HMODULE const module = AfxLoadLibrary(name.c_str());
    ASSERT_NE(module, nullptr);
    WCHAR path[PATH_MAX];
    GetModuleFileNameW(module, path, PATH_MAX);
    EXPECT_TRUE(Name(path).starts_with(OLESTR("\\\\"))) << Narrow(path);
    EXPECT_TRUE(Name(path).ends_with(OLESTR("\\libanl.so.1"))) << Narrow(path);
    EXPECT_TRUE(AfxFreeLibrary(module));
}

TEST(LoadLibrary, CountsTheProgramGivenByItsPath)
{
    Name const path = NameOf(std::filesystem::read_symlink("/proc/self/exe"));
    EXPECT_EQ(AfxLoadLibrary(path.c_str()), GetModuleHandleW(nullptr));
}

TEST(LoadLibrary, TellsWhyItFails)
{
    TemporaryDirectory const directory;
    WriteText(directory / "text.so", "not a module at all, but a text of some length that fills a header of its own");
    WriteText(directory / "empty.so", "");
    CopyModule("kr_incomplete.so", directory);
    CopyModule("kr_root.so", directory);
    struct Row
    {
        Name name;
        DWORD flags;
        DWORD error;
    };
    // clang-format off
    Row const rows[] = {
        { NameOf(directory / "none.so"),                0, ERROR_MOD_NOT_FOUND     },
        { NameOf(directory / "none/none.so"),           0, ERROR_MOD_NOT_FOUND     },
        { NameOf(directory / "text.so/none.so"),        0, ERROR_MOD_NOT_FOUND     },
        { OLESTR("kr_no_such_module.so"),               0, ERROR_MOD_NOT_FOUND     },
        { NameOf(directory / "text.so"),                0, ERROR_BAD_EXE_FORMAT    },
        { NameOf(directory / "empty.so"),               0, ERROR_BAD_EXE_FORMAT    },
        { OLESTR("/bin/sh"),                            0, ERROR_BAD_EXE_FORMAT    },  // a program
        { NameOf(directory.Path()),                     0, ERROR_ACCESS_DENIED     },
        { NameOf(directory / "kr_root.so"),             0, ERROR_MOD_NOT_FOUND     },  // what it needs is not found
        { NameOf(directory / "kr_incomplete.so"),       0, ERROR_PROC_NOT_FOUND    },
        { OLESTR("a\xD800.so"),                         0, ERROR_INVALID_NAME      },
        { OLESTR(""),                                   0, ERROR_INVALID_PARAMETER },
        { NameOf(directory / "text.so"),                2, ERROR_INVALID_PARAMETER },
        { NameOf(directory / "text.so"),                9, ERROR_INVALID_PARAMETER },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.name));
        SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(LoadLibraryExW(row.name.c_str(), nullptr, row.flags), nullptr);
        EXPECT_EQ(GetLastError(), row.error);
    }
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(LoadLibraryExW(nullptr, nullptr, 0), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(CountLoadedFrom(directory.Path()), 0);
}

TEST(LoadLibrary, IsRefusedAModuleThatTheUserMayNotRead)
{
    TemporaryDirectory const directory;
    std::filesystem::path const path = CopyModule("kr_plain.so", directory);
    std::filesystem::permissions(path, std::filesystem::perms::none);
    OrdinaryUser const user;
    EXPECT_EQ(AfxLoadLibrary(NameOf(path).c_str()), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
}

TEST(LoadLibrary, SurvivesModulesThatAreCutAnywhere)
{
    TemporaryDirectory const directory;
    std::string const whole = ReadText(BuiltModules() / "kr_plain.so");
    Name const path = NameOf(directory / "cut.so");
    for (std::size_t length = 0; length < whole.size() / 2; length = length * 5 / 4 + 1)
    {
        SCOPED_TRACE(length);
        WriteText(directory / "cut.so", whole.substr(0, length));
        EXPECT_EQ(AfxLoadLibrary(path.c_str()), nullptr);
        EXPECT_EQ(GetLastError(), ERROR_BAD_EXE_FORMAT);
    }
}

/// A catalogue of messages for the C library in the language xx, as `msgfmt` would write it.
void WriteCatalogue(std::filesystem::path const & path)
{
    // in ascending order
    std::array<std::array<std::string_view, 2>, 3> const rows = {{
        {"", "Content-Type: text/plain; charset=UTF-8\n"},
        {"No such file or directory", "keine solche Datei"},
        {"cannot open shared object file", "nicht zu \xC3\xB6"
                                           "ffnen"},
    }};
    constexpr std::uint32_t tableSize = 8 * static_cast<std::uint32_t>(rows.size());
    std::uint32_t const header[] = {0x950412DE, 0, rows.size(), 28, 28 + tableSize, 0, 0};
    std::string tables;
    std::string texts;
    for (std::size_t column = 0; column < 2; ++column)
    {
        for (auto const & row : rows)
        {
            std::uint32_t const entry[] = {static_cast<std::uint32_t>(row[column].size()),
                                           static_cast<std::uint32_t>(28 + 2 * tableSize + texts.size())};
            tables.append(reinterpret_cast<char const *>(entry), sizeof entry);
            texts.append(row[column]).push_back('\0');
        }
    }
    std::filesystem::create_directories(path.parent_path());
    WriteText(path, std::string(reinterpret_cast<char const *>(header), sizeof header) + tables + texts);
}

TEST(LoadLibrary, TellsWhyItFailsWhateverTheLanguageOfTheProgram)
{
    TemporaryDirectory const directory;
    WriteCatalogue(directory / "xx/LC_MESSAGES/libc.mo");
    std::string const before = setlocale(LC_ALL, nullptr);
    if (!setlocale(LC_ALL, "C.UTF-8"))
        GTEST_SKIP() << "no locale but C";
    setenv("LANGUAGE", "xx", 1);
    std::string const boundBefore = bindtextdomain("libc", nullptr);
    bindtextdomain("libc", directory.Path().c_str());
    EXPECT_STREQ(dgettext("libc", "No such file or directory"), "keine solche Datei");
    EXPECT_EQ(AfxLoadLibrary(OLESTR("kr_no_such_module.so")), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_MOD_NOT_FOUND);
    EXPECT_STREQ(dgettext("libc", "No such file or directory"), "keine solche Datei");
    bindtextdomain("libc", boundBefore.c_str());
    unsetenv("LANGUAGE");
    setlocale(LC_ALL, before.c_str());
}

TEST(LoadLibrary, FailsWithoutATraceWhenMemoryRunsOut)
{
    TemporaryDirectory const directory;
    Name const path = NameOf(CopyModule("kr_plain.so", directory));
    std::size_t const failures = FailEveryAllocationOf(
        [&]
        {
            HMODULE const module = LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
            return module && FreeLibrary(module);
        });
    EXPECT_GT(failures, 3u);
}

TEST(FreeLibrary, RefusesWhatIsNoModule)
{
    TemporaryDirectory const directory;
    LoadedForTest module(CopyModule("kr_plain.so", directory));
    HMODULE const stale = module.Free();
    int number = 0;
    for (HMODULE const handle : {HMODULE(nullptr), stale, reinterpret_cast<HMODULE>(&number)})
    {
        SetLastError(ERROR_SUCCESS);
        EXPECT_FALSE(FreeLibrary(handle));
        EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    }
}

TEST(FreeLibrary, TakesNothingFromTheProgramAndWhatItIsLinkedWith)
{
    HMODULE const platform = AfxModuleFromAddress(reinterpret_cast<void const *>(&FreeLibrary));
    ASSERT_NE(platform, nullptr);
    for (HMODULE const module : {GetModuleHandleW(nullptr), platform})
    {
        SetLastError(ERROR_SUCCESS);
        EXPECT_FALSE(FreeLibrary(module));
        EXPECT_EQ(GetLastError(), ERROR_BUSY);
    }
}

TEST(FreeLibrary, TakesBackNoMoreThanWasLoaded)
{
    TemporaryDirectory const directory;
    CopyModule("kr_leaf.so", directory);
    CopyModule("kr_middle.so", directory);
    HMODULE const module =
        LoadLibraryExW(NameOf(directory / "kr_middle.so").c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    ASSERT_NE(module, nullptr);
    HMODULE const needed = GetModuleHandleW(OLESTR("kr_leaf.so"));
    SetLastError(ERROR_SUCCESS);
    EXPECT_FALSE(FreeLibrary(needed)); // loaded only because the other needs it
    EXPECT_EQ(GetLastError(), ERROR_BUSY);
    EXPECT_EQ(CountLoadedFrom(directory.Path()), 2);
    EXPECT_TRUE(FreeLibrary(module));
    EXPECT_EQ(CountLoadedFrom(directory.Path()), 0);
}

} // namespace
