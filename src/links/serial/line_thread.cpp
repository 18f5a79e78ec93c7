// Handing work over, and waiting for it in slices.
#include "links/serial/line_thread.h"

#include <utility>

#include "backends/posix/signal_free_thread.h"

namespace chartproject {

LineThread::LineThread(Clock& clock) : clock_(clock), thread_(SignalFreeThread([this] { Run(); })) {}

LineThread::~LineThread() {
  {
    const std::lock_guard lock(mutex_);
    stopping_ = true;
  }
  changed_.notify_all();
  thread_.join();
}

bool LineThread::Do(std::function<void()> work, const LinkWait& wait) {
  std::unique_lock lock(mutex_);
  if (!WaitForIdle(lock, wait)) return false;
  error_ = nullptr;
  work_ = std::move(work);
  changed_.notify_all();
  if (!WaitForIdle(lock, wait)) return false;
  if (const std::exception_ptr error = std::exchange(error_, nullptr)) std::rethrow_exception(error);
  return true;
}

bool LineThread::WaitForIdle(std::unique_lock<std::mutex>& lock, const LinkWait& wait) {
  while (!changed_.wait_for(lock, kLinkWaitSlice, [this] { return !work_; })) {
    lock.unlock();  // GoOn runs handlers of the program
    const bool goOn = wait.GoOn();
    lock.lock();
    if (!goOn) return false;
  }
  return true;
}

bool LineThread::WaitUntil(Instant moment) {
  std::unique_lock lock(mutex_);
  while (!stopping_) {
    const Instant now = clock_.Now();
    if (now >= moment) return true;
    changed_.wait_for(lock, moment - now);
  }
  return false;
}

bool LineThread::Stopping() {
  const std::lock_guard lock(mutex_);
  return stopping_;
}

void LineThread::Run() {
  std::unique_lock lock(mutex_);
  while (true) {
    changed_.wait(lock, [this] { return stopping_ || work_; });
    if (stopping_) return;
    lock.unlock();
    std::exception_ptr error;
    try {
      work_();  // changed by this thread only while it is set
    } catch (...) {
      error = std::current_exception();
    }
    lock.lock();
    error_ = error;
    work_ = nullptr;
    changed_.notify_all();
  }
}

}  // namespace chartproject
