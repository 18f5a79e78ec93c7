// One place after the other.
#include "chart/report/report_sheets.h"

#include <algorithm>

#include "chart/output/page_text.h"
#include "forms/canvas.h"

namespace chartproject {
namespace {

constexpr double kTop = 1.5;
constexpr double kMargin = 1.5;      // right
constexpr double kFootHeight = 0.9;  // with the gap over it
constexpr double kFootText = 0.5;
constexpr double kRule = 0.02;
constexpr Color kRuleColor{150, 150, 150};
const PrintFont kFootFont{"Arial", 8, false, false, 0x606060};

}  // namespace

ReportSheets::ReportSheets(Printer& printer, double bottom) : printer_(printer), y_(bottom) {
  const PageArea page = printer.Page();
  right_ = std::min(page.right, page.width - kMargin);
  bottom_ = page.bottom - kFootHeight;
  firstFull_ = bottom > page.bottom - kFootText;
}

void ReportSheets::Need(double height) {
  if (y_ + height <= bottom_ || y_ <= kTop) return;
  sheets_.emplace_back();
  y_ = kTop;
}

void ReportSheets::Skip(double height) {
  if (y_ > kTop) y_ += height;
}

double ReportSheets::Take(double height) {
  Need(height);
  const double y = y_;
  y_ += height;
  return y;
}

void ReportSheets::AddText(const std::string& text, double x, double y, const PrintFont& font) {
  Add([=](Printer& printer) { printer.PrintText(text, x, y, font); });
}

void ReportSheets::AddTextUpTo(const std::string& text, double right, double y, const PrintFont& font) {
  AddText(text, right - printer_.TextWidth(text, font), y, font);
}

void ReportSheets::AddRule(double y) {
  const double width = Width();
  Add([=](Printer& printer) {
    printer.Draw(kLeft, y, width, kRule, [](Canvas& canvas) {
      canvas.FillRect({0, 0, canvas.Extent().width, canvas.Extent().height}, kRuleColor);
    });
  });
}

void ReportSheets::Print(const std::function<std::string(std::size_t sheet, std::size_t sheets)>& foot,
                         const std::string& name) {
  const double y = printer_.Page().bottom - kFootText;
  for (std::size_t i = 0; i < sheets_.size(); ++i) {
    if (i > 0) printer_.NextPage();
    for (const auto& print : sheets_[i]) print(printer_);
    if (i == 0 && firstFull_) continue;
    const std::string text = foot(i + 1, sheets_.size());
    const double begin = right_ - printer_.TextWidth(text, kFootFont);
    printer_.PrintText(ShortenMiddle(printer_, name, kFootFont, begin - kLeft - kFootText), kLeft, y, kFootFont);
    printer_.PrintText(text, begin, y, kFootFont);
  }
}

double ReportSheets::LineHeight(const PrintFont& font) noexcept {
  constexpr double kSpacing = 1.22;
  constexpr double kCentimetresPerPoint = 2.54 / 72;
  return font.points * kSpacing * kCentimetresPerPoint;
}

}  // namespace chartproject
