// The names of a wide node's children.
#pragma once

#include <krplatform/text/cstring.h>

#include <new>
#include <unordered_map>

namespace kr::detail
{

/// Answers where the first child of a name stands, in constant time. It holds for one order of one set of names; whoever changes
/// either drops it.
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
        try
        {
            m_positions.try_emplace(name, position);
            return true;
        }
        catch (std::bad_alloc const &)
        {
            return false;
        }
    }
    /// -1 if there is none.
    int Find(CString const & name) const
    {
        auto const place = m_positions.find(name);
        return place == m_positions.end() ? -1 : place->second;
    }

private:
    std::unordered_map<CString, int> m_positions;
};

} // namespace kr::detail
