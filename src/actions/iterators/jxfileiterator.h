// File Iterator: a loop that finds the files matching a file spec once,
// at the start of the loop, then runs its children once per file with a
// variable holding the current file.
#pragma once

#include <string>

#include "actions/iterators/jxiteratoraction.h"

namespace jx {

class TWalkPath;

class TCustomFileIterator : public TIteratorAction {
 public:
  TCustomFileIterator() : TIteratorAction(TStoreFailure::TwoLinesAndFailed) {}

  std::string GetActionName() const override;
  bool Validate(IJXActionValidationError& errors) override;
  std::string GetQuickHelpFilename() const override;
  int GetHelpTopicID() const override;
  void GetHiddenProperties(TStrings& list) const override;

  // Adds to `list` the files matching `spec` (and, with Recurse, those of its
  // subdirectories).
  void PopulateFileList(const std::string& spec, TStrings& list);

  std::string VariableName;  // receives each file
  std::string FileSpec;      // a path whose name part may hold wildcards; expanded once per loop
  bool Recurse() const { return FRecurse; }
  void SetRecurse(bool value);                // true also sets IncludeFilePath
  bool IncludeFilePath() const { return FIncludeFilePath; }
  void SetIncludeFilePath(bool value);        // false also clears Recurse

 protected:
  std::string MissingVariableMessage() const override;
  TListResult BuildList(TStrings& items) override;
  void StoreItem(const std::string& item) override;

  bool FRecurse = false;
  bool FIncludeFilePath = true;

 private:
  void AddMatchingFiles(const std::string& spec, TStrings& list);
  void AddFilesOfTree(const std::string& spec, TWalkPath& walk, TStrings& list);
  void AddFile(const std::string& dir, const std::string& name, TStrings& list);
};

class TFileIterator : public TCustomFileIterator {
 public:
  static const TJXClassInfo& ClassInfo();
  const TJXClassInfo& GetClassInfo() const override { return ClassInfo(); }
};

}  // namespace jx
