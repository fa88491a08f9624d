#include <krcore/graphics/krstyles.h>

namespace
{

constexpr short newLayerColorIndex = 7;

} // namespace

CKrLayerStyle::CKrLayerStyle(CString const & name) noexcept : m_name(name) {}

CKrLayerStyle::CKrLayerStyle(CString const & name, CKrColor const & color, CKrLineStyle const & lineStyle,
                             bool visible) noexcept
    : m_name(name), m_color(color), m_lineStyle(lineStyle), m_visible(visible)
{
}

CKrLayerStyle::~CKrLayerStyle() = default;

CKrLayerStyle CKrLayerStyle::AcadLayer(CString const & name) { return AcadLayer(name, CKrColor(newLayerColorIndex)); }

CKrLayerStyle CKrLayerStyle::AcadLayer(CString const & name, CKrColor const & color)
{
    return CKrLayerStyle(name, color, CKrLineStyle::AcadLineStyle(), true);
}

bool CKrLayerStyle::operator==(CKrLayerStyle const & other) const noexcept
{
    return m_name.CompareNoCase(other.m_name) == 0 && m_color == other.m_color && m_lineStyle == other.m_lineStyle &&
           m_visible == other.m_visible && m_frozen == other.m_frozen && m_locked == other.m_locked &&
           m_hidden == other.m_hidden && m_current == other.m_current;
}
