// The drive links that the program offers.
#pragma once

#include <memory>
#include <string>

#include "drive/drive_link.h"
#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/locale.h"

namespace chartproject {

/// @param link "sim" for simulated drives, "scenario:FILE" for a script. Throws RunTimeError for a script that is
/// missing or malformed. @param waitUntil how time passes on the clock while a scripted drive is slow
/// @param files,clock,locale outlive the result
[[nodiscard]] std::unique_ptr<DriveLinkFactory> MakeDriveLinks(const std::string& link, FileSystem& files, Clock& clock,
                                                               const WaitUntil& waitUntil, const Locale& locale);

}  // namespace chartproject
