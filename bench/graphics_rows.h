// The colours of the rows, which are the same for everyone.
#pragma once

#include <array>
#include <cstdint>
#include <random>

namespace kr::bench
{

struct Rgb
{
    std::uint8_t red;
    std::uint8_t green;
    std::uint8_t blue;
};

/// Colours all over the cube.
inline std::array<Rgb, 1024> SomeColors()
{
    std::mt19937 random(3);
    std::array<Rgb, 1024> colors{};
    for (Rgb & color : colors)
    {
        auto const bits = static_cast<std::uint32_t>(random());
        color = {static_cast<std::uint8_t>(bits), static_cast<std::uint8_t>(bits >> 8),
                 static_cast<std::uint8_t>(bits >> 16)};
    }
    return colors;
}

} // namespace kr::bench
