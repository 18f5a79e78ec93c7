// Small windows over the chart window: where to go, and what to look for.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "chart/measure/point_search.h"
#include "chart/picture/geometry/chart_model.h"
#include "common/environment/environment.h"
#include "forms/controls.h"
#include "forms/form.h"
#include "recording/companion/point_clock.h"

namespace chartproject {

/// The number of the point that a text names; nothing for a text that names none. It may be outside of the recording.
/// @param unit what the text counts: a point's number; "01:02:03", "12.5" seconds; "14:05:30" on the first day or the
/// next one, or with a date before it
[[nodiscard]] std::optional<std::int64_t> PlaceOf(const std::string& text, CategoryUnit unit, const PointClock& clock,
                                                  const Locale& locale);

/// frmGoTo: a point or a time.
class GoToForm : public Form {
 public:
  /// @param environment,clock outlive the form; @param points of the recording; @param unit that is asked for first
  GoToForm(Environment& environment, const PointClock& clock, std::int64_t points, CategoryUnit unit);

  Label lblUnit{*this, "lblUnit"};
  ComboBox cboUnit{*this, "cboUnit"};
  Label lblPlace{*this, "lblPlace"};
  TextBox txtPlace{*this, "txtPlace"};
  CommandButton cmdOK{*this, "cmdOK"};
  CommandButton cmdCancel{*this, "cmdCancel"};

  /// The point; nothing when the user went back.
  [[nodiscard]] std::optional<std::int64_t> Point() const noexcept { return point_; }

 protected:
  void OnLoad() override;
  void OnActivate() override { txtPlace.SetFocus(); }

 private:
  void cmdOK_Click();
  void ShowExample();
  [[nodiscard]] CategoryUnit Unit() const;
  [[nodiscard]] std::string Example() const;

  Environment& env_;
  const PointClock& clock_;
  std::int64_t points_;
  std::vector<CategoryUnit> units_;  ///< by the list's index
  std::optional<std::int64_t> point_;
};

/// frmFind: what to look for, in which series, and in which direction.
class FindForm : public Form {
 public:
  /// @param environment outlives the form; @param names of the series; @param last what was looked for before
  FindForm(Environment& environment, const std::vector<std::string>& names, const PointQuery& last);

  Label lblWhat{*this, "lblWhat"};
  ComboBox cboWhat{*this, "cboWhat"};
  Label lblSeries{*this, "lblSeries"};
  ComboBox cboSeries{*this, "cboSeries"};
  Label lblValue{*this, "lblValue"};
  TextBox txtValue{*this, "txtValue"};
  CommandButton cmdNext{*this, "cmdNext"};
  CommandButton cmdPrevious{*this, "cmdPrevious"};
  CommandButton cmdCancel{*this, "cmdCancel"};

  /// What the user looks for; nothing when the user went back.
  [[nodiscard]] const std::optional<PointQuery>& Query() const noexcept { return query_; }

 protected:
  void OnLoad() override;
  void OnActivate() override { cboWhat.SetFocus(); }

 private:
  void Choose(bool forward);
  void cboWhat_Click();
  void cmdNext_Click() { Choose(true); }
  void cmdPrevious_Click() { Choose(false); }

  Environment& env_;
  PointQuery last_;
  std::optional<PointQuery> query_;
};

}  // namespace chartproject
