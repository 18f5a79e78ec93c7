// The rows of a file that may still be written.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>

#include "recording/file/point_reader.h"

namespace chartproject {

/// A file up to a place that moves on: its readers never see a line that is not whole.
class FileUpTo : public InputFile {
 public:
  explicit FileUpTo(std::unique_ptr<InputFile> file) : file_(std::move(file)) {}

  /// Looks how far the file goes now. @param wholeLines without a last line that has no line end yet
  void Refresh(bool wholeLines);

  [[nodiscard]] std::size_t Read(std::span<char> buffer) override;
  void Seek(std::uint64_t offset) override { position_ = offset; }
  [[nodiscard]] FileIdentity Identity() override { return file_->Identity(); }
  [[nodiscard]] std::uint64_t End() const noexcept { return end_; }

 private:
  std::unique_ptr<InputFile> file_;
  std::uint64_t position_ = 0;
  std::uint64_t end_ = 0;
};

/// Which lines count as rows.
enum class RowNumbers : std::uint8_t {
  kEachLine,   ///< as everywhere in chart files: a line is a row, also one that is not a point
  kEachPoint,  ///< in a journal there are notes among the rows
};

class GrowingRows {
 public:
  /// @param first of the rows. Throws RunTimeError 57, as the others.
  GrowingRows(std::unique_ptr<InputFile> file, const RowStart& first, RowNumbers numbers);

  /// Looks for more; see FileUpTo::Refresh.
  void Refresh(bool wholeLines) { file_.Refresh(wholeLines); }
  /// The next point; rows that are not points are passed. False when there is none now: a later call may find one.
  [[nodiscard]] bool Next(PointLine& line);
  /// Number of the row that Next gave last, from 1.
  [[nodiscard]] std::int64_t Number() const noexcept { return number_; }
  /// Begins again, and passes rows up to one or up to the end. @param goOn false ends the passing
  void GoTo(std::int64_t number, const std::function<bool()>& goOn);
  /// Rows passed so far.
  [[nodiscard]] std::int64_t Passed() const noexcept;
  /// Bytes given so far, and bytes that are there.
  [[nodiscard]] std::uint64_t Offset() const noexcept { return offset_; }
  [[nodiscard]] std::uint64_t Size() const noexcept { return file_.End(); }

 private:
  FileUpTo file_;
  RowStart first_;
  RowNumbers numbers_;
  std::optional<PointReader> reader_;
  std::int64_t number_ = 0;
  std::uint64_t offset_ = 0;
};

}  // namespace chartproject
