#include "host/buildrun.h"

#include <exception>
#include <thread>

namespace jx {

BuildRun::BuildRun(Project& project, VariableStore& variables, BuildLog& log, bool unattended)
    : project_(project),
      log_(log),
      host_(variables, log, main_thread_, stop_, unattended),
      engine_(log, stop_) {}

bool BuildRun::Run() {
  ForEachAction(project_.Actions, [this](TCustomJXAction& action) { action.SetHost(&host_); });
  bool succeeded = false;
  std::thread build([&] {
    succeeded = RunActions();
    main_thread_.Close();
  });
  main_thread_.Serve();
  build.join();
  log_.EndBuild(succeeded);
  return succeeded;
}

bool BuildRun::RunActions() {
  try {
    ForEachAction(project_.Actions, [](TCustomJXAction& action) { action.ResetBuildStatus(); });
    return engine_.Run(project_.Actions);
  } catch (const std::exception& e) {
    log_.Line(std::string("Error: ") + e.what());
    return false;
  }
}

void BuildRun::RequestStop() {
  stop_.store(true);  // at once, so that no further action or pass starts
  main_thread_.Post([this] { Stop(); });
}

void BuildRun::Stop() {
  stop_.store(true);
  TCustomJXAction* running = engine_.Running();
  if (running && running->CanTerminate()) running->TerminateAction();
}

}  // namespace jx
