#include <krcore/text/krstringbuffers.h>

#include "tests/support/failing_allocator.h"

#include <gtest/gtest.h>

using namespace kr::test;

TEST(CKrBufferCStringA, GivesTheStringItsLengthAtTheEndOfTheScope)
{
    std::size_t const before = LiveAllocations();
    {
        CStringA text("abcdef");
        CStringA const shared(text);
        {
            CKrBufferCStringA buffer(text, -1);
            EXPECT_EQ(buffer.Length(), 6u);
            EXPECT_EQ(buffer.BufSize(), 7u);
            EXPECT_STREQ(buffer.Get(), "abcdef");
            buffer.Get()[0] = 'x';
            buffer.SetLength(3);
        }
        EXPECT_TRUE(text == "xbc");
        EXPECT_TRUE(shared == "abcdef");
    }
    EXPECT_EQ(LiveAllocations(), before);
}

TEST(CKrBufferCStringA, EndsAnEarlierAttachment)
{
    CStringA first("abc");
    CStringA second;
    CKrBufferCStringA buffer(first, 2);
    buffer.AttachString(second, 10);
    EXPECT_TRUE(first == "ab");
    EXPECT_EQ(buffer.Length(), 10u);
    buffer.Clear();
    buffer.AddString("xyz");
    buffer.ReleaseString();
    EXPECT_TRUE(second == "xyz");
    EXPECT_EQ(buffer.Get(), nullptr);
    buffer.ReleaseString();
    EXPECT_TRUE(second == "xyz");
}

TEST(CKrBufferCStringA, HasRoomForNothingWhereThatIsTold)
{
    CStringA text("abc");
    CKrBufferCStringA buffer(text, 0);
    EXPECT_EQ(buffer.Length(), 0u);
    EXPECT_EQ(buffer.BufSize(), 1u);
    buffer.ReleaseString();
    EXPECT_TRUE(text.IsEmpty());
}

TEST(CKrBufferCStringA, TellsTheStringItsLengthOnlyOnce)
{
    std::size_t const before = LiveAllocations();
    {
        CStringA text("abcdef");
        {
            CKrBufferCStringA const copy = [&text]
            {
                CKrBufferCStringA buffer(text, -1);
                CKrBufferCStringA made(buffer);
                buffer.SetLength(2);
                buffer.ReleaseString();
                EXPECT_TRUE(text == "ab");
                return made;
            }();
            text += "cd"; // its own again
        }
        EXPECT_TRUE(text == "abcd") << "the copy of six characters has nothing to say";
    }
    EXPECT_EQ(LiveAllocations(), before);
}

TEST(CKrBufferCStringA, IsPassedOnWithItsStorage)
{
    CStringA text("abcdef");
    {
        CKrBufferCStringA source(text, -1);
        source.SetReleaseAssigned(true);
        CKrBufferCStringA target(source);
        source.ReleaseString();
        EXPECT_EQ(text.GetLength(), 6) << "the target ends the attachment";
        target.SetLength(4);
    }
    EXPECT_TRUE(text == "abcd");
}

TEST(CKrBufferCStringW, GivesTheStringItsLengthInCharacters)
{
    std::size_t const before = LiveAllocations();
    {
        CString text(OLESTR("abcdef"));
        {
            CKrBufferCStringW buffer(text, 4);
            EXPECT_EQ(buffer.BufLength(), 8u);
            EXPECT_EQ(buffer.BufSize(), 10u);
            buffer.SetLength(2);
            buffer.AddString(OLESTR('z'));
        }
        EXPECT_EQ(text, OLESTR("abz"));
        CKrBufferCStringW second(text, -1);
        CKrBufferCStringW const copy(second);
        EXPECT_EQ(copy.Length(), 3u);
    }
    EXPECT_EQ(LiveAllocations(), before);
}
