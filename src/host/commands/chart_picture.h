// The chart of a slice without a window: what `render` draws and `print` puts on paper.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "chart/window/chart_building.h"
#include "forms/form.h"
#include "platform/ports.h"
#include "recording/chart_header.h"

namespace chartproject {

/// Options that choose the slice and the look of its chart.
class ChartPictureOptions {
 public:
  void AddTo(CLI::App& command);

  /// What the texts of the options mean. Throws RefusedError that names the option.
  struct Choice {
    ChartSettings settings;
    int first = 1;
    bool grid = false;
    bool markers = false;
    bool lines = true;
  };
  [[nodiscard]] Choice Parse() const;

 private:
  std::string type_ = "3";
  std::string first_ = "1";
  std::string division_ = "1";
  std::string scales_;
  std::string grid_ = "off";
  std::string markers_ = "off";
  std::string lines_ = "on";
};

/// A form that is never shown: the chart control's home.
class ChartPictureForm : public Form {
 public:
  /// @param forms draws pictures (FormHost::Pictures is not null); @param size of the chart in pixels
  ChartPictureForm(FormHost& forms, Size size);

  /// Reads the slice and builds its chart. @param fileName full name; @param header takes the file's header
  /// Throws RunTimeError 321 for a file without points or with a malformed line, RefusedError for a first point that
  /// the file does not have.
  void Build(Ports& ports, const std::string& fileName, ChartPictureOptions::Choice choice, ChartHeader& header);

  /// @param scale dots to the pixel
  [[nodiscard]] Bitmap Picture(double scale);
  /// Series shown, 1 to 4.
  [[nodiscard]] int SeriesCount() const noexcept { return chart_.ColumnCount(); }

 private:
  ChartControl chart_{*this, "mscChart1"};
};

}  // namespace chartproject
