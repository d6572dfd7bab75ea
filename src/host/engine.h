// The engine: runs action lists in order on the build thread, drives loop
// actions through GetNextActionSource, and writes each run to the build log.
#pragma once

#include <atomic>

#include "framework/jxwhileaction.h"
#include "host/buildlog.h"
#include "host/project.h"

namespace jx {

class Engine {
 public:
  Engine(BuildLog& log, const std::atomic<bool>& stop) : log_(log), stop_(stop) {}

  // Runs the enabled actions in order; false when one failed without
  // IgnoreFailure or the stop signal was set.
  bool Run(const ActionList& actions);
  // The action whose Execute runs now, or null. Safe from any thread.
  TCustomJXAction* Running() const { return running_.load(); }

 private:
  bool RunAction(TCustomJXAction& action);
  bool RunLoop(TWhileAction& loop);
  ActionOutcome ExecuteOnce(TCustomJXAction& action);
  bool Execute(TCustomJXAction& action);
  // True, after logging it, when the user asked the build to stop.
  bool StopRequested();

  BuildLog& log_;
  const std::atomic<bool>& stop_;
  std::atomic<TCustomJXAction*> running_{nullptr};
};

}  // namespace jx
