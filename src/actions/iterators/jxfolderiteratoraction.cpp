#include "actions/iterators/jxfolderiteratoraction.h"

#include <exception>
#include <vector>

#include "platform/attributes.h"
#include "platform/fileidentity.h"
#include "platform/findfile.h"
#include "rtl/paths.h"
#include "rtl/strutils.h"

namespace jx {

// Folders below the first level are only told apart by their path: the two
// options are kept consistent.
void TCustomFolderIterator::SetRecurse(bool value) {
  FRecurse = value;
  if (value) FIncludeFolderPath = true;
}

void TCustomFolderIterator::SetIncludeFolderPath(bool value) {
  FIncludeFolderPath = value;
  if (!value) FRecurse = false;
}

std::string TCustomFolderIterator::GetActionName() const { return "Folder Iterator"; }

std::string TCustomFolderIterator::GetQuickHelpFilename() const { return "Plugins\\FolderIterator.html"; }

int TCustomFolderIterator::GetHelpTopicID() const { return 3210; }

bool TCustomFolderIterator::Validate(IJXActionValidationError& errors) {
  if (StartingFolder.empty()) {
    errors.AddError("Starting Folder", "A starting folder has not been set");
    return false;
  }
  return true;
}

void TCustomFolderIterator::GetHiddenProperties(TStrings& list) const {
  TWhileAction::GetHiddenProperties(list);
  list.Add("FolderIndex");
  list.Add("FolderCount");
}

std::string TCustomFolderIterator::MissingVariableMessage() const {
  return VariableName.empty() ? "Variable Name not set" : "";
}

TIteratorAction::TListResult TCustomFolderIterator::BuildList(TStrings& items) {
  std::string folder;
  if (!TryExpandExpression("Starting Folder", StartingFolder, folder, true)) return TListResult::SkipPass;
  SendMessage("Searching for Folders...");
  try {
    PopulateFolderList(folder, items);
  } catch (const std::exception& e) {
    SendMessage(std::string("Error while searching for folders : ") + e.what());
    return TListResult::Failed;
  }
  SendMessage("Found " + IntToStr(items.Count()) + " Folders");
  SendMessage(items.GetText());
  return TListResult::Built;
}

void TCustomFolderIterator::StoreItem(const std::string& item) { SetVariable(VariableName, Variant(item)); }

void TCustomFolderIterator::PopulateFolderList(const std::string& folder, TStrings& list) {
  TWalkPath walk;
  AddFolders(folder, walk, list);
}

// Each folder is followed at once by the folders below it (with Recurse),
// before its next sibling. Hidden and system folders are not listed; a folder
// the walk already stands in (a link leading back up) is listed but not
// entered again.
void TCustomFolderIterator::AddFolders(const std::string& folder, TWalkPath& walk, TStrings& list) {
  const std::string base = IncludeTrailingPathDelimiter(folder);
  const TWalkStep step(walk, base);
  if (!step.Entered()) return;
  std::vector<std::string> names;
  {
    TFindMatches matches(base + "*.*", faDirectory, TFindDetail::Kind);
    for (const TSearchRec& rec : matches) {
      if (rec.Attr & faDirectory) names.push_back(rec.Name);
    }
    RaiseSearchError(matches);
  }
  for (const std::string& name : names) {
    list.Add(FIncludeFolderPath ? base + name : name);
    if (FRecurse) AddFolders(base + name + PathDelim, walk, list);
  }
}

const TJXClassInfo& TFolderIterator::ClassInfo() {
  using C = TFolderIterator;
  static const TJXClassInfo info = MakeClassInfo<C>(
      "TFolderIterator", TPublished<C>()
                             .WideString("VariableName", &C::VariableName)
                             .WideString("StartingFolder", &C::StartingFolder)
                             .Boolean("Recurse", &C::Recurse, &C::SetRecurse)
                             .Boolean("IncludeFolderPath", &C::IncludeFolderPath, &C::SetIncludeFolderPath)
                             .IntegerResult("FolderCount", &C::ItemCount)
                             .NotStored()
                             .IntegerResult("FolderIndex", &C::ItemIndex)
                             .NotStored()
                             .Build());
  return info;
}

}  // namespace jx
