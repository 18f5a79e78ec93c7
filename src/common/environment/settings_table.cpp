// The rows of the three sections and what is done by row.
#include "common/environment/settings_table.h"

#include <type_traits>

#include "common/values/numbers.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

template <typename Field>
constexpr bool kIsText = std::is_same_v<Field, std::string Settings::*> || std::is_same_v<Field, DriveFileField>;

std::string& TextField(Settings& settings, std::string Settings::*field) {
  return settings.*field;
}

std::string& TextField(Settings& settings, DriveFileField field) {
  return settings.strDriveFile.at(field.index);
}

std::vector<SettingRow> ProjectRows() {
  std::vector<SettingRow> rows{
      {"intSelectedDrive", "0", &Settings::intSelectedDrive},
      {"strMainFile", "", &Settings::strMainFile},
      {"strFolder", "", &Settings::strFolder},
      {"strName", "", &Settings::strName},
      {"strVersion", "", &Settings::strVersion},
  };
  for (std::size_t i = 0; i < kDriveFileCount; ++i) {
    // The host leaves the number 0 as the name of an address without a drive.
    rows.push_back({"strDriveFile" + FormatDigits(static_cast<std::int64_t>(i) + 1, 2), "0", DriveFileField{i}});
  }
  return rows;
}

}  // namespace

const SettingsSection& ConfSection() {
  static const SettingsSection section{
      "MyConf",
      {
          {"strShowWarningAtStartup", "Yes", &Settings::strShowWarningAtStartup},
          {"strSerialPortTestAtStartup", "Yes", &Settings::strSerialPortTestAtStartup},
          {"strLanguage", "English", &Settings::strLanguage},
          {"lngMainBackColor", "-2147483636", &Settings::lngMainBackColor},  // system colour 0x8000000C
          {"strShrinkEffect", "No", &Settings::strShrinkEffect},
          {"intShrinkEffect", "40", &Settings::intShrinkEffect},
          {"strSound", "Yes", &Settings::strSound},
          {"intTrials", "5", &Settings::intTrials},
          {"intSerialPort", "1", &Settings::intSerialPort},
          {"strToolBar", "Yes", &Settings::strToolBar},
          {"strDriveBar", "Yes", &Settings::strDriveBar},
          {"strStatusBar", "Yes", &Settings::strStatusBar},
          {"strMaximizedfrmMain", "No", &Settings::strMaximizedfrmMain},
          {"strMaximizedfrmParameters", "No", &Settings::strMaximizedfrmParameters},
          {"strConfirmAction", "Yes", &Settings::strConfirmAction},
          {"strFirstTime", "Yes", &Settings::strFirstTime},
          {"strPrintApplicationData", "Yes", &Settings::strPrintApplicationData},
          {"strPrintCustomerData", "Yes", &Settings::strPrintCustomerData},
          {"strPrintEndUserData", "Yes", &Settings::strPrintEndUserData},
          {"strPrintDriveData", "Yes", &Settings::strPrintDriveData},
          {"strPrintDriveImage", "Yes", &Settings::strPrintDriveImage},
          {"strPrintMotorData", "Yes", &Settings::strPrintMotorData},
          {"strPrintMotorImage", "Yes", &Settings::strPrintMotorImage},
          {"strPrintParameters", "Yes", &Settings::strPrintParameters},
          {"strSoundClosingWindow", "No", &Settings::strSoundClosingWindow},
          {"strGrid", "No", &Settings::strGrid},
          {"strCommunicateWithTest", "Yes", &Settings::strCommunicateWithTest},
          {"strMarker", "No", &Settings::strMarker},
          {"strLine", "Yes", &Settings::strLine},
          {"intChartType", "3", &Settings::intChartType},
          {"intTelegramTimeout", "300", &Settings::intTelegramTimeout},
          {"lngModemDelay", "5000", &Settings::lngModemDelay},
      }};
  return section;
}

const SettingsSection& ProjectSection() {
  static const SettingsSection section{"MyProject", ProjectRows()};
  return section;
}

const SettingsSection& FolderSection() {
  static const SettingsSection section{"MyKestrel",
                                       {
                                           {"strBin", "", &Settings::strBin},
                                           {"strDrivers", "", &Settings::strDrivers},
                                           {"strGraphics", "", &Settings::strGraphics},
                                           {"strHelps", "", &Settings::strHelps},
                                           {"strProjects", "", &Settings::strProjects},
                                           {"strMedia", "", &Settings::strMedia},
                                           {"strFtp", "", &Settings::strFtp},
                                           {"strDriversBackup", "", &Settings::strDriversBackup},
                                       }};
  return section;
}

std::string NamedSetting::Name() const {
  return std::string(section.name) + "." + row.key;
}

std::vector<NamedSetting> AllSettings() {
  std::vector<NamedSetting> all;
  for (const SettingsSection* section : {&ConfSection(), &ProjectSection(), &FolderSection()}) {
    for (const SettingRow& row : section->rows) all.push_back({*section, row});
  }
  return all;
}

std::string SettingText(const Settings& settings, const SettingRow& row) {
  return std::visit(
      [&settings](auto field) -> std::string {
        if constexpr (std::is_same_v<decltype(field), DriveFileField>) {
          return settings.strDriveFile.at(field.index);
        } else if constexpr (kIsText<decltype(field)>) {
          return settings.*field;
        } else {
          return std::to_string(settings.*field);
        }
      },
      row.field);
}

void SetSetting(Settings& settings, const NamedSetting& setting, std::string_view text, const NumberFormat& format) {
  try {
    std::visit(
        [&](auto field) {
          if constexpr (kIsText<decltype(field)>) {
            TextField(settings, field) = text;
          } else if constexpr (std::is_same_v<decltype(field), std::int16_t Settings::*>) {
            settings.*field = ToInteger16(text, format);
          } else {
            settings.*field = ToInteger32(text, format);
          }
        },
        setting.row.field);
  } catch (const RunTimeError& error) {
    const Text fault = error.Number() == error_number::kOverflow ? Text::kSettingOverflow : Text::kSettingTypeMismatch;
    throw RunTimeError(error.Number(), fault, {setting.Name(), std::string(text)});
  }
}

}  // namespace chartproject
