// A drive link to simulated machines, for demonstrations and for work without a plant.
#pragma once

#include <memory>

#include "drive/drive_link.h"
#include "platform/clock.h"
#include "platform/locale.h"

namespace chartproject {

/// Every address from 1 to 30 has a machine of any known model; an unknown model, and a parameter that the model does
/// not have, do not answer. Values depend on nothing but the time since the link was opened, and a
/// read takes no time. A value has the decimals of its unit code's variant F0 to F5 and the locale's decimal separator;
/// docs/simulated-drives.md describes the details.
class SimulatedLinkFactory : public DriveLinkFactory {
 public:
  SimulatedLinkFactory(Clock& clock, const Locale& locale) : clock_(clock), locale_(locale) {}
  [[nodiscard]] std::unique_ptr<DriveLink> Create(const LinkWait& wait) override;

 private:
  Clock& clock_;
  const Locale& locale_;
};

}  // namespace chartproject
