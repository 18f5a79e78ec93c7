// The pages of a report on the printer.
#pragma once

#include "chart/output/chart_page.h"
#include "chart/report/chart_report.h"

namespace chartproject {

/// Prints the page of a chart, as ever, and the report in the rest of it and on further pages: its texts wrap or are
/// shortened, its chart is drawn as lines. As PrintChartPage otherwise.
/// @param page its `follow` is not used
bool PrintReport(Component& component, ChartPage page, const ChartReport& report);

}  // namespace chartproject
