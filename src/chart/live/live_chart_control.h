// The chart of the last points in the dialog of a recording, and under it their last values in figures: `crvPoints`.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "chart/live/live_points.h"
#include "chart/picture/chart_scene.h"
#include "recording/file/component.h"

namespace chartproject {

class LiveChartControl : public DrawnControl, public LiveChart {
 public:
  /// @param component outlives the control
  LiveChartControl(Form& form, Component& component);

  [[nodiscard]] DrawnControl& Control() override { return *this; }
  void Begin(std::int16_t driveAddress, std::span<const std::int16_t> parameters) override;
  void Take(std::int32_t point, const PointRow& row, const FailedColumns& failed) override;

  [[nodiscard]] const LivePoints& Points() const noexcept { return points_; }
  void Paint(Canvas& canvas) override;
  [[nodiscard]] Size PreferredSize() const override { return {400, 200}; }
  /// The last values.
  [[nodiscard]] std::string SpokenWords() const override;

 private:
  /// What the line of figures shows of a column.
  struct Figure {
    std::string name;  ///< "P002 Motor speed"
    std::string unit;  ///< empty where it is not known
    std::string value{};
  };
  void PaintFigures(Canvas& canvas, const Rect& line) const;

  Component& component_;
  LivePoints points_;
  std::vector<Figure> figures_;
  Instant shownAt_{};  ///< when the control was last asked to paint
};

/// As Component::makeLiveChart.
[[nodiscard]] std::unique_ptr<LiveChart> MakeLiveChart(Component& component, Form& form);

}  // namespace chartproject
