#include "framework/jxscript.h"

namespace jx {

void TJXActionScript::AddParam(const std::string& name, TScriptParamMode mode, const Variant& initial) {
  Param& p = params_[name];
  p.Mode = mode;
  p.Value = initial;
}

// Setting a parameter that was not declared declares it: actions fill their
// parameters just before running a script, and the script sees what was set.
void TJXActionScript::SetParamValue(const std::string& name, const Variant& value) {
  params_[name].Value = value;
}

Variant TJXActionScript::GetParamValue(const std::string& name) const {
  auto it = params_.find(name);
  return it == params_.end() ? Variant() : it->second.Value;
}

void TJXActionScript::SetActionParam(const std::string& name, TCustomJXAction* action) {
  params_[name].Action = action;
}

TCustomJXAction* TJXActionScript::GetActionParam(const std::string& name) const {
  auto it = params_.find(name);
  return it == params_.end() ? nullptr : it->second.Action;
}

}  // namespace jx
