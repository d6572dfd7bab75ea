#include "actions/files/jxcopymove.h"

#include <vector>

#include "actions/files/filewalk.h"
#include "platform/attributes.h"
#include "platform/copymove.h"
#include "platform/directories.h"
#include "platform/fileidentity.h"
#include "platform/fileops.h"
#include "platform/findfile.h"
#include "platform/lasterror.h"
#include "rtl/paths.h"
#include "rtl/strutils.h"

namespace jx {

namespace {

bool HasReadOnlyBit(uint32_t attr) { return attr != kInvalidFileAttributes && (attr & faReadOnly); }

}  // namespace

// ---- TCustomCopyFilesAction: properties, description, validation ----

// The file spec is stored through the host's description-key round trip.
void TCustomCopyFilesAction::SetFileSpec(const std::string& value) { UpdateKeyValue(0, FFileSpec, value); }

std::string TCustomCopyFilesAction::GetDescriptionKeyValue(int) const { return FFileSpec; }

void TCustomCopyFilesAction::SetDescriptionKeyValue(int, const std::string& value) { FFileSpec = value; }

bool TCustomCopyFilesAction::Validate(IJXActionValidationError& errors) {
  bool valid = true;
  if (FFileSpec.empty()) {
    errors.AddError("File Spec", "The file spec has not been set");
    valid = false;
  }
  if (FTarget.empty()) {
    errors.AddError("Target", "The target file/directory has not been set");
    valid = false;
  }
  return valid;
}

void TCustomCopyFilesAction::GetHiddenProperties(TStrings& list) const {
  TJXAction::GetHiddenProperties(list);
  list.Add("ErrorCount");
}

void TCustomCopyFilesAction::GetPropertyHelp(TStrings& list) const {
  TJXAction::GetPropertyHelp(list);
  list.Add("Force=Use Force Directories to create a directory and all parent directories that do not already exist.");
  list.Add("FileSpec=The file specification of the files to copy. Wildcards (*, ?) may be used");
  list.Add("Target=The Destination File or Directory");
  list.Add("TargetIsDir=Specifies that the Destination Is a Directory");
  list.Add("FailIfExists=Fail if the target file Exists");
  list.Add("OverwriteReadOnly=Overwrite Read Only Files");
  list.Add("Recurse=Resurse Sub Directories");
  list.Add("ClearAttributes=Clear the copied/moved files attribute flags after the copy/move");
}

void TCustomCopyFilesAction::GetPropertyAlias(TStrings& list) const {
  TJXAction::GetPropertyAlias(list);
  list.Add("[Misc]");
  list.Add("Force=Force Directories");
  list.Add("FileSpec=File Specification");
  list.Add("Target=Destination");
  list.Add("TargetIsDir=Destination Is Directory");
  list.Add("FailIfExists=Fail if Exists");
  list.Add("OverwriteReadOnly=Overwrite Read Only");
  list.Add("ClearAttributes=Clear Attributes");
}

// ---- Copy ----

bool TCustomCopyFilesAction::ExpandPaths(const std::string& failure_headline, std::string& spec, std::string& target) {
  if (!ExpandOrLog(FFileSpec, spec, {failure_headline})) return false;
  spec = Trim(spec);
  if (spec.empty() || !ExpandOrLog(FTarget, target, {failure_headline + spec})) return false;
  target = Trim(target);
  return !target.empty();
}

bool TCustomCopyFilesAction::Execute() {
  FFilesAffected = 0;
  std::string spec, target;
  if (!ExpandPaths("Unable to Copy files : ", spec, target)) return false;

  IJXActionLogMessagePtr block = CreateStatusMessage();
  TStrings& log = block->GetLines();
  log.Add("Copying files : " + spec + " -> " + target);
  // The count goes to the log even when an error passes on to the host.
  const auto send_block = [&] {
    log.Add(IntToStr(FFilesAffected) + " Files Copied.");
    SendStatusMessage(block);
  };
  bool result = false;
  try {
    result = DoRecursiveCopyMove(log, spec, FFilesAffected, target);
  } catch (...) {
    send_block();
    throw;
  }
  if (FFailIfZeroFiles && FFilesAffected == 0) result = false;
  send_block();
  return result;
}

bool TCustomCopyFilesAction::DoRecursiveCopyMove(TStrings& log, const std::string& spec, int32_t& count,
                                                 const std::string& destination) {
  // A link back to a directory the walk stands in is not followed again.
  TWalkStep step(walk_path_, ExtractFilePath(spec));
  if (!step.Entered()) return true;
  std::vector<std::string> subdirectories;
  if (!CopyMatches(log, spec, count, destination, subdirectories)) return false;
  const std::string dir = ExtractFilePath(spec);
  const std::string mask = ExtractFileName(spec);
  // A failure inside a subdirectory is logged there but stops neither its
  // siblings nor the copy as a whole.
  for (const std::string& name : subdirectories) {
    DoRecursiveCopyMove(log, JoinPath(JoinPath(dir, name), mask), count, JoinPath(destination, name));
  }
  return true;
}

// Copies the files that match `spec`; a spec without wildcards names one at
// most. Every match goes to the same destination file unless the target is a
// directory. With Recurse the same search also lists the subdirectories to
// walk next, whatever their names.
bool TCustomCopyFilesAction::CopyMatches(TStrings& log, const std::string& spec, int32_t& count,
                                         const std::string& destination, std::vector<std::string>& subdirectories) {
  const std::string dir = ExtractFilePath(spec);
  // Every match of one directory goes into the same destination directory,
  // so Force makes it once, before the first file.
  bool dest_dir_made = false;
  TFindMatches matches(spec, faAnyFile, TFindDetail::Kind, FRecurse ? TFindDirs::AnyName : TFindDirs::MatchingMask);
  for (const TSearchRec& rec : matches) {
    if (rec.Attr & faDirectory) {
      if (FRecurse && IsWalkedInto(rec)) subdirectories.push_back(rec.Name);
      continue;
    }
    const std::string dest = FTargetIsDir ? JoinPath(destination, rec.Name) : destination;
    if (FForce && !dest_dir_made) dest_dir_made = ForceDirectories(ExtractFileDir(dest));
    if (!ProcessFile(log, JoinPath(dir, rec.Name), dest)) return false;
    ++count;
  }
  if (matches.Error() == 0) return true;
  log.Add("Failed to copy File : " + spec + " -> " + destination);
  log.Add("Win32 Error : " + SysErrorMessage(matches.Error()));
  return false;
}

bool TCustomCopyFilesAction::ProcessFile(TStrings& log, const std::string& source, const std::string& dest) {
  const auto fail = [&](const std::string& reason) {
    log.Add("Failed to copy File : " + source + " -> " + dest);
    log.Add(reason);
    return false;
  };
  const auto copied = [&] {
    if (FClearAttributes) FileSetAttr(dest, faNormal);
    return true;
  };
  // A destination that does not exist yet needs none of the checks below, so
  // the copy that creates it comes first; on any failure the steps run in full.
  if (CopyFileTo(source, dest, true)) return copied();
  if (FFailIfExists && FileExists(dest)) return fail("File Already Exists!");
  const uint32_t attr = FileGetAttr(dest);
  if (HasReadOnlyBit(attr)) {
    if (!FOverwriteReadOnly) return fail("File Already Exists and is marked as Read Only");
    FileSetAttr(dest, FClearAttributes ? faNormal : attr - faReadOnly);
  }
  if (!CopyFileTo(source, dest, FFailIfExists)) return fail("Win32 Error : " + SysErrorMessage(GetLastError()));
  return copied();
}

// ---- TCopyFilesAction ----

std::string TCopyFilesAction::GetQuickHelpFilename() const { return "Plugins\\CopyFiles.html"; }

int TCopyFilesAction::GetHelpTopicID() const { return 554; }

std::string TCopyFilesAction::GetActionName() const { return "Copy File(s)"; }

const TJXClassInfo& TCopyFilesAction::ClassInfo() {
  using C = TCopyFilesAction;
  static const TJXClassInfo info = MakeClassInfo<C>(
      "TCopyFilesAction", TPublished<C>()
                              .WideString("FileSpec", &C::FileSpec, &C::SetFileSpec)
                              .WideString("Target", &C::Target, &C::SetTarget)
                              .WordBool("Force", &C::GetForceDir, &C::SetForceDir)
                              .WordBool("TargetIsDir", &C::TargetIsDir, &C::SetTargetIsDir)
                              .WordBool("FailIfExists", &C::FailIfExists, &C::SetFailIfExists)
                              .WordBool("OverwriteReadOnly", &C::OverwriteReadOnly, &C::SetOverwriteReadOnly)
                              .WordBool("Recurse", &C::Recurse, &C::SetRecurse)
                              .WordBool("ClearAttributes", &C::ClearAttributes, &C::SetClearAttributes)
                              .WordBool("FailIfZeroFiles", &C::FailIfZeroFiles, &C::SetFailIfZeroFiles)
                              .IntegerResult("FilesAffected", &C::FilesAffected)
                              .IntegerResult("ErrorCount", &C::ErrorCount)
                              .Build());
  return info;
}

// ---- TMoveFilesAction ----

std::string TMoveFilesAction::GetQuickHelpFilename() const { return "Plugins\\MoveFiles.html"; }

int TMoveFilesAction::GetHelpTopicID() const { return 555; }

std::string TMoveFilesAction::GetActionName() const { return "Move File(s)"; }

bool TMoveFilesAction::Execute() {
  FFilesAffected = 0;
  FErrorCount = 0;
  std::string spec, target;
  if (!ExpandPaths(" --> Unable to Move files : ", spec, target)) return false;

  IJXActionLogMessagePtr block = CreateStatusMessage();
  TStrings& log = block->GetLines();
  log.Add("Moving files : " + spec + " -> " + target);
  const bool result = MoveMatches(log, spec, target);
  log.Add(IntToStr(FFilesAffected) + " Files Moved.");
  SendStatusMessage(block);
  return result;
}

// Moves the files (not directories) of the top directory only. A stop, or a
// search that fails, fails the run; failures that do not stop it only count
// in ErrorCount.
bool TMoveFilesAction::MoveMatches(TStrings& log, const std::string& spec, const std::string& target) {
  const std::string dir = ExtractFilePath(spec);
  TFindMatches matches(spec, faReadOnly | faHidden, TFindDetail::Kind);
  for (const TSearchRec& rec : matches) {
    if (!MoveOne(log, JoinPath(dir, rec.Name), MoveDestination(target, rec.Name))) return false;
  }
  if (matches.Error() != 0) {
    log.Add(" --> Error Moving File : " + spec + " -> " + target);
    log.Add(" --> " + SysErrorMessage(matches.Error()));
    return false;
  }
  return !(FFailIfZeroFiles && FFilesAffected == 0);
}

std::string TMoveFilesAction::MoveDestination(const std::string& target, const std::string& name) {
  if (!FTargetIsDir) return target;
  if (FForce) ForceDirectories(target);
  return JoinPath(target, name);
}

// Moves one file; false when the run must stop.
bool TMoveFilesAction::MoveOne(TStrings& log, const std::string& source, const std::string& dest) {
  const auto log_failure = [&](const std::string& reason) {
    log.Add(" --> Error Moving File : " + source + " -> " + dest);
    log.Add(" --> " + reason);
  };
  const auto moved = [&] {
    if (FClearAttributes) FileSetAttr(dest, faNormal);
    ++FFilesAffected;
    return true;
  };
  // A destination that does not exist yet needs none of the checks below, so
  // the move (which never replaces) comes first; on any failure the steps run
  // in full. On another file system the file is copied there, then deleted.
  if (MoveFileAcrossVolumes(source, dest)) return moved();
  const bool exists = FileExists(dest);
  if (FStopOnAnyErrors && !FileExists(source)) {
    log_failure("Source File Does not exist");
    return false;
  }
  if (FFailIfExists && exists) {
    log_failure("The target File exists and \"Fail if Exists\" is checked");
    return false;
  }
  if (exists && HasReadOnlyBit(FileGetAttr(dest))) {
    if (!FOverwriteReadOnly) {
      log_failure("The target File is marked \"Read Only\"");
      return false;
    }
    FileSetAttr(dest, faNormal);
  }
  // However the two are spelled, a destination that is the source itself is
  // never deleted: the move onto itself then fails, and the file stays.
  if (exists && !IsSameFile(source, dest) && !RemoveFile(dest) && FStopOnAnyErrors) {
    log_failure(SysErrorMessage(GetLastError()));
    return false;
  }
  if (!MoveFileAcrossVolumes(source, dest)) {
    log_failure(SysErrorMessage(GetLastError()));
    ++FErrorCount;
    return !FStopOnAnyErrors;
  }
  return moved();
}

const TJXClassInfo& TMoveFilesAction::ClassInfo() {
  using C = TMoveFilesAction;
  static const TJXClassInfo info = MakeClassInfo<C>(
      "TMoveFilesAction", TPublished<C>()
                              .WideString("FileSpec", &C::FileSpec, &C::SetFileSpec)
                              .WideString("Target", &C::Target, &C::SetTarget)
                              .WordBool("Force", &C::GetForceDir, &C::SetForceDir)
                              .WordBool("TargetIsDir", &C::TargetIsDir, &C::SetTargetIsDir)
                              .WordBool("FailIfExists", &C::FailIfExists, &C::SetFailIfExists)
                              .WordBool("OverwriteReadOnly", &C::OverwriteReadOnly, &C::SetOverwriteReadOnly)
                              .WordBool("ClearAttributes", &C::ClearAttributes, &C::SetClearAttributes)
                              .WordBool("FailIfZeroFiles", &C::FailIfZeroFiles, &C::SetFailIfZeroFiles)
                              .IntegerResult("FilesAffected", &C::FilesAffected)
                              .IntegerResult("ErrorCount", &C::ErrorCount)
                              .Boolean("StopOnAnyErrors", &C::StopOnAnyErrors, &C::SetStopOnAnyErrors)
                              .Build());
  return info;
}

}  // namespace jx
