#include <krcore/graphics/krstyles.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace
{

constexpr double hundredthsPerMillimetre = 100.0;
constexpr double equalWidths = 1e-8;

// clang-format off
/// The line weights of AutoCAD in hundredths of a millimetre.
constexpr std::array lineWeights = {
      0,   5,   9,  13,  15,  18,  20,  25,
     30,  35,  40,  50,  53,  60,  70,  80,
     90, 100, 106, 120, 140, 158, 200, 211,
};
// clang-format on
static_assert(lineWeights.size() == 24 && std::ranges::is_sorted(lineWeights));

/// The weight of each number of hundredths: the first that is not below.
constexpr auto weightsOfHundredths = []
{
    std::array<unsigned char, lineWeights.back() + 1> weights{};
    for (int hundredths = 0; hundredths <= lineWeights.back(); ++hundredths)
        weights[static_cast<std::size_t>(hundredths)] =
            static_cast<unsigned char>(*std::ranges::lower_bound(lineWeights, hundredths));
    return weights;
}();

int WeightOfWidth(double width)
{
    double const hundredths = width * hundredthsPerMillimetre;
    if (hundredths >= lineWeights.back())
        return lineWeights.back();
    return hundredths > 0 ? weightsOfHundredths[static_cast<std::size_t>(hundredths)] : 0;
}

template <class Measure>
CKrLineStyle NamedOrContinuous(CString const & name, Measure measure)
{
    return name.IsEmpty() ? CKrLineStyle(OLESTR("CONTINUOUS"), measure) : CKrLineStyle(name, measure);
}

} // namespace

CKrLineStyle::CKrLineStyle(CString const & name, int weight) noexcept : m_name(name), m_lineWeight(weight) {}

CKrLineStyle::CKrLineStyle(CString const & name, double width) noexcept : m_name(name), m_lineWidth(width) {}

CKrLineStyle::~CKrLineStyle() = default;

CKrLineStyle CKrLineStyle::AcadLineStyle() { return AcadLineStyle(0, CString()); }

CKrLineStyle CKrLineStyle::AcadLineStyle(int weight, CString const & name)
{
    CKrLineStyle style = NamedOrContinuous(name, weight);
    if (weight > 0)
        style.SetLineWidth(weight / hundredthsPerMillimetre);
    return style;
}

CKrLineStyle CKrLineStyle::AcadLineStyle(double width, CString const & name)
{
    CKrLineStyle style = NamedOrContinuous(name, width);
    style.SetLineWeight(WeightOfWidth(width));
    return style;
}

bool CKrLineStyle::operator==(CKrLineStyle const & other) const noexcept
{
    return this == &other ||
           (m_name.CompareNoCase(other.m_name) == 0 && std::abs(m_lineWidth - other.m_lineWidth) < equalWidths &&
            m_lineWeight == other.m_lineWeight);
}
