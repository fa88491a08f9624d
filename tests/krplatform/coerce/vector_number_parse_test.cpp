// Text to amounts and truth values, row by row as the vector files have it.
#include <krplatform/automation/vartext.h>

#include "tests/support/vectors.h"
#include "tests/vectors/known_differences.h"

#include <gtest/gtest.h>

namespace kr::test
{

TEST(NumberParseVectors, AmountsAreReadAsByThePlatform)
{
    VectorFile const file("cy_from_str");
    for (VectorRow const & row : file.GetRows())
    {
        if (!IsBinding("cy_from_str", row))
            continue;
        SCOPED_TRACE(row.ToString());
        std::basic_string<WCHAR> const text = row.GetText("text").value();
        CY amount;
        amount.int64 = 4711;
        EXPECT_EQ(VarCyFromStr(text.c_str(), static_cast<LCID>(row.GetInteger("lcid")), 0, &amount), row.GetHresult());
        EXPECT_EQ(amount.int64, row["cy"] == "-" ? 4711 : row.GetInteger("cy"));
    }
}

TEST(NumberParseVectors, TruthValuesAreReadAsByThePlatform)
{
    VectorFile const file("bool_from_str");
    for (VectorRow const & row : file.GetRows())
    {
        if (!IsBinding("bool_from_str", row))
            continue;
        SCOPED_TRACE(row.ToString());
        std::basic_string<WCHAR> const text = row.GetText("text").value();
        ULONG const flags = static_cast<ULONG>(std::stoul(row["flags"], nullptr, 16));
        VARIANT_BOOL truth = 4711;
        EXPECT_EQ(VarBoolFromStr(text.c_str(), static_cast<LCID>(row.GetInteger("lcid")), flags, &truth),
                  row.GetHresult());
        EXPECT_EQ(truth, row["bool"] == "-" ? 4711 : row.GetInteger("bool"));
    }
}

} // namespace kr::test
