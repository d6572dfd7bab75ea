// --define NAME=VALUE: a variable set before the run, winning over the
// project's own value.
#pragma once

#include <string>
#include <string_view>

#include "host/project.h"

namespace jx {

struct Define {
  std::string Name;
  std::string Value;
};

// Splits "NAME=VALUE" at the first '='; throws Exception when there is no '='
// or NAME is no variable name.
Define ParseDefine(std::string_view text);

// Sets the variable: converted to its declared type when the project declares
// it (throws Exception on a bad value), else a new String variable.
void ApplyDefine(Project& project, const Define& define);

}  // namespace jx
