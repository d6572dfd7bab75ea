// Runs the built jaxtor (path in JAXTOR_EXE) with standard input from
// /dev/null, capturing its exit code, standard output and standard error.
#pragma once

#include <sys/types.h>

#include <string>
#include <utility>
#include <vector>

#include "support/tempdir.h"

namespace jx::test {

struct JaxtorResult {
  int ExitCode = -1;  // -1 when a signal ended the process
  std::string Out;
  std::string Err;
};

// A jaxtor process started in the background, so that a test can signal it.
// Output files go to `dir`; the working directory is the test's.
class JaxtorProcess {
 public:
  JaxtorProcess(const std::vector<std::string>& args, const TempDir& dir);
  ~JaxtorProcess();  // kills the process if the test did not wait for it
  JaxtorProcess(const JaxtorProcess&) = delete;
  JaxtorProcess& operator=(const JaxtorProcess&) = delete;

  void Signal(int signal_number) const;
  bool Running() const;  // false once it has ended, before Wait too
  JaxtorResult Wait();

 private:
  const TempDir& dir_;
  pid_t pid_ = -1;
};

JaxtorResult RunJaxtor(const std::vector<std::string>& args, const TempDir& dir);

using Properties = std::vector<std::pair<std::string, std::string>>;

// One <Action> element of a project: its class, its properties in order, and
// the inner text of its <Actions> (a loop's children) when not empty.
std::string ActionXml(const std::string& cls, const Properties& properties, const std::string& children = "");

// A project file of the given <Variables> and <Actions> contents, written to dir/name.
std::string WriteProject(const TempDir& dir, const std::string& name, const std::string& variables,
                         const std::string& actions);

// The object of variable `name` in a --dump-variables file as written, such as
// {"type": "string", "value": "x"}; "(NAME not dumped)" when it is not there.
std::string DumpedVariable(const std::string& json, const std::string& name);

}  // namespace jx::test
