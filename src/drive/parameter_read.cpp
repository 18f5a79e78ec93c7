// The special cases by model, in the order in which they are tested.
#include "drive/parameter_read.h"

#include <cmath>
#include <limits>
#include <utility>

#include "common/values/numbers.h"
#include "drive/display_value.h"
#include "drive/drive_context.h"
#include "drive/drive_models.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

using SetGoverningValue = void (DriveLink::*)(std::int16_t value);

/// Reads a parameter with its own unit; nothing when the drive does not answer.
std::optional<double> ReadNumber(DriveContext& context, std::int16_t parameter) {
  if (!ReadWithUnit(context, parameter, UnitCodeOf(context, parameter))) return std::nullopt;
  return context.driveLink->GetValue();
}

bool FitsInteger16(double value) noexcept {
  using Limits = std::numeric_limits<std::int16_t>;
  const double rounded = std::nearbyint(value);
  return rounded >= Limits::min() && rounded <= Limits::max();
}

SpecialReading ReadText(DriveContext& context, std::int16_t parameter, std::int16_t unitCode) {
  if (!ReadWithUnit(context, parameter, unitCode)) return {};
  return {true, context.driveLink->GetText()};
}

/// A parameter whose unit the link works out from another one, whose value it needs first.
SpecialReading ReadDependent(DriveContext& context, std::int16_t parameter, std::int16_t dependsOn,
                             SetGoverningValue set) {
  const std::optional<double> governing = ReadNumber(context, dependsOn);
  if (!governing || !FitsInteger16(*governing)) return {false, std::string()};
  (*context.driveLink.*set)(RoundToInteger16(*governing));
  return ReadText(context, parameter, UnitCodeOf(context, parameter));
}

/// KRA-08, parameter 2: the product of the parameters 5 and 208.
SpecialReading ComputeProduct(DriveContext& context) {
  const std::optional<double> a = ReadNumber(context, 5);
  const std::optional<double> b = ReadNumber(context, 208);
  return {a || b, FormatTwoDecimals(b.value_or(0) * a.value_or(0), context.ports.locale.Numbers())};
}

/// KRD-04, parameters 32 and 33: the unit depends on parameter 14.
SpecialReading ReadByScale(DriveContext& context, std::int16_t parameter) {
  const double scale = ReadNumber(context, 14).value_or(0);
  if (scale != 0 && scale != 1) return {true, std::nullopt};
  return ReadText(context, parameter, scale == 0 ? kDividedBy10UnitCode : kDividedBy100UnitCode);
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

std::optional<SpecialReading> ReadSpecial(DriveContext& context, std::int16_t parameter) {
  const std::string& model = context.driveTable.At(context.currentDrive).Type;
  if (model == "KRA-09" && (parameter == 1 || parameter == 2)) {
    return ReadDependent(context, parameter, 210, &DriveLink::SetP210Value);
  }
  if (model == "KRA-09" && parameter == 40) return ReadDependent(context, parameter, 529, &DriveLink::SetP529Value);
  if (model == "KRA-08" && parameter == 2) return ComputeProduct(context);
  if (model == "KRD-04" && (parameter == 32 || parameter == 33)) return ReadByScale(context, parameter);
  return std::nullopt;
}

bool ReadSpecialParameter(DriveContext& context, std::int16_t parameter, std::string& resultText) {
  std::optional<SpecialReading> reading = ReadSpecial(context, parameter);
  if (reading && reading->text) resultText = std::move(*reading->text);
  return reading.has_value();
}

ColumnReading ReadColumn(DriveContext& context, std::int16_t parameter) {
  if (const auto special = ReadSpecial(context, parameter)) return {special->answered, special->text.value_or("")};
  const bool answered = ReadOrdinary(context, parameter);
  const std::string text = answered ? context.driveLink->GetText() : "0";
  const std::string& model = context.driveTable.At(context.currentDrive).Type;
  const bool asRead = model == "KRA-05" || model == "KRA-09" || parameter == kStatusParameter;
  return {answered, asRead ? text : DisplayValue(context, parameter, text, model)};
}

}  // namespace chartproject
