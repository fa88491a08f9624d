// Categories of the older sets. They are reached through the set alone.
#include <krcore/property/krpropertysetold.h>

#include "tests/property/counted_property_old.h"
#include "tests/property/guarded_failures.h"
#include "tests/support/memory_failure.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

using kr::test::CountedPropertyOld;
using kr::test::FailUntilItPasses;
using kr::test::Narrow;

namespace
{

CString const s_none;
WCHAR const * const s_default = OLESTR("_KRPROPDEFCAT_");

/// Categories of those one-letter names.
CKrPropertySetOld MakeSet(CString const & names)
{
    CKrPropertySetOld set;
    for (int index = 0; index < names.GetLength(); ++index)
        set.CreateCategory(names.Mid(index, 1));
    return set;
}

CString CategoriesOf(CKrPropertySetOld const & set)
{
    CString names;
    for (unsigned int index = 0; index < set.GetCountCategories(); ++index)
        names += set.GetCategoryName(index);
    return names;
}

} // namespace

TEST(CKrPropertyCategory, IsCreatedOnceWithWhatIsSaid)
{
    CKrPropertySetOld set;
    EXPECT_TRUE(set.CreateCategory(OLESTR("a"), OLESTR("text"), false));
    EXPECT_TRUE(set.CreateCategory(OLESTR("a"), OLESTR("other"), true)); // is there already
    EXPECT_TRUE(set.CreateCategory(OLESTR("A")));
    EXPECT_EQ(CategoriesOf(set), OLESTR("aA"));
    EXPECT_EQ(set.GetCategoryDescription(OLESTR("a")), OLESTR("text"));
    EXPECT_FALSE(set.IsCategoryVisible(OLESTR("a")));
    EXPECT_EQ(set.GetCategoryDescription(OLESTR("A")), OLESTR("A"));
    EXPECT_TRUE(set.IsCategoryVisible(OLESTR("A")));
}

TEST(CKrPropertyCategory, KeepsAnEmptyDescription)
{
    CKrPropertySetOld set;
    set.CreateCategory(OLESTR("a"), s_none, true);
    EXPECT_TRUE(set.GetCategoryDescription(OLESTR("a")).IsEmpty());
    set.CreateCategory(s_none);
    EXPECT_TRUE(set.GetCategoryDescription(s_none).IsEmpty());
}

TEST(CKrPropertyCategory, OfAnEmptyNameIsTheDefaultOne)
{
    CKrPropertySetOld set;
    EXPECT_FALSE(set.HasCategory(s_none));
    set.CreateCategory(s_none, OLESTR("text"), true);
    EXPECT_EQ(set.GetCategoryName(0), s_default);
    EXPECT_TRUE(set.HasCategory(s_none));
    EXPECT_TRUE(set.HasCategory(s_default));
    EXPECT_EQ(set.FindCategoryIndex(s_none), 0);
    EXPECT_EQ(set.GetCategoryDescription(s_default), OLESTR("text"));
    set.SetCategoryDescription(s_none, OLESTR("changed"));
    EXPECT_EQ(set.GetCategoryDescription(s_none), OLESTR("changed"));
    set.SetCategoryVisisble(s_none, false);
    EXPECT_FALSE(set.IsCategoryVisible(s_default));
    set.SetCategoryProperty(s_none, CKrPropertyOld(OLESTR("p"), s_none, true, true));
    EXPECT_NE(set.GetCategoryProperty(s_default), nullptr);
    set.DeleteCategory(s_none);
    EXPECT_TRUE(set.IsEmpty());
}

TEST(CKrPropertyCategory, ThatIsMissingChangesNothingAndReadsAsNothing)
{
    CKrPropertySetOld set = MakeSet(OLESTR("a"));
    CString const missing(OLESTR("A"));
    set.SetCategoryDescription(missing, OLESTR("x"));
    set.SetCategoryVisisble(missing, true);
    set.SetCategoryProperty(missing, CKrPropertyOld());
    set.DeleteCategory(missing);
    EXPECT_EQ(CategoriesOf(set), OLESTR("a"));
    EXPECT_FALSE(set.HasCategory(missing));
    EXPECT_EQ(set.FindCategoryIndex(missing), -1);
    EXPECT_TRUE(set.GetCategoryDescription(missing).IsEmpty());
    EXPECT_FALSE(set.IsCategoryVisible(missing));
    EXPECT_EQ(set.GetCategoryProperty(missing), nullptr);
    EXPECT_EQ(set.GetCountProperties(missing), 0u);
    EXPECT_TRUE(set.GetCategoryName(2).IsEmpty());
}

TEST(CKrPropertyCategory, HasOneMorePropertyOfItsOwn)
{
    CKrPropertySetOld set = MakeSet(OLESTR("a"));
    EXPECT_EQ(set.GetCategoryProperty(OLESTR("a")), nullptr);
    CKrPropertyOld property(OLESTR("p"), s_none, true, true);
    set.SetCategoryProperty(OLESTR("a"), property);
    property.SetName(OLESTR("changed")); // a copy is held
    ASSERT_NE(set.GetCategoryProperty(OLESTR("a")), nullptr);
    EXPECT_EQ(set.GetCategoryProperty(OLESTR("a"))->GetName(), OLESTR("p"));
    set.SetCategoryProperty(OLESTR("a"), property);
    EXPECT_EQ(set.GetCategoryProperty(OLESTR("a"))->GetName(), OLESTR("changed"));
    set.SetCategoryProperty(OLESTR("a"), *set.GetCategoryProperty(OLESTR("a")));
    EXPECT_EQ(set.GetCategoryProperty(OLESTR("a"))->GetName(), OLESTR("changed"));
    EXPECT_EQ(set.GetCountProperties(OLESTR("a")), 0u);
    EXPECT_EQ(set.GetPropertyByPropName(OLESTR("changed")), nullptr);
    CKrPropertySetOld const copy(set);
    EXPECT_NE(copy.GetCategoryProperty(OLESTR("a")), set.GetCategoryProperty(OLESTR("a")));
    EXPECT_EQ(copy.GetCategoryProperty(OLESTR("a"))->GetName(), OLESTR("changed"));
}

TEST(CKrPropertyCategory, IsDeletedWithItsPropertiesTheLastFirst)
{
    CKrPropertySetOld set = MakeSet(OLESTR("abc"));
    for (WCHAR const * const name : {OLESTR("1"), OLESTR("2"), OLESTR("3")})
        set.AddProperty(new CountedPropertyOld(name), OLESTR("b"));
    CountedPropertyOld::TakeEnded();
    set.DeleteCategory(OLESTR("b"));
    EXPECT_EQ(CategoriesOf(set), OLESTR("ac"));
    EXPECT_EQ(CountedPropertyOld::TakeEnded(), OLESTR("321"));
    EXPECT_EQ(CountedPropertyOld::Living(), 0);
}

TEST(CKrPropertyCategory, IsMovedToAPlaceInTheListWithoutIt)
{
    struct Row
    {
        WCHAR const * name;
        unsigned int index;
        bool result;
        WCHAR const * after;
    };
    // clang-format off
    Row const rows[] = {
        { OLESTR("a"), 0,          true,  OLESTR("abcd") },
        { OLESTR("a"), 1,          true,  OLESTR("bacd") },
        { OLESTR("a"), 3,          true,  OLESTR("bcda") },
        { OLESTR("d"), 0,          true,  OLESTR("dabc") },
        { OLESTR("c"), 1,          true,  OLESTR("acbd") },
        { OLESTR("a"), 4,          false, OLESTR("abcd") },
        { OLESTR("a"), 0xFFFFFFFF, false, OLESTR("abcd") },
        { OLESTR("A"), 0,          false, OLESTR("abcd") },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.after));
        CKrPropertySetOld set = MakeSet(OLESTR("abcd"));
        EXPECT_EQ(set.MoveCategory(row.name, row.index), row.result);
        EXPECT_EQ(CategoriesOf(set), row.after);
    }
    EXPECT_FALSE(CKrPropertySetOld().MoveCategory(OLESTR("a"), 0));
    EXPECT_FALSE(CKrPropertySetOld().MoveCategory(OLESTR("a"), 0xFFFFFFFF));
}

TEST(CKrPropertyCategory, OfTheDefaultNameIsMovedByAnEmptyName)
{
    CKrPropertySetOld set = MakeSet(OLESTR("a"));
    EXPECT_FALSE(set.MoveCategory(s_none, 0));
    set.CreateCategory(s_none);
    EXPECT_TRUE(set.MoveCategory(s_none, 0));
    EXPECT_EQ(set.GetCategoryName(0), s_default);
    EXPECT_EQ(set.GetCategoryName(1), OLESTR("a"));
}

TEST(CKrPropertyCategory, FailuresOfDeletingLeaveWithTheirLocation)
{
    std::size_t const failures = kr::test::FailEachAllocation(
        OLESTR("krpropertysetold(512): "),
        []
        {
            CKrPropertySetOld set;
            set.CreateCategory(s_none);
            return set;
        },
        [](CKrPropertySetOld & set) { set.DeleteCategory(s_none); },
        [](CKrPropertySetOld const & set) { EXPECT_EQ(set.GetCountCategories(), 1u); });
    EXPECT_GT(failures, 0u);

    CKrPropertySetOld set;
    kr::test::FailNthAllocation const fail(1);
    try
    {
        set.DeleteCategory(s_none);
        FAIL() << "nothing was thrown";
    }
    catch (CKrException const & exception)
    {
        EXPECT_EQ(
            exception.GetErrorMessage(true),
            OLESTR("MFC_EXCEPTION::Out of memory.\nRemoveCategory from CKrPropertySetOld\nkrpropertysetold(512): "));
    }
}

TEST(CKrPropertyCategory, StaysOutWhereMemoryRunsOut)
{
    CKrPropertySetOld set;
    CString const name(OLESTR("a"));
    CKrPropertyOld const property(OLESTR("a name that is copied"), OLESTR("text"), true, true);
    EXPECT_GT(FailUntilItPasses([&] { set.CreateCategory(name); }, [&] { EXPECT_TRUE(set.IsEmpty()); }), 1u);
    EXPECT_GT(FailUntilItPasses([&] { set.SetCategoryProperty(name, property); },
                                [&] { EXPECT_EQ(set.GetCategoryProperty(name), nullptr); }),
              1u);
}
