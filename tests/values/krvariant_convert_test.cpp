#include <krcore/values/krvariant.h>

#include "tests/support/child_process.h"

#include <gtest/gtest.h>

using namespace kr::test;

namespace
{

CKrVariant Converted(CKrVariant value, CKrVariant::EType type) { return value.ConvertType(type); }

CKrVariant MakeFloat(float number)
{
    VARIANT value;
    VariantInit(&value);
    value.vt = VT_R4;
    value.fltVal = number;
    return CKrVariant(value);
}

} // namespace

TEST(CKrVariantConvert, GivesTheValueItself)
{
    CKrVariant value(7);
    EXPECT_EQ(&value.ConvertType(CKrVariant::eString), &value);
    EXPECT_EQ(&value.ConvertTypeLocale(CKrVariant::eLong), &value);
}

TEST(CKrVariantConvert, TurnsAValueIntoAnotherKind)
{
    using T = CKrVariant;
    // clang-format off
    struct { char const * what; CKrVariant source; T::EType target; T::EType type; WCHAR const * text; } const rows[] = {
        { "true to text",        T(true),               T::eString,      T::eString,      OLESTR("1")    },
        { "false to text",       T(false),              T::eString,      T::eString,      OLESTR("0")    },
        { "true to double",      T(true),               T::eDouble,      T::eDouble,      OLESTR("1")    },
        { "true to long",        T(true),               T::eLong,        T::eLong,        OLESTR("1")    },
        { "true to itself",      T(true),               T::eBool,        T::eBool,        OLESTR("1")    },
        { "double to text",      T(1.5),                T::eString,      T::eString,      OLESTR("1.5")  },
        { "text to double",      T(OLESTR("2.5")),      T::eDouble,      T::eDouble,      OLESTR("2.5")  },
        { "text to bool",        T(OLESTR("True")),     T::eBool,        T::eBool,        OLESTR("1")    },
        { "no number stays",     T(OLESTR("abc")),      T::eLong,        T::eString,      OLESTR("abc")  },
        { "overflow stays",      T(1e10),               T::eLong,        T::eDouble,      OLESTR("10000000000") },
        { "long to float",       T(3),                  T::eFloat,       T::eFloat,       OLESTR("3")    },
        { "empty to text",       T(),                   T::eString,      T::eString,      OLESTR("")     },
        { "empty to long",       T(),                   T::eLong,        T::eLong,        OLESTR("0")    },
        { "empty to bool",       T(),                   T::eBool,        T::eBool,        OLESTR("0")    },
        { "colour to double",    T(CKrColor(5)),        T::eDouble,      T::eDouble,      OLESTR("-5")   },
        { "colour to text",      T(CKrColor(5)),        T::eString,      T::eString,      OLESTR("-5")   },
        { "colour to long",      T(CKrColor(5)),        T::eLong,        T::eColor,       OLESTR("-5")   },   // the tag stays
        { "long to colour",      T(5),                  T::eColor,       T::eLong,        OLESTR("5")    },   // the tag stays
        { "long to point",       T(5),                  T::ePoint3,      T::eLong,        OLESTR("5")    },
        { "long to nothing",     T(5),                  T::eInvalid,     T::eLong,        OLESTR("5")    },
        { "text to matrix",      T(OLESTR("a")),        T::eStringMatrix, T::eString,     OLESTR("a")    },
        { "double to colour",    T(5.0),                T::eColor,       T::eLong,        OLESTR("5")    },   // never a colour
        { "long to short",       T(7),                  T::eShort,       T::eShort,       OLESTR("7")    },
        { "long to currency",    T(7),                  T::eOleCurrency, T::eOleCurrency, OLESTR("7")    },
        { "long to pointer",     T(7),                  T::eVoidPtr,     T::eVoidPtr,     OLESTR("")     },
        { "long to null",        T(7),                  T::eNull,        T::eNull,        OLESTR("")     },   // the platform does so
        { "colour to bool",      T(CKrColor(5)),        T::eBool,        T::eBool,        OLESTR("1")    },
        { "date to bool",        T(COleDateTime(1.5)),  T::eBool,        T::eBool,        OLESTR("1")    },
        { "array stays",         T(std::vector<long>{1}), T::eString,    T::eLongVector,  OLESTR("")     },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        SCOPED_TRACE(row.what);
        CKrVariant const value = Converted(row.source, row.target);
        EXPECT_EQ(value.GetType(), row.type);
        EXPECT_EQ(value.GetAsString(), row.text);
    }
}

TEST(CKrVariantConvert, ChangesNothingForATagThatALongCannotBecome)
{
    // clang-format off
    int const tags[] = {
        0, 26, 32, 41, 42, 43, 44,              // without a `vt` of their own
        13, 14, 21, 22, 23, 24, 25, 31, 33,  // refused by the platform
        8, 17, 45, 99, -1,                      // no tags
    };
    // clang-format on
    for (int const tag : tags)
    {
        SCOPED_TRACE(tag);
        CKrVariant value(5);
        value.ConvertType(static_cast<CKrVariant::EType>(tag));
        EXPECT_EQ(value.vt, VT_I4);
        EXPECT_EQ(value.lVal, 5);
        EXPECT_TRUE(value.IsLong());
        value.ConvertTypeLocale(static_cast<CKrVariant::EType>(tag));
        EXPECT_EQ(value.vt, VT_I4);
        EXPECT_EQ(value.lVal, 5);
        EXPECT_TRUE(value.IsLong());
    }
}

TEST(CKrVariantConvert, TakesOnlyAllBitsSetForOne)
{
    CKrVariant value(true);
    value.boolVal = 2;
    EXPECT_EQ(value.ConvertType(CKrVariant::eLong).lVal, 0);
}

TEST(CKrVariantConvert, WritesDatesInOneFixedForm)
{
    // clang-format off
    struct { COleDateTime date; WCHAR const * text; } const rows[] = {
        { COleDateTime(2021, 3, 15, 8, 5, 9), OLESTR("2021-03-15 08:05:09") },
        { COleDateTime(2021, 3, 15, 0, 0, 0), OLESTR("2021-03-15 00:00:00") },
        { COleDateTime(-1.25),                OLESTR("1899-12-29 06:00:00") },
        { COleDateTime(1e9),                  OLESTR("Invalid DateTime")    },   // outside the calendar
    };
    // clang-format on
    for (auto const & row : rows)
    {
        CKrVariant const value = Converted(CKrVariant(row.date), CKrVariant::eString);
        EXPECT_TRUE(value.IsString());
        EXPECT_EQ(value.GetAsString(), row.text);
    }
}

TEST(CKrVariantConvert, ReadsDatesAndNumbersIntoEachOther)
{
    CKrVariant const date = Converted(CKrVariant(OLESTR("03/15/2021")), CKrVariant::eOleDateTime);
    EXPECT_TRUE(date.IsOleDateTime());
    EXPECT_EQ(date.date, 44270.0);
    EXPECT_EQ(Converted(date, CKrVariant::eDouble).dblVal, 44270.0);
    EXPECT_EQ(Converted(CKrVariant(true), CKrVariant::eOleDateTime).date, 1.0);
    CKrVariant const noDate = Converted(CKrVariant(), CKrVariant::eOleDateTime);
    EXPECT_TRUE(noDate.IsOleDateTime());
    EXPECT_EQ(noDate.date, 0.0);
    EXPECT_EQ(Converted(CKrVariant(OLESTR("no date")), CKrVariant::eOleDateTime).GetAsString(), OLESTR("no date"));
}

TEST(CKrVariantConvert, WidensAFloatAsItIs)
{
    EXPECT_EQ(Converted(MakeFloat(0.5f), CKrVariant::eDouble).dblVal, 0.5);
    EXPECT_EQ(MakeFloat(0.5f).GetType(), CKrVariant::eFloat);
}

TEST(CKrVariantConvert, DISABLED_UsesTheUsersLocaleInItsLocaleForm)
{
    EXPECT_EQ(CKrVariant(1.5).ConvertTypeLocale(CKrVariant::eString).GetAsString(), OLESTR("1,5"));
    EXPECT_EQ(CKrVariant(1.5).ConvertType(CKrVariant::eString).GetAsString(), OLESTR("1.5"));
    EXPECT_EQ(static_cast<double>(CKrVariant(OLESTR("2,5"))), 2.5);
    CKrVariant date(COleDateTime(2021, 3, 15, 8, 5, 9));
    EXPECT_EQ(date.ConvertTypeLocale(CKrVariant::eString).GetAsString(), OLESTR("15.03.2021 08:05:09"));
    CString const text = CKrVariant(1.5);
    EXPECT_EQ(text, OLESTR("1,5"));
    EXPECT_EQ(CKrVariant(true).ConvertTypeLocale(CKrVariant::eString).GetAsString(), OLESTR("1"));
    EXPECT_EQ(CKrVariant(1.5).GetAsString(), OLESTR("1.5"));
    EXPECT_EQ(CKrVariant(1.5).GetAsLocaleString(), OLESTR("1,5"));
    EXPECT_EQ(CKrVariant(COleCurrency(1, 5000)).GetAsString(), OLESTR("1,5"));
    EXPECT_EQ(CKrVariant(COleCurrency(1, 5000)).GetAsInvariantString(), OLESTR("1,5"));
}

TEST(CKrVariantConvert, UsesTheUsersLocaleInItsLocaleForm)
{
    ChildResult const result =
        RunTestInChild("CKrVariantConvert.DISABLED_UsesTheUsersLocaleInItsLocaleForm", {{"LC_ALL", "de_DE.UTF-8"}});
    EXPECT_EQ(result.exitStatus, 0) << result.output;
}
