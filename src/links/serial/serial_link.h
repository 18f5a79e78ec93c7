// The link to real drives: parameters are registers, read over a line.
#pragma once

#include <functional>
#include <memory>

#include "drive/drive_link.h"
#include "links/serial/line_port.h"
#include "links/serial/link_url.h"
#include "platform/clock.h"
#include "platform/locale.h"

namespace chartproject {

/// Makes the port of a line. @param stopping asked often while the port waits: true when it is to return at once
using LinePortMaker =
    std::function<std::unique_ptr<LinePort>(const LineSettings& settings, std::function<bool()> stopping)>;

/// A link waits on a thread of its own. OpenLink throws RunTimeError for a port that cannot be opened. One that
/// vanishes later is opened again for ever, and the readings meanwhile fail. The port belongs to the link until
/// CloseLink.
class SerialLinkFactory : public DriveLinkFactory {
 public:
  /// @param language of the reasons that the line adds to failed readings @param clock a real one; clock and locale
  /// outlive the links
  SerialLinkFactory(LineSettings settings, LinePortMaker makePort, Clock& clock, const Locale& locale,
                    std::function<Language()> language);
  [[nodiscard]] std::unique_ptr<DriveLink> Create(const LinkWait& wait) override;

 private:
  LineSettings settings_;
  LinePortMaker makePort_;
  Clock& clock_;
  const Locale& locale_;
  std::function<Language()> language_;
};

/// What a reply means for a reading, in the user's language.
[[nodiscard]] ReadOutcome OutcomeOfReply(const LineReply& reply, Language language);

}  // namespace chartproject
