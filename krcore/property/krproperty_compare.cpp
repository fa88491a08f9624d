// Copying and comparing.
#include <krcore/property/krproperty.h>

#include <utility>

CKrProperty::Children CKrProperty::CloneChildren() const { return IsLeaf() ? nullptr : m_children->Clone(); }

void CKrProperty::TakeChildren(Children children) noexcept
{
    DeleteSubProperties();
    m_children = std::move(children);
    for (unsigned int index = 0; index < GetSubPropertyCount(); ++index)
        m_children->GetAt(index).m_parent = this;
}

void CKrProperty::TakeOver(CKrProperty && made) noexcept
{
    TakeChildren(std::move(made.m_children));
    m_value = std::move(made.m_value);
    SetName(made.m_name);
    m_description = made.m_description;
    m_type = made.m_type;
    m_needed = made.m_needed;
    m_modified = made.m_modified;
    m_itemCtrl = std::move(made.m_itemCtrl);
    if (made.m_attributes.Get())
        m_attributes = std::move(made.m_attributes);
}

void CKrProperty::Copy(CKrProperty const & source)
{
    if (this == &source)
        return;
    CKrAssCtrl itemCtrl(source.m_itemCtrl);
    kr::detail::SeldomPart<CKrAttrList> attributes(source.m_attributes);
    m_value = source.m_value;
    SetName(source.m_name);
    m_description = source.m_description;
    m_type = source.m_type;
    m_needed = source.m_needed;
    m_modified = source.m_modified;
    m_itemCtrl = std::move(itemCtrl);
    if (attributes.Get())
        m_attributes = std::move(attributes);
}

void CKrProperty::DeepCopy(CKrProperty const & source)
{
    if (this == &source)
        return;
    Children clones = source.CloneChildren(); // first: the source may stand below this node
    Copy(source);
    TakeChildren(std::move(clones));
}

bool CKrProperty::ChangeValue(CKrProperty const & other)
{
    if (m_name != other.m_name)
        return false;
    m_value = other.m_value;
    for (unsigned int index = 0; index < GetSubPropertyCount(); ++index)
    {
        CKrProperty & child = m_children->GetAt(index);
        if (CKrProperty const * const counterpart = other.GetSubProperty(child.m_name, index))
            child.ChangeValue(*counterpart);
    }
    return true;
}

bool CKrProperty::IsEqual(CKrProperty const & other) const
{
    return this == &other || (m_name == other.m_name && HasEqualContent(other));
}

bool CKrProperty::HasEqualContent(CKrProperty const & other) const
{
    return m_description == other.m_description && m_type == other.m_type && m_value == other.m_value;
}

bool CKrProperty::IsDeepEqual(CKrProperty const & other) const
{
    return this == &other || (m_name == other.m_name && HasEqualTree(other));
}

bool CKrProperty::HasEqualTree(CKrProperty const & other) const
{
    if (!HasEqualContent(other))
        return false;
    for (unsigned int index = 0; index < GetSubPropertyCount(); ++index)
    {
        CKrProperty const & child = m_children->GetAt(index);
        CKrProperty const * const counterpart = other.GetSubProperty(child.m_name, index);
        if (!counterpart || !child.HasEqualTree(*counterpart))
            return false;
    }
    return true;
}

bool CKrProperty::operator==(CKrProperty const & other) const
{
    if (this == &other)
        return true;
    return IsEqual(other) && m_needed == other.m_needed && m_modified == other.m_modified &&
           m_itemCtrl == other.m_itemCtrl;
}
