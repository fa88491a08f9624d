#include <krplatform/base/hresult.h>
#include <krplatform/base/types.h>

#include <gtest/gtest.h>

#include <type_traits>

namespace
{

struct ResultRow
{
    char const * name;
    HRESULT result;
    std::uint32_t number;
    bool isFailure;
};

// clang-format off
constexpr ResultRow resultRows[] = {
    { "S_OK",                 S_OK,                 0,          false },
    { "S_FALSE",              S_FALSE,              1,          false },
    { "E_NOTIMPL",            E_NOTIMPL,            0x80004001, true  },
    { "E_NOINTERFACE",        E_NOINTERFACE,        0x80004002, true  },
    { "E_POINTER",            E_POINTER,            0x80004003, true  },
    { "E_FAIL",               E_FAIL,               0x80004005, true  },
    { "E_UNEXPECTED",         E_UNEXPECTED,         0x8000FFFF, true  },
    { "E_OUTOFMEMORY",        E_OUTOFMEMORY,        0x8007000E, true  },
    { "E_INVALIDARG",         E_INVALIDARG,         0x80070057, true  },
    { "DISP_E_TYPEMISMATCH",  DISP_E_TYPEMISMATCH,  0x80020005, true  },
    { "DISP_E_BADVARTYPE",    DISP_E_BADVARTYPE,    0x80020008, true  },
    { "DISP_E_OVERFLOW",      DISP_E_OVERFLOW,      0x8002000A, true  },
    { "DISP_E_BADINDEX",      DISP_E_BADINDEX,      0x8002000B, true  },
    { "DISP_E_ARRAYISLOCKED", DISP_E_ARRAYISLOCKED, 0x8002000D, true  },
    { "the greatest success", 0x7FFFFFFF,           0x7FFFFFFF, false },
};
// clang-format on

} // namespace

TEST(Hresult, ANegativeNumberIsAFailure)
{
    for (ResultRow const & row : resultRows)
    {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(static_cast<std::uint32_t>(row.result), row.number);
        EXPECT_EQ(FAILED(row.result), row.isFailure);
        EXPECT_EQ(SUCCEEDED(row.result), !row.isFailure);
    }
}

TEST(PlatformTypes, HaveTheirWidths)
{
    EXPECT_EQ(sizeof(WCHAR), 2u);
    EXPECT_EQ(sizeof(BYTE), 1u);
    EXPECT_EQ(sizeof(WORD), 2u);
    EXPECT_EQ(sizeof(SHORT), 2u);
    EXPECT_EQ(sizeof(VARTYPE), 2u);
    EXPECT_EQ(sizeof(VARIANT_BOOL), 2u);
    EXPECT_EQ(sizeof(DWORD), 4u);
    EXPECT_EQ(sizeof(ULONG), 4u);
    EXPECT_EQ(sizeof(LONG), 4u);
    EXPECT_EQ(sizeof(BOOL), 4u);
    EXPECT_EQ(sizeof(HRESULT), 4u);
    EXPECT_EQ(sizeof(LONGLONG), 8u);
    EXPECT_EQ(sizeof(DATE), 8u);
    EXPECT_EQ(sizeof(CY), 8u);
    EXPECT_EQ(sizeof(GUID), 16u);
    EXPECT_TRUE(std::is_signed_v<LONG>);
    EXPECT_TRUE(std::is_signed_v<HRESULT>);
    EXPECT_FALSE(std::is_signed_v<DWORD>);
    EXPECT_TRUE((std::is_same_v<OLECHAR, WCHAR>));
}

TEST(PlatformTypes, TrueHasAllBitsSet)
{
    EXPECT_EQ(static_cast<std::uint16_t>(VARIANT_TRUE), 0xFFFFu);
    EXPECT_EQ(VARIANT_FALSE, 0);
    EXPECT_EQ(TRUE, 1);
    EXPECT_EQ(FALSE, 0);
}

TEST(PlatformTypes, CurrencyIsOneNumberInTwoHalves)
{
    CY amount;
    amount.int64 = -2;
    EXPECT_EQ(amount.s.Lo, 0xFFFFFFFEu);
    EXPECT_EQ(amount.s.Hi, -1);
}

TEST(PlatformTypes, LocalesAreThePlatformsNumbers)
{
    EXPECT_EQ(LOCALE_NEUTRAL, 0u);
    EXPECT_EQ(LOCALE_INVARIANT, 127u);
    EXPECT_EQ(LOCALE_USER_DEFAULT, 1024u);
}

TEST(PlatformTypes, IdentifiersAreEqualInAllTheirParts)
{
    GUID const one = {1, 2, 3, {4, 5, 6, 7, 8, 9, 10, 11}};
    EXPECT_TRUE(one == one);
    for (int part = 0; part < 4; ++part)
    {
        GUID other = one;
        other.Data1 += part == 0;
        other.Data2 = static_cast<std::uint16_t>(other.Data2 + (part == 1));
        other.Data3 = static_cast<std::uint16_t>(other.Data3 + (part == 2));
        other.Data4[7] = static_cast<std::uint8_t>(other.Data4[7] + (part == 3));
        EXPECT_FALSE(one == other) << part;
    }
}

TEST(PlatformTypes, LiteralsAreOfCodeUnits)
{
    EXPECT_TRUE((std::is_same_v<decltype(OLESTR('a')), WCHAR>));
    WCHAR const * const text = OLESTR("a\u20AC");
    EXPECT_EQ(text[0], 'a');
    EXPECT_EQ(text[1], 0x20AC);
    EXPECT_EQ(text[2], 0);
}
