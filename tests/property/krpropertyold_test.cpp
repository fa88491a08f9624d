// Construction, copies, sub-properties and comparison; values stand in krpropertyold_values_test.cpp.
#include <krcore/property/krpropertyold.h>

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

/// Differs from a new one in each field, with the sub-property "sub".
CKrPropertyOld MakeFull()
{
    CKrPropertyOld property(CKrAssCtrlOld::eComboCtrl, OLESTR("width"), false, false);
    property.SetDescription(OLESTR("Width"));
    property.SetType(CKrAssCtrlOld::eObjDouble);
    property.SetDouble(2.5);
    property.SetNeeded(true);
    property.SetModified(true);
    property.AddSubProperty(new CKrPropertyOld(OLESTR("sub"), CString(), true, true));
    return property;
}

void ExpectFullButControl(CKrPropertyOld const & property)
{
    EXPECT_EQ(property.GetName(), OLESTR("width"));
    EXPECT_EQ(property.GetDescription(), OLESTR("Width"));
    EXPECT_EQ(property.GetType(), CKrAssCtrlOld::eObjDouble);
    EXPECT_FALSE(property.IsVisible());
    EXPECT_FALSE(property.GetItemCtrl()->IsEnabled());
    EXPECT_EQ(property.GetDouble(), 2.5);
    EXPECT_TRUE(property.IsNeeded());
    EXPECT_TRUE(property.IsModified());
    ASSERT_EQ(property.GetSubPropertyCount(), 1u);
    EXPECT_EQ(property.GetSubPropertyAt(0)->GetName(), OLESTR("sub"));
}

} // namespace

static_assert(std::has_virtual_destructor_v<CKrPropertyOld>);

TEST(CKrPropertyOld, StartsAsAnEditControlOfAString)
{
    CKrPropertyOld const property;
    EXPECT_EQ(property.GetCtrlType(), CKrAssCtrlOld::eEditCtrl);
    EXPECT_EQ(property.GetType(), CKrAssCtrlOld::eObjString);
    EXPECT_TRUE(property.GetName().IsEmpty());
    EXPECT_TRUE(property.GetDescription().IsEmpty());
    EXPECT_TRUE(property.IsVisible());
    EXPECT_TRUE(property.GetItemCtrl()->IsEnabled());
    EXPECT_EQ(property.GetValue().GetType(), CKrVariant::eInvalid);
    EXPECT_FALSE(property.IsNeeded());
    EXPECT_FALSE(property.IsModified());
    EXPECT_EQ(property.GetSubPropertyCount(), 0u);
}

TEST(CKrPropertyOld, IsBuiltWithNameDescriptionAndState)
{
    for (bool const enabled : {false, true})
    {
        CKrPropertyOld const described(OLESTR("name"), OLESTR("text"), enabled, !enabled);
        EXPECT_EQ(described.GetName(), OLESTR("name"));
        EXPECT_EQ(described.GetDescription(), OLESTR("text"));
        EXPECT_EQ(described.GetCtrlType(), CKrAssCtrlOld::eEditCtrl);
        EXPECT_EQ(described.GetType(), CKrAssCtrlOld::eObjString);
        EXPECT_EQ(described.GetItemCtrl()->IsEnabled(), enabled);
        EXPECT_EQ(described.IsVisible(), !enabled);
        CKrPropertyOld const typed(CKrAssCtrlOld::eMemoCtrl, OLESTR("name"), enabled, !enabled);
        EXPECT_EQ(typed.GetCtrlType(), CKrAssCtrlOld::eMemoCtrl);
        EXPECT_EQ(typed.GetType(), CKrAssCtrlOld::eObjString);
        EXPECT_EQ(typed.GetName(), OLESTR("name"));
        EXPECT_EQ(typed.GetDescription(), OLESTR("name"));
        EXPECT_EQ(typed.GetItemCtrl()->IsEnabled(), enabled);
        EXPECT_EQ(typed.IsVisible(), !enabled);
    }
    EXPECT_EQ(CKrPropertyOld(OLESTR("name"), CString(), true, true).GetDescription(), OLESTR("name"));
}

TEST(CKrPropertyOld, KeepsNameDescriptionTypeAndVisibilityInItsAssociation)
{
    CKrPropertyOld property;
    property.SetName(OLESTR("n"));
    property.SetDescription(OLESTR("d"));
    property.SetType(CKrAssCtrlOld::eObjDate);
    property.SetVisible(false);
    CKrAssCtrlOld * const control = property.GetItemCtrl();
    EXPECT_EQ(control->GetObjName(), OLESTR("n"));
    EXPECT_EQ(control->GetCtrlText(), OLESTR("d"));
    EXPECT_EQ(control->GetType(), CKrAssCtrlOld::eObjDate);
    EXPECT_FALSE(control->IsVisible());
    property.SetCtrlType(CKrAssCtrlOld::eColorCtrl);
    EXPECT_EQ(property.GetCtrlType(), CKrAssCtrlOld::eColorCtrl);
    EXPECT_EQ(property.CreateItemCtrl(CKrAssCtrlOld::eMemoCtrl), control); // the argument plays no part
    EXPECT_EQ(property.GetCtrlType(), CKrAssCtrlOld::eColorCtrl);
}

TEST(CKrPropertyOld, TellsItsTypeByQuestions)
{
    struct Row
    {
        int type;
        bool isString;
        bool isDouble;
        bool isInt;
        bool isBool;
        bool isDate;
    };
    // clang-format off
    Row const rows[] = {
        { 0, false, false, false, false, false },
        { 1, true,  false, false, false, false },
        { 2, false, true,  false, false, false },
        { 3, false, false, true,  false, false },
        { 4, false, false, false, true,  false },
        { 5, false, false, false, false, false },
        { 6, false, false, false, false, true  },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.type);
        CKrPropertyOld property;
        property.SetType(static_cast<CKrPropertyOld::EObjType>(row.type));
        EXPECT_EQ(property.IsStringValue(), row.isString);
        EXPECT_EQ(property.IsDoubleValue(), row.isDouble);
        EXPECT_EQ(property.IsIntValue(), row.isInt);
        EXPECT_EQ(property.IsBoolValue(), row.isBool);
        EXPECT_EQ(property.IsDateTimeValue(), row.isDate);
    }
}

TEST(CKrPropertyOldTypes, HaveTheirWordsWithCase)
{
    struct Row
    {
        CKrPropertyOld::EObjType type;
        WCHAR const * word;
    };
    // clang-format off
    Row const rows[] = {
        { CKrAssCtrlOld::eObjNone,   OLESTR("")       },
        { CKrAssCtrlOld::eObjString, OLESTR("string") },
        { CKrAssCtrlOld::eObjDouble, OLESTR("double") },
        { CKrAssCtrlOld::eObjInt,    OLESTR("int")    },
        { CKrAssCtrlOld::eObjBool,   OLESTR("bool")   },
        { CKrAssCtrlOld::eObjDate,   OLESTR("date")   },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.word));
        EXPECT_EQ(CKrPropertyOld::PropertyTypeToString(row.type), row.word);
        EXPECT_EQ(CKrPropertyOld::PropertyTypeFromString(row.word), row.type);
    }
    for (int const number : {-1, 5, 7})
        EXPECT_TRUE(CKrPropertyOld::PropertyTypeToString(static_cast<CKrPropertyOld::EObjType>(number)).IsEmpty());
    for (WCHAR const * const word : {OLESTR("String"), OLESTR("INT"), OLESTR("long"), OLESTR("date "), OLESTR("color")})
        EXPECT_EQ(CKrPropertyOld::PropertyTypeFromString(word), CKrAssCtrlOld::eObjNone) << Narrow(word);
}

TEST(CKrPropertyOldCopy, IsDeep)
{
    CKrPropertyOld source = MakeFull();
    CKrPropertyOld const copy(source);
    std::unique_ptr<CKrPropertyOld> const clone(source.Clone());
    source.GetSubPropertyAt(0)->SetName(OLESTR("changed"));
    source.GetItemCtrl()->SetObjName(OLESTR("changed"));
    for (CKrPropertyOld const * const property : {&copy, static_cast<CKrPropertyOld const *>(clone.get())})
    {
        EXPECT_EQ(property->GetCtrlType(), CKrAssCtrlOld::eComboCtrl);
        ExpectFullButControl(*property);
    }
}

TEST(CKrPropertyOldCopy, AnAssignmentLeavesTheControlTypeAsItWas)
{
    CKrPropertyOld const source = MakeFull();
    CKrPropertyOld target(CKrAssCtrlOld::eMemoCtrl, OLESTR("old"), true, true);
    target.AddSubProperty(new CountedPropertyOld(OLESTR("x")));
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(target.GetCtrlType(), CKrAssCtrlOld::eMemoCtrl);
    ExpectFullButControl(target);
    EXPECT_EQ(CountedPropertyOld::Living(), 0);
}

TEST(CKrPropertyOldCopy, AnAssignmentToItselfHasNoEffect)
{
    CKrPropertyOld property = MakeFull();
    CKrPropertyOld const * const child = property.GetSubPropertyAt(0);
    CKrAssCtrlOld const * const control = property.GetItemCtrl();
    CKrPropertyOld const & self = property;
    property = self;
    EXPECT_EQ(property.GetSubPropertyAt(0), child);
    EXPECT_EQ(property.GetItemCtrl(), control);
    ExpectFullButControl(property);
}

TEST(CKrPropertyOldCopy, ASubPropertyMayBeAssignedToItsHolder)
{
    CKrPropertyOld property = MakeFull();
    property.GetSubPropertyAt(0)->AddSubProperty(new CKrPropertyOld(OLESTR("below"), CString(), true, true));
    property = *property.GetSubPropertyAt(0);
    EXPECT_EQ(property.GetName(), OLESTR("sub"));
    ASSERT_EQ(property.GetSubPropertyCount(), 1u);
    EXPECT_EQ(property.GetSubPropertyAt(0)->GetName(), OLESTR("below"));
}

TEST(CKrPropertyOldCopy, LeavesAllAsItWasWhereMemoryRunsOut)
{
    CKrPropertyOld source = MakeFull();
    source.SetString(OLESTR("a text that is copied"));
    CKrPropertyOld target = MakeFull();
    EXPECT_GT(FailUntilItPasses([&] { target = source; }, [&] { ExpectFullButControl(target); }), 3u);
    EXPECT_EQ(target.GetString(), OLESTR("a text that is copied"));
    EXPECT_GT(FailUntilItPasses([&] { CKrPropertyOld const copy(source); }, [] {}), 3u);
}

TEST(CKrPropertyOldTree, OwnsItsSubPropertiesAndDoesNotRefuseNull)
{
    {
        CKrPropertyOld property;
        CKrPropertyOld * const first = new CountedPropertyOld(OLESTR("1"));
        property.AddSubProperty(first);
        property.AddSubProperty(nullptr);
        property.AddSubProperty(new CountedPropertyOld(OLESTR("2")));
        EXPECT_EQ(property.GetSubPropertyCount(), 3u);
        EXPECT_EQ(property.GetSubPropertyAt(0), first);
        EXPECT_EQ(property.GetSubPropertyAt(1), nullptr);
        EXPECT_EQ(property.GetSubPropertyAt(3), nullptr);
        CKrPropertyOld const copy(property);
        EXPECT_EQ(copy.GetSubPropertyCount(), 3u);
        EXPECT_EQ(copy.GetSubPropertyAt(1), nullptr);
        EXPECT_EQ(copy.GetSubPropertyAt(2)->GetName(), OLESTR("2"));
        EXPECT_EQ(CountedPropertyOld::Living(), 2);
    }
    EXPECT_EQ(CountedPropertyOld::Living(), 0);
}

TEST(CKrPropertyOldTree, FreesASubPropertyThatItCannotTake)
{
    CKrPropertyOld property;
    CKrPropertyOld * const child = new CountedPropertyOld(OLESTR("1"));
    kr::test::FailNthAllocation const fail(1);
    EXPECT_THROW(property.AddSubProperty(child), std::bad_alloc);
    EXPECT_EQ(CountedPropertyOld::Living(), 0);
    EXPECT_EQ(property.GetSubPropertyCount(), 0u);
}

TEST(CKrPropertyOldCompare, GoesByControlTypeNameAndText)
{
    struct Row
    {
        char const * what;
        void (*change)(CKrPropertyOld &);
        bool isEqual; ///< by IsEqual
        bool isSame;  ///< by ==
    };
    // clang-format off
    Row const rows[] = {
        { "nothing",        [](CKrPropertyOld &) {},                                                             true,  true  },
        { "control type",   [](CKrPropertyOld & property) { property.SetCtrlType(CKrAssCtrlOld::eEditCtrl); },   false, false },
        { "name",           [](CKrPropertyOld & property) { property.SetName(OLESTR("Width")); },                false, false },
        { "value",          [](CKrPropertyOld & property) { property.SetDouble(2.0); },                          false, false },
        { "kind of value",  [](CKrPropertyOld & property) { property.SetString(OLESTR("2.5")); },                true,  true  },   // Deliberate: by text
        { "needed",         [](CKrPropertyOld & property) { property.SetNeeded(false); },                        true,  false },
        { "modified",       [](CKrPropertyOld & property) { property.SetModified(false); },                      true,  false },
        { "description",    [](CKrPropertyOld & property) { property.SetDescription(OLESTR("x")); },             true,  false },
        { "type",           [](CKrPropertyOld & property) { property.SetType(CKrAssCtrlOld::eObjInt); },         true,  false },
        { "visible",        [](CKrPropertyOld & property) { property.SetVisible(true); },                        true,  false },
        { "sub-properties", [](CKrPropertyOld & property) { property.AddSubProperty(nullptr); },                 true,  true  },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.what);
        CKrPropertyOld const one = MakeFull();
        CKrPropertyOld other(one);
        row.change(other);
        EXPECT_EQ(one.IsEqual(other), row.isEqual);
        EXPECT_EQ(one == other, row.isSame);
        EXPECT_EQ(one != other, !row.isSame);
    }
    CKrPropertyOld const property = MakeFull();
    EXPECT_TRUE(property.IsEqual(property));
}

TEST(CKrPropertyOldCompare, AnIntegerEqualsItsText)
{
    CKrPropertyOld number;
    CKrPropertyOld text;
    number.SetInt(1);
    text.SetString(OLESTR("1"));
    EXPECT_TRUE(number.IsEqual(text));
}
