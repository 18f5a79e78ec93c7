// Threads beside the one that takes the process' signals.
#pragma once

#include <csignal>
#include <thread>
#include <utility>

namespace chartproject {

/// A thread that gets no signal of the process: one that came there would not end the sleep of the thread that waits
/// for it.
template <class Work>
[[nodiscard]] std::thread SignalFreeThread(Work work) {
  sigset_t all{};
  sigset_t before{};
  sigfillset(&all);
  pthread_sigmask(SIG_SETMASK, &all, &before);
  std::thread thread(std::move(work));  // it begins with the mask of this thread
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  return thread;
}

}  // namespace chartproject
