#include "actions/iterators/jxfileiterator.h"

#include <exception>
#include <vector>

#include "platform/attributes.h"
#include "platform/fileidentity.h"
#include "platform/findfile.h"
#include "rtl/paths.h"
#include "rtl/strutils.h"

namespace jx {

// A recursive search needs the directory of each file, and a bare name
// cannot say where it was found: the two options are kept consistent.
void TCustomFileIterator::SetRecurse(bool value) {
  FRecurse = value;
  if (value) FIncludeFilePath = true;
}

void TCustomFileIterator::SetIncludeFilePath(bool value) {
  FIncludeFilePath = value;
  if (!value) FRecurse = false;
}

std::string TCustomFileIterator::GetActionName() const { return "File Iterator"; }

std::string TCustomFileIterator::GetQuickHelpFilename() const { return "Plugins\\FileIterator.html"; }

int TCustomFileIterator::GetHelpTopicID() const { return 950; }

// An empty VariableName is reported at run time, not here.
bool TCustomFileIterator::Validate(IJXActionValidationError& errors) {
  if (FileSpec.empty()) {
    errors.AddError("File Spec", "File Spec has not been set");
    return false;
  }
  return true;
}

void TCustomFileIterator::GetHiddenProperties(TStrings& list) const {
  TWhileAction::GetHiddenProperties(list);
  list.Add("FileIndex");
  list.Add("FileCount");
}

std::string TCustomFileIterator::MissingVariableMessage() const {
  return VariableName.empty() ? "Variable Name not set" : "";
}

TIteratorAction::TListResult TCustomFileIterator::BuildList(TStrings& items) {
  std::string spec;
  try {
    spec = ExpandExpression(FileSpec, true);
  } catch (const std::exception& e) {
    SendMessage("Error Setting File Spec");
    SendMessage(std::string("--> ") + e.what());
    return TListResult::Failed;
  }
  SendMessage("Searching for Files...");
  try {
    PopulateFileList(spec, items);
  } catch (const std::exception& e) {
    SendMessage(std::string("Error while searching for files : ") + e.what());
    return TListResult::Failed;
  }
  SendMessage("Found " + IntToStr(items.Count()) + " Files.");
  SendMessage(items.GetText());
  return TListResult::Built;
}

void TCustomFileIterator::StoreItem(const std::string& item) { SetVariable(VariableName, Variant(item)); }

// The files of the file spec's directory in the order the file system
// gives them, then, depth first, those of each subdirectory.
void TCustomFileIterator::PopulateFileList(const std::string& spec, TStrings& list) {
  if (FRecurse) {
    TWalkPath walk;
    AddFilesOfTree(spec, walk, list);
  } else {
    AddMatchingFiles(spec, list);
  }
}

void TCustomFileIterator::AddFile(const std::string& dir, const std::string& name, TStrings& list) {
  list.Add(FIncludeFilePath ? dir + name : name);
}

// Normal, read-only and archive files; hidden and system files, directories
// and volume labels stay out.
void TCustomFileIterator::AddMatchingFiles(const std::string& spec, TStrings& list) {
  const std::string dir = ExtractFilePath(spec);
  TFindMatches matches(spec, faReadOnly | faArchive, TFindDetail::Kind);
  for (const TSearchRec& rec : matches) AddFile(dir, rec.Name, list);
  RaiseSearchError(matches);
}

// One search per directory yields its matching files and every subdirectory,
// so a directory is read once, and only names that match and directories are
// examined further. Hidden and system directories are not entered, and
// neither is a directory the walk already stands in (a link leading back up).
void TCustomFileIterator::AddFilesOfTree(const std::string& spec, TWalkPath& walk, TStrings& list) {
  const std::string dir = ExtractFilePath(spec);
  const TWalkStep step(walk, dir);
  if (!step.Entered()) return;
  std::vector<std::string> subdirs;
  {
    TFindMatches matches(spec, faDirectory | faReadOnly | faArchive, TFindDetail::Kind, TFindDirs::AnyName);
    for (const TSearchRec& rec : matches) {
      if (rec.Attr & faDirectory) {
        subdirs.push_back(rec.Name);
      } else {
        AddFile(dir, rec.Name, list);
      }
    }
    RaiseSearchError(matches);
  }
  const std::string mask = ExtractFileName(spec);
  for (const std::string& name : subdirs) {
    if (!FRecurse) break;
    AddFilesOfTree(dir + name + PathDelim + mask, walk, list);
  }
}

const TJXClassInfo& TFileIterator::ClassInfo() {
  using C = TFileIterator;
  static const TJXClassInfo info = MakeClassInfo<C>(
      "TFileIterator", TPublished<C>()
                           .WideString("VariableName", &C::VariableName)
                           .WideString("FileSpec", &C::FileSpec)
                           .Boolean("Recurse", &C::Recurse, &C::SetRecurse)
                           .Boolean("IncludeFilePath", &C::IncludeFilePath, &C::SetIncludeFilePath)
                           .IntegerResult("FileCount", &C::ItemCount)
                           .NotStored()
                           .IntegerResult("FileIndex", &C::ItemIndex)
                           .NotStored()
                           .Build());
  return info;
}

}  // namespace jx
