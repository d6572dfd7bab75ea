#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <thread>

#include "host/buildrun.h"
#include "host/testactions.h"
#include "rtl/sysutils.h"

namespace jx {
namespace {

using test::CountLoop;
using test::StepAction;

template <class... Children>
std::unique_ptr<CountLoop> Loop(int passes, Children... children) {
  auto loop = std::make_unique<CountLoop>();
  loop->Passes = passes;
  (loop->AddChild(std::move(children)), ...);
  return loop;
}

// A step with an outcome, changed by `change` when there is one.
std::unique_ptr<StepAction> Step(const std::string& label, int outcome = StepAction::soSucceed,
                                 const std::function<void(StepAction&)>& change = nullptr) {
  auto step = std::make_unique<StepAction>();
  step->Label = label;
  step->Outcome = outcome;
  if (change) change(*step);
  return step;
}
constexpr int kSucceed = StepAction::soSucceed;

class EngineTest : public ::testing::Test {
 protected:
  // Runs these actions, or with none the project again.
  template <class... Added>
  bool Run(Added... actions) {
    if constexpr (sizeof...(actions) > 0) project.Actions.clear();
    (project.Actions.push_back(std::move(actions)), ...);
    test::LogFile log;
    run_ = std::make_unique<BuildRun>(project, variables, log.Log(), true);
    const bool succeeded = run_->Run();
    log_text = log.Text();
    return succeeded;
  }

  Project project;
  VariableStore variables;
  std::unique_ptr<BuildRun> run_;
  std::string log_text;
};

// Children once per pass; a failing child ends the loop and the build, an
// ignored one does not; a disabled action, with its children, is skipped.
TEST_F(EngineTest, LoopsRunTheirChildrenOncePerPass) {
  EXPECT_TRUE(Run(Step("a"), Loop(2, Step("x"), Step("y")), Step("z")));
  EXPECT_EQ("== Step (a)\nstep a\n== Count Loop\npass 1\n== Step (x)\nstep x\n== Step (y)\nstep y\n"
            "== Count Loop\npass 2\n== Step (x)\nstep x\n== Step (y)\nstep y\n== Step (z)\nstep z\n",
            log_text);
  EXPECT_TRUE(Run());  // the passes are counted afresh in each run
  EXPECT_EQ(2, static_cast<CountLoop&>(*project.Actions[1]).PassCount());

  EXPECT_FALSE(Run(Loop(3, Step("x", StepAction::soFail), Step("y")), Step("after")));
  EXPECT_EQ("== Count Loop\npass 1\n== Step (x)\nstep x\n", log_text);

  auto off = Loop(1, Step("inner"));
  off->Enabled = false;
  EXPECT_TRUE(Run(Loop(2, Step("ignored", StepAction::soFail, [](StepAction& s) { s.IgnoreFailure = true; }),
                       Step("off", kSucceed, [](StepAction& s) { s.Enabled = false; })),
                  std::move(off)));
  EXPECT_EQ("== Count Loop\npass 1\n== Step (ignored)\nstep ignored\n== Count Loop\npass 2\n== Step (ignored)\n"
            "step ignored\n",
            log_text);
}

// An error raised in an action fails it with its text; Synchronize runs its
// method on the main thread, and raises its error on the build thread.
TEST_F(EngineTest, ErrorsAndSynchronize) {
  EXPECT_FALSE(Run(Step("a", StepAction::soThrow), Step("b")));
  EXPECT_EQ("== Step (a)\nstep a\nError: step a broke\n", log_text);
  std::thread::id execute_thread, synchronized_thread;
  EXPECT_FALSE(Run(Step("s", kSucceed, [&](StepAction& s) {
    s.OnExecute = [&](StepAction& step) {
      execute_thread = std::this_thread::get_id();
      step.Synchronize([&] { synchronized_thread = std::this_thread::get_id(); });
      step.Synchronize([] { throw Exception("dialog failed"); });
    };
  })));
  EXPECT_EQ("== Step (s)\nstep s\nError: dialog failed\n", log_text);
  EXPECT_NE(std::this_thread::get_id(), execute_thread);
  EXPECT_EQ(std::this_thread::get_id(), synchronized_thread);
}

// A stop terminates the running action and ends the build, between the passes
// of a loop too.
TEST_F(EngineTest, StopTerminatesTheRunningActionAndEndsTheBuild) {
  const auto stop = [this](StepAction& s) {
    s.OnExecute = [this](StepAction& step) { step.Synchronize([this] { run_->Stop(); }); };
  };
  EXPECT_FALSE(Run(Step("a", kSucceed, stop), Step("b")));
  EXPECT_EQ("== Step (a)\nstep a\nBuild stopped by user\n", log_text);
  EXPECT_EQ(1, static_cast<StepAction&>(*project.Actions[0]).Terminations);
  EXPECT_FALSE(Run(Loop(5, Step("x", kSucceed, stop))));
  EXPECT_EQ("== Count Loop\npass 1\n== Step (x)\nstep x\nBuild stopped by user\n", log_text);
}

}  // namespace
}  // namespace jx
