// The page in the printer's centimetres: the place, font and colour of everything.
#include "chart/output/chart_page.h"

#include <algorithm>

#include "chart/output/page_text.h"
#include "chart/picture/geometry/chart_model.h"
#include "common/environment/language.h"
#include "common/error_log.h"
#include "common/values/text.h"

namespace chartproject {

namespace {

constexpr double kLabelColumn = 2.5;
constexpr double kValueColumn = 7.0;
constexpr double kTitleColumn = 4.0;
constexpr double kTitleTop = 1.0;
constexpr double kBlockTop = 3.4;  // below the icon and both header lines
constexpr double kColumnGap = 0.2;
constexpr int kMostValueLines = 3;
constexpr std::int32_t kBlue = 16711680;
constexpr std::int32_t kBlack = 0;
const std::string kHeaderPadding(22, ' ');

const PrintFont kTitleFont{"Arial", 16, true, false, kBlue};
const PrintFont kHeaderFont{"Arial", 10, false, false, kBlack};
const PrintFont kLabelFont{"Times New Roman", 12, true, false, kBlack};
const PrintFont kValueFont{"Times New Roman", 12, false, false, kBlack};

/// Draws one page; every routine leaves the printer's current position below what it printed.
class PageDrawing {
 public:
  PageDrawing(Component& component, const ChartPage& page)
      : component_(component), page_(page), printer_(component.ports.printer) {}

  /// Returns where the page is empty from.
  double Draw() {
    DrawHeader();
    DrawInformation();
    DrawPicture();
    return y_;
  }

 private:
  void DrawHeader() {
    DrawIcon();
    printer_.PrintText(kHostTitle, kTitleColumn, kTitleTop, kTitleFont);
    printer_.NextLine();
    const DateTime now = component_.ports.clock.LocalNow();
    const std::string moment =
        component_.ports.locale.DateText(now) + kHeaderPadding + component_.ports.locale.TimeText(now) + kHeaderPadding;
    const double room = printer_.Page().right - kTitleColumn - printer_.TextWidth(moment, kHeaderFont);
    printer_.PrintText(moment + ShortenMiddle(printer_, FileTitle(), kHeaderFont, room), kTitleColumn,
                       printer_.CurrentY(), kHeaderFont);
    y_ = kBlockTop;
  }

  /// The icon is the host's and may be missing: that is worth a line in the log, not the page.
  void DrawIcon() {
    const std::string icon = JoinPath(component_.settings.strGraphics, "Icon\\General\\Orlin.ico");
    try {
      printer_.PaintPictureFile(icon, kLabelColumn, kTitleTop);
    } catch (const RunTimeError& error) {
      NoteRunTimeError(component_, "PrintChartPage", error);
    }
  }

  void DrawInformation() {
    const ChartHeader& header = page_.header;
    DrawItem(Text::kChartFile, page_.fileName);
    DrawItem(Text::kDriveAddress, header.DriveAddress);
    DrawSeries();
    DrawItem(Text::kGrid, YesNo(page_.grid));
    DrawItem(Text::kMarker, YesNo(page_.marker));
    DrawItem(Text::kLine, YesNo(page_.line));
    DrawItem(Text::kChartType, page_.chartType);
    DrawItem(Text::kTimeAmongPoints, header.ScanTime + " " + header.Unit);
    DrawItem(Text::kNumberOfPoints, header.NumberOfPoints);
  }

  void DrawItem(Text message, const std::string& value) {
    const double column = DrawLabel(message);
    DrawValue(value, column, kValueFont);
  }

  /// Returns where the value begins: the values' column, or after a longer label.
  double DrawLabel(Text message) {
    const std::string label = LoadMessage(component_, message) + ": ";
    printer_.PrintText(label, kLabelColumn, y_, kLabelFont);
    return std::max(kValueColumn, kLabelColumn + printer_.TextWidth(label, kLabelFont) + kColumnGap);
  }

  void DrawValue(const std::string& value, double column, const PrintFont& font) {
    for (const std::string& line : WrapText(printer_, value, font, printer_.Page().right - column, kMostValueLines)) {
      printer_.PrintText(line, column, y_, font);
      printer_.NextLine();
      y_ = printer_.CurrentY();
    }
  }

  void DrawSeries() {
    const double column = DrawLabel(Text::kParameters);
    if (page_.series.empty()) DrawValue("", column, kValueFont);
    for (std::size_t s = 0; s < page_.series.size(); ++s) {
      const ChartPageSeries& series = page_.series[s];
      std::string text;
      for (const std::string& part : {series.number, series.name}) text += part.empty() ? part : part + ", ";
      text += LoadMessage(component_, Text::kScale) + ": " + series.scale;
      PrintFont font = kValueFont;
      font.color = kSeriesColorNumbers[s % kSeriesColorNumbers.size()];
      DrawValue(text, column, font);
    }
  }

  void DrawPicture() {
    if (page_.picture.Empty()) return;
    constexpr double kCentimetresPerInch = 2.54;
    const PageArea area = printer_.Page();
    const double width = page_.picture.width / page_.picture.dotsPerInch * kCentimetresPerInch;
    const double height = page_.picture.height / page_.picture.dotsPerInch * kCentimetresPerInch;
    const double scale = std::min({1.0, (area.right - kLabelColumn) / width, (area.bottom - y_) / height});
    if (scale <= 0) return;
    printer_.PaintPicture(page_.picture, kLabelColumn, y_, width * scale, height * scale);
    y_ += height * scale;
  }

  [[nodiscard]] std::string YesNo(bool yes) const { return LoadMessage(component_, yes ? Text::kYes : Text::kNo); }

  [[nodiscard]] std::string FileTitle() const { return std::string(BaseName(page_.fileName)); }

  Component& component_;
  const ChartPage& page_;
  Printer& printer_;
  double y_ = 0;
};

/// Beside the chart file, with the extension ".pdf" in place of its own.
std::string PdfName(const std::string& chartFile) {
  const std::size_t name = chartFile.find_last_of("/\\") + 1;
  const std::size_t ending = chartFile.rfind('.');
  const bool hasEnding = ending != std::string::npos && ending > name;
  return chartFile.substr(0, hasEnding ? ending : std::string::npos) + ".pdf";
}

}  // namespace

bool PrintChartPage(Component& component, const ChartPage& page) {
  Printer& printer = component.ports.printer;
  const auto showStatus = [&page](const std::string& text) {
    if (page.showStatus) page.showStatus(text);
  };
  bool printed = false;
  try {
    showStatus(LoadMessage(component, Text::kPrinting));
    printer.ProposeFile(PdfName(page.fileName));
    if (printer.StartDocument(std::string(kHostTitle) + " - " + page.fileName)) {
      const double bottom = PageDrawing(component, page).Draw();
      if (page.follow) page.follow(printer, bottom);
      printer.EndDocument();
      printed = true;
    }
  } catch (const RunTimeError& error) {
    printer.AbandonDocument();
    showStatus("");
    LogRunTimeError(component, "PrintChartPage", error);
    return false;
  } catch (...) {
    printer.AbandonDocument();  // else it stays in the printer's queue for as long as the host runs
    throw;
  }
  showStatus("");
  return printed;
}

}  // namespace chartproject
