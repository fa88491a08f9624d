#include <krcore/property/krpropertyset.h>

#include <krcore/diagnostics/krexception.h>
#include <krcore/foundation/krclass.h>
#include <krcore/property/krvisitor.h>

#include "tests/property/counted_property.h"
#include "tests/support/memory_failure.h"

#include <gtest/gtest.h>

#include <memory>

using kr::test::AddCounted;
using kr::test::CountedProperty;
using kr::test::ExpectLinked;
using kr::test::FailNthAllocation;
using kr::test::FailUntilItPasses;
using kr::test::TreeOf;

namespace
{

CString const s_none;
WCHAR const * const s_default = OLESTR("_KRPROPDEFCAT_");

CString TreeOfSet(CKrPropertySet const & set) { return TreeOf(set.GetRootProperty()); }

/// The whole message of what `operation` throws.
template <class Operation>
CString MessageOf(Operation operation)
{
    try
    {
        operation();
    }
    catch (CKrException const & exception)
    {
        return exception.GetErrorMessage(true);
    }
    return OLESTR("nothing thrown");
}

class NameCollector : public kr::visitor<CKrProperty>
{
public:
    bool Action(CKrProperty * node) override
    {
        names += OLESTR("[") + node->GetName() + OLESTR("]");
        return node->GetName() != OLESTR("end");
    }

    CString names;
};

class Thrower : public kr::visitor<CKrProperty>
{
public:
    bool Action(CKrProperty *) override { throw 5; }
};

} // namespace

TEST(CKrPropertySet, HasAnEmptyRootOfNoType)
{
    CKrPropertySet const set;
    EXPECT_EQ(set.GetRootProperty().GetName(), OLESTR(""));
    EXPECT_EQ(set.GetRootProperty().GetDescription(), OLESTR(""));
    EXPECT_EQ(set.GetRootProperty().GetType(), CKrProperty::ePropNone);
    EXPECT_TRUE(set.IsEmpty());
    EXPECT_EQ(set.GetCountCategories(), 0u);
}

TEST(CKrPropertySet, IsAPlainObjectByItsDescriptorAndItsClone)
{
    CKrPropertySet set;
    set.CreateCategory(OLESTR("a"));
    EXPECT_EQ(set.IsA(), CKrObject::Cls());
    EXPECT_EQ(set.ClsName(), OLESTR("CKrObject"));
    std::unique_ptr<CKrObject> const clone(set.Clone());
    EXPECT_EQ(dynamic_cast<CKrPropertySet *>(clone.get()), nullptr);
}

TEST(CKrPropertySet, CreatesAPropertyWithoutNameAndType)
{
    CKrPropertySet set;
    CKrProperty const * const property = set.CreateProperty(OLESTR("a"));
    EXPECT_EQ(property->GetName(), OLESTR(""));
    EXPECT_EQ(property->GetType(), CKrProperty::ePropNone);
    EXPECT_EQ(property, set.GetPropertyAt(0, OLESTR("a")));
    EXPECT_EQ(set.CreateProperty(s_none)->GetParentProperty()->GetName(), s_default);
}

TEST(CKrPropertySet, CreatesAPropertyOfATypeWithItsDefaultsAndAString)
{
    CKrPropertySet set;
    CKrProperty const * const color = set.CreateProperty(OLESTR("x"), CKrProperty::ePropColor, OLESTR("a"));
    EXPECT_EQ(color->GetName(), OLESTR("x"));
    EXPECT_EQ(color->GetDescription(), OLESTR("x"));
    EXPECT_EQ(color->GetType(), CKrProperty::ePropColor);
    EXPECT_EQ(color->GetCtrlType(), CKrAssCtrl::eColorCtrl);
    EXPECT_TRUE(color->GetValue().IsLong());
    EXPECT_TRUE(color->IsVisible());
    EXPECT_TRUE(color->IsEnabled());
    CKrProperty const * const text = set.CreateProperty(OLESTR("y"), OLESTR("a"));
    EXPECT_EQ(text->GetType(), CKrProperty::ePropString);
    EXPECT_TRUE(text->GetValue().IsString());
    EXPECT_EQ(TreeOfSet(set), OLESTR("(a(x y))"));
}

TEST(CKrPropertySet, CreatesAMissingCategoryVisibleWithItsNameAsDescription)
{
    CKrPropertySet set;
    set.CreateProperty(OLESTR("x"), OLESTR("a"));
    set.AddProperty(new CKrProperty, OLESTR("b"));
    set.InsertProperty(5, new CKrProperty, s_none);
    EXPECT_EQ(TreeOfSet(set), OLESTR("(a(x) b() _KRPROPDEFCAT_())"));
    for (unsigned int index = 0; index < 3; ++index)
    {
        CKrProperty const * const category = set.GetCategoryAt(index);
        EXPECT_EQ(category->GetDescription(), category->GetName());
        EXPECT_EQ(category->GetType(), CKrProperty::ePropNone);
        EXPECT_FALSE(category->GetValue().IsValid());
        EXPECT_TRUE(category->IsVisible());
        EXPECT_TRUE(category->IsEnabled());
    }
    ExpectLinked(set.GetRootProperty());
}

TEST(CKrPropertySet, PutsPropertiesIntoACategoryThatIsThereAndLeavesItAsItIs)
{
    CKrPropertySet set;
    set.CreateCategory(OLESTR("a"), OLESTR("text"), false);
    set.CreateProperty(OLESTR("x"), OLESTR("a"));
    EXPECT_EQ(set.GetCategoryDescription(OLESTR("a")), OLESTR("text"));
    EXPECT_FALSE(set.IsCategoryVisible(OLESTR("a")));
    EXPECT_EQ(TreeOfSet(set), OLESTR("(a(x))"));
}

TEST(CKrPropertySet, AppendsASecondPropertyOfAName)
{
    CKrPropertySet set;
    CKrProperty const * const first = set.CreateProperty(OLESTR("x"), OLESTR("a"));
    EXPECT_NE(set.CreateProperty(OLESTR("x"), OLESTR("a")), first);
    EXPECT_EQ(set.GetCountProperties(OLESTR("a")), 2u);
    EXPECT_EQ(set.GetProperty(OLESTR("x"), OLESTR("a")), first);
}

TEST(CKrPropertySet, TakesAddedAndInsertedProperties)
{
    {
        CKrPropertySet set;
        EXPECT_TRUE(set.AddProperty(new CountedProperty(OLESTR("x")), OLESTR("a")));
        EXPECT_TRUE(set.AddProperty(new CountedProperty(OLESTR("y")), OLESTR("a")));
        EXPECT_TRUE(set.InsertProperty(1, new CountedProperty(OLESTR("1")), OLESTR("a")));
        EXPECT_TRUE(set.InsertProperty(0, new CountedProperty(OLESTR("0")), OLESTR("a")));
        EXPECT_TRUE(set.InsertProperty(4, new CountedProperty(OLESTR("4")), OLESTR("a")));
        EXPECT_TRUE(set.InsertProperty(99, new CountedProperty(OLESTR("99")), OLESTR("a")));
        EXPECT_EQ(TreeOfSet(set), OLESTR("(a(0 x 1 y 4 99))"));
        EXPECT_EQ(CountedProperty::Living(), 6);
        ExpectLinked(set.GetRootProperty());
    }
    EXPECT_EQ(CountedProperty::Living(), 0);
}

TEST(CKrPropertySet, RefusesANullPropertyBeforeItMakesACategory)
{
    CKrPropertySet set;
    EXPECT_FALSE(set.AddProperty(nullptr, OLESTR("a")));
    EXPECT_FALSE(set.InsertProperty(0, nullptr, OLESTR("a")));
    EXPECT_TRUE(set.IsEmpty());
}

TEST(CKrPropertySet, StaysAsItWasWhereMemoryRunsOut)
{
    CKrPropertySet set;
    set.AddProperty(new CountedProperty(OLESTR("x")), OLESTR("a"));
    CString const category = OLESTR("b"), name = OLESTR("y");
    auto const checkUnchanged = [&]
    {
        EXPECT_EQ(TreeOfSet(set), OLESTR("(a(x))"));
        EXPECT_EQ(CountedProperty::Living(), 1);
    };
    EXPECT_GT(FailUntilItPasses([&] { set.AddProperty(new CountedProperty(name), category); }, checkUnchanged), 3u);
    EXPECT_EQ(TreeOfSet(set), OLESTR("(a(x) b(y))"));
    set.DeleteCategory(category);
    EXPECT_GT(FailUntilItPasses([&] { set.CreateProperty(name, category); }, checkUnchanged), 3u);
    set.DeleteCategory(category);
    EXPECT_GT(FailUntilItPasses([&] { set.CreateCategory(category); }, checkUnchanged), 0u);
}

TEST(CKrPropertySet, FindsPropertiesByNameAndIndexInACategory)
{
    CKrPropertySet set;
    set.CreateProperty(OLESTR("x"), OLESTR("a"));
    CKrProperty const * const y = set.CreateProperty(OLESTR("y"), OLESTR("a"));
    CKrProperty const * const z = set.CreateProperty(OLESTR("z"), s_none);
    EXPECT_EQ(set.GetProperty(OLESTR("y"), OLESTR("a")), y);
    EXPECT_EQ(set.GetPropertyAt(1, OLESTR("a")), y);
    EXPECT_EQ(set.FindPropertyIndex(OLESTR("y"), OLESTR("a")), 1);
    EXPECT_EQ(set.GetCountProperties(OLESTR("a")), 2u);
    EXPECT_EQ(set.GetProperty(OLESTR("z"), s_none), z);
    EXPECT_EQ(set.GetProperty(OLESTR("z"), s_default), z);
    EXPECT_EQ(set.GetPropertyAt(0, s_none), z);
    EXPECT_EQ(set.FindPropertyIndex(OLESTR("z"), s_none), 0);
    EXPECT_EQ(set.GetCountProperties(s_none), 1u);
    EXPECT_TRUE(set.HasCategory(s_none));
}

TEST(CKrPropertySet, AnswersQuietlyForWhatIsMissing)
{
    CKrPropertySet set;
    set.CreateProperty(OLESTR("x"), OLESTR("a"));
    EXPECT_EQ(set.GetProperty(OLESTR("X"), OLESTR("a")), nullptr);
    EXPECT_EQ(set.GetProperty(OLESTR("x"), OLESTR("A")), nullptr);
    EXPECT_EQ(set.GetProperty(OLESTR("x"), s_none), nullptr);
    EXPECT_EQ(set.GetPropertyAt(1, OLESTR("a")), nullptr);
    EXPECT_EQ(set.GetPropertyAt(0, OLESTR("A")), nullptr);
    EXPECT_EQ(set.FindPropertyIndex(OLESTR("y"), OLESTR("a")), -1);
    EXPECT_EQ(set.FindPropertyIndex(OLESTR("x"), OLESTR("b")), -1);
    EXPECT_EQ(set.GetCountProperties(OLESTR("b")), 0u);
    EXPECT_EQ(set.GetPropertyByPropName(OLESTR("y")), nullptr);
    EXPECT_EQ(TreeOfSet(set), OLESTR("(a(x))"));
}

TEST(CKrPropertySet, FindsAPropertyInTheFirstCategoryThatHasIt)
{
    CKrPropertySet set;
    set.CreateProperty(OLESTR("x"), OLESTR("a"));
    CKrProperty * const first = set.CreateProperty(OLESTR("y"), OLESTR("b"));
    set.CreateProperty(OLESTR("y"), OLESTR("c"));
    AddCounted(*first, OLESTR("deep"));
    EXPECT_EQ(set.GetPropertyByPropName(OLESTR("y")), first);
    EXPECT_EQ(set.GetPropertyByPropName(OLESTR("deep")), nullptr);
    EXPECT_EQ(set.GetPropertyByPropName(OLESTR("a")), nullptr); // a category is no property
}

TEST(CKrPropertySet, DeletesTheFirstOfANameAndRefusesOnlyMissingCategories)
{
    CKrPropertySet set;
    for (WCHAR const * const name : {OLESTR("x"), OLESTR("y"), OLESTR("x")})
        set.AddProperty(new CountedProperty(name), s_none);
    EXPECT_TRUE(set.DeleteProperty(OLESTR("x"), s_none));
    EXPECT_EQ(TreeOfSet(set), OLESTR("(_KRPROPDEFCAT_(y x))"));
    EXPECT_EQ(CountedProperty::Living(), 2);
    EXPECT_TRUE(set.DeleteProperty(OLESTR("none"), s_none));
    EXPECT_FALSE(set.DeleteProperty(OLESTR("x"), OLESTR("none")));
    EXPECT_EQ(CountedProperty::Living(), 2);
}

TEST(CKrPropertySet, DeletesEverything)
{
    CKrPropertySet set;
    set.AddProperty(new CountedProperty(OLESTR("x")), OLESTR("a"));
    set.CreateCategory(OLESTR("b"));
    EXPECT_TRUE(set.DeleteProperties());
    EXPECT_EQ(CountedProperty::Living(), 0);
    EXPECT_TRUE(set.IsEmpty());
    EXPECT_TRUE(set.DeleteProperties());
}

TEST(CKrPropertySet, IsNotEmptyWithAnEmptyCategory)
{
    CKrPropertySet set;
    set.CreateCategory(OLESTR("a"));
    EXPECT_FALSE(set.IsEmpty());
}

TEST(CKrPropertySet, SortsOneCategoryOrAllByDescription)
{
    auto const fill = [](CKrPropertySet & set)
    {
        for (WCHAR const * const category : {OLESTR("b"), OLESTR(""), OLESTR("a")})
        {
            AddCounted(*set.CreateProperty(OLESTR("y"), category), OLESTR("2"));
            AddCounted(*set.GetProperty(OLESTR("y"), category), OLESTR("1"));
            set.CreateProperty(OLESTR("x"), category);
        }
    };
    CKrPropertySet all, one, defaultOne;
    fill(all);
    EXPECT_TRUE(all.AlphabeticSortProperties(s_none)); // not the default category
    EXPECT_EQ(TreeOfSet(all), OLESTR("(b(x y(2 1)) _KRPROPDEFCAT_(x y(2 1)) a(x y(2 1)))"));
    fill(one);
    EXPECT_TRUE(one.AlphabeticSortProperties(OLESTR("a")));
    EXPECT_EQ(TreeOfSet(one), OLESTR("(b(y(2 1) x) _KRPROPDEFCAT_(y(2 1) x) a(x y(2 1)))"));
    fill(defaultOne);
    EXPECT_TRUE(defaultOne.AlphabeticSortProperties(s_default));
    EXPECT_EQ(TreeOfSet(defaultOne), OLESTR("(b(y(2 1) x) _KRPROPDEFCAT_(x y(2 1)) a(y(2 1) x))"));
    EXPECT_FALSE(one.AlphabeticSortProperties(OLESTR("A")));
    EXPECT_TRUE(CKrPropertySet().AlphabeticSortProperties(s_none));
}

TEST(CKrPropertySet, IsCopiedWithNewNodesThroughout)
{
    {
        CKrPropertySet set;
        set.AddProperty(new CountedProperty(OLESTR("x")), OLESTR("a"));
        CKrPropertySet copy(set), assigned;
        assigned.AddProperty(new CountedProperty(OLESTR("old")), OLESTR("b"));
        assigned = set;
        EXPECT_EQ(TreeOfSet(copy), OLESTR("(a(x))"));
        EXPECT_EQ(TreeOfSet(assigned), OLESTR("(a(x))"));
        EXPECT_EQ(CountedProperty::Living(), 3);
        copy.DeleteProperties();
        EXPECT_EQ(TreeOfSet(set), OLESTR("(a(x))"));
        ExpectLinked(assigned.GetRootProperty());
    }
    EXPECT_EQ(CountedProperty::Living(), 0);
}

TEST(CKrPropertySet, AssignedToItselfStaysAsItIs)
{
    CKrPropertySet set;
    CKrProperty const * const property = set.CreateProperty(OLESTR("x"), OLESTR("a"));
    CKrPropertySet const & self = set;
    set = self;
    EXPECT_EQ(set.GetProperty(OLESTR("x"), OLESTR("a")), property);
}

TEST(CKrPropertySet, EqualsALargerSetButNotASmallerOne)
{
    CKrPropertySet small;
    small.CreateProperty(OLESTR("x"), OLESTR("a"));
    small.CreateProperty(OLESTR("y"), OLESTR("a"));
    CKrPropertySet large(small);
    EXPECT_TRUE(small.IsEqual(large));
    EXPECT_TRUE(large.IsEqual(small));
    large.CreateProperty(OLESTR("z"), OLESTR("a"));
    large.CreateCategory(OLESTR("b"));
    EXPECT_TRUE(small.IsEqual(large));
    EXPECT_FALSE(large.IsEqual(small));
    large.GetCategory(OLESTR("a"))->ShiftSubProperty(0, 2);
    EXPECT_TRUE(small.IsEqual(large)); // in any order
    large.GetProperty(OLESTR("y"), OLESTR("a"))->SetString(OLESTR("other"));
    EXPECT_FALSE(small.IsEqual(large));
    EXPECT_TRUE(CKrPropertySet().IsEqual(large));
}

TEST(CKrPropertySet, EqualsItselfAlsoWithSeveralOfAName)
{
    CKrPropertySet set;
    set.CreateProperty(OLESTR("x"), OLESTR("a"))->SetInt(1);
    set.CreateProperty(OLESTR("x"), OLESTR("a"))->SetInt(2);
    EXPECT_TRUE(set.IsEqual(set));
    EXPECT_FALSE(set.IsEqual(CKrPropertySet(set))); // each of a name is compared with the first
}

TEST(CKrPropertySet, TakesValuesOverByNameAndCreatesNothing)
{
    CKrPropertySet target, source;
    CKrProperty * const x = target.CreateProperty(OLESTR("x"), OLESTR("a"));
    CKrProperty * const own = target.CreateProperty(OLESTR("own"), OLESTR("a"));
    x->SetModified(true);
    source.CreateProperty(OLESTR("new"), OLESTR("b"));
    source.CreateProperty(OLESTR("new"), OLESTR("a"));
    source.CreateProperty(OLESTR("x"), OLESTR("a"))->SetInt(5);
    EXPECT_TRUE(target.ChangeValues(source));
    EXPECT_EQ(TreeOfSet(target), OLESTR("(a(x own))"));
    EXPECT_EQ(x->GetInt(), 5);
    EXPECT_EQ(own->GetString(), OLESTR(""));
    EXPECT_TRUE(x->IsModified());
    EXPECT_FALSE(own->IsModified());
    EXPECT_TRUE(target.ChangeValues(target));
}

TEST(CKrPropertySet, TakesNoValuesFromARootOfAnotherName)
{
    CKrPropertySet target, source;
    target.CreateProperty(OLESTR("x"), OLESTR("a"));
    source.CreateProperty(OLESTR("x"), OLESTR("a"))->SetInt(5);
    source.GetRootProperty().SetName(OLESTR("root"));
    EXPECT_FALSE(target.ChangeValues(source));
    EXPECT_TRUE(target.GetProperty(OLESTR("x"), OLESTR("a"))->GetValue().IsString());
}

TEST(CKrPropertySet, IsVisitedWithItsRootAndItsCategories)
{
    CKrPropertySet set;
    set.CreateProperty(OLESTR("x"), OLESTR("a"));
    set.CreateProperty(OLESTR("end"), OLESTR("b"));
    set.CreateCategory(OLESTR("c"));
    NameCollector collector;
    EXPECT_FALSE(set.Visit(collector));
    EXPECT_EQ(collector.names, OLESTR("[][a][x][b][end]"));
    NameCollector whole;
    set.DeleteProperty(OLESTR("end"), OLESTR("b"));
    EXPECT_TRUE(set.Visit(whole));
    EXPECT_EQ(whole.names, OLESTR("[][a][x][b][c]"));
}

TEST(CKrPropertySet, AddsItsLocationToWhatIsThrownInsideItsGuardedOperations)
{
    CKrPropertySet set;
    set.CreateProperty(OLESTR("x"), OLESTR("a"));
    Thrower thrower;
    EXPECT_EQ(MessageOf([&] { set.Visit(thrower); }), OLESTR("UNKNOWN_EXCEPTION\n\nkrpropertyset(553): "));
    EXPECT_EQ(MessageOf(
                  [&]
                  {
                      FailNthAllocation const fail(1);
                      set.AlphabeticSortCategories();
                  }),
              OLESTR("STL_EXCEPTION::std::bad_alloc\n\nkrpropertyset(567): "));
    for (WCHAR const * const category : {OLESTR(""), OLESTR("a")})
    {
        CString const name = category;
        EXPECT_EQ(MessageOf(
                      [&]
                      {
                          FailNthAllocation const fail(1);
                          set.AlphabeticSortProperties(name);
                      }),
                  OLESTR("STL_EXCEPTION::std::bad_alloc\n\nkrpropertyset(594): "));
    }
}
