// Runs the built jaxtor (path in JAXTOR_EXE) with standard input from
// /dev/null, capturing its exit code, standard output and standard error.
#pragma once

#include <string>
#include <vector>

#include "support/tempdir.h"

namespace jx::test {

struct JaxtorResult {
  int ExitCode = -1;
  std::string Out;
  std::string Err;
};

// Output files go to `dir`; the working directory is the test's.
JaxtorResult RunJaxtor(const std::vector<std::string>& args, const TempDir& dir);

// A project file of the given <Variables> and <Actions> contents, written to dir/name.
std::string WriteProject(const TempDir& dir, const std::string& name, const std::string& variables,
                         const std::string& actions);

// The object of variable `name` in a --dump-variables file as written, such as
// {"type": "string", "value": "x"}; "(NAME not dumped)" when it is not there.
std::string DumpedVariable(const std::string& json, const std::string& name);

}  // namespace jx::test
