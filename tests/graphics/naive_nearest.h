// The nearest row of the colour table, found the slow and obvious way.
#pragma once

#include <krcore/graphics/krcolor.h>

#include <array>
#include <cstdlib>

namespace kr::test
{

class NaiveNearest
{
public:
    NaiveNearest()
    {
        for (std::size_t index = 0; index < m_rows.size(); ++index)
            m_rows[index] = CKrColor(CKrColor(static_cast<short>(index)).GetAsColorRef());
    }

    int Distance(int index, int red, int green, int blue) const
    {
        CKrColor const & row = m_rows[static_cast<std::size_t>(index)];
        return std::abs(row.GetRed() - red) + std::abs(row.GetGreen() - green) + std::abs(row.GetBlue() - blue);
    }

    /// Indexes 1 to 255 in ascending order; a row replaces the best only if it is strictly nearer.
    short Find(int red, int green, int blue) const
    {
        int bestDistance = 765;
        short bestIndex = 0;
        for (short index = 1; index < 256 && bestDistance > 0; ++index)
        {
            int const distance = Distance(index, red, green, blue);
            if (distance < bestDistance)
            {
                bestDistance = distance;
                bestIndex = index;
            }
        }
        return bestIndex;
    }

private:
    std::array<CKrColor, 256> m_rows;
};

} // namespace kr::test
