// Construction, flags, attributes and the control association.
#include <krcore/property/krproperty.h>

#include <krcore/foundation/krclass.h>
#include <krcore/property/krnameindex.h> // for the destructor

#include <utility>

std::unique_ptr<CKrClass> CKrProperty::s_pCls;

CKrProperty::CKrProperty() : m_itemCtrl(std::make_unique<CKrAssCtrl>(CKrAssCtrl::eEditCtrl)) {}

CKrProperty::CKrProperty(CString const & name, CString const & description, bool enabled, bool visible)
    : CKrProperty(name, description, ePropString, enabled, visible)
{
}

CKrProperty::CKrProperty(CString const & name, CString const & description, EPropType type, bool enabled, bool visible)
    : CKrProperty(name, description, type, CKrVariant(), enabled, visible)
{
    SetDefaultValue();
}

CKrProperty::CKrProperty(CString const & name, CString const & description, EPropType type, CKrVariant const & value,
                         bool enabled, bool visible)
    : m_name(name),
      m_description(description.IsEmpty() ? name : description),
      m_type(type),
      m_value(value),
      m_itemCtrl(std::make_unique<CKrAssCtrl>(GetDefaultCtrlType(type)))
{
    m_itemCtrl->SetEnabled(enabled);
    m_itemCtrl->SetVisible(visible);
}

CKrProperty::CKrProperty(CKrProperty const & other)
    : CKrObject(other),
      m_name(other.m_name),
      m_description(other.m_description),
      m_type(other.m_type),
      m_value(other.m_value),
      m_needed(other.m_needed),
      m_modified(other.m_modified)
{
    if (other.m_itemCtrl)
        m_itemCtrl = std::make_unique<CKrAssCtrl>(*other.m_itemCtrl);
    if (other.m_attributes)
        m_attributes = std::make_unique<CKrAttrList>(*other.m_attributes);
    TakeChildren(other.CloneChildren());
}

CKrProperty & CKrProperty::operator=(CKrProperty const & other)
{
    DeepCopy(other);
    return *this;
}

CKrProperty::~CKrProperty()
{
    DeleteSubProperties(); // while this node is still whole
}

CKrClass * CKrProperty::IsA() const { return Cls(); }

CKrClass * CKrProperty::Cls() { return s_pCls.get(); }

CKrProperty * CKrProperty::Clone() const { return new CKrProperty(*this); }

CKrProperty const * CKrProperty::Cast(CKrObject const * object) { return dynamic_cast<CKrProperty const *>(object); }

void CKrProperty::SetName(CString const & name)
{
    m_name = name;
    if (m_parent)
        m_parent->ForgetNames();
}

void CKrProperty::SetAttribute(CString const & name, CKrVariant const & value)
{
    if (name.IsEmpty())
        return;
    auto made = m_attributes ? nullptr : std::make_unique<CKrAttrList>();
    CKrAttrList & attributes = made ? *made : *m_attributes;
    if (attributes.Includes(name))
        attributes.SetValue(name, value);
    else
        attributes.AddAttr(CKrAttrData(name, value, CString()));
    if (made)
        m_attributes = std::move(made); // last: even an empty list counts when this node is copied
}

CKrVariant CKrProperty::GetAttribute(CString const & name) const
{
    return HasAttribute(name) ? m_attributes->GetValue(name) : CKrVariant();
}

bool CKrProperty::HasAttribute(CString const & name) const { return m_attributes && m_attributes->Includes(name); }

void CKrProperty::RemoveAttribute(CString const & name)
{
    if (m_attributes)
        m_attributes->ClearKey(name);
}

CKrAssCtrl::ECtrlType CKrProperty::GetCtrlType() const
{
    return m_itemCtrl ? m_itemCtrl->GetType() : CKrAssCtrl::eNoCtrl;
}

void CKrProperty::SetCtrlType(CKrAssCtrl::ECtrlType type)
{
    if (m_itemCtrl)
        m_itemCtrl->SetType(type);
}

bool CKrProperty::IsEnabled() const { return m_itemCtrl && m_itemCtrl->IsEnabled(); }

void CKrProperty::SetEnabled(bool enabled)
{
    if (m_itemCtrl)
        m_itemCtrl->SetEnabled(enabled);
}

bool CKrProperty::IsVisible() const { return m_itemCtrl && m_itemCtrl->IsVisible(); }

void CKrProperty::SetVisible(bool visible)
{
    if (m_itemCtrl)
        m_itemCtrl->SetVisible(visible);
}

CString CKrProperty::GetTooltip() const { return m_itemCtrl ? m_itemCtrl->GetTooltip() : CString(); }

void CKrProperty::SetTooltip(CString const & tooltip)
{
    if (m_itemCtrl)
        m_itemCtrl->SetTooltip(tooltip);
}
