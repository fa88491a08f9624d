// The sample of docs/foundation.md.
#include <krcore/foundation/krclass.h>
#include <krcore/foundation/krowner.h>

#include <gtest/gtest.h>

TEST(FoundationPage, SampleGivesWhatItSays)
{
    CKrStringObject const text(OLESTR("wall"));
    EXPECT_EQ(text.ClsName(), OLESTR("CKrStringObject"));
    EXPECT_TRUE(text.IsKindOf(CKrStringObject::Cls()));
    EXPECT_EQ(CKrStringObject::Cast(&text), &text);

    kr::ownermap<CString, CKrObject> map;
    map.AddObject(OLESTR("a"), new CKrStringObject(OLESTR("wall")));
    map.AddObject(OLESTR("a"), new CKrStringObject(OLESTR("door")));
    EXPECT_EQ(CKrStringObject::Cast(map.GetObjectW(OLESTR("a")))->GetValue(), OLESTR("door"));
    map.SetNULL(OLESTR("a"));
    EXPECT_EQ(map.GetCount(), 1u);
}
