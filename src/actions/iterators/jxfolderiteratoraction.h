// Folder Iterator: a loop that lists the subfolders of a starting folder
// (optionally the whole tree) once, at the start of the loop, then runs its
// children once per folder with a variable holding the current folder.
#pragma once

#include <cstdint>
#include <string>

#include "actions/iterators/jxiteratorstate.h"
#include "framework/jxwhileaction.h"

namespace jx {

class TCustomFolderIterator : public TWhileAction {
 public:
  TCustomFolderIterator();

  std::string GetActionName() const override;
  bool Execute() override;
  void ResetBuildStatus() override;
  // State 0 (after Execute): 1 runs the children, 3 leaves; state 1 (after
  // the children): 2 runs the iterator again, 3 leaves.
  void GetNextActionSource(int state, int& next) override;
  bool Validate(IJXActionValidationError& errors) override;
  std::string GetQuickHelpFilename() const override;
  int GetHelpTopicID() const override;
  void GetHiddenProperties(TStrings& list) const override;

  // Forgets the list, so the next pass searches again.
  void Reset();
  // Adds the subfolders of `folder` in depth-first pre-order (the whole tree
  // with Recurse); `folder` itself is not added.
  void PopulateFolderList(const std::string& folder);

  const std::string& VariableName() const { return FVariableName; }
  void SetVariableName(const std::string& value) { FVariableName = value; }
  const std::string& StartingFolder() const { return FStartingFolder; }
  void SetStartingFolder(const std::string& value) { FStartingFolder = value; }
  bool Recurse() const { return FRecurse; }
  void SetRecurse(bool value);            // true also sets IncludeFolderPath
  bool IncludeFolderPath() const { return FIncludeFolderPath; }
  void SetIncludeFolderPath(bool value);  // false also clears Recurse
  int32_t FolderCount() const { return FState.Items.Count(); }
  int32_t FolderIndex() const { return FState.Index + 1; }

 protected:
  std::string FVariableName;
  std::string FStartingFolder;
  bool FRecurse = false;
  bool FIncludeFolderPath = true;

 private:
  bool Populate(const std::string& folder);

  TIteratorState FState;
};

class TFolderIterator : public TCustomFolderIterator {
 public:
  static const TJXClassInfo& ClassInfo();
  const TJXClassInfo& GetClassInfo() const override { return ClassInfo(); }
};

}  // namespace jx
