#include "framework/jx30filereg.h"

#include <string>
#include <utility>

#include "actions/files/bactions1.h"
#include "actions/files/bactions2.h"
#include "actions/files/jxcopymove.h"
#include "actions/files/jxfileattrib.h"
#include "actions/files/jxmovedirectoryaction.h"
#include "actions/files/jxrenamedirectoryaction.h"
#include "actions/files/jxtouchfile.h"
#include "actions/interactive/jxdatetimeaction.h"
#include "actions/iterators/jxfileiterator.h"
#include "actions/iterators/jxfolderiteratoraction.h"
#include "framework/jxeditors.h"
#include "framework/jxpages.h"
#include "framework/jxregistryreg.h"

namespace jx {

IJXActionServices* JXActionServices = nullptr;
IJXScriptingServices* JXScriptingServices = nullptr;
IJXOptionsServices* JXOptionsServices = nullptr;

namespace {

constexpr const char* kFilesAndDirectories = "Files & Directories";

// The script method "Reset" of every iterator.
void ResetIterator(TCustomJXAction& action) { dynamic_cast<TIteratorAction&>(action).Reset(); }

// Rows 1-22 of the palette; each action type joins at its place as it is built.
const std::vector<TCatalogueRow>& RowsBeforeRegistry() {
  static const std::vector<TCatalogueRow> rows = {
      {&TFileExistsAction::ClassInfo, "Check if File Exists", kFilesAndDirectories, "HCHECKFILE", {"TCheckFileFrame"}, {}},
      {&TCreateDirectoryAction::ClassInfo, "Create Directory", kFilesAndDirectories, "HCREATE_DIR", {"TCreateDirectoryFrame"}, {}},
      {&TDeleteDirectoryAction::ClassInfo, "Delete Directory", kFilesAndDirectories, "HDELETE_DIR", {"TDeleteDirFrame"}, {}},
      {&TJXMoveDirectoryAction::ClassInfo, "Move Directory", kFilesAndDirectories, "HMOVEDIR", {"TMoveDirectoryFrame"}, {}},
      {&TSetVariableAction::ClassInfo, "Set Variable", "Misc", "HSETVARIABLE", {"TSetVariableFrame"}, {}},
      {&TDeleteFilesAction::ClassInfo, "Delete File(s)", kFilesAndDirectories, "HDELETE_FILE", {"TDeleteFilesFrame"}, {}},
      {&TCopyFilesAction::ClassInfo, "Copy File(s)", kFilesAndDirectories, "HCOPYFILES", {"TCopyFrame"}, {}},
      {&TMoveFilesAction::ClassInfo, "Move File(s)", kFilesAndDirectories, "HMOVEFILES", {"TMoveFrame"}, {}},
      {&TSetFileAttributesAction::ClassInfo, "Set File Attributes", kFilesAndDirectories, "HSETFILEATTRIB",
       {"TFileAttributeFrame"}, {}},
      {&TFileIterator::ClassInfo, nullptr, "Iterators", "HFILEITERATOR", {"TFileIteratorFrame"},
       &ResetIterator},
      {&TFolderIterator::ClassInfo, nullptr, "Iterators", "FOLDERITERATOR", {"TFolderIteratorFrame"},
       &ResetIterator},
      {&TTouchFilesAction::ClassInfo, "Touch File(s)", kFilesAndDirectories, "HTOUCHFILES", {"TTouchFrame"}, {}},
      // The palette's name differs from the action's own "Get DateTime".
      {&TDateTimeAction::ClassInfo, "Get Date/Time", "Misc", "HDATETIME", {"TGetDateTimeFrame"}, {}},
  };
  return rows;
}

// Rows 26-30: after the registry actions, before the copy-tool options class.
const std::vector<TCatalogueRow>& RowsBeforeOptions() {
  static const std::vector<TCatalogueRow> rows = {
      {&TRenameDirAction::ClassInfo, nullptr, kFilesAndDirectories, "HRENAMEFILE", {"TRenameDirFrame"}, {}},
  };
  return rows;
}

// Rows 31-47.
const std::vector<TCatalogueRow>& RowsAfterOptions() {
  static const std::vector<TCatalogueRow> rows = {};
  return rows;
}

struct TEditorRow {
  TClassRef Class;
  const char* Property;  // "": every property of the type
  TPropertyTypeRef Type;
  const TJXPropertyEditorClass* Editor;
};

// Property editors of the design environment, in registration order.
const std::vector<TEditorRow>& EditorRows() {
  static const std::vector<TEditorRow> rows = {
      {&TFileExistsAction::ClassInfo, "FileOrDirectory", {TPropertyKind::pkWideString, nullptr}, &TFileNameEdit},
      {&TCreateDirectoryAction::ClassInfo, "FileOrDirectory", {TPropertyKind::pkWideString, nullptr}, &TSelectDirectoryEditor},
      {&TDeleteDirectoryAction::ClassInfo, "FileOrDirectory", {TPropertyKind::pkWideString, nullptr}, &TSelectDirectoryEditor},
      {&TDeleteFilesAction::ClassInfo, "FileSpec", {TPropertyKind::pkWideString, nullptr}, &TFileNameEditEx},
      // The action has no Target; the registration is harmless and kept.
      {&TDeleteFilesAction::ClassInfo, "Target", {TPropertyKind::pkWideString, nullptr}, &TFileNameEditEx},
      {&TCopyFilesAction::ClassInfo, "FileSpec", {TPropertyKind::pkWideString, nullptr}, &TFileNameEditEx},
      {&TCopyFilesAction::ClassInfo, "Target", {TPropertyKind::pkWideString, nullptr}, &TFileNameEditEx},
      {&TSetFileAttributesAction::ClassInfo, "FileSpec", {TPropertyKind::pkWideString, nullptr}, &TFileNameEdit},
      {&TSetFileAttributesAction::ClassInfo, "", {TPropertyKind::pkEnumeration, &kAttributeSettingInfo},
       &TFileAttributeEditor},
      {&TTouchFilesAction::ClassInfo, "DateTimeString", {TPropertyKind::pkString, nullptr}, &TTouchFilesDateEditor},
      {&TTouchFilesAction::ClassInfo, "FileSpec", {TPropertyKind::pkWideString, nullptr}, &TFileNameEdit},
  };
  return rows;
}

// One step of the page registration: an action's pages, then the property
// editors registered right after them.
struct TPageStep {
  TPageStep(TClassRef cls, std::vector<TEditorRow> editors_after = {})
      : Class(cls), EditorsAfter(std::move(editors_after)) {}
  TClassRef Class;
  std::vector<TEditorRow> EditorsAfter;
};

// The order in which the design environment gets each action's pages.
const std::vector<TPageStep>& PageOrder() {
  static const std::vector<TPageStep> order = {
      &TFileExistsAction::ClassInfo,
      {&TJXMoveDirectoryAction::ClassInfo,
       {{&TMoveFilesAction::ClassInfo, "FileSpec", {TPropertyKind::pkWideString, nullptr}, &TFileNameEditEx},
        {&TMoveFilesAction::ClassInfo, "Target", {TPropertyKind::pkWideString, nullptr}, &TFileNameEditEx}}},
      &TDeleteDirectoryAction::ClassInfo,
      &TDeleteFilesAction::ClassInfo,
      &TSetFileAttributesAction::ClassInfo,
      &TFileIterator::ClassInfo,
      &TFolderIterator::ClassInfo,
      &TMoveFilesAction::ClassInfo,
      &TTouchFilesAction::ClassInfo,
      &TCopyFilesAction::ClassInfo,
      &TCreateDirectoryAction::ClassInfo,
      &TSetVariableAction::ClassInfo,
      &TRenameDirAction::ClassInfo,
      &TDateTimeAction::ClassInfo,
  };
  return order;
}

void RegisterRows(const std::vector<TCatalogueRow>& rows) {
  for (const TCatalogueRow& row : rows) RegisterCatalogueRow(row);
}

const TCatalogueRow* FindRow(const TJXClassInfo& cls) {
  for (const TCatalogueRow* row : CatalogueRows()) {
    if (&row->Class() == &cls) return row;
  }
  return nullptr;
}

void RegisterEditors(const std::vector<TEditorRow>& rows) {
  for (const TEditorRow& row : rows) {
    JXActionServices->RegisterPropertyEditor(row.Type, &row.Class(), row.Property, *row.Editor);
  }
}

void RegisterPagesOf(const TJXClassInfo& cls) {
  std::vector<const TJXPageClass*> pages;
  for (const char* page_name : FindRow(cls)->Pages) pages.push_back(FindPageClass(page_name));
  JXActionServices->RegisterPropertyPages(&cls, pages);
}

void RegisterPages() {
  for (const TPageStep& step : PageOrder()) {
    RegisterPagesOf(step.Class());
    RegisterEditors(step.EditorsAfter);
  }
}

}  // namespace

void RegisterCatalogueRow(const TCatalogueRow& row) {
  const TJXClassInfo& cls = row.Class();
  std::string name = row.DisplayName ? row.DisplayName : cls.ActionName();
  JXActionServices->RegisterAction(name, row.Category, &cls, row.Icon);
  if (row.ResetMethod) JXScriptingServices->RegisterScriptMethod(&cls, "Reset", {}, row.ResetMethod);
}

std::vector<const TCatalogueRow*> CatalogueRows() {
  std::vector<const TCatalogueRow*> rows;
  for (const auto* table : {&RowsBeforeRegistry(), &RegistryCatalogueRows(), &RowsBeforeOptions(), &RowsAfterOptions()}) {
    for (const TCatalogueRow& row : *table) rows.push_back(&row);
  }
  return rows;
}

void JXRegister(bool design) {
  RegisterRows(RowsBeforeRegistry());
  RegisterActions(design);
  RegisterRows(RowsBeforeOptions());
  // The copy-tool options class registers here when it is built.
  RegisterRows(RowsAfterOptions());
  if (!design) return;
  RegisterEditors(EditorRows());
  RegisterPages();
}

}  // namespace jx
