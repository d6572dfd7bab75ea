// The build log: the console and, optionally, a log file. Each action run
// writes a header line "== <description>" and then every line the action
// sent, as sent. The console also shows each run's result and time, and the
// build's end; the file holds only the header and message lines.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

namespace jx {

enum class ActionOutcome { Succeeded, Failed, FailedIgnored };

class BuildLog {
 public:
  // `console` is not owned; `colour` adds terminal colours to the result lines.
  BuildLog(std::FILE* console, bool colour);
  ~BuildLog();
  BuildLog(const BuildLog&) = delete;
  BuildLog& operator=(const BuildLog&) = delete;

  // Starts writing the log to `file_name`; throws Exception when it cannot be created.
  void OpenFile(const std::string& file_name);

  void BeginAction(std::string_view description);
  void Line(std::string_view text);
  void EndAction(ActionOutcome outcome, double seconds);
  void EndBuild(bool succeeded);
  // Pushes buffered text to the file and the console.
  void Flush();
  // Closes the log file; throws Exception when some of it could not be written.
  void CloseFile();

 private:
  void Write(std::string_view prefix, std::string_view text);  // to both, then a line break

  std::FILE* console_;
  bool colour_;
  std::FILE* file_ = nullptr;
  std::string file_name_;
};

}  // namespace jx
