// Set File Attributes: sets or clears the read-only, archive, system and
// hidden attributes of the files that match a file spec, optionally in
// every subdirectory, and leaves the attributes it is not told about alone.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "framework/jxaction.h"
#include "platform/fileidentity.h"

namespace jx {

enum TAttributeSetting { asNone, asSet, asClear };
// Value names, and the words the property grid shows ("Don't Touch", "Set",
// "Clear"); a project file may use either.
extern const TEnumTypeInfo kAttributeSettingInfo;

// The property grid's editor of the four settings: it shows the words "Don't
// Touch", "Set" and "Clear"; typed text follows FileAttributeEditorValue.
extern const TJXPropertyEditorClass TFileAttributeEditor;
// The attribute editor's rule for typed text, in any case: "SET" is asSet,
// "CLEAR" is asClear, anything else asNone.
TAttributeSetting FileAttributeEditorValue(std::string_view text);

class TCustomSetFileAttributesAction : public TJXAction {
 public:
  std::string GetActionName() const override;
  bool Execute() override;
  bool Validate(IJXActionValidationError& errors) override;
  std::string GetQuickHelpFilename() const override;
  int GetHelpTopicID() const override;
  void GetPropertyAlias(TStrings& list) const override;
  void GetPropertyHelp(TStrings& list) const override;

  const std::string& FileSpec() const { return FFileSpec; }
  void SetFileSpec(const std::string& value) { FFileSpec = value; }
  bool Recurse() const { return FRecurse; }
  void SetRecurse(bool value) { FRecurse = value; }
  bool LogAllFiles() const { return FLogAllFiles; }
  void SetLogAllFiles(bool value) { FLogAllFiles = value; }
  TAttributeSetting ReadOnly() const { return FReadOnly; }
  void SetReadOnly(TAttributeSetting value) { FReadOnly = value; }
  TAttributeSetting Hidden() const { return FHidden; }
  void SetHidden(TAttributeSetting value) { FHidden = value; }
  TAttributeSetting SystemFile() const { return FSystemFile; }
  void SetSystemFile(TAttributeSetting value) { FSystemFile = value; }
  TAttributeSetting Archive() const { return FArchive; }
  void SetArchive(TAttributeSetting value) { FArchive = value; }

 protected:
  // One directory level, and with `recurse` every subdirectory below it;
  // false when a search failed (logged).
  bool DoRecursiveAction(TStrings& log, const std::string& spec, bool recurse);
  // Writes the attributes of one file: `attributes` as the search found them,
  // changed by the four settings.
  void ProcessFile(TStrings& log, const std::string& path, uint32_t attributes);

  std::string FFileSpec;
  bool FRecurse = false;
  bool FLogAllFiles = false;
  TAttributeSetting FReadOnly = asNone;
  TAttributeSetting FHidden = asNone;
  TAttributeSetting FSystemFile = asNone;
  TAttributeSetting FArchive = asNone;

 private:
  bool NothingToDo() const;
  bool ProcessMatches(TStrings& log, const std::string& spec, bool recurse, std::vector<std::string>& subdirectories);

  TWalkPath walk_path_;  // the directories the walk stands in
};

class TSetFileAttributesAction : public TCustomSetFileAttributesAction {
 public:
  static const TJXClassInfo& ClassInfo();
  const TJXClassInfo& GetClassInfo() const override { return ClassInfo(); }
};

}  // namespace jx
