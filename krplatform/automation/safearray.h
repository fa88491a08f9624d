// Functions on automation arrays.
#pragma once

#include <krplatform/automation/variant.h>

// A function that gets a null array, or null where a result goes or bounds or indices are read, answers E_INVALIDARG
// unless it says otherwise.

/// A new zeroed array of `dimensions` (1 to 65535) with `bounds`, first dimension first. Null for an element tag that
/// no array can have, for no dimensions or bounds, for bounds that pass the range of LONG, for data of 2 GiB or more,
/// and when memory runs out.
KRPLATFORM_API SAFEARRAY * SafeArrayCreate(VARTYPE element, UINT dimensions, SAFEARRAYBOUND const * bounds);
KRPLATFORM_API SAFEARRAY * SafeArrayCreateVector(VARTYPE element, LONG lowerBound, ULONG count);

/// Releases all elements and the array. Null is allowed; DISP_E_ARRAYISLOCKED while it is locked. An array inside a
/// variant element that is locked itself stays with whoever locked it.
KRPLATFORM_API HRESULT SafeArrayDestroy(SAFEARRAY * array);

/// A deep copy with the same bounds; unlocked. `*copy` is null after a failure (E_OUTOFMEMORY, or DISP_E_BADVARTYPE for
/// a variant element that cannot be copied), and for a null `array`, which is no failure.
KRPLATFORM_API HRESULT SafeArrayCopy(SAFEARRAY const * array, SAFEARRAY ** copy);

/// Changes the bound of the last dimension; elements that fall away are released, new ones are zero.
/// DISP_E_ARRAYISLOCKED while it is locked, E_OUTOFMEMORY for a bound that `SafeArrayCreate` refuses; the array then
/// stays as it was.
KRPLATFORM_API HRESULT SafeArrayRedim(SAFEARRAY * array, SAFEARRAYBOUND const * newBound);

/// 0 for a null array.
KRPLATFORM_API UINT SafeArrayGetDim(SAFEARRAY const * array);
/// Bytes; 0 for a null array.
KRPLATFORM_API UINT SafeArrayGetElemsize(SAFEARRAY const * array);
KRPLATFORM_API HRESULT SafeArrayGetVartype(SAFEARRAY const * array, VARTYPE * element);

/// Bounds of a dimension, counted from 1; DISP_E_BADINDEX outside. A dimension of no elements has an upper bound of the
/// lower one less one.
KRPLATFORM_API HRESULT SafeArrayGetLBound(SAFEARRAY const * array, UINT dimension, LONG * lowerBound);
KRPLATFORM_API HRESULT SafeArrayGetUBound(SAFEARRAY const * array, UINT dimension, LONG * upperBound);

/// Counts of users of the data. E_UNEXPECTED for one release too many, or when the count is full.
KRPLATFORM_API HRESULT SafeArrayLock(SAFEARRAY * array);
KRPLATFORM_API HRESULT SafeArrayUnlock(SAFEARRAY * array);
/// The same; `*data` is the first element, null for an array without elements and after a failure.
KRPLATFORM_API HRESULT SafeArrayAccessData(SAFEARRAY * array, void ** data);
KRPLATFORM_API HRESULT SafeArrayUnaccessData(SAFEARRAY * array);

/// The place of an element; `indices` holds the first dimension first. DISP_E_BADINDEX outside the bounds.
KRPLATFORM_API HRESULT SafeArrayPtrOfIndex(SAFEARRAY * array, LONG const * indices, void ** element);

/// Hands out a copy of the element, owned by the caller: a new text (null for an element without text), a deep variant,
/// a counted reference. What `element` held is not read, and stays after a failure.
KRPLATFORM_API HRESULT SafeArrayGetElement(SAFEARRAY * array, LONG const * indices, void * element);

/// Stores a copy of what `element` points at; for texts and references `element` is the `BSTR` or pointer itself, which
/// may be null. The old element is released; it stays after a failure. What was handed in stays the caller's. Works
/// while the array is locked.
KRPLATFORM_API HRESULT SafeArrayPutElement(SAFEARRAY * array, LONG const * indices, void const * element);
