// jaxtor run when the user stops it, and without a user. Each pass of the
// loop copies a named pipe, which blocks until the test opens the pipe's
// other end: the test knows which pass is running without any timing.
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <iterator>
#include <thread>

#include "cli/jaxtorprocess.h"

namespace jx::test {
namespace {

class StopTest : public ::testing::Test {
 protected:
  StopTest() {
    dir.MakeDir("in");
    dir.MakeDir("out");
    for (const char* name : {"in/a.fifo", "in/b.fifo"}) mkfifo((dir / name).c_str(), 0600);
    const std::string copy = ActionXml(
        "TCopyFilesAction", {{"FileSpec", "%ITEM%"}, {"Target", dir / "out"}, {"TargetIsDir", "True"}});
    project = WriteProject(dir, "p.xml", "",
                           ActionXml("TFileIterator", {{"VariableName", "ITEM"}, {"FileSpec", dir / "in/*.fifo"}}, copy));
  }

  // The writing end of the pipe a pass is copying (a pipe without a reader
  // refuses a non-blocking open), or -1 when none is opened in time.
  int OpenPipeBeingCopied(const JaxtorProcess& process) {
    for (int tries = 0; tries < 2000 && process.Running(); ++tries) {
      for (const char* name : {"in/a.fifo", "in/b.fifo"}) {
        const int pipe = open((dir / name).c_str(), O_WRONLY | O_NONBLOCK);
        if (pipe >= 0) return pipe;
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return -1;
  }

  // Waits for a pass to block on its pipe, sends Ctrl-C, and waits for the
  // notice that jaxtor took it. Returns the pipe's writing end, or -1.
  int InterruptFirstPass(const JaxtorProcess& process) {
    const int pipe = OpenPipeBeingCopied(process);
    if (pipe < 0) return -1;
    process.Signal(SIGINT);
    for (int tries = 0; tries < 2000 && process.Running(); ++tries) {
      if (ReadFile(dir / "stderr.txt").find("stopping the build") != std::string::npos) break;
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return pipe;
  }

  TempDir dir;
  std::string project;
};

TEST_F(StopTest, CtrlCStopsTheLoopBetweenPassesAndFailsTheBuild) {
  JaxtorProcess process({"run", project, "--log", dir / "build.log"}, dir);
  const int pipe = InterruptFirstPass(process);
  ASSERT_GE(pipe, 0) << ReadFile(dir / "stdout.txt");
  close(pipe);  // the first pass's copy ends; no second pass may start
  const JaxtorResult result = process.Wait();
  EXPECT_EQ(1, result.ExitCode) << result.Err;
  EXPECT_EQ("jaxtor: stopping the build (Ctrl-C again to quit at once)\n", result.Err);
  const std::string log = ReadFile(dir / "build.log");
  EXPECT_EQ("Build stopped by user\n", log.substr(log.size() - 22)) << log;
  EXPECT_EQ("Build failed\n", result.Out.substr(result.Out.size() - 13));
  const auto copies = std::filesystem::directory_iterator(dir / "out");
  EXPECT_EQ(1, std::distance(begin(copies), end(copies)));
}

// Output redirected to a file (a CI job) is written through as each action
// starts and as each block is logged, not when the build ends.
TEST_F(StopTest, RedirectedOutputAndTheLogFileShowWhatRunsWhileItRuns) {
  JaxtorProcess process({"run", project, "--log", dir / "build.log"}, dir);
  const int pipe = OpenPipeBeingCopied(process);
  ASSERT_GE(pipe, 0);
  for (const std::string& file : {dir / "stdout.txt", dir / "build.log"}) {
    const std::string text = ReadFile(file);
    EXPECT_NE(std::string::npos, text.find("Found 2 Files.\n")) << file << ":\n" << text;
    EXPECT_NE(std::string::npos, text.find("== Copy File(s) (%ITEM%)\n")) << file << ":\n" << text;
  }
  close(pipe);
  while (process.Running()) {  // let the other pass copy its pipe too
    const int next = OpenPipeBeingCopied(process);
    if (next >= 0) close(next);
  }
  EXPECT_EQ(0, process.Wait().ExitCode);
}

TEST_F(StopTest, SecondCtrlCQuitsAtOnceWithStatus130) {
  JaxtorProcess process({"run", project}, dir);
  const int pipe = InterruptFirstPass(process);
  ASSERT_GE(pipe, 0) << ReadFile(dir / "stdout.txt");
  process.Signal(SIGINT);  // the copy is still blocked on the pipe
  const JaxtorResult result = process.Wait();
  close(pipe);
  EXPECT_EQ(130, result.ExitCode);
  EXPECT_EQ("jaxtor: stopping the build (Ctrl-C again to quit at once)\njaxtor: interrupted\n", result.Err);
}

// Without a terminal on standard input, or with --unattended, the build runs
// to its end with nobody to answer; both give the same result.
TEST(Unattended, RunsTheWholeBuildWithoutAUser) {
  TempDir dir;
  dir.WriteFile("in/a.txt", "a");
  dir.MakeDir("out");
  const std::string project = WriteProject(
      dir, "p.xml", "",
      ActionXml("TCopyFilesAction", {{"FileSpec", dir / "in/a.txt"}, {"Target", dir / "out"}, {"TargetIsDir", "True"}}));
  const JaxtorResult result = RunJaxtor({"run", project, "--unattended"}, dir);
  EXPECT_EQ(0, result.ExitCode) << result.Out << result.Err;
  EXPECT_EQ("a", ReadFile(dir / "out/a.txt"));
  EXPECT_EQ("Build succeeded\n", result.Out.substr(result.Out.size() - 16));
}

}  // namespace
}  // namespace jx::test
