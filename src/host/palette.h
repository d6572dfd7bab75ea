// The palette: what the plug-in registered through the registration
// services, kept in registration order. The host finds action classes here
// when it loads a project and lists them for `jaxtor actions`.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "framework/jxregistration.h"

namespace jx {

struct PaletteEntry {
  std::string DisplayName;
  std::string Category;
  TJXActionClass Class = nullptr;
  std::string Icon;
  std::vector<const TJXPageClass*> Pages;
};

struct PaletteEditor {
  TPropertyTypeRef Type;
  TJXActionClass Class = nullptr;
  std::string PropertyName;  // "": every property of Type
  TJXPropertyEditorClass Editor;
};

struct PaletteScriptMethod {
  TJXActionClass Class = nullptr;
  std::string Name;
  std::vector<std::string> Params;
  TScriptMethod Method;
};

struct PaletteOptionsClass {
  const TJXClassInfo* Class = nullptr;
  std::string Icon;
  std::vector<const TJXPageClass*> Pages;
};

class Palette : public IJXActionServices, public IJXScriptingServices, public IJXOptionsServices {
 public:
  // IJXActionServices
  void RegisterAction(const std::string& display_name, const std::string& category, TJXActionClass action_class,
                      const std::string& icon) override;
  void RegisterPropertyPages(TJXActionClass action_class, const std::vector<const TJXPageClass*>& pages) override;
  void RegisterPropertyEditor(TPropertyTypeRef type, TJXActionClass action_class, const std::string& property_name,
                              const TJXPropertyEditorClass& editor) override;
  // IJXScriptingServices
  void RegisterScriptMethod(TJXActionClass action_class, const std::string& name,
                            const std::vector<std::string>& params, TScriptMethod method) override;
  void RegisterScriptConstant(const std::string& name, const Variant& value) override;
  void RegisterScriptType(const TEnumTypeInfo& type) override;
  // IJXOptionsServices
  void RegisterOptionsClass(const TJXClassInfo& options_class, const std::string& icon) override;
  void RegisterOptionsPage(const TJXClassInfo& options_class, const std::vector<const TJXPageClass*>& pages) override;

  const std::vector<PaletteEntry>& Actions() const { return actions_; }
  // The registered action of that class name (case-insensitive), or null.
  const PaletteEntry* FindClass(std::string_view class_name) const;

  const std::vector<PaletteEditor>& Editors() const { return editors_; }
  const std::vector<PaletteScriptMethod>& ScriptMethods() const { return script_methods_; }
  const std::vector<std::pair<std::string, Variant>>& ScriptConstants() const { return script_constants_; }
  const std::vector<const TEnumTypeInfo*>& ScriptTypes() const { return script_types_; }
  const std::vector<PaletteOptionsClass>& OptionsClasses() const { return options_classes_; }

 private:
  PaletteEntry* FindEntry(TJXActionClass action_class);
  PaletteOptionsClass& OptionsEntry(const TJXClassInfo& options_class);

  std::vector<PaletteEntry> actions_;
  std::vector<PaletteEditor> editors_;
  std::vector<PaletteScriptMethod> script_methods_;
  std::vector<std::pair<std::string, Variant>> script_constants_;
  std::vector<const TEnumTypeInfo*> script_types_;
  std::vector<PaletteOptionsClass> options_classes_;
};

// The plug-in's palette: registers the plug-in (design mode) on first use,
// through the global registration services pointed at it.
const Palette& PluginPalette();

}  // namespace jx
