#include <unistd.h>

#include "host/terminal.h"

namespace jx {

bool StdoutIsTerminal() { return isatty(STDOUT_FILENO) != 0; }
bool StdinIsTerminal() { return isatty(STDIN_FILENO) != 0; }

}  // namespace jx
