// The report of the chart window: asked for, read from the file, printed.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "chart/report/chart_report.h"
#include "chart/window/actions/chart_actions.h"
#include "chart/window/control/chart_control.h"
#include "chart/window/sections/range_offer.h"
#include "chart/window/sections/reading_section.h"

namespace chartproject {

/// What the user is asked.
struct ReportQuestion {
  std::vector<RangeEntry> entries;
  std::size_t chosen = 0;  ///< entry that is proposed
  std::string title{};     ///< as typed before
  std::string remark{};
};

struct ReportAnswer {
  PointRange range;
  std::string title;
  std::string remark;
};

class ReportSection {
 public:
  /// @param form,component,view,chart,look,reading outlive the section; `reading` is not looked at before an event
  ReportSection(Form& form, Component& component, ChartView& view, ChartControl& chart, const ChartLook& look,
                ReadingSection& reading)
      : form_(form), component_(component), view_(view), chart_(chart), look_(look), reading_(reading) {}
  ReportSection(const ReportSection&) = delete;
  ReportSection& operator=(const ReportSection&) = delete;

  /// Asks for range, title and remark; nothing when the user went back.
  std::function<std::optional<ReportAnswer>(const ReportQuestion& question)> ask;

  void Offer(ChartActions& actions);
  /// For another file.
  void Restart();

 private:
  void Print();
  [[nodiscard]] std::optional<ReportAnswer> Ask();
  [[nodiscard]] std::optional<ChartReport> Make(const ReportAnswer& answer);
  void PrintPages(const ChartReport& report);

  Form& form_;
  Component& component_;
  ChartView& view_;
  ChartControl& chart_;
  const ChartLook& look_;
  ReadingSection& reading_;
  std::string title_;
  std::string remark_;
};

}  // namespace chartproject
