// The one fixture of action tests: a scoped temporary directory and an action
// of type A attached to a recording host.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>

#include "support/recordinghost.h"
#include "support/tempdir.h"

namespace jx::test {

template <class A>
class ActionTest : public ::testing::Test {
 protected:
  ActionTest() { action.SetHost(&host); }

  TempDir dir;
  RecordingHost host;
  A action;
};

// Makes `dir` the current directory for the lifetime of a scope (tests of
// relative paths), and restores the previous one at its end.
class CurrentDirScope {
 public:
  explicit CurrentDirScope(const std::string& dir) : previous_(std::filesystem::current_path()) {
    std::filesystem::current_path(dir);
  }
  ~CurrentDirScope() { std::filesystem::current_path(previous_); }
  CurrentDirScope(const CurrentDirScope&) = delete;
  CurrentDirScope& operator=(const CurrentDirScope&) = delete;

 private:
  std::filesystem::path previous_;
};

}  // namespace jx::test
