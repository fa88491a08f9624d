// From red, green and blue to the nearest row of the table.
#include <krcore/graphics/krcolor.h>
#include <krcore/graphics/krcolor_table.h>

#include <algorithm>

namespace
{

using kr::detail::colorTable;

/// Eight numbers of 16 bits that are worked on at once. Where the machine has no such instructions, the compiler makes
/// plain loops of them.
using Lanes [[gnu::vector_size(16)]] = std::int16_t;
constexpr int laneCount = 8;
constexpr int blockCount = kr::detail::colorTableSize / laneCount;

/// A key is a distance times 32 plus the number of the block it was found in, so that the least key is the least
/// distance and, of several, the earliest block. The largest one, 765 * 32 + 31, fits into 16 bits with a sign.
constexpr int keyScale = blockCount;
static_assert(3 * 255 * keyScale + blockCount - 1 <= INT16_MAX);

/// The rows of the table in blocks, a channel of eight rows beside the next, scaled as the keys are. Position 0 holds
/// index 1, since index 0 takes no part in the search; the last position repeats index 255 and loses against the one
/// before.
struct ScaledTable
{
    constexpr ScaledTable()
    {
        for (std::size_t position = 0; position < colorTable.size(); ++position)
        {
            std::uint32_t const color = colorTable[std::min(position + 1, colorTable.size() - 1)];
            for (int channel = 0; channel < 3; ++channel)
                blocks[position / laneCount][channel][position % laneCount] =
                    static_cast<std::int16_t>((color >> 8 * channel & 0xFF) * keyScale);
        }
    }

    alignas(Lanes) std::int16_t blocks[blockCount][3][laneCount] = {};
};

constexpr ScaledTable scaledTable;

Lanes Load(std::int16_t const (&lanes)[laneCount])
{
    return Lanes{lanes[0], lanes[1], lanes[2], lanes[3], lanes[4], lanes[5], lanes[6], lanes[7]};
}

Lanes Fill(int value)
{
    auto const lane = static_cast<std::int16_t>(value);
    return Lanes{lane, lane, lane, lane, lane, lane, lane, lane};
}

Lanes Smaller(Lanes left, Lanes right) { return left < right ? left : right; }

Lanes Difference(Lanes left, Lanes right) { return (left < right ? right : left) - Smaller(left, right); }

short NearestIndex(int red, int green, int blue)
{
    Lanes const scaledRed = Fill(red * keyScale);
    Lanes const scaledGreen = Fill(green * keyScale);
    Lanes const scaledBlue = Fill(blue * keyScale);
    Lanes best = Fill(INT16_MAX);
    Lanes number = Fill(0);
    for (auto const & [reds, greens, blues] : scaledTable.blocks)
    {
        Lanes const distance = Difference(Load(reds), scaledRed) + Difference(Load(greens), scaledGreen) +
                               Difference(Load(blues), scaledBlue);
        best = Smaller(best, distance + number);
        number += Fill(1);
    }

    // The lane joins the key as the block did; the low byte of the least one is then the position.
    int bestOfAll = best[0] * laneCount;
    for (int lane = 1; lane < laneCount; ++lane)
        bestOfAll = std::min(bestOfAll, best[lane] * laneCount + lane);
    return static_cast<short>((bestOfAll & 0xFF) + 1);
}

} // namespace

CKrColor & CKrColor::RGBToIndex() noexcept
{
    if (m_colorSpace == eColorSpaceRGB)
        SetColorIndex(NearestIndex(m_red, m_green, m_blue));
    return *this;
}

short CKrColor::GetAsColorIndex() const noexcept
{
    return m_colorSpace == eColorSpaceRGB ? NearestIndex(m_red, m_green, m_blue) : m_colorIndex;
}
