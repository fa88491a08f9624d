#include <krcore/property/krproperty.h>

#include "tests/property/counted_property.h"
#include "tests/support/memory_failure.h"

#include <gtest/gtest.h>

#include <memory>

using kr::test::AddCounted;
using kr::test::AllAllocations;
using kr::test::CountedProperty;
using kr::test::ExpectLinked;
using kr::test::FailUntilItPasses;
using kr::test::TreeOf;

namespace
{

/// A property that differs from a new one in each field, with children a(b) and c.
std::unique_ptr<CKrProperty> MakeSource()
{
    auto source = std::make_unique<CKrProperty>(OLESTR("source"), OLESTR("description"), CKrProperty::ePropInt,
                                                CKrVariant(5), false, false);
    source->SetNeeded(true);
    source->SetModified(true);
    source->SetTooltip(OLESTR("tip"));
    source->SetAttribute(OLESTR("attribute"), CKrVariant(6));
    AddCounted(*AddCounted(*source, OLESTR("a")), OLESTR("b"));
    AddCounted(*source, OLESTR("c"));
    return source;
}

void ExpectFieldsOfSource(CKrProperty const & property)
{
    EXPECT_EQ(property.GetName(), OLESTR("source"));
    EXPECT_EQ(property.GetDescription(), OLESTR("description"));
    EXPECT_EQ(property.GetType(), CKrProperty::ePropInt);
    EXPECT_TRUE(property.GetValue().IsLong());
    EXPECT_EQ(property.GetInt(), 5);
    EXPECT_TRUE(property.IsNeeded());
    EXPECT_TRUE(property.IsModified());
    EXPECT_EQ(property.GetTooltip(), OLESTR("tip"));
    EXPECT_FALSE(property.IsVisible());
    EXPECT_FALSE(property.IsEnabled());
    EXPECT_EQ(static_cast<int>(property.GetAttribute(OLESTR("attribute"))), 6);
}

/// Its clone is none.
class WithoutClone : public CountedProperty
{
public:
    using CountedProperty::CountedProperty;
    CountedProperty * Clone() const override { return nullptr; }
};

} // namespace

TEST(CKrPropertyCopy, OfAWholeTreeSharesNothing)
{
    std::unique_ptr<CKrProperty> const source = MakeSource();
    CKrProperty copy(*source);
    ExpectFieldsOfSource(copy);
    EXPECT_EQ(TreeOf(copy), OLESTR("source(a(b) c)"));
    EXPECT_EQ(copy.GetParentProperty(), nullptr);
    EXPECT_NE(copy.GetItemCtrl(), source->GetItemCtrl());
    EXPECT_NE(copy.GetSubPropertyAt(0), source->GetSubPropertyAt(0));
    EXPECT_EQ(CountedProperty::Living(), 6); // the children are cloned as what they are
    ExpectLinked(copy);
    ExpectLinked(*source);

    copy.SetTooltip(OLESTR("other"));
    copy.SetAttribute(OLESTR("attribute"), CKrVariant(7));
    copy.GetSubPropertyAt(0)->SetInt(8);
    copy.DeleteSubProperty(OLESTR("c"));
    ExpectFieldsOfSource(*source);
    EXPECT_EQ(source->GetSubPropertyAt(0)->GetAsString(), OLESTR(""));
    EXPECT_EQ(TreeOf(*source), OLESTR("source(a(b) c)"));
}

TEST(CKrPropertyCopy, MadeByCloneHasNoParentAndIsTheCallers)
{
    {
        std::unique_ptr<CKrProperty> const source = MakeSource();
        std::unique_ptr<CKrProperty> const clone(source->GetSubPropertyAt(0)->Clone());
        EXPECT_EQ(clone->GetParentProperty(), nullptr);
        EXPECT_EQ(clone->GetLevel(), 0);
        EXPECT_EQ(TreeOf(*clone), OLESTR("a(b)"));
        EXPECT_EQ(CountedProperty::Living(), 5);
        EXPECT_NE(dynamic_cast<CountedProperty *>(clone.get()), nullptr);
        ExpectLinked(*clone);
    }
    EXPECT_EQ(CountedProperty::Living(), 0);
}

TEST(CKrPropertyCopy, SkipsChildrenWithoutAClone)
{
    CKrProperty source(OLESTR("r"), CString(), true, true);
    AddCounted(source, OLESTR("a"));
    source.AddSubProperty(new WithoutClone(OLESTR("none")));
    AddCounted(source, OLESTR("b"));
    CKrProperty const copy(source);
    EXPECT_EQ(TreeOf(copy), OLESTR("r(a b)"));
    ExpectLinked(copy);
    CKrProperty target;
    target.DeepCopy(source);
    EXPECT_EQ(TreeOf(target), OLESTR("r(a b)"));
    ExpectLinked(target);
}

TEST(CKrPropertyCopy, WithoutTheTreeTakesTheFieldsAlone)
{
    std::unique_ptr<CKrProperty> const source = MakeSource();
    CKrProperty root(OLESTR("root"), CString(), true, true);
    CKrProperty * const target = AddCounted(root, OLESTR("target"));
    AddCounted(*target, OLESTR("own"));
    target->Copy(*source);
    ExpectFieldsOfSource(*target);
    EXPECT_EQ(TreeOf(root), OLESTR("root(source(own))"));
    ExpectLinked(root);
    source->SetTooltip(OLESTR("other"));
    source->SetAttribute(OLESTR("attribute"), CKrVariant(7));
    ExpectFieldsOfSource(*target); // control and attributes are the target's own
}

TEST(CKrPropertyCopy, KeepsTheAttributesWhereTheSourceNeverHadAny)
{
    CKrProperty source, target;
    target.SetAttribute(OLESTR("own"), CKrVariant(1));
    target.Copy(source);
    EXPECT_TRUE(target.HasAttribute(OLESTR("own")));
    target.DeepCopy(source);
    EXPECT_TRUE(target.HasAttribute(OLESTR("own")));
}

TEST(CKrPropertyCopy, TakesAnEmptyListOfAttributesInPlaceOfItsOwn)
{
    CKrProperty source, target;
    target.SetAttribute(OLESTR("own"), CKrVariant(1));
    source.SetAttribute(OLESTR("a"), CKrVariant(1));
    source.RemoveAttribute(OLESTR("a")); // the list stays
    target.Copy(source);
    EXPECT_FALSE(target.HasAttribute(OLESTR("own")));
}

TEST(CKrPropertyCopy, DeepReplacesTheChildrenAndKeepsTheParent)
{
    {
        std::unique_ptr<CKrProperty> const source = MakeSource();
        CKrProperty root(OLESTR("root"), CString(), true, true);
        AddCounted(root, OLESTR("first"));
        CKrProperty * const target = AddCounted(root, OLESTR("target"));
        AddCounted(*target, OLESTR("own"));
        target->DeepCopy(*source);
        ExpectFieldsOfSource(*target);
        EXPECT_EQ(TreeOf(root), OLESTR("root(first source(a(b) c))"));
        EXPECT_EQ(CountedProperty::Living(), 3 + 2 + 3);
        ExpectLinked(root);
        ExpectLinked(*source);
    }
    EXPECT_EQ(CountedProperty::Living(), 0);
}

TEST(CKrPropertyCopy, AssignedIsDeep)
{
    std::unique_ptr<CKrProperty> const source = MakeSource();
    CKrProperty target;
    AddCounted(target, OLESTR("own"));
    CKrProperty & result = target = *source;
    EXPECT_EQ(&result, &target);
    ExpectFieldsOfSource(target);
    EXPECT_EQ(TreeOf(target), OLESTR("source(a(b) c)"));
    ExpectLinked(target);
}

TEST(CKrPropertyCopy, OfItselfHasNoEffect)
{
    std::unique_ptr<CKrProperty> const source = MakeSource();
    CKrProperty const & self = *source;
    CKrProperty const * const child = source->GetSubPropertyAt(0);
    CKrAssCtrl const * const control = source->GetItemCtrl();
    source->Copy(self);
    source->DeepCopy(self);
    *source = self;
    EXPECT_EQ(source->GetSubPropertyAt(0), child);
    EXPECT_EQ(source->GetItemCtrl(), control);
    ExpectFieldsOfSource(*source);
    EXPECT_EQ(CountedProperty::Living(), 3);
}

TEST(CKrPropertyCopy, DeepTakesADescendantThatItReplaces)
{
    CKrProperty root(OLESTR("root"), CString(), true, true);
    CKrProperty * const a = AddCounted(root, OLESTR("a"));
    CKrProperty * const b = AddCounted(*a, OLESTR("b"));
    AddCounted(*b, OLESTR("c"));
    AddCounted(root, OLESTR("d"));
    root.DeepCopy(*b);
    EXPECT_EQ(TreeOf(root), OLESTR("b(c)"));
    EXPECT_EQ(CountedProperty::Living(), 1);
    ExpectLinked(root);
}

TEST(CKrPropertyCopy, DeepTakesAnAncestorIntoItself)
{
    CKrProperty root(OLESTR("root"), CString(), true, true);
    CKrProperty * const a = AddCounted(root, OLESTR("a"));
    AddCounted(*a, OLESTR("b"));
    a->DeepCopy(root);
    EXPECT_EQ(TreeOf(root), OLESTR("root(root(a(b)))"));
    EXPECT_EQ(a->GetParentProperty(), &root);
    EXPECT_EQ(CountedProperty::Living(), 3);
    ExpectLinked(root);
}

TEST(CKrPropertyCopy, LeavesAllAsItWasWhereMemoryRunsOut)
{
    std::unique_ptr<CKrProperty> const source = MakeSource();
    CKrProperty target(OLESTR("target"), CString(), true, true);
    target.SetAttribute(OLESTR("own"), CKrVariant(1));
    AddCounted(target, OLESTR("own"));
    auto const checkUnchanged = [&]
    {
        EXPECT_EQ(TreeOf(target), OLESTR("target(own)"));
        EXPECT_TRUE(target.GetValue().IsString());
        EXPECT_TRUE(target.IsVisible());
        EXPECT_TRUE(target.HasAttribute(OLESTR("own")));
        EXPECT_FALSE(target.IsModified());
        ExpectLinked(target);
    };
    EXPECT_GT(FailUntilItPasses([&] { target.DeepCopy(*source); }, checkUnchanged), 10u);
    EXPECT_EQ(TreeOf(target), OLESTR("source(a(b) c)"));
    EXPECT_GT(FailUntilItPasses([&] { CKrProperty const copy(*source); }, [] {}), 10u);
    ExpectFieldsOfSource(*source);
}

TEST(CKrPropertyCopy, TakesMemoryInProportionToTheNumberOfNodes)
{
    auto const allocationsOfACopy = [](int count)
    {
        CKrProperty source;
        for (int number = 0; number < count; ++number)
            AddCounted(source, OLESTR("n"));
        std::size_t const before = AllAllocations();
        CKrProperty const copy(source);
        return AllAllocations() - before;
    };
    EXPECT_LE(allocationsOfACopy(2000), 2 * allocationsOfACopy(1000));
}
