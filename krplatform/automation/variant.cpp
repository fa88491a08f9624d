#include <krplatform/automation/plain_tags.h>
#include <krplatform/automation/safearray.h>
#include <krplatform/automation/safearray_elements.h>
#include <krplatform/text/bstr.h>
#include <krplatform/text/copybstr.h>

#include <utility>

using namespace kr::detail;

namespace
{

enum class Content
{
    plain,
    text,
    reference,
    array,
    unknown
};

Content ContentOf(VARTYPE tag)
{
    if (IsPlainTag(tag))
        return Content::plain;
    if (tag == VT_BSTR)
        return Content::text;
    if (tag == VT_DISPATCH || tag == VT_UNKNOWN)
        return Content::reference;
    bool const isArray = (tag & ~VT_TYPEMASK) == VT_ARRAY && FindElementType(tag & VT_TYPEMASK);
    return isArray ? Content::array : Content::unknown;
}

IUnknown * ReferenceOf(VARIANT const & value) { return value.vt == VT_DISPATCH ? value.pdispVal : value.punkVal; }

// Makes the value bytes of `copy` a content of its own, equal to that of `source`. Single fields are written and read
// here and below: a whole variant that is read just after one of its fields was written waits for the memory.
HRESULT CopyContent(VARIANT const & source, VARIANT & copy)
{
    switch (ContentOf(source.vt))
    {
    case Content::plain:
        copy.llVal = source.llVal;
        return S_OK;
    case Content::text:
        copy.bstrVal = CopyText(source.bstrVal);
        return copy.bstrVal ? S_OK : E_OUTOFMEMORY;
    case Content::reference:
        copy.llVal = source.llVal;
        if (IUnknown * const object = ReferenceOf(source))
            object->AddRef();
        return S_OK;
    case Content::array:
        return SafeArrayCopy(source.parray, &copy.parray);
    case Content::unknown:
        break;
    }
    return DISP_E_BADVARTYPE;
}

// The value is empty before anything is released: an object that ends may come back to it.
HRESULT ClearValue(VARIANT & value)
{
    switch (ContentOf(value.vt))
    {
    case Content::plain:
        value = VARIANT{};
        return S_OK;
    case Content::text:
        SysFreeString(std::exchange(value, VARIANT{}).bstrVal);
        return S_OK;
    case Content::reference:
        if (IUnknown * const object = ReferenceOf(std::exchange(value, VARIANT{})))
            object->Release();
        return S_OK;
    case Content::array:
        if (value.parray && value.parray->cLocks)
            return DISP_E_ARRAYISLOCKED;
        return SafeArrayDestroy(std::exchange(value, VARIANT{}).parray);
    case Content::unknown:
        break;
    }
    return DISP_E_BADVARTYPE;
}

} // namespace

void VariantInit(VARIANT * variant)
{
    if (variant)
        *variant = VARIANT{};
}

void AfxVariantInit(VARIANT * variant) { VariantInit(variant); }

HRESULT VariantClear(VARIANT * variant) { return variant ? ClearValue(*variant) : E_INVALIDARG; }

HRESULT VariantCopy(VARIANT * destination, VARIANT const * source)
{
    if (!destination || !source)
        return E_INVALIDARG;
    if (destination == source)
        return ContentOf(source->vt) == Content::unknown ? DISP_E_BADVARTYPE : S_OK;

    VARIANT copy;
    copy.vt = source->vt;
    HRESULT result = CopyContent(*source, copy);
    if (FAILED(result))
        return result;
    result = ClearValue(*destination);
    if (FAILED(result))
    {
        ClearValue(copy);
        return result;
    }
    destination->vt = copy.vt;
    destination->llVal = copy.llVal;
    return S_OK;
}

bool kr::detail::HasEqualValue(VARIANT const & left, VARIANT const & right) noexcept
{
    VARTYPE const tag = left.vt;
    if (tag <= VT_NULL)
        return true;
    if (ContentOf(tag) == Content::array)
        return AreArraysEqual(left.parray, right.parray);
    ElementType const * const type = tag == VT_VARIANT ? nullptr : FindElementType(tag);
    return type ? AreElementsEqual(*type, &left.llVal, &right.llVal, 1) : left.llVal == right.llVal;
}
