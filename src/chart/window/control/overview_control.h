// The strip under the chart that shows the whole recording and chooses the slice: `ovwRecording`.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "chart/picture/overview_scene.h"
#include "forms/controls.h"

namespace chartproject {

/// A press in the frame takes hold of it; anywhere else it brings the middle of the frame to the point meant. Then the
/// frame follows the mouse. A double click goes to the end.
class OverviewControl : public DrawnControl {
 public:
  OverviewControl(Form& form, std::string_view name) : DrawnControl(form, "Overview", name) {}

  /// Shows another recording, or what is known of it now.
  void SetModel(OverviewModel model);
  [[nodiscard]] const OverviewModel& Model() const noexcept { return model_; }
  /// The points [first, end), counted from 0, that the chart shows.
  void ShowSlice(std::int64_t first, std::int64_t end);

  /// The user wants the slice to begin at a point, counted from 0; it may be outside of the recording.
  std::function<void(std::int64_t point)> moved;
  std::function<void()> toTheEnd;

  /// What the strip is, for programs that read the screen out.
  void SetSpokenWords(std::string words) { words_ = std::move(words); }
  [[nodiscard]] std::string SpokenWords() const override { return words_; }

  void Paint(Canvas& canvas) override;
  void PaintOverlay(Canvas& canvas) override;
  [[nodiscard]] Size PreferredSize() const override { return {120, 56}; }
  void MousePressed(const MouseInput& input) override;
  void MouseMoved(const MouseInput& input) override;
  void MouseReleased(const MouseInput& /*input*/) override { held_.reset(); }
  void MouseDoubleClicked(const MouseInput& input) override;

 private:
  [[nodiscard]] std::int64_t PointAt(double x) const;

  OverviewModel model_;
  std::string words_;
  std::optional<OverviewScene> strip_;  ///< as it was painted last; nothing when it is out of date
  std::int64_t first_ = 0;
  std::int64_t end_ = 0;
  std::optional<std::int64_t> held_;  ///< points from the slice's first one to the one that the mouse holds
};

}  // namespace chartproject
