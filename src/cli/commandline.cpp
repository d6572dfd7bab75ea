// The command line: one CLI11 sub-command per job. Usage errors exit with 2
// after one line on standard error; --help exits with 0.
#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <array>
#include <cstdio>
#include <exception>
#include <string_view>

#include "cli/commands.h"

namespace jx {

namespace {

constexpr std::array<std::string_view, 4> kCommands = {"run", "validate", "actions", "describe"};

// CLI11 reports an unknown command as a missing one; name it instead.
bool IsUnknownCommand(int argc, char** argv) {
  if (argc < 2 || argv[1][0] == '-') return false;
  for (std::string_view command : kCommands) {
    if (command == argv[1]) return false;
  }
  return true;
}

}  // namespace

void PrintError(std::string_view message) { fmt::print(stderr, "jaxtor: {}\n", message); }

int RunCommandLine(int argc, char** argv) {
  CLI::App app{"jaxtor: runs build projects of file and system actions"};
  app.name("jaxtor");
  app.require_subcommand(1);

  RunOptions run;
  CLI::App* run_command = app.add_subcommand("run", "Validate and run a project");
  run_command->add_option("PROJECT", run.Project, "The project file (XML)")->required();
  run_command->add_option("--define", run.Defines, "Set variable NAME to VALUE before the run (repeatable)")
      ->type_name("NAME=VALUE")
      ->allow_extra_args(false);
  run_command->add_flag("--unattended", run.Unattended, "Run without a user: interactive actions fail");
  run_command->add_option("--log", run.LogFile, "Also write the build log to FILE")->type_name("FILE");
  run_command->add_option("--dump-variables", run.DumpFile, "Write the variables as JSON to FILE after the run")
      ->type_name("FILE");
  run_command->add_flag("--no-stored-attributes", run.IgnoreStoredAttributes,
                        "POSIX: ignore the hidden, system and archive bits kept in the user.DOSATTRIB extended "
                        "attribute (hidden is a leading '.' only); searches over many files need one call less "
                        "per file");

  std::string validate_project;
  CLI::App* validate_command = app.add_subcommand("validate", "Load a project and validate its actions");
  validate_command->add_option("PROJECT", validate_project, "The project file (XML)")->required();

  CLI::App* actions_command = app.add_subcommand("actions", "List the action types: category, name, class");

  std::string class_name;
  CLI::App* describe_command = app.add_subcommand("describe", "Show the properties of an action type");
  describe_command->add_option("CLASS", class_name, "The action's class, e.g. TDeleteFilesAction")->required();

  if (IsUnknownCommand(argc, argv)) {
    PrintError(fmt::format("unknown command \"{}\" (run 'jaxtor --help')", argv[1]));
    return kExitUsage;
  }
  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp& e) {
    return app.exit(e);
  } catch (const CLI::CallForAllHelp& e) {
    return app.exit(e);
  } catch (const CLI::ParseError& e) {
    PrintError(fmt::format("{} (run 'jaxtor --help')", e.what()));
    return kExitUsage;
  }

  // Commands report their own errors; this only keeps a surprise from ending as a crash.
  try {
    if (run_command->parsed()) return RunCommand(run);
    if (validate_command->parsed()) return ValidateCommand(validate_project);
    if (actions_command->parsed()) return ActionsCommand();
    return DescribeCommand(class_name);
  } catch (const std::exception& e) {
    PrintError(fmt::format("unexpected error: {}", e.what()));
    return kExitBuildFailed;
  }
}

}  // namespace jx
