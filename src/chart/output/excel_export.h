// The export of a chart file's header and points into a spreadsheet workbook.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "chart/plain/point_range.h"
#include "recording/file/component.h"

namespace chartproject {

enum class ExportOutcome {
  kSaved,
  kDeclined,       ///< the user answered No
  kNoApplication,  ///< a spreadsheet application is not installed
  kTooLarge,       ///< the points do not fit into the workbook's format or on the disk; nothing was touched
  kGivenUp,        ///< cancelled; no file is left
  kFailed          ///< an error, shown and logged
};

struct ExportRequest {
  std::string chartFile;   ///< full name of the chart file
  std::string targetName;  ///< empty for the chart file's name with ".xls" appended
  ChartHeader header;      ///< as read from the chart file
  PointRange range{};      ///< of its points
  /// Asks the question and for the points that are exported; nothing when the answer is No. @param all whether all of
  /// them are a choice: after a refusal a part is. Empty: the question is one of Yes and No, `range` stays.
  std::function<std::optional<PointRange>(const std::string& question, bool all)> choose{};
  /// Called now and then with the part done, in bytes of the chart file; false cancels the export. May be empty.
  std::function<bool(std::uint64_t done, std::uint64_t total)> progress{};
  /// Switches the busy pointer on and off. May be empty.
  std::function<void(bool busy)> busy{};
};

/// Asks, writes and reports in the order that users know: an existing target is deleted before the application is
/// looked for.
ExportOutcome ExportToSpreadsheet(Component& component, const ExportRequest& request);

}  // namespace chartproject
