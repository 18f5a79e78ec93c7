// Choice of a step of time, and the labels at its multiples.
#include "chart/picture/geometry/time_axis.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "common/values/numbers.h"
#include "recording/companion/point_clock.h"

namespace chartproject {
namespace {

constexpr std::int64_t kSecond = 1000;
constexpr std::int64_t kMinute = 60 * kSecond;
constexpr std::int64_t kHour = 60 * kMinute;
constexpr std::int64_t kDay = kMillisecondsPerDay;
constexpr double kGap = 10.0;  ///< least distance of two labels, pixels

/// The next longer step.
std::int64_t StepAfter(std::int64_t step) {
  static constexpr std::int64_t kSteps[] = {1,
                                            2,
                                            5,
                                            10,
                                            20,
                                            50,
                                            100,
                                            200,
                                            500,
                                            kSecond,
                                            2000,
                                            5000,
                                            10 * kSecond,
                                            15 * kSecond,
                                            30 * kSecond,
                                            kMinute,
                                            2 * kMinute,
                                            5 * kMinute,
                                            10 * kMinute,
                                            15 * kMinute,
                                            30 * kMinute,
                                            kHour,
                                            2 * kHour,
                                            3 * kHour,
                                            6 * kHour,
                                            12 * kHour,
                                            kDay};
  const auto* const next = std::upper_bound(std::begin(kSteps), std::end(kSteps), step);
  if (next != std::end(kSteps)) return *next;
  std::int64_t power = kDay;
  while (power * 10 <= step) power *= 10;
  return step < 2 * power ? 2 * power : step < 5 * power ? 5 * power : 10 * power;
}

std::int64_t FloorTo(std::int64_t value, std::int64_t step) {
  return value - ((value % step) + step) % step;
}

/// Seconds with the decimals of a step, at least two digits before them where asked.
std::string SecondsText(std::int64_t milliseconds, std::int64_t step, int digits, const NumberFormat& format) {
  std::string text = FormatDigits(milliseconds / kSecond, digits);
  const int decimals = step % kSecond == 0 ? 0 : step % 100 == 0 ? 1 : step % 10 == 0 ? 2 : 3;
  if (decimals == 0) return text;
  return text + format.decimalSeparator +
         FormatDigits(milliseconds % kSecond, 3).substr(0, static_cast<std::size_t>(decimals));
}

/// The moments of an axis and how they are written.
class Moments {
 public:
  Moments(const ChartModel& model, const CategoryRoom& room)
      : model_(model), room_(room), first_(AtRow(0)), last_(AtRow(model.rowCount - 1)) {}

  /// Milliseconds of a row, broken ones too.
  [[nodiscard]] double AtRow(double row) const { return Along(row, &RowTime::row, &RowTime::milliseconds); }
  /// Place of a moment in rows from the axis' start: a row's point is in the middle of its slot.
  [[nodiscard]] double Position(double milliseconds) const {
    return Along(milliseconds, &RowTime::milliseconds, &RowTime::row) + 0.5;
  }
  [[nodiscard]] std::int64_t First() const { return static_cast<std::int64_t>(std::ceil(first_ - kTolerance)); }
  [[nodiscard]] std::int64_t Last() const { return static_cast<std::int64_t>(std::floor(last_ + kTolerance)); }
  [[nodiscard]] double PixelsPerMillisecond() const {
    return room_.rowWidth * std::max(1, model_.rowCount - 1) / std::max(last_ - first_, 1e-3);
  }

  [[nodiscard]] std::string Label(std::int64_t at, std::int64_t step) const {
    if (model_.categoryUnit == CategoryUnit::kElapsed) {
      return ElapsedText(at, std::max(std::abs(First()), std::abs(Last())), step, room_.numbers);
    }
    return step % kDay == 0 ? Date(at) : TimeOfDayText(at, step, room_.numbers);
  }
  [[nodiscard]] std::string Date(std::int64_t at) const {
    return model_.dateText ? model_.dateText(FloorTo(at, kDay) / kDay) : std::string();
  }

 private:
  static constexpr double kTolerance = 1e-6;

  [[nodiscard]] double Along(double at, double RowTime::*from, double RowTime::*to) const {
    const std::vector<RowTime>& times = model_.rowTimes;
    const auto after = std::upper_bound(times.begin() + 1, times.end() - 1, at,
                                        [from](double value, const RowTime& time) { return value < time.*from; });
    const RowTime& low = *(after - 1);
    const RowTime& high = *after;
    if (high.*from == low.*from) return low.*to;
    return low.*to + (at - low.*from) * (high.*to - low.*to) / (high.*from - low.*from);
  }

  const ChartModel& model_;
  const CategoryRoom& room_;
  double first_;
  double last_;
};

std::int64_t ChooseStep(const Moments& moments, const CategoryRoom& room) {
  const double pixels = moments.PixelsPerMillisecond();
  for (std::int64_t step = 1;; step = StepAfter(step)) {
    const double widest = std::max(room.textWidth(moments.Label(FloorTo(moments.First(), step), step)),
                                   room.textWidth(moments.Label(FloorTo(moments.Last(), step), step)));
    const double distance = static_cast<double>(step) * pixels;
    if (distance >= widest + kGap || step > moments.Last() - moments.First() + kDay) return step;
  }
}

/// Room of one line of labels: a text is taken where it neither leaves the axis nor touches the one before it.
class LabelLine {
 public:
  LabelLine(const CategoryRoom& room, int rows) : room_(room), right_(rows * room.rowWidth + room.rightRoom) {}
  [[nodiscard]] bool Fits(double position, std::string_view text) const {
    const double half = room_.textWidth(text) / 2;
    const double at = position * room_.rowWidth;
    return at - half >= std::max(end_ + kGap, -room_.leftRoom) && at + half <= right_;
  }
  void Take(double position, std::string_view text) { end_ = position * room_.rowWidth + room_.textWidth(text) / 2; }

 private:
  const CategoryRoom& room_;
  double right_;
  double end_ = -1e9;
};

/// Dates: midnights first, then the first label where it has room before them.
void AddDates(const std::vector<std::int64_t>& moments, const Moments& times, const CategoryRoom& room, int rows,
              CategoryAxis& axis) {
  LabelLine line(room, rows);
  double nextMidnight = 1e300;
  for (std::size_t i = 0; i < moments.size(); ++i) {
    CategoryLabel& label = axis.labels[i];
    if (moments[i] % kDay != 0 || !line.Fits(label.position, times.Date(moments[i]))) continue;
    label.date = times.Date(moments[i]);
    line.Take(label.position, label.date);
    nextMidnight = std::min(nextMidnight, label.position * room.rowWidth - room.textWidth(label.date) / 2);
  }
  for (std::size_t i = 0; i < moments.size(); ++i) {
    CategoryLabel& label = axis.labels[i];
    const std::string date = times.Date(moments[i]);
    const double half = room.textWidth(date) / 2;
    if (label.position * room.rowWidth + half + kGap > nextMidnight) return;
    if (!LabelLine(room, rows).Fits(label.position, date)) continue;
    label.date = date;
    return;
  }
}

}  // namespace

std::string ElapsedText(std::int64_t milliseconds, std::int64_t longest, std::int64_t step,
                        const NumberFormat& format) {
  const std::string sign = milliseconds < 0 ? "-" : "";
  const std::int64_t size = std::abs(milliseconds);
  if (longest < kMinute) return sign + SecondsText(size, step, 1, format) + " s";
  return sign + FormatDigits(size / kHour, 2) + ":" + FormatDigits(size / kMinute % 60, 2) + ":" +
         SecondsText(size % kMinute, step, 2, format);
}

std::string TimeOfDayText(std::int64_t milliseconds, std::int64_t step, const NumberFormat& format) {
  const std::int64_t ofDay = milliseconds - FloorTo(milliseconds, kDay);
  std::string text = FormatDigits(ofDay / kHour, 2) + ":" + FormatDigits(ofDay / kMinute % 60, 2);
  if (step % kMinute != 0) text += ":" + SecondsText(ofDay % kMinute, step, 2, format);
  return text;
}

CategoryAxis LayOutTimeAxis(const ChartModel& model, const CategoryRoom& room) {
  CategoryAxis axis;
  if (model.rowCount <= 0 || model.rowTimes.size() < 2) return axis;
  const Moments times(model, room);
  const std::int64_t step = ChooseStep(times, room);
  const std::int64_t before = FloorTo(times.First(), step);
  std::vector<std::int64_t> labelled;
  LabelLine line(room, model.rowCount);
  for (std::int64_t at = before < times.First() ? before + step : before; at <= times.Last(); at += step) {
    const double position = times.Position(static_cast<double>(at));
    axis.ticks.push_back(position);
    const std::string text = times.Label(at, step);
    if (!line.Fits(position, text)) continue;
    line.Take(position, text);
    axis.labels.push_back({position, text, {}});
    labelled.push_back(at);
  }
  if (model.categoryUnit == CategoryUnit::kTimeOfDay && step % kDay != 0) {
    AddDates(labelled, times, room, model.rowCount, axis);
  }
  return axis;
}

}  // namespace chartproject
