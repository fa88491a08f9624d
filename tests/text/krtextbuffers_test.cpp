#include <krcore/text/krbuffer.h>

#include "tests/support/failing_allocator.h"

#include <gtest/gtest.h>

#include <string>

using namespace kr::test;

namespace
{

WCHAR const wideText[] = {0x0141, 0x0042, 0}; // bytes 41 01 42 00

// The first bytes of the block in hexadecimal digits.
std::string Bytes(CKrRawBuffer const & buffer, unsigned int count)
{
    static char const digits[] = "0123456789ABCDEF";
    std::string shown;
    for (unsigned int index = 0; index < count && index < buffer.BufSize(); ++index)
    {
        shown += digits[buffer.Get()[index] >> 4];
        shown += digits[buffer.Get()[index] & 15];
    }
    return shown;
}

} // namespace

TEST(CKrCharBuffer, IsMadeOfNarrowAndOfRawWideText)
{
    CKrCharBuffer const sized(16u);
    EXPECT_EQ(sized.Length(), 16u);
    EXPECT_EQ(sized.BufSize(), 16u) << "no room for a terminator";
    CKrCharBuffer const narrow("abc");
    EXPECT_EQ(narrow.Length(), 3u);
    EXPECT_EQ(Bytes(narrow, 99), "61626300");
    EXPECT_EQ(Bytes(CKrCharBuffer("abc", 2), 99), "616200");
    CKrCharBuffer const wide(wideText);
    EXPECT_EQ(wide.Length(), 4u);
    EXPECT_EQ(Bytes(wide, 99), "4101420000");
    EXPECT_EQ(Bytes(CKrCharBuffer(wideText, 1), 99), "410100");
    EXPECT_EQ(Bytes(CKrCharBuffer(CKrWcharBuffer(wideText)), 99), "4101420000");
    EXPECT_EQ(Bytes(CKrCharBuffer(static_cast<char const *>(nullptr)), 99), "00");
}

TEST(CKrCharBuffer, AppendsAndTerminates)
{
    CKrCharBuffer buffer;
    buffer.AddString(static_cast<char const *>(nullptr));
    buffer.AddString("", 0);
    EXPECT_EQ(buffer.Get(), nullptr);
    buffer.AddString('a');
    EXPECT_EQ(buffer.BufSize(), 256u);
    buffer.AddString(OLESTR('b'));
    EXPECT_EQ(buffer.Length(), 3u) << "a wide character is two bytes";
    buffer.AddString("cd");
    buffer.AddString(wideText, 1);
    EXPECT_EQ(Bytes(buffer, 9), "616200636441010000");
    buffer.AddString(CKrCharBuffer("e"));
    buffer.AddString(CKrWcharBuffer(wideText));
    EXPECT_EQ(buffer.Length(), 10u) << "two bytes for two wide characters";
    EXPECT_EQ(Bytes(buffer, 12), "616200636441016541010000");
    CKrCharBuffer longText;
    longText.AddString(std::string(256, 'x').c_str());
    EXPECT_EQ(longText.BufSize(), 512u);
}

TEST(CKrCharBuffer, TerminatesBehindEachCharacterThatIsAppended)
{
    CKrCharBuffer buffer;
    for (unsigned int length = 1; length <= 300; ++length)
    {
        buffer.AddString(static_cast<char>('a' + length % 26));
        ASSERT_EQ(buffer.Length(), length);
        ASSERT_EQ(buffer.Get()[length - 1], static_cast<char>('a' + length % 26));
        ASSERT_EQ(buffer.Get()[length], 0);
        ASSERT_EQ(buffer.BufSize(), length < 256 ? 256u : 512u) << length << ": the terminator needs room too";
    }
    EXPECT_EQ(buffer.Get()[0], 'b');
}

TEST(CKrCharBuffer, IsPassedWhereItsBytesAreExpected)
{
    CKrCharBuffer const narrow("abc"), none;
    char const * const text = narrow;
    unsigned char const * const bytes = narrow;
    EXPECT_STREQ(text, "abc");
    EXPECT_EQ(bytes[2], 'c');
    EXPECT_EQ(static_cast<char const *>(none), nullptr);
    CKrWcharBuffer const wide(wideText);
    WCHAR const * const units = wide;
    EXPECT_EQ(CString(units), CString(wideText));
}

TEST(CKrCharBuffer, WritesOnlyTheTerminatorForNothing)
{
    CKrCharBuffer buffer("abcd");
    buffer.SetLength(2);
    buffer.AddString(static_cast<char const *>(nullptr), 3);
    EXPECT_EQ(Bytes(buffer, 99), "6162006400");
    buffer.SetLength(1);
    buffer.AddString(wideText, 0);
    EXPECT_EQ(Bytes(buffer, 99), "6100006400");
    buffer.SetLength(0);
    buffer.AddString(static_cast<WCHAR const *>(nullptr), 3);
    EXPECT_EQ(Bytes(buffer, 99), "0000006400");
    CKrCharBuffer empty;
    empty.AddString(static_cast<char const *>(nullptr), 3);
    empty.AddString("x", 0);
    empty.AddString(static_cast<WCHAR const *>(nullptr), 3);
    empty.AddString(wideText, 0);
    EXPECT_EQ(empty.Get(), nullptr);
}

TEST(CKrCharBuffer, KeepsItsBlockWhenTextIsAssigned)
{
    CKrCharBuffer buffer("abcd");
    char const * const block = buffer.Get();
    buffer = "xy";
    EXPECT_EQ(buffer.Get(), block);
    EXPECT_EQ(Bytes(buffer, 99), "7879000000");
    buffer = static_cast<char const *>(nullptr);
    EXPECT_EQ(buffer.Get(), block);
    EXPECT_EQ(Bytes(buffer, 99), "0000000000");
    CKrCharBuffer fresh;
    fresh = "xy";
    EXPECT_EQ(fresh.BufSize(), 3u);
}

TEST(CKrCharBuffer, LeavesOldTextBehindAShorterCopy)
{
    CKrCharBuffer target("abcdef");
    target = CKrCharBuffer("xy");
    EXPECT_EQ(target.Length(), 2u);
    EXPECT_EQ(Bytes(target, 99), "78796364656600");
    EXPECT_STREQ(target.Get(), "xycdef");
    EXPECT_TRUE(static_cast<CStringA>(target) == "xy");
}

TEST(CKrCharBuffer, MeasuresWhatACallerWrote)
{
    CKrCharBuffer buffer("abcdef");
    buffer.Get()[3] = 0;
    buffer.SetLength();
    EXPECT_EQ(buffer.Length(), 3u);
    buffer.Get()[3] = 'x';
    buffer.Adjust();
    EXPECT_EQ(buffer.Length(), 6u);
    buffer.Clear();
    buffer.Get()[0] = 'a';
    buffer.Adjust();
    EXPECT_EQ(buffer.Length(), 0u) << "only behind content";
    CKrCharBuffer full(2u);
    full.Get()[0] = full.Get()[1] = 'a';
    full.SetLength();
    EXPECT_EQ(full.Length(), 2u) << "no further than the block";
    CKrCharBuffer blank("abc");
    blank.Get()[0] = 0;
    blank.SetLength();
    EXPECT_EQ(blank.Length(), 0u);
}

TEST(CKrCharBuffer, TakesOverABlockAndTerminatesIt)
{
    std::size_t const before = LiveAllocations();
    {
        CKrCharBuffer buffer("abc");
        buffer.Attach(new char[3]{'x', 'y', 'z'}, 2);
        EXPECT_EQ(buffer.BufSize(), 3u);
        EXPECT_EQ(Bytes(buffer, 99), "787900");
        delete[] buffer.Release();
        EXPECT_TRUE(static_cast<CStringA>(buffer).IsEmpty());
    }
    EXPECT_EQ(LiveAllocations(), before);
}

TEST(CKrWcharBuffer, IsMadeOfWideAndOfWidenedText)
{
    CKrWcharBuffer const sized(16u);
    EXPECT_EQ(sized.Length(), 16u);
    EXPECT_EQ(sized.BufSize(), 32u);
    CKrWcharBuffer const wide(wideText);
    EXPECT_EQ(wide.Length(), 2u);
    EXPECT_EQ(Bytes(wide, 99), "410142000000");
    CKrWcharBuffer const narrow("a\xE4");
    EXPECT_EQ(narrow.Length(), 2u);
    EXPECT_EQ(narrow.BufLength(), 4u);
    EXPECT_EQ(Bytes(narrow, 6), "6100E4000000") << "no code page";
}

TEST(CKrWcharBuffer, AppendsCharactersAndOneByteOfATerminator)
{
    CKrWcharBuffer buffer(wideText);
    buffer.AddString('a');
    buffer.AddString(OLESTR('b'));
    buffer.AddString("c");
    EXPECT_EQ(buffer.Length(), 5u);
    EXPECT_EQ(Bytes(buffer, 12), "410142006100620063000000");
    for (unsigned int index = 0; index < 12; ++index)
        static_cast<CKrRawBuffer &>(buffer).Get()[index] = 0x11;
    buffer.SetLength(1);
    buffer.AddString('a');
    EXPECT_EQ(Bytes(buffer, 6), "111161110011") << "the high bytes stay as they were";
    buffer.SetLength(1);
    buffer.AddString(static_cast<char const *>(nullptr), 1);
    buffer.AddString("x", 0);
    EXPECT_EQ(Bytes(buffer, 6), "111161110011") << "not even a terminator";
    buffer.AddString(wideText, 0);
    EXPECT_EQ(Bytes(buffer, 6), "111100110011");
    buffer.AddString(CKrWcharBuffer(wideText));
    EXPECT_EQ(Bytes(buffer, 8), "1111410142001111") << "without a terminator";
}

TEST(CKrWcharBuffer, WritesOnlyTheTerminatorForNothing)
{
    CKrWcharBuffer buffer(wideText);
    buffer.SetLength(1);
    buffer.AddString(static_cast<WCHAR const *>(nullptr), 3);
    EXPECT_EQ(Bytes(buffer, 99), "410100000000") << "one zero byte, the low half of B's place";
    CKrWcharBuffer empty;
    empty.AddString(static_cast<char const *>(nullptr), 3);
    empty.AddString("x", 0);
    empty.AddString(static_cast<WCHAR const *>(nullptr), 3);
    empty.AddString(wideText, 0);
    EXPECT_EQ(empty.Get(), nullptr);
}

TEST(CKrWcharBuffer, CountsItsLengthsInCharacters)
{
    CKrWcharBuffer buffer(4u);
    buffer.SetLength(4);
    EXPECT_EQ(buffer.BufLength(), 8u);
    buffer.SetLength(3);
    EXPECT_EQ(buffer.BufLength(), 6u);
    buffer.SetLength(4);
    EXPECT_EQ(buffer.BufLength(), 6u) << "not less than the size";
    buffer.Get()[0] = 0x0100;
    buffer.SetLength();
    EXPECT_EQ(buffer.BufLength(), 2u);
    buffer.Get()[1] = OLESTR('a');
    buffer.Adjust();
    EXPECT_EQ(buffer.Length(), 2u);
    EXPECT_EQ(static_cast<CString>(buffer).GetLength(), 2);
    buffer.Expand(1);
    EXPECT_EQ(buffer.BufSize(), 8u);
    buffer.Expand(2);
    EXPECT_EQ(buffer.BufSize(), 256u);
    buffer.Attach(new WCHAR[2]{0x1111, 0x2222}, 1);
    EXPECT_EQ(Bytes(buffer, 99), "11110022") << "the second zero is the block's";
}
