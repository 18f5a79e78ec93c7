// A flag that the signal handler raises and the next question takes down.
#include "backends/posix/keyboard_signals.h"

#include <csignal>
#include <initializer_list>

namespace chartproject {

namespace {
// A signal handler reaches nothing but such a flag.
volatile std::sig_atomic_t signalled = 0;

void Note(int /*signal*/) {
  signalled = 1;
}
}  // namespace

void KeyboardSignals::Watch() {
  // No SA_RESTART: a sleep between two ticks ends at once.
  struct sigaction action {};
  action.sa_handler = Note;
  sigemptyset(&action.sa_mask);
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) sigaction(number, &action, nullptr);
}

bool KeyboardSignals::EscapePressed() {
  const bool pressed = signalled != 0;
  signalled = 0;
  return pressed;
}

}  // namespace chartproject
