// The scale of each series: text boxes with their arrows, and the button that redraws the chart with them.
#pragma once

#include <array>
#include <functional>

#include "chart/view/chart_building.h"
#include "common/environment/environment.h"
#include "forms/controls.h"

namespace chartproject {

class ScaleSection {
 public:
  ScaleSection(Form& form, Environment& environment);
  ScaleSection(const ScaleSection&) = delete;
  ScaleSection& operator=(const ScaleSection&) = delete;

  Label lblScaleMsg;
  TextBox txtScale1;
  UpDown upd1;
  TextBox txtScale2;
  UpDown upd2;
  TextBox txtScale3;
  UpDown upd3;
  TextBox txtScale4;
  UpDown upd4;
  CommandButton cmdUpdateChart;

  struct Row {
    TextBox* text;
    UpDown* arrows;
  };
  const std::array<Row, kColumnCount> rows;

  /// The user asks for the chart with the new scales.
  std::function<void()> update;

  /// Range and first value of the arrows.
  void Prepare();
  /// Enables the boxes of the first `series` series.
  void EnableFirst(int series);
  /// The scales to draw with. A text that was not checked yet, or was refused, does not count.
  [[nodiscard]] std::array<std::int16_t, kColumnCount> Read() const;

 private:
  bool CheckScale(const Row& row);
  void EnableUpdate() { cmdUpdateChart.SetEnabled(true); }
  void cmdUpdateChart_Click();

  Environment& env_;
};

}  // namespace chartproject
