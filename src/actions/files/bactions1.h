// Check if File Exists, Create Directory, Delete Directory, and Set Variable:
// the small path and variable actions.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "framework/jxaction.h"
#include "framework/jxproperties.h"

namespace jx {

// What the shared file-or-directory page shows for an action.
enum TFileDirFlag { fdIsDir, fdIsFile, fdMustExist, fdAllowWildCards, fdForce, fdHasTarget, fdDelTree };
using TFileDirFlags = uint32_t;  // a set of TFileDirFlag (SetOf / InSet)

// Common base of the directory actions: the directory, stored through the
// description key, and the option to create missing parents.
class TFileOrDirectoryAction : public TJXAction {
 public:
  std::string GetDescriptionKeyValue(int index) const override;
  void SetDescriptionKeyValue(int index, const std::string& value) override;
  void GetPropertyHelp(TStrings& list) const override;
  virtual TFileDirFlags GetFlags() const = 0;

  const std::string& FileOrDirectory() const { return FFileOrDirectory; }
  void SetFileOrDirectory(const std::string& value);  // through the description key
  bool Force() const { return FForce; }
  void SetForce(bool value) { FForce = value; }

 protected:
  std::string FFileOrDirectory;
  bool FForce = false;
};

class TCreateDirectoryAction : public TFileOrDirectoryAction {
 public:
  bool Execute() override;
  bool Validate(IJXActionValidationError& errors) override;
  void GetPropertyHelp(TStrings& list) const override;
  void GetPropertyAlias(TStrings& list) const override;
  std::string GetQuickHelpFilename() const override;
  int GetHelpTopicID() const override;
  std::string GetActionName() const override;
  TFileDirFlags GetFlags() const override;

  static const TJXClassInfo& ClassInfo();
  const TJXClassInfo& GetClassInfo() const override { return ClassInfo(); }

 private:
  bool MakeDir(const std::string& dir) const;
};

class TDeleteDirectoryAction : public TFileOrDirectoryAction {
 public:
  bool Execute() override;
  bool Validate(IJXActionValidationError& errors) override;
  void GetHiddenProperties(TStrings& list) const override;
  void GetPropertyHelp(TStrings& list) const override;
  void GetPropertyAlias(TStrings& list) const override;
  std::string GetQuickHelpFilename() const override;
  int GetHelpTopicID() const override;
  std::string GetActionName() const override;
  TFileDirFlags GetFlags() const override;

  bool DeleteTree() const { return FDeleteTree; }
  void SetDeleteTree(bool value) { FDeleteTree = value; }
  bool DeleteReadOnly() const { return FDeleteReadOnly; }
  void SetDeleteReadOnly(bool value) { FDeleteReadOnly = value; }
  bool DeleteHidden() const { return FDeleteHidden; }
  void SetDeleteHidden(bool value) { FDeleteHidden = value; }

  static const TJXClassInfo& ClassInfo();
  const TJXClassInfo& GetClassInfo() const override { return ClassInfo(); }

 protected:
  bool FDeleteTree = false;
  bool FDeleteReadOnly = false;
  bool FDeleteHidden = false;

 private:
  void ClearDirectoryAttributes(const std::string& dir) const;
  bool DeleteDir(const std::string& dir) const;
  bool RemoveTree(const std::string& dir) const;
  bool DelTree(const std::string& mask) const;
};

enum TFileExistsMode { feFailIfExists, feFailIfMissing, feIgnore };
extern const TEnumTypeInfo kFileExistsModeInfo;

class TFileExistsAction : public TJXAction {
 public:
  bool Execute() override;
  bool Validate(IJXActionValidationError& errors) override;
  void GetHiddenProperties(TStrings& list) const override;
  void GetPropertyHelp(TStrings& list) const override;
  void GetPropertyAlias(TStrings& list) const override;
  std::string GetQuickHelpFilename() const override;
  int GetHelpTopicID() const override;
  std::string GetActionName() const override;

  const std::string& FileOrDirectory() const { return FFileOrDirectory; }
  void SetFileOrDirectory(const std::string& value) { FFileOrDirectory = value; }
  TFileExistsMode ExistsMode() const { return FExistsMode; }
  void SetExistsMode(TFileExistsMode value) { FExistsMode = value; }
  const std::string& Variable() const { return FVariable; }
  // Hides the host service SetVariable(name, value); Execute calls that one qualified.
  void SetVariable(const std::string& value) { FVariable = value; }
  // Older projects stored a flag instead of the mode; writing it sets the mode.
  void SetFailIfExists(bool value) { FExistsMode = value ? feFailIfExists : feFailIfMissing; }

  static const TJXClassInfo& ClassInfo();
  const TJXClassInfo& GetClassInfo() const override { return ClassInfo(); }

 protected:
  std::string FFileOrDirectory;
  TFileExistsMode FExistsMode = feFailIfMissing;
  std::string FVariable;

 private:
  bool Exists(const std::string& path) const;
};

enum TJXSetVariableModifier {
  smNone, smTrim, smTrimLeft, smTrimRight, smIncludeTrailingBackSlash, smExcludeTrailingBackSlash,
  smExtractFileName, smExtractFilePath, smExtractFileDrive, smExtractFileExt, smShortFileName, smAddQuotes,
  smAddDoubleQuotes, smStripQuotes, smIncrement, smDeincrement, smLowerCase, smUpperCase, smEncrypt, smDecrypt,
  smRemoveFileExt
};
// The modifiers' texts, as the description line and the page show them.
extern const std::array<const char*, 21> SetVariableModifierStrings;
extern const TEnumTypeInfo kSetVariableModifierInfo;  // names, with the texts as captions

enum TJXSetVariableForceType { ftDefault, ftString, ftInteger, ftFloat, ftBoolean };
extern const TEnumTypeInfo kSetVariableForceTypeInfo;

class TCustomSetVariableAction : public TJXAction {
 public:
  bool Execute() override;
  std::string GetDescriptionFormatString() const override;
  std::string GetDescriptionKeyValue(int index) const override;
  void SetDescriptionKeyValue(int index, const std::string& value) override;
  bool Validate(IJXActionValidationError& errors) override;
  void GetPropertyHelp(TStrings& list) const override;
  void GetPropertyAlias(TStrings& list) const override;
  std::string GetQuickHelpFilename() const override;
  int GetHelpTopicID() const override;
  std::string GetActionName() const override;

  // NewValue, VariableName and Modifier are stored through description keys 2, 0 and 1.
  const std::string& NewValue() const { return FNewValue; }
  void SetNewValue(const std::string& value);
  const std::string& VariableName() const { return FVariableName; }
  void SetVariableName(const std::string& value);
  TJXSetVariableModifier Modifier() const { return FModifier; }
  void SetModifier(TJXSetVariableModifier value);
  bool ApplyToExisting() const { return FApplyToExisting; }
  void SetApplyToExisting(bool value) { FApplyToExisting = value; }
  TJXSetVariableForceType ForceType() const { return FForceType; }
  void SetForceType(TJXSetVariableForceType value) { FForceType = value; }

 protected:
  std::string FNewValue;
  std::string FVariableName;
  TJXSetVariableModifier FModifier = smNone;
  bool FApplyToExisting = false;
  TJXSetVariableForceType FForceType = ftDefault;
  bool FExpandNewValue = true;  // not published; nothing turns it off

 private:
  std::string SourceText();
  std::string ApplyModifier(const std::string& text);
  std::string Encrypted(const std::string& text);
  std::string Decrypted(const std::string& text);
  Variant TypedValue(const std::string& text) const;
};

class TSetVariableAction : public TCustomSetVariableAction {
 public:
  static const TJXClassInfo& ClassInfo();
  const TJXClassInfo& GetClassInfo() const override { return ClassInfo(); }
};

}  // namespace jx
