#include "framework/jxregistryreg.h"

#include <cstdint>

#include "framework/jxregistration.h"

namespace jx {

namespace {

void RegisterRegistryConstants() {
  JXScriptingServices->RegisterScriptConstant("rtInteger", Variant(int32_t{0}));
  JXScriptingServices->RegisterScriptConstant("rtString", Variant(int32_t{1}));
  // HKEY_CLASSES_ROOT is registered twice, as it always was.
  JXScriptingServices->RegisterScriptConstant("HKEY_CLASSES_ROOT", Variant(uint32_t{0x80000000u}));
  JXScriptingServices->RegisterScriptConstant("HKEY_CLASSES_ROOT", Variant(uint32_t{0x80000000u}));
  JXScriptingServices->RegisterScriptConstant("HKEY_CURRENT_USER", Variant(uint32_t{0x80000001u}));
  JXScriptingServices->RegisterScriptConstant("HKEY_LOCAL_MACHINE", Variant(uint32_t{0x80000002u}));
  JXScriptingServices->RegisterScriptConstant("HKEY_USERS", Variant(uint32_t{0x80000003u}));
  JXScriptingServices->RegisterScriptConstant("HKEY_CURRENT_CONFIG", Variant(uint32_t{0x80000005u}));
}

}  // namespace

// The registry actions join this table as they are built.
const std::vector<TCatalogueRow>& RegistryCatalogueRows() {
  static const std::vector<TCatalogueRow> rows = {};
  return rows;
}

void RegisterActions(bool design) {
  (void)design;  // the registry actions' editors and pages come with them
  for (const TCatalogueRow& row : RegistryCatalogueRows()) RegisterCatalogueRow(row);
  RegisterRegistryConstants();
}

}  // namespace jx
