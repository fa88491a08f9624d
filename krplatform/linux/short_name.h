// A name that is kept without an allocation.
#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>

namespace kr::detail
{

/// The name of a locale, which is not empty: up to 31 bytes are kept. A longer one equals nothing, as before any is taken.
class ShortName
{
public:
    bool operator==(char const * name) const noexcept { return std::strcmp(m_text, name) == 0; }

    void Take(std::string_view name) noexcept
    {
        std::size_t const length = name.size() < sizeof m_text ? name.size() : 0;
        name.copy(m_text, length);
        m_text[length] = 0;
    }

private:
    char m_text[32] = {};
};

} // namespace kr::detail
