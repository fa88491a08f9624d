// Construction, flags, attributes and the control association.
#include <krcore/property/krproperty.h>

#include <krcore/foundation/krclass.h>

#include <utility>

std::unique_ptr<CKrClass> CKrProperty::s_pCls;

CKrProperty::CKrProperty() : m_itemCtrl(CKrAssCtrl::eEditCtrl) {}

CKrProperty::CKrProperty(CString const & name, CString const & description, bool enabled, bool visible)
    : CKrProperty(name, description, ePropString, enabled, visible)
{
}

CKrProperty::CKrProperty(CString const & name, CString const & description, EPropType type, bool enabled, bool visible)
    : CKrProperty(name, description, type, MakeDefaultValue(type), enabled, visible)
{
}

CKrProperty::CKrProperty(CString const & name, CString const & description, EPropType type, CKrVariant const & value,
                         bool enabled, bool visible)
    : m_name(name),
      m_type(type),
      m_description(description.IsEmpty() ? name : description),
      m_value(value),
      m_itemCtrl(GetDefaultCtrlType(type))
{
    m_itemCtrl.SetEnabled(enabled);
    m_itemCtrl.SetVisible(visible);
}

CKrProperty::CKrProperty(CKrProperty const & other)
    : CKrObject(other),
      m_name(other.m_name),
      m_type(other.m_type),
      m_needed(other.m_needed),
      m_modified(other.m_modified),
      m_description(other.m_description),
      m_value(other.m_value),
      m_itemCtrl(other.m_itemCtrl),
      m_attributes(other.m_attributes)
{
    if (other.IsNode())
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
        m_parent->m_children->ForgetNames();
}

void CKrProperty::SetAttribute(CString const & name, CKrVariant const & value)
{
    if (name.IsEmpty())
        return;
    // An attribute that cannot be stored leaves no list: even an empty one counts when this node is copied.
    m_attributes.Write(
        [&name, &value](CKrAttrList & attributes)
        {
            if (attributes.Includes(name))
                attributes.SetValue(name, value);
            else
                attributes.AddAttr(CKrAttrData(name, value, CString()));
        });
}

CKrVariant CKrProperty::GetAttribute(CString const & name) const
{
    return HasAttribute(name) ? m_attributes.Get()->GetValue(name) : CKrVariant();
}

bool CKrProperty::HasAttribute(CString const & name) const
{
    return m_attributes.Get() && m_attributes.Get()->Includes(name);
}

void CKrProperty::RemoveAttribute(CString const & name)
{
    if (m_attributes.Get())
        m_attributes.Get()->ClearKey(name);
}
