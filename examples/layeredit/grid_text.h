// Several layers as one, as a property grid shows them.
#pragma once

#include <krcore/property/krpropertyset.h>

#include <ostream>
#include <vector>

namespace layeredit
{

/// Writes the merged set of the layers: categories, and in them each property with its kind of control and its value, or where they
/// differ, `*varied*` and each value with the number of layers that have it. There must be a layer.
void WriteGrid(std::ostream & stream, std::vector<CKrPropertySet *> const & layers);

} // namespace layeredit
