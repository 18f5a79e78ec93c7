// The points of a recording for somebody who sends them on: from the files of a recording that runs, then from its
// chart file. Nothing is taken from the memory of the recorder, so that any other program can do the same.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "recording/companion/companion.h"
#include "recording/journal/failure_notes.h"
#include "recording/journal/growing_rows.h"

namespace chartproject {

/// A point and its number, from 1; the views hold until the next call.
struct FedPoint {
  std::int64_t number = 0;
  ChartRow row;
};

/// A text that is the same for one recording while it runs, when it was recovered and when its file was moved, and
/// another one for every other recording of the drive: 16 hexadecimal digits. @param beside added to it; may be empty
[[nodiscard]] std::string RecordingMark(const ChartHeader& header, const std::string& beside = {});

/// All throw RunTimeError when a file cannot be read.
class RecordingFeed {
 public:
  /// @param chartFile full name, links resolved; files and code page outlive the feed
  RecordingFeed(FileSystem& files, const CodePage& codePage, std::string chartFile)
      : files_(files), codePage_(codePage), chartFile_(std::move(chartFile)), noted_(codePage) {}

  /// Opens the journal of the recording that runs. False while there is none with a point.
  [[nodiscard]] bool OpenRunning();
  /// Opens the chart file. Throws RunTimeError 321 when it is not one.
  void OpenFinished();
  /// Nothing was opened yet.
  [[nodiscard]] bool Closed() const noexcept { return parts_.empty(); }
  [[nodiscard]] bool Running() const noexcept { return running_; }

  [[nodiscard]] const ChartHeader& Header() const noexcept { return header_; }
  /// What is known beside the chart file; null while the recording runs and where nothing is.
  [[nodiscard]] const Companion* Readings() const noexcept { return companion_ ? &*companion_ : nullptr; }

  /// Looks for points that came since. False when the recording ended: its points are in the chart file now.
  [[nodiscard]] bool Follow();
  /// The next point. False when there is none now.
  [[nodiscard]] bool Next(FedPoint& point);
  /// The next point will be this one. @param goOn false ends the search
  void GoTo(std::int64_t number, const std::function<bool()>& goOn);
  /// Whether a reading failed. @param column from 0
  [[nodiscard]] bool Failed(std::size_t column, std::int64_t number, bool zero) const;
  /// How much of the chart file was given, 0 to 1.
  [[nodiscard]] double Share() const noexcept;

 private:
  void FollowJournal();
  void TakeJournalLine(const TextLine& line);
  /// The very journal that was found; null when it is not there any more.
  [[nodiscard]] std::unique_ptr<InputFile> OpenJournal();

  FileSystem& files_;
  const CodePage& codePage_;
  std::string chartFile_;
  ChartHeader header_;
  std::optional<Companion> companion_;
  bool running_ = false;

  std::string journalName_;
  FileIdentity journalIdentity_;
  std::unique_ptr<FileUpTo> journal_;
  std::unique_ptr<LineReader> journalLines_;
  NotedFailures noted_;
  bool gap_ = false;  ///< rows went on in a file that is not there: the rest comes with the chart file

  std::vector<std::unique_ptr<GrowingRows>> parts_;  ///< in the order of their rows
  std::size_t part_ = 0;
  std::int64_t base_ = 0;  ///< points in the parts before
};

}  // namespace chartproject
