// The message pool as a sequence of operations: each a choice, the choice of a group, an id, and what else it takes.
#include "fuzz/fuzz_target.h"

#include "tests/diagnostics/message_box.h"

#include <krcore/diagnostics/krmessagepool.h>

#include <iterator>
#include <map>
#include <optional>

namespace kr::fuzz
{

namespace
{

/// A pool by its description: texts in maps, and a lookup that walks through them. No module has a text.
class PlainPool
{
public:
    enum Source
    {
        memory,
        resource,
        database
    };

    bool AddGroup(Units const & name, Source source, bool listedOnly)
    {
        return m_groups.try_emplace(Resolved(name), Group{source, listedOnly, {}}).second;
    }
    bool RemoveGroup(Units const & name)
    {
        m_ranges.erase(Resolved(name));
        return m_groups.erase(Resolved(name)) != 0;
    }
    bool Has(Units const & name) const { return m_groups.count(Resolved(name)) != 0; }
    bool Add(unsigned id, Units const & text, Units const & name)
    {
        return Has(name) && m_groups[Resolved(name)].texts.try_emplace(id, text).second;
    }
    bool Remove(unsigned id, Units const & name) { return Has(name) && m_groups[Resolved(name)].texts.erase(id) != 0; }
    void Map(unsigned id, unsigned target, Units const & name) { m_mappings[id] = {Resolved(name), target}; }
    bool SetRange(unsigned first, unsigned last, Units const & name)
    {
        if (Has(name))
            m_ranges[Resolved(name)] = {first, last};
        return Has(name);
    }

    std::optional<Units> Find(unsigned id)
    {
        if (m_mappings.count(id) != 0)
            return FindIn(m_mappings[id].second, m_mappings[id].first);
        for (auto const & [name, range] : m_ranges)
        {
            if (id >= range.first && id <= range.second)
                return FindIn(id, name);
        }
        std::optional<Units> found = FindIn(id, {});
        for (auto group = m_groups.begin(); !found && group != m_groups.end(); ++group)
            found = FindIn(id, group->first);
        return found;
    }

    std::optional<Units> FindIn(unsigned id, Units const & name)
    {
        if (!Has(name))
            return std::nullopt;
        Group const & group = m_groups[Resolved(name)];
        auto const text = group.texts.find(id);
        if (text == group.texts.end() && group.listedOnly)
            return std::nullopt;
        boxes += group.source == database;
        bool const isHeld = group.source == memory && text->second != OLESTR("#NO_MSG_ENTRY#");
        return isHeld ? std::optional(text->second) : std::nullopt;
    }

    int boxes = 0;

private:
    struct Group
    {
        Source source;
        bool listedOnly;
        std::map<unsigned, Units> texts;
    };

    static Units Resolved(Units const & name) { return name.empty() ? OLESTR("#DEFAULT_GROUP#") : name; }

    std::map<Units, Group> m_groups;
    std::map<Units, std::pair<unsigned, unsigned>> m_ranges;
    std::map<unsigned, std::pair<Units, unsigned>> m_mappings;
};

WCHAR const * const names[] = {OLESTR(""), OLESTR("#DEFAULT_GROUP#"), OLESTR("a"), OLESTR("A"), OLESTR("zones")};

/// Ids near each other, so that they meet, and any others.
unsigned Id(FuzzInput & input)
{
    unsigned const id = input.Below(16);
    return id < 15 ? id : input.Number<unsigned>();
}

void Change(CKrMessagePool & pool, PlainPool & plain, FuzzInput & input)
{
    unsigned const choice = input.Below(8);
    Units const units = names[input.Below(static_cast<unsigned>(std::size(names)))];
    CString const name = TextOf(units);
    unsigned const id = Id(input);
    bool const isListedOnly = id % 2 != 0, isCached = id % 4 > 1;
    switch (choice)
    {
    case 0:
        KR_LAW(pool.AddMessageGroup(name) == plain.AddGroup(units, PlainPool::memory, true));
        break;
    case 1:
        KR_LAW(pool.AddMessageGroup(name, nullptr, isListedOnly, isCached) ==
               plain.AddGroup(units, PlainPool::resource, isListedOnly));
        break;
    case 2:
        KR_LAW(pool.AddMessageGroup(name, CString(), CString(), isListedOnly, isCached) ==
               plain.AddGroup(units, PlainPool::database, isListedOnly));
        break;
    case 3:
    {
        Units const text = input.TextLine();
        KR_LAW(pool.AddMessage(id, TextOf(text), name) == plain.Add(id, text, units));
        break;
    }
    case 4:
        KR_LAW(pool.RemoveMessage(id, name) == plain.Remove(id, units));
        break;
    case 5:
        KR_LAW(pool.RemoveMessageGroup(name) == plain.RemoveGroup(units));
        break;
    case 6:
    {
        unsigned const target = Id(input);
        KR_LAW(pool.MapID(id, target, name));
        plain.Map(id, target, units);
        break;
    }
    default:
    {
        unsigned const last = Id(input);
        KR_LAW(pool.SetIDRange(id, last, name) == plain.SetRange(id, last, units));
        KR_LAW(pool.LoadAllMessages(name) == plain.Has(units));
    }
    }
}

void CheckLookup(CKrMessagePool const & pool, PlainPool & plain, unsigned id)
{
    auto const check = [](bool isFound, CString const & text, std::optional<Units> const & expected)
    {
        KR_LAW(isFound == expected.has_value());
        KR_LAW(text.View() == expected.value_or(OLESTR("before")));
    };
    CString text(OLESTR("before"));
    bool const isFound = pool.GetMessageW(id, text);
    check(isFound, text, plain.Find(id));
    for (WCHAR const * const name : names)
    {
        CString own(OLESTR("before"));
        bool const isOwn = pool.GetMessageW(id, name, own);
        check(isOwn, own, plain.FindIn(id, name));
    }
}

} // namespace

void CheckLaws(FuzzInput input)
{
    kr::test::MessageBoxRecorder const shown(IDOK);
    CKrMessagePool pool;
    PlainPool plain;
    while (!input.IsAtEnd())
    {
        Change(pool, plain, input);
        CheckLookup(pool, plain, Id(input));
        KR_LAW(shown.Shown() == plain.boxes);
    }
    for (unsigned id = 0; id < 15; ++id)
        CheckLookup(pool, plain, id);
}

} // namespace kr::fuzz
