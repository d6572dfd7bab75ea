#include "host/testactions.h"

#include <stdexcept>

#include "actions/files/bactions2.h"
#include "rtl/strutils.h"

namespace jx::test {

const TJXClassInfo& StepAction::ClassInfo() {
  using C = StepAction;
  static const TJXClassInfo info = MakeClassInfo<C>("TStepAction", TPublished<C>()
                                                                       .String("Label", &C::Label, &C::SetLabel)
                                                                       .Integer("Outcome", &C::Outcome, &C::SetOutcome)
                                                                       .StringList("Notes", &C::Notes)
                                                                       .IntegerResult("Terminations", &C::Terminations)
                                                                       .Build());
  return info;
}

bool StepAction::Execute() {
  SendMessage("step " + label_);
  if (OnExecute) OnExecute(*this);
  if (outcome_ == soThrow) throw std::runtime_error("step " + label_ + " broke");
  return outcome_ == soSucceed;
}

const TJXClassInfo& CountLoop::ClassInfo() {
  using C = CountLoop;
  static const TJXClassInfo info =
      MakeClassInfo<C>("TCountLoop", TPublished<C>().Integer("Passes", &C::Passes, &C::SetPasses).Build());
  return info;
}

bool CountLoop::Execute() {
  if (!TWhileAction::Execute()) return false;
  SendMessage("pass " + IntToStr(PassCount()));
  return true;
}

void CountLoop::GetNextActionSource(int state, int& next) {
  if (state == nssAfterExecute) {
    next = naRunChildren;
  } else {
    next = PassCount() < passes_ ? naRepeat : naLeave;
  }
}

Palette TestPalette() {
  Palette palette;
  palette.RegisterAction("Step", "Test", &StepAction::ClassInfo(), "");
  palette.RegisterAction("Count Loop", "Test", &CountLoop::ClassInfo(), "");
  palette.RegisterAction("Delete File(s)", "Files & Directories", &TDeleteFilesAction::ClassInfo(), "");
  return palette;
}

}  // namespace jx::test
