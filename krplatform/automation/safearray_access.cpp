#include <krplatform/automation/safearray.h>
#include <krplatform/automation/safearray_elements.h>

#include <cstring>
#include <limits>

using namespace kr::detail;

namespace
{

// The bound of a dimension, counted from 1, or null.
SAFEARRAYBOUND const * FindBound(SAFEARRAY const * array, UINT dimension)
{
    return dimension >= 1 && dimension <= array->cDims ? array->rgsabound + (array->cDims - dimension) : nullptr;
}

} // namespace

UINT SafeArrayGetDim(SAFEARRAY const * array) { return array ? array->cDims : 0; }

UINT SafeArrayGetElemsize(SAFEARRAY const * array) { return array ? array->cbElements : 0; }

HRESULT SafeArrayGetVartype(SAFEARRAY const * array, VARTYPE * element)
{
    if (!array || !element)
        return E_INVALIDARG;
    *element = ElementTypeOf(*array).tag;
    return S_OK;
}

HRESULT SafeArrayGetLBound(SAFEARRAY const * array, UINT dimension, LONG * lowerBound)
{
    if (!array || !lowerBound)
        return E_INVALIDARG;
    SAFEARRAYBOUND const * const bound = FindBound(array, dimension);
    if (!bound)
        return DISP_E_BADINDEX;
    *lowerBound = bound->lLbound;
    return S_OK;
}

HRESULT SafeArrayGetUBound(SAFEARRAY const * array, UINT dimension, LONG * upperBound)
{
    if (!array || !upperBound)
        return E_INVALIDARG;
    SAFEARRAYBOUND const * const bound = FindBound(array, dimension);
    if (!bound)
        return DISP_E_BADINDEX;
    *upperBound = static_cast<LONG>(std::int64_t{bound->lLbound} + bound->cElements - 1);
    return S_OK;
}

HRESULT SafeArrayLock(SAFEARRAY * array)
{
    if (!array)
        return E_INVALIDARG;
    if (array->cLocks == std::numeric_limits<ULONG>::max())
        return E_UNEXPECTED;
    ++array->cLocks;
    return S_OK;
}

HRESULT SafeArrayUnlock(SAFEARRAY * array)
{
    if (!array)
        return E_INVALIDARG;
    if (array->cLocks == 0)
        return E_UNEXPECTED;
    --array->cLocks;
    return S_OK;
}

HRESULT SafeArrayAccessData(SAFEARRAY * array, void ** data)
{
    if (!data)
        return E_INVALIDARG;
    HRESULT const result = SafeArrayLock(array);
    *data = SUCCEEDED(result) ? array->pvData : nullptr;
    return result;
}

HRESULT SafeArrayUnaccessData(SAFEARRAY * array) { return SafeArrayUnlock(array); }

HRESULT SafeArrayPtrOfIndex(SAFEARRAY * array, LONG const * indices, void ** element)
{
    if (!array || !indices || !element)
        return E_INVALIDARG;
    std::size_t position = 0;
    std::size_t stride = array->cbElements;
    for (UINT dimension = 1; dimension <= array->cDims; ++dimension)
    {
        SAFEARRAYBOUND const & bound = *FindBound(array, dimension);
        std::int64_t const offset = std::int64_t{indices[dimension - 1]} - bound.lLbound;
        if (offset < 0 || offset >= bound.cElements)
            return DISP_E_BADINDEX;
        position += static_cast<std::size_t>(offset) * stride;
        stride *= bound.cElements;
    }
    *element = static_cast<std::byte *>(array->pvData) + position;
    return S_OK;
}

HRESULT SafeArrayGetElement(SAFEARRAY * array, LONG const * indices, void * element)
{
    if (!element)
        return E_INVALIDARG;
    void * place = nullptr;
    HRESULT const result = SafeArrayPtrOfIndex(array, indices, &place);
    return SUCCEEDED(result) ? CopyElements(ElementTypeOf(*array), place, element, 1) : result;
}

HRESULT SafeArrayPutElement(SAFEARRAY * array, LONG const * indices, void const * element)
{
    void * place = nullptr;
    HRESULT result = SafeArrayPtrOfIndex(array, indices, &place);
    if (FAILED(result))
        return result;

    ElementType const & type = ElementTypeOf(*array);
    bool const isPointer = (type.features & (FADF_BSTR | FADF_DISPATCH | FADF_UNKNOWN)) != 0;
    void const * const source = isPointer ? &element : element;
    if (!source)
        return E_INVALIDARG;
    if (type.features & FADF_VARIANT)
        return VariantCopy(static_cast<VARIANT *>(place), static_cast<VARIANT const *>(source));

    std::byte newElement[sizeof(VARIANT)];
    std::byte oldElement[sizeof(VARIANT)];
    result = CopyElements(type, source, newElement, 1);
    if (SUCCEEDED(result))
    {
        std::memcpy(oldElement, place, type.size);
        std::memcpy(place, newElement, type.size);
        ReleaseElements(type, oldElement, 1);
    }
    return result;
}
