#include <krplatform/text/cstring.h>
#include <krplatform/text/textblock.h>

#include "tests/krplatform/text/failures.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{

void Write(WCHAR * buffer, WCHAR const * text)
{
    while ((*buffer++ = *text++) != 0) {}
}

} // namespace

TEST(CStringBuffer, IsWrittenAndThenMeasured)
{
    CString text;
    Write(text.GetBuffer(20), OLESTR("wall"));
    text.ReleaseBuffer();
    EXPECT_EQ(text.GetLength(), 4);
    EXPECT_EQ(text, OLESTR("wall"));
}

TEST(CStringBuffer, TakesTheLengthThatIsStated)
{
    CString text;
    Write(text.GetBuffer(20), OLESTR("wallpaper"));
    text.ReleaseBuffer(4);
    EXPECT_EQ(text, OLESTR("wall"));
    EXPECT_EQ(text.GetString()[4], 0);
    text.ReleaseBuffer(0);
    EXPECT_TRUE(text.IsEmpty());
}

TEST(CStringBuffer, KeepsThePresentText)
{
    CString text(OLESTR("wall"));
    Write(text.GetBuffer(100) + 4, OLESTR("paper"));
    text.ReleaseBuffer();
    EXPECT_EQ(text, OLESTR("wallpaper"));
}

TEST(CStringBuffer, HoldsAtLeastTheLengthAskedFor)
{
    CString text;
    for (int const length : {0, 1, 5, 6, 255, 1000})
    {
        SCOPED_TRACE(length);
        std::fill_n(text.GetBuffer(length), length, OLESTR('x'));
        EXPECT_GE(text.GetAllocLength(), length);
        text.ReleaseBuffer(length);
        EXPECT_EQ(text, CString(OLESTR('x'), length));
    }
}

TEST(CStringBuffer, IsWritableForEmptyTextsToo)
{
    CString text;
    CString const other;
    *text.GetBuffer() = 0;
    text.ReleaseBuffer();
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_NE(text.GetString(), other.GetString()) << "the storage that all empty texts share is never handed out";
}

TEST(CStringBuffer, SetsTheLengthAtOnce)
{
    CString text(OLESTR("wall"));
    WCHAR * const buffer = text.GetBufferSetLength(6);
    EXPECT_EQ(text.GetLength(), 6);
    EXPECT_EQ(buffer[4], 0);
    EXPECT_EQ(buffer[5], 0);
    buffer[4] = OLESTR('e');
    buffer[5] = OLESTR('d');
    EXPECT_EQ(text, OLESTR("walled"));
    text.GetBufferSetLength(2);
    EXPECT_EQ(text, OLESTR("wa"));
    text.GetBufferSetLength(0);
    EXPECT_TRUE(text.IsEmpty());
}

TEST(CStringBuffer, MeasuresUpToItsRoomWhereThereIsNoZero)
{
    CString text;
    WCHAR * const buffer = text.GetBuffer(3);
    int const room = text.GetAllocLength();
    std::fill_n(buffer, room + 1, OLESTR('x'));
    text.ReleaseBuffer();
    EXPECT_EQ(text, CString(OLESTR('x'), room));
}

TEST(CStringBuffer, RefusesLengthsThatCannotBe)
{
    CString text(OLESTR("wall"));
    EXPECT_EQ(ThrownResult([&] { text.GetBuffer(-1); }), E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { text.GetBufferSetLength(-1); }), E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { text.Preallocate(-1); }), E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { text.ReleaseBuffer(-2); }), E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { text.ReleaseBuffer(text.GetAllocLength() + 1); }), E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { text.ReleaseBufferSetLength(-1); }), E_INVALIDARG);
    EXPECT_EQ(text, OLESTR("wall"));

    CString const copy(text);
    EXPECT_EQ(ThrownResult([&] { text.ReleaseBuffer(5); }), E_INVALIDARG) << "shared storage has no room to state";
    CString empty;
    EXPECT_EQ(ThrownResult([&] { empty.ReleaseBuffer(1); }), E_INVALIDARG);
    empty.ReleaseBuffer();
    EXPECT_TRUE(empty.IsEmpty());
}

TEST(CStringBuffer, StatesALengthWithoutABufferInHand)
{
    CString text(OLESTR("wall\0paper"), 10);
    CString const copy(text);
    text.ReleaseBuffer();
    EXPECT_EQ(text, OLESTR("wall"));
    EXPECT_EQ(copy.GetLength(), 10);
    text.ReleaseBufferSetLength(2);
    EXPECT_EQ(text, OLESTR("wa"));
}

TEST(CStringBuffer, PreallocatedRoomIsUsedAndGivenBack)
{
    CString text(OLESTR("wall"));
    text.Preallocate(500);
    WCHAR const * const storage = text;
    for (int index = 0; index < 496; ++index)
        text += OLESTR('x');
    EXPECT_EQ(text.GetString(), storage);
    text.Truncate(4);
    text.FreeExtra();
    EXPECT_EQ(text, OLESTR("wall"));
    EXPECT_LT(text.GetAllocLength(), 20);
    text.GetBufferSetLength(0);
    text.FreeExtra();
    EXPECT_EQ(text.GetAllocLength(), 0);
}

TEST(CStringBuffer, GrowsInStepsThatDoubleUpToTheLongestText)
{
    using kr::detail::GrownCapacity;
    EXPECT_EQ(GrownCapacity(0), 0u);
    EXPECT_EQ(GrownCapacity(1), 18u);
    EXPECT_EQ(GrownCapacity(1000), 2016u);
    EXPECT_LT(GrownCapacity(1'000'000'000), kr::detail::largestTextCapacity);
    for (std::size_t const length : {1'100'000'000u, 2'000'000'000u, 2'147'483'631u})
        EXPECT_EQ(GrownCapacity(length), kr::detail::largestTextCapacity) << "a long text still takes one unit more";
}
