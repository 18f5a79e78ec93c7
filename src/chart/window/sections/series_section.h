// The series' names beside the chart: number and name of the parameter, and the colour.
#pragma once

#include <array>

#include "chart/view/chart_view.h"
#include "forms/controls.h"

namespace chartproject {

class SeriesSection {
 public:
  explicit SeriesSection(Form& form);
  SeriesSection(const SeriesSection&) = delete;
  SeriesSection& operator=(const SeriesSection&) = delete;

  Label lblPXXX1, lblPXXX2, lblPXXX3, lblPXXX4;
  Label lblPXXX1Function, lblPXXX2Function, lblPXXX3Function, lblPXXX4Function;
  PictureBox picPXXX1, picPXXX2, picPXXX3, picPXXX4;

  struct Row {
    PictureBox* swatch;
    Label* number;
    Label* function;
  };
  const std::array<Row, kColumnCount> rows;

  /// Gives the swatches their colours.
  void Prepare();
  void Show(const ChartView& view);
  /// Swatches of hidden series lose their colour.
  void ShowHidden(const std::array<bool, kColumnCount>& hidden);
};

}  // namespace chartproject
