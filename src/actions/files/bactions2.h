// Delete File(s): deletes the files of one directory that match a wildcard
// file spec, and logs what went wrong and how many were deleted.
#pragma once

#include <cstdint>
#include <string>

#include "framework/jxaction.h"

namespace jx {

class TCustomDeleteFilesAction : public TJXAction {
 public:
  bool Execute() override;
  std::string GetDescriptionKeyValue(int index) const override;
  void SetDescriptionKeyValue(int index, const std::string& value) override;
  bool Validate(IJXActionValidationError& errors) override;
  void GetPropertyHelp(TStrings& list) const override;
  void GetPropertyAlias(TStrings& list) const override;
  std::string GetQuickHelpFilename() const override;
  int GetHelpTopicID() const override;
  std::string GetActionName() const override;

  const std::string& FileSpec() const { return FFileSpec; }
  void SetFileSpec(const std::string& value);  // through the description key
  bool DeleteReadOnly() const { return FDeleteReadOnly; }
  void SetDeleteReadOnly(bool value) { FDeleteReadOnly = value; }
  bool DeleteHidden() const { return FDeleteHidden; }
  void SetDeleteHidden(bool value) { FDeleteHidden = value; }
  bool FailIfNoFile() const { return FFailIfNoFile; }
  void SetFailIfNoFile(bool value) { FFailIfNoFile = value; }
  int32_t FilesAffected() const { return FFilesAffected; }

 protected:
  std::string FFileSpec;
  bool FDeleteReadOnly = false;
  bool FDeleteHidden = false;
  bool FFailIfNoFile = true;
  int32_t FFilesAffected = 0;

 private:
  enum class TDeleteOutcome { Deleted, Skipped, Failed };
  bool DeleteMatches(const std::string& spec, TStrings& log, int32_t& deleted);
  TDeleteOutcome DeleteOne(const std::string& file_name);
};

class TDeleteFilesAction : public TCustomDeleteFilesAction {
 public:
  static const TJXClassInfo& ClassInfo();
  const TJXClassInfo& GetClassInfo() const override { return ClassInfo(); }
};

}  // namespace jx
