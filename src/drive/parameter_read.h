// Reading one parameter of the current drive over the drive link.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "drive/read_outcome.h"
#include "drive/unit_codes.h"

namespace chartproject {

struct DriveContext;

/// Reads a parameter of the current drive with a unit code; when the drive answered, the value waits in the link. The
/// link must be open. Throws RunTimeError 9 for a drive address outside the table.
[[nodiscard]] ReadOutcome ReadWithUnit(DriveContext& context, std::int16_t parameter, std::int16_t unitCode);

/// The unit code of a parameter of the current drive, from its driver file. Throws RunTimeError 9 for a parameter
/// outside 0 to 999 or a drive outside 1 to 30.
[[nodiscard]] std::int16_t UnitCodeOf(DriveContext& context, std::int16_t parameter);

/// The ordinary read: the unit code of the driver file, digital words plain.
[[nodiscard]] ReadOutcome ReadOrdinary(DriveContext& context, std::int16_t parameter);

/// The result of a special read.
struct SpecialReading {
  ReadOutcome outcome;              ///< of the first reading that failed, of those that it takes
  std::optional<std::string> text;  ///< nothing where the read leaves the caller's text as it was
};

/// Parameters whose value is computed from others, or whose unit depends on another parameter. Nothing when the
/// parameter is not one of them and must be read in the ordinary way; then nothing was sent. A governing value that
/// does not fit 16 bits counts as one that did not answer. Throws as ReadWithUnit and UnitCodeOf do.
[[nodiscard]] std::optional<SpecialReading> ReadSpecial(DriveContext& context, std::int16_t parameter);

/// The same in the host's form. True when the parameter is special; `resultText` is then the text to record, unchanged
/// when the read did not set it.
[[nodiscard]] bool ReadSpecialParameter(DriveContext& context, std::int16_t parameter, std::string& resultText);

/// One parameter as a recording keeps it.
struct ColumnReading {
  ReadOutcome outcome;
  std::string text;  ///< display text; "0" by the model's rule where an ordinary parameter did not answer
};

/// Reads a parameter of the current drive for a recording: the special read first, else the ordinary one and the
/// model's display rule. Throws as ReadSpecial and DisplayValue do.
[[nodiscard]] ColumnReading ReadColumn(DriveContext& context, std::int16_t parameter);

}  // namespace chartproject
