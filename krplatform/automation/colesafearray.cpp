#include <krplatform/automation/colesafearray.h>

#include <krplatform/automation/owned_variant.h>
#include <krplatform/automation/safearray_elements.h>

#include <cstring>
#include <limits>
#include <new>

using namespace kr::detail;

namespace
{

void CheckArray(VARIANT const & source)
{
    if (!(source.vt & VT_ARRAY))
        AfxThrowOleException(DISP_E_TYPEMISMATCH);
}

VARIANT CopyOf(VARIANT const & source)
{
    VARIANT copy{};
    Check(VariantCopy(&copy, &source));
    return copy;
}

VARIANT CopyOfArray(VARIANT const & source)
{
    CheckArray(source);
    return CopyOf(source);
}

VARIANT CopyOfArray(VARIANT const * source)
{
    if (!source)
        AfxThrowOleException(E_INVALIDARG);
    return CopyOfArray(*source);
}

VARIANT CopyOfArray(SAFEARRAY const * source, VARTYPE element)
{
    VARTYPE present = VT_EMPTY;
    Check(SafeArrayGetVartype(source, &present));
    if (present != element)
        AfxThrowOleException(DISP_E_TYPEMISMATCH);
    VARIANT copy{};
    copy.vt = static_cast<VARTYPE>(VT_ARRAY | element);
    Check(SafeArrayCopy(source, &copy.parray));
    return copy;
}

VARIANT NewArray(VARTYPE element, DWORD dimensions, SAFEARRAYBOUND const * bounds)
{
    bool const isPossible =
        dimensions >= 1 && dimensions <= std::numeric_limits<USHORT>::max() && bounds && FindElementType(element);
    if (!isPossible)
        AfxThrowOleException(E_INVALIDARG);
    VARIANT value{};
    value.vt = static_cast<VARTYPE>(VT_ARRAY | element);
    value.parray = SafeArrayCreate(element, dimensions, bounds);
    if (!value.parray)
        AfxThrowMemoryException();
    return value;
}

} // namespace

kr::detail::NarrowIndices::NarrowIndices(long const * indices, DWORD count)
{
    if (!indices)
        AfxThrowOleException(E_INVALIDARG);
    if (count > fewIndices)
    {
        m_many.reset(new (std::nothrow) LONG[count]);
        if (!m_many)
            AfxThrowMemoryException();
    }
    LONG * const narrow = m_many ? m_many.get() : m_few;
    for (DWORD position = 0; position < count; ++position)
    {
        narrow[position] = static_cast<LONG>(indices[position]);
        if (narrow[position] != indices[position])
            AfxThrowOleException(DISP_E_BADINDEX);
    }
}

COleSafeArray::COleSafeArray(VARIANT const * source) : VARIANT(CopyOfArray(source)) {}

COleSafeArray::COleSafeArray(VARIANT const & source) : VARIANT(CopyOfArray(source)) {}

COleSafeArray::COleSafeArray(SAFEARRAY const * source, VARTYPE element) : VARIANT(CopyOfArray(source, element)) {}

COleSafeArray::COleSafeArray(COleSafeArray const & source) : VARIANT(CopyOf(source)) {}

COleSafeArray::COleSafeArray(COleSafeArray && source) noexcept : VARIANT(source.Detach()) {}

COleSafeArray::~COleSafeArray() { VariantClear(this); }

COleSafeArray & COleSafeArray::operator=(COleSafeArray const & source)
{
    Check(VariantCopy(this, &source));
    return *this;
}

COleSafeArray & COleSafeArray::operator=(COleSafeArray && source) noexcept
{
    ForceVariant(*this, source);
    return *this;
}

COleSafeArray & COleSafeArray::operator=(VARIANT const & source)
{
    CheckArray(source);
    Check(VariantCopy(this, &source));
    return *this;
}

void COleSafeArray::Create(VARTYPE element, DWORD dimensions, DWORD const * counts)
{
    std::unique_ptr<SAFEARRAYBOUND[]> bounds;
    if (counts && dimensions <= std::numeric_limits<USHORT>::max())
    {
        bounds.reset(new (std::nothrow) SAFEARRAYBOUND[dimensions]{});
        if (!bounds)
            AfxThrowMemoryException();
        for (DWORD dimension = 0; dimension < dimensions; ++dimension)
            bounds[dimension].cElements = counts[dimension];
    }
    Create(element, dimensions, bounds.get());
}

void COleSafeArray::Create(VARTYPE element, DWORD dimensions, SAFEARRAYBOUND const * bounds)
{
    COleSafeArray created;
    static_cast<VARIANT &>(created) = NewArray(element, dimensions, bounds);
    Attach(created);
}

void COleSafeArray::CreateOneDim(VARTYPE element, DWORD count, void const * source, long lowerBound)
{
    SAFEARRAYBOUND const bound = {count, static_cast<LONG>(lowerBound)};
    Create(element, 1, &bound);
    if (source && count)
        std::memcpy(parray->pvData, source, std::size_t{count} * parray->cbElements);
}

void COleSafeArray::AccessData(void ** data) { Check(SafeArrayAccessData(Array(), data)); }

void COleSafeArray::UnaccessData() { Check(SafeArrayUnaccessData(Array())); }

void COleSafeArray::Lock() { Check(SafeArrayLock(Array())); }

void COleSafeArray::Unlock() { Check(SafeArrayUnlock(Array())); }

DWORD COleSafeArray::GetDim() const { return SafeArrayGetDim(Array()); }

DWORD COleSafeArray::GetElemSize() const { return SafeArrayGetElemsize(Array()); }

DWORD COleSafeArray::GetOneDimSize() const
{
    if (GetDim() != 1)
        AfxThrowOleException(E_INVALIDARG);
    return parray->rgsabound[0].cElements;
}

void COleSafeArray::ResizeOneDim(DWORD count)
{
    if (GetDim() != 1)
        AfxThrowOleException(E_INVALIDARG);
    SAFEARRAYBOUND const bound = {count, parray->rgsabound[0].lLbound};
    Redim(&bound);
}

void COleSafeArray::Redim(SAFEARRAYBOUND const * newLastBound) { Check(SafeArrayRedim(Array(), newLastBound)); }

void COleSafeArray::GetLBound(DWORD dimension, LONG * lowerBound) const
{
    Check(SafeArrayGetLBound(Array(), dimension, lowerBound));
}

void COleSafeArray::GetUBound(DWORD dimension, LONG * upperBound) const
{
    Check(SafeArrayGetUBound(Array(), dimension, upperBound));
}

void COleSafeArray::GetElement(LONG const * indices, void * element) const
{
    Check(SafeArrayGetElement(Array(), indices, element));
}

void COleSafeArray::PutElement(LONG const * indices, void const * element)
{
    Check(SafeArrayPutElement(Array(), indices, element));
}

void COleSafeArray::PtrOfIndex(LONG const * indices, void ** element)
{
    Check(SafeArrayPtrOfIndex(Array(), indices, element));
}

void COleSafeArray::Clear() { Check(VariantClear(this)); }

void COleSafeArray::Attach(VARIANT & source)
{
    CheckArray(source);
    MoveVariant(*this, source);
}

VARIANT COleSafeArray::Detach() noexcept { return DetachVariant(*this); }

void AfxSafeArrayInit(COleSafeArray * array)
{
    if (array)
        static_cast<VARIANT &>(*array) = VARIANT{};
}
