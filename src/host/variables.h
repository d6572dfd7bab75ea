// The variables of one build: typed values under case-insensitive names,
// kept in the order they were created (the first spelling of a name stays).
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/project.h"
#include "rtl/variant.h"

namespace jx {

class VariableStore {
 public:
  struct Entry {
    std::string Name;
    Variant Value;
  };

  // The project's declared variables with their values.
  static VariableStore FromProject(const Project& project);

  // Assigns the value, creating the variable when it does not exist.
  void Set(std::string_view name, Variant value);
  const Variant* Find(std::string_view name) const;  // null when undefined
  bool Contains(std::string_view name) const { return Find(name) != nullptr; }

  const std::vector<Entry>& Entries() const { return entries_; }

 private:
  std::vector<Entry> entries_;
  std::unordered_map<std::string, size_t> index_;  // upper-case name -> entry
};

}  // namespace jx
