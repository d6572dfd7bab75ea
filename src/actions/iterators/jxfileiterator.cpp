#include "actions/iterators/jxfileiterator.h"

#include <exception>
#include <vector>

#include "platform/attributes.h"
#include "platform/findfile.h"
#include "rtl/paths.h"
#include "rtl/strutils.h"

namespace jx {

void TCustomFileIterator::SetVariableName(const std::string& value) {
  if (value != FVariableName) FVariableName = value;
}

void TCustomFileIterator::SetFileSpec(const std::string& value) {
  if (value != FFileSpec) FFileSpec = value;
}

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
  if (FFileSpec.empty()) {
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
  return FVariableName.empty() ? "Variable Name not set" : "";
}

TIteratorAction::TListResult TCustomFileIterator::BuildList(TStrings& items) {
  std::string spec;
  try {
    spec = ExpandExpression(FFileSpec, true);
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

void TCustomFileIterator::StoreItem(const std::string& item) { SetVariable(FVariableName, Variant(item)); }

// The files of the file spec's directory in the order the file system
// gives them, then, depth first, those of each subdirectory.
void TCustomFileIterator::PopulateFileList(const std::string& spec, TStrings& list) {
  if (FRecurse) {
    AddFilesOfTree(spec, list);
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
  TSearchRec rec;
  if (FindFirst(spec, faReadOnly | faArchive, rec, TFindDetail::Kind) != 0) return;
  do {
    AddFile(dir, rec.Name, list);
  } while (FindNext(rec) == 0);
  FindClose(rec);
}

// Each directory is read once, for its matching files and its subdirectories
// alike: examining an entry's attributes is what a search costs, and a search
// for the files followed by one for the subdirectories would examine every
// file twice. Hidden and system directories are not entered.
void TCustomFileIterator::AddFilesOfTree(const std::string& spec, TStrings& list) {
  const std::string dir = ExtractFilePath(spec);
  const std::string mask = ExtractFileName(spec);
  std::vector<std::string> subdirs;
  TSearchRec rec;
  if (FindFirst(dir + "*.*", faDirectory | faReadOnly | faArchive, rec, TFindDetail::Kind) == 0) {
    do {
      if (!(rec.Attr & faDirectory)) {
        if (MatchesMask(rec.Name, mask)) AddFile(dir, rec.Name, list);
      } else if (rec.Name != "." && rec.Name != "..") {
        subdirs.push_back(rec.Name);
      }
    } while (FindNext(rec) == 0);
    FindClose(rec);
  }
  for (const std::string& name : subdirs) {
    if (!FRecurse) break;
    AddFilesOfTree(dir + name + PathDelim + mask, list);
  }
}

const TJXClassInfo& TFileIterator::ClassInfo() {
  using C = TFileIterator;
  static const TJXClassInfo info = MakeClassInfo<C>(
      "TFileIterator", TPublished<C>()
                           .WideString("VariableName", &C::VariableName, &C::SetVariableName)
                           .WideString("FileSpec", &C::FileSpec, &C::SetFileSpec)
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
