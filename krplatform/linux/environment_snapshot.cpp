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
    std::size_t index = 0;
    while (index < m_count && environment[index] == m_variables[index])
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
