#include <krcore/values/krvariant.h>

#include <gtest/gtest.h>

#include <set>

// The two mappings are seen through `AttachFrom`, which takes the tag from `vt`, and `ConvertType`, which takes `vt` from the tag.

namespace
{

CKrVariant::EType TagOf(int vt)
{
    VARIANT value;
    VariantInit(&value);
    value.vt = static_cast<VARTYPE>(vt);
    CKrVariant attached;
    attached.AttachFrom(value);
    CKrVariant::EType const type = attached.GetType();
    attached.vt = VT_EMPTY; // there is nothing behind the tag
    return type;
}

} // namespace

TEST(CKrVariantTags, FollowFromVt)
{
    // clang-format off
    struct { int vt; int type; } const rows[] = {
        { 1, 1 },
        { 2, 5 }, { 16, 5 }, { 17, 5 },
        { 3, 6 }, { 18, 6 }, { 22, 6 }, { 23, 6 },
        { 4, 3 }, { 5, 4 }, { 6, 11 }, { 7, 12 }, { 8, 2 }, { 9, 13 }, { 11, 7 }, { 12, 31 }, { 21, 16 }, { 65, 14 },
        { 0x2003, 23 }, { 0x2012, 23 }, { 0x2016, 23 }, { 0x2017, 23 },
        { 0x2004, 22 }, { 0x2005, 22 },
        { 0x2008, 21 }, { 0x2009, 25 }, { 0x200B, 24 },
        { 0x200C, 33 },                                        // never a variant vector
    };
    // clang-format on
    std::set<int> named;
    for (auto const & row : rows)
    {
        EXPECT_EQ(TagOf(row.vt), row.type) << row.vt;
        named.insert(row.vt);
    }
    for (int vt = 0; vt <= 0xFFFF; ++vt) // references and vectors among them
    {
        if (named.contains(vt))
            continue;
        EXPECT_EQ(TagOf(vt), CKrVariant::eInvalid) << vt;
    }
}

TEST(CKrVariantTags, LoseColourPointAndListOnTheWayThroughAPlainVariant)
{
    EXPECT_EQ(CKrVariant(static_cast<VARIANT const &>(CKrVariant(CKrColor(5)))).GetType(), CKrVariant::eLong);
    EXPECT_EQ(CKrVariant(static_cast<VARIANT const &>(CKrVariant(CKrPoint3(1, 2, 3)))).GetType(),
              CKrVariant::eDoubleVector);
    EXPECT_EQ(CKrVariant(static_cast<VARIANT const &>(CKrVariant(std::vector<VARIANT>(2)))).GetType(),
              CKrVariant::eVariantMatrix);
    EXPECT_EQ(CKrVariant(static_cast<VARIANT const &>(CKrVariant(CKrPoint3List(2)))).GetType(),
              CKrVariant::eVariantMatrix);
}
