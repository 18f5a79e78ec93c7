// The thread that a line waits on, so that the program goes on meanwhile.
#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

#include "drive/link_wait.h"
#include "platform/clock.h"

namespace chartproject {

/// Does one piece of work at a time. Signals of the process go to the other threads.
class LineThread {
 public:
  /// @param clock of the moments that WaitUntil takes; outlives the thread
  explicit LineThread(Clock& clock);
  /// Stops what waits in WaitUntil, and waits for the end of the work.
  ~LineThread();
  LineThread(const LineThread&) = delete;
  LineThread& operator=(const LineThread&) = delete;

  /// Does the work and waits for it, calling LinkWait::GoOn at least every kLinkWaitSlice. Work that throws: the error
  /// is thrown here. @return false when the work is not wanted any more; it then ends by itself, its error is dropped,
  /// and the next work waits for it. @param work owns all that it uses
  [[nodiscard]] bool Do(std::function<void()> work, const LinkWait& wait);

  /// For the work itself: waits until a moment. @return false when the thread is to stop
  [[nodiscard]] bool WaitUntil(Instant moment);
  [[nodiscard]] bool Stopping();

 private:
  void Run();
  /// Waits for the end of work; false when the caller's GoOn says so.
  [[nodiscard]] bool WaitForIdle(std::unique_lock<std::mutex>& lock, const LinkWait& wait);

  Clock& clock_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::function<void()> work_;  ///< empty: nothing to do
  std::exception_ptr error_;    ///< of the last work
  bool stopping_ = false;
  std::thread thread_;
};

}  // namespace chartproject
