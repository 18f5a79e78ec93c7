// Port: a side file that knows how long ago it was written.
#pragma once

namespace chartproject {

/// What a side file of a real disk offers besides: rows that come faster than anybody can look at them, as on a virtual
/// clock, need not be written one by one.
class PacedFile {
 public:
  PacedFile() = default;
  PacedFile(const PacedFile&) = delete;
  PacedFile& operator=(const PacedFile&) = delete;
  virtual ~PacedFile() = default;

  /// Whether something was appended within the last kPaceMilliseconds of real time.
  [[nodiscard]] virtual bool JustWritten() const noexcept = 0;

  static constexpr int kPaceMilliseconds = 20;
};

}  // namespace chartproject
