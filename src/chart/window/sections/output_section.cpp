// The chart on paper and in a workbook.
#include "chart/window/sections/output_section.h"

#include "chart/output/excel_export.h"
#include "common/sounds.h"

namespace chartproject {

OutputSection::OutputSection(Form& form, Component& component, const ChartView& view, ReadingSection& reading)
    : cmdExport(form, "cmdExport"),
      cmdPrint(form, "cmdPrint"),
      cmdOK(form, "cmdOK"),
      form_(form),
      component_(component),
      view_(view),
      reading_(reading) {
  Connect(cmdExport.click, cmdExport, "Click", this, &OutputSection::cmdExport_Click);
  Connect(cmdPrint.click, cmdPrint, "Click", this, &OutputSection::cmdPrint_Click);
  Connect(cmdOK.click, cmdOK, "Click", this, &OutputSection::cmdOK_Click);
}

void OutputSection::Offer(ChartActions& actions) {
  for (const auto& [action, button] :
       {std::pair(ChartAction::kExport, &cmdExport), std::pair(ChartAction::kPrint, &cmdPrint)}) {
    actions.Set(action, {[button = button] { button->Press(); }, [button = button] { return button->Enabled(); }});
  }
}

void OutputSection::cmdExport_Click() {
  if (reading_.Busy()) return;
  ExportRequest request;
  request.chartFile = view_.FileName();
  request.header = component_.chartHeader;
  request.progress = [this](std::uint64_t done, std::uint64_t total) {
    return reading_.ShowProgress(total == 0 ? 1.0 : static_cast<double>(done) / static_cast<double>(total),
                                 Text::kExporting);
  };
  std::optional<ReadingSection::Scope> busyReading;
  request.busy = [this, &busyReading](bool busy) {
    busyReading.reset();
    if (!busy) return;
    busyReading.emplace(reading_);
    reading_.ShowHourglass();
  };
  ExportToSpreadsheet(component_, request);
  if (reading_.ClosesAfterwards()) form_.Unload();
}

void OutputSection::cmdPrint_Click() {
  if (reading_.Busy()) return;
  PlayWave(component_, kClickSound);
  printRequested_ = true;
  form_.Hide();
}

void OutputSection::cmdOK_Click() {
  PlayWave(component_, kClickSound);
  printRequested_ = false;
  form_.CloseByUser();
}

}  // namespace chartproject
