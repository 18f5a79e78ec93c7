// Small windows over the chart window that ask for a part of the recording: which points are exported, and what a
// report says of them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "chart/window/sections/range_offer.h"
#include "chart/window/sections/report_section.h"
#include "forms/controls.h"
#include "forms/form.h"

namespace chartproject {

/// frmExport: a question with Yes and No, and the points that it is about.
class ExportForm : public Form {
 public:
  /// @param environment outlives the form; @param entries one at least, the first one is chosen
  ExportForm(Environment& environment, const std::string& question, std::vector<RangeEntry> entries);

  Label lblQuestion{*this, "lblQuestion"};
  Label lblRange{*this, "lblRange"};
  ComboBox cboRange{*this, "cboRange"};
  CommandButton cmdYes{*this, "cmdYes"};
  CommandButton cmdNo{*this, "cmdNo"};

  /// The points; nothing when the answer was No.
  [[nodiscard]] const std::optional<PointRange>& Range() const noexcept { return range_; }

 protected:
  void OnLoad() override;
  void OnActivate() override { cmdYes.SetFocus(); }

 private:
  void cmdYes_Click();

  Environment& env_;
  std::vector<RangeEntry> entries_;
  std::optional<PointRange> range_;
};

/// frmReport: points, title and remark of a report.
class ReportForm : public Form {
 public:
  /// @param environment outlives the form; @param asked entries, one at least, and what was typed before
  ReportForm(Environment& environment, ReportQuestion asked);

  Label lblRange{*this, "lblRange"};
  ComboBox cboRange{*this, "cboRange"};
  Label lblTitle{*this, "lblTitle"};
  TextBox txtTitle{*this, "txtTitle"};
  Label lblRemark{*this, "lblRemark"};
  TextBox txtRemark{*this, "txtRemark"};
  CommandButton cmdPrint{*this, "cmdPrint"};
  CommandButton cmdCancel{*this, "cmdCancel"};

  /// What is to be printed; nothing when the user went back.
  [[nodiscard]] const std::optional<ReportAnswer>& Answer() const noexcept { return answer_; }

 protected:
  void OnLoad() override;
  void OnActivate() override { txtTitle.SetFocus(); }

 private:
  void cmdPrint_Click();

  Environment& env_;
  ReportQuestion asked_;
  std::optional<ReportAnswer> answer_;
};

}  // namespace chartproject
