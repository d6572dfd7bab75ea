// Class records: what a Pascal metaclass gives the host. A published class
// has one static TJXClassInfo with its name, a factory and its property table.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "framework/jxproperties.h"

namespace jx {

class TQSXMLObject;
class TCustomJXAction;

struct TJXClassInfo {
  std::string ClassName;
  std::function<std::unique_ptr<TQSXMLObject>()> Create;
  std::vector<TPropertyInfo> Properties;

  const TPropertyInfo* FindProperty(std::string_view name) const;  // case-insensitive
  std::unique_ptr<TCustomJXAction> CreateAction() const;  // null when the class is no action
  std::string ActionName() const;  // the class's GetActionName
};
using TJXActionClass = const TJXClassInfo*;

// Makes the class record of C, a default-constructible published class.
template <class C>
TJXClassInfo MakeClassInfo(const char* class_name, std::vector<TPropertyInfo> properties) {
  TJXClassInfo info;
  info.ClassName = class_name;
  info.Create = [] { return std::unique_ptr<TQSXMLObject>(new C()); };
  info.Properties = std::move(properties);
  return info;
}

// A property page of the design environment: its class and its tab caption.
struct TJXPageClass {
  std::string ClassName;
  std::string PageName;
};

// A property editor of the design environment.
struct TJXPropertyEditorClass {
  std::string ClassName;
  std::string DialogTitle;       // file and directory editors
  std::string Filter;            // "All Files(*.*)|*.*"
  std::string DefaultExtension;
  // Editors that work on text (this host shows no dialogs): the text shown
  // for `property` of `object`, and how typed text is stored. Null: the
  // property's own text.
  std::string (*GetEditText)(const TQSXMLObject& object, const TPropertyInfo& property) = nullptr;
  void (*SetEditText)(TQSXMLObject& object, const TPropertyInfo& property, std::string_view text) = nullptr;
};

}  // namespace jx
