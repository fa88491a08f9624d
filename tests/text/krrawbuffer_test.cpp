#include <krcore/text/krbuffer.h>

#include "tests/krplatform/automation/thrown_result.h"
#include "tests/support/failing_allocator.h"
#include "tests/support/virtual_slot.h"

#include <gtest/gtest.h>

#include <string>

using namespace kr::test;

namespace
{

unsigned char const sixBytes[] = {1, 2, 3, 4, 5, 6};

// All bytes of the block, in digits.
std::string BlockOf(CKrRawBuffer const & buffer)
{
    std::string shown;
    for (unsigned int index = 0; index < buffer.BufSize(); ++index)
        shown += std::to_string(buffer.Get()[index]);
    return shown;
}

} // namespace

TEST(CKrRawBuffer, StartsWithoutABlock)
{
    CKrRawBuffer buffer;
    EXPECT_EQ(buffer.Get(), nullptr);
    EXPECT_EQ(buffer.BufLength(), 0u);
    EXPECT_EQ(buffer.BufSize(), 0u);
    EXPECT_FALSE(buffer.GetReleaseAssigned());
    EXPECT_EQ(buffer.Release(), nullptr);
    EXPECT_EQ(buffer.TrailingBytes(), 0);
    buffer.Clear();
    buffer.Free();
    EXPECT_EQ(buffer.Get(), nullptr);
}

TEST(CKrRawBuffer, CountsTheZeroBytesOfANewBlockAsContent)
{
    CKrRawBuffer const buffer(16);
    EXPECT_EQ(buffer.BufLength(), 16u);
    EXPECT_EQ(BlockOf(buffer), "0000000000000000");
}

TEST(CKrRawBuffer, CopiesDataIntoABlockOfTheGreaterSize)
{
    CKrRawBuffer const larger(sixBytes, 3, 5);
    EXPECT_EQ(larger.BufLength(), 3u);
    EXPECT_EQ(BlockOf(larger), "12300");
    CKrRawBuffer const smaller(sixBytes, 3, 1);
    EXPECT_EQ(smaller.BufLength(), 3u);
    EXPECT_EQ(BlockOf(smaller), "123");
    CKrRawBuffer const zero(nullptr, 2, 4);
    EXPECT_EQ(zero.BufLength(), 2u);
    EXPECT_EQ(BlockOf(zero), "0000");
    CKrRawBuffer const nothing(nullptr, 0, 0);
    EXPECT_NE(nothing.Get(), nullptr) << "a block even for no byte";
}

TEST(CKrRawBuffer, GrowsByGranulesOfItsPresentSize)
{
    // clang-format off
    struct { unsigned int size, length, grown; } const rows[] = {
        {    0,     0,     0 },
        {    0,     1,   256 },
        {    0,   257,   512 },
        {  256,   256,   256 }, // fits
        {  256,   257,   512 },
        {  257,   258,  1024 },
        { 1024,  1025,  2048 },
        { 1025,  1026,  4096 },
        { 2048,  2049,  4096 },
        { 4096,  4097,  8192 },
        { 4097,  4098,  8192 },
        { 8192,  8193, 16384 },
        { 8192, 16385, 24576 },
        {  100,    99,   100 }, // never shrinks
    };
    // clang-format on
    for (auto const & row : rows)
    {
        SCOPED_TRACE(std::to_string(row.size) + " for " + std::to_string(row.length));
        CKrRawBuffer buffer;
        buffer.AllocExact(row.size);
        EXPECT_EQ(buffer.BufSize(), row.size);
        buffer.Alloc(row.length);
        EXPECT_EQ(buffer.BufSize(), row.grown);
        EXPECT_EQ(buffer.BufLength(), 0u);
    }
}

TEST(CKrRawBuffer, GrowsByTheLastStepForEver)
{
    CKrByteBuffer buffer;
    unsigned int size = 0;
    std::string content;
    for (unsigned int round = 0; round < 4000; ++round)
    {
        std::string const added(37, static_cast<char>('a' + round % 26));
        buffer.Add(reinterpret_cast<unsigned char const *>(added.data()), 37);
        content += added;
        unsigned int const granule = size <= 256 ? 256 : size <= 1024 ? 1024 : size <= 4096 ? 4096 : 8192;
        if (content.size() > size)
            size = (static_cast<unsigned int>(content.size()) + granule - 1) / granule * granule;
        ASSERT_EQ(buffer.BufSize(), size);
    }
    ASSERT_GT(size, 140000u);
    EXPECT_EQ(std::string(buffer.Get(), buffer.Get() + buffer.BufLength()), content);
    EXPECT_EQ(std::string(buffer.Get() + buffer.BufLength(), buffer.Get() + size),
              std::string(size - content.size(), '\0'));
}

TEST(CKrRawBuffer, LosesWhatStandsBehindTheContentOfALargeBlockToo)
{
    CKrByteBuffer buffer;
    buffer.AllocExact(9000);
    buffer.Alloc(9001); // from here on there may be room in the same block
    for (unsigned int size = buffer.BufSize(); size < 60000; size = buffer.BufSize())
    {
        buffer.Get()[5] = 7;
        buffer.Get()[size - 1] = 7;
        buffer.SetLength(6);
        buffer.Alloc(size + 1);
        ASSERT_EQ(buffer.BufSize(), size + 8192);
        EXPECT_EQ(buffer.Get()[5], 7);
        EXPECT_EQ(buffer.Get()[size - 1], 0) << size;
        EXPECT_EQ(buffer.Get()[size + 8191], 0) << size;
    }
    unsigned char * const block = buffer.Release();
    EXPECT_EQ(block[5], 7);
    delete[] block;
}

TEST(CKrRawBuffer, AsksADerivedClassForItsTrailingBytes)
{
    class Wider : public CKrWcharBuffer
    {
    public:
        using CKrWcharBuffer::CKrWcharBuffer;
        int TrailingBytes() const override { return 100; }
    };
    Wider const source("a");
    Wider buffers[] = {Wider(), Wider("a"), Wider(OLESTR("a")), Wider(1u), source};
    for (Wider & buffer : buffers)
    {
        while (buffer.BufLength() < 600)
        {
            buffer.AddString(OLESTR('x'));
            EXPECT_GE(buffer.BufSize(), buffer.BufLength() + 100) << buffer.BufLength();
        }
    }
}

TEST(CKrRawBuffer, HasItsVirtualOperationsInOrder)
{
    EXPECT_EQ(VirtualSlotOf(&CKrRawBuffer::TrailingBytes), 2u) << "behind the destructor";
    EXPECT_EQ(VirtualSlotOf(&CKrByteBuffer::Expand), 3u);
    EXPECT_EQ(VirtualSlotOf(static_cast<void (CKrByteBuffer::*)(unsigned int)>(&CKrByteBuffer::SetLength)), 4u);
    EXPECT_EQ(VirtualSlotOf(static_cast<void (CKrWcharBuffer::*)(unsigned int)>(&CKrWcharBuffer::SetLength)), 4u);
}

TEST(CKrRawBuffer, KeepsOnlyTheContentWhenItGrows)
{
    CKrByteBuffer buffer(sixBytes, 6, 6);
    buffer.SetLength(2);
    buffer.AllocExact(4);
    EXPECT_EQ(BlockOf(buffer), "123456") << "large enough";
    buffer.AllocExact(8);
    EXPECT_EQ(buffer.BufLength(), 2u);
    EXPECT_EQ(BlockOf(buffer), "12000000");
}

TEST(CKrRawBuffer, AssignsAByteWithoutTheLadder)
{
    CKrRawBuffer buffer(sixBytes, 6, 6);
    buffer.Assign(3, 7);
    EXPECT_EQ(buffer.BufLength(), 3u);
    EXPECT_EQ(BlockOf(buffer), "777000");
    buffer.Assign(8, 0);
    EXPECT_EQ(buffer.BufLength(), 8u);
    EXPECT_EQ(BlockOf(buffer), "00000000");
    CKrRawBuffer empty;
    empty.Assign(0, 7);
    EXPECT_EQ(empty.Get(), nullptr);
    CKrWcharBuffer wide;
    wide.Assign(4, 1);
    EXPECT_EQ(wide.BufLength(), 4u);
    EXPECT_EQ(BlockOf(wide), "111100") << "with room for the terminator";
}

TEST(CKrRawBuffer, TakesOverAndGivesUpBlocks)
{
    std::size_t const before = LiveAllocations();
    {
        CKrRawBuffer buffer(sixBytes, 6, 6);
        auto * const block = new unsigned char[4]{9, 8, 7, 6};
        buffer.Attach(block, 2, 4);
        EXPECT_EQ(buffer.Get(), block);
        EXPECT_EQ(buffer.BufLength(), 2u);
        EXPECT_EQ(BlockOf(buffer), "9876") << "nothing is zeroed";
        unsigned char * const released = buffer.Release();
        EXPECT_EQ(released, block);
        EXPECT_EQ(buffer.Get(), nullptr);
        EXPECT_EQ(buffer.BufLength(), 0u);
        EXPECT_EQ(buffer.BufSize(), 0u);
        delete[] released;
    }
    EXPECT_EQ(LiveAllocations(), before);
}

TEST(CKrRawBuffer, KeepsItsBlockWhenThatIsAttached)
{
    CKrRawBuffer buffer(sixBytes, 6, 6);
    buffer.Attach(buffer.Get(), 2, 6);
    EXPECT_EQ(buffer.BufLength(), 2u);
    EXPECT_EQ(BlockOf(buffer), "123456");
}

TEST(CKrRawBuffer, ForgetsTheRoomOfABlockThatIsGone)
{
    CKrCharBuffer buffer;
    buffer.AddString(std::string(300, 'x').c_str());
    buffer.Attach(new char[2]{'y', 'z'}, 1);
    buffer.AddString('a');
    EXPECT_EQ(buffer.BufSize(), 256u);
    EXPECT_STREQ(buffer.Get(), "ya");
    delete[] buffer.Release();
    buffer.AddString('a');
    EXPECT_EQ(buffer.BufSize(), 256u);
    buffer.Free();
    buffer.AddString('b');
    EXPECT_STREQ(buffer.Get(), "b");
}

TEST(CKrRawBuffer, ClearsWithinItsBlockAndFreesIt)
{
    CKrByteBuffer buffer(sixBytes, 6, 6);
    buffer.SetLength(2);
    unsigned char const * const block = buffer.Get();
    buffer.Clear();
    EXPECT_EQ(buffer.Get(), block);
    EXPECT_EQ(buffer.BufLength(), 0u);
    EXPECT_EQ(BlockOf(buffer), "000000");
    buffer.Free();
    EXPECT_EQ(buffer.Get(), nullptr);
    EXPECT_EQ(buffer.BufSize(), 0u);
}

TEST(CKrRawBuffer, LeavesOldBytesBehindAShorterCopy)
{
    CKrRawBuffer target(sixBytes, 6, 6);
    unsigned char const twoBytes[] = {8, 9};
    CKrRawBuffer const source(twoBytes, 2, 2);
    unsigned char const * const block = target.Get();
    target = source;
    EXPECT_EQ(target.Get(), block);
    EXPECT_EQ(target.BufLength(), 2u);
    EXPECT_EQ(BlockOf(target), "893456");
    EXPECT_EQ(BlockOf(source), "89");
    target = CKrRawBuffer(nullptr, 0, 4);
    EXPECT_EQ(target.Get(), block) << "no content is a content";
    EXPECT_EQ(target.BufLength(), 0u);
    EXPECT_EQ(BlockOf(target), "893456");
    target = CKrRawBuffer();
    EXPECT_EQ(target.Get(), nullptr) << "a source without a block frees";
}

TEST(CKrRawBuffer, CopiesByTheLadderAndWithoutTheFlag)
{
    CKrCharBuffer source("abc");
    CKrCharBuffer const copy(source);
    EXPECT_EQ(copy.BufLength(), 3u);
    EXPECT_EQ(copy.BufSize(), 256u);
    source.SetLength(0);
    source.AddString(std::string(256, 'x').c_str());
    CKrCharBuffer const exact(source);
    EXPECT_EQ(exact.BufSize(), 256u) << "a new copy reserves no terminator";
    CKrCharBuffer assigned;
    assigned = source;
    EXPECT_EQ(assigned.BufSize(), 512u);
    CKrRawBuffer & self = assigned;
    assigned = static_cast<CKrCharBuffer const &>(assigned);
    EXPECT_EQ(self.BufLength(), 256u);
}

TEST(CKrRawBuffer, IsMovedWhereItsFlagAsksForIt)
{
    std::size_t const before = LiveAllocations();
    {
        CKrRawBuffer source(sixBytes, 6, 6);
        source.SetReleaseAssigned(true);
        unsigned char const * const block = source.Get();
        CKrRawBuffer target(3);
        target = source;
        EXPECT_EQ(target.Get(), block);
        EXPECT_EQ(target.BufLength(), 6u);
        EXPECT_FALSE(target.GetReleaseAssigned());
        EXPECT_EQ(source.Get(), nullptr);
        EXPECT_EQ(source.BufLength(), 0u);
        EXPECT_EQ(source.BufSize(), 0u);
        EXPECT_TRUE(source.GetReleaseAssigned());
        target = source;
        EXPECT_EQ(target.Get(), nullptr) << "moved from an empty one";

        CKrRawBuffer itself(sixBytes, 6, 6);
        itself.SetReleaseAssigned(true);
        CKrRawBuffer const & same = itself;
        itself = same;
        itself.Move(itself);
        EXPECT_EQ(itself.BufLength(), 6u);
        CKrRawBuffer const copy(itself);
        EXPECT_EQ(copy.BufLength(), 6u);
        EXPECT_EQ(itself.Get(), nullptr);
    }
    EXPECT_EQ(LiveAllocations(), before);
}

TEST(CKrRawBuffer, StaysAsItWasWhenMemoryRunsOut)
{
    CKrByteBuffer buffer(sixBytes, 6, 6);
    CKrRawBuffer const larger(16);
    auto const fails = [](auto operation)
    {
        FailNthAllocation const fail(1);
        return ThrownResult(operation) == E_OUTOFMEMORY;
    };
    EXPECT_TRUE(fails([&] { buffer.Alloc(7); }));
    EXPECT_TRUE(fails([&] { buffer.AllocExact(7); }));
    EXPECT_TRUE(fails([&] { buffer.Assign(7, 9); }));
    EXPECT_TRUE(fails([&] { buffer.Clone(larger); }));
    EXPECT_TRUE(fails([&] { buffer.Add(7); }));
    EXPECT_TRUE(fails([&] { buffer.Expand(1); }));
    EXPECT_EQ(ThrownResult([&] { buffer.Expand(0xFFFFFFFFu); }), E_OUTOFMEMORY) << "more than can be counted";
    EXPECT_EQ(BlockOf(buffer), "123456");
    EXPECT_EQ(buffer.BufLength(), 6u);
}

TEST(CKrByteBuffer, AppendsBytes)
{
    CKrByteBuffer buffer;
    buffer.Add(nullptr, 5);
    buffer.Add(sixBytes, 0);
    buffer.Add(CKrByteBuffer());
    EXPECT_EQ(buffer.Get(), nullptr);
    buffer.Add(7);
    buffer.Add(sixBytes, 2);
    buffer.Add(CKrByteBuffer(sixBytes, 3, 3));
    EXPECT_EQ(buffer.BufLength(), 6u);
    EXPECT_EQ(buffer.BufSize(), 256u);
    EXPECT_EQ(BlockOf(buffer), "712123" + std::string(250, '0'));
    EXPECT_EQ(static_cast<unsigned char *>(buffer), buffer.Get());
}

TEST(CKrByteBuffer, AppendsItself)
{
    CKrByteBuffer buffer(sixBytes, 6, 6);
    buffer.Add(buffer);
    EXPECT_EQ(BlockOf(buffer).substr(0, 13), "1234561234560");
    EXPECT_EQ(buffer.BufLength(), 12u);
}

TEST(CKrByteBuffer, DropsItsLastByteButKeepsItInTheBlock)
{
    CKrByteBuffer buffer(sixBytes, 2, 2);
    buffer.Remove();
    EXPECT_EQ(buffer.BufLength(), 1u);
    buffer.Remove();
    buffer.Remove();
    EXPECT_EQ(buffer.BufLength(), 0u);
    EXPECT_EQ(BlockOf(buffer), "12");
}

TEST(CKrByteBuffer, IgnoresALengthThatIsNotLessThanTheSize)
{
    CKrByteBuffer buffer(sixBytes, 2, 6);
    buffer.SetLength(6);
    EXPECT_EQ(buffer.BufLength(), 2u);
    buffer.SetLength(5);
    EXPECT_EQ(buffer.BufLength(), 5u);
    buffer.SetLength(0);
    EXPECT_EQ(buffer.BufLength(), 0u);
    CKrByteBuffer empty;
    empty.SetLength(0);
    EXPECT_EQ(empty.BufLength(), 0u);
}

TEST(CKrByteBuffer, MakesRoomBehindItsContent)
{
    CKrByteBuffer buffer(sixBytes, 6, 6);
    buffer.Expand(0);
    EXPECT_EQ(buffer.BufSize(), 6u);
    buffer.Expand(251);
    EXPECT_EQ(buffer.BufSize(), 512u);
    EXPECT_EQ(buffer.BufLength(), 6u);
}
