// Points into rows, rows into the scene of the chart window.
#include "chart/live/live_chart_control.h"

#include <algorithm>

#include "common/environment/language.h"
#include "common/values/numbers.h"
#include "drive/unit_codes.h"
#include "forms/form.h"
#include "recording/file/field_value.h"

namespace chartproject {
namespace {

/// Points that come faster than a screen shows them are painted together.
constexpr Instant kBetweenPaintings = std::chrono::milliseconds(40);
constexpr double kFigureHeight = 24;
constexpr double kSwatchSize = 12;
constexpr double kGap = 6;
constexpr std::string_view kNoValue = "\u2013";

}  // namespace

LiveChartControl::LiveChartControl(Form& form, Component& component)
    : DrawnControl(form, "LiveChart", "crvPoints"), component_(component) {
  SetVisible(false);
}

void LiveChartControl::Begin(std::int16_t driveAddress, std::span<const std::int16_t> parameters) {
  points_.Restart(static_cast<int>(parameters.size()));
  figures_.clear();
  const ParameterTable& table = component_.parameterTables.At(driveAddress);
  for (const std::int16_t number : parameters) {
    if (number < 0 || number >= kParameterCount) {
      figures_.push_back({});
      continue;
    }
    const ParameterEntry& parameter = table.At(number);
    const std::string name = parameter.name.empty() ? "" : " " + parameter.name;
    figures_.push_back({ParameterName(number) + name, parameter.text5});
  }
  Invalidate();
}

void LiveChartControl::Take(std::int32_t point, const PointRow& row, const FailedColumns& failed) {
  if (point <= points_.Last()) return;
  std::array<double, kColumnCount> values{};
  const NumberFormat& format = component_.ports.locale.Numbers();
  for (std::size_t k = 0; k < values.size(); ++k) values[k] = FieldValue(row.values[k], format);
  points_.Take(point, values, failed);
  for (std::size_t k = 0; k < figures_.size(); ++k) figures_[k].value = failed[k] ? kNoValue : row.values[k];
  const Instant now = component_.ports.clock.Now();
  if (!EffectivelyVisible() || now - shownAt_ < kBetweenPaintings) return;
  shownAt_ = now;
  Invalidate();
}

void LiveChartControl::Paint(Canvas& canvas) {
  const Size size = canvas.Extent();
  const Size chart{size.width, std::max(0.0, size.height - kFigureHeight)};
  BuildChartScene(points_.Model(), chart, canvas, component_.ports.locale.Numbers()).scene.Paint(canvas);
  canvas.FillRect({0, chart.height, size.width, size.height - chart.height}, kChartBackdrop);
  PaintFigures(canvas, {kGap, chart.height, size.width - 2 * kGap, kFigureHeight});
}

/// A name that has no room beside its value is cut to the parameter's number.
void LiveChartControl::PaintFigures(Canvas& canvas, const Rect& line) const {
  const Font font;
  const double width = line.width / static_cast<double>(std::max<std::size_t>(1, figures_.size()));
  for (std::size_t k = 0; k < figures_.size(); ++k) {
    const Figure& figure = figures_[k];
    const double left = line.x + static_cast<double>(k) * width;
    const std::string value = " = " + figure.value + (figure.unit.empty() ? "" : " " + figure.unit);
    const auto fits = [&](const std::string& text) {
      return canvas.MeasureText(text, font).width <= width - kSwatchSize - 2 * kGap;
    };
    const std::string text =
        fits(figure.name + value) ? figure.name + value : figure.name.substr(0, figure.name.find(' ')) + value;
    const double height = canvas.MeasureText(text, font).height;
    const Rect swatch{left, line.y + (line.height - kSwatchSize) / 2, kSwatchSize, kSwatchSize};
    canvas.FillRect(swatch, {0, 0, 0});
    canvas.FillRect({swatch.x + 1, swatch.y + 1, swatch.width - 2, swatch.height - 2}, kSeriesColors[k]);
    canvas.DrawText(text, {swatch.Right() + kGap, line.y + (line.height - height) / 2}, font, {0, 0, 0}, Align::kLeft);
  }
}

std::string LiveChartControl::SpokenWords() const {
  std::string words = LoadMessage(component_, Text::kLiveChartWords);
  for (const Figure& figure : figures_) words += "; " + figure.name + " " + figure.value + " " + figure.unit;
  return words;
}

std::unique_ptr<LiveChart> MakeLiveChart(Component& component, Form& form) {
  return std::make_unique<LiveChartControl>(form, component);
}

}  // namespace chartproject
