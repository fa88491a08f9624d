#include <krplatform/automation/safearray_elements.h>

#include <krplatform/text/bstr.h>
#include <krplatform/text/copybstr.h>

#include <algorithm>
#include <cstring>
#include <functional>

using namespace kr::detail;

namespace
{

// Elements are read by copying their bytes: the client may have written them through any type of pointer.
template <class Value>
Value Load(void const * place)
{
    Value value;
    std::memcpy(&value, place, sizeof value);
    return value;
}

template <class Value>
void Store(void * place, Value value)
{
    std::memcpy(place, &value, sizeof value);
}

void * At(void * elements, std::size_t index, std::size_t size)
{
    return static_cast<std::byte *>(elements) + index * size;
}

void const * At(void const * elements, std::size_t index, std::size_t size)
{
    return static_cast<std::byte const *>(elements) + index * size;
}

HRESULT CopyTextElement(void const * element, void * copy)
{
    BSTR const text = Load<BSTR>(element);
    BSTR const newText = text ? CopyText(text) : nullptr;
    if (text && !newText)
        return E_OUTOFMEMORY;
    Store(copy, newText);
    return S_OK;
}

HRESULT CopyVariantElement(void const * element, void * copy)
{
    VARIANT value{};
    HRESULT const result = VariantCopy(&value, static_cast<VARIANT const *>(element));
    if (SUCCEEDED(result))
        Store(copy, value);
    return result;
}

HRESULT CopyReferenceElement(void const * element, void * copy)
{
    auto * const object = Load<IUnknown *>(element);
    if (object)
        object->AddRef();
    Store(copy, object);
    return S_OK;
}

HRESULT CopyElement(ElementType const & type, void const * element, void * copy)
{
    if (type.features & FADF_BSTR)
        return CopyTextElement(element, copy);
    if (type.features & FADF_VARIANT)
        return CopyVariantElement(element, copy);
    return CopyReferenceElement(element, copy);
}

bool AreTextsEqual(BSTR left, BSTR right)
{
    std::size_t const length = SysStringByteLen(left);
    return length == SysStringByteLen(right) && (length == 0 || std::memcmp(left, right, length) == 0);
}

template <class Value, class Equal = std::equal_to<>>
bool AreEqual(void const * left, void const * right, std::size_t count, Equal equal = {})
{
    for (std::size_t index = 0; index < count; ++index)
    {
        if (!equal(Load<Value>(At(left, index, sizeof(Value))), Load<Value>(At(right, index, sizeof(Value)))))
            return false;
    }
    return true;
}

std::size_t CountOf(SAFEARRAY const * array)
{
    std::size_t count = 1;
    for (SAFEARRAYBOUND const * bound = array->rgsabound; bound != array->rgsabound + array->cDims; ++bound)
        count *= bound->cElements;
    return count;
}

bool AreBoundsEqual(SAFEARRAY const * left, SAFEARRAY const * right)
{
    return std::equal(left->rgsabound, left->rgsabound + left->cDims, right->rgsabound, right->rgsabound + right->cDims,
                      [](SAFEARRAYBOUND const & one, SAFEARRAYBOUND const & other)
                      { return one.cElements == other.cElements && one.lLbound == other.lLbound; });
}

} // namespace

void kr::detail::ReleaseElements(ElementType const & type, void * elements, std::size_t count)
{
    if (!type.features)
        return;
    for (std::size_t index = 0; index < count; ++index)
    {
        void * const element = At(elements, index, type.size);
        if (type.features & FADF_BSTR)
            SysFreeString(Load<BSTR>(element));
        else if (type.features & FADF_VARIANT)
            VariantClear(static_cast<VARIANT *>(element));
        else if (auto * const object = Load<IUnknown *>(element))
            object->Release();
    }
}

HRESULT kr::detail::CopyElements(ElementType const & type, void const * elements, void * copies, std::size_t count)
{
    if (count == 0)
        return S_OK;
    if (!type.features)
    {
        std::memcpy(copies, elements, count * type.size);
        return S_OK;
    }
    for (std::size_t index = 0; index < count; ++index)
    {
        HRESULT const result = CopyElement(type, At(elements, index, type.size), At(copies, index, type.size));
        if (FAILED(result))
        {
            ReleaseElements(type, copies, index);
            return result;
        }
    }
    return S_OK;
}

bool kr::detail::AreElementsEqual(ElementType const & type, void const * left, void const * right,
                                  std::size_t count) noexcept
{
    switch (type.tag)
    {
    case VT_R4:
        return AreEqual<float>(left, right, count);
    case VT_R8:
    case VT_DATE:
        return AreEqual<double>(left, right, count);
    case VT_BSTR:
        return AreEqual<BSTR>(left, right, count, AreTextsEqual);
    case VT_VARIANT:
        return AreEqual<VARIANT>(left, right, count);
    default:
        return count == 0 || std::memcmp(left, right, count * type.size) == 0;
    }
}

bool kr::detail::AreArraysEqual(SAFEARRAY const * left, SAFEARRAY const * right) noexcept
{
    if (!left || !right)
        return left == right;
    ElementType const & type = ElementTypeOf(*left);
    return type.tag == ElementTypeOf(*right).tag && AreBoundsEqual(left, right) &&
           AreElementsEqual(type, left->pvData, right->pvData, CountOf(left));
}
