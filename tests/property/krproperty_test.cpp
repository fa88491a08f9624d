#include <krcore/property/krproperty.h>

#include <krcore/foundation/krclass.h>
#include <krcore/foundation/krowner.h>

#include "tests/support/memory_failure.h"
#include "tests/support/virtual_slot.h"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

namespace
{

CKrProperty Make(CKrProperty::EPropType type)
{
    return CKrProperty(OLESTR("name"), OLESTR("description"), type, true, true);
}

} // namespace

TEST(CKrProperty, IsEmptyAndOfNoTypeByDefault)
{
    CKrProperty const property;
    EXPECT_EQ(property.GetName(), OLESTR(""));
    EXPECT_EQ(property.GetDescription(), OLESTR(""));
    EXPECT_EQ(property.GetType(), CKrProperty::ePropNone);
    EXPECT_EQ(property.GetValue().GetType(), CKrVariant::eInvalid);
    EXPECT_EQ(property.GetValue().vt, VT_EMPTY);
    EXPECT_FALSE(property.IsNeeded());
    EXPECT_FALSE(property.IsModified());
    EXPECT_TRUE(property.IsRoot());
    EXPECT_TRUE(property.IsLeaf());
    EXPECT_FALSE(property.IsValid());
    ASSERT_NE(property.GetItemCtrl(), nullptr);
    EXPECT_EQ(property.GetCtrlType(), CKrAssCtrl::eEditCtrl);
    EXPECT_TRUE(property.IsVisible());
    EXPECT_TRUE(property.IsEnabled());
    EXPECT_EQ(property.GetTooltip(), OLESTR(""));
}

TEST(CKrProperty, TakesOnePieceOfMemory)
{
    CString const name = OLESTR("a");
    std::size_t const before = kr::test::LiveAllocations();
    auto const node = std::make_unique<CKrProperty>(name, name, CKrProperty::ePropDouble, true, true);
    EXPECT_EQ(kr::test::LiveAllocations(), before + 1);
    std::unique_ptr<CKrProperty> const clone(node->Clone());
    EXPECT_EQ(kr::test::LiveAllocations(), before + 2);
}

TEST(CKrProperty, IsAnEmptyStringWithoutAType)
{
    CKrProperty const property(OLESTR("a"), OLESTR("b"), false, true);
    EXPECT_EQ(property.GetName(), OLESTR("a"));
    EXPECT_EQ(property.GetDescription(), OLESTR("b"));
    EXPECT_EQ(property.GetType(), CKrProperty::ePropString);
    EXPECT_EQ(property.GetValue().GetType(), CKrVariant::eString);
    EXPECT_EQ(property.GetString(), OLESTR(""));
    EXPECT_EQ(property.GetCtrlType(), CKrAssCtrl::eEditCtrl);
    EXPECT_FALSE(property.IsEnabled());
    EXPECT_TRUE(property.IsVisible());
    EXPECT_FALSE(property.IsNeeded());
    EXPECT_FALSE(property.IsModified());
}

TEST(CKrProperty, TakesTheControlAndTheDefaultValueOfItsType)
{
    CKrProperty const property(OLESTR("a"), OLESTR("b"), CKrProperty::ePropBool, true, false);
    EXPECT_EQ(property.GetCtrlType(), CKrAssCtrl::eCheckCtrl);
    EXPECT_TRUE(property.GetValue().IsBool());
    EXPECT_FALSE(property.GetBool());
    EXPECT_TRUE(property.IsEnabled());
    EXPECT_FALSE(property.IsVisible());
}

TEST(CKrProperty, TakesAGivenValueWithoutConvertingIt)
{
    CKrProperty const property(OLESTR("a"), OLESTR("b"), CKrProperty::ePropDate, CKrVariant(5), false, false);
    EXPECT_EQ(property.GetType(), CKrProperty::ePropDate);
    EXPECT_EQ(property.GetCtrlType(), CKrAssCtrl::eDateCtrl);
    EXPECT_EQ(property.GetValue().GetType(), CKrVariant::eLong);
    EXPECT_EQ(property.GetInt(), 5);
    EXPECT_FALSE(property.IsEnabled());
    EXPECT_FALSE(property.IsVisible());
}

TEST(CKrProperty, ShowsItsNameWhereTheDescriptionIsGivenEmpty)
{
    CString const none;
    EXPECT_EQ(CKrProperty(OLESTR("a"), none, true, true).GetDescription(), OLESTR("a"));
    EXPECT_EQ(CKrProperty(OLESTR("a"), none, CKrProperty::ePropInt, true, true).GetDescription(), OLESTR("a"));
    EXPECT_EQ(CKrProperty(OLESTR("a"), none, CKrProperty::ePropInt, CKrVariant(1), true, true).GetDescription(),
              OLESTR("a"));
}

TEST(CKrProperty, KeepsAnEmptyNameAndDescriptionThatAreSet)
{
    CKrProperty property(OLESTR("a"), CString(), true, true);
    property.SetDescription(CString());
    EXPECT_EQ(property.GetDescription(), OLESTR(""));
    property.SetName(CString());
    EXPECT_EQ(property.GetName(), OLESTR(""));
    property.SetName(OLESTR(" b "));
    EXPECT_EQ(property.GetName(), OLESTR(" b "));
    EXPECT_EQ(property.GetDescription(), OLESTR(""));
}

TEST(CKrProperty, HasItsVirtualOperationsInTheAgreedOrder)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<CKrProperty>);
    EXPECT_EQ(kr::test::VirtualSlotOf(&CKrProperty::IsA), 2u);
    EXPECT_EQ(kr::test::VirtualSlotOf(&CKrProperty::ClsName), 3u);
    // The clone is of the class of its source.
    EXPECT_TRUE((std::is_same_v<decltype(&CKrProperty::Clone), CKrProperty * (CKrProperty::*)() const>));
}

TEST(CKrProperty, HasADescriptor)
{
    CKrProperty const property;
    CKrObject const & object = property;
    ASSERT_NE(CKrProperty::Cls(), nullptr);
    EXPECT_EQ(CKrProperty::Cls(), CKrProperty::s_pCls.get());
    EXPECT_EQ(object.IsA(), CKrProperty::Cls());
    EXPECT_EQ(object.ClsName(), OLESTR("CKrProperty"));
    EXPECT_TRUE(object.IsKindOf(CKrProperty::Cls()));
}

TEST(CKrProperty, IsFoundByACastOfItsRoot)
{
    CKrProperty const property;
    CKrStringObject const other(OLESTR("wall"));
    EXPECT_EQ(CKrProperty::Cast(&property), &property);
    EXPECT_EQ(CKrProperty::Cast(&other), nullptr);
    EXPECT_EQ(CKrProperty::Cast(nullptr), nullptr);
}

TEST(CKrProperty, TellsItsKindByTheLowByteOfItsType)
{
    // clang-format off
    struct Row { CKrProperty::EPropType type; bool string, number, integer, truth, color, date; };
    Row const rows[] = {
        { CKrProperty::ePropNone,     false, false, false, false, false, false },
        { CKrProperty::ePropString,   true,  false, false, false, false, false },
        { CKrProperty::ePropFile,     true,  false, false, false, false, false },
        { CKrProperty::ePropDir,      true,  false, false, false, false, false },
        { CKrProperty::ePropDouble,   false, true,  false, false, false, false },
        { CKrProperty::ePropInt,      false, false, true,  false, false, false },
        { CKrProperty::ePropBool,     false, false, false, true,  false, false },
        { CKrProperty::ePropColor,    false, false, false, false, true,  false },
        { CKrProperty::ePropDateTime, false, false, false, false, false, true  },
        { CKrProperty::ePropDate,     false, false, false, false, false, true  },
        { CKrProperty::ePropTime,     false, false, false, false, false, true  },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.type);
        CKrProperty const property = Make(row.type);
        EXPECT_EQ(property.IsStringValue(), row.string);
        EXPECT_EQ(property.IsDoubleValue(), row.number);
        EXPECT_EQ(property.IsIntValue(), row.integer);
        EXPECT_EQ(property.IsBoolValue(), row.truth);
        EXPECT_EQ(property.IsColorValue(), row.color);
        EXPECT_EQ(property.IsDateTimeValue(), row.date);
    }
}

TEST(CKrProperty, ChangesItsFlagsOnlyWhenTold)
{
    CKrProperty property = Make(CKrProperty::ePropInt);
    property.SetNeeded(true);
    EXPECT_TRUE(property.IsNeeded());
    EXPECT_FALSE(property.IsModified());
    property.SetNeeded(false);
    property.SetModified(true);
    EXPECT_FALSE(property.IsNeeded());
    EXPECT_TRUE(property.IsModified());
    property.SetModified(false);
    EXPECT_FALSE(property.IsModified());
}

TEST(CKrProperty, KeepsTheModifiedFlagWhateverIsStored)
{
    for (bool const modified : {false, true})
    {
        CKrProperty property = Make(CKrProperty::ePropDate);
        property.SetModified(modified);
        property.SetValue(CKrVariant(1));
        property.SetString(OLESTR("a"));
        property.SetInt(1);
        property.SetBool(true);
        property.SetDouble(1.0);
        property.SetColor(CKrColor(1));
        property.SetFileName(CKrFileName(OLESTR("a.txt"), false));
        property.SetDate(OLESTR("x"));
        property.SetTime(OLESTR("x"));
        property.SetDateTime(OLESTR("x"));
        property.SetDateTime(COleDateTime());
        property.SetValueFromString(OLESTR("x"));
        property.SetDefaultValue();
        property.SetType(CKrProperty::ePropInt);
        property.SetName(OLESTR("b"));
        property.SetAttribute(OLESTR("a"), CKrVariant(1));
        EXPECT_EQ(property.IsModified(), modified);
    }
}

TEST(CKrPropertyAttributes, AreReadAsAnInvalidValueWhereMissing)
{
    CKrProperty property;
    EXPECT_FALSE(property.HasAttribute(OLESTR("a")));
    EXPECT_FALSE(property.GetAttribute(OLESTR("a")).IsValid());
    property.RemoveAttribute(OLESTR("a"));
    property.SetAttribute(OLESTR("b"), CKrVariant(1));
    EXPECT_FALSE(property.HasAttribute(OLESTR("a")));
    EXPECT_FALSE(property.GetAttribute(OLESTR("a")).IsValid());
    EXPECT_FALSE(property.HasAttribute(OLESTR("B")));
}

TEST(CKrPropertyAttributes, AreStoredReplacedAndRemovedByName)
{
    CKrProperty property;
    property.SetAttribute(OLESTR("a"), CKrVariant(1));
    property.SetAttribute(OLESTR("b"), CKrVariant(OLESTR("x")));
    property.SetAttribute(OLESTR("a"), CKrVariant(true));
    EXPECT_TRUE(property.HasAttribute(OLESTR("a")));
    EXPECT_TRUE(property.GetAttribute(OLESTR("a")).IsBool());
    EXPECT_EQ(property.GetAttribute(OLESTR("b")).GetAsString(), OLESTR("x"));
    property.RemoveAttribute(OLESTR("a"));
    EXPECT_FALSE(property.HasAttribute(OLESTR("a")));
    EXPECT_TRUE(property.HasAttribute(OLESTR("b")));
}

TEST(CKrPropertyAttributes, TakeAnInvalidValueAndNoEmptyName)
{
    CKrProperty property;
    property.SetAttribute(CString(), CKrVariant(1));
    EXPECT_FALSE(property.HasAttribute(CString()));
    property.SetAttribute(OLESTR("a"), CKrVariant());
    EXPECT_TRUE(property.HasAttribute(OLESTR("a")));
    EXPECT_FALSE(property.GetAttribute(OLESTR("a")).IsValid());
}

TEST(CKrPropertyAttributes, StayAsTheyWereWhereMemoryRunsOut)
{
    CKrProperty property;
    CString const name(OLESTR("a"));
    CKrVariant const value(OLESTR("text"));
    auto const checkUnchanged = [&]
    {
        EXPECT_FALSE(property.HasAttribute(name));
        CKrProperty target;
        target.SetAttribute(OLESTR("own"), CKrVariant(1));
        target.Copy(property);
        EXPECT_TRUE(target.HasAttribute(OLESTR("own"))); // not even an empty list was made
    };
    EXPECT_GT(kr::test::FailUntilItPasses([&] { property.SetAttribute(name, value); }, checkUnchanged), 2u);
    CKrVariant const other(OLESTR("other"));
    auto const checkFirst = [&] { EXPECT_EQ(property.GetAttribute(name).GetAsString(), OLESTR("text")); };
    EXPECT_GT(kr::test::FailUntilItPasses([&] { property.SetAttribute(name, other); }, checkFirst), 0u);
    EXPECT_EQ(property.GetAttribute(name).GetAsString(), OLESTR("other"));
}

TEST(CKrPropertyControl, IsThePropertysOwnAndHasWhatIsSetThroughIt)
{
    CKrProperty property = Make(CKrProperty::ePropColor);
    CKrAssCtrl * const control = property.GetItemCtrl();
    ASSERT_NE(control, nullptr);
    property.SetEnabled(false);
    EXPECT_FALSE(property.IsEnabled());
    EXPECT_FALSE(control->IsEnabled());
    EXPECT_TRUE(control->IsVisible());
    property.SetVisible(false);
    EXPECT_FALSE(property.IsVisible());
    EXPECT_FALSE(control->IsVisible());
    property.SetTooltip(OLESTR("tip"));
    EXPECT_EQ(property.GetTooltip(), OLESTR("tip"));
    EXPECT_EQ(control->GetTooltip(), OLESTR("tip"));
    control->SetEnabled(true);
    EXPECT_TRUE(property.IsEnabled());
    EXPECT_EQ(property.GetItemCtrl(), control);
}

TEST(CKrPropertyControl, TypeIsSetAndPutBackToThatOfThePropertysType)
{
    CKrProperty property = Make(CKrProperty::ePropColor);
    property.SetCtrlType(CKrAssCtrl::eComboCtrl);
    EXPECT_EQ(property.GetCtrlType(), CKrAssCtrl::eComboCtrl);
    EXPECT_EQ(property.GetDefaultCtrlType(), CKrAssCtrl::eColorCtrl);
    property.SetDefaultCtrlType();
    EXPECT_EQ(property.GetCtrlType(), CKrAssCtrl::eColorCtrl);
    property.SetType(CKrProperty::ePropBool);
    EXPECT_EQ(property.GetCtrlType(), CKrAssCtrl::eColorCtrl); // the type of a property does not touch its control
    EXPECT_EQ(property.GetDefaultCtrlType(), CKrAssCtrl::eCheckCtrl);
}
