// The sample of docs/values.md.
#include <krcore/values/krattrlist.h>
#include <krcore/values/kroptionlist.h>

#include <gtest/gtest.h>

TEST(ValuesPage, SampleGivesWhatItSays)
{
    CKrVariant const width(2.5);
    EXPECT_EQ(width.GetType(), CKrVariant::eDouble);
    EXPECT_EQ(width.GetAsString(), OLESTR("2.5"));

    CKrVariant value(true);
    value.ConvertType(CKrVariant::eDouble);
    EXPECT_EQ(double(value), 1.0);
    EXPECT_EQ(int(CKrVariant(OLESTR("abc"))), 0);

    CKrVariant const color(CKrColor(5));
    EXPECT_EQ(int(color), -5);
    EXPECT_EQ(CKrColor(color).GetColorIndex(), 5);

    CKrVariant const names(std::vector<CString>{OLESTR("wall"), OLESTR("door")});
    EXPECT_EQ(names.GetStringVector()[1], OLESTR("door"));

    CKrAttrList attributes;
    EXPECT_EQ(attributes.GetLongAdd(OLESTR("Columns"), 3, OLESTR("shown side by side")), 3);
    EXPECT_EQ(attributes.GetLong(OLESTR("Columns"), 9), 3);
    EXPECT_EQ(attributes.GetLong(OLESTR("Rows"), 9), 9);

    CKrOptionList options;
    options.AddOption(OLESTR("m"), OLESTR("Metre"), true);
    options.AddOption(OLESTR("mm"), OLESTR("Millimetre"), false);
    options.SelectID(OLESTR("mm"), true);
    EXPECT_EQ(options.GetSelectedIDs(), OLESTR("m;mm"));
}
