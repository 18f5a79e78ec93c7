// A drive link to simulated machines, for demonstrations and for work without a plant.
#pragma once

#include <memory>

#include "drive/drive_link.h"
#include "platform/clock.h"
#include "platform/locale.h"

namespace chartproject {

/// At every address 1 to 30 stands a machine of whatever known model is asked for; a parameter that the model does not
/// have, and an unknown model, do not answer. Values depend on nothing but the time since the link was opened, and a
/// read takes no time. A value has the decimals of its unit code's variant F0 to F5 and the locale's decimal separator;
/// docs/simulated-drives.md tells all of it.
class SimulatedLinkFactory : public DriveLinkFactory {
 public:
  SimulatedLinkFactory(Clock& clock, const Locale& locale) : clock_(clock), locale_(locale) {}
  [[nodiscard]] std::unique_ptr<DriveLink> Create() override;

 private:
  Clock& clock_;
  const Locale& locale_;
};

}  // namespace chartproject
