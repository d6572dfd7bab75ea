// jaxtor validate: load a project and print the problems of its actions.
#include <fmt/format.h>

#include <cstdio>

#include "cli/commands.h"
#include "host/projectxml.h"
#include "host/validation.h"

namespace jx {

int ValidateCommand(const std::string& project_file) {
  Project project;
  try {
    project = LoadProject(project_file, PluginPalette());
  } catch (const Exception& e) {
    PrintError(e.Message());
    return kExitUsage;
  }
  const std::vector<std::string> problems = ValidateActions(project.Actions);
  for (const std::string& problem : problems) fmt::print(stderr, "{}\n", problem);
  if (!problems.empty()) return kExitInvalid;
  int count = 0;
  ForEachAction(project.Actions, [&count](TCustomJXAction&) { ++count; });
  fmt::print("{}: no problems found ({} action{})\n", project_file, count, count == 1 ? "" : "s");
  return kExitSuccess;
}

}  // namespace jx
