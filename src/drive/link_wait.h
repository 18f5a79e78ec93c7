// What a drive link asks of the program while it waits for a drive.
#pragma once

#include <chrono>
#include <functional>

namespace chartproject {

/// A link calls GoOn at least this often while it waits, in every operation. Esc, Ctrl-C and the close box then work
/// within 200 ms.
inline constexpr std::chrono::milliseconds kLinkWaitSlice{50};

/// The program's side of a waiting link: who reads over the link sets `goOn`, and the link calls GoOn.
class LinkWait {
 public:
  /// Shows the window, takes the user's input, and answers whether the reading is still wanted. Empty: it is. It runs
  /// handlers of the program, which may end the recording, but never uses the link.
  std::function<bool()> goOn;

  /// @return false: the link returns at once, with ReadFailure::kGivenUp from a reading
  [[nodiscard]] bool GoOn() const { return !goOn || goOn(); }
};

}  // namespace chartproject
