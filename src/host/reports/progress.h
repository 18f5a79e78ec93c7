// How a recording's progress is shown: a bar on a terminal, plain lines elsewhere.
#pragma once

#include <chrono>
#include <cstdint>
#include <ostream>
#include <string>
#include <utility>

namespace chartproject {

enum class ProgressKind {
  kNone,   ///< --quiet
  kLines,  ///< a file or a pipe: a line once a minute
  kBar     ///< a terminal: one line that is written over, at most ten times a second
};

/// What standard error is good for.
[[nodiscard]] ProgressKind ProgressKindFor(bool quiet);

/// What is counted.
struct ProgressWords {
  std::string one = "point";
  std::string many = "points";
};

/// Times are those of the real clock, also while the recording runs on another; the last point is always shown.
class Progress {
 public:
  Progress(std::ostream& out, ProgressKind kind, ProgressWords words = {})
      : out_(out), kind_(kind), words_(std::move(words)) {}

  /// @param done points taken so far, all of them kept already; @param total points of the recording
  void Show(std::int64_t done, std::int64_t total);
  /// A line about the recording that is not a point, for example that it waits for its trigger.
  void Note(const std::string& text);
  /// Ends the progress line, so that other output starts on a new line.
  void EndLine();

 private:
  using SteadyClock = std::chrono::steady_clock;
  std::ostream& out_;
  ProgressKind kind_;
  ProgressWords words_;
  bool lineOpen_ = false;
  bool begun_ = false;
  SteadyClock::time_point begin_;  ///< of the first point
  SteadyClock::time_point shown_;
  std::int64_t first_ = 0;
};

/// "Exporting [####----] 50 %" on a terminal: work that is counted in percent. Nothing elsewhere.
class PercentBar {
 public:
  /// @param word what is done, before the bar
  PercentBar(std::ostream& out, ProgressKind kind, std::string word)
      : out_(out), shows_(kind == ProgressKind::kBar), word_(std::move(word)) {}

  void Show(std::int64_t percent);
  /// As Progress::EndLine.
  void EndLine();

 private:
  std::ostream& out_;
  bool shows_;
  std::string word_;
  std::int64_t shown_ = -1;
  bool lineOpen_ = false;
};

/// One state of progress as text: "1234/5000 (24 %), 5.0 points/s, 00:12:33 left".
/// @param rate points a second; 0 while it is not known @param many the word for points
[[nodiscard]] std::string ProgressText(std::int64_t done, std::int64_t total, double rate,
                                       const std::string& many = "points");

/// A bar of `width` characters that is full when all is done.
[[nodiscard]] std::string ProgressBarText(std::int64_t done, std::int64_t total, int width);

}  // namespace chartproject
