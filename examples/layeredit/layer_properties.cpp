#include "layer_properties.h"

#include "drawing.h"

#include <krcore/graphics/krstyles.h>
#include <krplatform/text/numbers.h>

#include <cmath>

namespace layeredit
{

CString const propertyName(OLESTR("Name")), propertyColor(OLESTR("Color")), propertyLineType(OLESTR("LineType")),
    propertyLineWeight(OLESTR("LineWeight")), propertyPlot(OLESTR("Plot")), propertyOn(OLESTR("On")),
    propertyFrozen(OLESTR("Frozen")), propertyLocked(OLESTR("Locked")), propertyDescription(OLESTR("Description"));

namespace
{

// clang-format off
constexpr PropertyRow s_rows[] = {
    // name                  category               type                     control                  since          values
    { OLESTR("Name"),        OLESTR("Layer"),       CKrProperty::ePropString, CKrAssCtrl::eEditCtrl,  0,             OLESTR("the layer's name") },
    { OLESTR("Color"),       OLESTR("Appearance"),  CKrProperty::ePropColor,  CKrAssCtrl::eColorCtrl, 0,             OLESTR("1 to 255, RGB(r,g,b) or #rrggbb") },
    { OLESTR("LineType"),    OLESTR("Appearance"),  CKrProperty::ePropString, CKrAssCtrl::eComboCtrl, 0,             OLESTR("the name of a line type") },
    { OLESTR("LineWeight"),  OLESTR("Appearance"),  CKrProperty::ePropInt,    CKrAssCtrl::eComboCtrl, eVersionR2000, OLESTR("0 to 2.11 millimetres, or default") },
    { OLESTR("Plot"),        OLESTR("State"),       CKrProperty::ePropBool,   CKrAssCtrl::eCheckCtrl, eVersionR2000, OLESTR("0 or 1, no or yes") },
    { OLESTR("On"),          OLESTR("State"),       CKrProperty::ePropBool,   CKrAssCtrl::eCheckCtrl, 0,             OLESTR("0 or 1, no or yes") },
    { OLESTR("Frozen"),      OLESTR("State"),       CKrProperty::ePropBool,   CKrAssCtrl::eCheckCtrl, 0,             OLESTR("0 or 1, no or yes") },
    { OLESTR("Locked"),      OLESTR("State"),       CKrProperty::ePropBool,   CKrAssCtrl::eCheckCtrl, 0,             OLESTR("0 or 1, no or yes") },
    { OLESTR("Description"), OLESTR("Remarks"),     CKrProperty::ePropString, CKrAssCtrl::eMemoCtrl,  eVersionR12,   OLESTR("any text") },
};
// clang-format on

CString const s_default(OLESTR("default"));
constexpr double s_widest = 2.11;

/// `CKrColor::Parse` takes every text, so a text counts only if the colour is written the same way again.
bool ReadColor(CString text, CKrProperty & property)
{
    text.Remove(OLESTR(' '));
    CKrColor color;
    color.Parse(text);
    bool const isIndex = color.GetColorSpace() == CKrColor::eColorSpaceIndex;
    bool const isWithin = isIndex ? color.GetColorIndex() >= 1 && color.GetColorIndex() <= 255
                                  : color.GetColorSpace() == CKrColor::eColorSpaceRGB;
    bool const isSame = text.CompareNoCase(color.Format(false)) == 0 || text.CompareNoCase(color.Format(true)) == 0;
    if (isWithin && isSame)
        property.SetColor(color);
    return isWithin && isSame;
}

bool ReadFlag(CString const & text, CKrProperty & property)
{
    bool const isYes = text == OLESTR("1") || text.CompareNoCase(OLESTR("yes")) == 0;
    bool const isNo = text == OLESTR("0") || text.CompareNoCase(OLESTR("no")) == 0;
    property.SetBool(isYes);
    return isYes || isNo;
}

bool ReadLineWeight(CString text, CKrProperty & property, double & given)
{
    if (text.CompareNoCase(s_default) == 0)
    {
        property.SetInt(defaultLineWeight);
        return true;
    }
    WCHAR * end = nullptr;
    double const width = wcstod(text, &end);
    if (end == text.GetString() || *end != 0 || !(width >= 0.0 && width <= s_widest))
        return false;
    // the style cuts to hundredths, and 2.01 * 100.0 lies below 201: it is given the middle of the hundredth
    constexpr double sameWidth = 1e-9;
    int const hundredths = static_cast<int>((width + sameWidth) * 100.0);
    int const weight = CKrLineStyle::AcadLineStyle((hundredths + 0.5) / 100.0, CString()).GetLineWeight();
    given = std::abs(weight / 100.0 - width) < sameWidth ? 0.0 : width;
    property.SetInt(weight);
    return true;
}

CString TextOfLineWeight(int weight)
{
    CString text = s_default;
    if (weight != defaultLineWeight)
        text.Format(OLESTR("%.2f"), weight / 100.0);
    return text;
}

} // namespace

std::span<PropertyRow const> LayerProperties() { return s_rows; }

PropertyRow const * FindProperty(CString const & name)
{
    for (PropertyRow const & row : s_rows)
        if (name.CompareNoCase(row.name) == 0)
            return &row;
    return nullptr;
}

CString AllPropertyNames()
{
    CString names;
    for (PropertyRow const & row : s_rows)
        names += CString(names.IsEmpty() ? OLESTR("") : OLESTR(", ")) + row.name;
    return names;
}

CString TextOfValue(CKrProperty const & property, Style style)
{
    if (property.IsColorValue())
        return property.GetColor().Format(true);
    if (property.GetName() == propertyLineWeight)
        return TextOfLineWeight(property.GetInt());
    if (property.IsBoolValue() && style == Style::People)
        return property.GetBool() ? OLESTR("yes") : OLESTR("no");
    return property.GetAsString();
}

bool ReadValue(CString const & text, CKrProperty & property, double & given)
{
    given = 0.0;
    if (property.IsColorValue())
        return ReadColor(text, property);
    if (property.IsBoolValue())
        return ReadFlag(text, property);
    if (property.GetName() == propertyLineWeight)
        return ReadLineWeight(text, property, given);
    property.SetString(text);
    return true;
}

} // namespace layeredit
