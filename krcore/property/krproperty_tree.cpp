// The tree: taking, finding, handing back, moving and walking sub-properties.
#include <krcore/property/krproperty.h>

#include <krcore/property/krvisitor.h>

#include <algorithm>
#include <utility>

void CKrProperty::Attach(std::size_t index, std::unique_ptr<CKrProperty> child)
{
    if (!m_children)
        m_children = std::make_unique<kr::detail::PropertyChildren>();
    CKrProperty * const node = child.get();
    m_children->Insert(index, std::move(child));
    node->m_parent = this;
}

std::unique_ptr<CKrProperty> CKrProperty::Detach(std::size_t index)
{
    std::unique_ptr<CKrProperty> child = m_children->Remove(index);
    child->m_parent = nullptr;
    return child;
}

void CKrProperty::AddSubProperty(CKrProperty * property) { InsertSubProperty(GetSubPropertyCount(), property); }

void CKrProperty::InsertSubProperty(unsigned int index, CKrProperty * property)
{
    if (property)
        Attach(std::min(index, GetSubPropertyCount()), std::unique_ptr<CKrProperty>(property));
}

CKrProperty * CKrProperty::GetSubProperty(CString const & name) const
{
    int const index = FindSubPropertyIndex(name);
    return index < 0 ? nullptr : &m_children->GetAt(static_cast<std::size_t>(index));
}

CKrProperty * CKrProperty::GetSubProperty(CString const & name, unsigned int expectedIndex) const
{
    int const index = m_children ? m_children->Find(name, expectedIndex) : -1;
    return index < 0 ? nullptr : &m_children->GetAt(static_cast<std::size_t>(index));
}

int CKrProperty::FindSubPropertyIndex(CString const & name) const { return m_children ? m_children->Find(name) : -1; }

CKrProperty * CKrProperty::RemoveSubProperty(CString const & name)
{
    int const index = FindSubPropertyIndex(name);
    return index < 0 ? nullptr : Detach(static_cast<std::size_t>(index)).release();
}

void CKrProperty::DeleteSubProperty(CString const & name) { delete RemoveSubProperty(name); }

void CKrProperty::DeleteSubProperties()
{
    while (IsNode())
    {
        std::unique_ptr<CKrProperty> const child = m_children->RemoveLast();
        child->m_parent = nullptr; // one by one: whoever is destroyed stands in no tree any more
    }
}

bool CKrProperty::ShiftSubProperty(unsigned int index, int delta)
{
    if (index >= GetSubPropertyCount())
        return false;
    auto const last = static_cast<std::ptrdiff_t>(GetSubPropertyCount()) - 1;
    auto const source = static_cast<std::ptrdiff_t>(index);
    auto const target = std::clamp<std::ptrdiff_t>(source + delta, 0, last);
    auto const first = m_children->Rearrange().begin();
    if (target < source)
        std::rotate(first + target, first + source, first + source + 1);
    else
        std::rotate(first + source, first + source + 1, first + target + 1);
    return true;
}

int CKrProperty::GetPropertyIndex() const
{
    if (!m_parent)
        return 0;
    auto const & siblings = m_parent->m_children->GetNodes();
    auto const place =
        std::find_if(siblings.begin(), siblings.end(), [this](auto const & sibling) { return sibling.get() == this; });
    return place == siblings.end() ? -1 : static_cast<int>(place - siblings.begin());
}

bool CKrProperty::IsFirstProperty() const
{
    return !m_parent || m_parent->m_children->GetNodes().front().get() == this;
}

bool CKrProperty::IsLastProperty() const { return !m_parent || m_parent->m_children->GetNodes().back().get() == this; }

bool CKrProperty::Visit(kr::visitor<CKrProperty> & visitor)
{
    bool result = true;
    if (visitor.Match(this))
        result = visitor.Action(this);
    // The children are looked up anew each time, since an action may add some.
    for (unsigned int index = 0; result && index < GetSubPropertyCount(); ++index)
        result = GetSubPropertyAt(index)->Visit(visitor);
    visitor.Finish(this, result);
    return result;
}
