// The host's driver files, which describe the parameters of a drive's model and firmware in one language.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "drive/parameter_tables.h"
#include "platform/locale.h"

namespace chartproject {

struct DriveContext;

/// Finds the unit code of a keyword; reports an unknown one. @param parameter the parameter that has the unit
using UnitCodeFinder = std::function<std::int16_t(std::string_view keyword, int parameter)>;

/// Parses the lines of a driver file into a drive's tables. Independent of files and of the user interface.
class DriverFileParser {
 public:
  /// @param table cleared by the caller; outlives the parser
  DriverFileParser(ParameterTable& table, const NumberFormat& numbers, UnitCodeFinder findUnitCode);

  /// Takes one line (UTF-8). False for a line error, which the caller reports; values before the error are kept.
  /// Throws RunTimeError 13 or 6 for a parameter number or limit that is not a number, 9 for a parameter number outside
  /// 0 to 999.
  [[nodiscard]] bool TakeLine(std::string_view line);

 private:
  [[nodiscard]] bool TakeHeaderLine(std::string_view line);
  [[nodiscard]] bool TakeParameterLine(std::string_view line);
  void StoreFields(std::string_view line);
  void ContinueTexts(std::string_view line);
  [[nodiscard]] float Limit(std::string_view field) const;

  ParameterTable& table_;
  const NumberFormat& numbers_;
  UnitCodeFinder findUnitCode_;
  int currentParameter_ = 0;
};

/// Clears the parameter tables of a drive address (1 to 30) and reads its driver file into them. Line errors are shown
/// one by one, and the loading goes on. Throws RunTimeError 53 naming the file when there is none, and what the parser
/// throws, with the file and the line.
void LoadDriverFile(DriveContext& context, std::int16_t address);

/// Names that the driver file of a model may have, in the order in which they are tried. @param model without its "-"
/// @param ending letter of the language and ".wcd"
[[nodiscard]] std::vector<std::string> DriverFileNames(const std::string& model, std::string_view firmwareVersion,
                                                       const std::string& ending);

/// Full name of the driver file of a drive address (0 to 30): the one for its exact firmware version, else the one for
/// a version whose last or last two characters are left open ("X", "XX"), else the model's own, there or not.
[[nodiscard]] std::string DriverFileName(DriveContext& context, std::int16_t address);

/// The text without the first occurrence of a piece; the text itself when there is none.
[[nodiscard]] std::string RemoveFirst(std::string_view text, std::string_view piece);

/// How often a character occurs in a text.
[[nodiscard]] int CountChar(std::string_view text, char character);

/// The text between the i-th and the j-th "#" of a line (counted from 1), without blanks at its ends; empty when the
/// line has fewer.
[[nodiscard]] std::string_view FieldBetween(std::string_view line, int i, int j);

}  // namespace chartproject
