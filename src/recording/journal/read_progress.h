// How far the files of an interrupted recording are read: tens of gigabytes take minutes.
#pragma once

#include <cstdint>
#include <exception>
#include <functional>
#include <memory>

#include "platform/file_system.h"

namespace chartproject {

/// Thrown by a report of ReadProgress when the user gives up: nothing was changed, and it is not a fault to be shown.
class RecoveryGivenUp : public std::exception {};

/// Counts what is read of files that are read more than once, and reports it now and then.
class ReadProgress {
 public:
  /// @param report called about every 4 MB with the part that is done, 0 to 100; what it throws ends the reading
  explicit ReadProgress(std::function<void(int percent)> report) : report_(std::move(report)) {}

  /// So many bytes more will be read.
  void Expect(std::uint64_t bytes) noexcept { expected_ += bytes; }
  /// The same file, followed. The progress outlives it.
  [[nodiscard]] std::unique_ptr<InputFile> Follow(std::unique_ptr<InputFile> file);
  /// So many bytes were read.
  void Add(std::uint64_t bytes);

 private:
  std::function<void(int percent)> report_;
  std::uint64_t expected_ = 0;
  std::uint64_t done_ = 0;
  std::uint64_t reported_ = 0;  ///< of done_
};

/// As ReadProgress::Follow, where there may be none.
[[nodiscard]] std::unique_ptr<InputFile> Followed(std::unique_ptr<InputFile> file, ReadProgress* progress);

}  // namespace chartproject
