#include "actions/files/jxmovedirectoryaction.h"

#include "platform/copymove.h"
#include "platform/lasterror.h"

namespace jx {

std::string TJXMoveDirectoryAction::GetActionName() const { return "Move Directory"; }

std::string TJXMoveDirectoryAction::GetQuickHelpFilename() const { return "Plugins\\MoveDirectory.html"; }

int TJXMoveDirectoryAction::GetHelpTopicID() const { return 3110; }

bool TJXMoveDirectoryAction::Validate(IJXActionValidationError& errors) {
  bool valid = true;
  if (FDirectory.empty()) {
    errors.AddError("Source directory", "A source directory has not been specified");
    valid = false;
  }
  if (FDestinationDirectory.empty()) {
    errors.AddError("Destination directory", "A destination directory has not been specified");
    valid = false;
  }
  return valid;
}

// Both paths must expand to something: the host reports an expansion that
// fails or comes out empty, and the action ends there.
bool TJXMoveDirectoryAction::Execute() {
  std::string source;
  std::string destination;
  if (!TryExpandExpression("Directory", FDirectory, source, true)) return false;
  if (!TryExpandExpression("DestinationDirectory", FDestinationDirectory, destination, true)) return false;
  if (MoveFileTo(source, destination)) {
    SendMessage("Directory : " + source + " - moved to : " + destination);
    return true;
  }
  const uint32_t error = GetLastError();
  SendMessage("Error moving Directory : " + source + " - to : " + destination);
  SendMessage("Error : " + SysErrorMessage(error));
  return false;
}

const TJXClassInfo& TJXMoveDirectoryAction::ClassInfo() {
  using C = TJXMoveDirectoryAction;
  static const TJXClassInfo info = MakeClassInfo<C>(
      "TJXMoveDirectoryAction", TPublished<C>()
                                    .String("Directory", &C::Directory, &C::SetDirectory)
                                    .String("DestinationDirectory", &C::DestinationDirectory,
                                            &C::SetDestinationDirectory)
                                    .Build());
  return info;
}

}  // namespace jx
