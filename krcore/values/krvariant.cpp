// Construction of the scalar kinds, assignment and moving.
#include <krcore/values/krvariant.h>

#include <krplatform/text/bstr.h>

#include <utility>

namespace
{

BSTR NewText(WCHAR const * text, UINT length)
{
    BSTR const copy = SysAllocStringLen(text, length);
    if (!copy)
        AfxThrowMemoryException();
    return copy;
}

LONG PackColor(CKrColor const & color)
{
    switch (color.GetColorSpace())
    {
    case CKrColor::eColorSpaceIndex:
    case CKrColor::eColorSpaceNoColor:
        return -color.GetColorIndex();
    default:
        return static_cast<LONG>(color.GetColorRef());
    }
}

} // namespace

CKrVariant::CKrVariant(VARIANT const & source, EType type) : m_type(type)
{
    if (source.vt == VT_NULL)
    {
        m_type = eInvalid;
        return;
    }
    if (HRESULT const result = VariantCopy(this, &source); FAILED(result))
        AtlThrow(result);
    if (m_type == eInvalid)
        m_type = SwapType(vt);
}

CKrVariant::CKrVariant(CString const & text) : m_type(eString)
{
    bstrVal = NewText(text, static_cast<UINT>(text.GetLength()));
    vt = VT_BSTR;
}

CKrVariant::CKrVariant(WCHAR const * text) : m_type(eString)
{
    bstrVal = text ? NewText(text, static_cast<UINT>(kr::detail::TextView(text).size())) : nullptr;
    vt = VT_BSTR;
}

CKrVariant::CKrVariant(char const * text) : CKrVariant(CString(text)) {}

CKrVariant::CKrVariant(COleCurrency const & value) noexcept : m_type(eOleCurrency)
{
    vt = VT_CY;
    cyVal = value.m_cur;
}

CKrVariant::CKrVariant(COleDateTime const & value) noexcept : m_type(eOleDateTime)
{
    vt = VT_DATE;
    date = value.GetStatus() == COleDateTime::valid ? value.m_dt : 0.0;
}

CKrVariant::CKrVariant(IDispatch * object) : m_type(eDispatch)
{
    if (object)
        object->AddRef();
    vt = VT_DISPATCH;
    pdispVal = object;
}

CKrVariant::CKrVariant(void * pointer) noexcept : m_type(eVoidPtr)
{
    vt = VT_UI8;
    llVal = reinterpret_cast<std::intptr_t>(pointer);
}

CKrVariant::CKrVariant(CKrColor const & color) noexcept : m_type(eColor)
{
    vt = VT_I4;
    lVal = PackColor(color);
}

CKrVariant::~CKrVariant() = default;

CKrVariant & CKrVariant::operator=(CKrVariant const & other)
{
    if (this != &other)
    {
        COleVariant::operator=(static_cast<COleVariant const &>(other));
        m_type = other.m_type;
    }
    return *this;
}

CKrVariant & CKrVariant::operator=(CKrVariant && other) noexcept
{
    if (this != &other)
    {
        COleVariant::operator=(static_cast<COleVariant &&>(other));
        m_type = std::exchange(other.m_type, eInvalid);
    }
    return *this;
}

void CKrVariant::AttachFrom(VARIANT & source, EType type)
{
    if (&source == this)
        return;
    Attach(source);
    m_type = type == eInvalid ? SwapType(vt) : type;
}

void CKrVariant::AttachFrom(CKrVariant & source)
{
    if (&source == this)
        return;
    Attach(source);
    m_type = std::exchange(source.m_type, eInvalid);
}
