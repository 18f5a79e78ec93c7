// The drives of the host's current project.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace chartproject {

struct DriveContext;

inline constexpr int kLastDriveAddress = 30;

/// The entry of one drive in a drive file; all empty when there is no drive at the address.
struct DriveRecord {
  std::string Address;  ///< two digits
  std::string Type;     ///< model name, for example KRA-09
  std::string FirmwareVersion;
  std::string NominalVoltage;
  std::string NominalCurrent;
  std::string Tag;
  std::string CommercialReference;
  std::string SerialNumber;
};

/// Records by drive address 0 to 30 (0 is never filled).
class DriveTable {
 public:
  /// Throws RunTimeError 9 for an address outside 0 to 30.
  [[nodiscard]] const DriveRecord& At(int address) const;
  [[nodiscard]] DriveRecord& At(int address);
  void Clear() { records_.fill({}); }

 private:
  std::array<DriveRecord, kLastDriveAddress + 1> records_;
};

/// Loads the drive files named in the settings into the drive table: one address, or all of 1 to 30 for address 0.
/// Nothing happens while strMainFile is empty; otherwise the whole table is cleared first, also for one address.
/// An address whose file is not there is skipped; a file that cannot be opened is a RunTimeError.
void LoadDriveInfo(DriveContext& context, std::int16_t address);

}  // namespace chartproject
