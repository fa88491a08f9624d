// Blocks of texts are kept by the thread that frees them and used again, within limits, and nothing is lost at its end.
#include "tests/support/failing_allocator.h"

#include <krplatform/text/bstr.h>
#include <krplatform/text/cstring.h>
#include <krplatform/text/textmemory.h>

#include <cstdint>
#include <gtest/gtest.h>
#include <thread>
#include <utility>
#include <vector>

namespace
{

using kr::detail::AllocateTextMemory;
using kr::detail::FreeTextMemory;
using kr::detail::KeepTextMemory;
using kr::detail::SizeOfTextMemory;
using kr::test::AllAllocations;
using kr::test::FailNthAllocation;
using kr::test::LiveAllocations;

constexpr std::size_t s_kept = 1024 * 1024;

// Programs that count keep nothing; here it is what is tested.
class TextMemory : public testing::Test
{
protected:
    void SetUp() override
    {
        KeepTextMemory(true);
        FreeTextMemory(AllocateTextMemory(1)); // a thread keeps from its second block on
        std::size_t const before = LiveAllocations();
        FreeTextMemory(AllocateTextMemory(1));
        if (LiveAllocations() == before)
            GTEST_SKIP() << "a sanitizer watches every block";
    }
    void TearDown() override { KeepTextMemory(false); }
};

TEST(TextMemorySizes, AreSixteenApartLessTheMark)
{
    struct Row
    {
        std::size_t asked;
        std::size_t given;
    };
    for (auto const [asked, given] :
         {Row{1, 4}, {4, 4}, {5, 20}, {20, 20}, {21, 36}, {36, 36}, {260, 260}, {261, 276}, {1000, 1012}})
        EXPECT_EQ(SizeOfTextMemory(asked), given) << asked;
}

TEST_F(TextMemory, LiesFourBytesBehindAMultipleOfSixteen)
{
    for (std::size_t const size : {1u, 20u, 21u, 260u, 261u, 100000u})
    {
        void * const memory = AllocateTextMemory(size);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(memory) % 16, 4u) << size;
        FreeTextMemory(memory);
    }
}

TEST_F(TextMemory, IsUsedAgainForItsSizeOnlyLastFreedFirst)
{
    void * const first = AllocateTextMemory(100);
    void * const second = AllocateTextMemory(100);
    FreeTextMemory(first);
    FreeTextMemory(second);
    std::size_t const before = AllAllocations();
    EXPECT_EQ(AllocateTextMemory(SizeOfTextMemory(100)), second);
    EXPECT_EQ(AllocateTextMemory(SizeOfTextMemory(100) - 15), first);
    EXPECT_EQ(AllAllocations(), before);
    FreeTextMemory(first);
    void * const other = AllocateTextMemory(SizeOfTextMemory(100) + 1);
    EXPECT_EQ(AllAllocations(), before + 1);
    FreeTextMemory(second);
    FreeTextMemory(other);
}

TEST_F(TextMemory, IsKeptUpToALimitOfEachSize)
{
    for (std::size_t const size : {4u, 52u, 260u})
    {
        std::size_t const blockSize = SizeOfTextMemory(size) + 4;
        std::size_t const limit = s_kept / blockSize;
        KeepTextMemory(true); // nothing is kept
        FreeTextMemory(AllocateTextMemory(1));
        std::size_t const before = LiveAllocations();
        std::vector<void *> blocks;
        blocks.reserve(limit + 5);
        for (std::size_t count = 0; count < limit + 5; ++count)
            blocks.push_back(AllocateTextMemory(size));
        for (void * const block : blocks)
            FreeTextMemory(block);
        EXPECT_EQ(LiveAllocations() - 1, before + limit) << size; // the vector is one
    }
}

TEST_F(TextMemory, IsNotKeptBeyondTheLargestSize)
{
    std::size_t const before = LiveAllocations();
    FreeTextMemory(AllocateTextMemory(261));
    EXPECT_EQ(LiveAllocations(), before);
    FreeTextMemory(AllocateTextMemory(260));
    EXPECT_EQ(LiveAllocations(), before + 1);
}

TEST_F(TextMemory, IsKeptByTheThreadThatFreesUntilItEnds)
{
    std::size_t const before = LiveAllocations();
    void * const block = AllocateTextMemory(50);
    bool isUsedAgain = false;
    std::thread(
        [&]
        {
            FreeTextMemory(AllocateTextMemory(50));
            FreeTextMemory(block);
            void * const again = AllocateTextMemory(50);
            isUsedAgain = again == block;
            FreeTextMemory(again);
        })
        .join();
    EXPECT_TRUE(isUsedAgain);
    EXPECT_EQ(LiveAllocations(), before);
}

// An object of the thread that is older than its first text ends after what the thread kept.
struct LateOwner
{
    CString text;
};

TEST_F(TextMemory, IsGivenBackAtOnceByTextsThatEndAfterIt)
{
    std::size_t const before = LiveAllocations();
    std::thread(
        []
        {
            static thread_local LateOwner owner;
            owner.text = CString();
            {
                CString const first(OLESTR("first")), second(OLESTR("second"));
            }
            owner.text = OLESTR("late");
        })
        .join();
    EXPECT_EQ(LiveAllocations(), before);
}

TEST_F(TextMemory, ServesTextsOfBothKindsAndAutomation)
{
    {
        CString const text(OLESTR("twelve units"));
    }
    {
        CStringA const text("twelve bytes");
    }
    SysFreeString(SysAllocString(OLESTR("twelve units")));
    std::size_t const before = AllAllocations();
    {
        CString const text(OLESTR("units twelve"));
        EXPECT_EQ(text, CString(OLESTR("units twelve")));
        BSTR const automation = SysAllocString(OLESTR("units twelve"));
        EXPECT_EQ(SysStringLen(automation), 12u);
        SysFreeString(automation);
    }
    EXPECT_LE(AllAllocations(), before + 1); // the second text of the comparison
}

TEST_F(TextMemory, IsNullWhenItRunsOutAndWhatIsKeptStays)
{
    void * const block = AllocateTextMemory(70);
    FreeTextMemory(block);
    for (std::size_t const size : {200u, 1000u})
    {
        FailNthAllocation const fail(1);
        EXPECT_EQ(AllocateTextMemory(size), nullptr) << size;
    }
    {
        FailNthAllocation const fail(1);
        EXPECT_EQ(AllocateTextMemory(70), block);
        EXPECT_FALSE(fail.HasFailed());
    }
    FreeTextMemory(block);
    FreeTextMemory(nullptr);
}

TEST_F(TextMemory, IsGivenBackWhenNoneIsToBeKept)
{
    KeepTextMemory(false);
    std::size_t const before = LiveAllocations();
    KeepTextMemory(true);
    FreeTextMemory(AllocateTextMemory(30));
    FreeTextMemory(AllocateTextMemory(30));
    EXPECT_EQ(LiveAllocations(), before + 1);
    KeepTextMemory(false);
    EXPECT_EQ(LiveAllocations(), before);
    FreeTextMemory(AllocateTextMemory(30));
    FreeTextMemory(AllocateTextMemory(30));
    EXPECT_EQ(LiveAllocations(), before);
}

} // namespace
