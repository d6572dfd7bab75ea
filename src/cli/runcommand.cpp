// jaxtor run: load, apply the defines, validate, run, then dump the variables.
#include <fmt/format.h>

#include <cstdio>
#include <exception>
#include <optional>

#include "cli/commands.h"
#include "host/buildrun.h"
#include "host/defines.h"
#include "host/interrupt.h"
#include "host/projectxml.h"
#include "host/terminal.h"
#include "host/validation.h"
#include "host/variablesjson.h"
#include "platform/attributes.h"

namespace jx {

namespace {

// The project with its defines applied, or nothing after an error was printed.
std::optional<Project> PrepareProject(const RunOptions& options) {
  try {
    std::vector<Define> defines;
    for (const std::string& text : options.Defines) defines.push_back(ParseDefine(text));
    Project project = LoadProject(options.Project, PluginPalette());
    for (const Define& define : defines) ApplyDefine(project, define);
    return project;
  } catch (const Exception& e) {
    PrintError(e.Message());
    return std::nullopt;
  }
}

bool PrintProblems(const Project& project) {
  const std::vector<std::string> problems = ValidateActions(project.Actions);
  for (const std::string& problem : problems) fmt::print(stderr, "{}\n", problem);
  return !problems.empty();
}

bool RunWithInterrupts(BuildRun& run) {
  InterruptWatcher watcher([&run] { run.RequestStop(); });
  return run.Run();
}

// Reports what could not be written after the run; false when something failed.
bool Finish(BuildLog& log, const VariableStore& variables, const RunOptions& options) {
  bool written = true;
  try {
    log.CloseFile();
  } catch (const Exception& e) {
    PrintError(e.Message());
    written = false;
  }
  if (options.DumpFile.empty()) return written;
  try {
    WriteVariablesJson(variables, options.DumpFile);
  } catch (const Exception& e) {
    PrintError(e.Message());
    written = false;
  }
  return written;
}

}  // namespace

int RunCommand(const RunOptions& options) {
  std::optional<Project> project = PrepareProject(options);
  if (!project) return kExitUsage;
  if (PrintProblems(*project)) return kExitInvalid;

  BuildLog log(stdout, StdoutIsTerminal());
  if (!options.LogFile.empty()) {
    try {
      log.OpenFile(options.LogFile);
    } catch (const Exception& e) {
      PrintError(e.Message());
      return kExitUsage;
    }
  }
  SetStoredAttributesUsed(!options.IgnoreStoredAttributes);
  VariableStore variables = VariableStore::FromProject(*project);
  const bool unattended = options.Unattended || !StdinIsTerminal();
  BuildRun run(*project, variables, log, unattended);
  const bool succeeded = RunWithInterrupts(run);
  const bool written = Finish(log, variables, options);
  return succeeded && written ? kExitSuccess : kExitBuildFailed;
}

}  // namespace jx
