#include "host/project.h"

#include "rtl/strutils.h"

namespace jx {

namespace {
constexpr VariableType kVariableTypes[] = {VariableType::String, VariableType::Integer, VariableType::Float,
                                           VariableType::Boolean};
}  // namespace

const char* VariableTypeName(VariableType type) {
  switch (type) {
    case VariableType::String: return "String";
    case VariableType::Integer: return "Integer";
    case VariableType::Float: return "Float";
    case VariableType::Boolean: return "Boolean";
  }
  return "?";
}

std::optional<VariableType> VariableTypeFromName(std::string_view name) {
  for (VariableType type : kVariableTypes) {
    if (SameText(VariableTypeName(type), name)) return type;
  }
  return std::nullopt;
}

Variant VariableValueFromText(VariableType type, std::string_view text) {
  switch (type) {
    case VariableType::String: return Variant(std::string(text));
    case VariableType::Integer: return Variant(StrToInt(Trim(text)));
    case VariableType::Float: return Variant(StrToFloat(Trim(text)));
    case VariableType::Boolean: return Variant(StrToBool(Trim(text)));
  }
  return Variant();
}

ProjectVariable* Project::FindVariable(std::string_view name) {
  for (ProjectVariable& variable : Variables) {
    if (SameText(variable.Name, name)) return &variable;
  }
  return nullptr;
}

}  // namespace jx
