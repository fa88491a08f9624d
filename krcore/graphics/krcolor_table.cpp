// From an index to its row of the table.
#include <krcore/graphics/krcolor.h>
#include <krcore/graphics/krcolor_table.h>

namespace
{

using kr::detail::colorTable;
using kr::detail::PackColor;

// clang-format off
static_assert(colorTable[  0] == PackColor(  0,   0,   0));
static_assert(colorTable[  6] == PackColor(255,   0, 255));
static_assert(colorTable[  7] == PackColor(  0,   0,   0));     // black, and not white
static_assert(colorTable[  9] == PackColor(192, 192, 192));
static_assert(colorTable[ 10] == PackColor(255,   0,   0));
static_assert(colorTable[ 11] == PackColor(255, 127, 127));
static_assert(colorTable[ 12] == PackColor(204,   0,   0));
static_assert(colorTable[ 21] == PackColor(255, 159, 127));
static_assert(colorTable[ 33] == PackColor(204, 153, 102));
static_assert(colorTable[ 40] == PackColor(255, 191,   0));
static_assert(colorTable[ 77] == PackColor( 95, 127,  63));
static_assert(colorTable[130] == PackColor(  0, 255, 255));
static_assert(colorTable[165] == PackColor( 76,  95, 153));
static_assert(colorTable[249] == PackColor( 76,  38,  47));
static_assert(colorTable[250] == PackColor( 51,  51,  51));
static_assert(colorTable[255] == PackColor(255, 255, 255));
// clang-format on

/// Negative indexes are no rows either.
bool IsRow(short index) { return index >= 0 && index < kr::detail::colorTableSize; }

std::uint32_t Row(short index) { return colorTable[static_cast<std::size_t>(index)]; }

} // namespace

CKrColor & CKrColor::IndexToRGB() noexcept
{
    if (m_colorSpace == eColorSpaceIndex && IsRow(m_colorIndex))
        SetColorRef(Row(m_colorIndex));
    return *this;
}

unsigned long CKrColor::GetAsColorRef() const noexcept
{
    return m_colorSpace == eColorSpaceIndex && IsRow(m_colorIndex) ? Row(m_colorIndex) : GetColorRef();
}
