// Changing several layers at once.
#pragma once

#include "drawing_file.h"
#include "options.h"

#include <krcore/property/krpropertyset.h>

namespace layeredit
{

/// A layer of a drawing: its record, and its properties.
struct Layer
{
    LayerRecord const * record = nullptr;
    CKrPropertySet set;
};

/// What a change comes to.
struct Change
{
    std::vector<Patch> patches;
    std::vector<CString> lines; ///< one a change: "Walls: Color 7 -> 1"
    int layers = 0;             ///< that are changed
};

/// Gives the layers the values that the options set, in their property sets and as patches of the file. False, with an error on the stack,
/// if the drawing or a layer cannot hold one of them.
bool ChangeLayers(Drawing const & drawing, Options const & options, std::vector<Layer *> const & layers,
                  Change & change);

} // namespace layeredit
