// Registration of the registry actions and their script constants, called by
// JXRegister in the middle of its list.
#pragma once

#include <vector>

#include "framework/jx30filereg.h"

namespace jx {

void RegisterActions(bool design);
const std::vector<TCatalogueRow>& RegistryCatalogueRows();

}  // namespace jx
