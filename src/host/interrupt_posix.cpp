// The POSIX watcher: the signal handler only writes a byte to a pipe (safe
// in a handler); a thread reads the pipe and does the real work. A handler,
// unlike a blocked signal mask, is not inherited by programs an action
// starts, so they still get Ctrl-C as usual.
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include "host/interrupt.h"

namespace jx {

namespace {

constexpr char kInterrupt = 'i';
constexpr char kQuit = 'q';

int g_signal_pipe = -1;  // write end, for the handler
struct sigaction g_previous_action;

void OnSignal(int) {
  const int saved = errno;
  const char byte = kInterrupt;
  [[maybe_unused]] ssize_t written = write(g_signal_pipe, &byte, 1);
  errno = saved;
}

}  // namespace

InterruptWatcher::InterruptWatcher(std::function<void()> on_interrupt) : on_interrupt_(std::move(on_interrupt)) {
  // Started with Ctrl-C ignored (nohup, a background job): leave it so.
  struct sigaction current {};
  if (sigaction(SIGINT, nullptr, &current) != 0 || current.sa_handler == SIG_IGN) return;
  if (pipe2(pipe_, O_CLOEXEC) != 0) return;  // without a pipe Ctrl-C keeps its default effect
  g_signal_pipe = pipe_[1];
  struct sigaction action {};
  action.sa_handler = OnSignal;
  sigemptyset(&action.sa_mask);
  action.sa_flags = SA_RESTART;
  sigaction(SIGINT, &action, &g_previous_action);
  thread_ = std::thread([this] { Watch(); });
}

InterruptWatcher::~InterruptWatcher() {
  if (!thread_.joinable()) return;
  sigaction(SIGINT, &g_previous_action, nullptr);
  const char byte = kQuit;
  [[maybe_unused]] ssize_t written = write(pipe_[1], &byte, 1);
  thread_.join();
  g_signal_pipe = -1;
  close(pipe_[0]);
  close(pipe_[1]);
}

void InterruptWatcher::Watch() {
  int interrupts = 0;
  char byte = 0;
  for (;;) {
    const ssize_t got = read(pipe_[0], &byte, 1);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0 || byte == kQuit) return;
    if (++interrupts == 1) {
      // Stop first: whoever reads the notice may rely on the stop being set.
      on_interrupt_();
      std::fputs("jaxtor: stopping the build (Ctrl-C again to quit at once)\n", stderr);
    } else {
      std::fputs("jaxtor: interrupted\n", stderr);
      std::_Exit(130);
    }
  }
}

}  // namespace jx
