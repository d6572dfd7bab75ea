#include "host/buildlog.h"

#include <fmt/color.h>
#include <fmt/format.h>

#include <cerrno>
#include <cstring>
#include <initializer_list>

#include "rtl/sysutils.h"

namespace jx {

namespace {

// The file is written in large blocks: a build of many small actions must
// not pay for a system call per line.
constexpr size_t kFileBufferSize = 1 << 16;

const char* OutcomeText(ActionOutcome outcome) {
  switch (outcome) {
    case ActionOutcome::Succeeded: return "Success";
    case ActionOutcome::Failed: return "Failed";
    case ActionOutcome::FailedIgnored: return "Failed (ignored)";
  }
  return "";
}

fmt::text_style OutcomeStyle(ActionOutcome outcome) {
  switch (outcome) {
    case ActionOutcome::Succeeded: return fmt::fg(fmt::terminal_color::green);
    case ActionOutcome::Failed: return fmt::fg(fmt::terminal_color::red);
    case ActionOutcome::FailedIgnored: return fmt::fg(fmt::terminal_color::yellow);
  }
  return {};
}

}  // namespace

BuildLog::BuildLog(std::FILE* console, bool colour) : console_(console), colour_(colour) {}

BuildLog::~BuildLog() {
  std::fflush(console_);
  if (file_) std::fclose(file_);
}

void BuildLog::OpenFile(const std::string& file_name) {
  std::FILE* file = std::fopen(file_name.c_str(), "wb");
  if (!file) throw Exception(fmt::format("Cannot create the log file \"{}\": {}", file_name, std::strerror(errno)));
  std::setvbuf(file, nullptr, _IOFBF, kFileBufferSize);
  if (file_) std::fclose(file_);
  file_ = file;
  file_name_ = file_name;
}

void BuildLog::CloseFile() {
  if (!file_) return;
  const bool failed = std::ferror(file_) != 0;
  const bool closed = std::fclose(file_) == 0;
  file_ = nullptr;
  if (failed || !closed) throw Exception(fmt::format("Cannot write the log file \"{}\"", file_name_));
}

// Written through at each action's start and end and after each block an
// action logs, so that output redirected to a file (a CI job) or the log file
// shows what runs while it runs, and a killed build leaves what it logged.
void BuildLog::BeginAction(std::string_view description) {
  Write("== ", description);
  Flush();
}

void BuildLog::Line(std::string_view text) { Write("", text); }

void BuildLog::EndAction(ActionOutcome outcome, double seconds) {
  const std::string time = outcome == ActionOutcome::FailedIgnored ? "" : fmt::format(" ({:.3f} s)", seconds);
  if (colour_) {
    fmt::print(console_, "-- {}{}\n", fmt::styled(OutcomeText(outcome), OutcomeStyle(outcome)), time);
  } else {
    fmt::print(console_, "-- {}{}\n", OutcomeText(outcome), time);
  }
  Flush();
}

void BuildLog::EndBuild(bool succeeded) {
  const char* text = succeeded ? "Build succeeded" : "Build failed";
  if (colour_) {
    auto style = fmt::emphasis::bold | fmt::fg(succeeded ? fmt::terminal_color::green : fmt::terminal_color::red);
    fmt::print(console_, "{}\n", fmt::styled(text, style));
  } else {
    fmt::print(console_, "{}\n", text);
  }
  Flush();
}

void BuildLog::Flush() {
  if (file_) std::fflush(file_);
  std::fflush(console_);
}

void BuildLog::Write(std::string_view prefix, std::string_view text) {
  for (std::FILE* sink : {console_, file_}) {
    if (!sink) continue;
    std::fwrite(prefix.data(), 1, prefix.size(), sink);
    std::fwrite(text.data(), 1, text.size(), sink);
    std::fputc('\n', sink);
  }
}

}  // namespace jx
