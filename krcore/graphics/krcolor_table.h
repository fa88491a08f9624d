// The table of 256 colours: the CAD system's indexes as red, green and blue.
#pragma once

#include <array>
#include <cstdint>

namespace kr::detail
{

constexpr int colorTableSize = 256;

/// A row of the table as 0x00BBGGRR.
constexpr std::uint32_t PackColor(int red, int green, int blue)
{
    return static_cast<std::uint32_t>(red | green << 8 | blue << 16);
}

/// How strongly a channel takes part in a hue, in quarters. The 24 hues lie on a wheel; a channel is whole within four
/// steps of its own hue, falls by a quarter a step over the next four, and is nothing on the far side.
constexpr int ChannelQuarters(int hue, int hueOfChannel)
{
    int const steps = hue > hueOfChannel ? hue - hueOfChannel : hueOfChannel - hue;
    int const distance = steps > 12 ? 24 - steps : steps;
    return distance <= 4 ? 4 : distance >= 8 ? 0 : 8 - distance;
}

/// Rows 10 to 249: ten rows a hue, five brightnesses from light to dark, each pure in the even and pale in the odd row.
constexpr std::uint32_t WheelColor(int index)
{
    constexpr int brightnesses[] = {255, 204, 153, 127, 76};
    int const hue = (index - 10) / 10;
    int const row = index % 10;
    int const brightness = brightnesses[row / 2];
    auto const channel = [=](int hueOfChannel)
    {
        int const quarters = ChannelQuarters(hue, hueOfChannel);
        return row % 2 == 0 ? brightness * quarters / 4 : brightness * (4 + quarters) / 8;
    };
    return PackColor(channel(0), channel(8), channel(16));
}

constexpr std::array<std::uint32_t, colorTableSize> MakeColorTable()
{
    // clang-format off
    constexpr std::uint32_t first[] = {
        PackColor(  0,   0,   0),               // 0
        PackColor(255,   0,   0),               // 1
        PackColor(255, 255,   0),               // 2
        PackColor(  0, 255,   0),               // 3
        PackColor(  0, 255, 255),               // 4
        PackColor(  0,   0, 255),               // 5
        PackColor(255,   0, 255),               // 6
        PackColor(  0,   0,   0),               // 7, Deliberate: black, and not white
        PackColor(128, 128, 128),               // 8
        PackColor(192, 192, 192),               // 9
    };
    constexpr int greys[] = { 51, 91, 132, 173, 214, 255 };     // 250 to 255
    // clang-format on

    std::array<std::uint32_t, colorTableSize> table{};
    for (int index = 0; index < colorTableSize; ++index)
    {
        auto & row = table[static_cast<std::size_t>(index)];
        if (index < 10)
            row = first[index];
        else if (index < 250)
            row = WheelColor(index);
        else
            row = PackColor(greys[index - 250], greys[index - 250], greys[index - 250]);
    }
    return table;
}

inline constexpr std::array<std::uint32_t, colorTableSize> colorTable = MakeColorTable();

} // namespace kr::detail
