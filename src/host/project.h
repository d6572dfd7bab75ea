// The project model: declared variables and the tree of actions, as loaded
// from a project file. Loop actions hold their children themselves.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "framework/jxaction.h"
#include "rtl/variant.h"

namespace jx {

// The types a project may declare for a variable.
enum class VariableType { String, Integer, Float, Boolean };

const char* VariableTypeName(VariableType type);  // "String", "Integer", "Float", "Boolean"
std::optional<VariableType> VariableTypeFromName(std::string_view name);  // any case
// The value of `text` as `type`; throws EConvertError when the text is no such value.
Variant VariableValueFromText(VariableType type, std::string_view text);

struct ProjectVariable {
  std::string Name;
  VariableType Type = VariableType::String;
  Variant Value;
};

using ActionList = std::vector<std::unique_ptr<TCustomJXAction>>;

struct Project {
  std::vector<ProjectVariable> Variables;
  ActionList Actions;

  // The declared variable of that name (case-insensitive), or null.
  ProjectVariable* FindVariable(std::string_view name);
};

// Calls `visit` for every action of the tree, parents before their children.
template <class F>
void ForEachAction(const ActionList& actions, F&& visit) {
  for (const auto& action : actions) {
    visit(*action);
    ForEachAction(action->Children(), visit);
  }
}

}  // namespace jx
