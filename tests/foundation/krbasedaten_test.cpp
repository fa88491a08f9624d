#include <krcore/foundation/krbasedaten.h>

#include "tests/support/virtual_slot.h"

#include <gtest/gtest.h>

#include <type_traits>

using kr::test::VirtualSlotOf;

namespace
{

class Record : public CKrBaseDaten
{
public:
    explicit Record(CString const & key = CString()) : m_key(key) {}

    CString GetObjKey() const override { return m_key; }
    CString GetObjType() const override { return OLESTR("record"); }
    void SetObjKey(CString const & key) override { m_key = key; }

private:
    CString m_key;
};

class Described : public Record
{
public:
    bool HasValidKey() const override { return false; }
    CString GetObjDesc() const override { return OLESTR("described"); }
};

} // namespace

static_assert(std::is_abstract_v<CKrBaseDaten>);
static_assert(std::has_virtual_destructor_v<CKrBaseDaten>);

TEST(CKrBaseDaten, StartsActiveAndWithoutADescription)
{
    Record const record;
    EXPECT_TRUE(record.IsActive());
    EXPECT_TRUE(record.GetObjDesc().IsEmpty());
}

TEST(CKrBaseDaten, AKeyIsValidUnlessItIsEmpty)
{
    Record record;
    EXPECT_FALSE(record.HasValidKey());
    record.SetObjKey(OLESTR("k"));
    EXPECT_TRUE(record.HasValidKey());
}

TEST(CKrBaseDaten, CopiesAndAssignmentsTakeTheFlag)
{
    Record record(OLESTR("k"));
    record.SetActive(false);
    Record const copy(record);
    EXPECT_FALSE(copy.IsActive());
    Record assigned;
    assigned = record;
    EXPECT_FALSE(assigned.IsActive());
    assigned.SetActive(true);
    EXPECT_TRUE(assigned.IsActive());
    EXPECT_FALSE(record.IsActive());
}

TEST(CKrBaseDaten, DerivedRecordsAnswerThroughTheBase)
{
    Described const described;
    CKrBaseDaten const & base = described;
    EXPECT_FALSE(base.HasValidKey());
    EXPECT_EQ(base.GetObjDesc(), OLESTR("described"));
    EXPECT_EQ(base.GetObjType(), OLESTR("record"));
}

TEST(CKrBaseDaten, VirtualOperationsStandInTheirOrder)
{
    EXPECT_EQ(VirtualSlotOf(&CKrBaseDaten::GetObjKey), 2u); // behind the two of the destructor
    EXPECT_EQ(VirtualSlotOf(&CKrBaseDaten::GetObjType), 3u);
    EXPECT_EQ(VirtualSlotOf(&CKrBaseDaten::HasValidKey), 4u);
    EXPECT_EQ(VirtualSlotOf(&CKrBaseDaten::SetObjKey), 5u);
    EXPECT_EQ(VirtualSlotOf(&CKrBaseDaten::GetObjDesc), 6u);
}
