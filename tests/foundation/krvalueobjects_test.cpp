#include <krcore/foundation/krvalueobjects.h>

#include <krcore/foundation/krclass.h>

#include "tests/support/failing_allocator.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <type_traits>

namespace
{

std::vector<CString> const s_texts = {CString(OLESTR("wall")), CString(), CString(OLESTR("door"))};

} // namespace

TEST(CKrStringObject, HasNoDefaultConstructor) { EXPECT_FALSE(std::is_default_constructible_v<CKrStringObject>); }

TEST(CKrStringObject, AnswersForItsClass)
{
    CKrStringObject const object(OLESTR("wall"));
    CKrStringListObject const other(s_texts);
    EXPECT_EQ(object.IsA(), CKrStringObject::Cls());
    EXPECT_EQ(object.ClsName(), OLESTR("CKrStringObject"));
    EXPECT_EQ(CKrStringObject::Cast(&object), &object);
    EXPECT_EQ(CKrStringObject::Cast(&other), nullptr);
    EXPECT_EQ(CKrStringObject::Cast(nullptr), nullptr);
}

TEST(CKrStringObject, HoldsACopyOfTheText)
{
    CString text(OLESTR("wall"));
    CKrStringObject object(text);
    text = OLESTR("door");
    EXPECT_EQ(object.GetValue(), OLESTR("wall"));
    object.SetValue(text);
    EXPECT_EQ(object.GetValue(), OLESTR("door"));
    object.SetValue(object.GetValue());
    EXPECT_EQ(object.GetValue(), OLESTR("door"));
}

TEST(CKrStringObject, CopiesItsValue)
{
    CKrStringObject object(OLESTR("wall"));
    CKrStringObject const copy(object);
    CKrStringObject assigned(OLESTR("other"));
    EXPECT_EQ(&(assigned = object), &assigned);
    object.SetValue(OLESTR("door"));
    EXPECT_EQ(copy.GetValue(), OLESTR("wall"));
    EXPECT_EQ(assigned.GetValue(), OLESTR("wall"));
}

TEST(CKrStringObject, ItsOwnCloneKeepsTheValue)
{
    CKrStringObject object(OLESTR("wall"));
    std::unique_ptr<CKrStringObject> const clone(object.Clone());
    EXPECT_NE(clone.get(), &object);
    EXPECT_EQ(clone->GetValue(), OLESTR("wall"));
}

TEST(CKrStringObject, TheVirtualCloneIsAPlainObjectWithoutAValue)
{
    CKrStringObject object(OLESTR("wall"));
    std::unique_ptr<CKrObject> const clone(static_cast<CKrObject &>(object).Clone());
    EXPECT_EQ(clone->IsA(), CKrObject::Cls());
    EXPECT_EQ(CKrStringObject::Cast(clone.get()), nullptr);
}

TEST(CKrStringListObject, HasNoDefaultConstructor)
{
    EXPECT_FALSE(std::is_default_constructible_v<CKrStringListObject>);
}

TEST(CKrStringListObject, AnswersForItsClass)
{
    CKrStringListObject const object(s_texts);
    CKrStringObject const other(OLESTR("wall"));
    EXPECT_EQ(object.IsA(), CKrStringListObject::Cls());
    EXPECT_EQ(object.ClsName(), OLESTR("CKrStringListObject"));
    EXPECT_EQ(CKrStringListObject::Cast(&object), &object);
    EXPECT_EQ(CKrStringListObject::Cast(&other), nullptr);
    EXPECT_EQ(CKrStringListObject::Cast(nullptr), nullptr);
}

TEST(CKrStringListObject, HoldsACopyOfTheTexts)
{
    std::vector<CString> texts = s_texts;
    CKrStringListObject object(texts);
    texts.clear();
    EXPECT_EQ(object.GetValue(), s_texts);
    object.SetValue(object.GetValue());
    EXPECT_EQ(object.GetValue(), s_texts);
    object.SetValue(texts);
    EXPECT_TRUE(object.GetValue().empty());
}

TEST(CKrStringListObject, CopiesItsValue)
{
    CKrStringListObject object(s_texts);
    CKrStringListObject const copy(object);
    CKrStringListObject assigned({});
    EXPECT_EQ(&(assigned = object), &assigned);
    object.SetValue({});
    EXPECT_EQ(copy.GetValue(), s_texts);
    EXPECT_EQ(assigned.GetValue(), s_texts);
}

TEST(CKrStringListObject, ItsOwnCloneKeepsTheValue)
{
    CKrStringListObject object(s_texts);
    std::unique_ptr<CKrStringListObject> const clone(object.Clone());
    EXPECT_NE(clone.get(), &object);
    EXPECT_EQ(clone->GetValue(), s_texts);
}

TEST(CKrStringListObject, TheVirtualCloneIsAPlainObjectWithoutAValue)
{
    CKrStringListObject object(s_texts);
    std::unique_ptr<CKrObject> const clone(static_cast<CKrObject &>(object).Clone());
    EXPECT_EQ(clone->IsA(), CKrObject::Cls());
    EXPECT_EQ(CKrStringListObject::Cast(clone.get()), nullptr);
}

TEST(CKrStringListObject, KeepsItsTextsWhenMemoryRunsOut)
{
    CKrStringListObject const other(s_texts);
    CKrStringListObject object({CString(OLESTR("old"))});
    {
        kr::test::FailNthAllocation const fail(1);
        EXPECT_THROW(object.SetValue(s_texts), std::bad_alloc);
    }
    {
        kr::test::FailNthAllocation const fail(1);
        EXPECT_THROW(object = other, std::bad_alloc);
    }
    ASSERT_EQ(object.GetValue().size(), 1u);
    EXPECT_EQ(object.GetValue()[0], OLESTR("old"));
}

TEST(CKrStringListObject, CloningLeavesNothingBehindWhereverMemoryRunsOut)
{
    CKrStringListObject object(s_texts);
    std::size_t const failures = kr::test::FailEveryAllocation([&object] { delete object.Clone(); },
                                                               [] { EXPECT_THROW(throw, std::bad_alloc); });
    EXPECT_EQ(failures, 2u) << "the object and its list";
}

TEST(CKrVariantObject, HasNoDefaultConstructor) { EXPECT_FALSE(std::is_default_constructible_v<CKrVariantObject>); }

TEST(CKrVariantObject, AnswersForItsClass)
{
    CKrVariantObject const object(CKrVariant(2.5));
    CKrStringObject const other(OLESTR("wall"));
    EXPECT_EQ(object.IsA(), CKrVariantObject::Cls());
    EXPECT_EQ(object.ClsName(), OLESTR("CKrVariantObject"));
    EXPECT_EQ(CKrVariantObject::Cast(&object), &object);
    EXPECT_EQ(CKrVariantObject::Cast(&other), nullptr);
    EXPECT_EQ(CKrVariantObject::Cast(nullptr), nullptr);
}

TEST(CKrVariantObject, HoldsACopyOfTheValueWithItsTag)
{
    CKrVariant value(CKrColor(5));
    CKrVariantObject object(value);
    value = CKrVariant(OLESTR("wall"));
    EXPECT_TRUE(object.GetValue().IsColor());
    object.SetValue(value);
    EXPECT_TRUE(object.GetValue() == value);
    object.SetValue(object.GetValue());
    EXPECT_TRUE(object.GetValue() == value);
    EXPECT_NE(object.GetValue().bstrVal, value.bstrVal) << "the text is its own";
}

TEST(CKrVariantObject, CopiesItsValue)
{
    CKrVariantObject object(CKrVariant(2.5));
    CKrVariantObject const copy(object);
    CKrVariantObject assigned(CKrVariant(1));
    EXPECT_EQ(&(assigned = object), &assigned);
    object.SetValue(CKrVariant(3.5));
    EXPECT_TRUE(copy.GetValue() == CKrVariant(2.5));
    EXPECT_TRUE(assigned.GetValue() == CKrVariant(2.5));
}

TEST(CKrVariantObject, ItsOwnCloneKeepsTheValue)
{
    CKrVariantObject object(CKrVariant(OLESTR("wall")));
    std::unique_ptr<CKrVariantObject> const clone(object.Clone());
    EXPECT_TRUE(clone->GetValue() == object.GetValue());
    EXPECT_NE(clone->GetValue().bstrVal, object.GetValue().bstrVal);
}

TEST(CKrVariantObject, TheVirtualCloneIsAPlainObjectWithoutAValue)
{
    CKrVariantObject object(CKrVariant(2.5));
    std::unique_ptr<CKrObject> const clone(static_cast<CKrObject &>(object).Clone());
    EXPECT_EQ(clone->IsA(), CKrObject::Cls());
    EXPECT_EQ(CKrVariantObject::Cast(clone.get()), nullptr);
}

TEST(CKrVariantObject, CloningLeavesNothingBehindWhereverMemoryRunsOut)
{
    CKrVariantObject object(CKrVariant(OLESTR("wall")));
    std::size_t const failures =
        kr::test::FailEveryAllocation([&object] { delete object.Clone(); }, [] { EXPECT_ANY_THROW(throw); });
    EXPECT_EQ(failures, 2u) << "the object and its text";
}
