#include "host/variables.h"

#include "rtl/strutils.h"

namespace jx {

VariableStore VariableStore::FromProject(const Project& project) {
  VariableStore store;
  for (const ProjectVariable& variable : project.Variables) store.Set(variable.Name, variable.Value);
  return store;
}

void VariableStore::Set(std::string_view name, Variant value) {
  auto [it, inserted] = index_.try_emplace(UpperCase(name), entries_.size());
  if (inserted) {
    entries_.push_back({std::string(name), std::move(value)});
  } else {
    entries_[it->second].Value = std::move(value);
  }
}

const Variant* VariableStore::Find(std::string_view name) const {
  auto it = index_.find(UpperCase(name));
  return it == index_.end() ? nullptr : &entries_[it->second].Value;
}

}  // namespace jx
