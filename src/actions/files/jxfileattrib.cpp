#include "actions/files/jxfileattrib.h"

#include <string>
#include <vector>

#include "actions/files/filewalk.h"
#include "platform/attributes.h"
#include "platform/fileidentity.h"
#include "platform/findfile.h"
#include "platform/lasterror.h"
#include "rtl/paths.h"
#include "rtl/strutils.h"

namespace jx {

const TEnumTypeInfo kAttributeSettingInfo =
    EnumTypeInfo<asClear>("TAttributeSetting", {"asNone", "asSet", "asClear"}, std::array{"Don't Touch", "Set", "Clear"});

TAttributeSetting FileAttributeEditorValue(std::string_view text) {
  if (SameText(text, "SET")) return asSet;
  if (SameText(text, "CLEAR")) return asClear;
  return asNone;
}

namespace {

std::string AttributeSettingWord(const TQSXMLObject& object, const TPropertyInfo& property) {
  const int ordinal = kAttributeSettingInfo.OrdinalOf(property.GetText(object));
  return kAttributeSettingInfo.Captions.at(static_cast<size_t>(ordinal));
}

void StoreAttributeSetting(TQSXMLObject& object, const TPropertyInfo& property, std::string_view text) {
  property.SetText(object, kAttributeSettingInfo.NameOf(FileAttributeEditorValue(text)));
}

uint32_t Apply(uint32_t attributes, uint32_t bit, TAttributeSetting setting) {
  if (setting == asSet && (attributes & bit) == 0) return attributes | bit;
  if (setting == asClear && (attributes & bit) != 0) return attributes & ~bit;
  return attributes;
}

}  // namespace

const TJXPropertyEditorClass TFileAttributeEditor{
    "TFileAttributeEditor", "", "", "", &AttributeSettingWord, &StoreAttributeSetting};

std::string TCustomSetFileAttributesAction::GetActionName() const { return "Set File Attributes"; }

std::string TCustomSetFileAttributesAction::GetQuickHelpFilename() const {
  return "Plugins\\SetFileAttributes.html";
}

int TCustomSetFileAttributesAction::GetHelpTopicID() const { return 556; }

bool TCustomSetFileAttributesAction::Validate(IJXActionValidationError& errors) {
  if (FFileSpec.empty()) {
    errors.AddError("File Spec", "The file spec has not been set");
    return false;
  }
  return true;
}

void TCustomSetFileAttributesAction::GetPropertyAlias(TStrings& list) const {
  TJXAction::GetPropertyAlias(list);
  list.Add("[Attributes]");
  list.Add("ReadOnly=Read Only");
  list.Add("SystemFile=System File");
  list.Add("Archive=Archive");
  list.Add("Hidden=Hidden File");
  list.Add("[Behaviour]");
  list.Add("Recurse=Recurse Directories");
  list.Add("LogAllFiles=Log All Files");
}

void TCustomSetFileAttributesAction::GetPropertyHelp(TStrings& list) const {
  TJXAction::GetPropertyHelp(list);
  list.Add("ReadOnly=Determines what to do to the Read Only flag");
  list.Add("SystemFile=Determines what to do to the System File flag");
  list.Add("Archive=Determines what to do to the Archive flag");
  list.Add("Hidden=Determines what to do to the Hidden flag");
  list.Add("Recurse=Recurse Sub Directories");
  list.Add("LogAllFiles=Log All Files processed to the Jaxtor output panel.");
  list.Add("FileSpec=The file specification of the files to process. Wildcards (*, ?) may be used");
}

bool TCustomSetFileAttributesAction::NothingToDo() const {
  return FReadOnly == asNone && FHidden == asNone && FSystemFile == asNone && FArchive == asNone;
}

// One status block holds every line. Per-file failures are logged and do not
// change the result; a search that fails does.
bool TCustomSetFileAttributesAction::Execute() {
  if (NothingToDo()) {
    SendStatusLines({"Nothing to do!"});
    return false;
  }
  std::string spec;
  if (!ExpandOrLog(FFileSpec, spec, {}, "Error processing File Spec : ")) return false;
  if (spec.empty()) {
    SendStatusLines({"Nothing to do!"});
    return false;
  }
  IJXActionLogMessagePtr block = CreateStatusMessage();
  const bool result = DoRecursiveAction(block->GetLines(), spec, FRecurse);
  SendStatusMessage(block);
  return result;
}

bool TCustomSetFileAttributesAction::DoRecursiveAction(TStrings& log, const std::string& spec, bool recurse) {
  const std::string dir = ExtractFilePath(spec);
  // A link back to a directory the walk stands in is not followed again.
  TWalkStep step(walk_path_, dir);
  if (!step.Entered()) return true;
  std::vector<std::string> subdirectories;
  if (!ProcessMatches(log, spec, recurse, subdirectories)) return false;
  bool searched = true;
  for (const std::string& name : subdirectories) {
    searched = DoRecursiveAction(log, JoinPath(JoinPath(dir, name), ExtractFileName(spec)), true) && searched;
  }
  return searched;
}

// The files that match `spec` (a spec without wildcards names one at most);
// with `recurse` the same search lists every subdirectory that is neither
// hidden nor system, whatever its name. False when the search failed (logged).
bool TCustomSetFileAttributesAction::ProcessMatches(TStrings& log, const std::string& spec, bool recurse,
                                                    std::vector<std::string>& subdirectories) {
  const std::string dir = ExtractFilePath(spec);
  TFindMatches matches(spec, faAnyFile, TFindDetail::Full, recurse ? TFindDirs::AnyName : TFindDirs::MatchingMask);
  for (const TSearchRec& rec : matches) {
    if ((rec.Attr & faDirectory) == 0) {
      ProcessFile(log, JoinPath(dir, rec.Name), rec.Attr);
    } else if (recurse && IsWalkedInto(rec)) {
      subdirectories.push_back(rec.Name);
    }
  }
  if (matches.Error() == 0) return true;
  log.Add("Error processing File Spec : " + SysErrorMessage(matches.Error()));
  return false;
}

void TCustomSetFileAttributesAction::ProcessFile(TStrings& log, const std::string& path, uint32_t attributes) {
  attributes = Apply(attributes, faReadOnly, FReadOnly);
  attributes = Apply(attributes, faArchive, FArchive);
  attributes = Apply(attributes, faSysFile, FSystemFile);
  attributes = Apply(attributes, faHidden, FHidden);
  if (!FileSetAttr(path, attributes)) {
    // The line names no file; the log has always read so.
    log.Add("Error Processed File : " + SysErrorMessage(GetLastError()));
  } else if (FLogAllFiles) {
    log.Add("Processed File : " + path);
  }
}

const TJXClassInfo& TSetFileAttributesAction::ClassInfo() {
  using C = TSetFileAttributesAction;
  static const TJXClassInfo info = MakeClassInfo<C>(
      "TSetFileAttributesAction",
      TPublished<C>()
          .WideString("FileSpec", &C::FileSpec, &C::SetFileSpec)
          .WordBool("Recurse", &C::Recurse, &C::SetRecurse)
          .WordBool("LogAllFiles", &C::LogAllFiles, &C::SetLogAllFiles)
          .Enumeration("ReadOnly", kAttributeSettingInfo, &C::ReadOnly, &C::SetReadOnly)
          .Enumeration("Hidden", kAttributeSettingInfo, &C::Hidden, &C::SetHidden)
          .Enumeration("SystemFile", kAttributeSettingInfo, &C::SystemFile, &C::SetSystemFile)
          .Enumeration("Archive", kAttributeSettingInfo, &C::Archive, &C::SetArchive)
          .Build());
  return info;
}

}  // namespace jx
