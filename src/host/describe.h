// Text views of the palette for the command line: the list of action types,
// and the property grid of one action type.
#pragma once

#include <string>

#include "host/palette.h"

namespace jx {

// One line per registered action, in registration order: category, display
// name, class, in aligned columns.
std::string ListPalette(const Palette& palette);

// The action type's display name, category and help, then its visible
// published properties in table order under their alias groups: name,
// caption, kind (enumeration values below), default, help.
std::string DescribeAction(const PaletteEntry& entry);

}  // namespace jx
