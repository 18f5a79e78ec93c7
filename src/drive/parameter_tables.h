// What the host's driver files say of the parameters of each drive.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace chartproject {

inline constexpr int kParameterCount = 1000;
inline constexpr int kNumberedTextCount = 30;

/// One parameter line. The component itself uses present, name, unit and unitCode; the rest is shared with the host's
/// modules.
struct ParameterEntry {
  bool present = false;
  bool secondPresent = false;
  std::string name;
  std::string text3;
  std::string text4;
  std::string text5;          ///< its unit as users read it, for example "rpm"
  std::int16_t unitCode = 0;  ///< see UnitCode
  bool yesFlag = false;
  std::string text8;
  float limit9 = 0;
  float limit10 = 0;
  float limit11 = 0;
  std::string text12;
};

/// The tables of one drive.
struct ParameterTable {
  std::vector<ParameterEntry> parameters = std::vector<ParameterEntry>(kParameterCount);  ///< by parameter number
  std::array<std::string, kNumberedTextCount> numberedTexts;                              ///< by number minus 1

  /// Throws RunTimeError 9 for a number outside 0 to 999.
  [[nodiscard]] const ParameterEntry& At(int parameter) const;
  [[nodiscard]] ParameterEntry& At(int parameter);
};

/// The tables of all drive addresses 1 to 30, made as they are needed.
class ParameterTables {
 public:
  /// Throws RunTimeError 9 for an address outside 1 to 30. The table stays where it is for the component's life.
  [[nodiscard]] ParameterTable& At(int address);

 private:
  std::array<std::unique_ptr<ParameterTable>, 30> tables_;
};

}  // namespace chartproject
