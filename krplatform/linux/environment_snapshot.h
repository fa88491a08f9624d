// Whether the environment has changed.
#pragma once

#include <cstddef>

namespace kr::detail
{

/// The variables of an environment by their addresses. To compare these takes a fraction of the time of a search for variables,
/// which every conversion under the user's locale would need.
class EnvironmentSnapshot
{
public:
    /// Whether the environment is as it was when it was taken. A program that writes over the text of a variable is not noticed.
    bool IsCurrent() const noexcept;

    /// False, and current never, without variables and for more than it holds.
    bool Take() noexcept;

private:
    static constexpr std::size_t capacity = 256;

    char ** m_environment = nullptr;
    std::size_t m_count = 0;
    char * m_variables[capacity] = {}; ///< with the null that ends them
};

} // namespace kr::detail
