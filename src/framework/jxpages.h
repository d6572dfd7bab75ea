// The property pages of the design environment, as records of page class and
// tab caption (this host has no forms; it lists them).
#pragma once

#include <string_view>

#include "framework/jxclasses.h"

namespace jx {

// The page record of `class_name`; null for a name that is no page class.
const TJXPageClass* FindPageClass(std::string_view class_name);

}  // namespace jx
