// Work handed to the main thread (the user-interface thread of the host):
// the build thread's Synchronize calls, and interrupt requests.
#pragma once

#include <condition_variable>
#include <deque>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>

namespace jx {

class MainThreadQueue {
 public:
  // The thread that calls Serve.
  MainThreadQueue() : main_thread_(std::this_thread::get_id()) {}

  // Runs `method` on the main thread and waits for it; its exception is
  // rethrown here. Called on the main thread, or after Close, it runs at once.
  void RunAndWait(const std::function<void()>& method);
  // Queues `method` without waiting; ignored once the queue is closed.
  void Post(std::function<void()> method);
  // On the main thread: runs queued work until Close is called and the queue is empty.
  void Serve();
  // Ends Serve once the work queued so far has run.
  void Close();

 private:
  struct Request {
    const std::function<void()>* Method;
    bool Done = false;
    std::exception_ptr Error;
  };
  struct Item {
    std::function<void()> Method;  // posted work
    Request* Waiting = nullptr;    // or a caller waiting for its request
  };

  void RunItem(Item& item, std::unique_lock<std::mutex>& lock);

  const std::thread::id main_thread_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<Item> items_;
  bool closed_ = false;
};

}  // namespace jx
