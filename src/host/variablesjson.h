// The variables of a build as JSON, for --dump-variables:
// {"NAME": {"type": "string", "value": "text"}, ...} in creation order.
#pragma once

#include <string>
#include <string_view>

#include "host/variables.h"

namespace jx {

// `text` as a JSON string literal, quotes included.
std::string JsonString(std::string_view text);

std::string VariablesToJson(const VariableStore& variables);

// Writes VariablesToJson to `file_name`; throws Exception naming the file on failure.
void WriteVariablesJson(const VariableStore& variables, const std::string& file_name);

}  // namespace jx
