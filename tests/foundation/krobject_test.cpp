#include <krcore/foundation/krobject.h>

#include <krcore/foundation/krclass.h>
#include <krcore/foundation/krowner.h>
#include <krcore/property/krproperty.h>
#include <krcore/property/krpropertyset.h>

#include "tests/support/failing_allocator.h"
#include "tests/support/virtual_slot.h"

#include <gtest/gtest.h>

#include <new>
#include <type_traits>

namespace
{

/// A class that takes part without a descriptor of its own.
class WithoutDescriptor : public CKrObject
{
public:
    int value = 5;
};

class WithNullDescriptor : public CKrObject
{
public:
    CKrClass * IsA() const override { return nullptr; }
};

CKrClass s_ownDescriptor(OLESTR("WithOwnDescriptor"), 3, nullptr);
CKrClass s_chainedDescriptor(OLESTR("WithChainedDescriptor"), 3, CKrObject::Cls());

class WithOwnDescriptor : public CKrObject
{
public:
    CKrClass * IsA() const override { return &s_ownDescriptor; }
};

class WithChainedDescriptor : public CKrObject
{
public:
    CKrClass * IsA() const override { return &s_chainedDescriptor; }
};

} // namespace

TEST(CKrObject, IsMadeThroughDerivedClassesOnly)
{
    EXPECT_FALSE(std::is_default_constructible_v<CKrObject>);
    EXPECT_FALSE(std::is_copy_constructible_v<CKrObject>);
    EXPECT_TRUE(std::is_copy_assignable_v<CKrObject>);
}

TEST(CKrObject, HasNoDataButTheLinkToItsVirtualOperations) { EXPECT_EQ(sizeof(CKrObject), sizeof(void *)); }

TEST(CKrObject, HasItsVirtualOperationsInTheAgreedOrder)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<CKrObject>);
    EXPECT_EQ(kr::test::VirtualSlotOf(&CKrObject::IsA), 2u);
    EXPECT_EQ(kr::test::VirtualSlotOf(&CKrObject::ClsName), 3u);
    EXPECT_EQ(kr::test::VirtualSlotOf(&CKrObject::Clone), 4u);
}

TEST(CKrObject, GivesTheDescriptorOfItsOwnerPointer)
{
    EXPECT_NE(CKrObject::Cls(), nullptr);
    EXPECT_EQ(CKrObject::Cls(), CKrObject::s_pCls.get());
}

TEST(CKrObject, AnswersForClassesWithoutADescriptorOfTheirOwn)
{
    WithoutDescriptor const object;
    EXPECT_EQ(object.IsA(), CKrObject::Cls());
    EXPECT_EQ(object.ClsName(), OLESTR("CKrObject"));
    EXPECT_EQ(CKrObject::Cast(&object), &object);
    EXPECT_TRUE(object.IsKindOf(CKrObject::Cls()));
}

TEST(CKrObject, TakesItsNameFromTheDescriptorOfTheDerivedClass)
{
    WithOwnDescriptor const object;
    EXPECT_EQ(object.ClsName(), OLESTR("WithOwnDescriptor"));
    EXPECT_EQ(&object.ClsName(), &s_ownDescriptor.ClsName());
}

TEST(CKrObject, CloneIsAPlainObjectWhateverTheClassIs)
{
    WithOwnDescriptor const object;
    std::unique_ptr<CKrObject> const clone(object.Clone());
    EXPECT_EQ(clone->IsA(), CKrObject::Cls());
    EXPECT_EQ(dynamic_cast<WithOwnDescriptor *>(clone.get()), nullptr);
}

TEST(CKrObject, CloneFailsWithoutATraceWhenMemoryRunsOut)
{
    WithoutDescriptor const object;
    std::size_t const failures = kr::test::FailEveryAllocation([&object] { delete object.Clone(); },
                                                               [] { EXPECT_THROW(throw, std::bad_alloc); });
    EXPECT_EQ(failures, 1u);
}

TEST(CKrObject, AssignmentDoesNothing)
{
    WithoutDescriptor object;
    WithoutDescriptor other;
    object.value = 7;
    CKrObject & root = object;
    EXPECT_EQ(&(root = other), &root);
    EXPECT_EQ(object.value, 7);
    EXPECT_EQ(object.IsA(), CKrObject::Cls());
}

TEST(CKrObject, IsOfEveryKindWithoutADescriptor)
{
    WithNullDescriptor const object;
    EXPECT_TRUE(object.IsKindOf(CKrObject::Cls()));
    EXPECT_TRUE(object.IsKindOf(CKrStringObject::Cls()));
    EXPECT_TRUE(object.IsKindOf(nullptr));
}

TEST(CKrObject, IsOfTheKindThatItsDescriptorLeadsTo)
{
    EXPECT_TRUE(WithOwnDescriptor().IsKindOf(&s_ownDescriptor));
    EXPECT_FALSE(WithOwnDescriptor().IsKindOf(CKrObject::Cls()));
    EXPECT_TRUE(WithChainedDescriptor().IsKindOf(CKrObject::Cls()));
    EXPECT_FALSE(WithOwnDescriptor().IsKindOf(nullptr));
}

TEST(CKrObject, ClassesOfTheLibraryAreNotOfTheKindOfTheirRoot)
{
    CKrStringObject const text(OLESTR("wall"));
    EXPECT_TRUE(text.IsKindOf(CKrStringObject::Cls()));
    EXPECT_FALSE(text.IsKindOf(CKrObject::Cls()));
    EXPECT_FALSE(text.IsKindOf(CKrStringListObject::Cls()));
}

TEST(CKrObject, CastAsksTheDescriptorsAndNotTheBuiltInType)
{
    CKrStringObject const text(OLESTR("wall"));
    WithNullDescriptor const none;
    WithChainedDescriptor const chained;
    WithOwnDescriptor const own;
    EXPECT_EQ(CKrObject::Cast(nullptr), nullptr);
    EXPECT_EQ(CKrObject::Cast(&text), nullptr);
    EXPECT_EQ(CKrObject::Cast(&own), nullptr);
    EXPECT_EQ(CKrObject::Cast(&none), &none);
    EXPECT_EQ(CKrObject::Cast(&chained), &chained);
}

TEST(CKrObject, CastRefusesAPropertyAndPassesASetWithoutADescriptor)
{
    CKrProperty const property;
    CKrPropertySet const set;
    EXPECT_TRUE(property.IsKindOf(CKrProperty::Cls()));
    EXPECT_FALSE(property.IsKindOf(CKrObject::Cls()));
    EXPECT_EQ(CKrObject::Cast(&property), nullptr);
    EXPECT_EQ(CKrProperty::Cast(&property), &property);
    EXPECT_EQ(CKrObject::Cast(&set), &set);
    EXPECT_EQ(set.ClsName(), OLESTR("CKrObject"));
}
