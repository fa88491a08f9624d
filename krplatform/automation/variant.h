// The automation variant and the arrays it holds: the plain structures, and what clears, copies and converts them.
#pragma once

#include <krplatform/automation/unknown.h>
#include <krplatform/base/hresult.h>
#include <krplatform/export.h>

/// Tags of `VARIANT`.
enum VARENUM : int
{
    VT_EMPTY = 0,
    VT_NULL = 1,
    VT_I2 = 2,
    VT_I4 = 3,
    VT_R4 = 4,
    VT_R8 = 5,
    VT_CY = 6,
    VT_DATE = 7,
    VT_BSTR = 8,
    VT_DISPATCH = 9,
    VT_ERROR = 10,
    VT_BOOL = 11,
    VT_VARIANT = 12,
    VT_UNKNOWN = 13,
    VT_I1 = 16,
    VT_UI1 = 17,
    VT_UI2 = 18,
    VT_UI4 = 19,
    VT_I8 = 20,
    VT_UI8 = 21,
    VT_INT = 22,
    VT_UINT = 23,
    VT_VOID = 24,
    VT_PTR = 26,
    VT_BLOB = 65,
    VT_ARRAY = 0x2000,
    VT_BYREF = 0x4000,
    VT_TYPEMASK = 0x0FFF
};

/// Elements and lower bound of one dimension.
struct SAFEARRAYBOUND
{
    ULONG cElements;
    LONG lLbound;
};

// Features of an array: what its elements own.
constexpr USHORT FADF_BSTR = 0x0100;
constexpr USHORT FADF_UNKNOWN = 0x0200;
constexpr USHORT FADF_DISPATCH = 0x0400;
constexpr USHORT FADF_VARIANT = 0x0800;
constexpr USHORT FADF_HAVEVARTYPE = 0x0080;

/// An array of automation values. The first index runs fastest in memory; `rgsabound` holds the dimensions in reverse,
/// the last one first. Made and freed by the functions below only.
struct SAFEARRAY
{
    USHORT cDims;
    USHORT fFeatures;
    ULONG cbElements;
    ULONG cLocks;
    void * pvData;
    SAFEARRAYBOUND rgsabound[1];
};

/// A tagged value of at most 8 bytes. A plain structure: whoever makes one initialises and clears it (`COleVariant`
/// does).
struct tagVARIANT
{
    VARTYPE vt;
    WORD wReserved1;
    WORD wReserved2;
    WORD wReserved3;
    union
    {
        LONGLONG llVal;
        LONG lVal;
        BYTE bVal;
        SHORT iVal;
        float fltVal;
        double dblVal;
        VARIANT_BOOL boolVal;
        SCODE scode;
        CY cyVal;
        DATE date;
        BSTR bstrVal;
        IUnknown * punkVal;
        IDispatch * pdispVal;
        SAFEARRAY * parray;
        signed char cVal;
        USHORT uiVal;
        ULONG ulVal;
        ULONGLONG ullVal;
        INT intVal;
        UINT uintVal;
        void * byref;
        BYTE * pbVal;
        VARIANT * pvarVal;
    };
};

static_assert(sizeof(VARIANT) == 16);

using VARIANTARG = VARIANT;

/// Makes the variant empty without reading what it held. Null is ignored.
KRPLATFORM_API void VariantInit(VARIANT * variant);
KRPLATFORM_API void AfxVariantInit(VARIANT * variant);

/// Releases what the variant owns and leaves VT_EMPTY; a second call has no effect. A locked array stays
/// (DISP_E_ARRAYISLOCKED), a reference (VT_BYREF) or an unknown tag too (DISP_E_BADVARTYPE). Deliberate: a VT_BLOB and
/// a lone VT_VARIANT are plain bits, and what they point at is not freed. E_INVALIDARG for null.
KRPLATFORM_API HRESULT VariantClear(VARIANT * variant);

/// Makes `destination` a deep copy: text and arrays are copied, references counted. `destination` is cleared first,
/// unless the source cannot be copied (DISP_E_BADVARTYPE, E_OUTOFMEMORY) or `destination` cannot be cleared; then it
/// stays as it was. A text variant without text becomes an empty text. A copy onto itself changes nothing.
KRPLATFORM_API HRESULT VariantCopy(VARIANT * destination, VARIANT const * source);

/// Converts `source` to `target` under the default locale, or `locale`. `destination` may be the source; after a
/// failure it stays as it was. DISP_E_BADVARTYPE for a tag that is no type of variants, VT_BYREF included,
/// DISP_E_TYPEMISMATCH for types without a conversion and for text that does not say the value, DISP_E_OVERFLOW for
/// numbers that do not fit, E_INVALIDARG for flags other than 0, for null, for dates outside the calendar, and for an
/// unknown locale where numbers or dates meet text.
KRPLATFORM_API HRESULT VariantChangeType(VARIANT * destination, VARIANT const * source, USHORT flags, VARTYPE target);
KRPLATFORM_API HRESULT VariantChangeTypeEx(VARIANT * destination, VARIANT const * source, LCID locale, USHORT flags,
                                           VARTYPE target);

namespace kr::detail
{

/// Compares the values of two variants of the same tag.
KRPLATFORM_API bool HasEqualValue(VARIANT const & left, VARIANT const & right) noexcept;

} // namespace kr::detail

/// The platform's comparison: equal tags and equal values. It serves every class derived from `VARIANT`.
///
/// Text compares by exact content, zeros inside included; no text is empty text. Numbers compare as numbers, so 0.0
/// equals -0.0 and a not-a-number nothing. Arrays are equal if element type, bounds and all elements are. References
/// to objects compare by pointer, every other tag by its eight value bytes.
inline bool operator==(VARIANT const & left, VARIANT const & right) noexcept
{
    if (left.vt != right.vt)
        return false;
    switch (left.vt) // the commonest tags without a call
    {
    case VT_I4:
        return left.lVal == right.lVal;
    case VT_R8:
    case VT_DATE:
        return left.dblVal == right.dblVal;
    case VT_I2:
    case VT_BOOL:
        return left.iVal == right.iVal;
    default:
        return kr::detail::HasEqualValue(left, right);
    }
}
