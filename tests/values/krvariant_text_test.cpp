#include <krcore/values/krvariant.h>

#include "tests/krplatform/automation/thrown_result.h"

#include <gtest/gtest.h>

namespace
{

CKrVariant MakeFloat(float number)
{
    VARIANT value;
    VariantInit(&value);
    value.vt = VT_R4;
    value.fltVal = number;
    return CKrVariant(value);
}

CKrVariant WithTag(CKrVariant const & value, CKrVariant::EType type)
{
    return CKrVariant(static_cast<VARIANT const &>(value), type);
}

} // namespace

TEST(CKrVariantText, GoesByTheTag)
{
    using T = CKrVariant;
    int pointed = 0;
    // clang-format off
    struct { char const * what; CKrVariant value; WCHAR const * text; } const rows[] = {
        { "text",              T(OLESTR("wall")),               OLESTR("wall")  },
        { "true",              T(true),                         OLESTR("1")     },
        { "false",             T(false),                        OLESTR("0")     },
        { "double",            T(-0.25),                        OLESTR("-0.25") },
        { "large double",      T(1e20),                         OLESTR("1E+20") },
        { "float",             MakeFloat(0.5f),                 OLESTR("0.5")   },
        { "float of 0.1",      MakeFloat(0.1f),                 OLESTR("0.100000001490116") },   // the double that it is
        { "short",             T(short{-7}),                    OLESTR("-7")    },
        { "long",              T(-2147483647 - 1),              OLESTR("-2147483648") },
        { "index colour",      T(CKrColor(5)),                  OLESTR("-5")    },
        { "colour",            T(CKrColor(1, 0, 0)),            OLESTR("1")     },
        { "currency",          T(COleCurrency(12, 5000)),       OLESTR("12.5")  },
        { "date",              T(COleDateTime(2021, 3, 15, 8, 5, 9)), OLESTR("3/15/2021 8:05:09 AM") },
        { "invalid",           T(),                             OLESTR("")      },
        { "pointer",           T(static_cast<void *>(&pointed)), OLESTR("")     },
        { "texts",             T(std::vector<CString>{OLESTR("a")}), OLESTR("") },
        { "point",             T(CKrPoint3(1, 2, 3)),           OLESTR("")      },
        { "long as text",      WithTag(T(7), T::eString),       OLESTR("7")     },
        { "text as double",    WithTag(T(OLESTR("2.50")), T::eDouble), OLESTR("2.5") },
        { "text as long",      WithTag(T(OLESTR("x")), T::eLong), OLESTR("0")   },
        { "long as date",      WithTag(T(44270), T::eOleDateTime), OLESTR("3/15/2021") },
        { "text as date",      WithTag(T(OLESTR("abc")), T::eOleDateTime), OLESTR("Invalid DateTime") },
        { "long as a dispatch", WithTag(T(7), T::eDispatch),    OLESTR("")      },
        { "text as null",      WithTag(T(OLESTR("a")), T::eNull), OLESTR("")    },
        { "text as binary",    WithTag(T(OLESTR("a")), T::eBinary), OLESTR("")  },
        { "text as a variant", WithTag(T(OLESTR("a")), T::eVariant), OLESTR("") },
        { "text as pointer",   WithTag(T(OLESTR("a")), T::eVoidPtr), OLESTR("") },
        { "text as no tag",    WithTag(T(OLESTR("a")), static_cast<T::EType>(99)), OLESTR("") },
        { "text as money",     WithTag(T(OLESTR("2.50")), T::eOleCurrency), OLESTR("2.5") },
        { "no money",          WithTag(T(OLESTR("abc")), T::eOleCurrency), OLESTR("Invalid Currency") },
        { "text as short",     WithTag(T(OLESTR("70000")), T::eShort), OLESTR("0") },
        { "text as colour",    WithTag(T(OLESTR("-7")), T::eColor), OLESTR("-7") },
        { "text as bool",      WithTag(T(OLESTR("True")), T::eBool), OLESTR("1") },
        { "true as text",      WithTag(T(true), T::eString),    OLESTR("1")     },
        { "true as date",      WithTag(T(true), T::eOleDateTime), OLESTR("12/29/1899") },   // the platform's minus one
    };
    // clang-format on
    for (auto const & row : rows)
    {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(row.value.GetAsString(), row.text);
    }
}

TEST(CKrVariantText, GivesDatesInOneFormInTheInvariantText)
{
    CKrVariant const date(COleDateTime(2021, 3, 15, 8, 5, 9));
    EXPECT_EQ(date.GetAsInvariantString(), OLESTR("2021-03-15 08:05:09"));
    EXPECT_EQ(WithTag(date, CKrVariant::eDouble).GetAsInvariantString(), OLESTR("2021-03-15 08:05:09")); // vt decides
    EXPECT_EQ(WithTag(CKrVariant(44270), CKrVariant::eOleDateTime).GetAsInvariantString(), OLESTR("3/15/2021"));
    EXPECT_EQ(CKrVariant(COleDateTime(1e9)).GetAsInvariantString(), OLESTR("Invalid DateTime"));
    EXPECT_EQ(CKrVariant(2.5).GetAsInvariantString(), OLESTR("2.5"));
    EXPECT_EQ(CKrVariant(true).GetAsInvariantString(), OLESTR("1"));
    EXPECT_EQ(CKrVariant(COleCurrency(1, 5000)).GetAsInvariantString(),
              CKrVariant(COleCurrency(1, 5000)).GetAsString());
}

TEST(CKrVariantText, IsThePlatformsOwnInTheLocaleText)
{
    EXPECT_EQ(CKrVariant(true).GetAsLocaleString(), OLESTR("-1"));
    EXPECT_EQ(CKrVariant(false).GetAsLocaleString(), OLESTR("0"));
    EXPECT_EQ(CKrVariant().GetAsLocaleString(), OLESTR(""));
    EXPECT_EQ(CKrVariant(2.5).GetAsLocaleString(), OLESTR("2.5"));
    EXPECT_EQ(CKrVariant(CKrColor(5)).GetAsLocaleString(), OLESTR("-5"));
}

TEST(CKrVariantText, RaisesThePlatformsFailureInTheLocaleTextOfWhatHasNone)
{
    using kr::test::ThrownResult;
    CKrVariant null;
    null.vt = VT_NULL;
    EXPECT_EQ(ThrownResult([] { CKrVariant(std::vector<long>{1}).GetAsLocaleString(); }), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(ThrownResult([&] { null.GetAsLocaleString(); }), DISP_E_TYPEMISMATCH);
}
