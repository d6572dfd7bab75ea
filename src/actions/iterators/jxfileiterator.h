// File Iterator: a loop that finds the files matching a file spec once,
// at the start of the loop, then runs its children once per file with a
// variable holding the current file.
#pragma once

#include <cstdint>
#include <string>

#include "actions/iterators/jxiteratorstate.h"
#include "framework/jxwhileaction.h"

namespace jx {

class TCustomFileIterator : public TWhileAction {
 public:
  TCustomFileIterator();

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
  // Adds the files matching `spec` (and, with Recurse, those of its subdirectories).
  void PopulateFileList(const std::string& spec);

  const std::string& VariableName() const { return FVariableName; }
  void SetVariableName(const std::string& value);
  const std::string& FileSpec() const { return FFileSpec; }
  void SetFileSpec(const std::string& value);
  bool Recurse() const { return FRecurse; }
  void SetRecurse(bool value);                // true also sets IncludeFilePath
  bool IncludeFilePath() const { return FIncludeFilePath; }
  void SetIncludeFilePath(bool value);        // false also clears Recurse
  int32_t FileCount() const { return FState.Items.Count(); }
  int32_t FileIndex() const { return FState.Index + 1; }

 protected:
  std::string FVariableName;
  std::string FFileSpec;
  bool FRecurse = false;
  bool FIncludeFilePath = true;

 private:
  bool Populate();
  void AddMatchingFiles(const std::string& spec);
  void AddFilesOfTree(const std::string& spec);
  void AddFile(const std::string& dir, const std::string& name);

  TIteratorState FState;
};

class TFileIterator : public TCustomFileIterator {
 public:
  static const TJXClassInfo& ClassInfo();
  const TJXClassInfo& GetClassInfo() const override { return ClassInfo(); }
};

}  // namespace jx
