// The names of a wide node's children.
#pragma once

#include <krplatform/text/cstring.h>

#include <cstdint>
#include <new>
#include <utility>
#include <vector>

namespace kr::detail
{

/// Answers where the first child of a name stands, in constant time: an open hash table that shares the texts of the names. It holds
/// for one order of one set of names; whoever changes either drops it.
class NameIndex
{
public:
    /// Whether an index is worth its cost: of that many children, after searches that looked at that many names since the last
    /// change. A few children are searched one by one, and so are many that change between searches.
    static constexpr bool IsWorthMaking(std::size_t children, std::size_t searched) noexcept
    {
        return children >= 32 && searched / 4 >= children;
    }

    /// Adds the next name; the first of equal names stays. False where memory runs out, the index is of no use then.
    bool TryAppend(CString const & name, int position) noexcept
    {
        if (2 * (m_used + 1) > m_slots.size() && !TryGrow())
            return false;
        Slot const added{name, HashOf(name), position};
        Slot & slot = SlotOf(added);
        if (slot.position == none)
        {
            slot = added;
            ++m_used;
        }
        else
            m_areDistinct = false;
        return true;
    }

    /// -1 if there is none.
    int Find(CString const & name) const noexcept
    {
        return m_slots.empty() ? none : SlotOf({name, HashOf(name), none}).position;
    }

    /// Whether no name stands twice, so that any child of a name is the first one.
    bool AreDistinct() const noexcept { return m_areDistinct; }

private:
    static constexpr int none = -1;

    struct Slot
    {
        CString name;
        std::uint32_t hash = 0;
        int position = none;
    };

    static std::uint32_t HashOf(CString const & name) noexcept
    {
        return static_cast<std::uint32_t>(std::hash<CString>()(name));
    }

    /// The slot of that name, or the free one where it belongs. At least half of the slots are free.
    static Slot const & SlotIn(std::vector<Slot> const & slots, Slot const & sought) noexcept
    {
        std::size_t const mask = slots.size() - 1;
        std::size_t index = sought.hash & mask;
        while (slots[index].position != none && (slots[index].hash != sought.hash || slots[index].name != sought.name))
            index = (index + 1) & mask;
        return slots[index];
    }
    Slot const & SlotOf(Slot const & sought) const noexcept { return SlotIn(m_slots, sought); }
    Slot & SlotOf(Slot const & sought) noexcept { return const_cast<Slot &>(SlotIn(m_slots, sought)); }

    bool TryGrow() noexcept
    {
        try
        {
            std::vector<Slot> grown(m_slots.empty() ? 128 : 2 * m_slots.size());
            grown.swap(m_slots);
            for (Slot & slot : grown)
            {
                if (slot.position != none)
                    SlotOf(slot) = std::move(slot);
            }
            return true;
        }
        catch (std::bad_alloc const &)
        {
            return false;
        }
    }

    std::vector<Slot> m_slots; ///< a power of two of them
    std::size_t m_used = 0;
    bool m_areDistinct = true;
};

} // namespace kr::detail
