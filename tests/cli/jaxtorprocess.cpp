#include "cli/jaxtorprocess.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <cerrno>
#include <cstdlib>
#include <stdexcept>

extern char** environ;

namespace jx::test {

namespace {

std::string JaxtorPath() {
  const char* path = std::getenv("JAXTOR_EXE");
  if (!path || !*path) throw std::runtime_error("JAXTOR_EXE is not set");
  return path;
}

}  // namespace

JaxtorProcess::JaxtorProcess(const std::vector<std::string>& args, const TempDir& dir) : dir_(dir) {
  std::vector<std::string> argv_text = {JaxtorPath()};
  argv_text.insert(argv_text.end(), args.begin(), args.end());
  std::vector<char*> argv;
  for (std::string& arg : argv_text) argv.push_back(arg.data());
  argv.push_back(nullptr);

  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_addopen(&files, 0, "/dev/null", O_RDONLY, 0);
  const std::string out = dir / "stdout.txt";
  const std::string err = dir / "stderr.txt";
  posix_spawn_file_actions_addopen(&files, 1, out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
  posix_spawn_file_actions_addopen(&files, 2, err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
  const int failed = posix_spawn(&pid_, argv[0], &files, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&files);
  if (failed != 0) throw std::runtime_error("cannot start " + argv_text[0]);
}

JaxtorProcess::~JaxtorProcess() {
  if (pid_ <= 0) return;
  kill(pid_, SIGKILL);
  waitpid(pid_, nullptr, 0);
}

void JaxtorProcess::Signal(int signal_number) const { kill(pid_, signal_number); }

bool JaxtorProcess::Running() const {
  siginfo_t info{};
  // WNOWAIT leaves the ended process for Wait to collect.
  return waitid(P_PID, pid_, &info, WEXITED | WNOHANG | WNOWAIT) == 0 && info.si_pid == 0;
}

JaxtorResult JaxtorProcess::Wait() {
  int status = 0;
  while (waitpid(pid_, &status, 0) < 0 && errno == EINTR) {
  }
  pid_ = -1;
  JaxtorResult result;
  result.ExitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  result.Out = ReadFile(dir_ / "stdout.txt");
  result.Err = ReadFile(dir_ / "stderr.txt");
  return result;
}

JaxtorResult RunJaxtor(const std::vector<std::string>& args, const TempDir& dir) {
  return JaxtorProcess(args, dir).Wait();
}

std::string ActionXml(const std::string& cls, const Properties& properties, const std::string& children) {
  std::string xml = "<Action Class=\"" + cls + "\">";
  for (const auto& [name, value] : properties) xml += "<Property Name=\"" + name + "\">" + value + "</Property>";
  if (!children.empty()) xml += "<Actions>" + children + "</Actions>";
  return xml + "</Action>\n";
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
