#include <krcore/graphics/krcolorschemebase.h>

#include "tests/support/virtual_slot.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace
{

/// A client's scheme, that answers each operation in its own way.
class Answering : public CKrColorSchemeBase
{
public:
    bool Init() override { return m_init; }
    bool Reset() override { return m_reset; }
    bool Clear() override { return m_clear; }

    bool m_init = false;
    bool m_reset = false;
    bool m_clear = false;
};

CKrColorSchemeBase Named(WCHAR const * name, WCHAR const * description)
{
    CKrColorSchemeBase scheme;
    scheme.SetName(name);
    scheme.SetDescription(description);
    return scheme;
}

} // namespace

static_assert(std::has_virtual_destructor_v<CKrColorSchemeBase>);

TEST(CKrColorSchemeBase, StartsWithoutNameAndDescription)
{
    CKrColorSchemeBase const scheme;
    EXPECT_TRUE(scheme.GetName().IsEmpty());
    EXPECT_TRUE(scheme.GetDescription().IsEmpty());
}

TEST(CKrColorSchemeBase, KeepsNameAndDescriptionApart)
{
    CKrColorSchemeBase scheme;
    scheme.SetName(OLESTR("Dark"));
    EXPECT_EQ(scheme.GetName(), OLESTR("Dark"));
    EXPECT_TRUE(scheme.GetDescription().IsEmpty());
    scheme.SetDescription(OLESTR("for the night"));
    EXPECT_EQ(scheme.GetName(), OLESTR("Dark"));
    EXPECT_EQ(scheme.GetDescription(), OLESTR("for the night"));
    scheme.SetName(CString());
    EXPECT_TRUE(scheme.GetName().IsEmpty());
}

TEST(CKrColorSchemeBase, DoesNothingAndSaysTrue)
{
    CKrColorSchemeBase scheme = Named(OLESTR("Dark"), OLESTR("for the night"));
    EXPECT_TRUE(scheme.Init());
    EXPECT_TRUE(scheme.Reset());
    EXPECT_TRUE(scheme.Clear());
    EXPECT_EQ(scheme.GetName(), OLESTR("Dark"));
    EXPECT_EQ(scheme.GetDescription(), OLESTR("for the night"));
}

TEST(CKrColorSchemeBase, LeavesItsOperationsToDerivedSchemes)
{
    Answering scheme;
    CKrColorSchemeBase & base = scheme;
    EXPECT_FALSE(base.Init());
    EXPECT_FALSE(base.Reset());
    EXPECT_FALSE(base.Clear());
    scheme.m_reset = true;
    EXPECT_FALSE(base.Init());
    EXPECT_TRUE(base.Reset());
    EXPECT_FALSE(base.Clear());
}

TEST(CKrColorSchemeBase, HasItsVirtualOperationsInTheirOrder)
{
    EXPECT_EQ(kr::test::VirtualSlotOf(&CKrColorSchemeBase::Init), 2u); // behind the destructor
    EXPECT_EQ(kr::test::VirtualSlotOf(&CKrColorSchemeBase::Reset), 3u);
    EXPECT_EQ(kr::test::VirtualSlotOf(&CKrColorSchemeBase::Clear), 4u);
}

TEST(CKrColorSchemeBase, CopiesNameAndDescription)
{
    CKrColorSchemeBase const source = Named(OLESTR("Dark"), OLESTR("for the night"));
    CKrColorSchemeBase copy(source);
    EXPECT_EQ(copy.GetName(), OLESTR("Dark"));
    EXPECT_EQ(copy.GetDescription(), OLESTR("for the night"));
    CKrColorSchemeBase target = Named(OLESTR("Light"), OLESTR("for the day"));
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(target.GetName(), OLESTR("Dark"));
    EXPECT_EQ(target.GetDescription(), OLESTR("for the night"));
    copy.SetName(OLESTR("Grey"));
    EXPECT_EQ(source.GetName(), OLESTR("Dark"));
}
