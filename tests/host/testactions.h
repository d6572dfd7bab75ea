// Host test pieces: a step that succeeds, fails or throws as told, a loop of
// a given number of passes, and a build log in a temporary file.
#pragma once

#include <cstdio>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

#include "framework/jxwhileaction.h"
#include "host/buildlog.h"
#include "rtl/strutils.h"
#include "support/tempdir.h"

namespace jx::test {

class StepAction : public TJXAction {
 public:
  enum TOutcome { soSucceed, soFail, soThrow };

  StepAction() { AddScript("OnExecute"); }
  static const TJXClassInfo& ClassInfo() {
    using C = StepAction;
    static const TJXClassInfo info = MakeClassInfo<C>(
        "TStepAction", TPublished<C>()
                           .String("Label", &C::Label)
                           .Integer("Outcome", &C::Outcome)
                           .StringList("Notes", &C::Notes)
                           .IntegerResult("Terminations", &C::Terminations)
                           .Build());
    return info;
  }
  const TJXClassInfo& GetClassInfo() const override { return ClassInfo(); }
  std::string GetActionName() const override { return "Step"; }
  std::string GetDescriptionKeyValue(int) const override { return Label; }
  // Logs "step <label>", runs OnExecute, then does what Outcome says.
  bool Execute() override {
    SendMessage("step " + Label);
    if (OnExecute) OnExecute(*this);
    if (Outcome == soThrow) throw std::runtime_error("step " + Label + " broke");
    return Outcome == soSucceed;
  }
  bool CanTerminate() const override { return true; }
  void TerminateAction() override { ++Terminations; }

  std::string Label;
  int Outcome = soSucceed;
  TStringList Notes;
  int Terminations = 0;  // a run result
  std::function<void(StepAction&)> OnExecute;
};

// Logs "pass N"; runs its children after every Execute, and again while
// fewer than Passes passes ran.
class CountLoop : public TWhileAction {
 public:
  static const TJXClassInfo& ClassInfo() {
    using C = CountLoop;
    static const TJXClassInfo info =
        MakeClassInfo<C>("TCountLoop", TPublished<C>().Integer("Passes", &C::Passes).Build());
    return info;
  }
  const TJXClassInfo& GetClassInfo() const override { return ClassInfo(); }
  std::string GetActionName() const override { return "Count Loop"; }
  bool Execute() override {
    if (!TWhileAction::Execute()) return false;
    SendMessage("pass " + IntToStr(PassCount()));
    return true;
  }
  void GetNextActionSource(int state, int& next) override {
    next = state == nssAfterExecute ? naRunChildren : PassCount() < Passes ? naRepeat : naLeave;
  }

  int Passes = 1;
};

// A build log in a temporary file (its console in an anonymous one), read back.
class LogFile {
 public:
  LogFile() { log_.OpenFile(dir_ / "build.log"); }
  BuildLog& Log() { return log_; }
  std::string Text() {
    log_.CloseFile();
    return ReadFile(dir_ / "build.log");
  }

 private:
  TempDir dir_;
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> console_{std::tmpfile(), &std::fclose};
  BuildLog log_{console_.get(), false};
};

}  // namespace jx::test
