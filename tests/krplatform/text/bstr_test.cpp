#include <krplatform/text/bstr.h>

#include "tests/support/failing_allocator.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>

TEST(Bstr, CopiesTextWithItsLength)
{
    BSTR const text = SysAllocString(OLESTR("wall"));
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(kr::test::Narrow(text), "wall");
    EXPECT_EQ(SysStringLen(text), 4u);
    EXPECT_EQ(SysStringByteLen(text), 8u);
    SysFreeString(text);
}

TEST(Bstr, NoTextIsNullAndHasNoLength)
{
    EXPECT_EQ(SysAllocString(nullptr), nullptr);
    EXPECT_EQ(SysStringLen(nullptr), 0u);
    EXPECT_EQ(SysStringByteLen(nullptr), 0u);
    SysFreeString(nullptr);
}

TEST(Bstr, EmptyTextIsNotNull)
{
    BSTR const text = SysAllocString(OLESTR(""));
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(SysStringLen(text), 0u);
    EXPECT_EQ(text[0], 0);
    SysFreeString(text);
}

TEST(Bstr, KeepsZerosInsideAStatedLength)
{
    BSTR const text = SysAllocStringLen(OLESTR("a\0bcd"), 3);
    EXPECT_EQ(SysStringLen(text), 3u);
    EXPECT_EQ(text[2], OLESTR('b'));
    EXPECT_EQ(text[3], 0) << "terminated, though the source goes on";
    SysFreeString(text);
}

TEST(Bstr, MakesRoomForTextThatIsWrittenLater)
{
    BSTR const text = SysAllocStringLen(nullptr, 5);
    EXPECT_EQ(SysStringLen(text), 5u);
    std::fill_n(text, 5, OLESTR('x'));
    EXPECT_EQ(kr::test::Narrow(text), "xxxxx");
    SysFreeString(text);
}

TEST(Bstr, HoldsAnOddNumberOfBytesWithAWholeZeroUnitBehind)
{
    BSTR const text = SysAllocStringByteLen("abc", 3);
    EXPECT_EQ(SysStringByteLen(text), 3u);
    EXPECT_EQ(SysStringLen(text), 1u);
    char bytes[6];
    std::memcpy(bytes, text, sizeof bytes);
    EXPECT_EQ(std::string(bytes, 6), std::string("abc\0\0\0", 6));
    SysFreeString(text);

    BSTR const room = SysAllocStringByteLen(nullptr, 7);
    EXPECT_EQ(SysStringByteLen(room), 7u);
    SysFreeString(room);
}

TEST(Bstr, EndsInZerosAlsoWhereAnotherTextWas)
{
    BSTR const old = SysAllocStringLen(nullptr, 6);
    std::fill_n(old, 6, OLESTR('x'));
    SysFreeString(old);
    BSTR const text = SysAllocStringByteLen("abcdefghi", 9);
    char bytes[12];
    std::memcpy(bytes, text, sizeof bytes);
    EXPECT_EQ(std::string(bytes, 12), std::string("abcdefghi\0\0\0", 12));
    SysFreeString(text);
}

TEST(Bstr, IsReplacedByTextThatMayLieInside)
{
    BSTR text = SysAllocString(OLESTR("wallpaper"));
    EXPECT_TRUE(SysReAllocString(&text, text + 4));
    EXPECT_EQ(kr::test::Narrow(text), "paper");
    EXPECT_TRUE(SysReAllocStringLen(&text, text + 1, 2));
    EXPECT_EQ(kr::test::Narrow(text), "ap");
    EXPECT_EQ(SysStringLen(text), 2u);
    EXPECT_TRUE(SysReAllocString(&text, nullptr));
    EXPECT_EQ(SysStringLen(text), 0u);
    SysFreeString(text);
    EXPECT_FALSE(SysReAllocString(nullptr, OLESTR("wall")));
}

TEST(Bstr, IsFreedWhole)
{
    std::size_t const before = kr::test::LiveAllocations();
    BSTR text = SysAllocString(OLESTR("wall"));
    SysReAllocString(&text, OLESTR("window"));
    EXPECT_EQ(kr::test::LiveAllocations(), before + 1);
    SysFreeString(text);
    EXPECT_EQ(kr::test::LiveAllocations(), before);
}

TEST(Bstr, GivesNullWhenMemoryRunsOutAndKeepsTheOldText)
{
    BSTR text = SysAllocString(OLESTR("wall"));
    {
        kr::test::FailNthAllocation const fail(1);
        EXPECT_EQ(SysAllocString(OLESTR("window")), nullptr);
    }
    {
        kr::test::FailNthAllocation const fail(1);
        EXPECT_FALSE(SysReAllocString(&text, OLESTR("window")));
    }
    EXPECT_EQ(kr::test::Narrow(text), "wall");
    SysFreeString(text);
    EXPECT_EQ(SysAllocStringLen(nullptr, std::numeric_limits<UINT>::max()), nullptr) << "more than its length can tell";
    EXPECT_EQ(SysAllocStringByteLen(nullptr, std::numeric_limits<UINT>::max()), nullptr);
}
