// Registration services: the host implements them and points the globals at
// its implementations before it calls JXRegister.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "framework/jxclasses.h"
#include "rtl/variant.h"

namespace jx {

class TCustomJXAction;

// The type a property editor applies to: a property kind, or an enumeration type.
struct TPropertyTypeRef {
  TPropertyKind Kind = TPropertyKind::pkString;
  const TEnumTypeInfo* EnumType = nullptr;
};

class IJXActionServices {
 public:
  virtual ~IJXActionServices() = default;
  virtual void RegisterAction(const std::string& display_name, const std::string& category,
                              TJXActionClass action_class, const std::string& icon) = 0;
  virtual void RegisterPropertyPages(TJXActionClass action_class,
                                     const std::vector<const TJXPageClass*>& pages) = 0;
  // An empty property name applies the editor to every property of `type`.
  virtual void RegisterPropertyEditor(TPropertyTypeRef type, TJXActionClass action_class,
                                      const std::string& property_name,
                                      const TJXPropertyEditorClass& editor) = 0;
};

// A script method: called on an action object by name.
using TScriptMethod = std::function<void(TCustomJXAction&)>;

class IJXScriptingServices {
 public:
  virtual ~IJXScriptingServices() = default;
  virtual void RegisterScriptMethod(TJXActionClass action_class, const std::string& name,
                                    const std::vector<std::string>& params, TScriptMethod method) = 0;
  virtual void RegisterScriptConstant(const std::string& name, const Variant& value) = 0;
  virtual void RegisterScriptType(const TEnumTypeInfo& type) = 0;
};

class IJXOptionsServices {
 public:
  virtual ~IJXOptionsServices() = default;
  virtual void RegisterOptionsClass(const TJXClassInfo& options_class, const std::string& icon) = 0;
  virtual void RegisterOptionsPage(const TJXClassInfo& options_class,
                                   const std::vector<const TJXPageClass*>& pages) = 0;
};

extern IJXActionServices* JXActionServices;
extern IJXScriptingServices* JXScriptingServices;
extern IJXOptionsServices* JXOptionsServices;

// The module's entry point: registers every action type; with `design` also
// the property editors and pages.
void JXRegister(bool design);

}  // namespace jx
