// A LAYER record as a property set, and the changes of the set back in the record.
#pragma once

#include "drawing.h"

#include <krcore/property/krpropertyset.h>

namespace layeredit
{

/// The application in whose extended data a layer keeps its description.
constexpr std::string_view descriptionApplication = "AcAecLayerStandard";

/// Fills `set` with the properties of a layer. False, with an error on the stack, for a damaged record.
bool ReadLayer(Drawing const & drawing, LayerRecord const & layer, CKrPropertySet & set);

/// The record's bytes with the properties in it that are flagged as modified, and all others as they were. The drawing must be able
/// to hold them.
std::string WriteLayer(Drawing const & drawing, LayerRecord const & layer, CKrPropertySet const & set);

/// Whether the layer is loaded from another drawing.
bool IsOfReference(CKrPropertySet const & set);

/// Whether the layer is never plotted, whatever its record says.
bool IsNeverPlotted(CKrPropertySet const & set);

/// A layer's name.
CString NameOf(CKrPropertySet const & set);

/// The drawing's line type of that name in any case, or null.
LineType const * FindLineType(Drawing const & drawing, CString const & name);

/// How the drawing spells an application that it has registered, the case ignored; null if it has not.
std::string const * FindApplication(Drawing const & drawing, std::string_view name);

/// The bytes of a description in this drawing.
std::string EncodeDescription(Drawing const & drawing, CString const & text);

} // namespace layeredit
