// Copies between an instance and what its process remembers.
#include "component/process_state.h"

namespace chartproject {

void ProcessState::Give(Component& component) const {
  const std::lock_guard lock(mutex_);
  component.language = remembered_.language;
  component.helpFile = remembered_.helpFile;
  component.driveTable = remembered_.driveTable;
  component.strChartFileName = remembered_.strChartFileName;
  component.chartHeader = remembered_.chartHeader;
  component.missingPictures = remembered_.missingPictures;
}

void ProcessState::Take(const Component& component) {
  const std::lock_guard lock(mutex_);
  remembered_ = {component.language,         component.helpFile,    component.driveTable,
                 component.strChartFileName, component.chartHeader, component.missingPictures};
}

}  // namespace chartproject
