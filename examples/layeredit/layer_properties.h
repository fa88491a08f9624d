// The properties of a layer: what they are called, how a property grid shows them, how their values read as text.
#pragma once

#include <krcore/property/krproperty.h>

#include <span>

namespace layeredit
{

struct PropertyRow
{
    WCHAR const * name;
    WCHAR const * category;
    CKrProperty::EPropType type;
    CKrAssCtrl::ECtrlType control;
    int since;            ///< the first version of drawings that holds it
    WCHAR const * values; ///< what it may be set to, in words
};

/// All of them, in the order of columns; the properties of a category stand together.
std::span<PropertyRow const> LayerProperties();
/// By its name in any case, or null.
PropertyRow const * FindProperty(CString const & name);
/// "Name, Color, ...".
CString AllPropertyNames();

// The names that the mapping knows.
extern CString const propertyName, propertyColor, propertyLineType, propertyLineWeight, propertyPlot, propertyOn,
    propertyFrozen, propertyLocked, propertyDescription;

/// The line weight of a layer that takes the program's own.
constexpr int defaultLineWeight = -3;

enum class Style
{
    People,  ///< yes and no
    Programs ///< 1 and 0
};

/// The value as text: a colour as its index or "#1192ee", a line weight as "0.35" or "default".
CString TextOfValue(CKrProperty const & property, Style style);

/// Stores what the user wrote; false where that is no value of the property. A line weight that is none of the 24 becomes the next one
/// up; `given` then tells what was meant, in millimetres, and is 0 otherwise.
bool ReadValue(CString const & text, CKrProperty & property, double & given);

} // namespace layeredit
