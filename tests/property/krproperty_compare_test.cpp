#include <krcore/property/krproperty.h>

#include "tests/property/counted_property.h"
#include "tests/support/failing_allocator.h"

#include <gtest/gtest.h>

#include <initializer_list>

using kr::test::AddCounted;
using kr::test::AllAllocations;
using kr::test::TreeOf;

namespace
{

CKrProperty Make()
{
    return CKrProperty(OLESTR("name"), OLESTR("description"), CKrProperty::ePropInt, CKrVariant(5), true, true);
}

/// A root "r" with integers of these names; the values count up from `first`.
CKrProperty MakeTree(std::initializer_list<WCHAR const *> names, int first)
{
    CKrProperty root(OLESTR("r"), CString(), CKrProperty::ePropInt, CKrVariant(first), true, true);
    for (WCHAR const * const name : names)
        AddCounted(root, name)->SetInt(++first);
    return root;
}

} // namespace

TEST(CKrPropertyCompare, CountsWhatTheComparisonSays)
{
    // clang-format off
    struct Row { char const * what; void (*change)(CKrProperty &); bool value, equal, deepEqual, same; };
    Row const rows[] = {
        //                                                                                                             value  equal  deep   ==
        { "nothing",       [](CKrProperty &) {},                                                                       true,  true,  true,  true  },
        { "name",          [](CKrProperty & p) { p.SetName(OLESTR("Name")); },                                         true,  false, false, false },
        { "description",   [](CKrProperty & p) { p.SetDescription(OLESTR("Description")); },                           true,  false, false, false },
        { "value",         [](CKrProperty & p) { p.SetInt(6); },                                                       false, false, false, false },
        { "kind of value", [](CKrProperty & p) { p.SetDouble(5.0); },                                                  false, false, false, false },  // the platform compares the types too
        { "tag of value",  [](CKrProperty & p) { p.SetColor(CKrColor(5u)); },                                          true,  true,  true,  true  },  // but not the tags
        { "type",          [](CKrProperty & p) { p.SetType(static_cast<CKrProperty::EPropType>(0x106)); },             true,  false, false, false },  // by its whole number
        { "needed",        [](CKrProperty & p) { p.SetNeeded(true); },                                                 true,  true,  true,  false },
        { "modified",      [](CKrProperty & p) { p.SetModified(true); },                                               true,  true,  true,  false },
        { "visible",       [](CKrProperty & p) { p.SetVisible(false); },                                               true,  true,  true,  false },
        { "control type",  [](CKrProperty & p) { p.SetCtrlType(CKrAssCtrl::eMemoCtrl); },                              true,  true,  true,  false },
        { "control data",  [](CKrProperty & p) { p.GetItemCtrl()->PutData(&p); },                                      true,  true,  true,  true  },
        { "attribute",     [](CKrProperty & p) { p.SetAttribute(OLESTR("a"), CKrVariant(1)); },                        true,  true,  true,  true  },
        { "child",         [](CKrProperty & p) { AddCounted(p, OLESTR("child")); },                                    true,  true,  true,  true  },  // deep: what only the other has
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.what);
        CKrProperty const one = Make();
        CKrProperty other = Make();
        row.change(other);
        EXPECT_EQ(one.HasEqualValue(other), row.value);
        EXPECT_EQ(one.IsEqual(other), row.equal);
        EXPECT_EQ(one.IsDeepEqual(other), row.deepEqual);
        EXPECT_EQ(one == other, row.same);
        EXPECT_EQ(one != other, !row.same);
        EXPECT_EQ(other == one, row.same);
    }
}

TEST(CKrPropertyCompare, FindsTheSameObjectEqualWhateverItHolds)
{
    CKrProperty property = MakeTree({OLESTR("a"), OLESTR("a")}, 1);
    property.SetDouble(0.0);
    property.SetValue(CKrVariant(std::vector<double>{1.0}));
    EXPECT_TRUE(property.IsEqual(property));
    EXPECT_TRUE(property.IsDeepEqual(property));
    CKrProperty const & self = property;
    EXPECT_TRUE(property == self);
}

TEST(CKrPropertyCompareDeep, IsOneSided)
{
    CKrProperty const leaf = MakeTree({}, 0);
    CKrProperty const node = MakeTree({OLESTR("a")}, 0);
    EXPECT_TRUE(leaf.IsDeepEqual(node));
    EXPECT_FALSE(node.IsDeepEqual(leaf));
}

TEST(CKrPropertyCompareDeep, FindsChildrenByNameInAnyOrder)
{
    CKrProperty const one = MakeTree({OLESTR("a"), OLESTR("b")}, 0);
    CKrProperty other = MakeTree({OLESTR("a"), OLESTR("b")}, 0);
    other.ShiftSubProperty(0, 1);
    EXPECT_EQ(TreeOf(other), OLESTR("r(b a)"));
    EXPECT_TRUE(one.IsDeepEqual(other));
    EXPECT_TRUE(other.IsDeepEqual(one));
    other.GetSubProperty(OLESTR("a"))->SetInt(9);
    EXPECT_FALSE(one.IsDeepEqual(other));
}

TEST(CKrPropertyCompareDeep, LooksAtAllLevels)
{
    CKrProperty one = MakeTree({OLESTR("a")}, 0);
    AddCounted(*one.GetSubPropertyAt(0), OLESTR("b"));
    CKrProperty const other = one;
    EXPECT_TRUE(one.IsDeepEqual(other));
    one.GetSubPropertyAt(0)->GetSubPropertyAt(0)->SetInt(9);
    EXPECT_FALSE(one.IsDeepEqual(other));
    one.GetSubPropertyAt(0)->DeleteSubProperties();
    EXPECT_TRUE(one.IsDeepEqual(other));
    EXPECT_FALSE(other.IsDeepEqual(one));
}

TEST(CKrPropertyCompareDeep, ComparesEachOfSeveralOfANameWithTheFirst)
{
    CKrProperty const one = MakeTree({OLESTR("a"), OLESTR("a")}, 0); // values 1 and 2
    CKrProperty const copy = one;
    EXPECT_FALSE(one.IsDeepEqual(copy));
    CKrProperty const first = MakeTree({OLESTR("a")}, 0);
    EXPECT_TRUE(first.IsDeepEqual(one));
}

TEST(CKrPropertyCompareDeep, MakesOneIndexForAWideNode)
{
    auto const allocationsOfAComparison = [](int count)
    {
        CKrProperty one;
        for (int number = 0; number < count; ++number)
        {
            CString name;
            name.Format(OLESTR("n%d"), number);
            AddCounted(one, name);
        }
        CKrProperty const other = one;
        std::size_t const before = AllAllocations();
        EXPECT_TRUE(one.IsDeepEqual(other));
        std::size_t const first = AllAllocations() - before;
        EXPECT_TRUE(one.IsDeepEqual(other));
        EXPECT_EQ(AllAllocations() - before, first); // the second finds it made
        return first;
    };
    std::size_t const ofThousand = allocationsOfAComparison(1000);
    EXPECT_GE(ofThousand, 1u);
    EXPECT_LE(ofThousand, 20u);
}

TEST(CKrPropertyChangeValue, TakesPayloadAndTagAndNothingElse)
{
    CKrProperty target = Make();
    CKrProperty source(OLESTR("name"), OLESTR("other"), CKrProperty::ePropColor, CKrVariant(CKrColor(3)), false, false);
    source.SetModified(true);
    source.SetNeeded(true);
    source.SetAttribute(OLESTR("a"), CKrVariant(1));
    EXPECT_TRUE(target.ChangeValue(source));
    EXPECT_TRUE(target.GetValue().IsColor());
    EXPECT_EQ(target.GetValue().lVal, -3);
    EXPECT_EQ(target.GetType(), CKrProperty::ePropInt);
    EXPECT_EQ(target.GetDescription(), OLESTR("description"));
    EXPECT_FALSE(target.IsModified());
    EXPECT_FALSE(target.IsNeeded());
    EXPECT_TRUE(target.IsVisible());
    EXPECT_FALSE(target.HasAttribute(OLESTR("a")));
    EXPECT_TRUE(target.ChangeValue(target));
    EXPECT_EQ(target.GetValue().lVal, -3);
}

TEST(CKrPropertyChangeValue, RefusesANodeOfAnotherName)
{
    CKrProperty target = MakeTree({OLESTR("a")}, 0);
    CKrProperty source = MakeTree({OLESTR("a")}, 10);
    source.SetName(OLESTR("R"));
    EXPECT_FALSE(target.ChangeValue(source));
    EXPECT_EQ(target.GetInt(), 0);
    EXPECT_EQ(target.GetSubPropertyAt(0)->GetInt(), 1);
}

TEST(CKrPropertyChangeValue, GoesDownByNameAndMakesNothing)
{
    CKrProperty target = MakeTree({OLESTR("a"), OLESTR("own"), OLESTR("b")}, 0);
    CKrProperty source = MakeTree({OLESTR("b"), OLESTR("a"), OLESTR("more")}, 10);
    AddCounted(*target.GetSubPropertyAt(0), OLESTR("deep"))->SetInt(1);
    AddCounted(*source.GetSubPropertyAt(1), OLESTR("deep"))->SetInt(20);
    EXPECT_TRUE(target.ChangeValue(source));
    EXPECT_EQ(TreeOf(target), OLESTR("r(a(deep) own b)"));
    EXPECT_EQ(target.GetInt(), 10);
    EXPECT_EQ(target.GetSubProperty(OLESTR("a"))->GetInt(), 12);
    EXPECT_EQ(target.GetSubProperty(OLESTR("own"))->GetInt(), 2);
    EXPECT_EQ(target.GetSubProperty(OLESTR("b"))->GetInt(), 11);
    EXPECT_EQ(target.GetSubPropertyAt(0)->GetSubPropertyAt(0)->GetInt(), 20);
}

TEST(CKrPropertyChangeValue, GivesAllOfANameTheValueOfTheFirst)
{
    CKrProperty target = MakeTree({OLESTR("a"), OLESTR("a")}, 0);
    EXPECT_TRUE(target.ChangeValue(MakeTree({OLESTR("a"), OLESTR("a")}, 10)));
    EXPECT_EQ(target.GetSubPropertyAt(0)->GetInt(), 11);
    EXPECT_EQ(target.GetSubPropertyAt(1)->GetInt(), 11);
}
