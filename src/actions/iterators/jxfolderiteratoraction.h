// Folder Iterator: a loop that lists the subfolders of a starting folder
// (optionally the whole tree) once, at the start of the loop, then runs its
// children once per folder with a variable holding the current folder.
#pragma once

#include <string>

#include "actions/iterators/jxiteratoraction.h"

namespace jx {

class TWalkPath;

class TCustomFolderIterator : public TIteratorAction {
 public:
  TCustomFolderIterator() : TIteratorAction(TStoreFailure::TwoLinesAndFailed) {}

  std::string GetActionName() const override;
  bool Validate(IJXActionValidationError& errors) override;
  std::string GetQuickHelpFilename() const override;
  int GetHelpTopicID() const override;
  void GetHiddenProperties(TStrings& list) const override;

  // Adds to `list` the subfolders of `folder` in depth-first pre-order (the
  // whole tree with Recurse); `folder` itself is not added.
  void PopulateFolderList(const std::string& folder, TStrings& list);

  std::string VariableName;    // receives each folder
  std::string StartingFolder;  // expanded once per loop
  bool Recurse() const { return FRecurse; }
  void SetRecurse(bool value);            // true also sets IncludeFolderPath
  bool IncludeFolderPath() const { return FIncludeFolderPath; }
  void SetIncludeFolderPath(bool value);  // false also clears Recurse

 protected:
  std::string MissingVariableMessage() const override;
  TListResult BuildList(TStrings& items) override;
  void StoreItem(const std::string& item) override;

  bool FRecurse = false;
  bool FIncludeFolderPath = true;

 private:
  void AddFolders(const std::string& folder, TWalkPath& walk, TStrings& list);
};

class TFolderIterator : public TCustomFolderIterator {
 public:
  static const TJXClassInfo& ClassInfo();
  const TJXClassInfo& GetClassInfo() const override { return ClassInfo(); }
};

}  // namespace jx
