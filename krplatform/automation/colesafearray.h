// The array variant that clears itself.
#pragma once

#include <krplatform/automation/safearray.h>
#include <krplatform/automation/variant.h>

#include <memory>

namespace kr::detail
{

/// Indices of `long` as indices of `LONG`. Raises DISP_E_BADINDEX for one that does not fit, E_INVALIDARG for null.
class KRPLATFORM_API NarrowIndices
{
public:
    NarrowIndices(long const * indices, DWORD count);
    LONG const * Get() const noexcept { return m_many ? m_many.get() : m_few; }

private:
    static constexpr DWORD fewIndices = 4;
    LONG m_few[fewIndices];
    std::unique_ptr<LONG[]> m_many;
};

} // namespace kr::detail

/// A `VARIANT` that holds an array and owns it. Every failure is thrown as `COleException *`, want of memory as
/// `CMemoryException *`; the object then stays as it was. Dimensions count from 1; indices are given first dimension
/// first. Without an array everything that asks for its inside raises E_INVALIDARG.
///
///     COleSafeArray array;
///     array.CreateOneDim(VT_R8, 3, values);
///     array.GetOneDimSize()                  -> 3
///
/// A locked array cannot be replaced (DISP_E_ARRAYISLOCKED); the destructor and the moves, which do not throw, leave it
/// to whoever locked it.
class KRPLATFORM_API COleSafeArray : public VARIANT
{
public:
    COleSafeArray() noexcept : VARIANT{} {}
    /// A copy of the array; raises DISP_E_TYPEMISMATCH if `source` holds none, E_INVALIDARG for null.
    COleSafeArray(VARIANT const * source);
    COleSafeArray(VARIANT const & source);
    /// A copy; raises E_INVALIDARG for null, DISP_E_TYPEMISMATCH if the elements are not of type `element`.
    COleSafeArray(SAFEARRAY const * source, VARTYPE element);
    COleSafeArray(COleSafeArray const & source);
    COleSafeArray(COleSafeArray && source) noexcept;
    ~COleSafeArray();
    COleSafeArray & operator=(COleSafeArray const & source);
    COleSafeArray & operator=(COleSafeArray && source) noexcept;
    /// Raises DISP_E_TYPEMISMATCH if `source` holds no array.
    COleSafeArray & operator=(VARIANT const & source);

    /// A new array of zeroed elements in place of the old one, with lower bounds 0 or with `bounds`. E_INVALIDARG for
    /// an element tag that no array can have, for no dimensions and no bounds; too many elements are want of memory.
    void Create(VARTYPE element, DWORD dimensions, DWORD const * counts);
    void Create(VARTYPE element, DWORD dimensions, SAFEARRAYBOUND const * bounds);
    /// `source`, if not null, gives `count` elements from outside this array that are copied bit by bit: texts and
    /// references then belong to the array, unless this fails.
    void CreateOneDim(VARTYPE element, DWORD count, void const * source = nullptr, long lowerBound = 0);

    /// The elements in memory, first index fastest; null for an array without elements. Each call is undone by one
    /// `UnaccessData`; one too many raises E_UNEXPECTED.
    void AccessData(void ** data);
    void UnaccessData();
    void Lock();
    void Unlock();

    /// 0 without an array.
    DWORD GetDim() const;
    /// Bytes; 0 without an array.
    DWORD GetElemSize() const;
    /// Elements of the only dimension; raises E_INVALIDARG if the array has more than one.
    DWORD GetOneDimSize() const;
    /// The same for a new number of elements. The lower bound stays.
    void ResizeOneDim(DWORD count);
    void Redim(SAFEARRAYBOUND const * newLastBound);
    /// Bounds of a dimension; DISP_E_BADINDEX outside 1 to `GetDim`.
    void GetLBound(DWORD dimension, LONG * lowerBound) const;
    void GetUBound(DWORD dimension, LONG * upperBound) const;
    template <kr::detail::OtherLong Long>
    void GetLBound(DWORD dimension, Long * lowerBound) const
    {
        LONG bound = 0;
        GetLBound(dimension, lowerBound ? &bound : nullptr);
        *lowerBound = bound;
    }
    template <kr::detail::OtherLong Long>
    void GetUBound(DWORD dimension, Long * upperBound) const
    {
        LONG bound = 0;
        GetUBound(dimension, upperBound ? &bound : nullptr);
        *upperBound = bound;
    }

    /// A copy of the element, owned by the caller; what `element` held is not read. DISP_E_BADINDEX outside the bounds.
    void GetElement(LONG const * indices, void * element) const;
    template <kr::detail::OtherLong Long>
    void GetElement(Long const * indices, void * element) const
    {
        GetElement(kr::detail::NarrowIndices(indices, GetDim()).Get(), element);
    }
    /// Stores a copy; what is handed in stays the caller's. For texts and references `element` is the `BSTR` or pointer
    /// itself.
    void PutElement(LONG const * indices, void const * element);
    template <kr::detail::OtherLong Long>
    void PutElement(Long const * indices, void const * element)
    {
        PutElement(kr::detail::NarrowIndices(indices, GetDim()).Get(), element);
    }
    void PtrOfIndex(LONG const * indices, void ** element);

    /// Frees the array; the object is left VT_EMPTY.
    void Clear();
    /// Frees the old array and takes over the argument's, which is left VT_EMPTY; raises DISP_E_TYPEMISMATCH if it has
    /// none. Attaching itself changes nothing.
    void Attach(VARIANT & source);
    /// Hands the array out and is left VT_EMPTY.
    VARIANT Detach() noexcept;

    operator VARIANT *() noexcept { return this; }
    operator VARIANT const *() const noexcept { return this; }

private:
    SAFEARRAY * Array() const noexcept { return vt & VT_ARRAY ? parray : nullptr; }
};

/// Makes the object empty without reading what it held. Null is ignored.
KRPLATFORM_API void AfxSafeArrayInit(COleSafeArray * array);
