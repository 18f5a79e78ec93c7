// Running sums whose rounding does not grow with the number of points.
#include "chart/measure/range_statistics.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "recording/file/field_value.h"

namespace chartproject {
namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();
/// Values kept for the second pass; more are read again. 8 MB with four series.
constexpr std::int64_t kMostKept = 250'000;

/// A sum with the digits that each addition loses (Neumaier's form of Kahan's summation).
class ExactSum {
 public:
  void Add(double value) noexcept {
    const double sum = sum_ + value;
    lost_ += std::abs(sum_) >= std::abs(value) ? (sum_ - sum) + value : (value - sum) + sum_;
    sum_ = sum;
  }
  [[nodiscard]] double Value() const noexcept { return std::isfinite(lost_) ? sum_ + lost_ : sum_; }

 private:
  double sum_ = 0;
  double lost_ = 0;
};

/// The first pass over one series.
class SeriesSums {
 public:
  void Take(double value, double seconds) {
    if (std::isnan(value)) {
      ++leftOut_;
      joined_ = false;
      return;
    }
    ++count_;
    minimum_ = std::min(minimum_, value);
    maximum_ = std::max(maximum_, value);
    sum_.Add(value);
    squares_.Add(value * value);
    if (joined_) area_.Add((before_ + value) / 2 * (seconds - secondsBefore_));
    before_ = value;
    secondsBefore_ = seconds;
    joined_ = true;
    TakeForSlope(value, seconds);
  }

  [[nodiscard]] SeriesStatistics Result() const {
    SeriesStatistics result{.count = count_, .leftOut = leftOut_};
    if (count_ == 0) {
      for (double* number :
           {&result.minimum, &result.maximum, &result.mean, &result.rms, &result.slope, &result.integral}) {
        *number = kUnknown;
      }
      return result;
    }
    const auto count = static_cast<double>(count_);
    result.minimum = minimum_;
    result.maximum = maximum_;
    // Rounding must not move the mean of equal values past them: it would count as crossed.
    const double sum = sum_.Value();
    result.mean = std::isfinite(sum) ? std::clamp(sum / count, minimum_, maximum_) : kUnknown;  // a few of 1e308
    const double meanSquare = squares_.Value() / count;
    result.rms = std::isfinite(meanSquare) ? std::sqrt(meanSquare) : kUnknown;  // of 1e155 the square is too large
    result.slope = spread_ > 0 ? together_ / spread_ : kUnknown;
    const double area = area_.Value();
    result.integral = std::isnan(secondsBefore_) || !std::isfinite(area) ? kUnknown : area;
    return result;
  }

 private:
  /// Spread of the times and common spread of times and values around their running means (Welford's recurrence).
  void TakeForSlope(double value, double seconds) {
    const double off = seconds - meanSeconds_;
    meanSeconds_ += off / static_cast<double>(count_);
    meanValue_ += (value - meanValue_) / static_cast<double>(count_);
    spread_ += off * (seconds - meanSeconds_);
    together_ += off * (value - meanValue_);
  }

  std::int64_t count_ = 0;
  std::int64_t leftOut_ = 0;
  double minimum_ = std::numeric_limits<double>::infinity();
  double maximum_ = -std::numeric_limits<double>::infinity();
  ExactSum sum_;
  ExactSum squares_;
  ExactSum area_;
  bool joined_ = false;  ///< the point before has a value
  double before_ = 0;
  double secondsBefore_ = kUnknown;
  double meanSeconds_ = 0;
  double meanValue_ = 0;
  double spread_ = 0;
  double together_ = 0;
};

/// Counts how often values change the side of a level. A value on the level is on neither side.
class CrossingCount {
 public:
  explicit CrossingCount(double level) : level_(level) {}
  void Take(double value) {
    const int side = value > level_ ? 1 : value < level_ ? -1 : 0;
    if (side == 0) return;
    if (side == -side_) ++count_;
    side_ = side;
  }
  [[nodiscard]] std::int64_t Count() const { return count_; }

 private:
  double level_;
  int side_ = 0;
  std::int64_t count_ = 0;
};

using RowTaker = std::function<void(std::int64_t point, std::span<const double> values)>;

/// Gives the values of each point of the request, NaN for those that are left out. False when given up.
bool ReadValues(ChartSource& source, const MeasureRequest& request, const NumberFormat& format,
                const ScanProgress& progress, const RowTaker& take) {
  std::vector<FailedCursor> failed;
  failed.reserve(static_cast<std::size_t>(request.series));
  for (int s = 0; s < request.series; ++s) {
    failed.emplace_back(request.failed == nullptr ? nullptr : &request.failed->at(static_cast<std::size_t>(s)));
  }
  std::vector<double> values(static_cast<std::size_t>(request.series));
  const auto row = [&](std::int64_t point, const ChartRow& texts) {
    for (std::size_t s = 0; s < values.size(); ++s) {
      values[s] = failed[s].Failed(point) ? kUnknown : FieldValue(texts.values[s], format);
    }
    take(point, values);
    return true;
  };
  return source.ForEach(request.first, request.last, row, progress);
}

/// The rows of the first pass, as long as they are not too many.
struct KeptRows {
  std::vector<double> values;  ///< row by row
  bool complete = true;
  void Take(std::span<const double> row) {
    if (static_cast<std::int64_t>(values.size()) >= kMostKept * static_cast<std::int64_t>(row.size())) {
      complete = false;
      values = {};
    }
    if (complete) values.insert(values.end(), row.begin(), row.end());
  }
};

}  // namespace

bool FailedCursor::Failed(std::int64_t point) {
  if (column_ == nullptr) return false;
  const std::vector<FailedRange>& ranges = column_->Ranges();
  while (at_ < ranges.size() && ranges[at_].last < point) ++at_;
  return at_ < ranges.size() && ranges[at_].first <= point;
}

std::optional<std::vector<SeriesStatistics>> MeasureRange(ChartSource& source, const MeasureRequest& request,
                                                          const NumberFormat& format, const ScanProgress& progress) {
  constexpr double kMillisecondsPerSecond = 1000;
  const bool timed = request.clock != nullptr && request.clock->Known();
  // Seconds count from the first point of the range, so that they are short numbers.
  const double began = timed ? request.clock->ElapsedAt(static_cast<double>(request.first)) : 0;
  std::vector<SeriesSums> sums(static_cast<std::size_t>(request.series));
  KeptRows kept;
  const bool twice = request.last - request.first >= kMostKept;
  const auto half = [&](double from) {
    return [&, from](double part) { return !progress || progress(twice ? from + part / 2 : part); };
  };
  const bool read = ReadValues(source, request, format, half(0), [&](std::int64_t point, auto values) {
    const double elapsed = timed ? request.clock->ElapsedAt(static_cast<double>(point)) - began : kUnknown;
    for (std::size_t s = 0; s < sums.size(); ++s) sums[s].Take(values[s], elapsed / kMillisecondsPerSecond);
    kept.Take(values);
  });
  if (!read) return std::nullopt;

  std::vector<SeriesStatistics> results;
  std::vector<CrossingCount> crossings;
  for (const SeriesSums& series : sums) {
    results.push_back(series.Result());
    crossings.emplace_back(results.back().mean);
  }
  const auto count = [&crossings](std::int64_t /*point*/, std::span<const double> values) {
    for (std::size_t s = 0; s < crossings.size(); ++s) crossings[s].Take(values[s]);
  };
  if (!kept.complete) {
    if (!ReadValues(source, request, format, half(0.5), count)) return std::nullopt;
  } else if (!crossings.empty()) {
    for (std::size_t at = 0; at < kept.values.size(); at += crossings.size()) {
      count(0, std::span(kept.values).subspan(at, crossings.size()));
    }
  }
  for (std::size_t s = 0; s < results.size(); ++s) results[s].crossings = crossings[s].Count();
  return results;
}

}  // namespace chartproject
