#include <krplatform/linux/module_file.h>

#include "tests/krplatform/system/test_modules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

using namespace kr::test;
using kr::detail::ModuleFile;

namespace
{

bool Needs(ModuleFile const & file, std::string_view name)
{
    return std::ranges::count(file.NeededLibraries(), name) == 1;
}

TEST(ModuleFile, TellsWhatAModuleNeeds)
{
    EXPECT_TRUE(Needs(ModuleFile((BuiltModules() / "kr_root.so").string()), "kr_middle.so"));
    EXPECT_FALSE(Needs(ModuleFile((BuiltModules() / "kr_root.so").string()), "kr_leaf.so"));
    EXPECT_TRUE(Needs(ModuleFile((BuiltModules() / "kr_middle.so").string()), "kr_leaf.so"));
}

TEST(ModuleFile, IsCompleteForModulesAsTheyWereBuilt)
{
    for (char const * const name : {"kr_root.so", "kr_middle.so", "kr_leaf.so", "kr_plain.so", "kr_incomplete.so"})
    {
        SCOPED_TRACE(name);
        ModuleFile const file((BuiltModules() / name).string());
        EXPECT_TRUE(file.IsOpen());
        EXPECT_TRUE(file.IsComplete());
    }
}

TEST(ModuleFile, IsNotOpenForWhatIsNoRegularFile)
{
    TemporaryDirectory const directory;
    for (std::string const & path :
         {directory.Path().string(), (directory / "none").string(), std::string("/dev/null")})
    {
        SCOPED_TRACE(path);
        ModuleFile const file(path);
        EXPECT_FALSE(file.IsOpen());
        EXPECT_FALSE(file.IsComplete());
        EXPECT_TRUE(file.NeededLibraries().empty());
    }
}

TEST(ModuleFile, IsNotCompleteForOtherContent)
{
    TemporaryDirectory const directory;
    std::string const whole = ReadText(BuiltModules() / "kr_root.so");
    struct Row
    {
        char const * what;
        std::size_t offset;
        std::string_view bytes;
    };
    // clang-format off
    Row const rows[] = {
        { "no magic number",       0,  "\x7F" "ELG"         },
        { "32 bits",               4,  "\x01"               },
        { "the other byte order",  5,  "\x02"               },
        { "segments far outside", 32,  "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x7F" },
        { "segments of odd size", 54,  "\x39"               },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.what);
        WriteText(directory / "changed.so", std::string(whole).replace(row.offset, row.bytes.size(), row.bytes));
        ModuleFile const file((directory / "changed.so").string());
        EXPECT_FALSE(file.IsComplete());
        EXPECT_TRUE(file.NeededLibraries().empty());
    }
}

TEST(ModuleFile, IsNotCompleteForAFileThatHoldsLessThanItSays)
{
    std::string const path = "/sys/devices/system/cpu/online"; // a page by its size, a few bytes to read
    ModuleFile const file(path);
    if (!file.IsOpen())
        GTEST_SKIP() << "the kernel shows no " << path;
    EXPECT_FALSE(file.IsComplete());
    EXPECT_TRUE(file.NeededLibraries().empty());
}

TEST(ModuleFile, ReadsFilesThatAreCutAnywhere)
{
    TemporaryDirectory const directory;
    std::string const whole = ReadText(BuiltModules() / "kr_root.so");
    std::size_t const step = std::max<std::size_t>(1, whole.size() / 150);
    bool wasComplete = false;
    for (std::size_t length = 0; length <= whole.size(); length += step)
    {
        SCOPED_TRACE(length);
        WriteText(directory / "cut.so", whole.substr(0, length));
        ModuleFile const file((directory / "cut.so").string());
        EXPECT_FALSE(wasComplete && !file.IsComplete());
        wasComplete = file.IsComplete();
        EXPECT_TRUE(!wasComplete || Needs(file, "kr_middle.so"));
    }
}

TEST(ModuleFile, ReadsFilesWithAnyByteChanged)
{
    TemporaryDirectory const directory;
    std::filesystem::path const path = directory / "changed.so";
    std::string const whole = ReadText(BuiltModules() / "kr_root.so");
    WriteText(path, whole);
    std::fstream stream(path, std::ios::binary | std::ios::in | std::ios::out);
    auto const put = [&](std::size_t offset, int byte)
    { stream.seekp(static_cast<std::streamoff>(offset)).put(static_cast<char>(byte)).flush(); };
    // every byte of the headers, some of the rest
    for (std::size_t offset = 0; offset < whole.size(); offset += offset < 1024 ? 1 : 13)
    {
        for (int const change : {0xFF, 0x80, 0x01})
        {
            put(offset, whole[offset] ^ change);
            EXPECT_LE(ModuleFile(path.string()).NeededLibraries().size(), 100u) << offset;
        }
        put(offset, whole[offset]);
    }
}

} // namespace
