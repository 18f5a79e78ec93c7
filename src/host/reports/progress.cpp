// Progress as text.
#include "host/reports/progress.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "common/values/numbers.h"
#include "host/session/visible_output.h"

namespace chartproject {

namespace {

constexpr auto kBetweenBars = std::chrono::milliseconds(100);
constexpr auto kBetweenLines = std::chrono::minutes(1);
constexpr int kBarWidth = 24;

}  // namespace

std::string ProgressText(std::int64_t done, std::int64_t total, double rate, const std::string& many) {
  const std::int64_t percent = total > 0 ? done * 100 / total : 100;
  std::string text = std::to_string(done) + "/" + std::to_string(total) + " (" + std::to_string(percent) + " %)";
  if (rate > 0) {
    std::array<char, 64> speed{};
    std::snprintf(speed.data(), speed.size(), rate < 100 ? ", %.1f " : ", %.0f ", rate);
    text +=
        speed.data() + many + "/s, " + FormatSeconds(std::llround(static_cast<double>(total - done) / rate)) + " left";
  }
  return text;
}

std::string ProgressBarText(std::int64_t done, std::int64_t total, int width) {
  const auto full = total > 0 ? static_cast<int>(std::clamp(done, std::int64_t{0}, total) * width / total) : width;
  return std::string(static_cast<std::size_t>(full), '#') + std::string(static_cast<std::size_t>(width - full), '-');
}

ProgressKind ProgressKindFor(bool quiet) {
  if (quiet) return ProgressKind::kNone;
  return isatty(STDERR_FILENO) != 0 ? ProgressKind::kBar : ProgressKind::kLines;
}

void Progress::Show(std::int64_t done, std::int64_t total) {
  if (kind_ == ProgressKind::kNone) return;
  const bool bar = kind_ == ProgressKind::kBar;
  const auto now = SteadyClock::now();
  if (!begun_) {
    begun_ = true;
    begin_ = now;
    shown_ = bar ? now - kBetweenBars : now;
    first_ = done;
  }
  if (now - shown_ < (bar ? SteadyClock::duration(kBetweenBars) : kBetweenLines) && done < total) return;
  shown_ = now;
  const double seconds = std::chrono::duration<double>(now - begin_).count();
  const double rate = seconds > 0 ? static_cast<double>(done - first_) / seconds : 0;
  if (bar) {
    // Blanks at the end cover a longer line from before.
    RestartLine(out_);
    out_ << "[" << ProgressBarText(done, total, kBarWidth) << "] " << ProgressText(done, total, rate, words_.many)
         << "    ";
    lineOpen_ = true;
  } else {
    out_ << words_.one << " " << ProgressText(done, total, rate, words_.many) << "\n";
  }
  out_ << std::flush;
}

void Progress::Note(const std::string& text) {
  if (kind_ == ProgressKind::kNone) return;
  EndLine();
  out_ << text << "\n" << std::flush;
}

void Progress::EndLine() {
  if (!lineOpen_) return;
  lineOpen_ = false;
  out_ << "\n" << std::flush;
}

void PercentBar::Show(std::int64_t percent) {
  constexpr int kWidth = 40;
  if (!shows_ || percent == shown_) return;
  shown_ = percent;
  RestartLine(out_);
  out_ << word_ << " [" << ProgressBarText(percent, 100, kWidth) << "] " << percent << " %" << std::flush;
  lineOpen_ = true;
}

void PercentBar::EndLine() {
  if (lineOpen_) out_ << "\n";
  lineOpen_ = false;
}

}  // namespace chartproject
