// The samples of the headers.
#include <krcore/property/krpropertyset.h>
#include <krcore/property/krpropertysetold.h>

#include <gtest/gtest.h>

TEST(PropertyHeaders, SampleOfATreeGivesWhatItSays)
{
    CKrProperty layer(OLESTR("Layer"), CString(), CKrProperty::ePropString, true, true);
    layer.AddSubProperty(new CKrProperty(OLESTR("Width"), OLESTR("Line width"), CKrProperty::ePropDouble, true, true));
    layer.GetSubProperty(OLESTR("Width"))->SetValueFromString(OLESTR("0,35"));
    EXPECT_EQ(layer.GetSubProperty(OLESTR("Width"))->GetAsString(), OLESTR("0.35"));
    EXPECT_EQ(layer.GetSubProperty(OLESTR("width")), nullptr);
}

TEST(PropertyHeaders, SampleOfTheOlderSetGivesWhatItSays)
{
    CKrPropertySetOld set;
    set.CreateProperty(OLESTR("Width"), OLESTR("General"))->SetDouble(0.5);
    EXPECT_TRUE(set.GetCategoryDescription(OLESTR("General")).IsEmpty());
    EXPECT_FALSE(set.MoveCategory(OLESTR("General"), 1));
}

TEST(PropertyHeaders, SampleOfTheOlderPropertyGivesWhatItSays)
{
    CKrPropertyOld width(CKrPropertyOld::ECtrlType::eEditCtrl, OLESTR("Width"), true, true);
    width.SetDouble(2.5);
    EXPECT_EQ(width.GetInt(), -1);
}
