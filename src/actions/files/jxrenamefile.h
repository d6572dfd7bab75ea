// Rename File(s): renames every entry that matches a source file spec
// inside its directory, building each new name from a target pattern whose
// name and extension parts may each be "*". Not on the palette.
#pragma once

#include <string>

#include "framework/jxaction.h"

namespace jx {

class TCustomRenameFilesAction : public TJXAction {
 public:
  std::string GetActionName() const override;
  // Renames what it finds, then reports failure whatever happened: that is
  // the action's established outcome.
  bool Execute() override;

  // Builds the new name of `found` from `target` into `result`, which the
  // caller keeps from one entry to the next (a literal name part is appended
  // to it), and returns it.
  std::string GetNewFileName(const std::string& found, const std::string& target, std::string& result) const;

  const std::string& SourceSpec() const { return FSourceSpec; }
  void SetSourceSpec(const std::string& value) { FSourceSpec = value; }
  const std::string& TargetSpec() const { return FTargetSpec; }
  void SetTargetSpec(const std::string& value) { FTargetSpec = value; }

 protected:
  std::string FSourceSpec;
  std::string FTargetSpec;
};

class TRenameFilesAction : public TCustomRenameFilesAction {
 public:
  static const TJXClassInfo& ClassInfo();
  const TJXClassInfo& GetClassInfo() const override { return ClassInfo(); }
};

}  // namespace jx
