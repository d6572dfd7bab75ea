// Actions for host tests: a step that logs its label and succeeds, fails or
// throws as told, and a loop that runs its children a given number of passes.
#pragma once

#include <functional>
#include <string>

#include "framework/jxwhileaction.h"
#include "host/palette.h"

namespace jx::test {

class StepAction : public TJXAction {
 public:
  enum TOutcome { soSucceed, soFail, soThrow };

  StepAction() { AddScript("OnExecute"); }

  static const TJXClassInfo& ClassInfo();
  const TJXClassInfo& GetClassInfo() const override { return ClassInfo(); }
  std::string GetActionName() const override { return "Step"; }
  std::string GetDescriptionKeyValue(int) const override { return label_; }
  bool Execute() override;  // logs "step <label>", runs OnExecute, then does what Outcome says
  bool CanTerminate() const override { return true; }
  void TerminateAction() override { ++terminations_; }

  const std::string& Label() const { return label_; }
  void SetLabel(const std::string& value) { label_ = value; }
  int Outcome() const { return outcome_; }
  void SetOutcome(int value) { outcome_ = value; }
  TStrings& Notes() { return notes_; }
  int Terminations() const { return terminations_; }

  std::function<void(StepAction&)> OnExecute;

 private:
  std::string label_;
  int outcome_ = soSucceed;
  TStringList notes_;
  int terminations_ = 0;
};

class CountLoop : public TWhileAction {
 public:
  static const TJXClassInfo& ClassInfo();
  const TJXClassInfo& GetClassInfo() const override { return ClassInfo(); }
  std::string GetActionName() const override { return "Count Loop"; }
  bool Execute() override;  // logs "pass N"
  // Children after every Execute; another pass while fewer than Passes ran.
  void GetNextActionSource(int state, int& next) override;

  int Passes() const { return passes_; }
  void SetPasses(int value) { passes_ = value; }

 private:
  int passes_ = 1;
};

// A palette holding the two test classes and the plug-in's Delete File(s).
Palette TestPalette();

}  // namespace jx::test
