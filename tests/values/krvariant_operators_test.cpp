#include <krcore/values/krvariant.h>

#include "tests/krplatform/automation/counted_object.h"
#include "tests/support/failing_allocator.h"

#include <gtest/gtest.h>

using namespace kr::test;

namespace
{

VARIANT MakeFloat(float number)
{
    VARIANT value;
    VariantInit(&value);
    value.vt = VT_R4;
    value.fltVal = number;
    return value;
}

} // namespace

TEST(CKrVariantOperators, ReadTheWantedKindInPlaceWithoutAnAllocation)
{
    int pointed = 0;
    CKrVariant const number(7);
    CKrVariant const small(short{7});
    CKrVariant const real(7.5);
    CKrVariant const single(MakeFloat(7.5f));
    CKrVariant const truth(true);
    CKrVariant const pointer(static_cast<void *>(&pointed));
    CKrVariant const date(COleDateTime(44197.75));
    std::size_t const before = AllAllocations();
    EXPECT_EQ(static_cast<int>(number), 7);
    EXPECT_EQ(static_cast<long>(number), 7);
    EXPECT_EQ(static_cast<short>(small), 7);
    EXPECT_EQ(static_cast<double>(real), 7.5);
    EXPECT_EQ(static_cast<float>(single), 7.5f);
    EXPECT_TRUE(static_cast<bool>(truth));
    EXPECT_EQ(static_cast<void *>(pointer), &pointed);
    EXPECT_EQ(date.operator COleDateTime().m_dt, 44197.75);
    EXPECT_EQ(AllAllocations(), before);
}

TEST(CKrVariantOperators, ConvertScalarsWithoutAnAllocation)
{
    CKrVariant const number(7);
    std::size_t const before = AllAllocations();
    EXPECT_EQ(static_cast<double>(number), 7.0);
    EXPECT_EQ(static_cast<short>(number), 7);
    EXPECT_TRUE(static_cast<bool>(number));
    EXPECT_EQ(AllAllocations(), before);
}

TEST(CKrVariantOperators, ConvertOtherKindsAndGiveZeroWhereThatFails)
{
    // clang-format off
    struct { char const * what; CKrVariant value; int number; double real; bool truth; } const rows[] = {
        { "text of a number", CKrVariant(OLESTR("17")),  17,    17.0,  true  },
        { "other text",       CKrVariant(OLESTR("abc")), 0,     0.0,   false },
        { "true",             CKrVariant(true),          1,     1.0,   true  },   // never minus one
        { "false",            CKrVariant(false),         0,     0.0,   false },
        { "double",           CKrVariant(2.5),           2,     2.5,   true  },   // half to even
        { "too large",        CKrVariant(1e10),          0,     1e10,  true  },
        { "short",            CKrVariant(short{-3}),     -3,    -3.0,  true  },
        { "invalid",          CKrVariant(),              0,     0.0,   false },
        { "array",            CKrVariant(std::vector<long>{1, 2}), 0, 0.0, false },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(static_cast<int>(row.value), row.number);
        EXPECT_EQ(static_cast<long>(row.value), row.number);
        EXPECT_EQ(static_cast<double>(row.value), row.real);
        EXPECT_EQ(static_cast<bool>(row.value), row.truth);
    }
    EXPECT_EQ(static_cast<short>(CKrVariant(70000)), 0);
    EXPECT_EQ(static_cast<float>(CKrVariant(2.5)), 2.5f);
    EXPECT_EQ(static_cast<void *>(CKrVariant(OLESTR("abc"))), nullptr);
    EXPECT_EQ(static_cast<void *>(CKrVariant(16)), reinterpret_cast<void *>(16));
}

TEST(CKrVariantOperators, GiveTextByTheLibrarysRules)
{
    // clang-format off
    struct { CKrVariant value; WCHAR const * text; } const rows[] = {
        { CKrVariant(OLESTR("wall")),           OLESTR("wall") },
        { CKrVariant(true),                     OLESTR("1")    },
        { CKrVariant(7),                        OLESTR("7")    },
        { CKrVariant(),                         OLESTR("")     },
        { CKrVariant(std::vector<double>{1.0}), OLESTR("")     },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        CString const text = row.value;
        EXPECT_EQ(text, row.text);
    }
}

TEST(CKrVariantOperators, LeaveTheValueAsItWas)
{
    CKrVariant const value(OLESTR("17"));
    EXPECT_EQ(static_cast<int>(value), 17);
    EXPECT_TRUE(value.IsString());
    EXPECT_EQ(value.vt, VT_BSTR);
}

TEST(CKrVariantOperators, TakeOnlyAllBitsSetForTrue)
{
    CKrVariant value(true);
    value.boolVal = 1;
    EXPECT_FALSE(static_cast<bool>(value));
}

TEST(CKrVariantOperators, GiveAValidZeroDateWhereAValueIsNoDate)
{
    COleDateTime const none = CKrVariant(OLESTR("abc"));
    EXPECT_EQ(none.m_dt, 0.0);
    EXPECT_EQ(none.GetStatus(), COleDateTime::valid);
    COleDateTime const cast(CKrVariant(OLESTR("abc")));
    EXPECT_EQ(cast.GetStatus(), COleDateTime::valid);
    COleDateTime const day = CKrVariant(44197);
    EXPECT_EQ(day.m_dt, 44197.0);
}

TEST(CKrVariantOperators, ReadCurrencyAndObjectsAsTheirBitsStand)
{
    COleCurrency const amount = CKrVariant(7L);
    EXPECT_EQ(amount.m_cur.s.Lo, 7u);
    EXPECT_EQ(amount.GetStatus(), COleCurrency::valid);
    COleCurrency const cast(CKrVariant(COleCurrency(1, 5000)));
    EXPECT_EQ(cast.m_cur.int64, 15000);

    CountedObject object;
    CKrVariant const value(static_cast<IDispatch *>(&object));
    IDispatch * const borrowed = value;
    EXPECT_EQ(borrowed, &object);
    EXPECT_EQ(object.References(), 1u);
}

TEST(CKrVariantOperators, ReadColoursFromTheirNumbers)
{
    // clang-format off
    struct { char const * what; CKrVariant value; int space; int index; unsigned long reference; } const rows[] = {
        { "index",            CKrVariant(CKrColor(5)),         CKrColor::eColorSpaceIndex,   5,   0 },
        { "by layer",         CKrVariant(CKrColor(256)),       CKrColor::eColorSpaceIndex,   256, 0 },
        { "no colour",        CKrVariant(CKrColor::NoColor()), CKrColor::eColorSpaceNoColor, 257, 0 },
        { "rgb",              CKrVariant(CKrColor(1, 2, 3)),   CKrColor::eColorSpaceRGB,     0,   0x030201 },
        { "index 0 is black", CKrVariant(CKrColor(0)),         CKrColor::eColorSpaceRGB,     0,   0 },
        { "a long",           CKrVariant(0xFF),                CKrColor::eColorSpaceRGB,     0,   0xFF },
        { "a negative text",  CKrVariant(OLESTR("-7")),        CKrColor::eColorSpaceIndex,   7,   0 },
        { "no number",        CKrVariant(OLESTR("abc")),       CKrColor::eColorSpaceRGB,     0,   0 },
        { "index below 0",    CKrVariant(CKrColor(-5)),        CKrColor::eColorSpaceRGB,     0,   5 },      // as a reference
        { "low 16 bits",      CKrVariant(-65541),              CKrColor::eColorSpaceIndex,   5,   0 },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        SCOPED_TRACE(row.what);
        CKrColor color(9, 9, 9);
        EXPECT_TRUE(row.value.GetValue(color));
        for (CKrColor const & read : {color, row.value.GetColor(), row.value.operator CKrColor()})
        {
            EXPECT_EQ(read.GetColorSpace(), row.space);
            EXPECT_EQ(read.GetColorIndex(), row.index);
            EXPECT_EQ(read.GetColorRef(), row.reference);
        }
    }
}

TEST(CKrVariantOperators, StoreColoursAsOneNumber)
{
    EXPECT_EQ(CKrVariant(CKrColor(5)).lVal, -5);
    EXPECT_EQ(CKrVariant(CKrColor::NoColor()).lVal, -257);
    EXPECT_EQ(CKrVariant(CKrColor(-32768)).lVal, 32768);
    EXPECT_EQ(CKrVariant(CKrColor(256)).lVal, -256);
    EXPECT_EQ(CKrVariant(CKrColor(1, 2, 3)).lVal, 0x030201);
    CKrColor inherited(1, 2, 3);
    inherited.SetInheritedColor();
    EXPECT_EQ(CKrVariant(inherited).lVal, 0x030201);
    EXPECT_FALSE(CKrVariant(CKrColor(5)).IsLong());
}
