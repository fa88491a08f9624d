// Powers of ten as whole numbers.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace kr::detail
{

/// All that fit into 64 bits.
inline constexpr std::array<std::uint64_t, 20> powersOfTen = []
{
    std::array<std::uint64_t, 20> powers{1};
    for (std::size_t index = 1; index < powers.size(); ++index)
        powers[index] = powers[index - 1] * 10;
    return powers;
}();

/// All that a double holds exactly.
inline constexpr std::array<double, 23> exactPowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                            1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                            1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

} // namespace kr::detail
