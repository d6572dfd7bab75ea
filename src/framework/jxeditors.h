// Property editors of the design environment: the host's editors the plug-in
// names, and the plug-in's own.
#pragma once

#include <string_view>

#include "actions/files/jxfileattrib.h"
#include "framework/jxclasses.h"

namespace jx {

extern const TJXPropertyEditorClass TFileNameEdit;           // host: pick a file
extern const TJXPropertyEditorClass TSelectDirectoryEditor;  // host: pick a directory
// The plug-in's file-name editor: the host's, titled "Select File", for every file.
extern const TJXPropertyEditorClass TFileNameEditEx;

// The attribute settings of Set File Attributes as the words "Don't Touch",
// "Set" and "Clear"; typed text follows FileAttributeEditorValue.
extern const TJXPropertyEditorClass TFileAttributeEditor;
// The attribute editor's rule for typed text, in any case: "SET" is asSet,
// "CLEAR" is asClear, anything else asNone.
TAttributeSetting FileAttributeEditorValue(std::string_view text);

// Touch File(s)' date-time editor, registered for its "DateTimeString"
// placeholder: it shows and edits the action's DateTime as text (through
// "DateTimeAsString").
extern const TJXPropertyEditorClass TTouchFilesDateEditor;

}  // namespace jx
