// TWhileAction: base of loop actions whose children run once per pass. The
// host drives it through GetNextActionSource (see TJXNextAction).
#pragma once

#include <string>

#include "framework/jxaction.h"

namespace jx {

class TWhileAction : public TCustomJXAction {
 public:
  // Counts the passes of the current loop; false once the stop signal is set,
  // so a long loop ends between passes.
  bool Execute() override;
  std::string GetStatusText() const override;  // "Pass N"
  void ResetBuildStatus() override;
  std::string GetDescriptionKeyValue(int index) const override;
  void SetDescriptionKeyValue(int index, const std::string& value) override;

  int PassCount() const { return pass_count_; }

 private:
  int pass_count_ = 0;
};

}  // namespace jx
