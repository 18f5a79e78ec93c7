// One cell after the other, in the order in which the spreadsheet application is asked for them.
#include "chart/output/excel_export.h"

#include <algorithm>
#include <optional>

#include "common/environment/language.h"
#include "common/error_log.h"
#include "common/message_box.h"
#include "common/values/numbers.h"
#include "common/values/text.h"
#include "platform/spreadsheet.h"
#include "recording/file/point_reader.h"

namespace chartproject {

namespace {

constexpr int kFirstPointRow = 22;
constexpr int kEndRow = 65535;  // the row at which a sheet is full; its own row stays empty
constexpr int kFirstSheetPoints = kEndRow - kFirstPointRow;
constexpr int kSheetPoints = kEndRow - 1;
/// Lines between two reports while a cell takes microseconds; a separate application takes far longer.
constexpr std::int64_t kLinesBetweenProgress = 4096;
const std::string kRoutine = "cmdExport_Click";

/// Thrown out of the writing when the user cancels it.
struct GivenUp {};

/// The points of a file, and its lines that are not points.
struct Lines {
  std::int64_t points = 0;
  std::int64_t skipped = 0;
  std::int64_t firstSkipped = 0;  ///< its number
};

/// Calls `take` for each point of the range, in order, until it answers false; reports progress every so many lines.
template <typename Take>
Lines ForEachPoint(Component& component, const ExportRequest& request, std::int64_t linesBetweenProgress, Take take) {
  const auto file = component.ports.files.OpenForReading(request.chartFile);
  const std::uint64_t total = file->Identity().size;
  Lines lines;
  const auto first = LocateRows(*file);
  if (!first) return lines;
  PointReader points(*file, *first);
  const auto skipping = [&](std::uint64_t offset) { return !request.progress || request.progress(offset, total); };
  if (!points.SkipTo(first->line + request.range.first - 1, skipping)) throw GivenUp();
  for (PointLine line; points.Next(line);) {
    if (line.number - first->line >= request.range.last) break;
    if (request.progress && line.number % linesBetweenProgress == 0 && !request.progress(line.offset, total)) {
      throw GivenUp();
    }
    if (line.kind == LineKind::kPoint) {
      ++lines.points;
      if (!take(line.row, line.number)) break;
    }
    if (line.kind == LineKind::kMalformed && lines.skipped++ == 0) lines.firstSkipped = line.number;
  }
  return lines;
}

/// ASCII only: the same in the file's code page and in UTF-8.
bool IsPlain(std::string_view bytes) {
  return std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<signed char>(c) >= 0; });
}

/// The most bytes that a value takes in a workbook: as a number, or as a text.
std::uint64_t LargestCell(const WorkbookSizes& sizes, std::string_view text) {
  const std::uint64_t letter = IsPlain(text) ? 1 : sizes.letter;
  return text.empty() ? 0 : std::max<std::uint64_t>(sizes.number, sizes.text + letter * text.size());
}

/// What a workbook of this sum of parts takes on the disk.
std::uint64_t DiskBytes(const WorkbookSizes& sizes, std::uint64_t parts) {
  constexpr std::uint64_t kWhole = 100;
  return parts / kWhole * sizes.diskPercent;
}

/// How large a workbook can become at most.
struct Extent {
  std::uint64_t bytes = 0;
  std::int64_t points = 0;   ///< that were measured: one more than fit ends it
  std::int64_t fitting = 0;  ///< those that the format has room for
};

/// Measures point by point, unless the file is so small that nothing can be wrong: then nothing.
std::optional<Extent> Measure(Component& component, const ExportRequest& request, const WorkbookLimits& limits,
                              std::uint64_t space) {
  const WorkbookSizes& sizes = limits.sizes;
  const std::int64_t mostInSheets = kFirstSheetPoints + static_cast<std::int64_t>(limits.sheets - 1) * kSheetPoints;
  const std::uint64_t fileBytes = component.ports.files.OpenForReading(request.chartFile)->Identity().size;
  constexpr std::uint64_t kShortestRow = 7;
  const std::uint64_t most = fileBytes * sizes.mostGrowth;
  if (most < limits.bytes && DiskBytes(sizes, most) < space &&
      fileBytes / kShortestRow < static_cast<std::uint64_t>(mostInSheets)) {
    return std::nullopt;
  }
  Extent extent;
  const Lines lines = ForEachPoint(component, request, kLinesBetweenProgress, [&](const ChartRow& row, std::int64_t) {
    extent.bytes += sizes.row + LargestCell(sizes, row.time);
    for (const std::string_view value : row.values) extent.bytes += LargestCell(sizes, value);
    const bool fits = extent.bytes < limits.bytes && extent.fitting < mostInSheets;
    if (fits) ++extent.fitting;
    return fits;
  });
  extent.points = lines.points;
  return extent;
}

/// A spreadsheet keeps so many digits of a number; with more it is a text, as a serial number is.
constexpr std::size_t kMostDigits = 15;

/// Digits from the first that is not 0 on, an exponent's aside.
bool HasTooManyDigits(std::string_view text) {
  if (text.size() <= kMostDigits) return false;
  std::size_t digits = 0;
  for (const char c : text.substr(0, text.find_first_of("eE"))) {
    if (c >= '0' && c <= '9' && (digits > 0 || c != '0')) ++digits;
  }
  return digits > kMostDigits;
}

/// The workbook at work: sheets, header block and point rows.
class Workbook {
 public:
  Workbook(Component& component, SpreadsheetApplication& application)
      : application_(application), codePage_(component.ports.codePage), numbers_(component.ports.locale.Numbers()) {
    application_.AddWorkbook();
    application_.SetSheetName(1, "Chart1");
  }

  void WriteHeader(const ChartHeader& header) {
    application_.WriteText(1, 1, 1, "[INFO]");
    int row = 2;
    for (const HeaderKey& line : kHeaderKeys) {
      application_.WriteText(1, row, 1, line.key.substr(0, line.key.size() - 1));  // without its "="
      application_.WriteText(1, row, 2, header.*line.field);
      ++row;
    }
    application_.WriteText(1, 20, 1, kRowsMark);
    application_.WriteText(1, 21, 1, "Time");
    for (int series = 1; series <= kColumnCount; ++series) {
      application_.WriteText(1, 21, 1 + series, "PXXX" + std::to_string(series) + ".Content");
    }
  }

  /// @param line its number in the chart file, for errors
  void WritePoint(const ChartRow& point, std::int64_t line) {
    int column = 1;
    try {
      application_.WriteText(sheet_, row_, column, Decoded(point.time));
      for (const std::string_view value : point.values) WriteValue(++column, value);
    } catch (const RunTimeError& error) {
      throw error.At(Text::kCellPlace, {std::to_string(line), std::to_string(column)});
    }
    if (++row_ == kEndRow) NextSheet();
  }

 private:
  void WriteValue(int column, std::string_view value) {
    application_.WriteText(sheet_, row_, column, Decoded(value));
    // Read back and entered again, the text becomes the number that it reads as.
    const std::string text = LocaleDecimal(application_.ReadValue(sheet_, row_, column), numbers_);
    if (HasTooManyDigits(text)) {
      application_.WriteText(sheet_, row_, column, text);
    } else {
      application_.EnterValue(sheet_, row_, column, text);
    }
  }

  void NextSheet() {
    row_ = 1;
    ++sheet_;
    if (application_.SheetCount() < sheet_) application_.AddSheetAfter(sheet_ - 1);
    application_.SetSheetName(sheet_, "Chart" + std::to_string(sheet_));
  }

  std::string_view Decoded(std::string_view bytes) {
    if (IsPlain(bytes)) return bytes;
    decoded_ = codePage_.Decode(bytes);
    return decoded_;
  }

  SpreadsheetApplication& application_;
  const CodePage& codePage_;
  const NumberFormat& numbers_;
  std::string decoded_;
  int sheet_ = 1;
  int row_ = kFirstPointRow;
};

/// One export from the first question to the last message.
class Export {
 public:
  Export(Component& component, const ExportRequest& request)
      : component_(component),
        request_(request),
        target_(request.targetName.empty() ? request.chartFile + ".xls" : request.targetName) {}

  ExportOutcome Run() {
    try {
      return Steps();
    } catch (const GivenUp&) {
      EndApplication();
      ShowMessage(component_, LoadMessage(component_, Text::kExportStopped), box_style::kInformation);
      return ExportOutcome::kGivenUp;
    } catch (const std::exception& error) {
      EndApplication();
      LogRunTimeError(component_, kRoutine, AsRunTimeError(error));
      return ExportOutcome::kFailed;
    }
  }

 private:
  ExportOutcome Steps() {
    FileSystem& files = component_.ports.files;
    place_ = files.ResolveLink(target_);
    files.CheckReplaceable(place_);
    if (place_ == files.ResolveLink(request_.chartFile)) {
      throw RunTimeError(error_number::kPathFileAccess, Text::kExportOntoItself, {target_});
    }
    SpreadsheetApplications& applications = component_.ports.spreadsheets;
    const auto limits = applications.Limits(target_);
    if (limits && !MakeFit(*limits)) return ExportOutcome::kTooLarge;
    const FileRights rights = files.RightsOf(place_);
    if (files.FileExists(place_)) {
      if (!Ask(LoadMessage(component_, Text::kFileExistsBefore) + target_ +
               LoadMessage(component_, Text::kFileExistsAfter)))
        return ExportOutcome::kDeclined;
      files.Delete(place_);
    }
    application_ = applications.AttachRunning();
    if (!application_) application_ = applications.Create(place_, rights);
    if (!application_) {
      ShowMessage(component_, LoadMessage(component_, Text::kNoSpreadsheet), box_style::kExclamation);
      return ExportOutcome::kNoApplication;
    }
    if (!Confirm()) {
      application_.reset();
      return ExportOutcome::kDeclined;
    }
    Write(limits ? kLinesBetweenProgress : 1);
    return ExportOutcome::kSaved;
  }

  void Write(std::int64_t linesBetweenProgress) {
    ShowBusy(true);
    Workbook workbook(component_, *application_);
    workbook.WriteHeader(request_.header);
    const Lines lines =
        ForEachPoint(component_, request_, linesBetweenProgress, [&workbook](const ChartRow& row, std::int64_t line) {
          workbook.WritePoint(row, line);
          return true;
        });
    application_->SaveAs({place_, kNormalWorkbookFormat, "", "", false, false});
    application_->Quit();
    application_.reset();
    ShowBusy(false);
    if (lines.points == 0) {
      ShowMessage(component_, LoadMessage(component_, Text::kExportWithoutPoints), box_style::kExclamation);
    }
    if (lines.skipped > 0) {
      ShowMessage(component_,
                  FillIn(LoadMessage(component_, Text::kExportSkippedLines),
                         {std::to_string(lines.skipped), std::to_string(lines.firstSkipped)}),
                  box_style::kExclamation);
    }
    ShowMessage(component_, LoadMessage(component_, Text::kFileSavedAs) + target_, box_style::kInformation);
  }

  /// False when the points do not fit and the user chose no part of them that does.
  bool MakeFit(const WorkbookLimits& limits) {
    std::string refusal = Refusal(limits);
    if (!refusal.empty() && request_.choose) {
      const auto part = request_.choose(refusal + "\r\n\r\n" + LoadMessage(component_, Text::kRangePart), false);
      if (!part) return false;
      request_.range = *part;
      chosen_ = true;
      refusal = Refusal(limits);
    }
    if (!refusal.empty()) ShowMessage(component_, refusal, box_style::kExclamation);
    return refusal.empty();
  }

  /// Why the points do not fit into the format or on the disk; empty when they do.
  std::string Refusal(const WorkbookLimits& limits) {
    ShowBusy(true);  // a long file takes its time to be measured
    const std::uint64_t space = SpaceForTarget();
    const auto extent = Measure(component_, request_, limits, space);
    ShowBusy(false);
    const NumberFormat& numbers = component_.ports.locale.Numbers();
    if (extent && extent->fitting < extent->points) {
      return FillIn(LoadMessage(component_, Text::kExportTooLarge),
                    {FormatGrouped(static_cast<double>(extent->fitting), numbers)});
    }
    const std::uint64_t needed = extent ? DiskBytes(limits.sizes, extent->bytes) : 0;
    if (needed <= space) return {};
    return FillIn(
        LoadMessage(component_, Text::kExportNeedsSpace),
        {FileSizeText(static_cast<double>(needed), numbers), FileSizeText(static_cast<double>(space), numbers)});
  }

  /// Free bytes where the workbook goes, with those of the old one, which is deleted first.
  std::uint64_t SpaceForTarget() {
    FileSystem& files = component_.ports.files;
    const std::uint64_t old = files.FileExists(place_) ? files.OpenForReading(place_)->Identity().size : 0;
    return files.SpaceFor(place_).availableToUser + old;
  }

  /// The last question before the workbook, with the choice of points where there is one.
  bool Confirm() {
    const std::string question =
        LoadMessage(component_, Text::kExportQuestion) + "\r\n" + LoadMessage(component_, Text::kExportTakesTime);
    if (chosen_ || !request_.choose) return Ask(question);
    const auto range = request_.choose(question, true);
    if (range) request_.range = *range;
    return range.has_value();
  }

  bool Ask(const std::string& question) {
    return ShowMessage(component_, question, box_style::kYesNo + box_style::kQuestion) == box_answer::kYes;
  }

  void ShowBusy(bool busy) const {
    if (request_.busy) request_.busy(busy);
  }

  /// Asks the application to quit without saving. Failure is ignored: nothing more can be done.
  void EndApplication() noexcept {
    try {
      if (application_) application_->Quit();
    } catch (const std::exception& error) {
      NoteRunTimeError(component_, kRoutine, AsRunTimeError(error));
    }
    application_.reset();
    ShowBusy(false);
  }

  Component& component_;
  ExportRequest request_;
  bool chosen_ = false;  ///< the user chose a part of the points
  std::string target_;   ///< as the user knows it
  std::string place_;    ///< the file itself, when the target is a link
  std::unique_ptr<SpreadsheetApplication> application_;
};

}  // namespace

ExportOutcome ExportToSpreadsheet(Component& component, const ExportRequest& request) {
  return Export(component, request).Run();
}

}  // namespace chartproject
