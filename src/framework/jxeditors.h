// Property editors of the design environment that the host provides, and the
// plug-in's general file-name editor. Editors of one action live in its unit.
#pragma once

#include "framework/jxclasses.h"

namespace jx {

extern const TJXPropertyEditorClass TFileNameEdit;           // host: pick a file
extern const TJXPropertyEditorClass TSelectDirectoryEditor;  // host: pick a directory
// The plug-in's file-name editor: the host's, titled "Select File", for every file.
extern const TJXPropertyEditorClass TFileNameEditEx;

}  // namespace jx
