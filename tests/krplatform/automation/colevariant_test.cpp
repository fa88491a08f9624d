#include <krplatform/automation/colevariant.h>

#include "tests/krplatform/automation/counted_object.h"
#include "tests/krplatform/automation/make_variant.h"
#include "tests/krplatform/automation/thrown_result.h"
#include "tests/support/failing_allocator.h"
#include "tests/support/text.h"

#include <krplatform/datetime/colecurrency.h>
#include <krplatform/datetime/coledatetime.h>

#include <gtest/gtest.h>

#include <cstring>
#include <type_traits>

using namespace kr::test;

static_assert(sizeof(COleVariant) == sizeof(VARIANT));
static_assert(std::is_nothrow_default_constructible_v<COleVariant>);
static_assert(std::is_nothrow_move_constructible_v<COleVariant>);
static_assert(std::is_nothrow_move_assignable_v<COleVariant>);

namespace
{

std::basic_string_view<WCHAR> const withZero(OLESTR("a\0b"), 3);

VARIANT ReferenceTo(CountedObject & object)
{
    VARIANT value = MakeBits(VT_DISPATCH, 0);
    value.pdispVal = &object;
    return value;
}

// A value that holds a locked array, and unlocks it at the end.
class LockedArray
{
public:
    LockedArray()
    {
        VARIANT value = MakeArrayVariant(m_array);
        m_value.Attach(value);
        SafeArrayLock(m_array);
    }
    ~LockedArray()
    {
        SafeArrayUnlock(m_array);
        if (m_value.vt != (VT_ARRAY | VT_I4))
            SafeArrayDestroy(m_array);
    }
    LockedArray(LockedArray const &) = delete;
    LockedArray & operator=(LockedArray const &) = delete;

    COleVariant & Get() { return m_value; }
    bool IsHeld() const { return m_value.vt == (VT_ARRAY | VT_I4) && m_value.parray == m_array; }

private:
    SAFEARRAY * m_array = SafeArrayCreateVector(VT_I4, 0, 3);
    COleVariant m_value;
};

COleCurrency MakeCurrency(LONGLONG amount)
{
    COleCurrency currency;
    currency.m_cur.int64 = amount;
    currency.m_status = COleCurrency::invalid;
    return currency;
}

COleDateTime MakeDate(double date)
{
    COleDateTime moment;
    moment.m_dt = date;
    moment.m_status = COleDateTime::invalid;
    return moment;
}

} // namespace

TEST(COleVariant, IsEmptyAndZeroAtFirst)
{
    alignas(COleVariant) std::byte memory[sizeof(COleVariant)];
    std::memset(memory, 0xCC, sizeof memory);
    COleVariant const * const value = new (memory) COleVariant;
    EXPECT_EQ(value->vt, VT_EMPTY);
    EXPECT_EQ(value->ullVal, 0u);
    value->~COleVariant();
}

TEST(COleVariant, HoldsNumbersUnderTheirTags)
{
    EXPECT_TRUE(COleVariant(long{-5}) == MakeBits(VT_I4, 0xFFFFFFFB));
    EXPECT_TRUE(COleVariant(short{-5}) == MakeBits(VT_I2, 0xFFFB));
    EXPECT_TRUE(COleVariant(BYTE{200}) == MakeBits(VT_UI1, 200));
    EXPECT_TRUE(COleVariant(0.5f) == MakeBits(VT_R4, 0x3F000000));
    EXPECT_TRUE(COleVariant(0.5) == MakeR8(0.5));
    EXPECT_TRUE(COleVariant(MakeCurrency(12345)) == MakeBits(VT_CY, 12345));          // whatever the status
    EXPECT_TRUE(COleVariant(MakeDate(1.5)) == MakeBits(VT_DATE, 0x3FF8000000000000)); // whatever the status
}

TEST(COleVariant, HoldsALongUnderTheTagAskedFor)
{
    EXPECT_TRUE(COleVariant(5L, VT_ERROR) == MakeBits(VT_ERROR, 5));
    EXPECT_TRUE(COleVariant(5L, VT_BOOL) == MakeBits(VT_BOOL, 0xFFFF));
    EXPECT_TRUE(COleVariant(0L, VT_BOOL) == MakeBits(VT_BOOL, 0));
    EXPECT_TRUE(COleVariant(short{5}, VT_BOOL) == MakeBits(VT_BOOL, 0xFFFF));
    for (VARTYPE const tag : {VARTYPE{VT_I2}, VARTYPE{VT_R8}, VARTYPE{VT_EMPTY}})
        EXPECT_EQ(ThrownResult([&] { COleVariant(5L, tag); }), E_INVALIDARG) << tag;
    for (VARTYPE const tag : {VARTYPE{VT_I4}, VARTYPE{VT_ERROR}, VARTYPE{VT_EMPTY}})
        EXPECT_EQ(ThrownResult([&] { COleVariant(short{5}, tag); }), E_INVALIDARG) << tag;
}

TEST(COleVariant, KeepsTheLowBitsOfALong)
{
    long const wide = static_cast<long>(0x100000005);
    EXPECT_EQ(COleVariant(wide).lVal, 5);
    COleVariant value;
    value = wide;
    EXPECT_EQ(value.lVal, 5);
}

TEST(COleVariant, HoldsTexts)
{
    COleVariant const fromPointer(OLESTR("wall"));
    EXPECT_EQ(fromPointer.vt, VT_BSTR);
    EXPECT_EQ(Narrow(fromPointer.bstrVal), "wall");

    COleVariant const fromNull(static_cast<WCHAR const *>(nullptr));
    EXPECT_EQ(fromNull.vt, VT_BSTR);
    EXPECT_EQ(fromNull.bstrVal, nullptr);

    COleVariant const fromText(CString(withZero.data(), 3));
    EXPECT_EQ(Narrow(TextOf(fromText.bstrVal)), Narrow(withZero));

    COleVariant const fromWide(L"wide");
    EXPECT_EQ(Narrow(fromWide.bstrVal), "wide");
}

TEST(COleVariant, CopiesDeeply)
{
    Cleared text(MakeTextVariant(withZero));
    COleVariant const fromPlain(*text);
    COleVariant const fromPointer(text.Get());
    COleVariant const copy(fromPlain);
    for (COleVariant const * value : {&fromPlain, &fromPointer, &copy})
    {
        EXPECT_TRUE(*value == *text);
        EXPECT_NE(value->bstrVal, text->bstrVal);
    }
    EXPECT_NE(copy.bstrVal, fromPlain.bstrVal);
}

TEST(COleVariant, CountsReferences)
{
    CountedObject object;
    {
        COleVariant const first(ReferenceTo(object));
        EXPECT_EQ(object.References(), 1u);
        COleVariant second(first);
        EXPECT_EQ(object.References(), 2u);
        second = first;
        EXPECT_EQ(object.References(), 2u);
        second = 5L;
        EXPECT_EQ(object.References(), 1u);
    }
    EXPECT_EQ(object.References(), 0u);
}

TEST(COleVariant, RefusesToCopyWhatCannotBeCopied)
{
    VARIANT const unknown = MakeBits(VT_BYREF | VT_I4, 8);
    EXPECT_EQ(ThrownResult([&] { COleVariant value(unknown); }), DISP_E_BADVARTYPE);
    EXPECT_EQ(ThrownResult([] { COleVariant value(static_cast<VARIANT const *>(nullptr)); }), E_INVALIDARG);
    COleVariant value(OLESTR("old"));
    EXPECT_EQ(ThrownResult([&] { value = unknown; }), DISP_E_BADVARTYPE);
    EXPECT_EQ(Narrow(value.bstrVal), "old");
}

TEST(COleVariant, MovesWithoutACopy)
{
    COleVariant source(OLESTR("text"));
    BSTR const text = source.bstrVal;
    COleVariant moved(std::move(source));
    EXPECT_EQ(moved.bstrVal, text);
    EXPECT_EQ(source.vt, VT_EMPTY);

    CountedObject object;
    COleVariant target(ReferenceTo(object));
    target = std::move(moved);
    EXPECT_EQ(object.References(), 0u);
    EXPECT_EQ(target.bstrVal, text);
    EXPECT_EQ(moved.vt, VT_EMPTY);

    COleVariant & itself = target;
    target = std::move(itself);
    EXPECT_EQ(target.bstrVal, text);
}

TEST(COleVariant, AssignsEveryKindInPlaceOfAText)
{
    auto const assigned = [](auto const & source)
    {
        COleVariant value(OLESTR("old"));
        value = source;
        return value;
    };
    EXPECT_TRUE(assigned(MakeBits(VT_I4, 5)) == MakeBits(VT_I4, 5));
    EXPECT_TRUE(assigned(COleVariant(5L)) == MakeBits(VT_I4, 5));
    EXPECT_TRUE(assigned(long{5}) == MakeBits(VT_I4, 5));
    EXPECT_TRUE(assigned(short{5}) == MakeBits(VT_I2, 5));
    EXPECT_TRUE(assigned(BYTE{5}) == MakeBits(VT_UI1, 5));
    EXPECT_TRUE(assigned(0.5f) == MakeBits(VT_R4, 0x3F000000));
    EXPECT_TRUE(assigned(0.5) == MakeR8(0.5));
    EXPECT_TRUE(assigned(MakeCurrency(5)) == MakeBits(VT_CY, 5));
    EXPECT_TRUE(assigned(MakeDate(1.5)) == MakeBits(VT_DATE, 0x3FF8000000000000));
    EXPECT_EQ(Narrow(assigned(OLESTR("new")).bstrVal), "new");
    EXPECT_EQ(Narrow(TextOf(assigned(CString(withZero.data(), 3)).bstrVal)), Narrow(withZero));
    EXPECT_EQ(assigned(static_cast<WCHAR const *>(nullptr)).bstrVal, nullptr);
    EXPECT_TRUE(assigned(COleVariant()) == COleVariant());
}

TEST(COleVariant, ABoolStaysABoolUnderAShort)
{
    COleVariant value(0L, VT_BOOL);
    value = short{5};
    EXPECT_TRUE(value == MakeBits(VT_BOOL, 0xFFFF));
    value = long{5};
    EXPECT_TRUE(value == MakeBits(VT_I4, 5));
}

TEST(COleVariant, AnErrorStaysAnErrorUnderALong)
{
    COleVariant value(0L, VT_ERROR);
    value = long{5};
    EXPECT_TRUE(value == MakeBits(VT_ERROR, 5));
    value = short{5};
    EXPECT_TRUE(value == MakeBits(VT_I2, 5));
}

TEST(COleVariant, AssignsItselfAndPartsOfItself)
{
    COleVariant value(OLESTR("text"));
    COleVariant const & itself = value;
    value = itself;
    EXPECT_EQ(Narrow(value.bstrVal), "text");
    value = static_cast<WCHAR const *>(value.bstrVal + 2);
    EXPECT_EQ(Narrow(value.bstrVal), "xt");
}

TEST(COleVariant, ClearsWhatItOwns)
{
    CountedObject object;
    COleVariant value(ReferenceTo(object));
    value.Clear();
    EXPECT_EQ(value.vt, VT_EMPTY);
    EXPECT_EQ(object.References(), 0u);
    value.Clear();
    EXPECT_EQ(value.vt, VT_EMPTY);
}

TEST(COleVariant, AttachTakesTheValueOver)
{
    CountedObject object;
    COleVariant value(ReferenceTo(object));
    VARIANT source = MakeTextVariant(OLESTR("text"));
    BSTR const text = source.bstrVal;
    value.Attach(source);
    EXPECT_EQ(object.References(), 0u);
    EXPECT_EQ(value.bstrVal, text);
    EXPECT_EQ(source.vt, VT_EMPTY);
    value.Attach(value);
    EXPECT_EQ(value.bstrVal, text);
}

TEST(COleVariant, AttachTakesAnElementOfItsOwnArray)
{
    SAFEARRAY * const array = SafeArrayCreateVector(VT_VARIANT, 0, 1);
    VARIANT * const element = static_cast<VARIANT *>(array->pvData);
    *element = MakeTextVariant(OLESTR("inside"));
    VARIANT whole = MakeArrayVariant(array);
    COleVariant value;
    value.Attach(whole);
    value.Attach(*element);
    EXPECT_EQ(Narrow(value.bstrVal), "inside");
}

TEST(COleVariant, DetachHandsTheValueOut)
{
    COleVariant value(OLESTR("text"));
    BSTR const text = value.bstrVal;
    Cleared detached(value.Detach());
    EXPECT_EQ(detached->bstrVal, text);
    EXPECT_EQ(value.vt, VT_EMPTY);
}

TEST(COleVariant, CannotBeReplacedWhileItsArrayIsLocked)
{
    LockedArray locked;
    COleVariant & value = locked.Get();
    VARIANT source = MakeBits(VT_I4, 5);
    EXPECT_EQ(ThrownResult([&] { value.Clear(); }), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(ThrownResult([&] { value = 5L; }), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(ThrownResult([&] { value = OLESTR("text"); }), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(ThrownResult([&] { value = CString(OLESTR("text")); }), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(ThrownResult([&] { value = source; }), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(ThrownResult([&] { value.Attach(source); }), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(source.lVal, 5);
    EXPECT_EQ(source.vt, VT_I4);
    EXPECT_TRUE(locked.IsHeld());
}

TEST(COleVariant, AMoveLeavesALockedArrayToWhoeverLockedIt)
{
    LockedArray locked;
    locked.Get() = COleVariant(5L);
    EXPECT_TRUE(locked.Get() == MakeBits(VT_I4, 5));
}

TEST(COleVariant, ConvertsToNoPointerThatWouldWinOverTheValuesOfDerivedClasses)
{
    EXPECT_FALSE((std::is_convertible_v<COleVariant, VARIANT *>));
    EXPECT_FALSE((std::is_convertible_v<COleVariant const, VARIANT const *>));
}

TEST(COleVariantChangeType, ConvertsInPlace)
{
    COleVariant value(333L);
    value.ChangeType(VT_BSTR);
    EXPECT_EQ(value.vt, VT_BSTR);
    EXPECT_EQ(Narrow(value.bstrVal), "333");
    value.ChangeType(VT_I4);
    EXPECT_TRUE(value == MakeBits(VT_I4, 333));
}

TEST(COleVariantChangeType, ConvertsACopyOfAnotherValue)
{
    VARIANT source = MakeBits(VT_I4, 333);
    COleVariant value(OLESTR("old"));
    value.ChangeType(VT_BSTR, &source);
    EXPECT_EQ(Narrow(value.bstrVal), "333");
    EXPECT_TRUE(source == MakeBits(VT_I4, 333));
}

TEST(COleVariantChangeType, LeavesAValueThatHasTheTagAlready)
{
    COleVariant value(OLESTR("text"));
    BSTR const text = value.bstrVal;
    value.ChangeType(VT_BSTR);
    EXPECT_EQ(value.bstrVal, text);
    COleVariant blob(MakeBits(VT_BLOB, 8));
    blob.ChangeType(VT_BLOB);
    EXPECT_TRUE(blob == MakeBits(VT_BLOB, 8));
}

TEST(COleVariantChangeType, RaisesThePlatformsFailureAndKeepsTheValue)
{
    COleVariant value(OLESTR("abc"));
    EXPECT_EQ(ThrownResult([&] { value.ChangeType(VT_I4); }), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(Narrow(value.bstrVal), "abc");
    COleVariant large(100000L);
    EXPECT_EQ(ThrownResult([&] { value.ChangeType(VT_I2, &large); }), DISP_E_OVERFLOW);
    EXPECT_EQ(Narrow(value.bstrVal), "abc");
}

TEST(COleVariantMemory, NumbersAllocateNothing)
{
    std::size_t const before = AllAllocations();
    COleVariant value(5L);
    COleVariant copy(value);
    copy = 2.5;
    value = copy;
    copy.Clear();
    EXPECT_TRUE(value != copy);
    EXPECT_EQ(AllAllocations(), before);
}

TEST(COleVariantMemory, TextsAllocateOnce)
{
    COleVariant const value(OLESTR("text"));
    std::size_t const before = AllAllocations();
    COleVariant const copy(value);
    EXPECT_EQ(AllAllocations(), before + 1);
}

TEST(COleVariantMemory, ConstructorsLeakNothingWhenItRunsOut)
{
    CString const text(OLESTR("text"));
    COleVariant const source(text);
    auto const check = [] { EXPECT_EQ(ThrownResult([] { throw; }), E_OUTOFMEMORY); };
    EXPECT_EQ(FailEveryAllocation([] { COleVariant value(OLESTR("text")); }, check), 1u);
    EXPECT_EQ(FailEveryAllocation([&] { COleVariant value(text); }, check), 1u);
    EXPECT_EQ(FailEveryAllocation([&] { COleVariant value(source); }, check), 1u);
    EXPECT_EQ(FailEveryAllocation([&] { COleVariant value(static_cast<VARIANT const &>(source)); }, check), 1u);
    EXPECT_EQ(FailEveryAllocation([&] { COleVariant value(static_cast<VARIANT const *>(&source)); }, check), 1u);
}

TEST(COleVariantMemory, AssignmentsKeepTheOldValueWhenItRunsOut)
{
    CString const text(OLESTR("text"));
    COleVariant const source(text);
    COleVariant value(OLESTR("old"));
    auto const failing = [&](auto assign)
    {
        FailNthAllocation const fail(1);
        EXPECT_EQ(ThrownResult(assign), E_OUTOFMEMORY);
        EXPECT_EQ(Narrow(value.bstrVal), "old");
    };
    failing([&] { value = OLESTR("text"); });
    failing([&] { value = text; });
    failing([&] { value = source; });
    failing([&] { value = static_cast<VARIANT const &>(source); });
    COleVariant number(333L);
    failing([&] { value.ChangeType(VT_BSTR, &number); });
}
