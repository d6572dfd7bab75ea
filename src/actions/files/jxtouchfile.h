// Touch File(s): sets the last-write date, time or both of every file that
// matches a file spec, optionally in every subdirectory, to one given
// date-time or to the moment the action runs.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "framework/jxaction.h"
#include "platform/clock.h"
#include "platform/fileidentity.h"
#include "rtl/datetime.h"

namespace jx {

class TCustomTouchFilesAction : public TJXAction {
 public:
  std::string GetActionName() const override;
  bool Execute() override;
  bool Validate(IJXActionValidationError& errors) override;
  std::string GetQuickHelpFilename() const override;
  int GetHelpTopicID() const override;
  void GetHiddenProperties(TStrings& list) const override;
  void GetPropertyAlias(TStrings& list) const override;
  void GetPropertyHelp(TStrings& list) const override;

  TDateTime DateTime() const { return FDateTime; }
  void SetDateTime(TDateTime value) { FDateTime = value; }
  const std::string& FileSpec() const { return FFileSpec; }
  void SetFileSpec(const std::string& value) { FFileSpec = value; }
  bool TouchDate() const { return FTouchDate; }
  void SetTouchDate(bool value) { FTouchDate = value; }
  bool TouchTime() const { return FTouchTime; }
  void SetTouchTime(bool value) { FTouchTime = value; }
  bool TouchReadOnly() const { return FTouchReadOnly; }
  void SetTouchReadOnly(bool value) { FTouchReadOnly = value; }
  bool Recurse() const { return FRecurse; }
  void SetRecurse(bool value) { FRecurse = value; }
  bool UseNow() const { return FUseNow; }
  void SetUseNow(bool value) { FUseNow = value; }
  // A placeholder of the property grid: reads "Edit...", ignores what is
  // written; its editor edits DateTime.
  std::string DateTimeString() const { return "Edit..."; }
  void SetDateTimeString(const std::string&) {}
  int32_t FileCount() const { return FFileCount; }
  // DateTime as "c" of the user's locale settings (short date, long time);
  // written text in that form sets DateTime, other text is ignored.
  std::string DateTimeAsString() const;
  void SetDateTimeAsString(const std::string& value);

 protected:
  // One directory level, and with Recurse every subdirectory below it.
  bool ProcessFiles(const std::string& spec);
  bool TouchFile(const std::string& path);

  TDateTime FDateTime = Now();  // the moment the action is made
  std::string FFileSpec;
  bool FTouchDate = true;
  bool FTouchTime = true;
  bool FTouchReadOnly = false;
  bool FRecurse = false;
  bool FUseNow = false;
  int32_t FFileCount = 0;

 private:
  TWalkPath walk_path_;  // the directories the walk stands in
  bool TouchMatches(const std::string& spec, std::vector<std::string>& subdirectories);
  TDateTime NewTimeOf(TDateTime current) const;
};

// The property grid's editor of the "DateTimeString" placeholder: it shows and
// edits the action's DateTime as text (through "DateTimeAsString").
extern const TJXPropertyEditorClass TTouchFilesDateEditor;

class TTouchFilesAction : public TCustomTouchFilesAction {
 public:
  static const TJXClassInfo& ClassInfo();
  const TJXClassInfo& GetClassInfo() const override { return ClassInfo(); }
};

}  // namespace jx
