#include <krcore/property/krpropertyset.h>

#include "tests/property/counted_property.h"

#include <gtest/gtest.h>

#include <limits>

using kr::test::CountedProperty;
using kr::test::ExpectLinked;
using kr::test::TreeOf;

namespace
{

CString const s_none;
WCHAR const * const s_default = OLESTR("_KRPROPDEFCAT_");

CString TreeOfSet(CKrPropertySet const & set) { return TreeOf(set.GetRootProperty()); }

/// Categories a, b, c.
void AddCategories(CKrPropertySet & set)
{
    set.CreateCategory(OLESTR("a"));
    set.CreateCategory(OLESTR("b"));
    set.CreateCategory(OLESTR("c"));
}

} // namespace

TEST(CKrPropertySetCategories, AreNodesOfNoTypeUnderTheRoot)
{
    CKrPropertySet set;
    CKrProperty * const category = set.CreateCategory(OLESTR("a"), OLESTR("text"), false);
    ASSERT_NE(category, nullptr);
    EXPECT_EQ(category->GetName(), OLESTR("a"));
    EXPECT_EQ(category->GetDescription(), OLESTR("text"));
    EXPECT_EQ(category->GetType(), CKrProperty::ePropNone);
    EXPECT_EQ(category->GetValue().GetType(), CKrVariant::eInvalid);
    EXPECT_FALSE(category->IsVisible());
    EXPECT_TRUE(category->IsEnabled());
    EXPECT_EQ(category->GetParentProperty(), &set.GetRootProperty());
    EXPECT_EQ(category->GetLevel(), 1);
    EXPECT_TRUE(set.CreateCategory(OLESTR("b"), OLESTR("text"), true)->IsVisible());
}

TEST(CKrPropertySetCategories, HaveTheirNameAsDescriptionAndAreVisibleWhereNothingElseIsSaid)
{
    CKrPropertySet set;
    CKrProperty const * const category = set.CreateCategory(OLESTR("a"));
    EXPECT_EQ(category->GetDescription(), OLESTR("a"));
    EXPECT_TRUE(category->IsVisible());
    EXPECT_EQ(set.CreateCategory(OLESTR("b"), s_none, true)->GetDescription(), OLESTR("b"));
}

TEST(CKrPropertySetCategories, StayAsTheyAreWhenTheyAreCreatedAgain)
{
    CKrPropertySet set;
    CKrProperty * const category = set.CreateCategory(OLESTR("a"), OLESTR("text"), false);
    EXPECT_EQ(set.CreateCategory(OLESTR("a"), OLESTR("other"), true), category);
    EXPECT_EQ(set.CreateCategory(OLESTR("a")), category);
    EXPECT_EQ(category->GetDescription(), OLESTR("text"));
    EXPECT_FALSE(category->IsVisible());
    EXPECT_EQ(set.GetCountCategories(), 1u);
    EXPECT_NE(set.CreateCategory(OLESTR("A")), category); // case counts
    EXPECT_EQ(set.GetCountCategories(), 2u);
}

TEST(CKrPropertySetCategories, WithAnEmptyNameAreTheDefaultCategory)
{
    CKrPropertySet set;
    EXPECT_FALSE(set.HasCategory(s_none));
    CKrProperty * const category = set.CreateCategory(s_none);
    EXPECT_EQ(category->GetName(), s_default);
    EXPECT_EQ(category->GetDescription(), s_default);
    EXPECT_EQ(set.CreateCategory(s_default), category);
    EXPECT_EQ(set.GetCategoryName(0), s_default);
    EXPECT_TRUE(set.HasCategory(s_none));
    EXPECT_TRUE(set.HasCategory(s_default));
    EXPECT_EQ(set.GetCategory(s_none), category);
    EXPECT_EQ(set.FindCategoryIndex(s_none), 0);
    EXPECT_TRUE(set.IsCategoryVisible(s_none));
    set.SetCategoryVisisble(s_none, false);
    EXPECT_FALSE(category->IsVisible());
    set.SetCategoryDescription(s_none, OLESTR("text"));
    EXPECT_EQ(set.GetCategoryDescription(s_none), OLESTR("text"));
    set.DeleteCategory(s_none);
    EXPECT_TRUE(set.IsEmpty());
}

TEST(CKrPropertySetCategories, OfTheDefaultNameMayHaveADescription)
{
    CKrPropertySet set;
    EXPECT_EQ(set.CreateCategory(s_none, OLESTR("General"), true)->GetDescription(), OLESTR("General"));
}

TEST(CKrPropertySetCategories, AreFoundByNameAndIndex)
{
    CKrPropertySet set;
    AddCategories(set);
    EXPECT_EQ(set.GetCountCategories(), 3u);
    EXPECT_EQ(set.GetCategory(OLESTR("b")), set.GetCategoryAt(1));
    EXPECT_EQ(set.FindCategoryIndex(OLESTR("b")), 1);
    EXPECT_EQ(set.GetCategoryName(2), OLESTR("c"));
    EXPECT_EQ(set.GetCategoryDescription(OLESTR("c")), OLESTR("c"));
    EXPECT_TRUE(set.HasCategory(OLESTR("a")));
}

TEST(CKrPropertySetCategories, ThatAreMissingHaveAQuietResultAndAreNotMade)
{
    CKrPropertySet set;
    AddCategories(set);
    CString const missing = OLESTR("B");
    EXPECT_FALSE(set.HasCategory(missing));
    EXPECT_EQ(set.GetCategory(missing), nullptr);
    EXPECT_EQ(set.GetCategoryAt(3), nullptr);
    EXPECT_EQ(set.GetCategoryAt(std::numeric_limits<unsigned int>::max()), nullptr);
    EXPECT_EQ(set.FindCategoryIndex(missing), -1);
    EXPECT_EQ(set.GetCategoryName(3), OLESTR(""));
    EXPECT_EQ(set.GetCategoryDescription(missing), OLESTR(""));
    EXPECT_FALSE(set.IsCategoryVisible(missing));
    set.SetCategoryDescription(missing, OLESTR("text"));
    set.SetCategoryVisisble(missing, true);
    set.DeleteCategory(missing);
    EXPECT_FALSE(set.MoveCategory(missing, 0));
    EXPECT_FALSE(set.AlphabeticSortProperties(missing));
    EXPECT_EQ(TreeOfSet(set), OLESTR("(a b c)"));
}

TEST(CKrPropertySetCategories, AreHiddenWithoutTheirProperties)
{
    CKrPropertySet set;
    CKrProperty const * const property = set.CreateProperty(OLESTR("x"), OLESTR("a"));
    set.SetCategoryVisisble(OLESTR("a"), false);
    EXPECT_FALSE(set.IsCategoryVisible(OLESTR("a")));
    EXPECT_TRUE(property->IsVisible());
    set.SetCategoryVisisble(OLESTR("a"), true);
    EXPECT_TRUE(set.IsCategoryVisible(OLESTR("a")));
}

TEST(CKrPropertySetCategories, AreDeletedWithAllThatTheyHold)
{
    CKrPropertySet set;
    AddCategories(set);
    set.AddProperty(new CountedProperty(OLESTR("x")), OLESTR("b"));
    EXPECT_EQ(CountedProperty::Living(), 1);
    set.DeleteCategory(OLESTR("b"));
    EXPECT_EQ(CountedProperty::Living(), 0);
    EXPECT_EQ(TreeOfSet(set), OLESTR("(a c)"));
}

TEST(CKrPropertySetCategories, MoveToAPlaceInTheListWithoutThem)
{
    // clang-format off
    struct Row { WCHAR const * name; unsigned int index; WCHAR const * tree; };
    Row const rows[] = {
        { OLESTR("a"), 0,  OLESTR("(a b c)") },
        { OLESTR("a"), 1,  OLESTR("(b a c)") },
        { OLESTR("a"), 2,  OLESTR("(b c a)") },   // past the end of the other two
        { OLESTR("a"), 9,  OLESTR("(b c a)") },
        { OLESTR("c"), 0,  OLESTR("(c a b)") },
        { OLESTR("b"), std::numeric_limits<unsigned int>::max(), OLESTR("(a c b)") },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(testing::Message() << row.index);
        CKrPropertySet set;
        AddCategories(set);
        CKrProperty const * const category = set.GetCategory(row.name);
        EXPECT_TRUE(set.MoveCategory(row.name, row.index));
        EXPECT_EQ(TreeOfSet(set), row.tree);
        EXPECT_EQ(set.GetCategory(row.name), category);
        ExpectLinked(set.GetRootProperty());
    }
}

TEST(CKrPropertySetCategories, OfTheDefaultNameMoveByTheirFullNameOnly)
{
    CKrPropertySet set;
    set.CreateCategory(OLESTR("a"));
    set.CreateCategory(s_none);
    EXPECT_FALSE(set.MoveCategory(s_none, 0));
    EXPECT_EQ(TreeOfSet(set), OLESTR("(a _KRPROPDEFCAT_)"));
    EXPECT_TRUE(set.MoveCategory(s_default, 0));
    EXPECT_EQ(TreeOfSet(set), OLESTR("(_KRPROPDEFCAT_ a)"));
}

TEST(CKrPropertySetCategories, AreSortedByDescriptionOrName)
{
    CKrPropertySet set;
    set.CreateCategory(OLESTR("n1"), OLESTR("z"), true);
    set.CreateCategory(OLESTR("n2"), OLESTR("b"), true);
    set.CreateCategory(OLESTR("m"))->SetDescription(s_none);
    set.CreateCategory(OLESTR("n3"), OLESTR("Z"), true);
    set.CreateProperty(OLESTR("y"), OLESTR("n2"));
    set.CreateProperty(OLESTR("x"), OLESTR("n2"));
    EXPECT_TRUE(set.AlphabeticSortCategories());
    EXPECT_EQ(TreeOfSet(set), OLESTR("(n3 n2(y x) m n1)"));
    EXPECT_TRUE(CKrPropertySet().AlphabeticSortCategories());
}
