// One run of a project: the actions execute on a build thread while the
// thread that calls Run serves their Synchronize calls (the host's
// user-interface thread) and stop requests.
#pragma once

#include <atomic>

#include "host/actionhost.h"
#include "host/buildlog.h"
#include "host/engine.h"
#include "host/mainthreadqueue.h"
#include "host/project.h"
#include "host/variables.h"

namespace jx {

class BuildRun {
 public:
  // Construct on the thread that will call Run.
  BuildRun(Project& project, VariableStore& variables, BuildLog& log, bool unattended);

  // Injects the host, resets every action and runs them; ends the log with
  // the build's result. True when the build succeeded.
  bool Run();
  // From any thread: sets the stop signal at once; the main thread then
  // terminates the running action when it can be terminated.
  void RequestStop();
  // On the main thread: the same, at once.
  void Stop();

 private:
  bool RunActions();

  Project& project_;
  BuildLog& log_;
  std::atomic<bool> stop_{false};
  MainThreadQueue main_thread_;
  ActionHost host_;
  Engine engine_;
};

}  // namespace jx
