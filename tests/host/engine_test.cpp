#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <thread>

#include "host/buildrun.h"
#include "host/testactions.h"
#include "rtl/sysutils.h"
#include "support/tempdir.h"

namespace jx {
namespace {

using test::CountLoop;
using test::StepAction;

class EngineTest : public ::testing::Test {
 protected:
  StepAction& AddStep(ActionList& list, const std::string& label, int outcome = StepAction::soSucceed) {
    auto step = std::make_unique<StepAction>();
    step->SetLabel(label);
    step->SetOutcome(outcome);
    list.push_back(std::move(step));
    return static_cast<StepAction&>(*list.back());
  }

  CountLoop& AddLoop(ActionList& list, int passes) {
    auto loop = std::make_unique<CountLoop>();
    loop->SetPasses(passes);
    list.push_back(std::move(loop));
    return static_cast<CountLoop&>(*list.back());
  }

  StepAction& AddChildStep(CountLoop& loop, const std::string& label, int outcome = StepAction::soSucceed) {
    auto step = std::make_unique<StepAction>();
    step->SetLabel(label);
    step->SetOutcome(outcome);
    loop.AddChild(std::move(step));
    return static_cast<StepAction&>(*loop.Children().back());
  }

  // Runs the project; the log file's text ends up in log_text, the console's in console_text.
  bool Run() {
    std::FILE* console = std::fopen((dir / "console.txt").c_str(), "wb");
    bool succeeded = false;
    {
      BuildLog log(console, false);
      log.OpenFile(dir / "build.log");
      run_ = std::make_unique<BuildRun>(project, variables, log, true);
      succeeded = run_->Run();
      log.CloseFile();
    }
    std::fclose(console);
    log_text = test::ReadFile(dir / "build.log");
    console_text = test::ReadFile(dir / "console.txt");
    return succeeded;
  }

  test::TempDir dir;
  Project project;
  VariableStore variables;
  std::unique_ptr<BuildRun> run_;
  std::string log_text;
  std::string console_text;
};

TEST_F(EngineTest, RunsActionsInOrderWithAHeaderPerRun) {
  AddStep(project.Actions, "a");
  AddStep(project.Actions, "b");
  EXPECT_TRUE(Run());
  EXPECT_EQ("== Step (a)\nstep a\n== Step (b)\nstep b\n", log_text);
}

TEST_F(EngineTest, ConsoleShowsResultsAndTheBuildsEnd) {
  AddStep(project.Actions, "a");
  AddStep(project.Actions, "b", StepAction::soFail).IgnoreFailure = true;
  AddStep(project.Actions, "c", StepAction::soFail);
  EXPECT_FALSE(Run());
  EXPECT_NE(std::string::npos, console_text.find("step a\n-- Success ("));
  EXPECT_NE(std::string::npos, console_text.find("step b\n-- Failed (ignored)\n"));
  EXPECT_NE(std::string::npos, console_text.find("step c\n-- Failed ("));
  EXPECT_EQ("Build failed\n", console_text.substr(console_text.rfind('\n', console_text.size() - 2) + 1));
}

TEST_F(EngineTest, LoopRunsItsChildrenOncePerPass) {
  CountLoop& loop = AddLoop(project.Actions, 2);
  AddChildStep(loop, "x");
  AddChildStep(loop, "y");
  AddStep(project.Actions, "after");
  EXPECT_TRUE(Run());
  EXPECT_EQ(
      "== Count Loop\npass 1\n== Step (x)\nstep x\n== Step (y)\nstep y\n"
      "== Count Loop\npass 2\n== Step (x)\nstep x\n== Step (y)\nstep y\n"
      "== Step (after)\nstep after\n",
      log_text);
}

TEST_F(EngineTest, FailingChildStopsTheLoopAndTheBuild) {
  CountLoop& loop = AddLoop(project.Actions, 3);
  AddChildStep(loop, "x", StepAction::soFail);
  AddChildStep(loop, "y");
  AddStep(project.Actions, "after");
  EXPECT_FALSE(Run());
  EXPECT_EQ("== Count Loop\npass 1\n== Step (x)\nstep x\n", log_text);
}

TEST_F(EngineTest, IgnoredFailureContinuesInsideTheLoop) {
  CountLoop& loop = AddLoop(project.Actions, 2);
  AddChildStep(loop, "x", StepAction::soFail).IgnoreFailure = true;
  EXPECT_TRUE(Run());
  EXPECT_EQ("== Count Loop\npass 1\n== Step (x)\nstep x\n== Count Loop\npass 2\n== Step (x)\nstep x\n", log_text);
}

TEST_F(EngineTest, DisabledActionsAndTheirChildrenAreSkipped) {
  AddStep(project.Actions, "off").Enabled = false;
  CountLoop& loop = AddLoop(project.Actions, 1);
  loop.Enabled = false;
  AddChildStep(loop, "inner");
  AddStep(project.Actions, "on");
  EXPECT_TRUE(Run());
  EXPECT_EQ("== Step (on)\nstep on\n", log_text);
}

TEST_F(EngineTest, DisabledChildIsSkippedInEveryPass) {
  CountLoop& loop = AddLoop(project.Actions, 2);
  AddChildStep(loop, "off").Enabled = false;
  AddChildStep(loop, "on");
  EXPECT_TRUE(Run());
  EXPECT_EQ("== Count Loop\npass 1\n== Step (on)\nstep on\n== Count Loop\npass 2\n== Step (on)\nstep on\n", log_text);
}

TEST_F(EngineTest, ExceptionFailsTheActionWithItsText) {
  AddStep(project.Actions, "a", StepAction::soThrow);
  AddStep(project.Actions, "b");
  EXPECT_FALSE(Run());
  EXPECT_EQ("== Step (a)\nstep a\nError: step a broke\n", log_text);
}

TEST_F(EngineTest, LoopPassCountIsResetBeforeTheRun) {
  CountLoop& loop = AddLoop(project.Actions, 1);
  EXPECT_TRUE(Run());
  EXPECT_EQ(1, loop.PassCount());
  EXPECT_TRUE(Run());
  EXPECT_EQ(1, loop.PassCount());
}

TEST_F(EngineTest, SynchronizeRunsOnTheMainThread) {
  const std::thread::id main_thread = std::this_thread::get_id();
  std::thread::id execute_thread, synchronized_thread;
  AddStep(project.Actions, "a").OnExecute = [&](StepAction& step) {
    execute_thread = std::this_thread::get_id();
    step.Synchronize([&] { synchronized_thread = std::this_thread::get_id(); });
  };
  EXPECT_TRUE(Run());
  EXPECT_NE(main_thread, execute_thread);
  EXPECT_EQ(main_thread, synchronized_thread);
}

TEST_F(EngineTest, SynchronizeRethrowsOnTheBuildThread) {
  AddStep(project.Actions, "a").OnExecute = [](StepAction& step) {
    step.Synchronize([] { throw Exception("dialog failed"); });
  };
  EXPECT_FALSE(Run());
  EXPECT_EQ("== Step (a)\nstep a\nError: dialog failed\n", log_text);
}

TEST_F(EngineTest, StopTerminatesTheRunningActionAndEndsTheBuild) {
  StepAction& first = AddStep(project.Actions, "a");
  first.OnExecute = [this](StepAction& step) { step.Synchronize([this] { run_->Stop(); }); };
  StepAction& second = AddStep(project.Actions, "b");
  EXPECT_FALSE(Run());
  EXPECT_EQ(1, first.Terminations());
  EXPECT_EQ(0, second.Terminations());
  EXPECT_EQ("== Step (a)\nstep a\nBuild stopped by user\n", log_text);
}

TEST_F(EngineTest, StopEndsALoopBetweenPasses) {
  CountLoop& loop = AddLoop(project.Actions, 5);
  AddChildStep(loop, "x").OnExecute = [this](StepAction& step) {
    step.Synchronize([this] { run_->Stop(); });
  };
  EXPECT_FALSE(Run());
  EXPECT_EQ("== Count Loop\npass 1\n== Step (x)\nstep x\nBuild stopped by user\n", log_text);
}

}  // namespace
}  // namespace jx
