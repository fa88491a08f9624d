// Buffers where memory runs out, and where lengths pass what they can count.
#include <krcore/text/krbuffer.h>

#include "tests/krplatform/automation/thrown_result.h"
#include "tests/support/memory_failure.h"

#include <gtest/gtest.h>

#include <string>

using namespace kr::test;

namespace
{

constexpr unsigned int most = 0xFFFFFFFF;
constexpr unsigned int half = 0x80000000;

std::string const longText(300, 'x');
std::u16string const longWideText(300, u'x');

template <class Operation>
bool RunsOutOfMemory(Operation operation)
{
    return ThrownResult(operation) == E_OUTOFMEMORY;
}

// Whether the buffer holds the text that these tests start from.
bool IsUnchanged(CKrCharBuffer const & buffer) { return CStringA(buffer) == "abcdef"; }

bool IsUnchanged(CKrWcharBuffer const & buffer) { return CString(buffer) == OLESTR("abcdef"); }

template <class Buffer, class Change>
void ExpectKept(Change change)
{
    Buffer buffer("abcdef");
    EXPECT_EQ(FailUntilItPasses([&] { change(buffer); }, [&] { EXPECT_TRUE(IsUnchanged(buffer)); }), 1u);
    EXPECT_GE(buffer.BufLength(), 300u);
}

} // namespace

TEST(CKrBufferLimits, AreThoseOfAnUnsignedNumberOfBytes)
{
    CKrCharBuffer buffer("abcdef");
    unsigned char const byte = 'x';
    // each of these would wrap round to a small size
    EXPECT_TRUE(RunsOutOfMemory([&] { buffer.Alloc(most); }));
    EXPECT_TRUE(RunsOutOfMemory([&] { buffer.Alloc(most - 100); })) << "the granule passes the limit";
    EXPECT_TRUE(RunsOutOfMemory([&] { buffer.Assign(most, 0); }));
    EXPECT_TRUE(RunsOutOfMemory([&] { buffer.Expand(most); }));
    EXPECT_TRUE(RunsOutOfMemory([&] { buffer.Expand(most - 6); }));
    EXPECT_TRUE(RunsOutOfMemory([&] { buffer.Add(&byte, most); }));
    EXPECT_TRUE(RunsOutOfMemory([&] { buffer.Add(&byte, most - 5); }));
    EXPECT_TRUE(RunsOutOfMemory([&] { buffer.AddString("x", most); }));
    EXPECT_TRUE(RunsOutOfMemory([&] { buffer.AddString(OLESTR("x"), half); }));
    EXPECT_TRUE(RunsOutOfMemory([&] { buffer.AddString(OLESTR("x"), half - 1); }));
    buffer.SetLength(most);
    EXPECT_TRUE(IsUnchanged(buffer));
    EXPECT_TRUE(RunsOutOfMemory([] { CKrCharBuffer const made("x", most); }));
    EXPECT_TRUE(RunsOutOfMemory([] { CKrCharBuffer const made(OLESTR("x"), half); }));
}

TEST(CKrBufferLimits, OfWideTextAreHalfAsManyCharacters)
{
    CKrWcharBuffer buffer(OLESTR("abcdef"));
    EXPECT_TRUE(RunsOutOfMemory([&] { buffer.Expand(half); }));
    EXPECT_TRUE(RunsOutOfMemory([&] { buffer.Expand(half - 1); }));
    EXPECT_TRUE(RunsOutOfMemory([&] { buffer.AddString("x", half); }));
    EXPECT_TRUE(RunsOutOfMemory([&] { buffer.AddString("x", half - 1); }));
    EXPECT_TRUE(RunsOutOfMemory([&] { buffer.AddString(OLESTR("x"), half); }));
    EXPECT_TRUE(RunsOutOfMemory([&] { buffer.AddString(OLESTR("x"), half - 1); }));
    buffer.SetLength(half);
    buffer.SetLength(half + 1);
    EXPECT_TRUE(IsUnchanged(buffer)) << "twice the length wraps round to 0 and 2";
    EXPECT_TRUE(RunsOutOfMemory([] { CKrWcharBuffer const made(half); }));
    EXPECT_TRUE(RunsOutOfMemory([] { CKrWcharBuffer const made(OLESTR("x"), half); }));
    EXPECT_TRUE(RunsOutOfMemory([] { CKrWcharBuffer const made(OLESTR("x"), half - 1); })) << "no terminator fits";
    EXPECT_TRUE(RunsOutOfMemory([] { CKrWcharBuffer const made("x", half); }));
}

TEST(CKrBufferLimits, LeaveABlockThatCannotBeCountedToTheCaller)
{
    std::size_t const before = LiveAllocations();
    {
        CKrCharBuffer narrow("abcdef");
        char block[2] = {'x', 'y'};
        EXPECT_TRUE(RunsOutOfMemory([&] { narrow.Attach(block, most); }));
        EXPECT_TRUE(IsUnchanged(narrow));
        CKrWcharBuffer wide(OLESTR("abcdef"));
        WCHAR wideBlock[2] = {OLESTR('x'), OLESTR('y')};
        EXPECT_TRUE(RunsOutOfMemory([&] { wide.Attach(wideBlock, half); }));
        EXPECT_TRUE(RunsOutOfMemory([&] { wide.Attach(wideBlock, half - 1); }));
        EXPECT_TRUE(IsUnchanged(wide));
        EXPECT_EQ(block[1], 'y');
        EXPECT_EQ(wideBlock[1], OLESTR('y'));
    }
    EXPECT_EQ(LiveAllocations(), before);
}

TEST(CKrBufferLimits, KeepTheOldContentWhenMemoryRunsOut)
{
    CKrCharBuffer const narrow(longText.c_str());
    CKrWcharBuffer const wide(longWideText.c_str());
    using Narrow = CKrCharBuffer;
    ExpectKept<Narrow>([](Narrow & buffer) { buffer.AddString(longText.c_str()); });
    ExpectKept<Narrow>([](Narrow & buffer) { buffer.AddString(longWideText.c_str()); });
    ExpectKept<Narrow>([&](Narrow & buffer) { buffer.AddString(narrow); });
    ExpectKept<Narrow>([&](Narrow & buffer) { buffer.AddString(wide); });
    ExpectKept<Narrow>([&](Narrow & buffer) { buffer = narrow; });
    ExpectKept<Narrow>([](Narrow & buffer) { buffer = longText.c_str(); });
    ExpectKept<Narrow>([](Narrow & buffer) { buffer = longWideText.c_str(); });
    using Wide = CKrWcharBuffer;
    ExpectKept<Wide>([](Wide & buffer) { buffer.AddString(longText.c_str()); });
    ExpectKept<Wide>([](Wide & buffer) { buffer.AddString(longWideText.c_str()); });
    ExpectKept<Wide>([&](Wide & buffer) { buffer.AddString(wide); });
    ExpectKept<Wide>([&](Wide & buffer) { buffer = wide; });
    ExpectKept<Wide>([](Wide & buffer) { buffer = longText.c_str(); });
    ExpectKept<Wide>([](Wide & buffer) { buffer = longWideText.c_str(); });
}

TEST(CKrBufferLimits, LeaveNothingOfABufferThatCannotBeMade)
{
    CKrCharBuffer const narrow("abc");
    CKrWcharBuffer const wide(OLESTR("abc"));
    auto const nothing = [] {};
    EXPECT_EQ(FailUntilItPasses([] { CKrRawBuffer const made(16); }, nothing), 1u);
    EXPECT_EQ(FailUntilItPasses([] { CKrCharBuffer const made("abc"); }, nothing), 1u);
    EXPECT_EQ(FailUntilItPasses([] { CKrCharBuffer const made(OLESTR("abc")); }, nothing), 1u);
    EXPECT_EQ(FailUntilItPasses([&] { CKrCharBuffer const made(narrow); }, nothing), 1u);
    EXPECT_EQ(FailUntilItPasses([&] { CKrCharBuffer const made(wide); }, nothing), 1u);
    EXPECT_EQ(FailUntilItPasses([] { CKrWcharBuffer const made("abc"); }, nothing), 1u);
    EXPECT_EQ(FailUntilItPasses([] { CKrWcharBuffer const made(OLESTR("abc")); }, nothing), 1u);
    CKrCharBuffer fresh;
    EXPECT_EQ(FailUntilItPasses([&] { fresh = "abc"; }, [&] { EXPECT_EQ(fresh.Get(), nullptr); }), 1u);
}

TEST(CKrBufferLimits, LeaveAStringAloneThatCannotBeLent)
{
    CString const shared(OLESTR("abcdef")); // a text that is shared needs storage of its own
    CString text(shared);
    CKrBufferCStringW buffer;
    buffer.AddString(OLESTR("xyz"));
    auto const isUnchanged = [&]
    {
        EXPECT_EQ(CString(buffer), OLESTR("xyz"));
        EXPECT_EQ(text, OLESTR("abcdef"));
    };
    EXPECT_EQ(FailUntilItPasses([&] { buffer.AttachString(text, -1); }, isUnchanged), 2u) << "a record and the storage";
    buffer.Get()[0] = OLESTR('A');
    buffer.ReleaseString();
    EXPECT_EQ(text, OLESTR("Abcdef"));
    EXPECT_EQ(shared, OLESTR("abcdef"));

    CStringA narrow("abc");
    CStringA const narrowShared(narrow);
    CKrBufferCStringA narrowBuffer;
    EXPECT_EQ(FailUntilItPasses([&] { narrowBuffer.AttachString(narrow, 10); },
                                [&] { EXPECT_EQ(narrowBuffer.Get(), nullptr); }),
              2u);
    narrowBuffer.SetLength(2);
    narrowBuffer.ReleaseString();
    EXPECT_TRUE(narrow == "ab");
}
