#include <krcore/graphics/krstyles.h>

CKrHatchStyle::CKrHatchStyle() : m_strPattern(OLESTR("SOLID")), m_color(short(256)), m_strLayer(OLESTR("0")) {}

CKrHatchStyle::~CKrHatchStyle() = default;
