#include <krplatform/automation/plain_tags.h>
#include <krplatform/automation/safearray.h>
#include <krplatform/automation/safearray_elements.h>
#include <krplatform/text/bstr.h>

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

void ReleaseReference(VARIANT const & value)
{
    if (IUnknown * const object = ReferenceOf(value))
        object->Release();
}

// Gives a bitwise copy a content of its own.
HRESULT OwnContent(VARIANT & copy)
{
    switch (ContentOf(copy.vt))
    {
    case Content::plain:
        return S_OK;
    case Content::text:
        copy.bstrVal = CopyText(copy.bstrVal);
        return copy.bstrVal ? S_OK : E_OUTOFMEMORY;
    case Content::reference:
        if (IUnknown * const object = ReferenceOf(copy))
            object->AddRef();
        return S_OK;
    case Content::array:
        return SafeArrayCopy(copy.parray, &copy.parray);
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

HRESULT VariantClear(VARIANT * variant)
{
    if (!variant)
        return E_INVALIDARG;
    Content const content = ContentOf(variant->vt);
    if (content == Content::unknown)
        return DISP_E_BADVARTYPE;
    if (content == Content::array && variant->parray && variant->parray->cLocks)
        return DISP_E_ARRAYISLOCKED;

    // The variant is empty before anything is released: an object that ends may come back to it.
    VARIANT const old = *variant;
    *variant = VARIANT{};
    if (content == Content::text)
        SysFreeString(old.bstrVal);
    else if (content == Content::reference)
        ReleaseReference(old);
    else if (content == Content::array)
        SafeArrayDestroy(old.parray);
    return S_OK;
}

HRESULT VariantCopy(VARIANT * destination, VARIANT const * source)
{
    if (!destination || !source)
        return E_INVALIDARG;
    if (destination == source)
        return ContentOf(source->vt) == Content::unknown ? DISP_E_BADVARTYPE : S_OK;

    VARIANT copy = *source;
    HRESULT result = OwnContent(copy);
    if (FAILED(result))
        return result;
    result = VariantClear(destination);
    if (FAILED(result))
        VariantClear(&copy);
    else
        *destination = copy;
    return result;
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
