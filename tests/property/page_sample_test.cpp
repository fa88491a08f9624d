// The samples of docs/property.md and of the headers.
#include <krcore/property/krpropertyset.h>
#include <krcore/property/krpropertysetold.h>

#include <gtest/gtest.h>

TEST(PropertyPage, SampleGivesWhatItSays)
{
    CKrPropertySet set;
    CKrProperty * const color = set.CreateProperty(OLESTR("Color"), CKrProperty::ePropColor, OLESTR("General"));
    EXPECT_FALSE(color->IsValid());
    color->SetColor(CKrColor(7));
    EXPECT_EQ(color->GetAsString(), OLESTR("-7"));

    CKrProperty * const width = set.CreateProperty(OLESTR("Width"), CKrProperty::ePropDouble, CString());
    EXPECT_EQ(set.GetCategoryName(1), OLESTR("_KRPROPDEFCAT_"));
    width->SetValueFromString(OLESTR("0,35"));
    EXPECT_EQ(width->GetAsString(), OLESTR("0.35"));
    EXPECT_EQ(set.GetProperty(OLESTR("width"), CString()), nullptr);

    CKrPropertySet copy(set);
    copy.GetPropertyByPropName(OLESTR("Width"))->SetDouble(0.5);
    EXPECT_FALSE(set.IsEqual(copy));
    EXPECT_TRUE(set.ChangeValues(copy));
    EXPECT_EQ(width->GetDouble(), 0.5);
}

TEST(PropertyPage, SampleOfAControlGivesWhatItSays)
{
    CKrAssCtrl control(CKrAssCtrl::eComboCtrl);
    control.SetSelectionList({CKrVariant(1), CKrVariant(2)});
    control.SetCtrlType(OLESTR("LayerPicker"));
    EXPECT_EQ(control.GetType(), CKrAssCtrl::eUserDefinedCtrl);
    EXPECT_EQ(control.GetCtrlTypeAsString(), OLESTR("LayerPicker"));
}

TEST(PropertyPage, SampleOfATreeGivesWhatItSays)
{
    CKrProperty layer(OLESTR("Layer"), CString(), CKrProperty::ePropString, true, true);
    layer.AddSubProperty(new CKrProperty(OLESTR("Width"), OLESTR("Line width"), CKrProperty::ePropDouble, true, true));
    layer.GetSubProperty(OLESTR("Width"))->SetValueFromString(OLESTR("0,35"));
    EXPECT_EQ(layer.GetSubProperty(OLESTR("Width"))->GetAsString(), OLESTR("0.35"));
    EXPECT_EQ(layer.GetSubProperty(OLESTR("width")), nullptr);
}

TEST(PropertyPage, SampleOfTheOlderGenerationGivesWhatItSays)
{
    CKrPropertySetOld set;
    CKrPropertyOld * const width = set.CreateProperty(OLESTR("Width"), OLESTR("General"));
    width->SetType(CKrAssCtrlOld::eObjDouble);
    width->SetValueFromString(OLESTR("0,35"));
    EXPECT_EQ(width->GetDouble(), 0.35);
    EXPECT_EQ(width->GetInt(), -1);
    width->SetCtrlType(CKrAssCtrlOld::eFileNameCtrl);
    EXPECT_TRUE(width->GetFileName().GetFullName(true).IsEmpty());
}

TEST(PropertyPage, SampleOfTheOlderSetGivesWhatItSays)
{
    CKrPropertySetOld set;
    set.CreateProperty(OLESTR("Width"), OLESTR("General"))->SetDouble(0.5);
    EXPECT_TRUE(set.GetCategoryDescription(OLESTR("General")).IsEmpty());
    EXPECT_FALSE(set.MoveCategory(OLESTR("General"), 1));
}

TEST(PropertyPage, SampleOfTheOlderPropertyGivesWhatItSays)
{
    CKrPropertyOld width(CKrPropertyOld::ECtrlType::eEditCtrl, OLESTR("Width"), true, true);
    width.SetDouble(2.5);
    EXPECT_EQ(width.GetInt(), -1);
}
