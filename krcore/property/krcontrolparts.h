// What both generations of control associations are made of: words for types, events, a selection list.
#pragma once

#include <krcore/property/krevent.h>
#include <krcore/values/krvariant.h>

#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace kr::detail
{

/// A part that few objects have, made when it is first needed. Copies are deep.
template <class Part>
class SeldomPart
{
public:
    SeldomPart() noexcept = default;
    SeldomPart(SeldomPart const & other) : m_part(other.m_part ? std::make_unique<Part>(*other.m_part) : nullptr) {}
    SeldomPart & operator=(SeldomPart const & other)
    {
        if (this != &other)
            *this = SeldomPart(other);
        return *this;
    }
    SeldomPart(SeldomPart &&) noexcept = default;
    SeldomPart & operator=(SeldomPart &&) noexcept = default;

    /// Null where there is none.
    Part * Get() const noexcept { return m_part.get(); }
    /// As new where there is none.
    Part const & Read() const
    {
        static Part const absent;
        return m_part ? *m_part : absent;
    }
    /// Hands the part, or a new one, to `change`. If that throws, there is none where there was none.
    template <class Change>
    void Write(Change change)
    {
        std::unique_ptr<Part> made = m_part ? nullptr : std::make_unique<Part>();
        change(made ? *made : *m_part);
        if (made)
            m_part = std::move(made);
    }
    /// A new one in place of any other.
    template <class... Arguments>
    void Create(Arguments const &... arguments)
    {
        m_part = std::make_unique<Part>(arguments...);
    }
    void Clear() noexcept { m_part.reset(); }

private:
    std::unique_ptr<Part> m_part;
};

/// A list of values that may be absent, which differs from an empty one.
using SelectionList = SeldomPart<std::vector<CKrVariant>>;

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
