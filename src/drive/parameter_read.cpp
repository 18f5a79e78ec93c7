// The special cases by model, in the order in which they are tested.
#include "drive/parameter_read.h"

#include "common/values/numbers.h"
#include "drive/drive_context.h"
#include "drive/drive_models.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

using SetGoverningValue = void (DriveLink::*)(std::int16_t value);

/// Reads a parameter with its own unit; 0 when the drive does not answer.
double ValueOrZero(DriveContext& context, std::int16_t parameter) {
  return ReadWithUnit(context, parameter, UnitCodeOf(context, parameter)) ? context.driveLink->GetValue() : 0;
}

/// A parameter whose unit the link works out from another one, whose value it needs first.
void ReadDependent(DriveContext& context, std::int16_t parameter, std::int16_t dependsOn, SetGoverningValue set,
                   std::string& resultText) {
  if (!ReadWithUnit(context, dependsOn, UnitCodeOf(context, dependsOn))) {
    resultText.clear();
    return;
  }
  (*context.driveLink.*set)(RoundToInteger16(context.driveLink->GetValue()));
  if (ReadWithUnit(context, parameter, UnitCodeOf(context, parameter))) resultText = context.driveLink->GetText();
}

/// KRA-08, parameter 2: the product of the parameters 5 and 208.
void ComputeProduct(DriveContext& context, std::string& resultText) {
  const double a = ValueOrZero(context, 5);
  const double b = ValueOrZero(context, 208);
  resultText = FormatTwoDecimals(b * a, context.ports.locale.Numbers());
}

/// KRD-04, parameters 32 and 33: the unit depends on parameter 14.
void ReadByScale(DriveContext& context, std::int16_t parameter, std::string& resultText) {
  const double scale = ValueOrZero(context, 14);
  if (scale != 0 && scale != 1) return;
  const std::int16_t unitCode = scale == 0 ? kDividedBy10UnitCode : kDividedBy100UnitCode;
  if (ReadWithUnit(context, parameter, unitCode)) resultText = context.driveLink->GetText();
}

}  // namespace

bool ReadWithUnit(DriveContext& context, std::int16_t parameter, std::int16_t unitCode) {
  const std::string& model = context.driveTable.At(context.currentDrive).Type;
  if (!context.driveLink) throw RunTimeError(error_number::kObjectNotSet, Text::kDriveLinkNotOpen);
  return context.driveLink->ReadParameter(context.currentDrive, ModelCode(model), parameter, unitCode);
}

std::int16_t UnitCodeOf(DriveContext& context, std::int16_t parameter) {
  return context.parameterTables.At(context.currentDrive).At(parameter).unitCode;
}

bool ReadOrdinary(DriveContext& context, std::int16_t parameter) {
  return ReadWithUnit(context, parameter, ReadUnitCode(UnitCodeOf(context, parameter)));
}

bool ReadSpecialParameter(DriveContext& context, std::int16_t parameter, std::string& resultText) {
  const std::string& model = context.driveTable.At(context.currentDrive).Type;
  if (model == "KRA-09" && (parameter == 1 || parameter == 2)) {
    ReadDependent(context, parameter, 210, &DriveLink::SetP210Value, resultText);
  } else if (model == "KRA-09" && parameter == 40) {
    ReadDependent(context, parameter, 529, &DriveLink::SetP529Value, resultText);
  } else if (model == "KRA-08" && parameter == 2) {
    ComputeProduct(context, resultText);
  } else if (model == "KRD-04" && (parameter == 32 || parameter == 33)) {
    ReadByScale(context, parameter, resultText);
  } else {
    return false;
  }
  return true;
}

}  // namespace chartproject
