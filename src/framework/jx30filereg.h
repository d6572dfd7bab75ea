// The plug-in's entry point JXRegister (declared in jxregistration.h) and the
// catalogue it walks: every action type with its palette data.
#pragma once

#include <vector>

#include "framework/jxclasses.h"
#include "framework/jxregistration.h"

namespace jx {

using TClassRef = const TJXClassInfo& (*)();

struct TCatalogueRow {
  TClassRef Class;
  const char* DisplayName;  // null: the class's own GetActionName
  const char* Category;
  const char* Icon;
  std::vector<const char*> Pages;  // page classes, in tab order
  TScriptMethod ResetMethod;       // loop actions offer "Reset" to scripts
};

// The rows JXRegister registers, in registration order (the registry rows,
// registered by RegisterActions of jxregistryreg, included at their place).
std::vector<const TCatalogueRow*> CatalogueRows();

// Registers one row's action (and its script method) with the host.
void RegisterCatalogueRow(const TCatalogueRow& row);

}  // namespace jx
