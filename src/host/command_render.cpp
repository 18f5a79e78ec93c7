// render FILE --output PNG: the chart of a slice as a picture file, drawn without a display.
#include <limits>
#include <ostream>

#include "chart/chart_building.h"
#include "chart/chart_source.h"
#include "chart/scroll_range.h"
#include "common/numbers.h"
#include "host/arguments.h"
#include "host/command.h"
#include "host/png_file.h"
#include "host/session.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

constexpr int kInvalidFileFormat = 321;
constexpr int kLeastSide = 100;
constexpr int kMostSide = 8192;
constexpr int kMostPoints = 2'000'000'000;

/// A form that is never shown: the chart control's home.
class PictureForm : public Form {
 public:
  explicit PictureForm(FormHost& host)
      : Form(host, "frmPicture", [](const auto& /*routine*/, const auto& /*error*/) {}) {}
  ChartControl chart{*this, "mscChart1"};
};

std::vector<std::string> SplitList(const std::string& text) {
  std::vector<std::string> parts(1);
  for (const char c : text) {
    if (c == ',') {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  return parts;
}

bool ParseSwitch(const std::string& text, const std::string& option) {
  if (text == "on") return true;
  if (text == "off") return false;
  throw RefusedError(option + ": on or off, not \"" + text + "\"");
}

class RenderCommand : public Command {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand("render", "Draw the chart of a chart file into a PNG file");
    app->add_option("FILE", file_, "chart file")->required();
    app->add_option("--output", output_, "picture file to write")->required();
    app->add_option("--type", type_, "0 and 1 bars, 2 and 3 lines, 4 and 5 areas, 6 and 7 steps; even numbers in 3D")
        ->capture_default_str();
    app->add_option("--first", first_, "first point shown, counted from 1")->capture_default_str();
    app->add_option("--points-per-division", division_, "points in each of the 25 divisions")->capture_default_str();
    app->add_option("--scale", scales_, "multiplier of each series, for example 1,10");
    app->add_option("--size", size_, "width and height in pixels")->capture_default_str();
    app->add_option("--grid", grid_, "on or off")->capture_default_str();
    app->add_option("--markers", markers_, "on or off")->capture_default_str();
    app->add_option("--lines", lines_, "on or off")->capture_default_str();
    return app;
  }

  ExitCode Run(Session& session) override {
    const ChartSettings settings = ParseSettings();
    const Rect place = ParseSize();
    const bool grid = ParseSwitch(grid_, "--grid");
    const bool markers = ParseSwitch(markers_, "--markers");
    const bool lines = ParseSwitch(lines_, "--lines");
    const int first = ParseNumber(first_, "--first", 1, kMostPoints);

    FormHost& forms = session.UseWindows(WindowsMode::kOffscreen).Forms();
    Ports& ports = session.ThePorts();
    PictureForm form(forms);
    form.chart.SetPlace(place);
    form.chart.SetNumberFormat(ports.locale.Numbers());
    BuildFrom(ports, first, settings, form.chart);
    ShowGrid(form.chart, grid);
    ShowMarkers(form.chart, markers);
    ShowLines(form.chart, lines);
    const auto file = ports.files.Create(FullName(output_));
    file->Write(PngBytes(form.chart.CopyPicture(*forms.Pictures())));
    file->FlushAndClose();
    return ExitCode::kDone;
  }

 private:
  [[nodiscard]] ChartSettings ParseSettings() const {
    ChartSettings settings;
    settings.chartType = ParseNumber(type_, "--type", 0, 7);
    settings.pointsPerDivision =
        CheckedInteger16(ParseNumber(division_, "--points-per-division", 1, kMostPointsPerDivision));
    if (scales_.empty()) return settings;
    const std::vector<std::string> scales = SplitList(scales_);
    if (scales.size() > settings.scales.size()) throw RefusedError("--scale: four numbers at most");
    for (std::size_t s = 0; s < scales.size(); ++s) {
      constexpr int kMostScale = std::numeric_limits<std::int16_t>::max();
      settings.scales[s] = CheckedInteger16(ParseNumber(scales[s], "--scale", 1, kMostScale));
    }
    return settings;
  }

  [[nodiscard]] Rect ParseSize() const {
    const std::size_t by = size_.find('x');
    if (by == std::string::npos) throw RefusedError("--size: width and height, for example 1280x720");
    return {0, 0, static_cast<double>(ParseNumber(size_.substr(0, by), "--size", kLeastSide, kMostSide)),
            static_cast<double>(ParseNumber(size_.substr(by + 1), "--size", kLeastSide, kMostSide))};
  }

  /// Reads the slice that begins with a point, and builds its chart.
  void BuildFrom(Ports& ports, int first, ChartSettings settings, ChartControl& chart) const {
    ChartSource source(ports);
    ChartHeader header;
    source.Open(FullName(file_), header);
    if (!source.HasPoints()) throw RunTimeError(kInvalidFileFormat, file_ + ": the file holds no points");
    const std::int64_t start = std::int64_t{source.FirstLine()} + first - 1;
    const std::int64_t end = start + SliceLength(settings.pointsPerDivision);
    const int columns = source.NamedSeries() == 0 ? kColumnCount : source.NamedSeries();
    const SliceReading reading = source.Read(CheckedInteger32(start), CheckedInteger32(end), columns);
    if (reading.end == SliceEnd::kMalformedLine) {
      throw RunTimeError(kInvalidFileFormat, file_ + ": line " + std::to_string(reading.malformedLine) +
                                                 " is no point: " + reading.malformedText.substr(0, 80));
    }
    if (reading.slice.RowCount() == 0 && first > 1) {
      const std::int64_t held = reading.slice.lastLine - source.FirstLine() + 1;
      throw RefusedError("--first: the file holds " + std::to_string(held) + " points, there is no point " +
                         std::to_string(first));
    }
    settings.series = source.NamedSeries() == 0 ? reading.slice.columnsInUse : source.NamedSeries();
    settings.firstLine = source.FirstLine();
    BuildChart(chart, reading.slice, settings);
  }

  std::string file_;
  std::string output_;
  std::string type_ = "3";
  std::string first_ = "1";
  std::string division_ = "1";
  std::string scales_;
  std::string size_ = "1280x720";
  std::string grid_ = "off";
  std::string markers_ = "off";
  std::string lines_ = "on";
};

}  // namespace

std::unique_ptr<Command> MakeRenderCommand() {
  return std::make_unique<RenderCommand>();
}

}  // namespace chartproject
