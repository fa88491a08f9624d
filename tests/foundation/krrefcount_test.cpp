#include <krcore/foundation/krrefcount.h>

#include <gtest/gtest.h>

#include <type_traits>

namespace
{

class Counting : public CKrRefCount
{
public:
    explicit Counting(bool & isAlive) : m_isAlive(isAlive) { m_isAlive = true; }
    ~Counting() override { m_isAlive = false; }
    Counting(Counting const & other) : CKrRefCount(other), m_isAlive(other.m_isAlive) { m_isAlive = true; }
    Counting & operator=(Counting const & other)
    {
        CKrRefCount::operator=(other);
        return *this;
    }

private:
    bool & m_isAlive;
};

} // namespace

static_assert(std::has_virtual_destructor_v<CKrRefCount>);

TEST(CKrRefCount, IsDeletedByTheLastOfItsReferences)
{
    bool isAlive = false;
    CKrRefCount * const object = new Counting(isAlive);
    object->IncRefCount();
    object->IncRefCount();
    object->DecRefCount();
    EXPECT_TRUE(isAlive);
    object->DecRefCount();
    EXPECT_FALSE(isAlive);
}

TEST(CKrRefCount, ANewObjectDoesNotCountItsCreatorAndLivesOnBelowZero)
{
    bool isAlive = false;
    CKrRefCount * const object = new Counting(isAlive);
    object->DecRefCount();
    EXPECT_TRUE(isAlive);
    object->DecRefCount();
    EXPECT_TRUE(isAlive);
    for (int times = 0; times < 3; ++times)
        object->IncRefCount(); // 1
    EXPECT_TRUE(isAlive);
    object->DecRefCount();
    EXPECT_FALSE(isAlive);
}

TEST(CKrRefCount, AnAssignmentOverwritesTheReferencesToTheTarget)
{
    bool isSourceAlive = false;
    bool isTargetAlive = false;
    CKrRefCount * const source = new Counting(isSourceAlive);
    Counting * const target = new Counting(isTargetAlive);
    source->IncRefCount();
    for (int times = 0; times < 5; ++times)
        target->IncRefCount();
    EXPECT_EQ(&(*target = *static_cast<Counting *>(source)), target);
    target->DecRefCount(); // 1, as the source
    EXPECT_FALSE(isTargetAlive);
    source->DecRefCount();
    EXPECT_FALSE(isSourceAlive);
}

TEST(CKrRefCount, ACopyHasAMeaningfulCountOnceItIsAssigned)
{
    bool isAlive = false;
    Counting source(isAlive);
    source.IncRefCount();
    source.IncRefCount();
    Counting * const copy = new Counting(source);
    *copy = source;
    copy->DecRefCount();
    EXPECT_TRUE(isAlive);
    copy->DecRefCount();
    EXPECT_FALSE(isAlive);
}

TEST(CKrRefCount, ACopyTakesNothingFromTheSource)
{
    bool isAlive = false;
    Counting source(isAlive);
    source.IncRefCount();
    Counting copy(source);
    copy.DecRefCount(); // with the source's count it would delete itself, and it stands on the stack
    EXPECT_TRUE(isAlive);
}
