// Copy File(s) and Move File(s): copy or move the files that match a wildcard
// file spec to a destination file or directory, logging one block.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "framework/jxaction.h"
#include "platform/fileidentity.h"

namespace jx {

// The shared state and the copy walk; Move File(s) brings its own Execute.
class TCustomCopyFilesAction : public TJXAction {
 public:
  bool Execute() override;
  std::string GetDescriptionKeyValue(int index) const override;
  void SetDescriptionKeyValue(int index, const std::string& value) override;
  bool Validate(IJXActionValidationError& errors) override;
  void GetHiddenProperties(TStrings& list) const override;
  void GetPropertyHelp(TStrings& list) const override;
  void GetPropertyAlias(TStrings& list) const override;

  const std::string& FileSpec() const { return FFileSpec; }
  void SetFileSpec(const std::string& value);  // through the description key
  const std::string& Target() const { return FTarget; }
  void SetTarget(const std::string& value) { FTarget = value; }
  bool GetForceDir() const { return FForce; }
  void SetForceDir(bool value) { FForce = value; }
  bool TargetIsDir() const { return FTargetIsDir; }
  void SetTargetIsDir(bool value) { FTargetIsDir = value; }
  bool FailIfExists() const { return FFailIfExists; }
  void SetFailIfExists(bool value) { FFailIfExists = value; }
  bool OverwriteReadOnly() const { return FOverwriteReadOnly; }
  void SetOverwriteReadOnly(bool value) { FOverwriteReadOnly = value; }
  bool Recurse() const { return FRecurse; }
  void SetRecurse(bool value) { FRecurse = value; }
  bool ClearAttributes() const { return FClearAttributes; }
  void SetClearAttributes(bool value) { FClearAttributes = value; }
  bool FailIfZeroFiles() const { return FFailIfZeroFiles; }
  void SetFailIfZeroFiles(bool value) { FFailIfZeroFiles = value; }
  int32_t FilesAffected() const { return FFilesAffected; }
  int32_t ErrorCount() const { return FErrorCount; }

 protected:
  // Copies the matches of `spec` (and, with Recurse, of its subdirectories)
  // to `destination`; false when a file of this directory failed.
  bool DoRecursiveCopyMove(TStrings& log, const std::string& spec, int32_t& count, const std::string& destination);
  // Copies one file; false (with two lines logged) when it failed.
  virtual bool ProcessFile(TStrings& log, const std::string& source, const std::string& dest);
  // FileSpec and Target expanded and trimmed; false when either is empty or
  // cannot be expanded (then logged under `failure_headline`).
  bool ExpandPaths(const std::string& failure_headline, std::string& spec, std::string& target);

  std::string FFileSpec;
  std::string FTarget;
  bool FForce = false;
  bool FTargetIsDir = false;
  bool FFailIfExists = false;
  bool FOverwriteReadOnly = false;
  bool FRecurse = false;
  bool FClearAttributes = false;
  bool FFailIfZeroFiles = false;
  int32_t FFilesAffected = 0;
  int32_t FErrorCount = 0;

 private:
  TWalkPath walk_path_;  // the directories the copy walk stands in
  bool CopyMatches(TStrings& log, const std::string& spec, int32_t& count, const std::string& destination,
                   std::vector<std::string>& subdirectories);
};

class TCopyFilesAction : public TCustomCopyFilesAction {
 public:
  std::string GetQuickHelpFilename() const override;
  int GetHelpTopicID() const override;
  std::string GetActionName() const override;

  static const TJXClassInfo& ClassInfo();
  const TJXClassInfo& GetClassInfo() const override { return ClassInfo(); }
};

class TMoveFilesAction : public TCustomCopyFilesAction {
 public:
  bool Execute() override;
  std::string GetQuickHelpFilename() const override;
  int GetHelpTopicID() const override;
  std::string GetActionName() const override;

  bool StopOnAnyErrors() const { return FStopOnAnyErrors; }
  void SetStopOnAnyErrors(bool value) { FStopOnAnyErrors = value; }

  static const TJXClassInfo& ClassInfo();
  const TJXClassInfo& GetClassInfo() const override { return ClassInfo(); }

 protected:
  bool FStopOnAnyErrors = false;

 private:
  bool MoveMatches(TStrings& log, const std::string& spec, const std::string& target);
  std::string MoveDestination(const std::string& target, const std::string& name);
  bool MoveOne(TStrings& log, const std::string& source, const std::string& dest);
};

}  // namespace jx
