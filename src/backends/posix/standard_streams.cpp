// Signals of failed writes, and closed streams.
#include "backends/posix/standard_streams.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <initializer_list>

namespace chartproject {

namespace {
void Ignore(int /*signal*/) {}
}  // namespace

void GuardStandardStreams() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    // Takes the lowest free number, which is the stream's. For reading only: a write to it is an error, as before.
    if (fcntl(stream, F_GETFD) < 0 && errno == EBADF && open("/dev/null", O_RDONLY) < 0) return;
  }
  // A handler that does nothing, because programs that are started from here inherit what is ignored.
  struct sigaction action {};
  action.sa_handler = Ignore;
  action.sa_flags = SA_RESTART;
  sigemptyset(&action.sa_mask);
  for (const int number : {SIGPIPE, SIGXFSZ}) sigaction(number, &action, nullptr);
}

}  // namespace chartproject
