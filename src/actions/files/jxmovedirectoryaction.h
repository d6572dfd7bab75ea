// Move Directory: moves a directory (or a file) to a new path with one
// operating-system move; nothing is copied across volumes.
#pragma once

#include <string>

#include "framework/jxaction.h"

namespace jx {

class TJXMoveDirectoryAction : public TJXAction {
 public:
  static const TJXClassInfo& ClassInfo();
  const TJXClassInfo& GetClassInfo() const override { return ClassInfo(); }

  bool Execute() override;
  bool Validate(IJXActionValidationError& errors) override;
  std::string GetQuickHelpFilename() const override;
  int GetHelpTopicID() const override;
  std::string GetActionName() const override;

  const std::string& Directory() const { return FDirectory; }
  void SetDirectory(const std::string& value) { FDirectory = value; }
  const std::string& DestinationDirectory() const { return FDestinationDirectory; }
  void SetDestinationDirectory(const std::string& value) { FDestinationDirectory = value; }

 protected:
  std::string FDirectory;
  std::string FDestinationDirectory;
};

}  // namespace jx
