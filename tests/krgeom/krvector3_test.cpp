#include <krgeom/krvector3.h>

#include <gtest/gtest.h>

#include <type_traits>

TEST(CKrVector3, StartsAtZero)
{
    CKrVector3 const value;
    EXPECT_EQ(value[0], 0.0);
    EXPECT_EQ(value[1], 0.0);
    EXPECT_EQ(value[2], 0.0);
}

TEST(CKrVector3, GivesItsCoordinatesByIndexAndByName)
{
    CKrVector3 const value(1.5, -2.0, 3.25);
    EXPECT_EQ(value[0], 1.5);
    EXPECT_EQ(value[1], -2.0);
    EXPECT_EQ(value[2], 3.25);
    EXPECT_EQ(value.x, 1.5);
    EXPECT_EQ(value.y, -2.0);
    EXPECT_EQ(value.z, 3.25);
}

TEST(CKrVector3, KeepsItsCoordinatesInOrder)
{
    CKrVector3 value;
    double * const coordinates = &value.x;
    EXPECT_EQ(&value.y, coordinates + 1);
    EXPECT_EQ(&value.z, coordinates + 2);
}

TEST(CKrVector3, GivesTheLastCoordinateForIndexesPastTheEnd)
{
    CKrVector3 const value(1, 2, 3);
    EXPECT_EQ(value[3], 3.0);
    EXPECT_EQ(value[~0u], 3.0);
}

TEST(CKrVector3, CopiesByValue)
{
    CKrVector3 const source(1, 2, 3);
    CKrVector3 copy(source);
    EXPECT_TRUE(copy == source);
    copy.y = 9;
    EXPECT_EQ(source[1], 2.0);
    EXPECT_FALSE(copy == source);
    copy = source;
    EXPECT_TRUE(copy == source);
}

TEST(CKrVector3, DiffersInAnyCoordinate)
{
    CKrVector3 const value(1, 2, 3);
    EXPECT_TRUE(value != CKrVector3(0, 2, 3));
    EXPECT_TRUE(value != CKrVector3(1, 0, 3));
    EXPECT_TRUE(value != CKrVector3(1, 2, 0));
}

TEST(CKrVector3, IsDestroyedThroughAPointerToIt) { EXPECT_TRUE(std::has_virtual_destructor_v<CKrVector3>); }
