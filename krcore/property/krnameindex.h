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
    /// Children below this number are searched one by one.
    static constexpr std::size_t leastCount = 32;

    /// Adds the next name; the first of equal names stays.
    void Append(CString const & name, int position) { m_positions.try_emplace(name, position); }
    /// The same; false where memory runs out, the index is of no use then.
    bool TryAppend(CString const & name, int position) noexcept
    {
        try
        {
            Append(name, position);
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
