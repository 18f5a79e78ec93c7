// The rules by model.
#include "drive/display_value.h"

#include "common/values/numbers.h"
#include "drive/drive_context.h"
#include "drive/drive_models.h"

namespace chartproject {

namespace {

constexpr std::int16_t kFirstInvalidReading = 13107;  // 0x3333, what the drive answers for "no value"

bool MayBeInvalid(std::int16_t parameter) {
  return (parameter >= 14 && parameter <= 17) || (parameter >= 60 && parameter <= 65);
}

}  // namespace

std::string DisplayValue(const DriveContext& context, std::int16_t parameter, const std::string& value,
                         std::string_view model) {
  const NumberFormat& numbers = context.ports.locale.Numbers();
  if (!IsNumeric(value, numbers)) return value;
  const DriveModel* const known = FindDriveModel(model);
  switch (known == nullptr ? ValueDisplay::kNothing : known->display) {
    case ValueDisplay::kNothing:
      return {};
    case ValueDisplay::kAsRead:
      return value;
    case ValueDisplay::kWithStatus:
      return parameter == kStatusParameter ? context.status.strStatus : value;
    case ValueDisplay::kWithInvalid:
      if (parameter == kStatusParameter) return context.status.strStatus;
      return MayBeInvalid(parameter) && ToInteger16(value, numbers) >= kFirstInvalidReading ? "--" : value;
  }
  return value;
}

}  // namespace chartproject
