// A time zone for the length of a test.
#pragma once

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

namespace kr::test
{

/// Sets the variable TZ, and puts it back.
class Zone
{
public:
    explicit Zone(char const * name)
    {
        if (char const * const old = std::getenv("TZ"))
            m_old = old;
        Set(name);
    }
    ~Zone() { Set(m_old ? m_old->c_str() : nullptr); }
    Zone(Zone const &) = delete;
    Zone & operator=(Zone const &) = delete;

private:
    static void Set(char const * name)
    {
        if (name)
            setenv("TZ", name, 1);
        else
            unsetenv("TZ");
        tzset();
    }

    std::optional<std::string> m_old;
};

} // namespace kr::test
