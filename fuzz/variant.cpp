// Coercion of variants: the byte of a source tag, of a target tag and of a locale, then what the value is made of.
#include "fuzz/fuzz_locales.h"
#include "fuzz/fuzz_target.h"

#include "tests/krplatform/automation/counted_object.h"
#include "tests/krplatform/automation/make_variant.h"

#include <krplatform/automation/variant.h>

#include <cmath>
#include <limits>
#include <optional>

namespace kr::fuzz
{

namespace
{

using kr::test::Cleared;
using kr::test::CountedObject;

VARTYPE TagOf(unsigned byte)
{
    unsigned const flags = (byte & 0x40 ? VT_ARRAY : 0) | (byte & 0x80 ? VT_BYREF : 0);
    return static_cast<VARTYPE>((byte & 0x3F) | flags);
}

/// An array of the given elements whose bytes are the input; those of texts and objects stay null.
SAFEARRAY * MakeArray(VARTYPE element, std::string_view bytes)
{
    ULONG const count = static_cast<ULONG>(bytes.size() % 9);
    SAFEARRAYBOUND const bounds[] = {{count, 0}, {1, 5}};
    SAFEARRAY * const array = SafeArrayCreate(element, bytes.size() % 2 + 1, bounds);
    bool const isPlain = element != VT_BSTR && element != VT_VARIANT && element != VT_DISPATCH && element != VT_UNKNOWN;
    if (array && count != 0 && isPlain)
        std::memcpy(array->pvData, bytes.data(), std::min<std::size_t>(bytes.size(), count * array->cbElements));
    return array;
}

VARIANT MakeSource(VARTYPE tag, FuzzInput & input, CountedObject & object)
{
    VARIANT value = kr::test::MakeBits(tag, 0);
    if (tag == VT_BSTR)
        value.bstrVal = input.IsAtEnd() ? nullptr : kr::test::MakeText(input.TextRest());
    else if (tag == VT_DISPATCH || tag == VT_UNKNOWN)
    {
        if (input.Flag())
        {
            object.AddRef();
            value.pdispVal = &object;
        }
    }
    else if (tag & VT_ARRAY)
        value.parray = tag & VT_BYREF ? nullptr : MakeArray(tag & VT_TYPEMASK, input.Rest());
    else
        value.ullVal = input.Number<ULONGLONG>();
    return value;
}

bool HasSameBits(VARIANT const & left, VARIANT const & right) { return std::memcmp(&left, &right, sizeof left) == 0; }

/// Equal values of one type, where one that is no number equals its like, as an array of such does. Bits that the type does
/// not have play no part.
bool IsSameValue(VARIANT const & left, VARIANT const & right)
{
    if (left == right)
        return true;
    if (left.vt != right.vt)
        return false;
    switch (left.vt)
    {
    case VT_R4:
        return std::isnan(left.fltVal) && std::isnan(right.fltVal);
    case VT_R8:
    case VT_DATE:
        return std::isnan(left.dblVal) && std::isnan(right.dblVal);
    case VT_EMPTY:
    case VT_NULL:
        return true;
    case VT_ARRAY | VT_R4:
    case VT_ARRAY | VT_R8:
    case VT_ARRAY | VT_DATE:
        return true;
    default:
        return false;
    }
}

struct IntegerType
{
    VARTYPE tag;
    int bytes;
    bool isSigned;
};

constexpr IntegerType integerTypes[] = {{VT_I1, 1, true}, {VT_UI1, 1, false}, {VT_I2, 2, true},  {VT_UI2, 2, false},
                                        {VT_I4, 4, true}, {VT_UI4, 4, false}, {VT_INT, 4, true}, {VT_UINT, 4, false},
                                        {VT_I8, 8, true}, {VT_UI8, 8, false}};

IntegerType const * IntegerTypeOf(VARTYPE tag)
{
    for (IntegerType const & type : integerTypes)
    {
        if (type.tag == tag)
            return &type;
    }
    return nullptr;
}

/// A whole number of at most 64 bits, which a `long double` holds exactly.
long double WholeNumberOf(VARIANT const & value, IntegerType const & type)
{
    int const unused = 64 - 8 * type.bytes;
    ULONGLONG const high = value.ullVal << unused;
    return type.isSigned ? static_cast<long double>(static_cast<LONGLONG>(high) >> unused)
                         : static_cast<long double>(high >> unused);
}

std::optional<long double> NumberOf(VARIANT const & value)
{
    if (IntegerType const * const type = IntegerTypeOf(value.vt))
        return WholeNumberOf(value, *type);
    switch (value.vt)
    {
    case VT_R4:
        return value.fltVal;
    case VT_R8:
    case VT_DATE:
        return value.dblVal;
    case VT_CY: // the quotient of 64 bits tells halves from their neighbours
        return static_cast<long double>(value.cyVal.int64) / 10000;
    default:
        return std::nullopt;
    }
}

/// What a number becomes as an integer: rounded half to even, refused out of range, but for signed and unsigned ones of one
/// width, which keep their bits.
void CheckInteger(VARIANT const & source, IntegerType const & type, HRESULT result, VARIANT const & converted)
{
    std::optional<long double> const number = NumberOf(source);
    if (!number)
        return;
    IntegerType const * const sourceType = IntegerTypeOf(source.vt);
    if (sourceType && sourceType->bytes == type.bytes)
    {
        VARIANT cast = source;
        cast.vt = type.tag;
        KR_LAW(SUCCEEDED(result) && WholeNumberOf(converted, type) == WholeNumberOf(cast, type));
        return;
    }
    bool const isOneLess = source.vt == VT_CY && source.cyVal.int64 < 0 && type.tag == VT_I8; // as is told there
    long double const rounded = isOneLess ? std::trunc(*number) - 1 : std::nearbyint(*number);
    long double const limit = std::ldexp(1.0L, 8 * type.bytes - type.isSigned);
    bool const fits = rounded >= (type.isSigned ? -limit : 0) && rounded < limit;
    KR_LAW(result == (fits ? S_OK : DISP_E_OVERFLOW));
    KR_LAW(!fits || WholeNumberOf(converted, type) == rounded);
}

void CheckTruth(VARIANT const & source, HRESULT result, VARIANT const & converted)
{
    if (std::optional<long double> const number = NumberOf(source))
        KR_LAW(SUCCEEDED(result) && converted.boolVal == (*number != 0 ? VARIANT_TRUE : VARIANT_FALSE));
}

/// The text of a whole number and of an amount says the whole value.
void CheckText(VARIANT const & source, LCID locale, VARIANT const & converted)
{
    if (!IntegerTypeOf(source.vt) && source.vt != VT_CY)
        return;
    Cleared again{VARIANT{}};
    KR_LAW(SUCCEEDED(VariantChangeTypeEx(again.Get(), &converted, locale, 0, source.vt)));
    KR_LAW(*again == source);
}

} // namespace

void CheckLaws(FuzzInput input)
{
    VARTYPE const sourceTag = TagOf(input.Byte());
    VARTYPE const targetTag = TagOf(input.Byte());
    LCID const locale = locales[input.Below(localeCount)];
    CountedObject object;
    {
        Cleared source(MakeSource(sourceTag, input, object));
        Cleared destination(kr::test::MakeTextVariant(OLESTR("before")));
        VARIANT const sourceBits = *source, destinationBits = *destination;

        HRESULT const result = VariantChangeTypeEx(destination.Get(), source.Get(), locale, 0, targetTag);
        KR_LAW(HasSameBits(*source, sourceBits));
        if (FAILED(result))
        {
            KR_LAW(HasSameBits(*destination, destinationBits));
            KR_LAW(kr::test::TextOf(destination->bstrVal) == OLESTR("before"));
            KR_LAW(result == DISP_E_BADVARTYPE || result == DISP_E_TYPEMISMATCH || result == DISP_E_OVERFLOW ||
                   (result == E_INVALIDARG && sourceTag == VT_DATE && targetTag == VT_BSTR));
        }
        else
        {
            KR_LAW(result == S_OK && destination->vt == targetTag);
            if (sourceTag == targetTag)
                KR_LAW(IsSameValue(*destination, *source) || (sourceTag == VT_BSTR && !source->bstrVal));
            if (targetTag == VT_BSTR)
                CheckText(*source, locale, *destination);
            Cleared again{VARIANT{}};
            KR_LAW(SUCCEEDED(VariantChangeTypeEx(again.Get(), destination.Get(), locale, 0, targetTag)));
            KR_LAW(IsSameValue(*again, *destination));
        }
        if (IntegerType const * const type = IntegerTypeOf(targetTag))
            CheckInteger(*source, *type, result, *destination);
        if (targetTag == VT_BOOL)
            CheckTruth(*source, result, *destination);

        // in place it is the same
        KR_LAW(VariantChangeTypeEx(source.Get(), source.Get(), locale, 0, targetTag) == result);
        KR_LAW(FAILED(result) ? HasSameBits(*source, sourceBits)
                              : IsSameValue(*source, *destination) || sourceTag == targetTag);
    }
    KR_LAW(object.References() == 0);
}

} // namespace kr::fuzz
