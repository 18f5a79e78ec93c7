// The host's drive-communication component as this system uses it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace chartproject {

/// Operations in the order of the host's interface. A read leaves its value in the link until GetValue or GetText
/// fetches it. A failing link object throws RunTimeError; a drive that does not answer is a status.
class DriveLink {
 public:
  virtual ~DriveLink() = default;
  /// Tells the link parameter 210 (or 529), on which the display of others depends. @param reply ignored
  virtual void SetP210Value(std::int16_t value, std::int16_t& reply) = 0;
  virtual void SetP529Value(std::int16_t value, std::int16_t& reply) = 0;
  /// @param modelCode one character, see ModelCode
  /// @param unitCode 0 to 76, see UnitCode
  /// @param status out: 0 success, anything else failure
  virtual void ReadParameter(std::int16_t address, const std::string& modelCode, std::int16_t parameter,
                             std::int16_t unitCode, std::int16_t& status) = 0;
  /// Tests whether an address answers; arguments as ReadParameter.
  virtual void ProbeParameter(std::int16_t address, const std::string& modelCode, std::int16_t parameter,
                              std::int16_t unitCode, std::int16_t& status) = 0;
  virtual void OpenLink(std::int16_t& result) = 0;
  virtual void CloseLink() = 0;
  /// The value of the last successful read, as a number.
  virtual void GetValue(double& value) = 0;
  /// The value of the last successful read, as display text.
  virtual void GetText(std::string& text) = 0;
};

/// Makes the host's drive link. Throws RunTimeError 429 when it cannot be made.
class DriveLinkFactory {
 public:
  virtual ~DriveLinkFactory() = default;
  [[nodiscard]] virtual std::unique_ptr<DriveLink> Create() = 0;
};

}  // namespace chartproject
