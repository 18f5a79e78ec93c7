// The drives of the ready project: their drive files, and their driver files in three languages.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "host/project/project_file.h"
#include "platform/code_page.h"

namespace chartproject {

struct ProjectDrive {
  int address = 0;
  std::string_view model = {};
  std::string_view firmwareVersion = {};
  std::string_view nominalVoltage = {};
  std::string_view nominalCurrent = {};
  std::string_view tag = {};
  std::string_view commercialReference = {};
  std::string_view serialNumber = {};
};

/// One drive of each simulated model.
[[nodiscard]] std::span<const ProjectDrive> ProjectDrives() noexcept;

/// The drive file of a drive, in a folder of the project.
[[nodiscard]] std::string DriveFileName(std::string_view folder, const ProjectDrive& drive);

[[nodiscard]] ProjectFiles MakeDriveFiles(std::string_view folder, const CodePage& codePage);

/// Every driver file describes exactly the parameters that the simulated drive answers for, in its units.
[[nodiscard]] ProjectFiles MakeDriverFiles(std::string_view folder, const CodePage& codePage);

/// The text of a drive file; fields that are empty are left out.
[[nodiscard]] std::string DriveFileText(const ProjectDrive& drive);

/// The firmware version that a shipped model's driver files are for; empty for a model that has none.
[[nodiscard]] std::string ShippedFirmware(std::string_view model);

/// Driver files of a shipped model for another firmware version, in three languages; none for a model that does not
/// ship. @param folder full name
[[nodiscard]] ProjectFiles DriverFilesOf(std::string_view folder, std::string_view model,
                                         std::string_view firmwareVersion, const CodePage& codePage);

/// The models that the system knows, as a list of a sentence.
[[nodiscard]] std::string ModelNames();

}  // namespace chartproject
