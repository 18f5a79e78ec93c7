// The points of a recording as a plain table for other programs: one head line, then one line a point.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "chart/plain/plain_line.h"
#include "chart/plain/point_range.h"
#include "platform/code_page.h"
#include "platform/file_system.h"
#include "platform/locale.h"
#include "platform/time_zone.h"
#include "recording/companion/failed_readings.h"
#include "recording/companion/point_clock.h"

namespace chartproject {

/// A column of values.
struct PlainColumn {
  std::string head;                      ///< UTF-8, for example "P002 Motor speed [rpm]"; made unique in the table
  const FailedColumn* failed = nullptr;  ///< its failed readings; null when none are known
};

/// What is to be written.
struct PlainTable {
  PlainFormat format = PlainFormat::kCommas;
  std::vector<PlainColumn> columns;         ///< 1 to 4
  PointRange range;                         ///< of points
  PointClock clock;                         ///< of the recording
  std::optional<std::int64_t> firstMoment;  ///< milliseconds since 1970 UTC; without it, or without a known clock, the
                                            ///< time column has the file's own times
};

/// What was written.
struct PlainTableReport {
  std::int64_t points = 0;
  std::int64_t malformed = 0;       ///< lines that are not points, left out
  std::int64_t firstMalformed = 0;  ///< number of the first of them
  bool givenUp = false;
};

/// Asks in ascending order of the points whether their readings failed.
class PlainFailures {
 public:
  /// @param column outlives this object; null when none are known
  explicit PlainFailures(const FailedColumn* column) : column_(column) {}

  /// False when none are known: then no point is worth a question.
  [[nodiscard]] bool Known() const noexcept { return column_ != nullptr; }
  /// A failed reading is a zero in the file. Of ranges that had to be joined, some points did not fail: those whose
  /// number is not zero. @param point not before the one that was asked for last
  [[nodiscard]] bool Failed(std::int64_t point, double number);

 private:
  const FailedColumn* column_;
  std::size_t at_ = 0;
};

/// Receives a point and its number.
using PlainPointTaker = std::function<void(const ChartRow& row, std::int64_t point)>;
/// Called now and then with the part done, in bytes of the chart file; false ends the work.
using PlainProgress = std::function<bool(std::uint64_t done, std::uint64_t total)>;

/// Reads the points of a range in their order. Throws RunTimeError 57 on a device error, and what `take` throws.
PlainTableReport ForEachPlainPoint(InputFile& file, const PointRange& range, const PlainPointTaker& take,
                                   const PlainProgress& progress);

/// Writes a table piece by piece in constant memory.
class PlainTableWriter {
 public:
  /// Takes the next bytes of the table.
  using Sink = std::function<void(std::string_view bytes)>;

  /// All outlive the writer.
  PlainTableWriter(const PlainTable& table, const NumberFormat& numbers, const CodePage& codePage, const TimeZone& zone)
      : table_(table), numbers_(numbers), codePage_(codePage), zone_(zone) {}

  /// The sink is not called when there is no point. @param file a chart file. Throws RunTimeError 57 on a device error,
  /// and what the sink throws.
  PlainTableReport Write(InputFile& file, const Sink& sink, const PlainProgress& progress = {});

 private:
  const PlainTable& table_;
  const NumberFormat& numbers_;
  const CodePage& codePage_;
  const TimeZone& zone_;
};

}  // namespace chartproject
