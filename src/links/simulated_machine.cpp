// The physics, only as detailed as a chart can show.
#include "links/simulated_machine.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <span>

namespace chartproject {

/// A corner of the speed over the working cycle; between corners the speed moves in straight lines.
struct SpeedCorner {
  double seconds;
  double fraction;  ///< of nominal speed; negative turns backwards
};

struct MachineProfile {
  std::string_view model;
  double nominalSpeed;      ///< rpm
  double nominalFrequency;  ///< Hz
  double nominalCurrent;    ///< A
  double nominalPower;      ///< kW
  double mains;             ///< V
  double idleTorque;        ///< share of nominal torque at any speed
  double fanTorque;         ///< share of nominal torque that grows with the square of the speed
  double inertia;           ///< seconds to nominal speed at nominal torque
  std::span<const SpeedCorner> cycle;
};

namespace {

// A cycle begins and ends at rest; the last corner is its length.
constexpr std::array kPump{SpeedCorner{0, 0},     SpeedCorner{1, 0},     SpeedCorner{6, 1},  SpeedCorner{14, 1},
                           SpeedCorner{15, 0.65}, SpeedCorner{21, 0.65}, SpeedCorner{25, 0}, SpeedCorner{30, 0}};
constexpr std::array kConveyor{SpeedCorner{0, 0},    SpeedCorner{2, 0},  SpeedCorner{5, 0.8},
                               SpeedCorner{25, 0.8}, SpeedCorner{29, 0}, SpeedCorner{34, 0}};
constexpr std::array kMixer{SpeedCorner{0, 0},    SpeedCorner{1.5, 0},  SpeedCorner{4, 0.5}, SpeedCorner{10, 0.5},
                            SpeedCorner{12, 0.9}, SpeedCorner{18, 0.9}, SpeedCorner{22, 0},  SpeedCorner{26, 0}};
constexpr std::array kWinder{SpeedCorner{0, 0},     SpeedCorner{1, 0},  SpeedCorner{9, 1},
                             SpeedCorner{28, 0.55}, SpeedCorner{34, 0}, SpeedCorner{40, 0}};
constexpr std::array kCompressor{SpeedCorner{0, 0},  SpeedCorner{1, 0},  SpeedCorner{9, 1},
                                 SpeedCorner{33, 1}, SpeedCorner{38, 0}, SpeedCorner{45, 0}};
constexpr std::array kPositioner{SpeedCorner{0, 0},   SpeedCorner{0.5, 0}, SpeedCorner{0.9, 1},  SpeedCorner{2.1, 1},
                                 SpeedCorner{2.5, 0}, SpeedCorner{3.5, 0}, SpeedCorner{3.9, -1}, SpeedCorner{5.1, -1},
                                 SpeedCorner{5.5, 0}, SpeedCorner{7, 0}};

constexpr std::array kProfiles{
    MachineProfile{"KRA-09", 1750, 60, 22, 11, 380, 0.15, 0.7, 1.6, kPump},
    MachineProfile{"KRA-08", 1500, 50, 13, 5.5, 400, 0.55, 0.1, 1.2, kConveyor},
    MachineProfile{"LMX-01", 1710, 60, 4.3, 1.5, 220, 0.3, 0.45, 0.8, kMixer},
    MachineProfile{"KRD-04", 2100, 50, 96, 37, 400, 0.5, 0.1, 3.5, kWinder},
    MachineProfile{"TSR-05", 1770, 60, 130, 75, 440, 0.25, 0.55, 5, kCompressor},
    MachineProfile{"PVE-05", 3000, 200, 8, 2.2, 220, 0.12, 0, 0.35, kPositioner},
};

constexpr double kNoLoadCurrent = 0.35;      // share of nominal current that magnetises the motor
constexpr double kAmbient = 27;              // degrees Celsius
constexpr double kBusOverMains = 1.35;       // mean of a rectified three-phase mains
constexpr double kNoiseStep = 0.05;          // seconds between two values of the noise
constexpr double kHoursAtOpening = 1264.5;   // of the machine's life so far
constexpr double kEnergyAtOpening = 8312.4;  // kWh

/// Well-mixed bits of a number (the finaliser of the SplitMix64 generator).
std::uint64_t Mix(std::uint64_t bits) {
  bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9U;
  bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EBU;
  return bits ^ (bits >> 31);
}

}  // namespace

const MachineProfile* FindMachineProfile(std::string_view model) noexcept {
  const auto* const found = std::ranges::find(kProfiles, model, &MachineProfile::model);
  return found == kProfiles.end() ? nullptr : found;
}

double SimulatedMachine::CycleTime(double seconds) const {
  return std::fmod(seconds, profile_.cycle.back().seconds);
}

std::int64_t SimulatedMachine::CycleNumber(double seconds) const {
  return static_cast<std::int64_t>(seconds / profile_.cycle.back().seconds);
}

double SimulatedMachine::SpeedFraction(double seconds) const {
  const double time = CycleTime(seconds);
  const auto after =
      std::ranges::find_if(profile_.cycle, [time](const SpeedCorner& corner) { return corner.seconds > time; });
  const SpeedCorner& to = *after;
  const SpeedCorner& from = *std::prev(after);
  return from.fraction + (to.fraction - from.fraction) * (time - from.seconds) / (to.seconds - from.seconds);
}

/// From -1 to 1, of the same value for a short while.
double SimulatedMachine::Noise(Quantity quantity, double seconds) const {
  const auto step = static_cast<std::uint64_t>(seconds / kNoiseStep);
  const std::uint64_t source =
      step * 1024 + static_cast<std::uint64_t>(quantity) * 32 + static_cast<unsigned>(address_);
  return static_cast<double>(Mix(source + 1) >> 11) / static_cast<double>(1ULL << 52) - 1;
}

double SimulatedMachine::Torque(double seconds) const {
  const double speed = SpeedFraction(seconds);
  if (speed == 0) return 0;
  constexpr double kGlance = 0.01;
  const double acceleration = (SpeedFraction(seconds + kGlance) - speed) / kGlance;
  const double load = profile_.idleTorque + profile_.fanTorque * speed * speed;
  // A slow swing of the load, as of a pump that sucks air now and then.
  const double swing = 0.04 * std::sin(seconds * std::numbers::pi / 1.7 + address_);
  const double torque = (speed < 0 ? -1 : 1) * (load + swing) + profile_.inertia * acceleration;
  return 100 * torque + 1.2 * Noise(Quantity::kTorque, seconds);
}

double SimulatedMachine::Current(double seconds) const {
  if (SpeedFraction(seconds) == 0) return 0;
  const double share = std::hypot(kNoLoadCurrent, Torque(seconds) / 100);
  return std::max(0.0, profile_.nominalCurrent * (share + 0.008 * Noise(Quantity::kCurrent, seconds)));
}

bool SimulatedMachine::IsUndervoltage(double seconds) const {
  const double left = profile_.cycle.back().seconds - CycleTime(seconds);
  return CycleNumber(seconds) % 4 == 3 && left <= 1.2;
}

bool SimulatedMachine::IsFaulty(double seconds) const {
  const double left = profile_.cycle.back().seconds - CycleTime(seconds);
  return CycleNumber(seconds) % 6 == 5 && left <= 1.5;
}

double SimulatedMachine::BusVoltage(double seconds) const {
  const double idle = kBusOverMains * profile_.mains * (IsUndervoltage(seconds) ? 0.62 : 1);
  // Motoring pulls the voltage down; braking feeds it.
  const double sag = 0.03 * Torque(seconds) / 100 * SpeedFraction(seconds);
  return idle * (1 - sag) + 2 * Noise(Quantity::kBusVoltage, seconds);
}

double SimulatedMachine::OutputVoltage(double seconds) const {
  const double speed = std::fabs(SpeedFraction(seconds));
  if (speed == 0) return 0;
  constexpr double kBoost = 0.04;
  return profile_.mains * std::min(1.0, kBoost + speed * (1 - kBoost)) + Noise(Quantity::kOutputVoltage, seconds);
}

double SimulatedMachine::StatusWord(double seconds) const {
  constexpr unsigned kRunning = 1U << 8U;
  constexpr unsigned kEnabled = 1U << 9U;
  constexpr unsigned kUndervoltage = 1U << 13U;
  constexpr unsigned kError = 1U << 15U;
  constexpr unsigned kOvertemperature = 4;
  unsigned word = kEnabled;
  if (SpeedFraction(seconds) != 0) word |= kRunning;
  if (IsUndervoltage(seconds)) word |= kUndervoltage;
  if (IsFaulty(seconds)) word |= kError | kOvertemperature;
  return word;
}

double SimulatedMachine::DigitalInputs(double seconds) const {
  const double speed = SpeedFraction(seconds);
  const auto second = static_cast<std::int64_t>(seconds);
  unsigned word = 0;
  if (speed != 0) word |= 1U << 0U;                     // DI1: start
  if (speed < 0) word |= 1U << 1U;                      // DI2: backwards
  if (second % 3 == 2 && speed != 0) word |= 1U << 2U;  // DI3: a piece passes
  if (std::fabs(speed) >= 0.95) word |= 1U << 3U;       // DI4: full speed asked for
  if (!IsUndervoltage(seconds)) word |= 1U << 6U;       // DI7: mains contactor
  if (!IsFaulty(seconds)) word |= 1U << 7U;             // DI8: no external fault
  return word;
}

double SimulatedMachine::Process(double seconds) const {
  const double speed = SpeedFraction(seconds);
  return std::clamp(8 + 84 * speed * speed + 0.6 * Noise(Quantity::kProcess, seconds), 0.0, 100.0);
}

/// From 0 (cold) towards 1 as the drive works on, with the load's breath.
double SimulatedMachine::Warmth(double seconds) const {
  constexpr double kTimeConstant = 420;  // seconds
  const double breath = 0.04 * std::sin(2 * std::numbers::pi * CycleTime(seconds) / profile_.cycle.back().seconds - 1);
  return std::max(0.0, 1 - std::exp(-(seconds + 60) / kTimeConstant) + breath);
}

double SimulatedMachine::Revolutions(double seconds) const {
  const auto travelTo = [this](double time) {
    double travel = 0;
    for (std::size_t i = 1; i < profile_.cycle.size() && profile_.cycle[i - 1].seconds < time; ++i) {
      const double begin = profile_.cycle[i - 1].seconds;
      const double end = std::min(time, profile_.cycle[i].seconds);
      travel += (end - begin) * SpeedFraction((begin + end) / 2);
    }
    return travel;
  };
  const double perCycle = travelTo(profile_.cycle.back().seconds);
  const double fractions = perCycle * static_cast<double>(CycleNumber(seconds)) + travelTo(CycleTime(seconds));
  return fractions * profile_.nominalSpeed / 60;
}

double SimulatedMachine::ValueOf(Quantity quantity, double seconds) const {
  const double speed = SpeedFraction(seconds);
  const double percentNoise = speed == 0 ? 0 : 0.15 * Noise(quantity, seconds);
  switch (quantity) {
    case Quantity::kSetting:
      return 0;
    case Quantity::kSpeedReference:
      return profile_.nominalSpeed * speed;
    case Quantity::kSpeed:
      return profile_.nominalSpeed * (speed + percentNoise / 100);
    case Quantity::kSpeedPercent:
      return 100 * speed + percentNoise;
    case Quantity::kReferencePercent:
      return 100 * speed;
    case Quantity::kFrequency:
      return profile_.nominalFrequency * std::fabs(speed + percentNoise / 100);
    case Quantity::kCurrent:
      return Current(seconds);
    case Quantity::kCurrentPercent:
      return 100 * Current(seconds) / profile_.nominalCurrent;
    case Quantity::kTorque:
      return Torque(seconds);
    case Quantity::kPower:
      return profile_.nominalPower * Torque(seconds) / 100 * speed;
    case Quantity::kPowerFactor:
      return speed == 0 ? 0 : std::clamp(30 + 0.6 * std::fabs(Torque(seconds)), 0.0, 95.0);
    case Quantity::kMainsVoltage:
      return profile_.mains * (IsUndervoltage(seconds) ? 0.62 : 1) + Noise(quantity, seconds);
    case Quantity::kBusVoltage:
      return BusVoltage(seconds);
    case Quantity::kOutputVoltage:
      return OutputVoltage(seconds);
    case Quantity::kStatusWord:
      return StatusWord(seconds);
    case Quantity::kDigitalInputs:
      return DigitalInputs(seconds);
    case Quantity::kDigitalOutputs:
      return (speed != 0 ? 2 : 0) + (IsFaulty(seconds) ? 0 : 1) + (speed > 0.95 ? 8 : 0);
    case Quantity::kHeatsinkTemperature:
      return kAmbient + 21 * Warmth(seconds) + 0.1 * Noise(quantity, seconds);
    case Quantity::kMotorTemperature:
      return kAmbient + 48 * Warmth(seconds) + 0.1 * Noise(quantity, seconds);
    case Quantity::kProcess:
      return Process(seconds);
    case Quantity::kHours:
      return kHoursAtOpening + seconds / 3600;
    case Quantity::kEnergy:
      return kEnergyAtOpening + profile_.nominalPower * 0.5 * seconds / 3600;
    case Quantity::kPosition:
      return Revolutions(seconds);
  }
  return 0;
}

}  // namespace chartproject
