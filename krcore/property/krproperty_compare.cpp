// Copying and comparing.
#include <krcore/property/krproperty.h>

#include <krcore/property/krnameindex.h>

#include <utility>

CKrProperty::Children CKrProperty::CloneChildren() const
{
    Children clones;
    clones.reserve(m_children.size());
    for (auto const & child : m_children)
    {
        if (std::unique_ptr<CKrProperty> clone{child->Clone()})
            clones.push_back(std::move(clone));
    }
    return clones;
}

void CKrProperty::TakeChildren(Children children) noexcept
{
    DeleteSubProperties();
    m_children = std::move(children);
    for (auto const & child : m_children)
        child->m_parent = this;
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
    if (made.m_itemCtrl)
        m_itemCtrl = std::move(made.m_itemCtrl);
    if (made.m_attributes)
        m_attributes = std::move(made.m_attributes);
}

void CKrProperty::Copy(CKrProperty const & source)
{
    if (this == &source)
        return;
    auto itemCtrl = source.m_itemCtrl ? std::make_unique<CKrAssCtrl>(*source.m_itemCtrl) : nullptr;
    auto attributes = source.m_attributes ? std::make_unique<CKrAttrList>(*source.m_attributes) : nullptr;
    m_value = source.m_value;
    SetName(source.m_name);
    m_description = source.m_description;
    m_type = source.m_type;
    m_needed = source.m_needed;
    m_modified = source.m_modified;
    if (itemCtrl)
        m_itemCtrl = std::move(itemCtrl);
    if (attributes)
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
    for (unsigned int index = 0; index < m_children.size(); ++index)
    {
        CKrProperty & child = *m_children[index];
        if (CKrProperty const * const counterpart = other.GetSubProperty(child.m_name, index))
            child.ChangeValue(*counterpart);
    }
    return true;
}

bool CKrProperty::IsEqual(CKrProperty const & other) const
{
    return this == &other || (m_name == other.m_name && m_description == other.m_description &&
                              m_type == other.m_type && m_value == other.m_value);
}

bool CKrProperty::IsDeepEqual(CKrProperty const & other) const
{
    if (this == &other)
        return true;
    if (!IsEqual(other))
        return false;
    for (unsigned int index = 0; index < m_children.size(); ++index)
    {
        CKrProperty const & child = *m_children[index];
        CKrProperty const * const counterpart = other.GetSubProperty(child.m_name, index);
        if (!counterpart || !child.IsDeepEqual(*counterpart))
            return false;
    }
    return true;
}

bool CKrProperty::operator==(CKrProperty const & other) const
{
    if (this == &other)
        return true;
    bool const haveControls = m_itemCtrl && other.m_itemCtrl;
    bool const haveNone = !m_itemCtrl && !other.m_itemCtrl;
    return IsEqual(other) && m_needed == other.m_needed && m_modified == other.m_modified &&
           (haveNone || (haveControls && *m_itemCtrl == *other.m_itemCtrl));
}
