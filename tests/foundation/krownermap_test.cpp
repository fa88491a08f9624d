#include <krcore/foundation/krownermap.h>

#include "tests/foundation/counted.h"
#include "tests/support/failing_allocator.h"

#include <krplatform/text/cstring.h>

#include <gtest/gtest.h>

#include <memory>
#include <new>

using kr::test::Counted;

namespace
{

using Map = kr::ownermap<CString, Counted>;

CString const s_a(OLESTR("a"));
CString const s_b(OLESTR("b"));
CString const s_c(OLESTR("c"));

class Asker
{
public:
    Asker(kr::ownermap<int, Asker> const & map, unsigned int & seen) : m_map(map), m_seen(seen) {}
    virtual ~Asker() { m_seen = m_map.GetCount(); }

private:
    kr::ownermap<int, Asker> const & m_map;
    unsigned int & m_seen;
};

} // namespace

TEST(OwnerMap, StartsEmpty)
{
    Map const map;
    EXPECT_EQ(map.GetCount(), 0u);
    EXPECT_EQ(map.GetObjectW(s_a), nullptr);
    EXPECT_EQ(map.GetObjectAt(0), nullptr);
    EXPECT_TRUE(map.GetMap().empty());
}

TEST(OwnerMap, LendsWhatWasAdded)
{
    Map map;
    Counted * const object = new Counted(1);
    map.AddObject(s_a, object);
    EXPECT_EQ(map.GetObjectW(s_a), object);
    EXPECT_EQ(map.GetObjectW(s_b), nullptr);
    EXPECT_EQ(map.GetObjectW(OLESTR("A")), nullptr) << "case counts";
    EXPECT_EQ(map.GetCount(), 1u);
    EXPECT_EQ(Counted::Living(), 1);
}

TEST(OwnerMap, DeletesItsObjectsWhenItEnds)
{
    {
        Map map;
        map.AddObject(s_a, new Counted);
        map.AddObject(s_b, nullptr);
        EXPECT_EQ(Counted::Living(), 1);
    }
    EXPECT_EQ(Counted::Living(), 0);
}

TEST(OwnerMap, AddingToAHeldKeyDeletesTheObjectBefore)
{
    Map map;
    map.AddObject(s_a, new Counted(1));
    map.AddObject(s_a, new Counted(2));
    EXPECT_EQ(Counted::Living(), 1);
    EXPECT_EQ(map.GetCount(), 1u);
    EXPECT_EQ(map.GetObjectW(s_a)->value, 2);
}

TEST(OwnerMap, AddingTheHeldPointerDeletesItsObject)
{
    Map map;
    Counted * const object = new Counted;
    map.AddObject(s_a, object);
    map.AddObject(s_a, object);
    EXPECT_EQ(Counted::Living(), 0);
    EXPECT_EQ(map.GetObjectW(s_a), object) << "the dead pointer is kept";
    map.GetMap().clear();
}

TEST(OwnerMap, GivesObjectsInTheOrderOfTheirKeys)
{
    Map map;
    map.AddObject(s_c, new Counted(3));
    map.AddObject(s_a, new Counted(1));
    map.AddObject(s_b, nullptr);
    map.AddObject(OLESTR("B"), new Counted(0));
    ASSERT_EQ(map.GetCount(), 4u) << "null entries count";
    EXPECT_EQ(map.GetObjectAt(0)->value, 0) << "upper case comes first";
    EXPECT_EQ(map.GetObjectAt(1)->value, 1);
    EXPECT_EQ(map.GetObjectAt(2), nullptr);
    EXPECT_EQ(map.GetObjectAt(3)->value, 3);
    EXPECT_EQ(map.GetObjectAt(4), nullptr);
    EXPECT_EQ(map.GetObjectAt(~0u), nullptr);
}

TEST(OwnerMap, WorksWithNumbersAsKeys)
{
    kr::ownermap<int, Counted> map;
    map.AddObject(10, new Counted(10));
    map.AddObject(-2, new Counted(-2));
    EXPECT_EQ(map.GetObjectAt(0)->value, -2);
    EXPECT_EQ(map.GetObjectW(10)->value, 10);
}

TEST(OwnerMap, RemovingHandsTheObjectOver)
{
    Map map;
    map.AddObject(s_a, new Counted(1));
    map.AddObject(s_b, nullptr);
    std::unique_ptr<Counted> const object(map.RemoveObject(s_a));
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(object->value, 1);
    EXPECT_EQ(Counted::Living(), 1);
    EXPECT_EQ(map.GetCount(), 1u);
    EXPECT_EQ(map.RemoveObject(s_b), nullptr) << "an entry with null";
    EXPECT_EQ(map.RemoveObject(s_c), nullptr) << "a missing key";
    EXPECT_EQ(map.GetCount(), 0u);
}

TEST(OwnerMap, RemovesByAKeyThatLiesInTheMapItself)
{
    Map map;
    map.AddObject(s_a, new Counted);
    map.DeleteObject(map.GetMap().begin()->first);
    EXPECT_EQ(map.GetCount(), 0u);
    EXPECT_EQ(Counted::Living(), 0);
}

TEST(OwnerMap, DeletingErasesTheEntry)
{
    Map map;
    map.AddObject(s_a, new Counted);
    map.AddObject(s_b, nullptr);
    map.DeleteObject(s_c);
    EXPECT_EQ(map.GetCount(), 2u);
    map.DeleteObject(s_a);
    map.DeleteObject(s_b);
    EXPECT_EQ(map.GetCount(), 0u);
    EXPECT_EQ(Counted::Living(), 0);
}

TEST(OwnerMap, ClearingErasesAllEntries)
{
    Map map;
    map.AddObject(s_a, new Counted);
    map.AddObject(s_b, nullptr);
    map.Clear();
    EXPECT_EQ(map.GetCount(), 0u);
    EXPECT_EQ(Counted::Living(), 0);
}

TEST(OwnerMap, AnObjectIsOutOfTheMapBeforeItIsDeleted)
{
    unsigned int seen = 99;
    kr::ownermap<int, Asker> map;
    map.AddObject(1, new Asker(map, seen));
    map.Clear();
    EXPECT_EQ(seen, 0u);
}

TEST(OwnerMap, SettingNullKeepsTheKey)
{
    Map map;
    map.AddObject(s_a, new Counted);
    map.SetNULL(s_a);
    EXPECT_EQ(Counted::Living(), 0);
    EXPECT_EQ(map.GetCount(), 1u);
    EXPECT_EQ(map.GetObjectW(s_a), nullptr);
    map.SetNULL(s_a);
    EXPECT_EQ(map.GetCount(), 1u);
    map.SetNULL(s_b);
    EXPECT_EQ(map.GetCount(), 2u) << "a missing key is inserted";
    EXPECT_EQ(map.GetObjectW(s_b), nullptr);
}

TEST(OwnerMap, SettingAllNullDeletesTheObjectsAndKeepsTheKeys)
{
    Map map;
    map.AddObject(s_a, new Counted);
    map.AddObject(s_b, new Counted);
    map.AddObject(s_c, nullptr);
    map.SetAllNULL();
    EXPECT_EQ(Counted::Living(), 0);
    EXPECT_EQ(map.GetCount(), 3u);
    EXPECT_EQ(map.GetObjectW(s_a), nullptr);
    EXPECT_EQ(map.GetObjectW(s_b), nullptr);
}

TEST(OwnerMap, ACopyHoldsTheSameObjectsUntilItGivesThemUp)
{
    Map map;
    map.AddObject(s_a, new Counted);
    {
        Map copy(map);
        EXPECT_EQ(copy.GetObjectW(s_a), map.GetObjectW(s_a));
        EXPECT_EQ(Counted::Living(), 1);
        copy.GetMap().clear();
    }
    EXPECT_EQ(Counted::Living(), 1);
}

TEST(OwnerMap, BothMapsOfACopyWouldDeleteTheObjects)
{
    Map map;
    map.AddObject(s_a, new Counted);
    Map copy(map);
    copy.Clear();
    EXPECT_EQ(Counted::Living(), 0) << "the copy owns what it holds";
    map.GetMap().clear();
}

TEST(OwnerMap, AnAssignmentDropsItsOwnEntriesWithoutDeletingTheirObjects)
{
    Map source;
    source.AddObject(s_a, new Counted(1));
    Map target;
    std::unique_ptr<Counted> const dropped(new Counted(2));
    target.AddObject(s_b, dropped.get());
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(Counted::Living(), 2);
    EXPECT_EQ(target.GetCount(), 1u);
    EXPECT_EQ(target.GetObjectW(s_a), source.GetObjectW(s_a));
    target = Map();
    EXPECT_EQ(target.GetCount(), 0u);
    EXPECT_EQ(Counted::Living(), 2);
}

TEST(OwnerMap, AssigningItToItselfHasNoEffect)
{
    Map map;
    map.AddObject(s_a, new Counted(1));
    Map & same = map;
    map = same;
    EXPECT_EQ(map.GetCount(), 1u);
    EXPECT_EQ(map.GetObjectW(s_a)->value, 1);
    EXPECT_EQ(Counted::Living(), 1);
}

TEST(OwnerMap, ChangesInTheMapItselfBypassTheOwnership)
{
    Map map;
    map.AddObject(s_a, new Counted(1));
    std::unique_ptr<Counted> const former(map.GetMap()[s_a]);
    map.GetMap()[s_a] = new Counted(2);
    EXPECT_EQ(Counted::Living(), 2);
    EXPECT_EQ(map.GetObjectW(s_a)->value, 2);
}

TEST(OwnerMap, DeletesTheAddedObjectWhenMemoryRunsOut)
{
    Map map;
    map.AddObject(s_a, new Counted(1));
    Counted * const added = new Counted(2);
    {
        kr::test::FailNthAllocation const fail(1);
        EXPECT_THROW(map.AddObject(s_b, added), std::bad_alloc);
    }
    EXPECT_EQ(Counted::Living(), 1);
    EXPECT_EQ(map.GetCount(), 1u);
    EXPECT_EQ(map.GetObjectW(s_a)->value, 1);
}

TEST(OwnerMap, AddingLeavesNothingBehindWhereverMemoryRunsOut)
{
    std::size_t const failures = kr::test::FailEveryAllocation(
        []
        {
            Map map;
            map.AddObject(s_a, new Counted);
            map.AddObject(s_b, new Counted);
        },
        [] { EXPECT_THROW(throw, std::bad_alloc); });
    EXPECT_EQ(failures, 4u) << "two objects, two entries";
    EXPECT_EQ(Counted::Living(), 0);
}

TEST(OwnerMap, KeepsItsEntriesWhenAnAssignmentFindsNoMemory)
{
    Map source;
    source.AddObject(s_a, new Counted(1));
    source.AddObject(s_b, new Counted(2));
    Map target;
    target.AddObject(s_c, new Counted(3));
    for (std::size_t n = 1; n <= 2; ++n)
    {
        SCOPED_TRACE(n);
        kr::test::FailNthAllocation const fail(n);
        EXPECT_THROW(target = source, std::bad_alloc);
    }
    EXPECT_EQ(target.GetCount(), 1u);
    EXPECT_EQ(target.GetObjectW(s_c)->value, 3);
    EXPECT_EQ(Counted::Living(), 3);
}
