#include "host/defines.h"

#include <fmt/format.h>

#include "host/expansion.h"
#include "rtl/sysutils.h"

namespace jx {

Define ParseDefine(std::string_view text) {
  const size_t eq = text.find('=');
  if (eq == std::string_view::npos) throw Exception(fmt::format("--define expects NAME=VALUE, got \"{}\"", text));
  Define define{std::string(text.substr(0, eq)), std::string(text.substr(eq + 1))};
  if (!IsVariableName(define.Name)) {
    throw Exception(fmt::format("--define: \"{}\" is not a valid variable name", define.Name));
  }
  return define;
}

void ApplyDefine(Project& project, const Define& define) {
  ProjectVariable* variable = project.FindVariable(define.Name);
  if (!variable) {
    project.Variables.push_back({define.Name, VariableType::String, Variant(define.Value)});
    return;
  }
  try {
    variable->Value = VariableValueFromText(variable->Type, define.Value);
  } catch (const Exception& e) {
    throw Exception(fmt::format("--define {}: bad value \"{}\" for {} variable: {}", define.Name, define.Value,
                                VariableTypeName(variable->Type), e.Message()));
  }
}

}  // namespace jx
