#include "host/mainthreadqueue.h"

namespace jx {

void MainThreadQueue::RunAndWait(const std::function<void()>& method) {
  std::unique_lock<std::mutex> lock(mutex_);
  if (closed_ || std::this_thread::get_id() == main_thread_) {
    lock.unlock();
    method();
    return;
  }
  Request request{&method, false, nullptr};
  items_.push_back({nullptr, &request});
  changed_.notify_all();
  changed_.wait(lock, [&] { return request.Done; });
  if (request.Error) std::rethrow_exception(request.Error);
}

void MainThreadQueue::Post(std::function<void()> method) {
  std::lock_guard<std::mutex> lock(mutex_);
  if (closed_) return;
  items_.push_back({std::move(method), nullptr});
  changed_.notify_all();
}

void MainThreadQueue::Serve() {
  std::unique_lock<std::mutex> lock(mutex_);
  for (;;) {
    changed_.wait(lock, [&] { return closed_ || !items_.empty(); });
    if (items_.empty()) return;
    Item item = std::move(items_.front());
    items_.pop_front();
    RunItem(item, lock);
  }
}

// Runs one item without holding the lock, so the work may queue more.
void MainThreadQueue::RunItem(Item& item, std::unique_lock<std::mutex>& lock) {
  lock.unlock();
  std::exception_ptr error;
  try {
    if (item.Waiting) {
      (*item.Waiting->Method)();
    } else {
      item.Method();
    }
  } catch (...) {
    // A waiting caller gets the exception back; posted work has no one to tell.
    error = std::current_exception();
  }
  lock.lock();
  if (item.Waiting) {
    item.Waiting->Error = error;
    item.Waiting->Done = true;
    changed_.notify_all();
  }
}

void MainThreadQueue::Close() {
  std::lock_guard<std::mutex> lock(mutex_);
  closed_ = true;
  changed_.notify_all();
}

}  // namespace jx

