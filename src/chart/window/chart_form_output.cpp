// The chart on paper and in a workbook.
#include "chart/output/excel_export.h"
#include "chart/window/chart_form.h"
#include "common/sounds.h"

namespace chartproject {

void ChartForm::cmdPrint_Click() {
  if (reading_) return;
  PlayWave(component_, kClickSound);
  printRequested_ = true;
  Hide();
}

ChartPage ChartForm::DescribePage(Bitmap picture) const {
  ChartPage page;
  page.fileName = source_.FileName();
  page.header = component_.chartHeader;
  for (std::size_t s = 0; s < static_cast<std::size_t>(seriesCount_); ++s) {
    page.series.push_back({series_[s].number->Caption(), functionNames_[s], series_[s].scale->Text()});
  }
  page.grid = chkGrid.Value() == 1;
  page.marker = chkMarker.Value() == 1;
  page.line = chkLine.Value() == 1;
  page.chartType = cboChartType.Text();
  page.picture = std::move(picture);
  return page;
}

void ChartForm::cmdExport_Click() {
  if (reading_) return;
  ExportRequest request;
  request.chartFile = source_.FileName();
  request.header = component_.chartHeader;
  request.progress = [this](std::uint64_t done, std::uint64_t total) {
    return ShowReadingProgress(total == 0 ? 1.0 : static_cast<double>(done) / static_cast<double>(total));
  };
  request.busy = [this](bool busy) {
    reading_ = busy;
    if (busy) {
      ShowHourglass();
    } else {
      EndReading();
    }
  };
  ExportToSpreadsheet(component_, request);
  if (closeAfterReading_) Unload();
}

}  // namespace chartproject
