// Property editors of the design environment: the host's editors the plug-in
// names, and the plug-in's own.
#pragma once

#include "framework/jxclasses.h"

namespace jx {

extern const TJXPropertyEditorClass TFileNameEdit;           // host: pick a file
extern const TJXPropertyEditorClass TSelectDirectoryEditor;  // host: pick a directory
// The plug-in's file-name editor: the host's, titled "Select File", for every file.
extern const TJXPropertyEditorClass TFileNameEditEx;

}  // namespace jx
