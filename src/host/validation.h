// Validation before a run: every enabled action (and the children of
// enabled loops) checks its properties.
#pragma once

#include <string>
#include <vector>

#include "host/project.h"

namespace jx {

// One line per problem: "<display name>: <caption>: <message>".
std::vector<std::string> ValidateActions(const ActionList& actions);

}  // namespace jx
