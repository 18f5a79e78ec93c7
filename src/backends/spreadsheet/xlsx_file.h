// A modern workbook of a recording as an engineer wants it: charts, header, and points with real dates and times.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "platform/file_system.h"

namespace chartproject {

/// A cell of a point: nothing, a number or a text (UTF-8).
using XlsxValue = std::variant<std::monostate, double, std::string>;

/// What a workbook is about.
struct XlsxPlan {
  std::string title;                                        ///< above the charts
  std::vector<std::pair<std::string, std::string>> header;  ///< names and values of the sheet with the header
  std::vector<std::string> heads;                           ///< of the value columns, 1 to 4
  bool dated = true;                                        ///< times are dates; else texts
  double firstDate = 0;                                     ///< of the charts' time axis, as serial numbers
  double lastDate = 0;
};

/// Most points that a sheet takes below its head line.
inline constexpr std::int64_t kXlsxSheetPoints = 1'048'575;
/// Points of the copy that the charts show.
inline constexpr std::int64_t kXlsxChartPoints = 30'000;
/// Bytes on the disk for a cell at most, while the workbook is made.
inline constexpr std::uint64_t kXlsxCellBytes = 64;

/// Keeps no rows in memory. Nothing has the target's name before Save; destroying the object drops the work.
/// Operations throw RunTimeError 57, 61, 70, 75 or 76.
class XlsxFile {
 public:
  /// @param rights of the file that had the target's name until now
  XlsxFile(const std::string& targetName, const FileRights& rights, const XlsxPlan& plan);
  ~XlsxFile();
  XlsxFile(const XlsxFile&) = delete;
  XlsxFile& operator=(const XlsxFile&) = delete;

  /// The next point. @param time a serial number (days since 1899-12-30), or a text where times are not dates
  void AddPoint(const XlsxValue& time, std::span<const XlsxValue> values);
  /// The next point of the copy for the charts; NaN is a gap. Only where times are dates.
  void AddChartPoint(double date, std::span<const double> values);
  void Save();

 private:
  class Book;
  std::unique_ptr<Book> book_;
};

/// A moment as a workbook's serial number. @param localMilliseconds since 1970-01-01 00:00 of local time
[[nodiscard]] double SerialDate(std::int64_t localMilliseconds) noexcept;

}  // namespace chartproject
