#include "actions/files/jxrenamedirectoryaction.h"

#include "framework/jxhostutils.h"
#include "platform/copymove.h"
#include "platform/fileops.h"
#include "platform/lasterror.h"
#include "rtl/paths.h"

namespace jx {

std::string TCustomRenameDirAction::GetActionName() const { return "Rename File or Directory"; }

std::string TCustomRenameDirAction::GetQuickHelpFilename() const { return "Plugins\\RenameDirectory.html"; }

int TCustomRenameDirAction::GetHelpTopicID() const { return 2460; }

bool TCustomRenameDirAction::Validate(IJXActionValidationError& errors) {
  bool valid = true;
  if (FRenameDir && FSourceDirectory.empty()) {
    errors.AddError("Directory", "The existing directory has not been set");
    valid = false;
  }
  if (!FRenameDir && FSourceFile.empty()) {
    errors.AddError("File", "The existing file name has not been set");
    valid = false;
  }
  if (FNewDirName.empty()) {
    errors.AddError("New name", "The new name of the directory or file has not been set");
    valid = false;
  }
  return valid;
}

// The host reports an expansion that fails or comes out empty (an empty new
// name would rename the source onto its own parent); the action ends there.
bool TCustomRenameDirAction::Execute() {
  std::string source;
  if (!ExpandSource(source)) return false;
  std::string new_name;
  if (!TryExpandExpression("New Name", FNewDirName, new_name, true)) return false;
  // Only '\' and ':' are looked for; a '/' passes.
  if (new_name.find_first_of("\\:") != std::string::npos) {
    SendMessage("Error: New name contains illegal characters");
    SendMessage("Make sure new name does not contain path or drive information");
    return false;
  }
  if (!MoveFileTo(source, NewPath(source, new_name))) {
    SendMessage("Rename failed: " + SysErrorMessage(GetLastError()));
    return false;
  }
  SendMessage(FRenameDir ? "Directory renamed" : "File renamed");
  return true;
}

bool TCustomRenameDirAction::ExpandSource(std::string& source) {
  if (FRenameDir) {
    if (!TryExpandExpression("Directory Name", FSourceDirectory, source, true)) return false;
    if (DirectoryExists(source)) return true;
    SendMessage("Directory doesn't exist");
    return false;
  }
  if (!TryExpandExpression("File Name", FSourceFile, source, true)) return false;
  if (FileExists(source)) return true;
  SendMessage("File doesn't exist");
  return false;
}

std::string TCustomRenameDirAction::NewPath(const std::string& source, const std::string& new_name) const {
  return JoinPath(FRenameDir ? GetParentDir(source) : ExtractFilePath(source), new_name);
}

const TJXClassInfo& TRenameDirAction::ClassInfo() {
  using C = TRenameDirAction;
  static const TJXClassInfo info = MakeClassInfo<C>(
      "TRenameDirAction", TPublished<C>()
                              .Boolean("RenameDir", &C::RenameDir, &C::SetRenameDir)
                              .String("SourceDirectory", &C::SourceDirectory, &C::SetSourceDirectory)
                              .String("SourceFile", &C::SourceFile, &C::SetSourceFile)
                              .String("NewDirName", &C::NewDirName, &C::SetNewDirName)
                              .Build());
  return info;
}

}  // namespace jx
