// A name that is kept without an allocation.
#pragma once

#include <cstddef>
#include <string_view>

namespace kr::detail
{

/// A name of at most 31 bytes, as those of locales are; a longer one is not kept, and equals nothing.
class ShortName
{
public:
    /// Names differ within a few bytes, so a loop beats a call.
    bool operator==(char const * name) const noexcept
    {
        if (!m_isKept)
            return false;
        std::size_t index = 0;
        while (index < m_length && name[index] == m_bytes[index])
            ++index;
        return index == m_length && name[index] == 0;
    }

    void Take(std::string_view name) noexcept
    {
        m_isKept = name.size() <= sizeof m_bytes;
        m_length = m_isKept ? name.copy(m_bytes, sizeof m_bytes) : 0;
    }

private:
    bool m_isKept = false;
    std::size_t m_length = 0;
    char m_bytes[31] = {};
};

} // namespace kr::detail
