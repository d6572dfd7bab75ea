#include "cli/jaxtorprocess.h"

#include <sys/wait.h>

#include <cstdlib>
#include <stdexcept>

namespace jx::test {

namespace {

std::string ShellQuote(const std::string& text) {
  std::string quoted = "'";
  for (char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

std::string JaxtorPath() {
  const char* path = std::getenv("JAXTOR_EXE");
  if (!path || !*path) throw std::runtime_error("JAXTOR_EXE is not set");
  return path;
}

}  // namespace

JaxtorResult RunJaxtor(const std::vector<std::string>& args, const TempDir& dir) {
  std::string command = ShellQuote(JaxtorPath());
  for (const std::string& arg : args) command += " " + ShellQuote(arg);
  const std::string out = dir / "stdout.txt";
  const std::string err = dir / "stderr.txt";
  command += " </dev/null >" + ShellQuote(out) + " 2>" + ShellQuote(err);
  const int status = std::system(command.c_str());
  JaxtorResult result;
  result.ExitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  result.Out = ReadFile(out);
  result.Err = ReadFile(err);
  return result;
}

std::string WriteProject(const TempDir& dir, const std::string& name, const std::string& variables,
                         const std::string& actions) {
  return dir.WriteFile(name, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Project>\n  <Variables>\n" + variables +
                                 "  </Variables>\n  <Actions>\n" + actions + "  </Actions>\n</Project>\n");
}

// The dump writes one variable a line: `  "NAME": {...},`.
std::string DumpedVariable(const std::string& json, const std::string& name) {
  const std::string key = "\n  \"" + name + "\": ";
  const size_t start = json.find(key);
  if (start == std::string::npos) return "(" + name + " not dumped)";
  const size_t from = start + key.size();
  std::string object = json.substr(from, json.find('\n', from) - from);
  if (!object.empty() && object.back() == ',') object.pop_back();
  return object;
}

}  // namespace jx::test
