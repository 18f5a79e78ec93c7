// Reading one parameter of the current drive over the drive link.
#pragma once

#include <cstdint>
#include <string>

#include "drive/unit_codes.h"

namespace chartproject {

struct DriveContext;

/// Reads a parameter of the current drive with a unit code; true when the drive answered, and the value waits in the
/// link. The link must be open. Throws RunTimeError 9 for a drive address outside the table.
[[nodiscard]] bool ReadWithUnit(DriveContext& context, std::int16_t parameter, std::int16_t unitCode);

/// The unit code of a parameter of the current drive, from its driver file. Throws RunTimeError 9 for a parameter
/// outside 0 to 999 or a drive outside 1 to 30.
[[nodiscard]] std::int16_t UnitCodeOf(DriveContext& context, std::int16_t parameter);

/// The ordinary read: the unit code of the driver file, digital words plain.
[[nodiscard]] bool ReadOrdinary(DriveContext& context, std::int16_t parameter);

/// Parameters whose value is computed from others, or whose unit depends on another parameter.
/// True when the parameter is one of them, whether or not the drive answered; then `resultText` is the text to record,
/// empty or unchanged where a read failed. False when the caller must read it in the ordinary way; then `resultText` is
/// untouched and nothing was sent. Throws as ReadWithUnit and UnitCodeOf do.
[[nodiscard]] bool ReadSpecialParameter(DriveContext& context, std::int16_t parameter, std::string& resultText);

}  // namespace chartproject
