// Numbers to text, row by row as the vector files have it.
#include <krplatform/automation/vartext.h>
#include <krplatform/text/bstr.h>

#include "tests/krplatform/automation/make_variant.h"
#include "tests/support/text.h"
#include "tests/support/vectors.h"
#include "tests/vectors/known_differences.h"

#include <gtest/gtest.h>

#include <functional>

namespace kr::test
{

namespace
{

using Writer = std::function<HRESULT(VectorRow const & row, LCID locale, BSTR * text)>;

void CheckRows(std::string_view name, Writer const & write)
{
    VectorFile const file(name);
    for (VectorRow const & row : file.GetRows())
    {
        if (!IsBinding(name, row))
            continue;
        SCOPED_TRACE(row.ToString());
        BSTR text = nullptr;
        HRESULT const result = write(row, static_cast<LCID>(row.GetInteger("lcid")), &text);
        EXPECT_EQ(result, row.GetHresult());
        EXPECT_EQ(Narrow(TextOf(text)), Narrow(row.GetText("text").value()));
        SysFreeString(text);
    }
}

} // namespace

TEST(NumberTextVectors, DoublesAreWrittenAsByThePlatform)
{
    CheckRows("bstr_from_r8", [](VectorRow const & row, LCID locale, BSTR * text)
              { return VarBstrFromR8(row.GetDouble("bits"), locale, 0, text); });
}

TEST(NumberTextVectors, FloatsAreWrittenAsByThePlatform)
{
    CheckRows("bstr_from_r4", [](VectorRow const & row, LCID locale, BSTR * text)
              { return VarBstrFromR4(row.GetFloat("bits"), locale, 0, text); });
}

TEST(NumberTextVectors, AmountsAreWrittenAsByThePlatform)
{
    CheckRows("bstr_from_cy",
              [](VectorRow const & row, LCID locale, BSTR * text)
              {
                  CY amount;
                  amount.int64 = row.GetInteger("cy");
                  return VarBstrFromCy(amount, locale, 0, text);
              });
}

TEST(NumberTextVectors, TruthValuesAreWrittenAsByThePlatform)
{
    CheckRows("bstr_from_bool",
              [](VectorRow const & row, LCID locale, BSTR * text)
              {
                  ULONG const flags = static_cast<ULONG>(std::stoul(row["flags"], nullptr, 16));
                  return VarBstrFromBool(static_cast<VARIANT_BOOL>(row.GetInteger("bool")), locale, flags, text);
              });
}

} // namespace kr::test
