#include <krplatform/text/casing.h>
#include <krplatform/text/cstring.h>

#include "tests/support/vectors.h"

#include <gtest/gtest.h>
#include <unicode/uchar.h>

#include <algorithm>
#include <iterator>

using kr::detail::IsSpace;
using kr::detail::LowerCase;
using kr::detail::UpperCase;

namespace
{

// Units that ICU maps and this system does not: from their counterpart no way leads back.
// clang-format off
constexpr WCHAR s_leftAlone[] = {
    0x00B5,                                                     // micro sign
    0x0130, 0x0131,                                             // I with a dot, i without
    0x017F,                                                     // long s
    0x01C5, 0x01C8, 0x01CB, 0x01F2,                             // title-case digraphs
    0x0345, 0x1FBE,                                             // iota subscript, prosgegrammeni
    0x03C2,                                                     // final sigma
    0x03D0, 0x03D1, 0x03D5, 0x03D6, 0x03F0, 0x03F1, 0x03F4, 0x03F5,     // Greek symbols
    0x1C80, 0x1C81, 0x1C82, 0x1C83, 0x1C84, 0x1C85, 0x1C86, 0x1C87, 0x1C88, // Cyrillic variants
    0x1E9B, 0x1E9E,                                             // long s with a dot, capital sharp s
    0x2126, 0x212A, 0x212B,                                     // Ohm, Kelvin, Angstrom
};
// clang-format on

bool IsLeftAlone(WCHAR unit)
{
    return std::find(std::begin(s_leftAlone), std::end(s_leftAlone), unit) != std::end(s_leftAlone);
}

} // namespace

TEST(Casing, AgreesWithIcuOnEveryUnitButThoseLeftAlone)
{
    for (unsigned number = 0; number <= 0xFFFF; ++number)
    {
        WCHAR const unit = static_cast<WCHAR>(number);
        if (IsLeftAlone(unit))
        {
            ASSERT_TRUE(u_toupper(unit) != unit || u_tolower(unit) != unit) << std::hex << number;
            ASSERT_EQ(UpperCase(unit), unit) << std::hex << number;
            ASSERT_EQ(LowerCase(unit), unit) << std::hex << number;
        }
        else
        {
            ASSERT_EQ(UpperCase(unit), static_cast<UChar32>(u_toupper(unit))) << std::hex << number;
            ASSERT_EQ(LowerCase(unit), static_cast<UChar32>(u_tolower(unit))) << std::hex << number;
        }
    }
}

TEST(Casing, EveryMappingLeadsBack)
{
    for (unsigned number = 0; number <= 0xFFFF; ++number)
    {
        WCHAR const unit = static_cast<WCHAR>(number);
        if (UpperCase(unit) != unit)
        {
            ASSERT_EQ(LowerCase(UpperCase(unit)), unit) << std::hex << number;
        }
        if (LowerCase(unit) != unit)
        {
            ASSERT_EQ(UpperCase(LowerCase(unit)), unit) << std::hex << number;
        }
    }
}

TEST(Casing, EveryRowOfTheMapHolds)
{
    kr::test::VectorFile const file("case_map");
    for (kr::test::VectorRow const & row : file.GetRows())
    {
        if (row.IsDoubtful())
            continue;
        SCOPED_TRACE(row.ToString());
        WCHAR const unit = static_cast<WCHAR>(std::stoul(row["code_unit"], nullptr, 16));
        EXPECT_EQ(UpperCase(unit), std::stoul(row["upper"], nullptr, 16));
        EXPECT_EQ(LowerCase(unit), std::stoul(row["lower"], nullptr, 16));
    }
}

TEST(Casing, WholeTextsAreMappedUnitByUnit)
{
    CString all;
    for (unsigned number = 1; number <= 0xFFFF; ++number)
        all += static_cast<WCHAR>(number);
    CString upper(all), lower(all);
    upper.MakeUpper();
    lower.MakeLower();
    for (int index = 0; index < all.GetLength(); ++index)
    {
        ASSERT_EQ(upper[index], UpperCase(all[index])) << std::hex << index + 1;
        ASSERT_EQ(lower[index], LowerCase(all[index])) << std::hex << index + 1;
    }
}

TEST(Casing, WhiteSpaceIsThatOfUnicode)
{
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit)
        ASSERT_EQ(IsSpace(static_cast<WCHAR>(unit)), u_isUWhiteSpace(static_cast<UChar32>(unit)) != 0)
            << std::hex << unit;
}
