// The machines that the simulated drives run: what moves, draws current and gets warm, as pure functions of time.
#pragma once

#include <cstdint>
#include <string_view>

#include "links/simulated_parameters.h"

namespace chartproject {

/// A machine's rating and its working cycle.
struct MachineProfile;

/// One machine. Its state depends on nothing but the time, so that the same moment always shows the same values.
class SimulatedMachine {
 public:
  /// @param address 1 to 30: two machines of one model do not move in step
  SimulatedMachine(const MachineProfile& profile, std::int16_t address) : profile_(profile), address_(address) {}

  /// @param seconds since the link was opened, 0 or more
  [[nodiscard]] double ValueOf(Quantity quantity, double seconds) const;

 private:
  [[nodiscard]] double SpeedFraction(double seconds) const;
  [[nodiscard]] double Torque(double seconds) const;
  [[nodiscard]] double Current(double seconds) const;
  [[nodiscard]] double BusVoltage(double seconds) const;
  [[nodiscard]] double OutputVoltage(double seconds) const;
  [[nodiscard]] double StatusWord(double seconds) const;
  [[nodiscard]] double DigitalInputs(double seconds) const;
  [[nodiscard]] double Process(double seconds) const;
  [[nodiscard]] double Warmth(double seconds) const;
  [[nodiscard]] double Revolutions(double seconds) const;
  [[nodiscard]] double Noise(Quantity quantity, double seconds) const;
  [[nodiscard]] double CycleTime(double seconds) const;
  [[nodiscard]] std::int64_t CycleNumber(double seconds) const;
  [[nodiscard]] bool IsUndervoltage(double seconds) const;
  [[nodiscard]] bool IsFaulty(double seconds) const;

  const MachineProfile& profile_;
  std::int16_t address_;
};

/// The machine of a simulated model; null when the model is not simulated.
[[nodiscard]] const MachineProfile* FindMachineProfile(std::string_view model) noexcept;

}  // namespace chartproject
