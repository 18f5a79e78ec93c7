// The host's settings as the component holds them between creation and release.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "platform/settings_store.h"

namespace chartproject {

inline constexpr int kDriveFileCount = 30;

/// One field per key, named as the key is; defaults are those of an empty store. Most are the host's and only carried.
struct Settings {
  // Section "MyConf".
  std::string strShowWarningAtStartup, strSerialPortTestAtStartup, strLanguage;
  std::int32_t lngMainBackColor = 0;
  std::string strShrinkEffect;
  std::int16_t intShrinkEffect = 0;
  std::string strSound;
  std::int16_t intTrials = 0, intSerialPort = 0;
  std::string strToolBar, strDriveBar, strStatusBar, strMaximizedfrmMain, strMaximizedfrmParameters, strConfirmAction,
      strFirstTime, strPrintApplicationData, strPrintCustomerData, strPrintEndUserData, strPrintDriveData,
      strPrintDriveImage, strPrintMotorData, strPrintMotorImage, strPrintParameters, strSoundClosingWindow, strGrid,
      strCommunicateWithTest, strMarker, strLine;
  std::int16_t intChartType = 0, intTelegramTimeout = 0;
  std::int32_t lngModemDelay = 0;

  // Section "MyProject".
  std::int16_t intSelectedDrive = 0;
  std::string strMainFile, strFolder, strName, strVersion;
  std::array<std::string, kDriveFileCount> strDriveFile;  ///< by drive address minus 1

  // Section "MyKestrel".
  std::string strBin, strDrivers, strGraphics, strHelps, strProjects, strMedia, strFtp, strDriversBackup;

  /// "Yes" when the acquisition dialog was closed maximised; a key of "MyConf" shared with the host's error form and
  /// stored by the dialog itself, so it is not in the section's table.
  std::string strMaximizedfrmErr;
};

}  // namespace chartproject
