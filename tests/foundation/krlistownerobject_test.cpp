#include <krcore/foundation/krlistownerobject.h>

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

class Owner : public CKrListOwnerObject
{
public:
    Owner() = default;
};

/// Clones a few times, then finds no memory.
class Reluctant : public Counted
{
public:
    explicit Reluctant(int & clonesLeft) : m_clonesLeft(clonesLeft) {}
    CKrObject * Clone() const override
    {
        if (m_clonesLeft-- == 0)
            throw std::bad_alloc();
        return new Reluctant(*this);
    }

private:
    int & m_clonesLeft;
};

int ValueAt(Owner const & owner, unsigned int index)
{
    Counted const * const child = dynamic_cast<Counted const *>(owner.GetChildAt(index));
    return child ? child->value : -1;
}

} // namespace

TEST(CKrListOwnerObject, IsMadeAndCopiedThroughDerivedClassesOnly)
{
    EXPECT_FALSE(std::is_default_constructible_v<CKrListOwnerObject>);
    EXPECT_FALSE(std::is_copy_constructible_v<CKrListOwnerObject>);
    EXPECT_FALSE(std::is_copy_assignable_v<CKrListOwnerObject>);
    EXPECT_TRUE(std::has_virtual_destructor_v<CKrListOwnerObject>);
}

TEST(CKrListOwnerObject, AnswersForItsClass)
{
    Owner const owner;
    Counted const stranger;
    EXPECT_EQ(owner.IsA(), CKrListOwnerObject::Cls());
    EXPECT_EQ(owner.ClsName(), OLESTR("CKrListOwnerObject"));
    EXPECT_EQ(CKrListOwnerObject::Cast(&owner), &owner);
    EXPECT_EQ(CKrListOwnerObject::Cast(&stranger), nullptr);
    EXPECT_EQ(CKrListOwnerObject::Cast(nullptr), nullptr);
    EXPECT_EQ(CKrObject::Cast(&owner), nullptr);
}

TEST(CKrListOwnerObject, OwnsItsChildrenInTheOrderOfAdding)
{
    {
        Owner owner;
        EXPECT_EQ(owner.GetChildCount(), 0u);
        owner.AddChild(new Counted(1));
        owner.AddChild(new Counted(2));
        EXPECT_EQ(owner.GetChildCount(), 2u);
        EXPECT_EQ(ValueAt(owner, 0), 1);
        EXPECT_EQ(ValueAt(owner, 1), 2);
        EXPECT_EQ(owner.GetChildAt(2), nullptr);
        EXPECT_EQ(owner.GetChildAt(~0u), nullptr);
        EXPECT_EQ(Counted::Living(), 2);
    }
    EXPECT_EQ(Counted::Living(), 0);
}

TEST(CKrListOwnerObject, TakesNullAsAChild)
{
    Owner owner;
    owner.AddChild(nullptr);
    owner.AddChild(new Counted(1));
    EXPECT_EQ(owner.GetChildCount(), 2u);
    EXPECT_EQ(owner.GetChildAt(0), nullptr);
    owner.DeleteChild(nullptr);
    EXPECT_EQ(owner.GetChildCount(), 1u);
    EXPECT_EQ(ValueAt(owner, 0), 1);
    owner.DeleteChild(nullptr);
    EXPECT_EQ(owner.GetChildCount(), 1u);
}

TEST(CKrListOwnerObject, TakesTheSameChildTwice)
{
    Owner owner;
    Counted * const child = new Counted;
    owner.AddChild(child);
    owner.AddChild(child);
    EXPECT_EQ(owner.GetChildCount(), 2u);
    EXPECT_EQ(owner.GetChildAt(0), child);
    EXPECT_EQ(owner.GetChildAt(1), child);
    owner.GetChildren().pop_back();
    owner.DeleteChild(child);
    EXPECT_EQ(owner.GetChildCount(), 0u);
    EXPECT_EQ(Counted::Living(), 0);
}

TEST(CKrListOwnerObject, DeletesAChildAndKeepsTheOrderOfTheOthers)
{
    Owner owner;
    for (int value = 1; value <= 4; ++value)
        owner.AddChild(new Counted(value));
    owner.DeleteChild(owner.GetChildAt(1));
    EXPECT_EQ(Counted::Living(), 3);
    ASSERT_EQ(owner.GetChildCount(), 3u);
    EXPECT_EQ(ValueAt(owner, 0), 1);
    EXPECT_EQ(ValueAt(owner, 1), 3);
    EXPECT_EQ(ValueAt(owner, 2), 4);
}

TEST(CKrListOwnerObject, DeletesTheFirstOfEqualChildren)
{
    Owner owner;
    owner.AddChild(nullptr);
    owner.AddChild(new Counted(1));
    owner.AddChild(nullptr);
    owner.DeleteChild(nullptr);
    ASSERT_EQ(owner.GetChildCount(), 2u);
    EXPECT_EQ(ValueAt(owner, 0), 1);
    EXPECT_EQ(owner.GetChildAt(1), nullptr);
}

TEST(CKrListOwnerObject, LeavesAPointerAloneThatIsNoChild)
{
    Owner owner;
    owner.AddChild(new Counted(1));
    Counted stranger(2);
    owner.DeleteChild(&stranger);
    EXPECT_EQ(owner.GetChildCount(), 1u);
    EXPECT_EQ(Counted::Living(), 2);
}

TEST(CKrListOwnerObject, DeletesAllChildren)
{
    Owner owner;
    owner.AddChild(new Counted);
    owner.AddChild(nullptr);
    owner.AddChild(new Counted);
    owner.DeleteChildren();
    EXPECT_EQ(owner.GetChildCount(), 0u);
    EXPECT_EQ(Counted::Living(), 0);
    owner.DeleteChildren();
    EXPECT_EQ(owner.GetChildCount(), 0u);
}

TEST(CKrListOwnerObject, GivesAccessToItsVector)
{
    Owner owner;
    owner.GetChildren().push_back(new Counted(1));
    Owner const & same = owner;
    EXPECT_EQ(&same.GetChildren(), &owner.GetChildren());
    EXPECT_EQ(owner.GetChildCount(), 1u);
}

TEST(CKrListOwnerObject, ACopyHoldsTheClonesOfTheChildren)
{
    Owner owner;
    owner.AddChild(new CountedWithClone(1));
    owner.AddChild(nullptr);
    owner.AddChild(new CountedWithClone(3));
    Owner const copy(owner);
    ASSERT_EQ(copy.GetChildCount(), 3u);
    EXPECT_EQ(ValueAt(copy, 0), 1);
    EXPECT_EQ(copy.GetChildAt(1), nullptr);
    EXPECT_EQ(ValueAt(copy, 2), 3);
    EXPECT_NE(copy.GetChildAt(0), owner.GetChildAt(0));
    EXPECT_EQ(Counted::Living(), 4);
}

TEST(CKrListOwnerObject, ValueObjectsDoNotSurviveTheCopyingOfTheirOwner)
{
    Owner owner;
    owner.AddChild(new CKrStringObject(OLESTR("wall")));
    owner.AddChild(new CKrStringListObject({CString(OLESTR("wall"))}));
    owner.AddChild(new CKrVariantObject(CKrVariant(2.5)));
    Owner const copy(owner);
    ASSERT_EQ(copy.GetChildCount(), 3u);
    for (unsigned int index = 0; index < 3; ++index)
    {
        SCOPED_TRACE(index);
        EXPECT_EQ(copy.GetChildAt(index)->IsA(), CKrObject::Cls());
    }
    EXPECT_EQ(CKrStringObject::Cast(copy.GetChildAt(0)), nullptr);
    EXPECT_EQ(CKrStringListObject::Cast(copy.GetChildAt(1)), nullptr);
}

TEST(CKrListOwnerObject, AnAssignmentReplacesTheChildrenByClones)
{
    Owner source;
    source.AddChild(new CountedWithClone(1));
    Owner target;
    target.AddChild(new Counted(2));
    target.AddChild(new Counted(3));
    EXPECT_EQ(&(target = source), &target);
    ASSERT_EQ(target.GetChildCount(), 1u);
    EXPECT_EQ(ValueAt(target, 0), 1);
    EXPECT_NE(target.GetChildAt(0), source.GetChildAt(0));
    EXPECT_EQ(Counted::Living(), 2);
}

TEST(CKrListOwnerObject, AssigningItToItselfHasNoEffect)
{
    Owner owner;
    owner.AddChild(new Counted(1));
    CKrObject const * const child = owner.GetChildAt(0);
    Owner & same = owner;
    owner = same;
    ASSERT_EQ(owner.GetChildCount(), 1u);
    EXPECT_EQ(owner.GetChildAt(0), child);
}

TEST(CKrListOwnerObject, CanBeAssignedFromItsOwnChild)
{
    Owner owner;
    Owner * const child = new Owner;
    child->AddChild(new CountedWithClone(5));
    owner.AddChild(child);
    owner = *child;
    ASSERT_EQ(owner.GetChildCount(), 1u);
    EXPECT_EQ(ValueAt(owner, 0), 5);
    EXPECT_EQ(Counted::Living(), 1);
}

TEST(CKrListOwnerObject, DeletesTheAddedChildWhenMemoryRunsOut)
{
    Owner owner;
    Counted * const child = new Counted;
    {
        kr::test::FailNthAllocation const fail(1);
        EXPECT_THROW(owner.AddChild(child), std::bad_alloc);
    }
    EXPECT_EQ(owner.GetChildCount(), 0u);
    EXPECT_EQ(Counted::Living(), 0);
}

TEST(CKrListOwnerObject, CopyingLeavesNothingBehindWhereverMemoryRunsOut)
{
    Owner owner;
    owner.AddChild(new CountedWithClone(1));
    owner.AddChild(new CountedWithClone(2));
    std::size_t const failures = kr::test::FailEveryAllocation([&owner] { Owner const copy(owner); },
                                                               [] { EXPECT_THROW(throw, std::bad_alloc); });
    EXPECT_EQ(failures, 3u) << "the room and two clones";
    EXPECT_EQ(Counted::Living(), 2);
}

TEST(CKrListOwnerObject, KeepsItsChildrenWhenACloneFailsInAnAssignment)
{
    int clonesLeft = 1;
    Owner source;
    source.AddChild(new Reluctant(clonesLeft));
    source.AddChild(new Reluctant(clonesLeft));
    Owner target;
    target.AddChild(new Counted(7));
    EXPECT_THROW(target = source, std::bad_alloc);
    ASSERT_EQ(target.GetChildCount(), 1u);
    EXPECT_EQ(ValueAt(target, 0), 7);
    EXPECT_EQ(Counted::Living(), 3);
}
