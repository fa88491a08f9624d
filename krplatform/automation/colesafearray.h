// The array variant that clears itself.
#pragma once

#include <krplatform/automation/safearray.h>
#include <krplatform/automation/variant.h>

/// A `VARIANT` that holds an array and owns it. Every failure is thrown as `COleException *`, want of memory as
/// `CMemoryException *`. Dimensions count from 1; indices are given first dimension first.
class KRPLATFORM_API COleSafeArray : public VARIANT
{
public:
    COleSafeArray() noexcept;
    /// A copy of the array; raises DISP_E_TYPEMISMATCH if `source` holds none, E_INVALIDARG for null.
    COleSafeArray(VARIANT const * source);
    COleSafeArray(VARIANT const & source);
    COleSafeArray(SAFEARRAY const * source, VARTYPE element);
    COleSafeArray(COleSafeArray const & source);
    COleSafeArray(COleSafeArray && source) noexcept;
    ~COleSafeArray();
    COleSafeArray & operator=(COleSafeArray const & source);
    COleSafeArray & operator=(COleSafeArray && source) noexcept;
    COleSafeArray & operator=(VARIANT const & source);

    /// A new array of zeroed elements in place of the old one. Bounds that are not given are 0.
    void Create(VARTYPE element, DWORD dimensions, DWORD const * counts);
    void Create(VARTYPE element, DWORD dimensions, SAFEARRAYBOUND const * bounds);
    /// `source`, if not null, gives `count` elements that are copied bit by bit (texts and references then belong to
    /// the array).
    void CreateOneDim(VARTYPE element, DWORD count, void const * source = nullptr, long lowerBound = 0);

    void AccessData(void ** data);
    void UnaccessData();
    void Lock();
    void Unlock();

    DWORD GetDim() const;
    DWORD GetElemSize() const;
    /// Elements of the only dimension; raises E_INVALIDARG if the array has more than one.
    DWORD GetOneDimSize() const;
    void ResizeOneDim(DWORD count);
    void GetLBound(DWORD dimension, LONG * lowerBound) const;
    void GetLBound(DWORD dimension, long * lowerBound) const;
    void GetUBound(DWORD dimension, LONG * upperBound) const;
    void GetUBound(DWORD dimension, long * upperBound) const;

    /// A copy of the element, owned by the caller.
    void GetElement(LONG const * indices, void * element);
    void GetElement(long const * indices, void * element);
    /// Stores a copy; what is handed in stays the caller's.
    void PutElement(LONG const * indices, void const * element);
    void PutElement(long const * indices, void const * element);
    void PtrOfIndex(LONG const * indices, void ** element);

    /// Frees the array; the object is left VT_EMPTY.
    void Clear();
    /// Frees the old array and takes over the argument's, which is left VT_EMPTY; raises DISP_E_TYPEMISMATCH if it has
    /// none.
    void Attach(VARIANT & source);
    VARIANT Detach();

    operator VARIANT *() noexcept { return this; }
    operator VARIANT const *() const noexcept { return this; }
};

/// Makes the object empty without reading what it held.
KRPLATFORM_API void AfxSafeArrayInit(COleSafeArray * array);
