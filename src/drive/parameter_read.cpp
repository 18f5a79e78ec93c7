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

/// A reading as a number; 0 when it failed.
struct NumberReading {
  ReadOutcome outcome;
  double value = 0;
};

/// Reads a parameter with its own unit.
NumberReading ReadNumber(DriveContext& context, std::int16_t parameter) {
  NumberReading reading{ReadWithUnit(context, parameter, UnitCodeOf(context, parameter))};
  if (reading.outcome.Answered()) reading.value = context.driveLink->GetValue();
  return reading;
}

bool FitsInteger16(double value) noexcept {
  using Limits = std::numeric_limits<std::int16_t>;
  const double rounded = std::nearbyint(value);
  return rounded >= Limits::min() && rounded <= Limits::max();
}

SpecialReading ReadText(DriveContext& context, std::int16_t parameter, std::int16_t unitCode) {
  ReadOutcome outcome = ReadWithUnit(context, parameter, unitCode);
  if (!outcome.Answered()) return {std::move(outcome), std::nullopt};
  return {{}, context.driveLink->GetText()};
}

/// A parameter whose unit the link works out from another one, whose value it needs first.
SpecialReading ReadDependent(DriveContext& context, std::int16_t parameter, std::int16_t dependsOn,
                             SetGoverningValue set) {
  const NumberReading governing = ReadNumber(context, dependsOn);
  if (!governing.outcome.Answered()) return {governing.outcome, std::string()};
  if (!FitsInteger16(governing.value)) return {{ReadFailure::kNoAnswer, {}}, std::string()};
  (*context.driveLink.*set)(RoundToInteger16(governing.value));
  return ReadText(context, parameter, UnitCodeOf(context, parameter));
}

/// KRA-08, parameter 2: the product of the parameters 5 and 208. One that was not read counts as 0.
SpecialReading ComputeProduct(DriveContext& context) {
  const NumberReading a = ReadNumber(context, 5);
  const NumberReading b = ReadNumber(context, 208);
  return {a.outcome.Answered() ? b.outcome : a.outcome,
          FormatTwoDecimals(b.value * a.value, context.ports.locale.Numbers())};
}

/// KRD-04, parameters 32 and 33: the unit depends on parameter 14, which counts as 0 when it was not read.
SpecialReading ReadByScale(DriveContext& context, std::int16_t parameter) {
  NumberReading scale = ReadNumber(context, 14);
  if (scale.value != 0 && scale.value != 1) return {{}, std::nullopt};
  SpecialReading reading =
      ReadText(context, parameter, scale.value == 0 ? kDividedBy10UnitCode : kDividedBy100UnitCode);
  if (!scale.outcome.Answered()) reading.outcome = std::move(scale.outcome);
  return reading;
}

}  // namespace

ReadOutcome ReadWithUnit(DriveContext& context, std::int16_t parameter, std::int16_t unitCode) {
  const std::string& model = context.driveTable.At(context.currentDrive).Type;
  if (!context.driveLink) throw RunTimeError(error_number::kObjectNotSet, Text::kDriveLinkNotOpen);
  return context.driveLink->ReadParameter(context.currentDrive, ModelCode(model), parameter, unitCode);
}

std::int16_t UnitCodeOf(DriveContext& context, std::int16_t parameter) {
  return context.parameterTables.At(context.currentDrive).At(parameter).unitCode;
}

ReadOutcome ReadOrdinary(DriveContext& context, std::int16_t parameter) {
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
  if (auto special = ReadSpecial(context, parameter)) {
    return {std::move(special->outcome), std::move(special->text).value_or("")};
  }
  ReadOutcome outcome = ReadOrdinary(context, parameter);
  const std::string text = outcome.Answered() ? context.driveLink->GetText() : "0";
  const std::string& model = context.driveTable.At(context.currentDrive).Type;
  const bool asRead = model == "KRA-05" || model == "KRA-09" || parameter == kStatusParameter;
  return {std::move(outcome), asRead ? text : DisplayValue(context, parameter, text, model)};
}

}  // namespace chartproject
