// Copies between an instance and what its process remembers.
#include "component/process_state.h"

namespace chartproject {

std::unique_ptr<Component> ProcessState::NewState(Ports& ports, FormHost& forms, DriveLinkFactory& links) const {
  auto state = std::make_unique<Component>(ports, forms, links);
  const std::lock_guard lock(mutex_);
  state->language = remembered_.language;
  state->helpFile = remembered_.helpFile;
  state->driveTable = remembered_.driveTable;
  state->strChartFileName = remembered_.strChartFileName;
  state->chartHeader = remembered_.chartHeader;
  state->missingPictures = remembered_.missingPictures;
  return state;
}

void ProcessState::Take(const Component& component) {
  const std::lock_guard lock(mutex_);
  remembered_ = {component.language,         component.helpFile,    component.driveTable,
                 component.strChartFileName, component.chartHeader, component.missingPictures};
}

}  // namespace chartproject
