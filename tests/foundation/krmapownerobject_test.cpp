#include <krcore/foundation/krmapownerobject.h>

#include <krcore/foundation/krclass.h>
#include <krcore/foundation/krvalueobjects.h>

#include "tests/foundation/counted.h"
#include "tests/support/failing_allocator.h"

#include <gtest/gtest.h>

#include <new>
#include <type_traits>

using kr::test::Counted;
using kr::test::CountedWithClone;

namespace
{

class Owner : public CKrMapOwnerObject
{
public:
    Owner() = default;
};

CString const s_a(OLESTR("a"));
CString const s_b(OLESTR("b"));
CString const s_c(OLESTR("c"));

int ValueOf(CKrObject const * child)
{
    Counted const * const counted = dynamic_cast<Counted const *>(child);
    return counted ? counted->value : -1;
}

} // namespace

TEST(CKrMapOwnerObject, IsMadeAndCopiedThroughDerivedClassesOnly)
{
    EXPECT_FALSE(std::is_default_constructible_v<CKrMapOwnerObject>);
    EXPECT_FALSE(std::is_copy_constructible_v<CKrMapOwnerObject>);
    EXPECT_FALSE(std::is_copy_assignable_v<CKrMapOwnerObject>);
    EXPECT_TRUE(std::has_virtual_destructor_v<CKrMapOwnerObject>);
}

TEST(CKrMapOwnerObject, AnswersForItsClass)
{
    Owner const owner;
    Counted const stranger;
    EXPECT_EQ(owner.IsA(), CKrMapOwnerObject::Cls());
    EXPECT_EQ(owner.ClsName(), OLESTR("CKrMapOwnerObject"));
    EXPECT_EQ(CKrMapOwnerObject::Cast(&owner), &owner);
    EXPECT_EQ(CKrMapOwnerObject::Cast(&stranger), nullptr);
    EXPECT_EQ(CKrMapOwnerObject::Cast(nullptr), nullptr);
}

TEST(CKrMapOwnerObject, OwnsItsChildrenInTheOrderOfTheirNames)
{
    {
        Owner owner;
        EXPECT_EQ(owner.GetChildCount(), 0u);
        owner.AddChild(s_b, new Counted(2));
        owner.AddChild(s_a, new Counted(1));
        owner.AddChild(s_c, nullptr);
        EXPECT_EQ(owner.GetChildCount(), 3u);
        EXPECT_EQ(ValueOf(owner.GetChildAt(0)), 1);
        EXPECT_EQ(ValueOf(owner.GetChildAt(1)), 2);
        EXPECT_EQ(owner.GetChildAt(2), nullptr);
        EXPECT_EQ(owner.GetChildAt(3), nullptr);
        EXPECT_EQ(ValueOf(owner.GetChild(s_b)), 2);
        EXPECT_EQ(owner.GetChild(s_c), nullptr);
        EXPECT_EQ(owner.GetChild(OLESTR("A")), nullptr) << "case counts";
        EXPECT_EQ(Counted::Living(), 2);
    }
    EXPECT_EQ(Counted::Living(), 0);
}

TEST(CKrMapOwnerObject, AddingToAHeldNameDeletesTheChildBefore)
{
    Owner owner;
    owner.AddChild(s_a, new Counted(1));
    owner.AddChild(s_a, new Counted(2));
    EXPECT_EQ(owner.GetChildCount(), 1u);
    EXPECT_EQ(ValueOf(owner.GetChild(s_a)), 2);
    EXPECT_EQ(Counted::Living(), 1);
}

TEST(CKrMapOwnerObject, DeletesChildrenByName)
{
    Owner owner;
    owner.AddChild(s_a, new Counted(1));
    owner.AddChild(s_b, nullptr);
    owner.DeleteChild(s_c);
    EXPECT_EQ(owner.GetChildCount(), 2u);
    owner.DeleteChild(s_a);
    owner.DeleteChild(s_b);
    EXPECT_EQ(owner.GetChildCount(), 0u);
    EXPECT_EQ(Counted::Living(), 0);
}

TEST(CKrMapOwnerObject, DeletesAllChildren)
{
    Owner owner;
    owner.AddChild(s_a, new Counted);
    owner.AddChild(s_b, new Counted);
    owner.DeleteChildren();
    EXPECT_EQ(owner.GetChildCount(), 0u);
    EXPECT_EQ(Counted::Living(), 0);
}

TEST(CKrMapOwnerObject, GivesAccessToItsMap)
{
    Owner owner;
    owner.GetChildren().AddObject(s_a, new Counted(1));
    Owner const & same = owner;
    EXPECT_EQ(&same.GetChildren(), &owner.GetChildren());
    EXPECT_EQ(ValueOf(owner.GetChild(s_a)), 1);
}

TEST(CKrMapOwnerObject, ACopyHoldsTheClonesOfTheChildren)
{
    Owner owner;
    owner.AddChild(s_a, new CountedWithClone(1));
    owner.AddChild(s_b, nullptr);
    owner.AddChild(s_c, new CKrStringObject(OLESTR("wall")));
    Owner const copy(owner);
    ASSERT_EQ(copy.GetChildCount(), 3u);
    EXPECT_EQ(ValueOf(copy.GetChild(s_a)), 1);
    EXPECT_NE(copy.GetChild(s_a), owner.GetChild(s_a));
    EXPECT_EQ(copy.GetChild(s_b), nullptr);
    EXPECT_EQ(copy.GetChild(s_c)->IsA(), CKrObject::Cls()) << "a value object does not survive";
    EXPECT_EQ(CKrStringObject::Cast(copy.GetChild(s_c)), nullptr);
    EXPECT_EQ(Counted::Living(), 2);
}

TEST(CKrMapOwnerObject, AnAssignmentReplacesTheChildrenByClones)
{
    Owner source;
    source.AddChild(s_a, new CountedWithClone(1));
    Owner target;
    target.AddChild(s_a, new Counted(2));
    target.AddChild(s_b, new Counted(3));
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(target.GetChildCount(), 1u);
    EXPECT_EQ(ValueOf(target.GetChild(s_a)), 1);
    EXPECT_NE(target.GetChild(s_a), source.GetChild(s_a));
    EXPECT_EQ(Counted::Living(), 2);
}

TEST(CKrMapOwnerObject, AssigningItToItselfHasNoEffect)
{
    Owner owner;
    owner.AddChild(s_a, new Counted(1));
    CKrObject const * const child = owner.GetChild(s_a);
    Owner & same = owner;
    owner = same;
    EXPECT_EQ(owner.GetChildCount(), 1u);
    EXPECT_EQ(owner.GetChild(s_a), child);
}

TEST(CKrMapOwnerObject, CanBeAssignedFromItsOwnChild)
{
    Owner owner;
    Owner * const child = new Owner;
    child->AddChild(s_b, new CountedWithClone(5));
    owner.AddChild(s_a, child);
    owner = *child;
    EXPECT_EQ(owner.GetChildCount(), 1u);
    EXPECT_EQ(ValueOf(owner.GetChild(s_b)), 5);
    EXPECT_EQ(Counted::Living(), 1);
}

TEST(CKrMapOwnerObject, DeletesTheAddedChildWhenMemoryRunsOut)
{
    Owner owner;
    Counted * const child = new Counted;
    {
        kr::test::FailNthAllocation const fail(1);
        EXPECT_THROW(owner.AddChild(s_a, child), std::bad_alloc);
    }
    EXPECT_EQ(owner.GetChildCount(), 0u);
    EXPECT_EQ(Counted::Living(), 0);
}

TEST(CKrMapOwnerObject, CopyingLeavesNothingBehindWhereverMemoryRunsOut)
{
    Owner owner;
    owner.AddChild(s_a, new CountedWithClone(1));
    owner.AddChild(s_b, new CountedWithClone(2));
    std::size_t const failures = kr::test::FailEveryAllocation([&owner] { Owner const copy(owner); },
                                                               [] { EXPECT_THROW(throw, std::bad_alloc); });
    EXPECT_EQ(failures, 4u) << "two clones, two entries";
    EXPECT_EQ(Counted::Living(), 2);
}

TEST(CKrMapOwnerObject, KeepsItsChildrenWhenAnAssignmentFindsNoMemory)
{
    Owner source;
    source.AddChild(s_a, new CountedWithClone(1));
    Owner target;
    target.AddChild(s_b, new Counted(7));
    for (std::size_t n = 1; n <= 2; ++n)
    {
        SCOPED_TRACE(n);
        kr::test::FailNthAllocation const fail(n);
        EXPECT_THROW(target = source, std::bad_alloc);
    }
    EXPECT_EQ(target.GetChildCount(), 1u);
    EXPECT_EQ(ValueOf(target.GetChild(s_b)), 7);
    EXPECT_EQ(Counted::Living(), 2);
}
