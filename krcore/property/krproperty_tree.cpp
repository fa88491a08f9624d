// The tree: taking, finding, handing back, moving, sorting and walking sub-properties.
#include <krcore/property/krproperty.h>

#include <krcore/property/krnameindex.h>
#include <krcore/property/krvisitor.h>

#include <algorithm>
#include <new>
#include <utility>

void CKrProperty::Attach(std::size_t index, std::unique_ptr<CKrProperty> child)
{
    CKrProperty * const node = child.get();
    bool const appended = index == m_children.size();
    m_children.insert(m_children.begin() + static_cast<std::ptrdiff_t>(index), std::move(child));
    node->m_parent = this;
    if (!appended || (m_index && !m_index->TryAppend(node->m_name, static_cast<int>(index))))
        ForgetNames();
}

std::unique_ptr<CKrProperty> CKrProperty::Detach(std::size_t index)
{
    std::unique_ptr<CKrProperty> child = std::move(m_children[index]);
    m_children.erase(m_children.begin() + static_cast<std::ptrdiff_t>(index));
    child->m_parent = nullptr;
    ForgetNames();
    return child;
}

void CKrProperty::AddSubProperty(CKrProperty * property) { InsertSubProperty(GetSubPropertyCount(), property); }

void CKrProperty::InsertSubProperty(unsigned int index, CKrProperty * property)
{
    if (property)
        Attach(std::min<std::size_t>(index, m_children.size()), std::unique_ptr<CKrProperty>(property));
}

CKrProperty * CKrProperty::GetSubProperty(CString const & name) const
{
    int const index = FindSubPropertyIndex(name);
    return index < 0 ? nullptr : m_children[static_cast<std::size_t>(index)].get();
}

CKrProperty * CKrProperty::GetSubProperty(CString const & name, unsigned int expectedIndex) const
{
    bool const isFirstOfItsName = m_index && m_index->AreDistinct();
    if (isFirstOfItsName && expectedIndex < m_children.size() && m_children[expectedIndex]->m_name == name)
        return m_children[expectedIndex].get();
    return GetSubProperty(name);
}

CKrProperty * CKrProperty::GetSubPropertyAt(unsigned int index) const
{
    return index < m_children.size() ? m_children[index].get() : nullptr;
}

unsigned int CKrProperty::GetSubPropertyCount() const noexcept { return static_cast<unsigned int>(m_children.size()); }

int CKrProperty::FindSubPropertyIndex(CString const & name) const
{
    if (m_index)
        return m_index->Find(name);
    auto const place = std::find_if(m_children.begin(), m_children.end(),
                                    [&name](auto const & child) { return child->m_name == name; });
    bool const found = place != m_children.end();
    auto const position = place - m_children.begin();
    NoteSearched(static_cast<std::size_t>(position));
    return found ? static_cast<int>(position) : -1;
}

void CKrProperty::NoteSearched(std::size_t names) const noexcept
{
    m_searched += static_cast<unsigned int>(names);
    if (!kr::detail::NameIndex::IsWorthMaking(m_children.size(), m_searched))
        return;
    m_searched = 0;
    std::unique_ptr<kr::detail::NameIndex> index(new (std::nothrow) kr::detail::NameIndex);
    for (std::size_t position = 0; index && position < m_children.size(); ++position)
    {
        if (!index->TryAppend(m_children[position]->m_name, static_cast<int>(position)))
            index.reset(); // searching goes on without it
    }
    m_index = std::move(index);
}

void CKrProperty::ForgetNames() noexcept
{
    m_index.reset();
    m_searched = 0;
}

CKrProperty * CKrProperty::RemoveSubProperty(CString const & name)
{
    int const index = FindSubPropertyIndex(name);
    return index < 0 ? nullptr : Detach(static_cast<std::size_t>(index)).release();
}

void CKrProperty::DeleteSubProperty(CString const & name) { delete RemoveSubProperty(name); }

void CKrProperty::DeleteSubProperties()
{
    while (!m_children.empty())
        Detach(m_children.size() - 1); // one by one: whoever is destroyed stands in no tree any more
}

bool CKrProperty::ShiftSubProperty(unsigned int index, int delta)
{
    if (index >= m_children.size())
        return false;
    auto const last = static_cast<std::ptrdiff_t>(m_children.size()) - 1;
    auto const source = static_cast<std::ptrdiff_t>(index);
    auto const target = std::clamp<std::ptrdiff_t>(source + delta, 0, last);
    auto const first = m_children.begin();
    if (target < source)
        std::rotate(first + target, first + source, first + source + 1);
    else
        std::rotate(first + source, first + source + 1, first + target + 1);
    ForgetNames();
    return true;
}

bool CKrProperty::SortByDescription(bool recursive)
{
    struct Place
    {
        CString key;
        std::size_t position;
    };
    std::vector<Place> places;
    places.reserve(m_children.size());
    for (std::size_t position = 0; position < m_children.size(); ++position)
    {
        CKrProperty const & child = *m_children[position];
        places.push_back({child.m_description.IsEmpty() ? child.m_name : child.m_description, position});
    }
    // Equal keys keep their order.
    std::sort(places.begin(), places.end(),
              [](Place const & left, Place const & right)
              {
                  int const order = left.key.Compare(right.key);
                  return order != 0 ? order < 0 : left.position < right.position;
              });

    Children sorted(m_children.size());
    for (std::size_t position = 0; position < places.size(); ++position)
        sorted[position] = std::move(m_children[places[position].position]);
    m_children = std::move(sorted);
    ForgetNames();

    if (recursive)
    {
        for (auto const & child : m_children)
            child->SortByDescription(true);
    }
    return true;
}

int CKrProperty::GetPropertyIndex() const
{
    if (!m_parent)
        return 0;
    Children const & siblings = m_parent->m_children;
    auto const place =
        std::find_if(siblings.begin(), siblings.end(), [this](auto const & sibling) { return sibling.get() == this; });
    return place == siblings.end() ? -1 : static_cast<int>(place - siblings.begin());
}

bool CKrProperty::IsFirstProperty() const { return !m_parent || m_parent->m_children.front().get() == this; }

bool CKrProperty::IsLastProperty() const { return !m_parent || m_parent->m_children.back().get() == this; }

bool CKrProperty::Visit(kr::visitor<CKrProperty> & visitor)
{
    bool result = true;
    if (visitor.Match(this))
        result = visitor.Action(this);
    // The children are looked up anew each time, since an action may add some.
    for (std::size_t index = 0; result && index < m_children.size(); ++index)
        result = m_children[index]->Visit(visitor);
    visitor.Finish(this, result);
    return result;
}
