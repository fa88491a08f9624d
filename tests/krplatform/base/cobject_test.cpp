#include <krplatform/base/cobject.h>

#include "tests/support/virtual_slot.h"

#include <gtest/gtest.h>

#include <type_traits>

using kr::test::VirtualSlotOf;

static_assert(!std::is_copy_constructible_v<CObject>);
static_assert(!std::is_copy_assignable_v<CObject>);
static_assert(std::has_virtual_destructor_v<CObject>);

namespace
{

// Two generations of classes with records, as clients write them.
class Shape : public CObject
{
public:
    CRuntimeClass * GetRuntimeClass() const override { return &classShape; }
    static CRuntimeClass classShape;
};
CRuntimeClass Shape::classShape = {"Shape", sizeof(Shape), 0xFFFF, nullptr, &CObject::GetThisClass};

class Circle : public Shape
{
public:
    explicit Circle(int & destroyed) : m_destroyed(destroyed) {}
    ~Circle() override { ++m_destroyed; }
    CRuntimeClass * GetRuntimeClass() const override { return &classCircle; }
    static CRuntimeClass classCircle;

private:
    int & m_destroyed;
};
CRuntimeClass Circle::classCircle = {"Circle", sizeof(Circle), 0xFFFF, nullptr,
                                     [] { return static_cast<CRuntimeClass *>(&Shape::classShape); }};

// Without a record of its own.
class Plain : public CObject
{
};

} // namespace

TEST(CRuntimeClass, OfCObjectIsTheRoot)
{
    CRuntimeClass const & root = CObject::classCObject;
    EXPECT_STREQ(root.m_lpszClassName, "CObject");
    EXPECT_EQ(root.m_nObjectSize, static_cast<int>(sizeof(CObject)));
    EXPECT_EQ(root.m_wSchema, 0xFFFFu);
    EXPECT_EQ(root.m_pfnCreateObject, nullptr);
    EXPECT_EQ(root.m_pfnGetBaseClass, nullptr);
    EXPECT_EQ(CObject::GetThisClass(), &root);
}

TEST(CRuntimeClass, DerivesFromItselfAndItsBases)
{
    EXPECT_TRUE(Circle::classCircle.IsDerivedFrom(&Circle::classCircle));
    EXPECT_TRUE(Circle::classCircle.IsDerivedFrom(&Shape::classShape));
    EXPECT_TRUE(Circle::classCircle.IsDerivedFrom(&CObject::classCObject));
    EXPECT_TRUE(CObject::classCObject.IsDerivedFrom(&CObject::classCObject));
    EXPECT_FALSE(Shape::classShape.IsDerivedFrom(&Circle::classCircle));
    EXPECT_FALSE(CObject::classCObject.IsDerivedFrom(&Shape::classShape));
}

TEST(CRuntimeClass, DerivesFromNoNull)
{
    EXPECT_FALSE(Circle::classCircle.IsDerivedFrom(nullptr));
    EXPECT_FALSE(CObject::classCObject.IsDerivedFrom(nullptr));
}

TEST(CRuntimeClass, IsFoundByIdentityNotByName)
{
    CRuntimeClass const sameName = {"Shape", sizeof(Shape), 0xFFFF, nullptr, &CObject::GetThisClass};
    EXPECT_FALSE(Circle::classCircle.IsDerivedFrom(&sameName));
}

TEST(CObject, IsOfItsClassAndItsBases)
{
    int destroyed = 0;
    Circle const circle(destroyed);
    CObject const & object = circle;
    EXPECT_EQ(object.GetRuntimeClass(), &Circle::classCircle);
    EXPECT_TRUE(object.IsKindOf(&Circle::classCircle));
    EXPECT_TRUE(object.IsKindOf(&Shape::classShape));
    EXPECT_TRUE(object.IsKindOf(&CObject::classCObject));
    EXPECT_FALSE(object.IsKindOf(nullptr));
    Shape const shape;
    EXPECT_FALSE(shape.IsKindOf(&Circle::classCircle));
}

TEST(CObject, WithoutARecordHasThatOfTheRoot)
{
    Plain const plain;
    EXPECT_EQ(plain.GetRuntimeClass(), &CObject::classCObject);
    EXPECT_FALSE(plain.IsKindOf(&Shape::classShape));
}

TEST(CObject, IsDestroyedThroughTheRoot)
{
    int destroyed = 0;
    CObject * const object = new Circle(destroyed);
    delete object;
    EXPECT_EQ(destroyed, 1);
}

TEST(CObject, HasItsOperationsInThePlatformsOrder)
{
    EXPECT_EQ(VirtualSlotOf(&CObject::GetRuntimeClass), 0u);
    // The destructor takes places 1 and 2.
    EXPECT_EQ(VirtualSlotOf(&CObject::Serialize), 3u);
    EXPECT_EQ(VirtualSlotOf(&CObject::AssertValid), 4u);
    EXPECT_EQ(VirtualSlotOf(&CObject::Dump), 5u);
}

TEST(CObject, DiagnosticOperationsDoNothing)
{
    Plain plain;
    plain.AssertValid();
    // The operations do not look at what they get, and no class of these is defined.
    int nothing = 0;
    plain.Serialize(reinterpret_cast<CArchive &>(nothing));
    plain.Dump(reinterpret_cast<CDumpContext &>(nothing));
    EXPECT_EQ(nothing, 0);
}
