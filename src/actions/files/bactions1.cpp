#include "actions/files/bactions1.h"

#include "framework/jxhostutils.h"
#include "platform/attributes.h"
#include "platform/directories.h"
#include "platform/fileidentity.h"
#include "platform/fileops.h"
#include "platform/findfile.h"
#include "platform/lasterror.h"
#include "rtl/paths.h"
#include "rtl/strutils.h"

namespace jx {

// ---- TFileOrDirectoryAction ----

void TFileOrDirectoryAction::SetFileOrDirectory(const std::string& value) {
  UpdateKeyValue(0, FFileOrDirectory, value);
}

std::string TFileOrDirectoryAction::GetDescriptionKeyValue(int) const { return FFileOrDirectory; }

void TFileOrDirectoryAction::SetDescriptionKeyValue(int, const std::string& value) { FFileOrDirectory = value; }

void TFileOrDirectoryAction::GetPropertyHelp(TStrings& list) const {
  TJXAction::GetPropertyHelp(list);
  list.Add("Force=Use Force Directories to create a directory and all parent directories that do not already exist.");
}

namespace {

// A relative path read from the current directory, so that it still names
// the same directory if the delete moves to the root.
std::string FromCurrentDir(const std::string& path) {
  if (!ExtractFileDrive(path).empty() || IsPathDelimiter(path, 0)) return path;
  return JoinPath(GetCurrentDir(), path);
}

// Whether `dir` is `target` or lies somewhere below it.
bool LiesWithin(std::string dir, const std::string& target) {
  for (;;) {
    if (IsSameFile(dir, target)) return true;
    std::string parent = GetParentDir(dir);
    if (parent.empty() || parent == dir) return false;
    dir = std::move(parent);
  }
}

// Both directory actions publish the common base's two properties first.
template <class C>
TPublished<C> FileOrDirectoryProperties() {
  TPublished<C> published;
  published.WideString("FileOrDirectory", &C::FileOrDirectory, &C::SetFileOrDirectory)
      .Boolean("Force", &C::Force, &C::SetForce);
  return published;
}

}  // namespace

// ---- TCreateDirectoryAction ----

bool TCreateDirectoryAction::Validate(IJXActionValidationError& errors) {
  if (FFileOrDirectory.empty()) {
    errors.AddError("Directory", "The directory to create has not been set");
    return false;
  }
  return true;
}

void TCreateDirectoryAction::GetPropertyHelp(TStrings& list) const {
  TFileOrDirectoryAction::GetPropertyHelp(list);
  list.Add("FileOrDirectory=The Directory to Create.");
}

void TCreateDirectoryAction::GetPropertyAlias(TStrings& list) const {
  TFileOrDirectoryAction::GetPropertyAlias(list);
  list.Add("FileOrDirectory=Directory");
}

std::string TCreateDirectoryAction::GetQuickHelpFilename() const { return "Plugins\\CreateDirectory.html"; }

int TCreateDirectoryAction::GetHelpTopicID() const { return 552; }

std::string TCreateDirectoryAction::GetActionName() const { return "Create Directory"; }

TFileDirFlags TCreateDirectoryAction::GetFlags() const { return SetOf({fdIsDir, fdForce}); }

bool TCreateDirectoryAction::Execute() {
  std::string dir;
  try {
    dir = Trim(ExpandExpression(FFileOrDirectory, true));
    if (dir.empty()) return true;
    const bool result = DirectoryExists(dir) || MakeDir(dir);
    SendStatusLines({(result ? "Created directory : " : "Unable to Create directory : ") + dir});
    return result;
  } catch (const std::exception& e) {
    SendStatusLines({"Unable to Create directory : " + dir, e.what()});
    return false;
  }
}

bool TCreateDirectoryAction::MakeDir(const std::string& dir) const {
  return FForce ? ForceDirectories(dir) : CreateDir(dir);
}

const TJXClassInfo& TCreateDirectoryAction::ClassInfo() {
  using C = TCreateDirectoryAction;
  static const TJXClassInfo info = MakeClassInfo<C>("TCreateDirectoryAction", FileOrDirectoryProperties<C>().Build());
  return info;
}

// ---- TDeleteDirectoryAction ----

bool TDeleteDirectoryAction::Validate(IJXActionValidationError& errors) {
  if (FFileOrDirectory.empty()) {
    errors.AddError("Directory", "The directory to delete has not been set");
    return false;
  }
  return true;
}

void TDeleteDirectoryAction::GetHiddenProperties(TStrings& list) const {
  TFileOrDirectoryAction::GetHiddenProperties(list);
  list.Add("Force");
}

void TDeleteDirectoryAction::GetPropertyHelp(TStrings& list) const {
  TFileOrDirectoryAction::GetPropertyHelp(list);
  list.Add("FileOrDirectory=The Directory to delete");
  list.Add("DeleteTree=Set this if the directory is not empty");
  list.Add("DeleteReadOnly=Delete Read Only Files, only has any affect when Delete Tree is True");
  list.Add("DeleteHidden=Delete Hidden Directories");
}

void TDeleteDirectoryAction::GetPropertyAlias(TStrings& list) const {
  TFileOrDirectoryAction::GetPropertyAlias(list);
  list.Add("FileOrDirectory=Directory");
  list.Add("DeleteTree=Delete Tree");
  list.Add("DeleteReadOnly=Delete Read Only Directories");
  list.Add("DeleteHidden=Delete Hidden Directories");
}

std::string TDeleteDirectoryAction::GetQuickHelpFilename() const { return "Plugins\\DeleteDirectory.html"; }

int TDeleteDirectoryAction::GetHelpTopicID() const { return 553; }

std::string TDeleteDirectoryAction::GetActionName() const { return "Delete Directory"; }

// The delete page shows no DeleteTree box although the action has one.
TFileDirFlags TDeleteDirectoryAction::GetFlags() const { return SetOf({fdIsDir}); }

// A directory that is not there counts as deleted. Every failure, expansion
// included, is logged as one block with the error's text.
bool TDeleteDirectoryAction::Execute() {
  std::string dir;
  try {
    dir = ExpandExpression(FFileOrDirectory, true);
    if (!DirectoryExists(dir)) return true;
    const std::string target = FromCurrentDir(dir);
    // The process must not stand inside the tree it removes; anywhere else it
    // stays, so relative paths of later actions keep their meaning.
    if (LiesWithin(GetCurrentDir(), target)) SetCurrentDir(ExtractFileDrive(target) + PathDelim);
    ClearDirectoryAttributes(target);
    if (!DeleteDir(target)) RaiseLastOSError();
    return true;
  } catch (const std::exception& e) {
    SendStatusLines({"Unable to Delete Directory : " + dir, e.what()});
    return false;
  }
}

void TDeleteDirectoryAction::ClearDirectoryAttributes(const std::string& dir) const {
  if (!FDeleteReadOnly && !FDeleteHidden) return;
  uint32_t attr = FileGetAttr(dir);
  if (attr == kInvalidFileAttributes) return;
  if (FDeleteReadOnly && (attr & faReadOnly)) attr &= ~faReadOnly;
  if (FDeleteHidden && (attr & faHidden)) attr &= ~faHidden;
  FileSetAttr(dir, attr);
}

bool TDeleteDirectoryAction::DeleteDir(const std::string& dir) const {
  return FDeleteTree ? RemoveTree(dir) : RemoveDir(dir);
}

// A linked directory goes as a link: what it points to lies outside the tree.
bool TDeleteDirectoryAction::RemoveTree(const std::string& dir) const {
  return (IsDirectoryLink(dir) || DelTree(JoinPath(dir, "*.*"))) && RemoveDir(dir);
}

// Deletes everything that `mask` finds, depth first, and stops at the first
// entry that cannot go (or a search that fails), with its error as the last
// error; what was deleted before stays deleted.
bool TDeleteDirectoryAction::DelTree(const std::string& mask) const {
  const std::string dir = ExtractFilePath(mask);
  TFindMatches matches(mask, faAnyFile, TFindDetail::Kind);
  for (const TSearchRec& rec : matches) {
    const std::string path = JoinPath(dir, rec.Name);
    if (rec.Attr & faDirectory) {
      if (!RemoveTree(path)) return false;
      continue;
    }
    if (FDeleteReadOnly) FileSetAttr(path, faNormal);
    if (!RemoveFile(path)) return false;
  }
  if (matches.Error() == 0) return true;
  SetLastError(static_cast<uint32_t>(matches.Error()));
  return false;
}

const TJXClassInfo& TDeleteDirectoryAction::ClassInfo() {
  using C = TDeleteDirectoryAction;
  static const TJXClassInfo info = MakeClassInfo<C>(
      "TDeleteDirectoryAction", FileOrDirectoryProperties<C>()
                                    .WordBool("DeleteTree", &C::DeleteTree, &C::SetDeleteTree)
                                    .WordBool("DeleteReadOnly", &C::DeleteReadOnly, &C::SetDeleteReadOnly)
                                    .WordBool("DeleteHidden", &C::DeleteHidden, &C::SetDeleteHidden)
                                    .Build());
  return info;
}

// ---- TFileExistsAction ----

const TEnumTypeInfo kFileExistsModeInfo =
    EnumTypeInfo<feIgnore>("TFileExistsMode", {"feFailIfExists", "feFailIfMissing", "feIgnore"});

// The programmatic name is the caption here, unlike the other actions.
bool TFileExistsAction::Validate(IJXActionValidationError& errors) {
  if (FFileOrDirectory.empty()) {
    errors.AddError("FileOrDirectory", "Field is empty!");
    return false;
  }
  return true;
}

void TFileExistsAction::GetHiddenProperties(TStrings& list) const {
  TJXAction::GetHiddenProperties(list);
  list.Add("FailIfExists");
}

void TFileExistsAction::GetPropertyHelp(TStrings& list) const {
  TJXAction::GetPropertyHelp(list);
  list.Add("FileOrDirectory=The File or Directory to check for, wildcards may not be used!");
}

void TFileExistsAction::GetPropertyAlias(TStrings& list) const {
  TJXAction::GetPropertyAlias(list);
  list.Add("FileOrDirectory=File or Directory");
}

std::string TFileExistsAction::GetQuickHelpFilename() const { return "Plugins\\CheckFileExists.html"; }

int TFileExistsAction::GetHelpTopicID() const { return 551; }

std::string TFileExistsAction::GetActionName() const { return "Check if File Exists"; }

// An error on the way (an expansion that fails) is a failure without a message.
bool TFileExistsAction::Execute() {
  try {
    const bool exists = Exists(ExpandExpression(FFileOrDirectory, true));
    if (!FVariable.empty()) TJXAction::SetVariable(FVariable, exists);
    SendMessage(exists ? "File or Folder Exists" : "File or Folder is missing");
    switch (FExistsMode) {
      case feFailIfExists: return !exists;
      case feFailIfMissing: return exists;
      case feIgnore: return true;
    }
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

bool TFileExistsAction::Exists(const std::string& path) const { return FileExists(path) || DirectoryExists(path); }

const TJXClassInfo& TFileExistsAction::ClassInfo() {
  using C = TFileExistsAction;
  static const TJXClassInfo info = MakeClassInfo<C>(
      "TFileExistsAction", TPublished<C>()
                               .WideString("FileOrDirectory", &C::FileOrDirectory, &C::SetFileOrDirectory)
                               .Enumeration("ExistsMode", kFileExistsModeInfo, &C::ExistsMode, &C::SetExistsMode)
                               .String("Variable", &C::Variable, &C::SetVariable)
                               .BooleanWriteOnly("FailIfExists", &C::SetFailIfExists)
                               .Build());
  return info;
}

}  // namespace jx
