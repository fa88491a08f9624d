#include <krplatform/linux/environment_snapshot.h>

#include <unistd.h>

namespace kr::detail
{

bool EnvironmentSnapshot::IsCurrent() const noexcept
{
    char ** const environment = environ;
    if (!environment || environment != m_environment)
        return false;
    // The array may be another one in the same place, and shorter: nothing is read behind the first difference.
    auto const isSame = [&](std::size_t index) { return environment[index] == m_variables[index]; };
    std::size_t index = 0;
    for (; index + 4 <= m_count; index += 4)
    {
        if (!isSame(index) || !isSame(index + 1) || !isSame(index + 2) || !isSame(index + 3))
            return false;
    }
    while (index < m_count && isSame(index))
        ++index;
    return index == m_count;
}

bool EnvironmentSnapshot::Take() noexcept
{
    char ** const environment = environ;
    m_environment = nullptr;
    if (!environment || !*environment)
        return false;
    for (m_count = 0; m_count < capacity;)
    {
        char * const variable = environment[m_count];
        m_variables[m_count++] = variable;
        if (!variable)
        {
            m_environment = environment;
            return true;
        }
    }
    return false;
}

} // namespace kr::detail
