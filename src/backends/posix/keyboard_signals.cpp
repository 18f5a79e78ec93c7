// A flag that the signal handler raises and the next question takes down, and a count.
#include "backends/posix/keyboard_signals.h"

#include <csignal>
#include <initializer_list>

namespace chartproject {

namespace {
// A signal handler may access only such variables.
volatile std::sig_atomic_t signalled = 0;
volatile std::sig_atomic_t received = 0;

void Note(int /*signal*/) {
  signalled = 1;
  received = received + 1;
}
}  // namespace

void KeyboardSignals::Watch() {
  // No SA_RESTART: a sleep between two ticks ends at once.
  struct sigaction action {};
  action.sa_handler = Note;
  sigemptyset(&action.sa_mask);
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction before {};
    if (sigaction(number, nullptr, &before) == 0 && before.sa_handler == SIG_IGN) continue;
    sigaction(number, &action, nullptr);
  }
}

int KeyboardSignals::Received() noexcept {
  return received;
}

bool KeyboardSignals::EscapePressed() {
  const bool pressed = signalled != 0;
  signalled = 0;
  return pressed;
}

}  // namespace chartproject
