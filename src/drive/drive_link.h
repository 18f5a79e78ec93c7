// The host's drive-communication component as this system uses it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "drive/link_wait.h"
#include "drive/read_outcome.h"

namespace chartproject {

/// Operations in the order of the host's interface. A read leaves its value in the link until GetValue or GetText
/// fetches it. A failing link object throws RunTimeError; a reading that fails is a return value, with the reason.
/// A link that waits calls LinkWait::GoOn meanwhile.
class DriveLink {
 public:
  virtual ~DriveLink() = default;
  /// Gives the link the value of parameter 210 (or 529), on which the display of others depends.
  virtual void SetP210Value(std::int16_t value) = 0;
  virtual void SetP529Value(std::int16_t value) = 0;
  /// Reads one parameter.
  /// @param modelCode one character, see ModelCode
  /// @param unitCode 0 to 76, see UnitCode
  [[nodiscard]] virtual ReadOutcome ReadParameter(std::int16_t address, const std::string& modelCode,
                                                  std::int16_t parameter, std::int16_t unitCode) = 0;
  /// Tests whether an address answers; arguments and result as ReadParameter.
  [[nodiscard]] virtual ReadOutcome ProbeParameter(std::int16_t address, const std::string& modelCode,
                                                   std::int16_t parameter, std::int16_t unitCode) = 0;
  virtual void OpenLink() = 0;
  virtual void CloseLink() = 0;
  /// The value of the last successful read, as a number.
  [[nodiscard]] virtual double GetValue() = 0;
  /// The value of the last successful read, as display text.
  [[nodiscard]] virtual std::string GetText() = 0;
  /// True when it has no drives: what it gives was calculated or read from a script.
  [[nodiscard]] virtual bool Simulated() const noexcept { return false; }
};

/// Makes the host's drive link.
class DriveLinkFactory {
 public:
  virtual ~DriveLinkFactory() = default;
  /// Throws RunTimeError 429 when the link cannot be made. @param wait outlives the link
  [[nodiscard]] virtual std::unique_ptr<DriveLink> Create(const LinkWait& wait) = 0;
};

}  // namespace chartproject
