#include "platform/lasterror.h"

#include "rtl/sysutils.h"

namespace jx {

void RaiseLastOSError() {
  const uint32_t code = GetLastError();
  if (code == 0) throw EOSError(0, "A call to an OS function failed");
  throw EOSError(code, "System Error.  Code: " + std::to_string(code) + ".\n" + SysErrorMessage(code));
}

}  // namespace jx
