// The host's drive link, reached over COM.
#pragma once

#include <string>

#include "backends/headless/virtual_clock.h"
#include "backends/win32/windows_api.h"
#include "drive/drive_link.h"

namespace chartproject::win32 {

/// Names of the registry values, under the component's own class key, that say which class is the drive link and by
/// which interface it is called. Registration writes the stand-in's; a site writes its host's.
inline constexpr const wchar_t* kDriveLinkClassValue = L"DriveLink";
inline constexpr const wchar_t* kDriveLinkInterfaceValue = L"DriveLinkInterface";

/// Ids of the stand-in, the default of both values.
[[nodiscard]] const GUID& StandInClass() noexcept;
[[nodiscard]] const GUID& DriveLinkInterface() noexcept;

class ComDriveLinkFactory : public DriveLinkFactory {
 public:
  /// @param classId the component's own class, whose key holds the values
  /// @param simulatedClock the virtual clock that a simulated link has to follow; null for the real one
  ComDriveLinkFactory(const GUID& classId, VirtualClock* simulatedClock);
  /// The host's interface has no place for LinkWait: a link that waits lets the input through by a message loop.
  /// Throws RunTimeError 429 when no object of the class can be made, or when it does not know the interface.
  [[nodiscard]] std::unique_ptr<DriveLink> Create(const LinkWait& wait) override;

 private:
  [[nodiscard]] GUID Configured(const wchar_t* value, const GUID& otherwise) const;
  std::wstring classKey_;
  VirtualClock* simulatedClock_;
};

}  // namespace chartproject::win32
