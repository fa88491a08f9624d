// What costs an allocation, and what does not: texts share their storage until one of them is written.
#include <krplatform/text/cstring.h>

#include "tests/support/failing_allocator.h"

#include <gtest/gtest.h>

#include <functional>
#include <thread>
#include <vector>

namespace
{

/// The allocations that `call` makes.
template <class Call>
std::size_t CountAllocations(Call call)
{
    std::size_t const before = kr::test::AllAllocations();
    call();
    return kr::test::AllAllocations() - before;
}

struct Change
{
    char const * name;
    std::function<void(CString &)> apply;
    char const * result;
};

} // namespace

TEST(CStringSharing, EmptyTextsAllocateNothing)
{
    EXPECT_EQ(CountAllocations(
                  []
                  {
                      CString const text, copy(text);
                      CString assigned(OLESTR(""));
                      assigned = OLESTR("");
                      assigned = copy;
                      assigned += OLESTR("");
                      assigned.Trim().MakeUpper().MakeReverse();
                      EXPECT_EQ(CString(OLESTR("abc")).GetLength(), 3);
                      EXPECT_EQ((text + copy).Left(3).Mid(1), OLESTR(""));
                  }),
              1u); // "abc"
}

TEST(CStringSharing, CopiesAndWholePartsAllocateNothing)
{
    CString const text(OLESTR("storage of some length"));
    EXPECT_EQ(CountAllocations(
                  [&]
                  {
                      CString const copy(text), part(text.Left(100)), another(text.Mid(0)), right(text.Right(22));
                      CString assigned;
                      assigned = text;
                      CString appended;
                      appended += text;
                      EXPECT_EQ(copy.GetString(), text.GetString());
                      EXPECT_EQ(part.GetString(), text.GetString());
                      EXPECT_EQ(another.GetString(), text.GetString());
                      EXPECT_EQ(right.GetString(), text.GetString());
                      EXPECT_EQ(assigned.GetString(), text.GetString());
                      EXPECT_EQ(appended.GetString(), text.GetString());
                  }),
              0u);
}

TEST(CStringSharing, OperationsThatChangeNothingLeaveTheStorageShared)
{
    CString const text(OLESTR("WALL 12"));
    CString copy(text);
    EXPECT_EQ(CountAllocations(
                  [&]
                  {
                      copy.Trim();
                      copy.MakeUpper();
                      copy.Replace(OLESTR("x"), OLESTR("y"));
                      copy.Replace(OLESTR('x'), OLESTR('y'));
                      copy.Replace(OLESTR('W'), OLESTR('W'));
                      copy.Remove(OLESTR('x'));
                      copy.Insert(2, OLESTR(""));
                      copy.Delete(7, 3);
                      copy.Delete(0, 0);
                      copy.Truncate(7);
                      copy.FreeExtra();
                      copy += OLESTR("");
                  }),
              0u);
    EXPECT_EQ(copy.GetString(), text.GetString());
}

TEST(CStringSharing, AWriteTakesACopyOfItsOwnAndLeavesTheOther)
{
    // clang-format off
    Change const changes[] = {
        { "SetAt",          [](CString & text) { text.SetAt(0, OLESTR('x')); },                  "xb ab" },
        { "Append",         [](CString & text) { text += OLESTR('c'); },                         "ab abc" },
        { "GetBuffer",      [](CString & text) { text.GetBuffer()[1] = OLESTR('x'); },           "ax ab" },
        { "SetLength",      [](CString & text) { text.GetBufferSetLength(2); },                  "ab" },
        { "Release",        [](CString & text) { text.ReleaseBuffer(1); },                       "a" },
        { "Preallocate",    [](CString & text) { text.Preallocate(100); },                       "ab ab" },
        { "Truncate",       [](CString & text) { text.Truncate(3); },                            "ab " },
        { "Replace unit",   [](CString & text) { text.Replace(OLESTR('a'), OLESTR('x')); },      "xb xb" },
        { "Replace text",   [](CString & text) { text.Replace(OLESTR("ab"), OLESTR("x")); },     "x x" },
        { "Remove",         [](CString & text) { text.Remove(OLESTR('a')); },                    "b b" },
        { "Insert",         [](CString & text) { text.Insert(1, OLESTR("-")); },                 "a-b ab" },
        { "Delete",         [](CString & text) { text.Delete(0, 2); },                           " ab" },
        { "MakeUpper",      [](CString & text) { text.MakeUpper(); },                            "AB AB" },
        { "MakeReverse",    [](CString & text) { text.MakeReverse(); },                          "ba ba" },
        { "TrimLeft",       [](CString & text) { text.TrimLeft(OLESTR('a')); },                  "b ab" },
        { "TrimRight",      [](CString & text) { text.TrimRight(OLESTR('b')); },                 "ab a" },
        { "Format",         [](CString & text) { text.Format(OLESTR("%d"), 7); },                "7" },
    };
    // clang-format on
    for (Change const & change : changes)
    {
        SCOPED_TRACE(change.name);
        CString const original(OLESTR("ab ab"));
        CString copy(original);
        EXPECT_EQ(CountAllocations([&] { change.apply(copy); }), 1u);
        EXPECT_EQ(copy, CString(change.result));
        EXPECT_EQ(original, OLESTR("ab ab"));
    }
}

TEST(CStringSharing, AWriteToStorageOfItsOwnAllocatesNothing)
{
    CString text(OLESTR("ab ab"));
    EXPECT_EQ(CountAllocations(
                  [&]
                  {
                      text.SetAt(0, OLESTR('x'));
                      text.MakeUpper();
                      text.Delete(0);
                      text.TrimRight(OLESTR('B'));
                      text = OLESTR("ef");
                      text += OLESTR('g');
                  }),
              0u);
    EXPECT_EQ(text, OLESTR("efg"));
}

TEST(CStringSharing, AppendingManyUnitsAllocatesRarely)
{
    EXPECT_LT(CountAllocations(
                  []
                  {
                      CString text;
                      for (int index = 0; index < 100'000; ++index)
                          text += OLESTR('x');
                  }),
              30u);
}

TEST(CStringSharing, ATextThatLosesAllItsUnitsGivesUpItsStorage)
{
    // clang-format off
    Change const changes[] = {
        { "Delete",    [](CString & text) { text.Delete(0, 9); },                      "" },
        { "Remove",    [](CString & text) { text.Remove(OLESTR('a')); },               "" },
        { "Truncate",  [](CString & text) { text.Truncate(0); },                       "" },
        { "Trim",      [](CString & text) { text.Trim(OLESTR('a')); },                 "" },
        { "Replace",   [](CString & text) { text.Replace(OLESTR("a"), OLESTR("")); },  "" },
        { "Assign",    [](CString & text) { text = OLESTR(""); },                      "" },
        { "Empty",     [](CString & text) { text.Empty(); },                           "" },
    };
    // clang-format on
    for (Change const & change : changes)
    {
        SCOPED_TRACE(change.name);
        CString text(OLESTR("aaa"));
        EXPECT_EQ(CountAllocations([&] { change.apply(text); }), 0u);
        EXPECT_EQ(text, CString(change.result));
        EXPECT_EQ(text.GetAllocLength(), 0);
    }
}

TEST(CStringSharing, FormattingALongTextAllocatesRarely)
{
    CString format;
    for (int index = 0; index < 5'000; ++index)
        format += OLESTR("%%");
    CString text;
    EXPECT_LT(CountAllocations([&] { text.Format(format); }), 10u);
    EXPECT_EQ(text.GetLength(), 5'000);
}

TEST(CStringSharing, StorageIsGivenBackWithItsLastOwner)
{
    std::size_t const before = kr::test::LiveAllocations();
    {
        CString text(OLESTR("wall"));
        {
            CString const copy(text);
            text = OLESTR("window");
        }
        CString moved(std::move(text));
        moved.Empty();
        EXPECT_EQ(kr::test::LiveAllocations(), before);
    }
    EXPECT_EQ(kr::test::LiveAllocations(), before);
}

TEST(CStringSharing, CopiesOfOneTextAreUsedFromManyThreads)
{
    CString const text(OLESTR("shared by all"));
    std::size_t const before = kr::test::LiveAllocations();
    {
        std::vector<std::thread> threads;
        for (int index = 0; index < 4; ++index)
        {
            threads.emplace_back(
                [&text]
                {
                    for (int round = 0; round < 20'000; ++round)
                    {
                        CString copy(text);
                        if (round % 16 == 0)
                            copy += OLESTR('!');
                        CString const another(copy);
                    }
                });
        }
        for (std::thread & thread : threads)
            thread.join();
    }
    EXPECT_EQ(text, OLESTR("shared by all"));
    EXPECT_EQ(kr::test::LiveAllocations(), before);
}
