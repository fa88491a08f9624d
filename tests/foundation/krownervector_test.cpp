#include <krcore/foundation/krownervector.h>

#include "tests/foundation/counted.h"

#include <gtest/gtest.h>

#include <memory>

using kr::test::Counted;

namespace
{

using Vector = kr::ownervector<Counted>;

/// Asks its vector for its size while it is destroyed.
class Asker
{
public:
    Asker(kr::ownervector<Asker> const & vector, std::size_t & seen) : m_vector(vector), m_seen(seen) {}
    virtual ~Asker() { m_seen = m_vector.size(); }

private:
    kr::ownervector<Asker> const & m_vector;
    std::size_t & m_seen;
};

} // namespace

TEST(OwnerVector, DeletesItsElementsWhenItEnds)
{
    {
        Vector vector;
        vector.push_back(new Counted);
        vector.push_back(nullptr);
        vector.push_back(new kr::test::CountedWithClone);
        EXPECT_EQ(Counted::Living(), 2);
        EXPECT_EQ(vector.size(), 3u);
    }
    EXPECT_EQ(Counted::Living(), 0);
}

TEST(OwnerVector, DeletesThroughTheVirtualDestructor)
{
    {
        kr::ownervector<CKrObject> vector;
        vector.push_back(new Counted);
    }
    EXPECT_EQ(Counted::Living(), 0);
}

TEST(OwnerVector, ANewCopyStaysEmpty)
{
    Vector vector;
    vector.push_back(new Counted);
    Vector const copy(vector);
    EXPECT_TRUE(copy.empty());
    EXPECT_EQ(vector.size(), 1u);
    Vector const fromTemporary{Vector(vector)};
    EXPECT_TRUE(fromTemporary.empty());
    EXPECT_EQ(Counted::Living(), 1);
}

TEST(OwnerVector, AnAssignmentDeletesTheElementsOfTheTargetAndLeavesItEmpty)
{
    Vector source;
    source.push_back(new Counted(1));
    source.push_back(new Counted(2));
    Vector target;
    target.push_back(new Counted(3));
    EXPECT_EQ(&(target = source), &target);
    EXPECT_TRUE(target.empty());
    ASSERT_EQ(source.size(), 2u);
    EXPECT_EQ(source[1]->value, 2);
    EXPECT_EQ(Counted::Living(), 2);
}

TEST(OwnerVector, AssigningItToItselfHasNoEffect)
{
    Vector vector;
    vector.push_back(new Counted(4));
    Vector & same = vector;
    vector = same;
    ASSERT_EQ(vector.size(), 1u);
    EXPECT_EQ(vector[0]->value, 4);
}

TEST(OwnerVector, WhatTheVectorsOwnOperationsTakeOutBelongsToTheCaller)
{
    Vector vector;
    std::unique_ptr<Counted> const first(new Counted(1));
    std::unique_ptr<Counted> const second(new Counted(2));
    std::unique_ptr<Counted> const third(new Counted(3));
    vector.push_back(first.get());
    vector.push_back(second.get());
    vector.push_back(third.get());
    vector.pop_back();
    vector.erase(vector.begin());
    vector.clear();
    EXPECT_EQ(Counted::Living(), 3);
}

TEST(OwnerVector, SwapHandsTheElementsOver)
{
    Vector first;
    Vector second;
    first.push_back(new Counted(1));
    first.swap(second);
    EXPECT_TRUE(first.empty());
    ASSERT_EQ(second.size(), 1u);
    EXPECT_EQ(second[0]->value, 1);
    EXPECT_EQ(Counted::Living(), 1);
}

TEST(OwnerVector, IsAlreadyEmptyWhenADestructorOfAnElementLooksAtIt)
{
    std::size_t seen = 99;
    kr::ownervector<Asker> vector;
    vector.push_back(new Asker(vector, seen));
    vector = kr::ownervector<Asker>();
    EXPECT_EQ(seen, 0u);
}
