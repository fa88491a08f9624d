#include <krplatform/automation/safearray.h>
#include <krplatform/automation/safearray_elements.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <optional>

using namespace kr::detail;

namespace
{

// The element type stands in front of the structure that clients see.
struct Descriptor
{
    ElementType const * type;
    SAFEARRAY array;
};

struct FreeMemory
{
    void operator()(void * memory) const noexcept { ::operator delete(memory); }
};
using Memory = std::unique_ptr<void, FreeMemory>;

constexpr std::size_t maximumSize = 0x7FFFFFFF;

Descriptor const * DescriptorOf(SAFEARRAY const * array)
{
    return reinterpret_cast<Descriptor const *>(reinterpret_cast<std::byte const *>(array) -
                                                offsetof(Descriptor, array));
}

bool IsUpperBoundRepresentable(SAFEARRAYBOUND const & bound)
{
    std::int64_t const upper = std::int64_t{bound.lLbound} + bound.cElements - 1;
    return upper >= std::numeric_limits<LONG>::min() && upper <= std::numeric_limits<LONG>::max();
}

// The bytes of all elements; none for bounds that no array can have.
std::optional<std::size_t> SizeOfData(SAFEARRAYBOUND const * bounds, std::size_t dimensions, std::size_t elementSize)
{
    std::size_t size = elementSize;
    bool isEmpty = false;
    bool isTooLarge = false;
    for (SAFEARRAYBOUND const * bound = bounds; bound != bounds + dimensions; ++bound)
    {
        if (!IsUpperBoundRepresentable(*bound))
            return std::nullopt;
        isEmpty = isEmpty || bound->cElements == 0;
        size = isEmpty || isTooLarge ? size : size * bound->cElements;
        isTooLarge = isTooLarge || size > maximumSize;
    }
    if (isEmpty)
        return 0;
    return isTooLarge ? std::nullopt : std::optional(size);
}

std::size_t SizeOfData(SAFEARRAY const * array)
{
    return SizeOfData(array->rgsabound, array->cDims, array->cbElements).value_or(0);
}

// A new array with the bounds as they are stored, last dimension first. The elements are not set.
SAFEARRAY * NewArray(ElementType const & type, std::size_t dimensions, std::size_t dataSize)
{
    Memory memory(::operator new(sizeof(Descriptor) + (dimensions - 1) * sizeof(SAFEARRAYBOUND), std::nothrow));
    Memory data(dataSize ? ::operator new(dataSize, std::nothrow) : nullptr);
    if (!memory || (dataSize && !data))
        return nullptr;

    auto * const descriptor = new (memory.release()) Descriptor{};
    descriptor->type = &type;
    descriptor->array.cDims = static_cast<USHORT>(dimensions);
    descriptor->array.fFeatures = static_cast<USHORT>(FADF_HAVEVARTYPE | type.features);
    descriptor->array.cbElements = type.size;
    descriptor->array.pvData = data.release();
    return &descriptor->array;
}

void DeleteArray(SAFEARRAY * array)
{
    FreeMemory()(array->pvData);
    FreeMemory()(const_cast<Descriptor *>(DescriptorOf(array)));
}

void SetZero(void * memory, std::size_t from, std::size_t to)
{
    if (to > from)
        std::memset(static_cast<std::byte *>(memory) + from, 0, to - from);
}

} // namespace

ElementType const & kr::detail::ElementTypeOf(SAFEARRAY const & array) noexcept { return *DescriptorOf(&array)->type; }

SAFEARRAY * SafeArrayCreate(VARTYPE element, UINT dimensions, SAFEARRAYBOUND const * bounds)
{
    ElementType const * const type = FindElementType(element);
    if (!type || dimensions == 0 || dimensions > std::numeric_limits<USHORT>::max() || !bounds)
        return nullptr;
    std::optional<std::size_t> const dataSize = SizeOfData(bounds, dimensions, type->size);
    if (!dataSize)
        return nullptr;
    SAFEARRAY * const array = NewArray(*type, dimensions, *dataSize);
    if (array)
    {
        std::reverse_copy(bounds, bounds + dimensions, array->rgsabound);
        SetZero(array->pvData, 0, *dataSize);
    }
    return array;
}

SAFEARRAY * SafeArrayCreateVector(VARTYPE element, LONG lowerBound, ULONG count)
{
    SAFEARRAYBOUND const bound = {count, lowerBound};
    return SafeArrayCreate(element, 1, &bound);
}

HRESULT SafeArrayDestroy(SAFEARRAY * array)
{
    if (!array)
        return S_OK;
    if (array->cLocks)
        return DISP_E_ARRAYISLOCKED;
    ReleaseElements(ElementTypeOf(*array), array->pvData, SizeOfData(array) / array->cbElements);
    DeleteArray(array);
    return S_OK;
}

HRESULT SafeArrayCopy(SAFEARRAY const * array, SAFEARRAY ** copy)
{
    if (!copy)
        return E_INVALIDARG;
    *copy = nullptr;
    if (!array)
        return S_OK;

    ElementType const & type = ElementTypeOf(*array);
    std::size_t const dataSize = SizeOfData(array);
    SAFEARRAY * const newArray = NewArray(type, array->cDims, dataSize);
    if (!newArray)
        return E_OUTOFMEMORY;
    std::copy_n(array->rgsabound, array->cDims, newArray->rgsabound);
    HRESULT const result = CopyElements(type, array->pvData, newArray->pvData, dataSize / type.size);
    if (SUCCEEDED(result))
        *copy = newArray;
    else
        DeleteArray(newArray);
    return result;
}

HRESULT SafeArrayRedim(SAFEARRAY * array, SAFEARRAYBOUND const * newBound)
{
    if (!array || !newBound)
        return E_INVALIDARG;
    if (array->cLocks)
        return DISP_E_ARRAYISLOCKED;

    std::size_t const oldSize = SizeOfData(array);
    SAFEARRAYBOUND const oldBound = array->rgsabound[0];
    array->rgsabound[0] = *newBound;
    std::optional<std::size_t> const newSize = SizeOfData(array->rgsabound, array->cDims, array->cbElements);
    bool const isLarger = newSize && *newSize > oldSize;
    Memory data(isLarger ? ::operator new(*newSize, std::nothrow) : nullptr);
    if (!newSize || (isLarger && !data))
    {
        array->rgsabound[0] = oldBound;
        return E_OUTOFMEMORY;
    }

    if (isLarger)
    {
        if (oldSize)
            std::memcpy(data.get(), array->pvData, oldSize);
        SetZero(data.get(), oldSize, *newSize);
        FreeMemory()(array->pvData);
        array->pvData = data.release();
    }
    else
    {
        // The last dimension runs slowest, so what falls away lies at the end.
        ReleaseElements(ElementTypeOf(*array), static_cast<std::byte *>(array->pvData) + *newSize,
                        (oldSize - *newSize) / array->cbElements);
    }
    return S_OK;
}
