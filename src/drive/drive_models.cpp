// Look-ups in the model table.
#include "drive/drive_models.h"

#include <algorithm>

namespace chartproject {

const DriveModel* FindDriveModel(std::string_view name) {
  const auto* const found =
      std::find_if(kDriveModels.begin(), kDriveModels.end(), [name](const DriveModel& m) { return m.name == name; });
  return found == kDriveModels.end() ? nullptr : found;
}

const DriveModel* FindModelIn(std::string_view text) {
  const auto* const found = std::ranges::find_if(
      kDriveModels, [text](const DriveModel& m) { return text.find(m.name) != std::string_view::npos; });
  return found == kDriveModels.end() ? nullptr : found;
}

bool ShowsValues(std::string_view name) {
  const DriveModel* const model = FindDriveModel(name);
  return model != nullptr && model->display != ValueDisplay::kNothing;
}

std::string ModelCode(std::string_view name) {
  const DriveModel* const model = FindDriveModel(name);
  return {model == nullptr ? '9' : model->code};
}

}  // namespace chartproject
