// The samples of docs/foundation.md.
#include <krcore/foundation/krclass.h>
#include <krcore/foundation/krowner.h>
#include <krcore/foundation/krtreenode.h>
#include <krcore/foundation/krwrappedobj.h>

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

TEST(FoundationPage, SampleOfTreesAndHandlesGivesWhatItSays)
{
    CKrTreeNode root;
    CKrTreeNode * const child = new CKrTreeNode;
    root.AddChild(child);
    EXPECT_EQ(child->IsRoot(), 1);
    child->SetParent(&root);
    root.InsertChild(1, child);
    EXPECT_EQ(root.GetMaxChilds(), 1u);
    root.RemoveChild(child);
    EXPECT_EQ(root.IsLeaf(), 1);

    EXPECT_FALSE(CKrWrappedObj::ObjId(3) == CKrWrappedObj());
    EXPECT_TRUE(CKrWrappedObj() == CKrWrappedObj::ObjId(3));
}
