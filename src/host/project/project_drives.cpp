// Texts of the drive files and driver files.
#include "host/project/project_drives.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "common/values/numbers.h"
#include "common/values/text.h"
#include "drive/drive_models.h"
#include "drive/drive_status.h"
#include "drive/driver_file.h"
#include "drive/unit_codes.h"
#include "links/simulated_parameters.h"

namespace chartproject {

namespace {

constexpr std::array kDrives{
    ProjectDrive{1, "KRA-09", "2.40", "380-480 V", "24 A", "Pump 1", "KRA090024T3848", "1000240118"},
    ProjectDrive{2, "KRA-08", "3.10", "380-480 V", "16 A", "Conveyor 2", "KRA080016T3848", "1000310207"},
    ProjectDrive{3, "LMX-01", "1.72", "200-240 V", "7.3 A", "Mixer 3", "LMX010073S2024", "1000172345"},
    ProjectDrive{4, "KRD-04", "4.05", "220-440 V", "125 A", "Winder 4", "KRD040125T2244", "1000405012"},
    ProjectDrive{5, "TSR-05", "5.20", "220-575 V", "130 A", "Compressor 5", "TSR050130T2257", "1000520990"},
    ProjectDrive{6, "PVE-05", "2.01", "200-240 V", "8 A", "Positioner 6", "PVE050008T2024", "1000201476"},
};

/// What a driver file says in its own language.
struct DriverLanguage {
  char letter;
  std::string_view name;
  std::string_view ParameterKind::*kindName;
  std::string_view reading;
  std::string_view setting;
  std::array<std::string_view, 5> statusBits;  ///< lines under the status word
};

constexpr std::array kDriverLanguages{
    DriverLanguage{'P',
                   "Portuguese",
                   &ParameterKind::portuguese,
                   "Leitura",
                   "Ajuste",
                   {"Palavra de estado", "bit 8: girando", "bit 9: habilitado", "bit 13: subtensão",
                    "bit 15: erro, com o código nos bits 0 a 7"}},
    DriverLanguage{'E',
                   "English",
                   &ParameterKind::english,
                   "Reading",
                   "Setting",
                   {"Status word", "bit 8: running", "bit 9: enabled", "bit 13: undervoltage",
                    "bit 15: error, with its code in bits 0 to 7"}},
    DriverLanguage{'S',
                   "Spanish",
                   &ParameterKind::spanish,
                   "Lectura",
                   "Ajuste",
                   {"Palabra de estado", "bit 8: girando", "bit 9: habilitado", "bit 13: subtensión",
                    "bit 15: error, con el código en los bits 0 a 7"}},
};

std::string NumberText(double value) {
  std::array<char, 32> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
  return {buffer.data(), end.ptr};
}

/// A parameter line: 13 fields between 14 "#", the last one empty.
using ParameterFields = std::array<std::string, 12>;

std::string ParameterLine(const ParameterFields& fields) {
  std::string line = "#";
  for (const std::string& field : fields) line += field + "#";
  return line + "#" + kLineEnd;
}

std::string ParameterLines(const SimulatedParameter& parameter, const DriverLanguage& language) {
  const ParameterKind& kind = *FindParameterKind(parameter.kind);
  const bool isSetting = kind.quantity == Quantity::kSetting;
  const bool isStatus = parameter.number == kStatusParameter;
  std::string lines = ParameterLine({ParameterName(parameter.number), std::string(kind.*language.kindName),
                                     isStatus ? std::string(language.statusBits.front()) : "",
                                     isSetting ? NumberText(kind.setting) : "", std::string(kind.symbol),
                                     std::string(UnitOf(parameter, kind)), isSetting ? "No" : "Yes",
                                     std::string(isSetting ? language.setting : language.reading), NumberText(kind.low),
                                     NumberText(kind.high), NumberText(kind.setting), ""});
  if (!isStatus) return lines;
  for (std::size_t i = 1; i < language.statusBits.size(); ++i) {
    ParameterFields continuation;
    continuation[2] = language.statusBits[i];
    lines += ParameterLine(continuation);
  }
  return lines;
}

std::string DriverText(const ProjectDrive& drive, const DriverLanguage& language) {
  std::string text;
  const auto add = [&text](std::string_view key, std::string_view value) {
    text.append(key).append("=").append(value).append(kLineEnd);
  };
  add("Type", drive.model);
  add("Firmware Version", drive.firmwareVersion);
  add("Language", language.name);
  add("Driver Version", "1.00");
  add("Customer", "");
  add("(1)", language.reading);
  add("(2)", language.setting);
  text.append("[").append(drive.model).append("]").append(kLineEnd);
  for (const SimulatedParameter& parameter : SimulatedParameters(drive.model)) {
    text += ParameterLines(parameter, language);
  }
  return text;
}

}  // namespace

std::span<const ProjectDrive> ProjectDrives() noexcept {
  return kDrives;
}

std::string DriveFileName(std::string_view folder, const ProjectDrive& drive) {
  return std::string(folder) + "/drive" + FormatDigits(drive.address, 2) + ".drv";
}

std::string DriveFileText(const ProjectDrive& drive) {
  const std::array<std::pair<std::string_view, std::string_view>, 7> fields{
      {{"Type", drive.model},
       {"Firmware Version", drive.firmwareVersion},
       {"Nominal Voltage", drive.nominalVoltage},
       {"Nominal Current", drive.nominalCurrent},
       {"Tag", drive.tag},
       {"Commercial Reference", drive.commercialReference},
       {"Serial Number", drive.serialNumber}}};
  std::string text;
  for (const auto& [key, value] : fields) {
    if (!value.empty()) text.append(key).append("=").append(value).append(kLineEnd);
  }
  return text;
}

std::string ShippedFirmware(std::string_view model) {
  const auto found = std::ranges::find(kDrives, model, &ProjectDrive::model);
  return found == kDrives.end() ? std::string() : std::string(found->firmwareVersion);
}

ProjectFiles DriverFilesOf(std::string_view folder, std::string_view model, std::string_view firmwareVersion,
                           const CodePage& codePage) {
  ProjectFiles files;
  if (SimulatedParameters(model).empty()) return files;
  const ProjectDrive drive{.model = model, .firmwareVersion = firmwareVersion};
  const std::string stem =
      std::string(folder) + "/" + RemoveFirst(model, "-") + "V" + RemoveFirst(firmwareVersion, ".");
  for (const DriverLanguage& language : kDriverLanguages) {
    files.push_back({stem + language.letter + ".wcd", codePage.Encode(DriverText(drive, language))});
  }
  return files;
}

std::string ModelNames() {
  std::string names;
  for (const DriveModel& model : kDriveModels) names.append(names.empty() ? "" : ", ").append(model.name);
  return names;
}

ProjectFiles MakeDriveFiles(std::string_view folder, const CodePage& codePage) {
  ProjectFiles files;
  for (const ProjectDrive& drive : kDrives) {
    files.push_back({DriveFileName(folder, drive), codePage.Encode(DriveFileText(drive))});
  }
  return files;
}

ProjectFiles MakeDriverFiles(std::string_view folder, const CodePage& codePage) {
  ProjectFiles files;
  for (const ProjectDrive& drive : kDrives) {
    for (ProjectFile& file : DriverFilesOf(folder, drive.model, drive.firmwareVersion, codePage)) {
      files.push_back(std::move(file));
    }
  }
  return files;
}

}  // namespace chartproject
