#include <krcore/property/krpropertychildren.h>

#include <krcore/property/krproperty.h>

#include <algorithm>
#include <new>
#include <utility>

namespace kr::detail
{

std::unique_ptr<PropertyChildren> PropertyChildren::Clone() const
{
    auto clones = std::make_unique<PropertyChildren>();
    clones->m_nodes.reserve(m_nodes.size());
    for (auto const & node : m_nodes)
    {
        if (std::unique_ptr<CKrProperty> clone{node->Clone()})
            clones->m_nodes.push_back(std::move(clone));
    }
    return clones;
}

void PropertyChildren::Insert(std::size_t index, std::unique_ptr<CKrProperty> node)
{
    bool const appended = index == m_nodes.size();
    CString const & name = node->GetName();
    m_nodes.insert(m_nodes.begin() + static_cast<std::ptrdiff_t>(index), std::move(node));
    if (!appended || (m_index && !m_index->TryAppend(name, static_cast<int>(index))))
        ForgetNames();
}

std::unique_ptr<CKrProperty> PropertyChildren::Remove(std::size_t index) noexcept
{
    std::unique_ptr<CKrProperty> node = std::move(m_nodes[index]);
    m_nodes.erase(m_nodes.begin() + static_cast<std::ptrdiff_t>(index));
    ForgetNames();
    return node;
}

std::unique_ptr<CKrProperty> PropertyChildren::RemoveLast() noexcept
{
    std::unique_ptr<CKrProperty> node = std::move(m_nodes.back());
    m_nodes.pop_back();
    ForgetNames();
    return node;
}

void PropertyChildren::ForgetNames() noexcept
{
    m_index.reset();
    m_searched = 0;
    m_countOfDistinct = 0;
    m_found = 0;
}

inline bool PropertyChildren::IsFirstOfName(std::size_t index, CString const & name) const noexcept
{
    bool const isFirst = index < m_countOfDistinct || (m_index && m_index->AreDistinct() && index < m_nodes.size());
    return isFirst && m_nodes[index]->GetName() == name;
}

int PropertyChildren::Find(CString const & name) const noexcept
{
    if (m_index)
        return m_index->Find(name);
    // Many searches are for the same name again, or for the next one.
    if (IsFirstOfName(m_found, name))
        return static_cast<int>(m_found);
    if (IsFirstOfName(m_found + 1, name))
        return static_cast<int>(++m_found);
    return Search(name);
}

int PropertyChildren::Find(CString const & name, std::size_t expected) const noexcept
{
    return IsFirstOfName(expected, name) ? static_cast<int>(expected) : Find(name);
}

int PropertyChildren::Search(CString const & name) const noexcept
{
    auto const place =
        std::find_if(m_nodes.begin(), m_nodes.end(), [&name](auto const & node) { return node->GetName() == name; });
    bool const isFound = place != m_nodes.end();
    auto const position = static_cast<unsigned int>(place - m_nodes.begin());
    if (isFound)
        m_found = position;
    if (isFound && position == m_countOfDistinct)
        ++m_countOfDistinct; // none in front of it has its name
    NoteSearched(position);
    return isFound ? static_cast<int>(position) : -1;
}

void PropertyChildren::NoteSearched(std::size_t names) const noexcept
{
    m_searched += static_cast<unsigned int>(names);
    if (!NameIndex::IsWorthMaking(m_nodes.size(), m_searched))
        return;
    m_searched = 0;
    std::unique_ptr<NameIndex> index(new (std::nothrow) NameIndex);
    for (std::size_t position = 0; index && position < m_nodes.size(); ++position)
    {
        if (!index->TryAppend(m_nodes[position]->GetName(), static_cast<int>(position)))
            index.reset(); // searching goes on without it
    }
    m_index = std::move(index);
}

} // namespace kr::detail
