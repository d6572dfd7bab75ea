#include "host/palette.h"

#include "rtl/strutils.h"
#include "rtl/sysutils.h"

namespace jx {

void Palette::RegisterAction(const std::string& display_name, const std::string& category,
                             TJXActionClass action_class, const std::string& icon) {
  actions_.push_back({display_name, category, action_class, icon, {}});
}

void Palette::RegisterPropertyPages(TJXActionClass action_class, const std::vector<const TJXPageClass*>& pages) {
  PaletteEntry* entry = FindEntry(action_class);
  if (!entry) throw Exception("Property pages registered for the unregistered class " + action_class->ClassName);
  entry->Pages = pages;
}

void Palette::RegisterPropertyEditor(TPropertyTypeRef type, TJXActionClass action_class,
                                     const std::string& property_name, const TJXPropertyEditorClass& editor) {
  editors_.push_back({type, action_class, property_name, editor});
}

void Palette::RegisterScriptMethod(TJXActionClass action_class, const std::string& name,
                                   const std::vector<std::string>& params, TScriptMethod method) {
  script_methods_.push_back({action_class, name, params, std::move(method)});
}

void Palette::RegisterScriptConstant(const std::string& name, const Variant& value) {
  script_constants_.emplace_back(name, value);
}

void Palette::RegisterScriptType(const TEnumTypeInfo& type) { script_types_.push_back(&type); }

void Palette::RegisterOptionsClass(const TJXClassInfo& options_class, const std::string& icon) {
  OptionsEntry(options_class).Icon = icon;
}

void Palette::RegisterOptionsPage(const TJXClassInfo& options_class, const std::vector<const TJXPageClass*>& pages) {
  OptionsEntry(options_class).Pages = pages;
}

const PaletteEntry* Palette::FindClass(std::string_view class_name) const {
  for (const PaletteEntry& entry : actions_) {
    if (SameText(entry.Class->ClassName, class_name)) return &entry;
  }
  return nullptr;
}

PaletteEntry* Palette::FindEntry(TJXActionClass action_class) {
  for (PaletteEntry& entry : actions_) {
    if (entry.Class == action_class) return &entry;
  }
  return nullptr;
}

PaletteOptionsClass& Palette::OptionsEntry(const TJXClassInfo& options_class) {
  for (PaletteOptionsClass& entry : options_classes_) {
    if (entry.Class == &options_class) return entry;
  }
  options_classes_.push_back({&options_class, "", {}});
  return options_classes_.back();
}

const Palette& PluginPalette() {
  static Palette palette;
  static const bool registered = [] {
    JXActionServices = &palette;
    JXScriptingServices = &palette;
    JXOptionsServices = &palette;
    JXRegister(true);
    return true;
  }();
  (void)registered;
  return palette;
}

}  // namespace jx
