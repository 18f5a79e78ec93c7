// Sheets by libxlsxwriter in its constant-memory mode: each has a working file, so that rows of several can take turns.
#include "backends/spreadsheet/xlsx_file.h"

#include <fcntl.h>
#include <unistd.h>
#include <xlsxwriter.h>

#include <algorithm>
#include <cerrno>
#include <cmath>

#include "backends/posix/files/part_file.h"
#include "backends/posix/files/posix_error.h"
#include "backends/posix/files/posix_path.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

constexpr std::size_t kLongestText = 32767;  // bytes, that a cell takes
constexpr std::int64_t kUnixEpoch = 25569;   // 1970-01-01 in days since 1899-12-30
constexpr double kMillisecondsPerDay = 86'400'000;
constexpr double kTimeWidth = 24;  // characters of "2026-01-31 14:05:00.000", and some air
constexpr double kValueWidth = 26;
constexpr float kLineWidth = 0.75F;                                                        // points
constexpr std::array<lxw_color_t, 4> kLineColors{0x1F4E9E, 0xB03A2E, 0x1E7B34, 0x7D5A00};  // dark on white paper
constexpr const char* kChartData = "Chart data";

/// Keeps the library from reporting failures on standard error too: the user gets our message.
class SilentErrors {
 public:
  SilentErrors() : kept_(dup(STDERR_FILENO)) {
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (kept_ >= 0 && nowhere >= 0) dup2(nowhere, STDERR_FILENO);
    if (nowhere >= 0) close(nowhere);
  }
  ~SilentErrors() {
    if (kept_ < 0) return;
    dup2(kept_, STDERR_FILENO);
    close(kept_);
  }
  SilentErrors(const SilentErrors&) = delete;
  SilentErrors& operator=(const SilentErrors&) = delete;

 private:
  int kept_;
};

}  // namespace

double SerialDate(std::int64_t localMilliseconds) noexcept {
  return static_cast<double>(kUnixEpoch) + static_cast<double>(localMilliseconds) / kMillisecondsPerDay;
}

/// The workbook at work.
class XlsxFile::Book {
 public:
  Book(const std::string& targetName, const FileRights& rights, const XlsxPlan& plan)
      : plan_(plan), part_(targetName, rights), folder_(PosixPath(targetName)) {
    folder_.erase(folder_.find_last_of('/') == std::string::npos ? 0 : folder_.find_last_of('/'));
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = folder_.empty() ? nullptr : folder_.data();
    options.use_zip64 = LXW_TRUE;
    const SilentErrors silent;
    book_ = workbook_new_opt(part_.OpenName().c_str(), &options);
    if (book_ == nullptr) throw FileError(ENOMEM, part_.Target());
    MakeFormats();
    if (plan_.dated) charts_ = AddSheet("Charts");
    AddHeader();
    BeginPoints();
    if (!plan_.dated) return;
    copy_ = AddSheet(kChartData);
    WriteHeads(copy_);
  }
  ~Book() {
    if (book_ != nullptr) lxw_workbook_free(book_);
  }
  Book(const Book&) = delete;
  Book& operator=(const Book&) = delete;

  void AddPoint(const XlsxValue& time, std::span<const XlsxValue> values) {
    if (row_ > kXlsxSheetPoints) BeginPoints();
    const auto row = static_cast<lxw_row_t>(row_++);
    Write(points_, row, 0, time);
    for (std::size_t i = 0; i < values.size(); ++i) Write(points_, row, static_cast<lxw_col_t>(i + 1), values[i]);
  }

  void AddChartPoint(double date, std::span<const double> values) {
    const auto row = static_cast<lxw_row_t>(++copied_);
    Check(worksheet_write_number(copy_, row, 0, date, nullptr));
    for (std::size_t i = 0; i < values.size(); ++i) {
      if (!std::isnan(values[i])) {
        Check(worksheet_write_number(copy_, row, static_cast<lxw_col_t>(i + 1), values[i], nullptr));
      }
    }
  }

  void Save() {
    EndPoints();
    if (plan_.dated && copied_ > 0) AddCharts();
    errno = 0;
    lxw_workbook* const book = book_;
    book_ = nullptr;  // closing frees it, failed or not
    const SilentErrors silent;
    Check(workbook_close(book));
    part_.Commit();
  }

 private:
  void MakeFormats() {
    bold_ = workbook_add_format(book_);
    format_set_bold(bold_);
    head_ = workbook_add_format(book_);
    format_set_bold(head_);
    format_set_bottom(head_, LXW_BORDER_THIN);
    format_set_text_wrap(head_);
    date_ = workbook_add_format(book_);
    format_set_num_format(date_, "yyyy-mm-dd hh:mm:ss.000");
    framed_ = workbook_add_format(book_);
    format_set_border(framed_, LXW_BORDER_HAIR);
  }

  lxw_worksheet* AddSheet(const std::string& name) {
    lxw_worksheet* const sheet = workbook_add_worksheet(book_, name.c_str());
    if (sheet == nullptr) throw RunTimeError(error_number::kApplicationDefined, Text::kSheetRefused, {name});
    return sheet;
  }

  void AddHeader() {
    lxw_worksheet* const sheet = AddSheet("Recording");
    Check(worksheet_set_column(sheet, 0, 0, kValueWidth, bold_));
    Check(worksheet_set_column(sheet, 1, 1, 2 * kValueWidth, nullptr));
    worksheet_fit_to_pages(sheet, 1, 0);
    lxw_row_t row = 0;
    for (const auto& [name, value] : plan_.header) {
      Check(worksheet_write_string(sheet, row, 0, name.c_str(), head_));
      Check(worksheet_write_string(sheet, row, 1, value.substr(0, kLongestText).c_str(), framed_));
      ++row;
    }
  }

  void WriteHeads(lxw_worksheet* sheet) {
    Check(worksheet_set_column(sheet, 0, 0, kTimeWidth, plan_.dated ? date_ : nullptr));
    Check(worksheet_set_column(sheet, 1, static_cast<lxw_col_t>(plan_.heads.size()), kValueWidth, nullptr));
    Check(worksheet_write_string(sheet, 0, 0, "Time", head_));
    for (std::size_t i = 0; i < plan_.heads.size(); ++i) {
      Check(worksheet_write_string(sheet, 0, static_cast<lxw_col_t>(i + 1), plan_.heads[i].c_str(), head_));
    }
  }

  void BeginPoints() {
    EndPoints();
    ++pointSheets_;
    points_ = AddSheet(pointSheets_ == 1 ? "Points" : "Points " + std::to_string(pointSheets_));
    WriteHeads(points_);
    worksheet_freeze_panes(points_, 1, 1);
    worksheet_fit_to_pages(points_, 1, 0);
    Check(worksheet_repeat_rows(points_, 0, 0));
    row_ = 1;
  }

  /// A filter covers the rows that are there.
  void EndPoints() {
    if (points_ == nullptr || row_ == 1) return;
    const auto last = static_cast<lxw_row_t>(row_ - 1);
    Check(worksheet_autofilter(points_, 0, 0, last, static_cast<lxw_col_t>(plan_.heads.size())));
  }

  void Write(lxw_worksheet* sheet, lxw_row_t row, lxw_col_t column, const XlsxValue& value) {
    if (const double* const number = std::get_if<double>(&value)) {
      Check(worksheet_write_number(sheet, row, column, *number, nullptr));
    } else if (const std::string* const text = std::get_if<std::string>(&value)) {
      Check(worksheet_write_string(sheet, row, column, text->c_str(), nullptr));
    }
  }

  /// One below the other, each with its series over the time of day.
  void AddCharts() {
    Check(worksheet_write_string(charts_, 0, 0, plan_.title.c_str(), bold_));
    worksheet_fit_to_pages(charts_, 1, 1);  // on paper no chart is cut in two
    constexpr lxw_row_t kRowsPerChart = 17;
    lxw_row_t row = 2;
    for (std::size_t series = 0; series < plan_.heads.size(); ++series, row += kRowsPerChart) {
      lxw_chart* const chart = workbook_add_chart(book_, LXW_CHART_SCATTER_STRAIGHT);
      const auto column = static_cast<lxw_col_t>(series + 1);
      const auto last = static_cast<lxw_row_t>(copied_);
      lxw_chart_series* const line = chart_add_series(chart, nullptr, nullptr);
      chart_series_set_name(line, plan_.heads[series].c_str());
      chart_series_set_categories(line, kChartData, 1, 0, last, 0);
      chart_series_set_values(line, kChartData, 1, column, last, column);
      lxw_chart_line thin{};
      thin.color = kLineColors.at(series);
      thin.width = kLineWidth;
      chart_series_set_line(line, &thin);
      chart_title_set_name(chart, plan_.heads[series].c_str());
      chart_legend_set_position(chart, LXW_CHART_LEGEND_NONE);
      SetTimeAxis(chart);
      lxw_chart_options options{};
      constexpr double kScale = 2;  // of 480 x 288 dots
      options.x_scale = kScale;
      options.y_scale = 1;
      Check(worksheet_insert_chart_opt(charts_, row, 0, chart, &options));
    }
  }

  void SetTimeAxis(lxw_chart* chart) const {
    const double days = plan_.lastDate - plan_.firstDate;
    chart_axis_set_num_format(chart->x_axis, days > 1 ? "yyyy-mm-dd hh:mm" : "hh:mm:ss");
    if (days <= 0) return;
    chart_axis_set_min(chart->x_axis, plan_.firstDate);
    chart_axis_set_max(chart->x_axis, plan_.lastDate);
  }

  void Check(lxw_error result) const {
    if (result == LXW_NO_ERROR) return;
    if (errno == ENOSPC || errno == EACCES || errno == ENOENT || errno == EROFS) throw FileError(errno, part_.Target());
    throw RunTimeError(error_number::kDeviceIo, part_.Target() + ": " + lxw_strerror(result));
  }

  const XlsxPlan plan_;
  PartFile part_;
  std::string folder_;
  lxw_workbook* book_ = nullptr;
  lxw_worksheet* charts_ = nullptr;
  lxw_worksheet* points_ = nullptr;
  lxw_worksheet* copy_ = nullptr;
  lxw_format* bold_ = nullptr;
  lxw_format* head_ = nullptr;
  lxw_format* date_ = nullptr;
  lxw_format* framed_ = nullptr;
  int pointSheets_ = 0;
  std::int64_t row_ = 1;  ///< of the next point, counted from 0
  std::int64_t copied_ = 0;
};

XlsxFile::XlsxFile(const std::string& targetName, const FileRights& rights, const XlsxPlan& plan)
    : book_(std::make_unique<Book>(targetName, rights, plan)) {}
XlsxFile::~XlsxFile() = default;

void XlsxFile::AddPoint(const XlsxValue& time, std::span<const XlsxValue> values) {
  book_->AddPoint(time, values);
}

void XlsxFile::AddChartPoint(double date, std::span<const double> values) {
  book_->AddChartPoint(date, values);
}

void XlsxFile::Save() {
  book_->Save();
}

}  // namespace chartproject
