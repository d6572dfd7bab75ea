// The sub-commands of `jaxtor`, each returning the process exit code.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace jx {

enum ExitCode : int {
  kExitSuccess = 0,
  kExitBuildFailed = 1,
  kExitUsage = 2,  // also: the project cannot be loaded
  kExitInvalid = 3,
};

struct RunOptions {
  std::string Project;
  std::vector<std::string> Defines;  // NAME=VALUE
  bool Unattended = false;
  std::string LogFile;
  std::string DumpFile;
  bool IgnoreStoredAttributes = false;  // POSIX: leave user.DOSATTRIB alone
};

int RunCommand(const RunOptions& options);
int ValidateCommand(const std::string& project_file);
int ActionsCommand();
int DescribeCommand(const std::string& class_name);

// Parses the command line and runs the chosen sub-command.
int RunCommandLine(int argc, char** argv);

// "jaxtor: <message>" on standard error.
void PrintError(std::string_view message);

}  // namespace jx
