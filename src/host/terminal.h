// Whether the standard streams are attached to a terminal: colours and
// progress go to a terminal only, and a build whose input is not one cannot
// ask questions.
#pragma once

namespace jx {

bool StdoutIsTerminal();
bool StdinIsTerminal();

}  // namespace jx
