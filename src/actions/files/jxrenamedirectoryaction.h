// Rename File or Directory: gives one existing directory or file a new name
// in the same parent directory, refusing names that carry path or drive
// information.
#pragma once

#include <string>

#include "framework/jxaction.h"

namespace jx {

class TCustomRenameDirAction : public TJXAction {
 public:
  bool Execute() override;
  bool Validate(IJXActionValidationError& errors) override;
  std::string GetQuickHelpFilename() const override;
  int GetHelpTopicID() const override;
  std::string GetActionName() const override;

  bool RenameDir() const { return FRenameDir; }
  void SetRenameDir(bool value) { FRenameDir = value; }
  const std::string& SourceDirectory() const { return FSourceDirectory; }
  void SetSourceDirectory(const std::string& value) { FSourceDirectory = value; }
  const std::string& SourceFile() const { return FSourceFile; }
  void SetSourceFile(const std::string& value) { FSourceFile = value; }
  const std::string& NewDirName() const { return FNewDirName; }
  void SetNewDirName(const std::string& value) { FNewDirName = value; }

 protected:
  bool FRenameDir = true;
  std::string FSourceDirectory;
  std::string FSourceFile;
  std::string FNewDirName;

 private:
  // The expanded path of the existing directory or file; false when it
  // cannot be expanded or does not exist (both logged).
  bool ExpandSource(std::string& source);
  std::string NewPath(const std::string& source, const std::string& new_name) const;
};

class TRenameDirAction : public TCustomRenameDirAction {
 public:
  static const TJXClassInfo& ClassInfo();
  const TJXClassInfo& GetClassInfo() const override { return ClassInfo(); }
};

}  // namespace jx
