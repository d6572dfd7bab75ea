#include "host/engine.h"

#include <chrono>

namespace jx {

bool Engine::Run(const ActionList& actions) {
  for (const auto& action : actions) {
    if (StopRequested()) return false;
    if (!action->Enabled) {
      action->SetActionStatus(TJXActionStatus::asDisabled);
      continue;
    }
    if (!RunAction(*action)) return false;
  }
  return true;
}

bool Engine::RunAction(TCustomJXAction& action) {
  if (auto* loop = dynamic_cast<TWhileAction*>(&action)) return RunLoop(*loop);
  return ExecuteOnce(action) != ActionOutcome::Failed;
}

// Each pass: the loop action's Execute, then its answer for state 0 (run the
// children?), then, after the children, its answer for state 1 (once more?).
// Any other answer leaves the loop.
bool Engine::RunLoop(TWhileAction& loop) {
  for (bool first_pass = true;; first_pass = false) {
    if (!first_pass && StopRequested()) return false;
    const ActionOutcome outcome = ExecuteOnce(loop);
    if (outcome != ActionOutcome::Succeeded) return outcome == ActionOutcome::FailedIgnored;
    int next = naNone;
    loop.GetNextActionSource(nssAfterExecute, next);
    if (next != naRunChildren) return true;
    if (!Run(loop.Children())) return false;
    next = naNone;
    loop.GetNextActionSource(nssAfterChildren, next);
    if (next != naRepeat) return true;
  }
}

ActionOutcome Engine::ExecuteOnce(TCustomJXAction& action) {
  log_.BeginAction(action.GetDescription());
  action.SetActionStatus(TJXActionStatus::asRunning);
  const auto start = std::chrono::steady_clock::now();
  const bool succeeded = Execute(action);
  const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
  action.SetActionStatus(succeeded ? TJXActionStatus::asSuccess : TJXActionStatus::asFailed);
  const ActionOutcome outcome = succeeded              ? ActionOutcome::Succeeded
                                : action.IgnoreFailure ? ActionOutcome::FailedIgnored
                                                       : ActionOutcome::Failed;
  log_.EndAction(outcome, elapsed.count());
  return outcome;
}

// An exception that leaves an action is its failure, logged with its text.
bool Engine::Execute(TCustomJXAction& action) {
  running_.store(&action);
  bool succeeded = false;
  try {
    succeeded = action.Execute();
  } catch (const std::exception& e) {
    log_.Line(std::string("Error: ") + e.what());
  } catch (...) {
    log_.Line("Error: unknown exception");
  }
  running_.store(nullptr);
  return succeeded;
}

bool Engine::StopRequested() {
  if (!stop_.load()) return false;
  log_.Line("Build stopped by user");
  return true;
}

}  // namespace jx
