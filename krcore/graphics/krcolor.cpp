#include <krcore/graphics/krcolor.h>

#include <algorithm>

namespace
{

unsigned char LowByte(unsigned long value) { return static_cast<unsigned char>(value & 0xFFU); }

unsigned char HeldByte(unsigned int value) { return static_cast<unsigned char>(std::min(value, 255U)); }

} // namespace

CKrColor::CKrColor(short index) noexcept { SetColorIndex(index); }

CKrColor::CKrColor(int index) noexcept : CKrColor(static_cast<short>(index)) {}

CKrColor::CKrColor(unsigned long colorRef) noexcept { StoreColorRef(colorRef); }

CKrColor::CKrColor(unsigned int colorRef) noexcept { StoreColorRef(colorRef); }

CKrColor::~CKrColor() = default;

CKrColor CKrColor::NoColor() noexcept { return CKrColor(s_noColorIndex); }

unsigned long CKrColor::GetColorRef() const noexcept
{
    return static_cast<unsigned long>(m_red | m_green << 8 | m_blue << 16);
}

void CKrColor::SetRed(unsigned int red) noexcept { m_red = HeldByte(red); }

void CKrColor::SetGreen(unsigned int green) noexcept { m_green = HeldByte(green); }

void CKrColor::SetBlue(unsigned int blue) noexcept { m_blue = HeldByte(blue); }

void CKrColor::SetAlpha(int alpha) noexcept
{
    m_alpha = alpha;
    if (alpha > 0)
        m_alphaFlag = 1;
}

void CKrColor::SetColorIndex(short index) noexcept
{
    m_colorSpace = index == s_noColorIndex ? eColorSpaceNoColor : eColorSpaceIndex;
    m_colorIndex = index;
    StoreColorRef(0);
}

void CKrColor::SetColorRef(unsigned long colorRef) noexcept
{
    m_colorSpace = eColorSpaceRGB;
    m_colorIndex = 0;
    StoreColorRef(colorRef);
}

void CKrColor::SetNoColor() noexcept { SetColorIndex(s_noColorIndex); }

bool CKrColor::operator==(CKrColor const & other) const noexcept
{
    if (m_colorSpace != other.m_colorSpace || m_alpha != other.m_alpha)
        return false;
    if (m_colorSpace == eColorSpaceIndex)
        return m_colorIndex == other.m_colorIndex;
    return m_red == other.m_red && m_green == other.m_green && m_blue == other.m_blue;
}

void CKrColor::StoreColorRef(unsigned long colorRef) noexcept
{
    m_red = LowByte(colorRef);
    m_green = LowByte(colorRef >> 8);
    m_blue = LowByte(colorRef >> 16);
}
