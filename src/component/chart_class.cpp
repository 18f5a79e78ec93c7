// Start-up, release and the two entry points.
#include "component/chart_class.h"

#include <utility>

#include "acquire/dialog/acquire_form.h"
#include "chart/live/live_chart_control.h"
#include "chart/window/show_chart.h"
#include "common/environment/language.h"
#include "common/environment/settings_io.h"
#include "common/error_log.h"
#include "drive/drive_link_session.h"
#include "drive/drive_table.h"

namespace chartproject {

ChartClass::ChartClass(Component& state, ProcessState& process) : process_(process), component_(state) {
  component_.showChart = ShowChart;
  component_.makeLiveChart = MakeLiveChart;
  ReadConfSettings(component_);
  SetLanguageBase(component_);
  ReadProjectSettings(component_);
  ReadFolderSettings(component_);
  SetHelpFile(component_);
  constexpr std::int16_t kAllAddresses = 0;
  LoadDriveInfo(component_, kAllAddresses);
  ComputeDecimalPoint(component_);
}

ChartClass::~ChartClass() {
  try {
    Release();
  } catch (const std::exception& error) {
    LogRunTimeError(component_, "Release", AsRunTimeError(error));
  }
}

void ChartClass::AcquireVar() {
  // A second dialog while one is up (the host's thread stays alive in it) would take the link away from the first.
  if (component_.driveLink) {
    throw RunTimeError(error_number::kInvalidProcedureCall, Text::kDialogAlreadyOpen);
  }
  DriveLinkSession session(component_);
  session.Open();
  {
    AcquireForm form(component_);
    form.Load();
    form.ShowModal();
  }
  session.Close();
}

void ChartClass::CreateChart(const std::string& strFileName) {
  component_.strChartFileName = strFileName;
  ShowChart(component_, strFileName);
}

void ChartClass::Release() {
  if (std::exchange(released_, true)) return;
  process_.Take(component_);
  SaveConfSettings(component_);
  SaveProjectSettings(component_);
  SaveFolderSettings(component_);
  const std::string& projectFolder = component_.settings.strFolder;
  if (!projectFolder.empty()) component_.ports.files.ChangeFolder(projectFolder);
}

}  // namespace chartproject
