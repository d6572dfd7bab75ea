#include "framework/jxclasses.h"

#include "framework/jxaction.h"
#include "rtl/strutils.h"

namespace jx {

const TPropertyInfo* TJXClassInfo::FindProperty(std::string_view name) const {
  for (const TPropertyInfo& p : Properties) {
    if (SameText(p.Name, name)) return &p;
  }
  return nullptr;
}

std::unique_ptr<TCustomJXAction> TJXClassInfo::CreateAction() const {
  std::unique_ptr<TQSXMLObject> object = Create();
  if (auto* action = dynamic_cast<TCustomJXAction*>(object.get())) {
    object.release();
    return std::unique_ptr<TCustomJXAction>(action);
  }
  return nullptr;
}

std::string TJXClassInfo::ActionName() const {
  std::unique_ptr<TCustomJXAction> action = CreateAction();
  return action ? action->GetActionName() : std::string();
}

}  // namespace jx
