// The user's locale for the time of a block.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace kr::test
{

/// Sets LC_ALL, and puts it back at the end.
class UserLocale
{
public:
    explicit UserLocale(char const * name)
    {
        if (char const * const before = std::getenv("LC_ALL"))
            m_before = before;
        setenv("LC_ALL", name, 1);
    }
    ~UserLocale()
    {
        if (m_before)
            setenv("LC_ALL", m_before->c_str(), 1);
        else
            unsetenv("LC_ALL");
    }
    UserLocale(UserLocale const &) = delete;
    UserLocale & operator=(UserLocale const &) = delete;

private:
    std::optional<std::string> m_before;
};

} // namespace kr::test
