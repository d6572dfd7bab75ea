#include "framework/jxeditors.h"

#include "framework/jxaction.h"
#include "rtl/strutils.h"

namespace jx {

const TJXPropertyEditorClass TFileNameEdit{"TFileNameEdit", "", "", ""};
const TJXPropertyEditorClass TSelectDirectoryEditor{"TSelectDirectoryEditor", "", "", ""};
const TJXPropertyEditorClass TFileNameEditEx{"TFileNameEditEx", "Select File", "All Files(*.*)|*.*", "*.*"};

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

// The placeholder's editor works on the object's "DateTimeAsString".
const TPropertyInfo& DateTimeText(const TQSXMLObject& object) {
  return *object.GetClassInfo().FindProperty("DateTimeAsString");
}

std::string TouchDateText(const TQSXMLObject& object, const TPropertyInfo&) {
  return DateTimeText(object).GetText(object);
}

void StoreTouchDate(TQSXMLObject& object, const TPropertyInfo&, std::string_view text) {
  DateTimeText(object).SetText(object, text);
}

}  // namespace

const TJXPropertyEditorClass TFileAttributeEditor{
    "TFileAttributeEditor", "", "", "", &AttributeSettingWord, &StoreAttributeSetting};
const TJXPropertyEditorClass TTouchFilesDateEditor{
    "TTouchFilesDateEditor", "", "", "", &TouchDateText, &StoreTouchDate};

}  // namespace jx
