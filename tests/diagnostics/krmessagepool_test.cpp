#include <krcore/diagnostics/krmessagepool.h>

#include "tests/diagnostics/message_box.h"
#include "tests/support/failing_allocator.h"

#include <krplatform/system/resource.h>
#include <krplatform/text/bstr.h>

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <vector>

using namespace kr::test;

namespace
{

CString const s_default;
CString const s_a(OLESTR("A"));
CString const s_b(OLESTR("B"));

// The text that is found, or "-".
CString Find(CKrMessagePool const & pool, unsigned int id)
{
    CString text(OLESTR("untouched"));
    bool const found = pool.GetMessageW(id, text);
    EXPECT_TRUE(found || text == OLESTR("untouched")); // written on success only
    return found ? text : CString(OLESTR("-"));
}

CString FindIn(CKrMessagePool const & pool, unsigned int id, CString const & group)
{
    CString text(OLESTR("untouched"));
    bool const found = pool.GetMessageW(id, group, text);
    EXPECT_TRUE(found || text == OLESTR("untouched"));
    return found ? text : CString(OLESTR("-"));
}

/// An explicit instantiation may name what is private.
template <auto operation>
struct Private
{
    friend bool ClearGroup(CKrMessagePool & pool, CString const & name) { return (pool.*operation)(name); }
};
bool ClearGroup(CKrMessagePool & pool, CString const & name);
template struct Private<&CKrMessagePool::ClearGroup>;

} // namespace

TEST(CKrMessagePool, FindsNothingWithoutGroups)
{
    CKrMessagePool const pool;
    EXPECT_EQ(Find(pool, 1), OLESTR("-"));
    EXPECT_EQ(FindIn(pool, 1, s_default), OLESTR("-"));
}

TEST(CKrMessagePool, HasNoDefaultGroupUntilItIsAdded)
{
    CKrMessagePool pool;
    EXPECT_FALSE(pool.AddMessage(1, OLESTR("one"), s_default));
    EXPECT_TRUE(pool.AddMessageGroup(s_default));
    EXPECT_FALSE(pool.AddMessageGroup(OLESTR("#DEFAULT_GROUP#"))); // the same group
    EXPECT_TRUE(pool.AddMessage(1, OLESTR("one"), OLESTR("#DEFAULT_GROUP#")));
    EXPECT_EQ(FindIn(pool, 1, s_default), OLESTR("one"));
}

TEST(CKrMessagePool, RefusesAGroupNameThatIsTakenWhateverTheKind)
{
    CKrMessagePool pool;
    EXPECT_TRUE(pool.AddMessageGroup(s_a));
    EXPECT_FALSE(pool.AddMessageGroup(s_a));
    EXPECT_FALSE(pool.AddMessageGroup(s_a, nullptr, false, false));
    EXPECT_FALSE(pool.AddMessageGroup(s_a, CString(), CString(), false, false));
    EXPECT_TRUE(pool.AddMessageGroup(OLESTR("a"))); // case counts
}

TEST(CKrMessagePool, KeepsTheFirstTextOfAnId)
{
    CKrMessagePool pool;
    pool.AddMessageGroup(s_a);
    EXPECT_TRUE(pool.AddMessage(1, OLESTR("one"), s_a));
    EXPECT_FALSE(pool.AddMessage(1, OLESTR("other"), s_a));
    EXPECT_FALSE(pool.AddMessage(1, OLESTR("one"), s_b));
    EXPECT_EQ(FindIn(pool, 1, s_a), OLESTR("one"));
}

TEST(CKrMessagePool, RemovesMessagesAndGroups)
{
    CKrMessagePool pool;
    pool.AddMessageGroup(s_a);
    pool.AddMessage(1, OLESTR("one"), s_a);
    EXPECT_FALSE(pool.RemoveMessage(2, s_a));
    EXPECT_FALSE(pool.RemoveMessage(1, s_b));
    EXPECT_TRUE(pool.RemoveMessage(1, s_a));
    EXPECT_EQ(Find(pool, 1), OLESTR("-"));
    EXPECT_FALSE(pool.RemoveMessageGroup(s_b));
    EXPECT_TRUE(pool.RemoveMessageGroup(s_a));
    EXPECT_FALSE(pool.RemoveMessageGroup(s_a));
}

TEST(CKrMessagePool, ClearsAGroupThatStays)
{
    CKrMessagePool pool;
    pool.AddMessageGroup(s_default);
    pool.AddMessageGroup(s_a);
    pool.AddMessage(1, OLESTR("one"), s_default);
    pool.AddMessage(1, OLESTR("uno"), s_a);
    EXPECT_FALSE(ClearGroup(pool, s_b));
    EXPECT_TRUE(ClearGroup(pool, s_default));
    EXPECT_EQ(FindIn(pool, 1, s_default), OLESTR("-"));
    EXPECT_EQ(FindIn(pool, 1, s_a), OLESTR("uno"));
    EXPECT_TRUE(pool.AddMessage(1, OLESTR("two"), s_default)) << "the group is there, and the id is free again";
}

TEST(CKrMessagePool, FreesItsGroups)
{
    std::size_t const before = LiveAllocations();
    {
        CKrMessagePool pool;
        for (CString const & group : {s_default, s_a, s_b})
        {
            pool.AddMessageGroup(group);
            pool.AddMessage(1, OLESTR("one"), group);
            pool.SetIDRange(1, 2, group);
        }
        std::size_t const ofThree = LiveAllocations();
        pool.RemoveMessageGroup(s_a);
        EXPECT_LT(LiveAllocations(), ofThree);
        EXPECT_FALSE(pool.AddMessageGroup(s_b)); // a group that is refused is freed
    }
    EXPECT_EQ(LiveAllocations(), before);
}

TEST(CKrMessagePool, StaysAsItWasWhereMemoryRunsOut)
{
    CKrMessagePool pool;
    pool.AddMessageGroup(s_default);
    CString const text(OLESTR("one"));
    auto const checkUnchanged = [&]
    {
        EXPECT_EQ(FindIn(pool, 1, s_default), OLESTR("-"));
        EXPECT_EQ(FindIn(pool, 1, s_a), OLESTR("-"));
    };
    EXPECT_GT(FailEveryAllocation([&] { EXPECT_TRUE(pool.AddMessageGroup(s_a)); }, checkUnchanged), 0u);
    EXPECT_GT(FailEveryAllocation([&] { EXPECT_TRUE(pool.AddMessage(1, text, s_a)); }, checkUnchanged), 0u);
    EXPECT_EQ(FindIn(pool, 1, s_a), OLESTR("one"));
}

TEST(CKrMessagePool, KeepsTheMappingsToAGroupThatIsRemoved)
{
    CKrMessagePool pool;
    pool.AddMessageGroup(s_a);
    pool.MapID(5, 6, s_a);
    pool.RemoveMessageGroup(s_a);
    pool.AddMessageGroup(s_default);
    pool.AddMessage(5, OLESTR("five"), s_default);
    EXPECT_EQ(Find(pool, 5), OLESTR("-")); // still asked of A
    pool.AddMessageGroup(s_a);
    pool.AddMessage(6, OLESTR("six of A"), s_a);
    EXPECT_EQ(Find(pool, 5), OLESTR("six of A"));
}

TEST(CKrMessagePool, TakesTheEmptyNameForTheDefaultGroupEverywhere)
{
    CKrMessagePool pool;
    pool.AddMessageGroup(s_default);
    pool.AddMessageGroup(s_a);
    pool.AddMessage(6, OLESTR("six"), s_default);
    pool.AddMessage(7, OLESTR("seven of A"), s_a);
    pool.MapID(5, 6, s_default);
    EXPECT_EQ(Find(pool, 5), OLESTR("six"));
    EXPECT_TRUE(pool.SetIDRange(7, 7, s_default));
    EXPECT_EQ(Find(pool, 7), OLESTR("-")); // asked of the default group alone
    EXPECT_TRUE(pool.LoadAllMessages(s_default));
    EXPECT_TRUE(pool.RemoveMessage(6, s_default));
    EXPECT_EQ(Find(pool, 5), OLESTR("-"));
    EXPECT_TRUE(pool.RemoveMessageGroup(s_default));
    EXPECT_EQ(Find(pool, 7), OLESTR("seven of A")); // its range is gone with it
}

TEST(CKrMessagePool, AsksTheMappingFirstAndNothingElse)
{
    CKrMessagePool pool;
    pool.AddMessageGroup(s_default);
    pool.AddMessageGroup(s_b);
    pool.AddMessage(5, OLESTR("five"), s_default);
    pool.AddMessage(6, OLESTR("six of B"), s_b);
    EXPECT_TRUE(pool.MapID(5, 6, s_b));
    EXPECT_EQ(Find(pool, 5), OLESTR("six of B"));
    EXPECT_TRUE(pool.MapID(5, 7, s_b)); // replaced
    EXPECT_EQ(Find(pool, 5), OLESTR("-"));
    EXPECT_TRUE(pool.MapID(5, 6, OLESTR("missing"))); // the group need not exist
    EXPECT_EQ(Find(pool, 5), OLESTR("-"));
    EXPECT_EQ(FindIn(pool, 5, s_default), OLESTR("five")); // the look-up in a group knows no mappings
}

TEST(CKrMessagePool, FollowsAMappingOnce)
{
    CKrMessagePool pool;
    pool.AddMessageGroup(s_a);
    pool.AddMessage(2, OLESTR("two"), s_a);
    pool.AddMessage(3, OLESTR("three"), s_a);
    pool.MapID(1, 2, s_a);
    pool.MapID(2, 3, s_a);
    EXPECT_EQ(Find(pool, 1), OLESTR("two"));
}

TEST(CKrMessagePool, AsksTheGroupOfARangeAndNothingElse)
{
    CKrMessagePool pool;
    pool.AddMessageGroup(s_a);
    pool.AddMessageGroup(s_b);
    pool.AddMessage(1500, OLESTR("of B"), s_b);
    EXPECT_FALSE(pool.SetIDRange(1, 2, OLESTR("missing")));
    EXPECT_TRUE(pool.SetIDRange(1000, 1999, s_a));
    EXPECT_EQ(Find(pool, 1500), OLESTR("-"));
    pool.AddMessage(1000, OLESTR("first"), s_a);
    pool.AddMessage(1999, OLESTR("last"), s_a);
    EXPECT_EQ(Find(pool, 1000), OLESTR("first"));
    EXPECT_EQ(Find(pool, 1999), OLESTR("last"));
    pool.AddMessage(2000, OLESTR("behind"), s_b);
    EXPECT_EQ(Find(pool, 2000), OLESTR("behind"));
    EXPECT_TRUE(pool.RemoveMessageGroup(s_a)); // and its range
    EXPECT_EQ(Find(pool, 1500), OLESTR("of B"));
}

TEST(CKrMessagePool, TakesTheFirstOfOverlappingRangesInTheOrderOfNames)
{
    CKrMessagePool pool;
    for (CString const & group : {s_b, s_a})
    {
        pool.AddMessageGroup(group);
        pool.AddMessage(5, group, group);
        pool.SetIDRange(1, 9, group);
    }
    EXPECT_EQ(Find(pool, 5), s_a);
    EXPECT_TRUE(pool.SetIDRange(9, 1, s_a)); // replaced by an empty one
    EXPECT_EQ(Find(pool, 5), s_b);
}

TEST(CKrMessagePool, TakesRangesUpToTheLastIdThatThereIs)
{
    constexpr unsigned int last = 0xFFFFFFFF;
    CKrMessagePool pool;
    for (CString const & group : {s_a, s_b})
    {
        pool.AddMessageGroup(group);
        for (unsigned int const id : {0u, 1u, last - 1, last})
            pool.AddMessage(id, group, group);
    }
    pool.SetIDRange(last, last, s_a);
    pool.SetIDRange(0, last, s_b);
    EXPECT_EQ(Find(pool, 0), s_b);
    EXPECT_EQ(Find(pool, last - 1), s_b);
    EXPECT_EQ(Find(pool, last), s_a);
    pool.SetIDRange(0, 0, s_a);
    EXPECT_EQ(Find(pool, 0), s_a);
    EXPECT_EQ(Find(pool, 1), s_b);
    EXPECT_EQ(Find(pool, last), s_b);
}

// Many ranges over few ids lie beside, over and inside each other, and change between the lookups.
TEST(CKrMessagePool, AgreesWithASearchOfOneRangeAfterTheOther)
{
    struct Range
    {
        CString group;
        unsigned int first;
        unsigned int last;
    };
    constexpr unsigned int ids = 40;
    std::mt19937 random(7);
    CKrMessagePool pool;
    std::vector<Range> ranges; // in the order of names
    for (int number = 0; number < 12; ++number)
    {
        CString group;
        group.Format(OLESTR("group%02d"), number);
        pool.AddMessageGroup(group);
        for (unsigned int id = 0; id < ids; ++id)
            pool.AddMessage(id, group, group);
        ranges.push_back({group, 1, 0});
    }
    for (int round = 0; round < 300; ++round)
    {
        Range & changed = ranges[random() % ranges.size()];
        changed.first = static_cast<unsigned int>(random() % ids);
        changed.last = changed.first + static_cast<unsigned int>(random() % 12) - 2; // some are empty
        if (changed.first < 2)
            changed.last = changed.first;
        ASSERT_TRUE(pool.SetIDRange(changed.first, changed.last, changed.group));
        for (unsigned int id = 0; id < ids; ++id)
        {
            auto const around = std::ranges::find_if(ranges, [id](Range const & range)
                                                     { return range.first <= id && id <= range.last; });
            ASSERT_EQ(Find(pool, id), around == ranges.end() ? ranges.front().group : around->group)
                << round << ", " << id;
        }
    }
}

TEST(CKrMessagePool, AsksTheDefaultGroupThenAllInTheOrderOfNames)
{
    CKrMessagePool pool;
    for (CString const & group : {s_b, s_a, s_default})
        pool.AddMessageGroup(group);
    pool.AddMessage(1, OLESTR("of B"), s_b);
    EXPECT_EQ(Find(pool, 1), OLESTR("of B"));
    pool.AddMessage(1, OLESTR("of A"), s_a);
    EXPECT_EQ(Find(pool, 1), OLESTR("of A"));
    pool.AddMessage(1, OLESTR("default"), s_default);
    EXPECT_EQ(Find(pool, 1), OLESTR("default"));
}

TEST(CKrMessagePool, FindsNothingForTheMarkerInAGroupOfItsOwnTexts)
{
    CKrMessagePool pool;
    pool.AddMessageGroup(s_a);
    pool.AddMessage(1, OLESTR("#NO_MSG_ENTRY#"), s_a);
    EXPECT_EQ(FindIn(pool, 1, s_a), OLESTR("-"));
}

TEST(CKrMessagePool, DrawsTextsFromTheResourcesOfAModule)
{
    CKrMessagePool pool;
    EXPECT_TRUE(pool.AddMessageGroup(s_a, nullptr, false, false));
    EXPECT_EQ(FindIn(pool, 101, s_a), OLESTR("plain"));
    EXPECT_EQ(FindIn(pool, 999, s_a), OLESTR("-"));
    EXPECT_TRUE(pool.AddMessageGroup(s_b, GetModuleHandleW(nullptr), false, true));
    EXPECT_EQ(FindIn(pool, 101, s_b), OLESTR("plain"));
}

TEST(CKrMessagePool, ServesOnlyListedIdsIfToldSo)
{
    CKrMessagePool pool;
    pool.AddMessageGroup(s_a, nullptr, true, false);
    EXPECT_EQ(FindIn(pool, 101, s_a), OLESTR("-"));
    EXPECT_TRUE(pool.AddMessage(101, OLESTR("ignored"), s_a)); // the marker is stored
    EXPECT_EQ(FindIn(pool, 101, s_a), OLESTR("plain"));
    pool.AddMessage(999, CString(), s_a);
    EXPECT_EQ(FindIn(pool, 999, s_a), OLESTR("-"));
}

TEST(CKrMessagePool, KeepsWhatItFetchedIfToldSo)
{
    HINSTANCE const before = AfxGetResourceHandle();
    CKrMessagePool pool;
    pool.AddMessageGroup(s_a, nullptr, false, true);
    pool.AddMessageGroup(s_b, nullptr, false, false);
    EXPECT_EQ(FindIn(pool, 101, s_a), OLESTR("plain"));
    EXPECT_EQ(FindIn(pool, 101, s_b), OLESTR("plain"));
    AfxSetResourceHandle(AfxModuleFromAddress(reinterpret_cast<void const *>(&SysFreeString))); // without texts
    EXPECT_EQ(FindIn(pool, 101, s_a), OLESTR("plain"));
    EXPECT_EQ(FindIn(pool, 101, s_b), OLESTR("-")); // goes to the resource again
    AfxSetResourceHandle(before);
}

TEST(CKrMessagePool, LoadsAllListedTextsOfAKeepingGroup)
{
    HINSTANCE const before = AfxGetResourceHandle();
    CKrMessagePool pool;
    pool.AddMessageGroup(s_a, nullptr, true, true);
    pool.AddMessage(101, CString(), s_a);
    pool.AddMessage(999, CString(), s_a);
    EXPECT_TRUE(pool.LoadAllMessages(s_a));
    EXPECT_FALSE(pool.LoadAllMessages(s_b));
    pool.AddMessageGroup(s_b);
    EXPECT_TRUE(pool.LoadAllMessages(s_b)); // nothing to do
    AfxSetResourceHandle(AfxModuleFromAddress(reinterpret_cast<void const *>(&SysFreeString)));
    EXPECT_EQ(FindIn(pool, 101, s_a), OLESTR("plain"));
    AfxSetResourceHandle(before);
}

TEST(CKrMessagePool, LoadsNothingWhereItWouldNotBeKeptOrMoreIsServed)
{
    MessageBoxRecorder boxes(IDYES);
    HINSTANCE const before = AfxGetResourceHandle();
    CKrMessagePool pool;
    CString const keepsAll(OLESTR("keeps all")), keepsNone(OLESTR("keeps none")), database(OLESTR("database"));
    pool.AddMessageGroup(keepsAll, nullptr, false, true);
    pool.AddMessageGroup(keepsNone, nullptr, true, false);
    pool.AddMessageGroup(database, CString(), CString(), true, true);
    for (CString const & group : {keepsAll, keepsNone, database})
    {
        pool.AddMessage(101, CString(), group);
        EXPECT_TRUE(pool.LoadAllMessages(group));
    }
    EXPECT_EQ(boxes.Shown(), 0);
    AfxSetResourceHandle(AfxModuleFromAddress(reinterpret_cast<void const *>(&SysFreeString))); // without texts
    EXPECT_EQ(FindIn(pool, 101, keepsAll), OLESTR("-"));
    EXPECT_EQ(FindIn(pool, 101, keepsNone), OLESTR("-"));
    AfxSetResourceHandle(before);
}

TEST(CKrMessagePool, ShowsABoxForEveryLookUpThatReachesADatabase)
{
    MessageBoxRecorder boxes(IDYES);
    CKrMessagePool pool;
    EXPECT_TRUE(pool.AddMessageGroup(s_default, OLESTR("x"), OLESTR("y"), false, false));
    EXPECT_EQ(FindIn(pool, 1, s_default), OLESTR("-"));
    ASSERT_EQ(boxes.Shown(), 1);
    EXPECT_EQ(boxes.Text(), OLESTR("Database-Messages not impl."));
    EXPECT_EQ(boxes.Style(), 0u);
    EXPECT_EQ(Find(pool, 1), OLESTR("-"));
    EXPECT_EQ(boxes.Shown(), 3); // the default group is asked twice
    pool.AddMessageGroup(s_a, CString(), CString(), true, false);
    EXPECT_EQ(FindIn(pool, 1, s_a), OLESTR("-")); // not listed: not reached
    EXPECT_EQ(boxes.Shown(), 3);
    pool.AddMessage(1, OLESTR("ignored"), s_a);
    EXPECT_EQ(FindIn(pool, 1, s_a), OLESTR("-"));
    EXPECT_EQ(boxes.Shown(), 4);
}

TEST(CKrMessagePool, SharesItsGroupsWithACopy)
{
    CKrMessagePool pool;
    pool.AddMessageGroup(s_a);
    static CKrMessagePool * const copy = new CKrMessagePool(pool); // never destroyed: it would free the groups again
    copy->AddMessage(1, OLESTR("one"), s_a);
    EXPECT_EQ(Find(pool, 1), OLESTR("one"));
}

TEST(CKrMessagePool, IsAssignedAsAWholeOrNotAtAll)
{
    CKrMessagePool source;
    source.AddMessageGroup(s_a);
    source.AddMessage(1, OLESTR("of the source"), s_a);
    source.SetIDRange(1, 1, s_a);
    source.MapID(2, 1, s_a);
    static CKrMessagePool * const target = new CKrMessagePool; // never destroyed: it shares the groups
    target->AddMessageGroup(s_b);
    target->AddMessage(1, OLESTR("own"), s_b);
    static CKrMessagePool * const keeper = new CKrMessagePool(*target); // of the group that is let go
    std::size_t const failures = FailEveryAllocation([&] { *target = source; },
                                                     [&]
                                                     {
                                                         EXPECT_EQ(Find(*target, 1), OLESTR("own"));
                                                         EXPECT_EQ(Find(*target, 2), OLESTR("-"));
                                                     });
    EXPECT_EQ(failures, 3u);
    EXPECT_EQ(Find(*target, 1), OLESTR("of the source"));
    EXPECT_EQ(Find(*target, 2), OLESTR("of the source"));
    EXPECT_EQ(FindIn(*target, 1, s_b), OLESTR("-"));
    EXPECT_EQ(Find(*keeper, 1), OLESTR("own"));
    CKrMessagePool const & self = *target;
    *target = self;
    EXPECT_EQ(Find(*target, 2), OLESTR("of the source"));
}

TEST(CKrMessagePool, ReportsNothing)
{
    CKrMessagePool const pool;
    EXPECT_EQ(pool.ErrorReport() + pool.WarningReport() + pool.InformationReport(), 0);
}

TEST(CKrMessagePool, LoadsAStringOfAModule)
{
    CString text(OLESTR("untouched"));
    EXPECT_FALSE(CKrMessagePool::LoadResourceString(999, nullptr, text));
    EXPECT_FALSE(CKrMessagePool::LoadResourceString(999, GetModuleHandleW(nullptr), text));
    EXPECT_EQ(text, OLESTR("untouched"));
    EXPECT_TRUE(CKrMessagePool::LoadResourceString(101, nullptr, text));
    EXPECT_EQ(text, OLESTR("plain"));
    EXPECT_TRUE(CKrMessagePool::LoadResourceString(102, GetModuleHandleW(nullptr), text));
    EXPECT_EQ(text.GetLength(), 1023); // cut
}
