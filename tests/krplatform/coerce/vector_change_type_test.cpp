// Conversions of variants, row by row as the vector files have it.
#include <krplatform/automation/variant.h>

#include "tests/krplatform/automation/make_variant.h"
#include "tests/krplatform/coerce/vector_values.h"
#include "tests/support/vectors.h"
#include "tests/vectors/known_differences.h"

#include <gtest/gtest.h>

namespace kr::test
{

namespace
{

void CheckSuccess(VectorRow const & row, VARIANT const & value)
{
    EXPECT_EQ(value.vt, TagOf(row["dst_type"]));
    EXPECT_TRUE(Says(row["result"], row["note"] == "approximate", value)) << Show(value);
}

/// Converts into another variant, and in place. The result of a failure is what was there before.
void CheckRow(VectorRow const & row)
{
    SCOPED_TRACE(row.ToString());
    LCID const locale = static_cast<LCID>(row.GetInteger("lcid"));
    VARTYPE const target = TagOf(row["dst_type"]);

    Cleared source(MakeValue(row["src_type"], row["src_value"]));
    std::string const shown = Show(*source);
    Cleared destination(MakeTextVariant(OLESTR("before")));
    EXPECT_EQ(VariantChangeTypeEx(destination.Get(), source.Get(), locale, 0, target), row.GetHresult());
    EXPECT_EQ(source->vt, TagOf(row["src_type"]));
    EXPECT_EQ(Show(*source), shown);
    if (SUCCEEDED(row.GetHresult()))
        CheckSuccess(row, *destination);
    else
        EXPECT_EQ(Show(*destination), "before");

    EXPECT_EQ(VariantChangeTypeEx(source.Get(), source.Get(), locale, 0, target), row.GetHresult());
    if (SUCCEEDED(row.GetHresult()))
        CheckSuccess(row, *source);
    else
        EXPECT_EQ(Show(*source), shown);
}

} // namespace

TEST(ChangeTypeVectors, AreAnsweredAsByThePlatform)
{
    VectorFile const file("change_type");
    for (VectorRow const & row : file.GetRows())
    {
        if (IsBinding("change_type", row))
            CheckRow(row);
    }
}

// The functions of this file convert one type to one other, as `VariantChangeTypeEx` does with flags 0.

TEST(ChangeTypeVectors, HoldForTheFactsOfThePlatformsOwnTests)
{
    VectorFile const file("platform_facts");
    for (VectorRow const & row : file.GetRows())
    {
        if (IsBinding("platform_facts", row) && row["function"] != "VarDateFromStr")
            CheckRow(row);
    }
}

TEST(ChangeTypeVectors, HoldForTheDatesOfThePlatformsOwnTests)
{
    VectorFile const file("platform_facts");
    for (VectorRow const & row : file.GetRows())
    {
        if (IsBinding("platform_facts", row) && row["function"] == "VarDateFromStr")
            CheckRow(row);
    }
}

} // namespace kr::test
