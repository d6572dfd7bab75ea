// jaxtor actions and jaxtor describe: what the plug-in registered.
#include <fmt/format.h>

#include <cstdio>

#include "cli/commands.h"
#include "host/describe.h"
#include "host/palette.h"

namespace jx {

int ActionsCommand() {
  fmt::print("{}", ListPalette(PluginPalette()));
  return kExitSuccess;
}

int DescribeCommand(const std::string& class_name) {
  const PaletteEntry* entry = PluginPalette().FindClass(class_name);
  if (!entry) {
    PrintError(fmt::format("unknown action class \"{}\" (see 'jaxtor actions')", class_name));
    return kExitUsage;
  }
  fmt::print("{}", DescribeAction(*entry));
  return kExitSuccess;
}

}  // namespace jx
