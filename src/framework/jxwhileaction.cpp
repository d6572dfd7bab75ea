#include "framework/jxwhileaction.h"

#include "rtl/strutils.h"

namespace jx {

bool TWhileAction::Execute() {
  if (StopSignalled()) return false;
  ++pass_count_;
  return true;
}

std::string TWhileAction::GetStatusText() const { return "Pass " + IntToStr(pass_count_); }

void TWhileAction::ResetBuildStatus() {
  TCustomJXAction::ResetBuildStatus();
  pass_count_ = 0;
}

// A plain loop has no description keys of its own.
std::string TWhileAction::GetDescriptionKeyValue(int index) const { return TCustomJXAction::GetDescriptionKeyValue(index); }

void TWhileAction::SetDescriptionKeyValue(int index, const std::string& value) {
  TCustomJXAction::SetDescriptionKeyValue(index, value);
}

}  // namespace jx
