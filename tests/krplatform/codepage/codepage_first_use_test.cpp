// The first use of a code page makes its table: by many threads at once, and without memory. These tests begin with no
// table made, so each runs in a process of its own.
#include <krplatform/codepage/codepage.h>

#include "tests/krplatform/codepage/bytes.h"
#include "tests/support/child_process.h"
#include "tests/support/failing_allocator.h"
#include "tests/support/icu_memory.h"

#include <gtest/gtest.h>

#include <barrier>
#include <thread>
#include <vector>

namespace kr::test
{

TEST(CodePageFirstUse, DISABLED_ByManyThreads)
{
    constexpr int threadCount = 8;
    std::barrier start(threadCount);
    std::vector<std::string> answers(threadCount);
    std::vector<std::thread> threads;
    for (std::string & answer : answers)
        threads.emplace_back(
            [&start, &answer]
            {
                start.arrive_and_wait();
                answer = std::to_string(GetACP());
                for (UINT const codePage : ansiCodePages)
                    answer += " " + NarrowUnit(codePage, 0, 0x00C4) + WidenToUnit(codePage, 0, "\xA7");
            });
    for (std::thread & thread : threads)
        thread.join();
    for (std::string const & answer : answers)
        EXPECT_EQ(answer, answers.front());
    EXPECT_EQ(answers.front(), "932 -0E07 41FF67 -003F 41003F 41003F C400A7 4100A7 C400A7 4100A7 C400A7 -00A7 -00A7 "
                               "C400A7 C400A7 -003F");
}

TEST(CodePageFirstUse, MayComeFromManyThreadsAtOnce)
{
    ChildResult const child = RunTestInChild("CodePageFirstUse.DISABLED_ByManyThreads", {{"LC_ALL", "ja_JP"}});
    EXPECT_EQ(child.exitStatus, 0) << child.output;
}

TEST(CodePageFirstUse, DISABLED_WithoutMemory)
{
    WCHAR const unit = 0x3042;
    char bytes[2];
    WCHAR units[2];
    for (std::size_t const allocation : {1u, 2u})
    {
        std::size_t const before = LiveAllocations();
        FailNthAllocation const fail(allocation);
        SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(WideCharToMultiByte(932, 0, &unit, 1, bytes, 2, nullptr, nullptr), 0);
        EXPECT_EQ(GetLastError(), ERROR_NOT_ENOUGH_MEMORY);
        EXPECT_TRUE(fail.HasFailed());
        EXPECT_EQ(LiveAllocations(), before);
    }
    {
        FailNthAllocation const fail(1);
        SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(MultiByteToWideChar(932, 0, "\x82\xA0", 2, units, 2), 0);
        EXPECT_EQ(GetLastError(), ERROR_NOT_ENOUGH_MEMORY);
    }
    EXPECT_EQ(WideCharToMultiByte(932, 0, &unit, 1, bytes, 2, nullptr, nullptr), 2);
    FailNthAllocation const fail(1);
    EXPECT_EQ(MultiByteToWideChar(932, 0, "\x82\xA0", 2, units, 2), 1);
    EXPECT_FALSE(fail.HasFailed());
}

TEST(CodePageFirstUse, FailsWithoutMemoryAndSucceedsLater)
{
    ChildResult const child = RunTestInChild("CodePageFirstUse.DISABLED_WithoutMemory", {});
    EXPECT_EQ(child.exitStatus, 0) << child.output;
}

TEST(CodePageFirstUse, DISABLED_WithoutMemoryForTheConverter)
{
    IcuMemory memory;
    ASSERT_TRUE(memory.IsMade());
    WCHAR const unit = 0x3042;
    char bytes[2];
    ASSERT_EQ(WideCharToMultiByte(1252, 0, &unit, 1, bytes, 2, nullptr, nullptr), 1);
    memory.RunOut();
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(WideCharToMultiByte(932, 0, &unit, 1, bytes, 2, nullptr, nullptr), 0);
    EXPECT_EQ(GetLastError(), ERROR_NOT_ENOUGH_MEMORY);
    memory.ComeBack();
    EXPECT_EQ(WideCharToMultiByte(932, 0, &unit, 1, bytes, 2, nullptr, nullptr), 2);
}

TEST(CodePageFirstUse, FailsWithoutMemoryForTheConverterAndSucceedsLater)
{
    ChildResult const child = RunTestInChild("CodePageFirstUse.DISABLED_WithoutMemoryForTheConverter", {});
    EXPECT_EQ(child.exitStatus, 0) << child.output;
}

TEST(CodePageFirstUse, DISABLED_OfTheProcessCodePage)
{
    std::size_t const before = AllAllocations();
    EXPECT_EQ(GetACP(), 949u);
    EXPECT_EQ(GetACP(), 949u);
    EXPECT_EQ(AllAllocations(), before);
}

TEST(CodePageFirstUse, OfTheProcessCodePageNeedsNoMemory)
{
    ChildResult const child = RunTestInChild("CodePageFirstUse.DISABLED_OfTheProcessCodePage", {{"LC_ALL", "ko_KR"}});
    EXPECT_EQ(child.exitStatus, 0) << child.output;
}

} // namespace kr::test
