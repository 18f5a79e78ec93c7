// Settings, language base, help file and decimal flag.
#include <gmock/gmock.h>

#include "common/environment.h"
#include "common/language.h"
#include "common/settings_io.h"
#include "common/settings_table.h"
#include "support/error_of.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

class SettingsTest : public testing::Test {
 protected:
  void ReadAll() {
    ReadConfSettings(environment);
    ReadProjectSettings(environment);
    ReadFolderSettings(environment);
  }

  FakePorts fakes;
  Environment environment{fakes.ports, fakes.forms};
};

TEST_F(SettingsTest, AnEmptyStoreGivesTheDefaults) {
  ReadAll();
  const Settings& settings = environment.settings;
  EXPECT_EQ(settings.strLanguage, "English");
  EXPECT_EQ(settings.lngMainBackColor, -2147483636);
  EXPECT_THAT((std::array{settings.intShrinkEffect, settings.intTrials, settings.intSerialPort, settings.intChartType,
                          settings.intTelegramTimeout, settings.intSelectedDrive}),
              testing::ElementsAre(40, 5, 1, 3, 300, 0));
  EXPECT_EQ(settings.lngModemDelay, 5000);
  EXPECT_EQ(settings.strBin, "");
  EXPECT_THAT(settings.strDriveFile, testing::Each("0"));
  std::string switchedOff;
  const auto texts = DescribeSettings(settings);
  for (const SettingDescription& row : texts)
    if (row.value == "No") switchedOff.append(row.key).append(" ");
  EXPECT_EQ(std::ranges::count(texts, "Yes", &SettingDescription::value), 18);
  EXPECT_EQ(switchedOff,
            "strShrinkEffect strMaximizedfrmMain strMaximizedfrmParameters strSoundClosingWindow strGrid strMarker ");
}

TEST_F(SettingsTest, EveryStoredSettingComesBackUnchangedAndInOrder) {
  int number = 100;
  std::vector<std::string> order;
  for (const SettingDescription& row : DescribeSettings({})) {
    const std::string value = row.type == "text" ? "t" + std::to_string(++number) : "-" + std::to_string(++number);
    fakes.settings.values[std::string(row.section)][std::string(row.key)] = value;
    order.push_back(std::string(row.section) + "." + std::string(row.key));
  }
  ASSERT_EQ(order.size(), 32U + 35U + 8U);
  fakes.settings.values["MyConf"]["strOfTheHost"] = "kept";
  const auto before = fakes.settings.values;

  ReadAll();
  EXPECT_EQ(environment.settings.strDriveFile[9], before.at("MyProject").at("strDriveFile10"));
  SaveConfSettings(environment);
  SaveProjectSettings(environment);
  SaveFolderSettings(environment);
  EXPECT_EQ(fakes.settings.values, before);
  EXPECT_EQ(fakes.settings.written, order);
}

TEST_F(SettingsTest, ABadIntegerNamesItsSectionAndKey) {
  const std::tuple<const char*, const char*, const char*, std::string> cases[] = {
      {"MyConf", "intTrials", "many", "13 Type mismatch: setting MyConf.intTrials is \"many\""},
      {"MyProject", "intSelectedDrive", "", "13 Type mismatch: setting MyProject.intSelectedDrive is \"\""},
      {"MyConf", "intChartType", "32768", "6 Overflow: setting MyConf.intChartType is \"32768\""},
      {"MyConf", "lngModemDelay", "3000000000", "6 Overflow: setting MyConf.lngModemDelay is \"3000000000\""},
      {"MyConf", "lngModemDelay", " 70000 ", ""}};
  for (const auto& [section, key, text, expected] : cases) {
    fakes.settings.values = {{section, {{key, text}}}};
    EXPECT_EQ(ErrorTextOf([this] { ReadAll(); }), expected);
  }
}

TEST_F(SettingsTest, ASettingIsSetByName) {
  const NumberFormat& format = fakes.locale.numbers;
  SetSetting(environment.settings, "MyProject", "strDriveFile30", "D:\\p\\30.drv", format);
  SetSetting(environment.settings, "MyConf", "intChartType", "7", format);
  EXPECT_EQ(environment.settings.strDriveFile[29], "D:\\p\\30.drv");
  EXPECT_EQ(environment.settings.intChartType, 7);
  EXPECT_THROW(SetSetting(environment.settings, "MyConf", "strBin", "x", format), RunTimeError);
  EXPECT_THROW(SetSetting(environment.settings, "MyProject", "strDriveFile31", "x", format), RunTimeError);
}

TEST_F(SettingsTest, TheLanguageDecidesBaseAndHelpFile) {
  const std::tuple<const char*, const char*, int, const char*> cases[] = {
      {"Portuguese", "C:\\help", 0, "C:\\help\\Kshelpp.HLP"},
      {"English", "", 1000, "\\Kshelpe.HLP"},
      {"Spanish", "/usr/help", 2000, "/usr/help/Kshelps.HLP"},
      {"english", "C:\\help", 0, ""}};
  for (const auto& [language, folder, base, helpFile] : cases) {
    Environment fresh{fakes.ports, fakes.forms};
    fresh.settings.strLanguage = language;
    fresh.settings.strHelps = folder;
    SetLanguageBase(fresh);
    SetHelpFile(fresh);
    EXPECT_EQ(fresh.languageBase, base) << language;
    EXPECT_EQ(fresh.helpFile, helpFile) << language;
  }
  environment.languageBase = 2000;
  environment.settings.strLanguage = "Klingon";
  SetLanguageBase(environment);
  EXPECT_EQ(environment.languageBase, 2000) << "an unknown language leaves the base as it was";
}

}  // namespace
}  // namespace chartproject
