// Places of the report's texts, tables and chart.
#include "chart/report/report_pages.h"

#include <algorithm>

#include "chart/output/page_text.h"
#include "chart/picture/chart_scene.h"
#include "chart/picture/cursor_lines.h"
#include "chart/report/report_sheets.h"
#include "common/environment/language.h"
#include "common/values/text.h"

namespace chartproject {
namespace {

constexpr std::int32_t kBlue = 16711680;
const PrintFont kTitleFont{"Arial", 13, true, false, kBlue};
const PrintFont kHeadingFont{"Arial", 10, true, false, kBlue};
const PrintFont kLabelFont{"Times New Roman", 9.5, true, false, 0};
const PrintFont kTextFont{"Times New Roman", 9.5, false, false, 0};

constexpr double kGap = 0.35;
constexpr double kColumnGap = 0.4;
constexpr double kChartHeight = 10.5;
constexpr double kSwatch = 0.24;
constexpr double kLargestColumn = 3.2;     // of a table's numbers
constexpr double kNumbersShare = 0.6;      // of a table's width
constexpr double kMostNumbersShare = 0.8;  // where numbers are long
constexpr int kMostTitleLines = 2;
constexpr int kMostValueLines = 2;
constexpr int kMostLongLines = 8;
constexpr int kMostRemarkLines = 300;

/// A line of a remark without what cannot be printed.
std::string Paragraph(std::string line) {
  if (line.ends_with('\r')) line.pop_back();
  std::ranges::replace(line, '\t', ' ');
  return VisibleText(line);
}

class ReportPages {
 public:
  ReportPages(const Component& component, Printer& printer, const ChartPage& page, const ChartReport& report,
              double bottom)
      : component_(component), printer_(printer), page_(page), report_(report), sheets_(printer, bottom) {}

  void Print() {
    sheets_.Skip(kGap);
    PlaceLines(VisibleText(report_.title), kTitleFont, kMostTitleLines);
    const double labels = std::max(LabelWidth(report_.recording), LabelWidth(report_.more));
    PlaceBeside(labels);
    PlaceItems(report_.more, labels);
    PlaceRemark();
    PlaceChart();
    PlaceTable(report_.statistics);
    PlaceTable(report_.cursorValues);
    const auto foot = [this](std::size_t sheet, std::size_t sheets) {
      return FillIn(LoadMessage(component_, Text::kReportPage), {std::to_string(sheet), std::to_string(sheets)});
    };
    sheets_.Print(foot, std::string(BaseName(page_.fileName)));
  }

 private:
  /// Lines over the whole width; an empty text takes no room.
  void PlaceLines(const std::string& text, const PrintFont& font, int mostLines) {
    if (text.empty()) return;
    const double height = ReportSheets::LineHeight(font);
    for (const std::string& line : WrapText(printer_, text, font, sheets_.Width(), mostLines)) {
      sheets_.AddText(line, ReportSheets::kLeft, sheets_.Take(height), font);
    }
  }

  void PlaceHeading(const std::string& text, double needed) {
    const double height = ReportSheets::LineHeight(kHeadingFont);
    sheets_.Skip(kGap);
    sheets_.Need(height + needed);
    sheets_.AddText(ShortenMiddle(printer_, text, kHeadingFont, sheets_.Width()), ReportSheets::kLeft,
                    sheets_.Take(height), kHeadingFont);
  }

  [[nodiscard]] double LabelWidth(const std::vector<ReportItem>& items) const {
    double width = 0;
    for (const ReportItem& item : items) {
      if (!item.label.empty()) width = std::max(width, printer_.TextWidth(item.label + ":", kLabelFont) + kColumnGap);
    }
    return width;
  }

  /// An item in a column of the page; returns how high it is.
  double AddItem(const ReportItem& item, double x, double y, double labelWidth, double width, int mostLines) {
    const double height = ReportSheets::LineHeight(kTextFont);
    if (!item.label.empty()) sheets_.AddText(item.label + ":", x, y, kLabelFont);
    double at = y;
    for (const std::string& line : WrapText(printer_, item.value, kTextFont, width - labelWidth, mostLines)) {
      sheets_.AddText(line, x + labelWidth, at, kTextFont);
      at += height;
    }
    return at - y;
  }

  /// Recording and drive, each in its half. @param left width of the recording's labels
  void PlaceBeside(double left) {
    const double half = (sheets_.Width() - kColumnGap) / 2;
    const double middle = ReportSheets::kLeft + half + kColumnGap;
    const double height = ReportSheets::LineHeight(kTextFont);
    const double heading = ReportSheets::LineHeight(kHeadingFont);
    sheets_.Skip(kGap / 2);
    sheets_.Need(heading + 2 * height);
    const double top = sheets_.Take(heading);
    sheets_.AddText(LoadMessage(component_, Text::kReportRecording), ReportSheets::kLeft, top, kHeadingFont);
    sheets_.AddText(LoadMessage(component_, Text::kReportDrive), middle, top, kHeadingFont);
    const double right = LabelWidth(report_.drive);
    for (std::size_t i = 0; i < std::max(report_.recording.size(), report_.drive.size()); ++i) {
      sheets_.Need(kMostValueLines * height);
      const double y = sheets_.Take(0);
      double used = 0;
      if (i < report_.recording.size()) {
        used = AddItem(report_.recording[i], ReportSheets::kLeft, y, left, half, kMostValueLines);
      }
      if (i < report_.drive.size()) {
        used = std::max(used, AddItem(report_.drive[i], middle, y, right, half, kMostValueLines));
      }
      sheets_.Take(used);
    }
  }

  void PlaceItems(const std::vector<ReportItem>& items, double labels) {
    for (const ReportItem& item : items) {
      const std::size_t lines =
          WrapText(printer_, item.value, kTextFont, sheets_.Width() - labels, kMostLongLines).size();
      const double height = static_cast<double>(lines) * ReportSheets::LineHeight(kTextFont);
      const double y = sheets_.Take(height);
      AddItem(item, ReportSheets::kLeft, y, labels, sheets_.Width(), kMostLongLines);
    }
  }

  void PlaceRemark() {
    if (report_.remark.empty()) return;
    const double height = ReportSheets::LineHeight(kTextFont);
    PlaceHeading(LoadMessage(component_, Text::kReportRemark), height);
    int left = kMostRemarkLines;
    for (std::size_t at = 0; at < report_.remark.size() && left > 0;) {
      const std::size_t end = std::min(report_.remark.find('\n', at), report_.remark.size());
      const std::string paragraph = Paragraph(report_.remark.substr(at, end - at));
      for (const std::string& line : WrapText(printer_, paragraph, kTextFont, sheets_.Width(), left)) {
        sheets_.AddText(line, ReportSheets::kLeft, sheets_.Take(height), kTextFont);
        --left;
      }
      at = end + 1;
      if (left == 0 && at < report_.remark.size()) {
        sheets_.AddText("...", ReportSheets::kLeft, sheets_.Take(height), kTextFont);
      }
    }
  }

  void PlaceChart() {
    PlaceHeading(report_.range, kChartHeight);
    const double width = sheets_.Width();
    const double y = sheets_.Take(kChartHeight);
    sheets_.Add([this, y, width](Printer& printer) {
      printer.Draw(ReportSheets::kLeft, y, width, kChartHeight, [this](Canvas& canvas) { PaintRange(canvas); });
    });
  }

  void PaintRange(Canvas& canvas) const {
    const ChartScene chart = BuildChartScene(report_.chart, canvas.Extent(), canvas, component_.ports.locale.Numbers());
    chart.scene.Paint(canvas);
    Scene cursors;
    for (std::size_t which = 0; which < report_.cursors.size(); ++which) {
      const auto row = report_.cursors[which] ? report_.chart.RowOf(*report_.cursors[which]) : std::nullopt;
      if (row) DrawCursorLine(which, *row, chart, canvas, cursors);
    }
    cursors.Paint(canvas);
  }

  void PlaceTable(const ReportTable& table) {
    if (table.rows.empty()) return;
    const double height = ReportSheets::LineHeight(kTextFont);
    PlaceHeading(table.title, static_cast<double>(table.rows.size() + 1) * height);
    const auto numbers = static_cast<double>(table.heads.size() - 1);
    const double column = std::clamp(WidestNumber(table) + kColumnGap / 2,
                                     std::min(kLargestColumn, sheets_.Width() * kNumbersShare / numbers),
                                     sheets_.Width() * kMostNumbersShare / numbers);
    PlaceRow(table.heads, -1, column, kLabelFont);
    sheets_.AddRule(sheets_.Take(kGap / 8));
    for (const ReportTable::Row& row : table.rows) PlaceRow(row.cells, row.series, column, kTextFont);
  }

  [[nodiscard]] double WidestNumber(const ReportTable& table) const {
    double widest = 0;
    for (std::size_t i = 1; i < table.heads.size(); ++i) {
      widest = std::max(widest, printer_.TextWidth(table.heads[i], kLabelFont));
      for (const ReportTable::Row& row : table.rows) {
        widest = std::max(widest, printer_.TextWidth(row.cells[i], kTextFont));
      }
    }
    return widest;
  }

  /// The first cell at the left, the others each up to the end of its column.
  void PlaceRow(const std::vector<std::string>& cells, int series, double column, const PrintFont& font) {
    const double height = ReportSheets::LineHeight(font);
    const double y = sheets_.Take(height);
    double x = ReportSheets::kLeft;
    if (series >= 0) {
      sheets_.Add([=](Printer& printer) { DrawSwatch(printer, series, x, y + (height - kSwatch) / 2); });
      x += kSwatch + kColumnGap / 3;
    }
    const double first = sheets_.Right() - column * static_cast<double>(cells.size() - 1);
    sheets_.AddText(ShortenMiddle(printer_, cells[0], font, first - x), x, y, font);
    for (std::size_t i = 1; i < cells.size(); ++i) {
      sheets_.AddTextUpTo(ShortenMiddle(printer_, cells[i], font, column - kColumnGap / 2),
                          first + column * static_cast<double>(i), y, font);
    }
  }

  static void DrawSwatch(Printer& printer, int series, double x, double y) {
    printer.Draw(x, y, kSwatch, kSwatch, [series](Canvas& canvas) {
      constexpr Color kEdge{90, 90, 90};
      const Size size = canvas.Extent();
      canvas.FillRect({0, 0, size.width, size.height}, kEdge);
      canvas.FillRect({0.5, 0.5, size.width - 1, size.height - 1}, kSeriesColors.at(static_cast<std::size_t>(series)));
    });
  }

  const Component& component_;
  Printer& printer_;
  const ChartPage& page_;
  const ChartReport& report_;
  ReportSheets sheets_;
};

}  // namespace

bool PrintReport(Component& component, ChartPage page, const ChartReport& report) {
  page.follow = [&](Printer& printer, double bottom) { ReportPages(component, printer, page, report, bottom).Print(); };
  return PrintChartPage(component, page);
}

}  // namespace chartproject
