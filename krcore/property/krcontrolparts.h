// What both generations of control associations are made of: words for types, events, a selection list.
#pragma once

#include <krcore/property/krevent.h>
#include <krcore/values/krvariant.h>

#include <map>
#include <memory>
#include <vector>

namespace kr::detail
{

/// At most one event of each type, held by value.
class EventMap
{
public:
    void Add(CKrEvent::EventType type, CKrEvent const & event) { m_events.insert_or_assign(type, event); }
    CKrEvent const * Find(CKrEvent::EventType type) const
    {
        auto const place = m_events.find(type);
        return place == m_events.end() ? nullptr : &place->second;
    }
    bool IsEmpty() const noexcept { return m_events.empty(); }
    void Clear() noexcept { m_events.clear(); }
    /// Deliberate: called with itself, it is empty afterwards.
    void CopyFrom(EventMap const & other)
    {
        std::map<CKrEvent::EventType, CKrEvent> events;
        if (this != &other)
            events = other.m_events;
        m_events.swap(events);
    }

private:
    std::map<CKrEvent::EventType, CKrEvent> m_events;
};

/// A list of values that may be absent, which differs from an empty one. Copies are deep.
class SelectionList
{
public:
    SelectionList() = default;
    SelectionList(SelectionList const & other)
        : m_values(other.m_values ? std::make_unique<std::vector<CKrVariant>>(*other.m_values) : nullptr)
    {
    }
    SelectionList & operator=(SelectionList const & other)
    {
        if (this != &other)
            *this = SelectionList(other);
        return *this;
    }
    SelectionList(SelectionList &&) noexcept = default;
    SelectionList & operator=(SelectionList &&) noexcept = default;

    void Create() { m_values = std::make_unique<std::vector<CKrVariant>>(); }
    void Clear() noexcept { m_values.reset(); }
    void Set(std::vector<CKrVariant> const & values) { m_values = std::make_unique<std::vector<CKrVariant>>(values); }
    std::vector<CKrVariant> * Get() const noexcept { return m_values.get(); }

private:
    std::unique_ptr<std::vector<CKrVariant>> m_values;
};

/// The word of an enumerator. Tables of them are searched in order, without case.
template <class Type>
struct TypeWord
{
    Type type;
    WCHAR const * word;
};

template <class Type, std::size_t Count>
Type TypeOfWord(TypeWord<Type> const (&table)[Count], CString const & text, Type otherwise)
{
    for (TypeWord<Type> const & row : table)
    {
        if (text.CompareNoCase(row.word) == 0)
            return row.type;
    }
    return otherwise;
}

/// Empty for a type that has none.
template <class Type, std::size_t Count>
CString WordOfType(TypeWord<Type> const (&table)[Count], Type type)
{
    for (TypeWord<Type> const & row : table)
    {
        if (row.type == type)
            return row.word;
    }
    return CString();
}

} // namespace kr::detail
