// Which types become which: every pair of tags, and what the others get.
#include <krplatform/coerce/coerce.h>

#include "tests/krplatform/automation/counted_object.h"
#include "tests/krplatform/automation/make_variant.h"
#include "tests/krplatform/coerce/locale_samples.h"

#include <gtest/gtest.h>

#include <vector>

namespace kr::test
{

namespace
{

// clang-format off
constexpr VARTYPE s_integers[] = { VT_I1, VT_UI1, VT_I2, VT_UI2, VT_I4, VT_UI4, VT_I8, VT_UI8, VT_INT, VT_UINT, VT_BOOL };
constexpr VARTYPE s_decimals[] = { VT_R4, VT_R8, VT_CY, VT_DATE };
constexpr VARTYPE s_arrays[]   = { VT_ARRAY | VT_I4, VT_ARRAY | VT_BSTR, VT_ARRAY | VT_VARIANT };
constexpr VARTYPE s_bytes      = VT_ARRAY | VT_UI1;
// clang-format on

/// All tags that are types of variants.
std::vector<VARTYPE> VariantTypes()
{
    std::vector<VARTYPE> types = {VT_EMPTY, VT_NULL, VT_BSTR, VT_ERROR, VT_DISPATCH, VT_UNKNOWN, VT_VARIANT, s_bytes};
    types.insert(types.end(), std::begin(s_integers), std::end(s_integers));
    types.insert(types.end(), std::begin(s_decimals), std::end(s_decimals));
    types.insert(types.end(), std::begin(s_arrays), std::end(s_arrays));
    return types;
}

std::vector<VARTYPE> Numbers()
{
    std::vector<VARTYPE> types(std::begin(s_integers), std::end(s_integers));
    types.insert(types.end(), std::begin(s_decimals), std::end(s_decimals));
    return types;
}

/// The number 1, the text "1", an array of one element; no object.
VARIANT MakeSample(VARTYPE tag)
{
    if ((tag & VT_ARRAY) != 0)
        return MakeArrayVariant(SafeArrayCreateVector(tag & VT_TYPEMASK, 0, 1));
    switch (tag)
    {
    case VT_BSTR:
        return MakeTextVariant(OLESTR("1"));
    case VT_R8:
    case VT_DATE:
    {
        VARIANT value = MakeR8(1);
        value.vt = tag;
        return value;
    }
    case VT_R4:
    {
        VARIANT value = MakeBits(VT_R4, 0);
        value.fltVal = 1;
        return value;
    }
    case VT_CY:
        return MakeBits(VT_CY, 10000);
    case VT_EMPTY:
    case VT_NULL:
    case VT_DISPATCH:
    case VT_UNKNOWN:
    case VT_VARIANT:
        return MakeBits(tag, 0);
    default:
        return MakeBits(tag, 1);
    }
}

void CheckPair(VARTYPE sourceTag, VARTYPE target, HRESULT expected)
{
    SCOPED_TRACE(sourceTag);
    SCOPED_TRACE(target);
    Cleared source(MakeSample(sourceTag));
    Cleared destination(MakeBits(VT_I4, 4711));
    EXPECT_EQ(detail::Coerce(*destination.Get(), *source, target, &english), expected);
    EXPECT_EQ(destination->vt, SUCCEEDED(expected) ? target : VARTYPE{VT_I4});
    if (FAILED(expected))
    {
        EXPECT_EQ(destination->lVal, 4711);
    }
    EXPECT_EQ(source->vt, sourceTag);
}

template <class Targets>
void CheckPairs(VARTYPE source, Targets const & targets, HRESULT expected)
{
    for (VARTYPE const target : targets)
        CheckPair(source, target, expected);
}

constexpr VARTYPE s_nothing[] = {VT_EMPTY, VT_NULL};

} // namespace

TEST(CoerceTypes, NumbersBecomeNumbersTextAndNothing)
{
    for (VARTYPE const source : Numbers())
    {
        CheckPairs(source, Numbers(), S_OK);
        CheckPairs(source, s_nothing, S_OK);
        CheckPair(source, VT_BSTR, S_OK);
        CheckPairs(source, s_arrays, DISP_E_TYPEMISMATCH);
        CheckPairs(source, std::vector<VARTYPE>{VT_ERROR, VT_DISPATCH, VT_UNKNOWN, VT_VARIANT, s_bytes},
                   DISP_E_TYPEMISMATCH);
    }
}

TEST(CoerceTypes, TextBecomesNumbersBytesAndNothing)
{
    for (VARTYPE const target : Numbers())
    {
        if (target != VT_DATE) // "1" alone is no date
            CheckPair(VT_BSTR, target, S_OK);
    }
    CheckPairs(VT_BSTR, s_nothing, S_OK);
    CheckPair(VT_BSTR, VT_BSTR, S_OK);
    CheckPair(VT_BSTR, s_bytes, S_OK);
    CheckPairs(VT_BSTR, s_arrays, DISP_E_TYPEMISMATCH);
    CheckPairs(VT_BSTR, std::vector<VARTYPE>{VT_ERROR, VT_DISPATCH, VT_UNKNOWN, VT_VARIANT}, DISP_E_TYPEMISMATCH);
}

TEST(CoerceTypes, EmptyBecomesNumbersTextAndNull)
{
    CheckPairs(VT_EMPTY, Numbers(), S_OK);
    CheckPairs(VT_EMPTY, s_nothing, S_OK);
    CheckPair(VT_EMPTY, VT_BSTR, S_OK);
    CheckPairs(VT_EMPTY, s_arrays, DISP_E_TYPEMISMATCH);
    CheckPairs(VT_EMPTY, std::vector<VARTYPE>{VT_ERROR, VT_DISPATCH, VT_UNKNOWN, VT_VARIANT, s_bytes},
               DISP_E_TYPEMISMATCH);
}

TEST(CoerceTypes, NullAndErrorsBecomeNothingElse)
{
    for (VARTYPE const source : {VARTYPE{VT_NULL}, VARTYPE{VT_ERROR}})
    {
        for (VARTYPE const target : VariantTypes())
            CheckPair(source, target, source == target ? S_OK : DISP_E_TYPEMISMATCH);
    }
}

TEST(CoerceTypes, ArraysBecomeTheirOwnTypeOnlyAndBytesText)
{
    for (VARTYPE const source : {s_arrays[0], s_arrays[1], s_arrays[2], s_bytes})
    {
        for (VARTYPE const target : VariantTypes())
        {
            bool const isText = source == s_bytes && target == VT_BSTR;
            CheckPair(source, target, source == target || isText ? S_OK : DISP_E_TYPEMISMATCH);
        }
    }
}

TEST(CoerceTypes, ReferencesBecomeEachOtherAndNothing)
{
    constexpr VARTYPE references[] = {VT_DISPATCH, VT_UNKNOWN};
    CheckPairs(VT_DISPATCH, references, S_OK);
    CheckPairs(VT_UNKNOWN, references, S_OK);
    CheckPairs(VT_DISPATCH, s_nothing, S_OK);
    CheckPairs(VT_UNKNOWN, s_nothing, S_OK);
    CheckPairs(VT_UNKNOWN, Numbers(), DISP_E_TYPEMISMATCH);
    CheckPair(VT_UNKNOWN, VT_BSTR, DISP_E_TYPEMISMATCH);
    CheckPairs(VT_DISPATCH, Numbers(), DISP_E_BADVARTYPE); // no method is called to ask for a value
    CheckPair(VT_DISPATCH, VT_BSTR, DISP_E_BADVARTYPE);
    CheckPairs(VT_DISPATCH, s_arrays, DISP_E_TYPEMISMATCH);
    CheckPairs(VT_UNKNOWN, s_arrays, DISP_E_TYPEMISMATCH);
    CheckPair(VT_DISPATCH, VT_ERROR, DISP_E_TYPEMISMATCH);
    CheckPair(VT_UNKNOWN, VT_VARIANT, DISP_E_TYPEMISMATCH);
}

TEST(CoerceTypes, ALoneVariantBecomesNothing)
{
    for (VARTYPE const target : VariantTypes())
        CheckPair(VT_VARIANT, target, DISP_E_TYPEMISMATCH);
}

TEST(CoerceTypes, WhatIsNoTypeIsBadOnEitherSide)
{
    // clang-format off
    constexpr VARTYPE bad[] = {
        14, 15, VT_VOID, 25, VT_PTR, 31, 36, VT_BLOB, 0x0FFF, 0x1000 | VT_I4, 0x8000, 0xFFFF,
        VT_BYREF | VT_I4, VT_BYREF | VT_VARIANT, VT_BYREF | VT_ARRAY | VT_I4,
        VT_ARRAY | VT_EMPTY, VT_ARRAY | VT_NULL, VT_ARRAY | 15, VT_ARRAY | VT_VOID, VT_ARRAY | VT_BLOB,
    };
    // clang-format on
    for (VARTYPE const tag : bad)
    {
        SCOPED_TRACE(tag);
        CheckPairs(VT_I4, std::vector<VARTYPE>{tag}, DISP_E_BADVARTYPE);
        CheckPairs(VT_NULL, std::vector<VARTYPE>{tag}, DISP_E_BADVARTYPE);
        CheckPairs(s_bytes, std::vector<VARTYPE>{tag}, DISP_E_BADVARTYPE);
        for (VARTYPE const target : {VARTYPE{VT_I4}, VARTYPE{VT_BSTR}, VARTYPE{VT_EMPTY}, tag})
        {
            VARIANT const source = MakeBits(tag, 0);
            Cleared destination(MakeBits(VT_I4, 4711));
            EXPECT_EQ(detail::Coerce(*destination.Get(), source, target, &english), DISP_E_BADVARTYPE);
            EXPECT_EQ(destination->lVal, 4711);
        }
    }
}

TEST(CoerceTypes, TheLocaleIsReadForDecimalsToTextAndForTextToNumbersOnly)
{
    std::vector<VARTYPE> types = VariantTypes();
    types.push_back(VT_BLOB);
    for (VARTYPE const source : types)
    {
        for (VARTYPE const target : types)
        {
            SCOPED_TRACE(source);
            SCOPED_TRACE(target);
            auto const isDecimal = [](VARTYPE tag)
            { return tag == VT_R4 || tag == VT_R8 || tag == VT_CY || tag == VT_DATE; };
            std::vector<VARTYPE> const numbers = Numbers();
            bool const isNumber = std::find(numbers.begin(), numbers.end(), target) != numbers.end();
            bool const expected = (isDecimal(source) && target == VT_BSTR) || (source == VT_BSTR && isNumber);
            EXPECT_EQ(detail::ReadsLocale(source, target), expected);
        }
    }
}

TEST(CoerceTypes, WithoutNeedOfALocaleNoneIsLookedAt)
{
    for (VARTYPE const source : VariantTypes())
    {
        for (VARTYPE const target : VariantTypes())
        {
            if (detail::ReadsLocale(source, target))
                continue;
            Cleared value(MakeSample(source));
            Cleared with(MakeBits(VT_EMPTY, 0));
            Cleared without(MakeBits(VT_EMPTY, 0));
            HRESULT const result = detail::Coerce(*with.Get(), *value, target, &english);
            EXPECT_EQ(detail::Coerce(*without.Get(), *value, target, nullptr), result);
            EXPECT_TRUE(*with == *without);
        }
    }
}

} // namespace kr::test
