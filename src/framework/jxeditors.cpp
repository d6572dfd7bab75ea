#include "framework/jxeditors.h"

namespace jx {

const TJXPropertyEditorClass TFileNameEdit{"TFileNameEdit", "", "", ""};
const TJXPropertyEditorClass TSelectDirectoryEditor{"TSelectDirectoryEditor", "", "", ""};
const TJXPropertyEditorClass TFileNameEditEx{"TFileNameEditEx", "Select File", "All Files(*.*)|*.*", "*.*"};

}  // namespace jx
