// The drive models that the system knows.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace chartproject {

/// How a value read from a drive of a model is shown. @see DisplayValue
enum class ValueDisplay {
  kNothing,     ///< these models show no text
  kAsRead,      ///< the text of the link
  kWithStatus,  ///< parameter 6 shows the status text, all others the text of the link
  kWithInvalid  ///< as kWithStatus, and some parameters show "--" for an invalid reading
};

struct DriveModel {
  std::string_view name;
  char code;  ///< '0' + the model's number
  ValueDisplay display;
};

/// Names are compared exactly. The number 9 is the code of every name that is not here.
inline constexpr std::array kDriveModels{
    DriveModel{"KRA-02", '0', ValueDisplay::kNothing},     DriveModel{"KRD-(A)03", '1', ValueDisplay::kAsRead},
    DriveModel{"KRA-03", '2', ValueDisplay::kNothing},     DriveModel{"KRA-04", '3', ValueDisplay::kNothing},
    DriveModel{"KRA-05", '4', ValueDisplay::kWithStatus},  DriveModel{"KRA-06", '5', ValueDisplay::kNothing},
    DriveModel{"KRA-07", '6', ValueDisplay::kAsRead},      DriveModel{"KRA-08", '7', ValueDisplay::kAsRead},
    DriveModel{"KRA-09", '8', ValueDisplay::kWithInvalid}, DriveModel{"LMX-01", ':', ValueDisplay::kAsRead},
    DriveModel{"TSR-03", ';', ValueDisplay::kAsRead},      DriveModel{"TSR-04", '<', ValueDisplay::kAsRead},
    DriveModel{"PVE-04", '=', ValueDisplay::kAsRead},      DriveModel{"TSR-05", '>', ValueDisplay::kAsRead},
    DriveModel{"TSR-06", '?', ValueDisplay::kAsRead},      DriveModel{"KRD-04", '@', ValueDisplay::kAsRead},
    DriveModel{"PVE-05", 'A', ValueDisplay::kAsRead},
};

/// Null for a name that is not in the table.
[[nodiscard]] const DriveModel* FindDriveModel(std::string_view name);

/// The first model whose name a text holds, for example what a drive says of itself; null for none.
[[nodiscard]] const DriveModel* FindModelIn(std::string_view text);

/// False for a model whose numbers are all shown as nothing: those of kNothing, and every unknown name.
[[nodiscard]] bool ShowsValues(std::string_view name);

/// The one-character code that the drive link expects; "9" for an unknown name.
[[nodiscard]] std::string ModelCode(std::string_view name);

}  // namespace chartproject
