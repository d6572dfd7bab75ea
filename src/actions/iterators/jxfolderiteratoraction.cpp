#include "actions/iterators/jxfolderiteratoraction.h"

#include <exception>

#include "platform/attributes.h"
#include "platform/findfile.h"
#include "rtl/paths.h"
#include "rtl/strutils.h"

namespace jx {

TCustomFolderIterator::TCustomFolderIterator() {
  FRecurse = false;
  FIncludeFolderPath = true;
}

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
  if (FStartingFolder.empty()) {
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

void TCustomFolderIterator::ResetBuildStatus() {
  TWhileAction::ResetBuildStatus();
  Reset();
}

void TCustomFolderIterator::Reset() { FState.Reset(); }

void TCustomFolderIterator::GetNextActionSource(int state, int& next) { FState.NextActionSource(state, next); }

// Runs before every pass: the first pass of a loop lists the folders, each
// pass sets the variable to its folder.
bool TCustomFolderIterator::Execute() {
  if (FVariableName.empty()) {
    SendMessage("Variable Name not set");
    return false;
  }
  const bool result = TWhileAction::Execute();
  if (!result) return false;
  if (!FState.Populated) {
    // A folder that does not expand has been reported by the host; the pass
    // still succeeds, so the children run once with the variable as it was.
    std::string folder;
    if (!TryExpandExpression("Starting Folder", FStartingFolder, folder, true)) return result;
    if (!Populate(folder)) return false;
  }
  if (FState.HasCurrent() && !FState.StoreCurrent(*this, FVariableName)) return false;
  return result;
}

bool TCustomFolderIterator::Populate(const std::string& folder) {
  SendMessage("Searching for Folders...");
  FState.Items.Clear();
  try {
    PopulateFolderList(folder);
  } catch (const std::exception& e) {
    SendMessage(std::string("Error while searching for folders : ") + e.what());
    return false;
  }
  SendMessage("Found " + IntToStr(FState.Items.Count()) + " Folders");
  SendMessage(FState.Items.GetText());
  FState.MarkPopulated();
  return true;
}

// Each folder is followed at once by the folders below it (with Recurse),
// before its next sibling. Hidden and system folders are not listed.
void TCustomFolderIterator::PopulateFolderList(const std::string& folder) {
  const std::string base = IncludeTrailingPathDelimiter(folder);
  TSearchRec rec;
  if (FindFirst(base + "*.*", faDirectory, rec, TFindDetail::Kind) != 0) return;
  do {
    if ((rec.Attr & faDirectory) && rec.Name != "." && rec.Name != "..") {
      FState.Items.Add(FIncludeFolderPath ? base + rec.Name : rec.Name);
      if (FRecurse) PopulateFolderList(base + rec.Name + PathDelim);
    }
  } while (FindNext(rec) == 0);
  FindClose(rec);
}

const TJXClassInfo& TFolderIterator::ClassInfo() {
  using C = TFolderIterator;
  static const TJXClassInfo info = MakeClassInfo<C>(
      "TFolderIterator", TPublished<C>()
                             .WideString("VariableName", &C::VariableName, &C::SetVariableName)
                             .WideString("StartingFolder", &C::StartingFolder, &C::SetStartingFolder)
                             .Boolean("Recurse", &C::Recurse, &C::SetRecurse)
                             .Boolean("IncludeFolderPath", &C::IncludeFolderPath, &C::SetIncludeFolderPath)
                             .IntegerResult("FolderCount", &C::FolderCount)
                             .NotStored()
                             .IntegerResult("FolderIndex", &C::FolderIndex)
                             .NotStored()
                             .Build());
  return info;
}

}  // namespace jx
