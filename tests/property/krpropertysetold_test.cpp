// Properties of the older sets and whole sets; categories stand in krpropertycategory_test.cpp.
#include <krcore/property/krpropertysetold.h>

#include "tests/property/counted_property_old.h"
#include "tests/support/memory_failure.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

using kr::test::CountedPropertyOld;
using kr::test::FailUntilItPasses;
using kr::test::Narrow;

namespace
{

CString const s_none;
CString const s_category(OLESTR("a"));
WCHAR const * const s_default = OLESTR("_KRPROPDEFCAT_");

CString NamesOf(CKrPropertySetOld const & set, CString const & category)
{
    CString names;
    for (unsigned int index = 0; index < set.GetCountProperties(category); ++index)
        names += set.GetPropertyAt(index, category)->GetName();
    return names;
}

/// Counted properties of those one-letter names in the category "a".
CKrPropertySetOld MakeSet(CString const & names)
{
    CKrPropertySetOld set;
    for (int index = 0; index < names.GetLength(); ++index)
        set.AddProperty(new CountedPropertyOld(names.Mid(index, 1)), s_category);
    CountedPropertyOld::TakeEnded();
    return set;
}

CKrPropertyOld * AddInt(CKrPropertySetOld & set, CString const & name, CString const & category, int value)
{
    CKrPropertyOld * const property = set.CreateProperty(name, category);
    property->SetInt(value);
    return property;
}

} // namespace

static_assert(std::has_virtual_destructor_v<CKrPropertySetOld>);

TEST(CKrPropertySetOld, StartsWithoutCategories)
{
    CKrPropertySetOld const set;
    EXPECT_TRUE(set.IsEmpty());
    EXPECT_EQ(set.GetCountCategories(), 0u);
    EXPECT_EQ(set.GetPropertyByPropName(s_none), nullptr);
}

TEST(CKrPropertySetOld, AnEmptyCategoryIsNotNothing)
{
    CKrPropertySetOld set;
    set.CreateCategory(s_category);
    EXPECT_FALSE(set.IsEmpty());
}

TEST(CKrPropertySetOldCreate, ANamelessPropertyNeedsItsCategory)
{
    CKrPropertySetOld set;
    EXPECT_EQ(set.CreateProperty(s_category), nullptr);
    EXPECT_EQ(set.CreateProperty(s_none), nullptr);
    EXPECT_TRUE(set.IsEmpty());
    set.CreateCategory(s_category);
    CKrPropertyOld * const property = set.CreateProperty(s_category);
    ASSERT_NE(property, nullptr);
    EXPECT_TRUE(property->GetName().IsEmpty());
    EXPECT_EQ(set.GetPropertyAt(0, s_category), property);
}

TEST(CKrPropertySetOldCreate, ANamedPropertyMakesItsCategoryWithoutADescription)
{
    CKrPropertySetOld set;
    CKrPropertyOld const * const edit = set.CreateProperty(OLESTR("x"), s_category);
    CKrPropertyOld const * const memo = set.CreateProperty(OLESTR("y"), CKrAssCtrlOld::eMemoCtrl, s_none);
    EXPECT_EQ(edit->GetCtrlType(), CKrAssCtrlOld::eEditCtrl);
    EXPECT_EQ(memo->GetCtrlType(), CKrAssCtrlOld::eMemoCtrl);
    for (CKrPropertyOld const * const property : {edit, memo})
    {
        EXPECT_EQ(property->GetDescription(), property->GetName());
        EXPECT_EQ(property->GetType(), CKrAssCtrlOld::eObjString);
        EXPECT_TRUE(property->IsVisible());
        EXPECT_TRUE(property->GetItemCtrl()->IsEnabled());
    }
    EXPECT_EQ(set.GetProperty(OLESTR("x"), s_category), edit);
    EXPECT_EQ(set.GetProperty(OLESTR("y"), s_default), memo);
    EXPECT_TRUE(set.GetCategoryDescription(s_category).IsEmpty());
    EXPECT_TRUE(set.IsCategoryVisible(s_category));
    EXPECT_NE(set.CreateProperty(OLESTR("x"), s_category), edit); // one more of the name
    EXPECT_EQ(set.GetCountProperties(s_category), 2u);
    EXPECT_EQ(set.GetProperty(OLESTR("x"), s_category), edit);
}

TEST(CKrPropertySetOldAdd, TakesThePropertyAndMakesItsCategory)
{
    {
        CKrPropertySetOld set;
        EXPECT_FALSE(set.AddProperty(nullptr, s_category));
        EXPECT_FALSE(set.InsertProperty(0, nullptr, s_category));
        EXPECT_TRUE(set.IsEmpty());
        EXPECT_TRUE(set.AddProperty(new CountedPropertyOld(OLESTR("x")), s_category));
        EXPECT_TRUE(set.AddProperty(new CountedPropertyOld(OLESTR("y")), s_category));
        EXPECT_EQ(NamesOf(set, s_category), OLESTR("xy"));
        EXPECT_TRUE(set.GetCategoryDescription(s_category).IsEmpty());
        EXPECT_TRUE(set.IsCategoryVisible(s_category));
        EXPECT_EQ(CountedPropertyOld::Living(), 2);
    }
    EXPECT_EQ(CountedPropertyOld::Living(), 0);
}

TEST(CKrPropertySetOldInsert, PutsThePropertyInFrontOfAnIndexAndBehindTheLast)
{
    CKrPropertySetOld set = MakeSet(OLESTR("xy"));
    EXPECT_TRUE(set.InsertProperty(0, new CountedPropertyOld(OLESTR("1")), s_category));
    EXPECT_TRUE(set.InsertProperty(2, new CountedPropertyOld(OLESTR("2")), s_category));
    EXPECT_TRUE(set.InsertProperty(4, new CountedPropertyOld(OLESTR("3")), s_category));
    EXPECT_EQ(NamesOf(set, s_category), OLESTR("1x2y3"));
}

TEST(CKrPropertySetOldInsert, AnIndexBehindTheEndIsTrueAndLeavesThePropertyToTheCaller)
{
    CKrPropertySetOld set = MakeSet(OLESTR("x"));
    std::unique_ptr<CKrPropertyOld> const property = std::make_unique<CountedPropertyOld>(OLESTR("y"));
    EXPECT_TRUE(set.InsertProperty(2, property.get(), s_category));
    EXPECT_TRUE(set.InsertProperty(1, property.get(), OLESTR("new")));
    EXPECT_EQ(NamesOf(set, s_category), OLESTR("x"));
    EXPECT_TRUE(set.HasCategory(OLESTR("new"))); // which is made first
    EXPECT_EQ(set.GetCountProperties(OLESTR("new")), 0u);
    EXPECT_EQ(property->GetName(), OLESTR("y"));
    EXPECT_EQ(CountedPropertyOld::TakeEnded(), s_none);
}

TEST(CKrPropertySetOldFind, GoesByNameWithCaseAndFindsTheFirst)
{
    CKrPropertySetOld set = MakeSet(OLESTR("xyx"));
    CKrPropertyOld * const other = set.CreateProperty(OLESTR("z"), OLESTR("b"));
    set.CreateProperty(OLESTR("y"), OLESTR("b"));
    EXPECT_EQ(set.GetProperty(OLESTR("x"), s_category), set.GetPropertyAt(0, s_category));
    EXPECT_EQ(set.FindPropertyIndex(OLESTR("y"), s_category), 1);
    EXPECT_EQ(set.FindPropertyIndex(OLESTR("x"), s_category), 0);
    EXPECT_EQ(set.FindPropertyIndex(OLESTR("X"), s_category), -1);
    EXPECT_EQ(set.FindPropertyIndex(OLESTR("x"), OLESTR("A")), -1);
    EXPECT_EQ(set.GetProperty(OLESTR("z"), s_category), nullptr);
    EXPECT_EQ(set.GetProperty(OLESTR("x"), OLESTR("A")), nullptr);
    EXPECT_EQ(set.GetPropertyAt(3, s_category), nullptr);
    EXPECT_EQ(set.GetPropertyAt(0, OLESTR("A")), nullptr);
    EXPECT_EQ(set.GetPropertyByPropName(OLESTR("z")), other);
    EXPECT_EQ(set.GetPropertyByPropName(OLESTR("y")), set.GetPropertyAt(1, s_category));
    EXPECT_EQ(set.GetPropertyByPropName(OLESTR("Z")), nullptr);
}

TEST(CKrPropertySetOldFind, GoesByTheNameThatTheAssociationHasNow)
{
    CKrPropertySetOld set = MakeSet(OLESTR("x"));
    set.GetPropertyAt(0, s_category)->GetItemCtrl()->SetObjName(OLESTR("y"));
    EXPECT_EQ(set.GetProperty(OLESTR("x"), s_category), nullptr);
    EXPECT_NE(set.GetProperty(OLESTR("y"), s_category), nullptr);
}

TEST(CKrPropertySetOldDelete, SkipsTheSecondOfTwoNeighboursAndTakesOneFurtherOn)
{
    struct Row
    {
        WCHAR const * before;
        WCHAR const * after;
        WCHAR const * ended;
    };
    // clang-format off
    Row const rows[] = {
        { OLESTR("x"),      OLESTR(""),    OLESTR("x")   },
        { OLESTR("abx"),    OLESTR("ab"),  OLESTR("x")   },
        { OLESTR("ab"),     OLESTR("ab"),  OLESTR("")    },
        { OLESTR("xx"),     OLESTR("x"),   OLESTR("x")   },
        { OLESTR("xxx"),    OLESTR("x"),   OLESTR("xx")  },
        { OLESTR("axxbx"),  OLESTR("axb"), OLESTR("xx")  },
        { OLESTR("xaxbxx"), OLESTR("abx"), OLESTR("xxx") },
        { OLESTR("X"),      OLESTR("X"),   OLESTR("")    },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.before));
        CKrPropertySetOld set = MakeSet(row.before);
        EXPECT_TRUE(set.DeleteProperty(OLESTR("x"), s_category));
        EXPECT_EQ(NamesOf(set, s_category), row.after);
        EXPECT_EQ(CountedPropertyOld::TakeEnded(), row.ended);
        EXPECT_FALSE(set.DeleteProperty(OLESTR("x"), OLESTR("A")));
    }
}

TEST(CKrPropertySetOldDelete, TakesTheNameOfThePropertyThatGoes)
{
    CKrPropertySetOld set = MakeSet(OLESTR("xax"));
    set.DeleteProperty(set.GetPropertyAt(0, s_category)->GetItemCtrl()->GetObjName(), s_category);
    EXPECT_EQ(NamesOf(set, s_category), OLESTR("a"));
}

TEST(CKrPropertySetOldDelete, TakesAllCategoriesWithTheirProperties)
{
    CKrPropertySetOld set = MakeSet(OLESTR("xy"));
    EXPECT_TRUE(set.DeleteProperties());
    EXPECT_TRUE(set.IsEmpty());
    EXPECT_EQ(CountedPropertyOld::Living(), 0);
    EXPECT_TRUE(set.DeleteProperties());
}

TEST(CKrPropertySetOldCopy, IsDeep)
{
    CKrPropertySetOld set = MakeSet(OLESTR("xy"));
    set.SetCategoryVisisble(s_category, false);
    CKrPropertySetOld const copy(set);
    CKrPropertySetOld assigned = MakeSet(OLESTR("z"));
    assigned.CreateCategory(OLESTR("old"));
    EXPECT_EQ(&(assigned = set), &assigned);
    set.GetPropertyAt(0, s_category)->SetName(OLESTR("changed"));
    for (CKrPropertySetOld const * const other : {&copy, static_cast<CKrPropertySetOld const *>(&assigned)})
    {
        EXPECT_EQ(other->GetCountCategories(), 1u);
        EXPECT_EQ(NamesOf(*other, s_category), OLESTR("xy"));
        EXPECT_FALSE(other->IsCategoryVisible(s_category));
    }
    EXPECT_EQ(CountedPropertyOld::TakeEnded(), OLESTR("z"));
    CKrPropertyOld const * const property = assigned.GetPropertyAt(0, s_category);
    CKrPropertySetOld const & self = assigned;
    assigned = self;
    EXPECT_EQ(assigned.GetPropertyAt(0, s_category), property);
}

TEST(CKrPropertySetOldCompare, AsksForWhatTheOtherHasAndIgnoresTheRest)
{
    CKrPropertySetOld smaller;
    AddInt(smaller, OLESTR("x"), s_category, 1);
    CKrPropertySetOld larger(smaller);
    AddInt(larger, OLESTR("y"), s_category, 2);
    EXPECT_TRUE(larger.IsEqual(smaller));
    EXPECT_FALSE(smaller.IsEqual(larger)); // for want of a property
    CKrPropertySetOld wider(smaller);
    wider.CreateCategory(OLESTR("b"));
    EXPECT_TRUE(wider.IsEqual(smaller));
    EXPECT_FALSE(smaller.IsEqual(wider)); // for want of a category
    EXPECT_TRUE(smaller.IsEqual(smaller));
    EXPECT_TRUE(smaller.IsEqual(CKrPropertySetOld()));
}

TEST(CKrPropertySetOldCompare, ComparesPropertiesByControlTypeNameAndText)
{
    CKrPropertySetOld one;
    AddInt(one, OLESTR("x"), s_category, 1);
    CKrPropertySetOld other(one);
    other.GetPropertyByPropName(OLESTR("x"))->SetString(OLESTR("1"));
    other.SetCategoryDescription(s_category, OLESTR("changed"));
    EXPECT_TRUE(one.IsEqual(other));
    other.GetPropertyByPropName(OLESTR("x"))->SetInt(2);
    EXPECT_FALSE(one.IsEqual(other));
    CKrPropertySetOld elsewhere;
    AddInt(elsewhere, OLESTR("x"), OLESTR("b"), 1);
    elsewhere.CreateCategory(s_category);
    EXPECT_FALSE(one.IsEqual(elsewhere));
    CKrPropertySetOld empty;
    empty.CreateCategory(OLESTR("c"));
    EXPECT_FALSE(one.IsEqual(empty));
}

TEST(CKrPropertySetOldChange, TakesValuesAndStateOfWhatBothHave)
{
    CKrPropertySetOld target;
    AddInt(target, OLESTR("x"), s_category, 1)->AddSubProperty(new CKrPropertyOld(OLESTR("s"), s_none, true, true));
    AddInt(target, OLESTR("own"), s_category, 2);
    AddInt(target, OLESTR("x"), OLESTR("own"), 3);
    CKrPropertySetOld source;
    CKrPropertyOld * const changed = AddInt(source, OLESTR("x"), s_category, 9);
    changed->SetVisible(false);
    changed->GetItemCtrl()->SetEnabled(false);
    changed->SetDescription(OLESTR("not taken"));
    changed->SetModified(true);
    changed->AddSubProperty(new CKrPropertyOld(OLESTR("s"), s_none, true, true));
    changed->GetSubPropertyAt(0)->SetInt(4);
    AddInt(source, OLESTR("theirs"), s_category, 5);
    AddInt(source, OLESTR("x"), OLESTR("theirs"), 6);
    source.SetCategoryVisisble(s_category, false);
    source.SetCategoryDescription(s_category, OLESTR("not taken"));

    EXPECT_TRUE(target.ChangeValues(source));
    CKrPropertyOld const * const property = target.GetProperty(OLESTR("x"), s_category);
    EXPECT_EQ(property->GetInt(), 9);
    EXPECT_FALSE(property->IsVisible());
    EXPECT_FALSE(property->GetItemCtrl()->IsEnabled());
    EXPECT_EQ(property->GetDescription(), OLESTR("x"));
    EXPECT_FALSE(property->IsModified());
    EXPECT_EQ(property->GetSubPropertyAt(0)->GetValue().GetType(), CKrVariant::eInvalid);
    EXPECT_FALSE(target.IsCategoryVisible(s_category));
    EXPECT_TRUE(target.GetCategoryDescription(s_category).IsEmpty());
    EXPECT_EQ(target.GetProperty(OLESTR("own"), s_category)->GetInt(), 2);
    EXPECT_EQ(target.GetProperty(OLESTR("x"), OLESTR("own"))->GetInt(), 3);
    EXPECT_EQ(target.GetProperty(OLESTR("theirs"), s_category), nullptr);
    EXPECT_FALSE(target.HasCategory(OLESTR("theirs")));
    EXPECT_TRUE(target.ChangeValues(target));
}

TEST(CKrPropertySetOldMemory, LeavesTheSetAsItWasAndFreesTheProperty)
{
    CKrPropertySetOld set;
    for (std::size_t n = 1; set.IsEmpty(); ++n)
    {
        CKrPropertyOld * const property = new CountedPropertyOld(OLESTR("x"));
        std::size_t living = 1;
        try
        {
            kr::test::FailNthAllocation const fail(n);
            set.AddProperty(property, s_category);
        }
        catch (...)
        {
            kr::test::ExpectWantOfMemory();
            living = 0;
            EXPECT_TRUE(set.IsEmpty());
        }
        EXPECT_EQ(CountedPropertyOld::Living(), static_cast<int>(living)) << n;
    }
    auto const isUnchanged = [&set] { EXPECT_EQ(NamesOf(set, s_category), OLESTR("x")); };
    CKrPropertySetOld other;
    other.CreateProperty(OLESTR("y"), OLESTR("b"));
    EXPECT_GT(FailUntilItPasses([&] { set = other; }, isUnchanged), 2u);
    CString const name(OLESTR("z"));
    EXPECT_GT(
        FailUntilItPasses([&] { set.CreateProperty(name, s_none); }, [&] { EXPECT_EQ(set.GetCountCategories(), 1u); }),
        2u);
}
