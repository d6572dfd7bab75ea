#include "framework/jxeditors.h"

#include <gtest/gtest.h>

#include "actions/files/jxtouchfile.h"
#include "platform/localeinfo.h"
#include "rtl/formatdatetime.h"

namespace jx {
namespace {

TEST(FileAttributeEditor, TypedTextRule) {
  EXPECT_EQ(asSet, FileAttributeEditorValue("SET"));
  EXPECT_EQ(asSet, FileAttributeEditorValue("set"));
  EXPECT_EQ(asClear, FileAttributeEditorValue("Clear"));
  EXPECT_EQ(asNone, FileAttributeEditorValue("Don't Touch"));
  EXPECT_EQ(asNone, FileAttributeEditorValue(" Set"));
  EXPECT_EQ(asNone, FileAttributeEditorValue("asSet"));
  EXPECT_EQ(asNone, FileAttributeEditorValue(""));
}

TEST(FileAttributeEditor, ShowsWordsAndStoresTypedText) {
  TSetFileAttributesAction action;
  const TPropertyInfo& archive = *TSetFileAttributesAction::ClassInfo().FindProperty("Archive");
  EXPECT_EQ("Don't Touch", TFileAttributeEditor.GetEditText(action, archive));
  TFileAttributeEditor.SetEditText(action, archive, "clear");
  EXPECT_EQ(asClear, action.Archive());
  EXPECT_EQ("Clear", TFileAttributeEditor.GetEditText(action, archive));
  TFileAttributeEditor.SetEditText(action, archive, "whatever");
  EXPECT_EQ(asNone, action.Archive());
}

TEST(TouchFilesDateEditor, EditsTheDateTimeBehindThePlaceholder) {
  TTouchFilesAction action;
  const TPropertyInfo& placeholder = *TTouchFilesAction::ClassInfo().FindProperty("DateTimeString");
  const TDateTime value = EncodeDateTime(2020, 1, 2, 3, 4, 5, 0);
  const std::string text = FormatDateTime("c", value, LocaleFormatSettings());
  TTouchFilesDateEditor.SetEditText(action, placeholder, text);
  EXPECT_EQ(value, action.DateTime());
  EXPECT_EQ(text, TTouchFilesDateEditor.GetEditText(action, placeholder));
  TTouchFilesDateEditor.SetEditText(action, placeholder, "tomorrow");
  EXPECT_EQ(value, action.DateTime());
  EXPECT_EQ("Edit...", placeholder.GetText(action));
}

}  // namespace
}  // namespace jx
