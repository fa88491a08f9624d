#include <krcore/values/krvariant.h>

#include "tests/krplatform/automation/counted_object.h"
#include "tests/krplatform/automation/thrown_result.h"
#include "tests/support/failing_allocator.h"
#include "tests/support/text.h"

#include <krplatform/automation/safearray.h>
#include <krplatform/text/bstr.h>

#include <gtest/gtest.h>

#include <type_traits>

using namespace kr::test;

static_assert(std::is_base_of_v<COleVariant, CKrVariant>);
static_assert(std::has_virtual_destructor_v<CKrVariant>);
static_assert(std::is_nothrow_move_constructible_v<CKrVariant>);

namespace
{

VARIANT MakeNull()
{
    VARIANT value;
    VariantInit(&value);
    value.vt = VT_NULL;
    return value;
}

VARIANT MakeBits(VARTYPE vt, LONGLONG bits)
{
    VARIANT value;
    VariantInit(&value);
    value.vt = vt;
    value.llVal = bits;
    return value;
}

} // namespace

TEST(CKrVariant, HasTheNumbersOfItsTags)
{
    // clang-format off
    struct { CKrVariant::EType type; int number; } const rows[] = {
        { CKrVariant::eInvalid,         0 }, { CKrVariant::eNull,            1 }, { CKrVariant::eString,        2 },
        { CKrVariant::eFloat,           3 }, { CKrVariant::eDouble,          4 }, { CKrVariant::eShort,         5 },
        { CKrVariant::eLong,            6 }, { CKrVariant::eBool,            7 }, { CKrVariant::eOleCurrency,  11 },
        { CKrVariant::eOleDateTime,    12 }, { CKrVariant::eDispatch,       13 }, { CKrVariant::eBinary,       14 },
        { CKrVariant::eColor,          15 }, { CKrVariant::eVoidPtr,        16 }, { CKrVariant::eStringVector, 21 },
        { CKrVariant::eDoubleVector,   22 }, { CKrVariant::eLongVector,     23 }, { CKrVariant::eBoolVector,   24 },
        { CKrVariant::eDispatchVector, 25 }, { CKrVariant::eStringMatrix,   26 }, { CKrVariant::eVariant,      31 },
        { CKrVariant::eVariantVector,  32 }, { CKrVariant::eVariantMatrix,  33 }, { CKrVariant::ePoint3,       41 },
        { CKrVariant::eVector3,        42 }, { CKrVariant::ePoint3List,     43 }, { CKrVariant::eVector3List,  44 },
    };
    // clang-format on
    for (auto const & row : rows)
        EXPECT_EQ(int{row.type}, row.number);
}

TEST(CKrVariant, IsInvalidAndEmptyAtStart)
{
    CKrVariant const value;
    EXPECT_EQ(value.vt, VT_EMPTY);
    EXPECT_EQ(value.GetType(), CKrVariant::eInvalid);
    EXPECT_FALSE(value.IsValid());
}

TEST(CKrVariant, SetsBothTagsOfScalars)
{
    int pointed = 0;
    // clang-format off
    struct { char const * what; CKrVariant value; int vt; CKrVariant::EType type; } const rows[] = {
        { "CString",         CKrVariant(CString("a")),         VT_BSTR, CKrVariant::eString      },
        { "WCHAR literal",   CKrVariant(OLESTR("a")),          VT_BSTR, CKrVariant::eString      },
        { "narrow literal",  CKrVariant("a"),                  VT_BSTR, CKrVariant::eString      },
        { "wchar_t literal", CKrVariant(L"a"),                 VT_BSTR, CKrVariant::eString      },
        { "double",          CKrVariant(1.5),                  VT_R8,   CKrVariant::eDouble      },
        { "short",           CKrVariant(short{3}),             VT_I2,   CKrVariant::eShort       },
        { "int",             CKrVariant(3),                    VT_I4,   CKrVariant::eLong        },
        { "long",            CKrVariant(3L),                   VT_I4,   CKrVariant::eLong        },
        { "bool",            CKrVariant(true),                 VT_BOOL, CKrVariant::eBool        },
        { "currency",        CKrVariant(COleCurrency()),       VT_CY,   CKrVariant::eOleCurrency },
        { "date",            CKrVariant(COleDateTime(1.5)),    VT_DATE, CKrVariant::eOleDateTime },
        { "pointer",         CKrVariant(static_cast<void *>(&pointed)), VT_UI8, CKrVariant::eVoidPtr },
        { "colour",          CKrVariant(CKrColor(5)),          VT_I4,   CKrVariant::eColor       },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(row.value.vt, row.vt);
        EXPECT_EQ(row.value.GetType(), row.type);
        EXPECT_TRUE(row.value.IsValid());
        EXPECT_TRUE(row.value.IsType(row.type));
        EXPECT_FALSE(row.value.IsType(CKrVariant::eNull));
    }
}

TEST(CKrVariant, HoldsWhatItWasGiven)
{
    EXPECT_EQ(CKrVariant(short{-7}).iVal, -7);
    EXPECT_EQ(CKrVariant(-70000).lVal, -70000);
    EXPECT_EQ(CKrVariant(0x1234567812345678L).lVal, 0x12345678); // the low 32 bits
    EXPECT_EQ(CKrVariant(-0.25).dblVal, -0.25);
    EXPECT_EQ(CKrVariant(true).boolVal, VARIANT_TRUE);
    EXPECT_EQ(CKrVariant(false).boolVal, VARIANT_FALSE);
    EXPECT_EQ(CKrVariant(COleDateTime(44197.75)).date, 44197.75);
    EXPECT_EQ(SysStringLen(CKrVariant(CString(OLESTR("a\0b"), 3)).bstrVal), 3u); // zeros inside are kept
}

TEST(CKrVariant, HoldsNullTextForANullPointer)
{
    CKrVariant const value(static_cast<WCHAR const *>(nullptr));
    EXPECT_EQ(value.vt, VT_BSTR);
    EXPECT_EQ(value.bstrVal, nullptr);
    EXPECT_TRUE(value.IsString());
    EXPECT_EQ(value.GetAsString(), CString());
}

TEST(CKrVariant, TakesTheAmountWhateverTheStatusOfACurrency)
{
    COleCurrency amount(12, 5000);
    amount.SetStatus(COleCurrency::invalid);
    EXPECT_EQ(CKrVariant(amount).cyVal.int64, 125000);
}

TEST(CKrVariant, TakesZeroForADateThatIsNotValid)
{
    for (COleDateTime::DateTimeStatus const status : {COleDateTime::invalid, COleDateTime::null})
    {
        COleDateTime date(44197.75);
        date.SetStatus(status);
        CKrVariant const value(date);
        EXPECT_EQ(value.date, 0.0);
        EXPECT_TRUE(value.IsOleDateTime());
    }
}

TEST(CKrVariant, CountsTheReferenceOfADispatchObject)
{
    CountedObject object;
    {
        CKrVariant const value(static_cast<IDispatch *>(&object));
        EXPECT_EQ(object.References(), 1u);
        EXPECT_TRUE(value.IsDispatch());
        EXPECT_EQ(value.vt, VT_DISPATCH);
        CKrVariant const copy(value);
        EXPECT_EQ(object.References(), 2u);
        EXPECT_EQ(static_cast<IDispatch *>(copy), &object);
        EXPECT_EQ(object.References(), 2u); // reading adds none
    }
    EXPECT_EQ(object.References(), 0u);
}

TEST(CKrVariant, HoldsNoObjectForANullDispatchPointer)
{
    CKrVariant const value(static_cast<IDispatch *>(nullptr));
    EXPECT_EQ(value.vt, VT_DISPATCH);
    EXPECT_EQ(value.pdispVal, nullptr);
}

TEST(CKrVariant, HoldsAWholePointer)
{
    void * const pointer = reinterpret_cast<void *>(std::uintptr_t{0xFFFF800012345678});
    CKrVariant const value(pointer);
    EXPECT_EQ(value.ullVal, 0xFFFF800012345678u);
    EXPECT_EQ(static_cast<void *>(value), pointer);
}

TEST(CKrVariant, TakesTheTagOfAVariantFromItsVtOrTheArgument)
{
    VARIANT const number = MakeBits(VT_I4, 7);
    EXPECT_EQ(CKrVariant(number).GetType(), CKrVariant::eLong);
    EXPECT_EQ(CKrVariant(number, CKrVariant::eInvalid).GetType(), CKrVariant::eLong);
    EXPECT_EQ(CKrVariant(number, CKrVariant::eColor).GetType(), CKrVariant::eColor);
    EXPECT_EQ(CKrVariant(number, CKrVariant::eStringMatrix).GetType(), CKrVariant::eStringMatrix);
}

TEST(CKrVariant, IsInvalidForAVariantOfNullWhateverTheArgument)
{
    for (CKrVariant::EType const type : {CKrVariant::eInvalid, CKrVariant::eString, CKrVariant::eNull})
    {
        CKrVariant const value(MakeNull(), type);
        EXPECT_EQ(value.vt, VT_EMPTY);
        EXPECT_EQ(value.GetType(), CKrVariant::eInvalid);
    }
}

TEST(CKrVariant, CopiesDeeply)
{
    CKrVariant const source(OLESTR("wall"));
    CKrVariant const copy(source);
    EXPECT_NE(copy.bstrVal, source.bstrVal);
    EXPECT_EQ(copy.GetAsString(), OLESTR("wall"));
    CKrVariant assigned(5);
    assigned = source;
    EXPECT_NE(assigned.bstrVal, source.bstrVal);
    EXPECT_TRUE(assigned.IsString());
    CKrVariant const & alias = assigned;
    assigned = alias;
    EXPECT_EQ(assigned.GetAsString(), OLESTR("wall"));
}

TEST(CKrVariant, CopiesTheTagWithTheValue)
{
    CKrVariant const color(CKrColor(5));
    EXPECT_TRUE(CKrVariant(color).IsColor());
    CKrVariant assigned;
    assigned = color;
    EXPECT_TRUE(assigned.IsColor());
}

TEST(CKrVariant, LeavesTheSourceOfAMoveInvalid)
{
    CKrVariant source(OLESTR("wall"));
    BSTR const text = source.bstrVal;
    CKrVariant moved(std::move(source));
    EXPECT_EQ(moved.bstrVal, text);
    EXPECT_TRUE(moved.IsString());
    EXPECT_EQ(source.vt, VT_EMPTY);
    EXPECT_FALSE(source.IsValid());
    source = std::move(moved);
    EXPECT_EQ(source.bstrVal, text);
    EXPECT_FALSE(moved.IsValid());
    CKrVariant & same = source;
    source = std::move(same);
    EXPECT_EQ(source.bstrVal, text);
    EXPECT_TRUE(source.IsString());
}

TEST(CKrVariant, AttachesFromAVariant)
{
    CKrVariant value(OLESTR("old"));
    VARIANT source = MakeBits(VT_BSTR, 0);
    source.bstrVal = SysAllocString(OLESTR("new"));
    BSTR const text = source.bstrVal;
    value.AttachFrom(source);
    EXPECT_EQ(value.bstrVal, text);
    EXPECT_TRUE(value.IsString());
    EXPECT_EQ(source.vt, VT_EMPTY);

    VARIANT number = MakeBits(VT_I4, -5);
    value.AttachFrom(number, CKrVariant::eColor);
    EXPECT_TRUE(value.IsColor());
}

TEST(CKrVariant, KeepsNullWhenItIsAttached)
{
    CKrVariant value(5);
    VARIANT source = MakeNull();
    value.AttachFrom(source);
    EXPECT_EQ(value.vt, VT_NULL);
    EXPECT_EQ(value.GetType(), CKrVariant::eNull);
    EXPECT_TRUE(value.IsValid());
}

TEST(CKrVariant, StaysAsItIsWhereItIsAssignedToItself)
{
    CKrVariant value(OLESTR("wall"));
    CKrVariant & same = value;
    value = same;
    EXPECT_EQ(value.GetAsString(), OLESTR("wall"));
    value = std::move(same);
    EXPECT_EQ(value.GetAsString(), OLESTR("wall"));
    EXPECT_TRUE(value.IsString());
}

TEST(CKrVariant, IgnoresItselfWhenAttaching)
{
    CKrVariant value(OLESTR("wall"));
    value.AttachFrom(static_cast<VARIANT &>(value), CKrVariant::eColor);
    EXPECT_TRUE(value.IsString());
    value.AttachFrom(value);
    value.AttachTo(value);
    EXPECT_EQ(value.GetAsString(), OLESTR("wall"));
    EXPECT_TRUE(value.IsString());
}

TEST(CKrVariant, MovesValueAndTagWhenAttachingFromAndTo)
{
    CKrVariant source(CKrColor(5));
    CKrVariant value(OLESTR("old"));
    value.AttachFrom(source);
    EXPECT_TRUE(value.IsColor());
    EXPECT_EQ(value.lVal, -5);
    EXPECT_EQ(source.vt, VT_EMPTY);
    EXPECT_EQ(source.GetType(), CKrVariant::eInvalid);

    value.AttachTo(source);
    EXPECT_TRUE(source.IsColor());
    EXPECT_FALSE(value.IsValid());
}

TEST(CKrVariant, AsksTheTagAloneAndNeverVt)
{
    // clang-format off
    struct { CKrVariant::EType type; bool (CKrVariant::*is)() const noexcept; } const rows[] = {
        { CKrVariant::eString,         &CKrVariant::IsString         },
        { CKrVariant::eFloat,          &CKrVariant::IsFloat          },
        { CKrVariant::eDouble,         &CKrVariant::IsDouble         },
        { CKrVariant::eShort,          &CKrVariant::IsShort          },
        { CKrVariant::eLong,           &CKrVariant::IsLong           },
        { CKrVariant::eBool,           &CKrVariant::IsBool           },
        { CKrVariant::eOleCurrency,    &CKrVariant::IsOleCurrency    },
        { CKrVariant::eOleDateTime,    &CKrVariant::IsOleDateTime    },
        { CKrVariant::eDispatch,       &CKrVariant::IsDispatch       },
        { CKrVariant::eBinary,         &CKrVariant::IsBinary         },
        { CKrVariant::eColor,          &CKrVariant::IsColor          },
        { CKrVariant::eStringVector,   &CKrVariant::IsStringVector   },
        { CKrVariant::eDoubleVector,   &CKrVariant::IsDoubleVector   },
        { CKrVariant::eLongVector,     &CKrVariant::IsLongVector     },
        { CKrVariant::eBoolVector,     &CKrVariant::IsBoolVector     },
        { CKrVariant::eDispatchVector, &CKrVariant::IsDispatchVector },
        { CKrVariant::eStringMatrix,   &CKrVariant::IsStringMatrix   },
        { CKrVariant::eVariantMatrix,  &CKrVariant::IsVariantMatrix  },
        { CKrVariant::ePoint3,         &CKrVariant::IsPoint3         },
        { CKrVariant::eVector3,        &CKrVariant::IsVector3        },
        { CKrVariant::ePoint3List,     &CKrVariant::IsPoint3List     },
        { CKrVariant::eVector3List,    &CKrVariant::IsVector3List    },
    };
    // clang-format on
    VARIANT const number = MakeBits(VT_I4, 7);
    for (auto const & row : rows)
    {
        for (auto const & other : rows)
            EXPECT_EQ((CKrVariant(number, row.type).*other.is)(), &row == &other) << row.type << " " << other.type;
    }
}

TEST(CKrVariant, ComparesVtAndValueAndNotTheTag)
{
    EXPECT_TRUE(CKrVariant(CKrColor(5)) == CKrVariant(-5));
    EXPECT_FALSE(CKrVariant(5L) == CKrVariant(5.0));
    EXPECT_TRUE(CKrVariant(OLESTR("a")) == CKrVariant("a"));
    EXPECT_FALSE(CKrVariant(OLESTR("a")) == CKrVariant(OLESTR("A")));
    EXPECT_TRUE(CKrVariant() == CKrVariant());
    EXPECT_TRUE(CKrVariant(7) != CKrVariant(8));
    COleVariant const base(7L);
    VARIANT const plain = MakeBits(VT_I4, 7);
    EXPECT_TRUE(CKrVariant(7) == base);
    EXPECT_TRUE(base == CKrVariant(7));
    EXPECT_TRUE(plain == CKrVariant(7));
    EXPECT_TRUE(CKrVariant(7) == plain);
}

TEST(CKrVariant, CarriesBinaryBitsAsTheyAre)
{
    CKrVariant const value(MakeBits(VT_BLOB, 0x1122334455667788));
    EXPECT_TRUE(value.IsBinary());
    CKrVariant const copy(value);
    EXPECT_EQ(copy.llVal, 0x1122334455667788);
    EXPECT_TRUE(copy == value);
    EXPECT_FALSE(copy == CKrVariant(MakeBits(VT_BLOB, 1)));
}

TEST(CKrVariant, RaisesThePlatformsFailureForATagThatIsNone)
{
    VARIANT const broken = MakeBits(0x0FFF, 1);
    EXPECT_THROW(
        try { CKrVariant value(broken); } catch (COleException * exception) {
            EXPECT_EQ(exception->m_sc, DISP_E_BADVARTYPE);
            exception->Delete();
            throw 0;
        },
        int);
}

TEST(CKrVariant, KeepsALockedArrayButForAMove)
{
    CKrVariant value(std::vector<long>{7});
    SAFEARRAY * const array = value.parray;
    ASSERT_EQ(SafeArrayLock(array), S_OK);
    CKrVariant other(CKrColor(5));
    VARIANT number = MakeBits(VT_I4, 7);
    EXPECT_EQ(ThrownResult([&] { value = std::as_const(other); }), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(ThrownResult([&] { value.AttachFrom(other); }), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(ThrownResult([&] { value.AttachFrom(number); }), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(value.parray, array);
    EXPECT_TRUE(value.IsLongVector());
    EXPECT_TRUE(other.IsColor());
    EXPECT_EQ(number.vt, VT_I4);
    value = std::move(other); // does not throw
    EXPECT_TRUE(value.IsColor());
    EXPECT_EQ(value.lVal, -5);
    EXPECT_FALSE(other.IsValid());
    ASSERT_EQ(SafeArrayUnlock(array), S_OK);
    EXPECT_EQ(SafeArrayDestroy(array), S_OK);
}

TEST(CKrVariant, LeaksNothingWhereMemoryRunsOut)
{
    CString const text(OLESTR("wall"));
    CKrVariant const value(text);
    auto const isMemoryFailure = []
    {
        try
        {
            throw;
        }
        catch (CMemoryException *)
        {
        }
    };
    EXPECT_GE(FailEveryAllocation([&] { CKrVariant made(text); }, isMemoryFailure), 1u);
    EXPECT_GE(FailEveryAllocation([&] { CKrVariant copy(value); }, isMemoryFailure), 1u);
    EXPECT_GE(FailEveryAllocation([&] { CKrVariant copy(static_cast<VARIANT const &>(value)); }, isMemoryFailure), 1u);
    EXPECT_GE(FailEveryAllocation([] { CKrVariant made("wall"); }, isMemoryFailure), 1u);
    EXPECT_GE(FailEveryAllocation([] { CKrVariant made(L"wall"); }, isMemoryFailure), 1u);
    EXPECT_GE(FailEveryAllocation([] { CKrVariant made(OLESTR("wall")); }, isMemoryFailure), 1u);
    CKrVariant kept(7);
    FailEveryAllocation(
        [&]
        {
            CKrVariant target(kept);
            try
            {
                target = value;
            }
            catch (...)
            {
                EXPECT_EQ(target.GetAsString(), OLESTR("7")); // the old value stays
                throw;
            }
        },
        isMemoryFailure);
}
