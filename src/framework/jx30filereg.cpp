#include "framework/jx30filereg.h"

#include <string>

#include "actions/files/bactions2.h"
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

// Rows 1-22 of the palette; each action type joins at its place as it is built.
const std::vector<TCatalogueRow>& RowsBeforeRegistry() {
  static const std::vector<TCatalogueRow> rows = {
      {&TDeleteFilesAction::ClassInfo, "Delete File(s)", kFilesAndDirectories, "HDELETE_FILE", {"TDeleteFilesFrame"}, {}},
      {&TFileIterator::ClassInfo, nullptr, "Iterators", "HFILEITERATOR", {"TFileIteratorFrame"},
       [](TCustomJXAction& a) { dynamic_cast<TCustomFileIterator&>(a).Reset(); }},
      {&TFolderIterator::ClassInfo, nullptr, "Iterators", "FOLDERITERATOR", {"TFolderIteratorFrame"},
       [](TCustomJXAction& a) { dynamic_cast<TCustomFolderIterator&>(a).Reset(); }},
      // The palette's name differs from the action's own "Get DateTime".
      {&TDateTimeAction::ClassInfo, "Get Date/Time", "Misc", "HDATETIME", {"TGetDateTimeFrame"}, {}},
  };
  return rows;
}

// Rows 26-30: after the registry actions, before the copy-tool options class.
const std::vector<TCatalogueRow>& RowsBeforeOptions() {
  static const std::vector<TCatalogueRow> rows = {};
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
      {&TDeleteFilesAction::ClassInfo, "FileSpec", {TPropertyKind::pkWideString, nullptr}, &TFileNameEditEx},
      // The action has no Target; the registration is harmless and kept.
      {&TDeleteFilesAction::ClassInfo, "Target", {TPropertyKind::pkWideString, nullptr}, &TFileNameEditEx},
  };
  return rows;
}

// The order in which the design environment gets each action's pages.
const std::vector<TClassRef>& PageOrder() {
  static const std::vector<TClassRef> order = {
      &TDeleteFilesAction::ClassInfo,
      &TFileIterator::ClassInfo,
      &TFolderIterator::ClassInfo,
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

void RegisterEditors() {
  for (const TEditorRow& row : EditorRows()) {
    JXActionServices->RegisterPropertyEditor(row.Type, &row.Class(), row.Property, *row.Editor);
  }
}

void RegisterPages() {
  for (TClassRef class_ref : PageOrder()) {
    const TJXClassInfo& cls = class_ref();
    std::vector<const TJXPageClass*> pages;
    for (const char* page_name : FindRow(cls)->Pages) pages.push_back(FindPageClass(page_name));
    JXActionServices->RegisterPropertyPages(&cls, pages);
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
  RegisterEditors();
  RegisterPages();
}

}  // namespace jx
