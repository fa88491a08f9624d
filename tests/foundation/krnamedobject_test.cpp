#include <krcore/foundation/krnamedobject.h>

#include "tests/support/failing_allocator.h"
#include "tests/support/text.h"

#include <krplatform/base/cexception.h>

#include <gtest/gtest.h>

#include <type_traits>

TEST(CKrNamedObject, StartsWithMinusOneAndNoName)
{
    CKrNamedObject const object;
    EXPECT_EQ(object.GetID(), -1);
    EXPECT_EQ(object.GetName(), OLESTR(""));
    EXPECT_EQ(object.IDToString(), OLESTR("-1"));
}

TEST(CKrNamedObject, MakesItsNameOfTheIdentifierOnDemand)
{
    struct Row
    {
        long id;
        WCHAR const * text;
    };
    // clang-format off
    Row const rows[] = {
        // id            text
        {            7,  OLESTR("7")           },
        {            0,  OLESTR("0")           },
        {          -12,  OLESTR("-12")         },
        {  2147483647L,  OLESTR("2147483647")  },
        { -2147483648L,  OLESTR("-2147483648") },
        {  2147483648L,  OLESTR("-2147483648") },  // the text shows the low 32 bits
        {  4294967303L,  OLESTR("7")           },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.id);
        CKrNamedObject const named(row.id, true);
        EXPECT_EQ(named.GetID(), row.id);
        EXPECT_EQ(named.GetName(), row.text);
        EXPECT_EQ(named.IDToString(), row.text);
        CKrNamedObject const nameless(row.id, false);
        EXPECT_EQ(nameless.GetID(), row.id);
        EXPECT_EQ(nameless.GetName(), OLESTR(""));
        EXPECT_EQ(nameless.IDToString(), row.text);
    }
}

TEST(CKrNamedObject, KeepsIdentifierAndNameApart)
{
    CKrNamedObject object(7, true);
    object.SetID(9);
    EXPECT_EQ(object.GetID(), 9);
    EXPECT_EQ(object.GetName(), OLESTR("7"));
    object.SetName(OLESTR("wall"));
    EXPECT_EQ(object.GetName(), OLESTR("wall"));
    EXPECT_EQ(object.GetID(), 9);
    object.SetName(object.GetName());
    EXPECT_EQ(object.GetName(), OLESTR("wall"));
}

TEST(CKrNamedObject, CopiesBothFields)
{
    CKrNamedObject object(7, false);
    object.SetName(OLESTR("wall"));
    CKrNamedObject copy(object);
    CKrNamedObject assigned;
    EXPECT_EQ(&(assigned = object), &assigned);
    for (CKrNamedObject const * const made : {&copy, &assigned})
    {
        EXPECT_EQ(made->GetID(), 7);
        EXPECT_EQ(made->GetName(), OLESTR("wall"));
    }
    copy.SetName(OLESTR("door"));
    EXPECT_EQ(object.GetName(), OLESTR("wall"));
}

TEST(CKrNamedObject, IsARootOfItsOwnWithAVirtualDestructor)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<CKrNamedObject>);
    EXPECT_EQ(sizeof(CKrNamedObject), 3 * sizeof(void *)) << "table, identifier, name and no base with data";
}

TEST(CKrNamedObject, MakingANameRaisesTheMemoryExceptionWhenMemoryRunsOut)
{
    std::size_t const failures = kr::test::FailEveryAllocation([] { CKrNamedObject const object(123456, true); },
                                                               [] { EXPECT_THROW(throw, CMemoryException *); });
    EXPECT_GT(failures, 0u);
}
