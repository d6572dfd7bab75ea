// Ctrl-C during a build. While an InterruptWatcher lives, the first SIGINT
// calls `on_interrupt` from the watcher's own thread; a second one ends the
// process at once (exit status 130). A process started with SIGINT ignored
// keeps ignoring it.
#pragma once

#include <functional>
#include <thread>

namespace jx {

class InterruptWatcher {
 public:
  explicit InterruptWatcher(std::function<void()> on_interrupt);
  ~InterruptWatcher();
  InterruptWatcher(const InterruptWatcher&) = delete;
  InterruptWatcher& operator=(const InterruptWatcher&) = delete;

 private:
  void Watch();

  std::function<void()> on_interrupt_;
  int pipe_[2] = {-1, -1};
  std::thread thread_;
};

}  // namespace jx
