#include "actions/files/bactions2.h"

#include "platform/attributes.h"
#include "platform/fileops.h"
#include "platform/findfile.h"
#include "platform/lasterror.h"
#include "rtl/paths.h"
#include "rtl/strutils.h"

namespace jx {

namespace {

// Logs the two failure lines for `name` (a file, or the file pattern whose search
// failed) and returns false.
bool LogFailure(TStrings& log, const std::string& name, uint32_t error) {
  log.Add(" --> Error Deleting File : " + name);
  log.Add(" --> " + SysErrorMessage(error));
  return false;
}

}  // namespace

// The file spec is stored through the host's description-key round trip.
// The key index is 1 although the action has one key only.
void TCustomDeleteFilesAction::SetFileSpec(const std::string& value) { UpdateKeyValue(1, FFileSpec, value); }

std::string TCustomDeleteFilesAction::GetDescriptionKeyValue(int) const { return FFileSpec; }

void TCustomDeleteFilesAction::SetDescriptionKeyValue(int, const std::string& value) { FFileSpec = value; }

bool TCustomDeleteFilesAction::Validate(IJXActionValidationError& errors) {
  if (FFileSpec.empty()) {
    errors.AddError("File Spec", "The file spec has not been set");
    return false;
  }
  return true;
}

void TCustomDeleteFilesAction::GetPropertyHelp(TStrings& list) const {
  TJXAction::GetPropertyHelp(list);
  list.Add("FileSpec=File Specification, can include wilde cards (* or ?)");
  list.Add("DeleteReadOnly=Delete Read Only Files");
  list.Add("DeleteHidden=Delete Hidden Files");
  list.Add("FailIfNoFile=Fail if no file to Delete");
}

void TCustomDeleteFilesAction::GetPropertyAlias(TStrings& list) const {
  TJXAction::GetPropertyAlias(list);
  list.Add("[Files]");
  list.Add("FileSpec=File Specification");
  list.Add("DeleteReadOnly=Delete Read Only Files");
  list.Add("DeleteHidden=Delete Hidden Files");
  list.Add("FailIfNoFile=Fail If No File");
}

std::string TCustomDeleteFilesAction::GetQuickHelpFilename() const { return "Plugins\\DeleteFiles.html"; }

int TCustomDeleteFilesAction::GetHelpTopicID() const { return 550; }

std::string TCustomDeleteFilesAction::GetActionName() const { return "Delete File(s)"; }

bool TCustomDeleteFilesAction::Execute() {
  FFilesAffected = 0;
  std::string spec;
  if (!ExpandOrLog(FFileSpec, spec, {"Unable to Delete file : "}, "--> ")) return false;
  spec = Trim(spec);
  if (spec.empty()) return !FFailIfNoFile;

  IJXActionLogMessagePtr block = CreateStatusMessage();
  TStrings& log = block->GetLines();
  log.Add("Deleting files : " + spec);
  int32_t deleted = 0;
  bool result = DeleteMatches(spec, log, deleted);
  FFilesAffected = deleted;
  if (deleted == 0 && FFailIfNoFile) result = false;
  log.Add(IntToStr(deleted) + " Files Deleted.");
  SendStatusMessage(block);
  return result;
}

// Deletes every match of `spec` in the order the search returns them; stops at
// the first file that cannot be deleted, or at a search that fails.
bool TCustomDeleteFilesAction::DeleteMatches(const std::string& spec, TStrings& log, int32_t& deleted) {
  const std::string dir = ExtractFilePath(spec);
  TFindMatches matches(spec, faReadOnly | faHidden, TFindDetail::Kind);
  for (const TSearchRec& rec : matches) {
    const std::string file_name = JoinPath(dir, rec.Name);
    const TDeleteOutcome outcome = DeleteOne(file_name);
    if (outcome == TDeleteOutcome::Failed) return LogFailure(log, file_name, GetLastError());
    if (outcome == TDeleteOutcome::Deleted) ++deleted;
  }
  return matches.Error() == 0 || LogFailure(log, spec, matches.Error());
}

// Clears the attributes the options allow, then deletes. A delete that claims
// success while the file is still there is a failure; one that fails without
// an error code is passed over, uncounted.
TCustomDeleteFilesAction::TDeleteOutcome TCustomDeleteFilesAction::DeleteOne(const std::string& file_name) {
  if (FDeleteReadOnly || FDeleteHidden) {
    uint32_t attr = FileGetAttr(file_name);
    if (attr != kInvalidFileAttributes) {
      if (FDeleteReadOnly && (attr & faReadOnly)) attr &= ~faReadOnly;
      if (FDeleteHidden && (attr & faHidden)) attr &= ~faHidden;
      FileSetAttr(file_name, attr);
    }
  }
  if (RemoveFile(file_name)) {
    if (kRemovedNameMayLinger && FileExists(file_name)) return TDeleteOutcome::Failed;
    SetLastError(0);
    return TDeleteOutcome::Deleted;
  }
  return GetLastError() != 0 ? TDeleteOutcome::Failed : TDeleteOutcome::Skipped;
}

const TJXClassInfo& TDeleteFilesAction::ClassInfo() {
  using C = TDeleteFilesAction;
  static const TJXClassInfo info = MakeClassInfo<C>(
      "TDeleteFilesAction", TPublished<C>()
                                .String("FileSpec", &C::FileSpec, &C::SetFileSpec)
                                .WordBool("DeleteReadOnly", &C::DeleteReadOnly, &C::SetDeleteReadOnly)
                                .WordBool("DeleteHidden", &C::DeleteHidden, &C::SetDeleteHidden)
                                .WordBool("FailIfNoFile", &C::FailIfNoFile, &C::SetFailIfNoFile)
                                .Build());
  return info;
}

}  // namespace jx
