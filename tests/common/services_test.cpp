// Message boxes, the error log and sounds; the numbered messages and the additional texts in their three languages;
// settings, language base and help file.
#include <gmock/gmock.h>

#include <set>

#include "common/environment/environment.h"
#include "common/environment/language.h"
#include "common/environment/settings_io.h"
#include "common/environment/settings_table.h"
#include "common/error_log.h"
#include "common/message_box.h"
#include "common/sounds.h"
#include "support/error_of.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

class ServicesTest : public testing::Test {
 protected:
  FakePorts fakes;
  Environment environment{fakes.ports, fakes.forms};
};

TEST_F(ServicesTest, AMessageStandsInTheHelpFolderAndComesBack) {
  environment.settings.strHelps = "C:\\help";
  std::string folderWhileUp;
  fakes.dialogs.whileUp = [&](const MessageBoxRequest&) { folderWhileUp = fakes.files.CurrentFolder(); };
  fakes.dialogs.answers = {box_answer::kYes};
  EXPECT_EQ(ShowMessage(environment, "Continue even so ?", box_style::kYesNo + box_style::kQuestion, "ignored.hlp"),
            box_answer::kYes);
  EXPECT_EQ(folderWhileUp, "C:\\help");
  EXPECT_EQ(fakes.files.CurrentFolder(), "/start");
  const MessageBoxRequest& plain = fakes.dialogs.boxes.at(0);
  EXPECT_EQ(plain.title, "Kestrel v5.60");
  EXPECT_EQ(plain.style, 36);
  EXPECT_EQ(plain.helpFile, "");

  ShowMessage(environment, "Event not available", box_style::kExclamation, "k.hlp", 91);
  const MessageBoxRequest& withHelp = fakes.dialogs.boxes.at(1);
  EXPECT_EQ(withHelp.style, 48 + 16384);
  EXPECT_EQ(withHelp.helpFile, "k.hlp");
  EXPECT_EQ(withHelp.helpContext, 91);
}

TEST_F(ServicesTest, AFailingBoxOrHelpFolderLosesNothing) {
  fakes.files.checkFolders = true;
  fakes.files.folders = {"/help", "/start"};
  environment.settings.strHelps = "/gone";
  ShowMessage(environment, "still shown", box_style::kOkOnly);
  EXPECT_EQ(fakes.dialogs.TakePrompts(), std::vector<std::string>{"still shown"});

  environment.settings.strHelps = "/help";
  fakes.dialogs.whileUp = [](const MessageBoxRequest&) { throw RunTimeError(5, "no screen"); };
  EXPECT_THROW(ShowMessage(environment, "x", box_style::kOkOnly), RunTimeError);
  EXPECT_EQ(fakes.files.CurrentFolder(), "/start");

  fakes.dialogs.whileUp = [&](const MessageBoxRequest&) { fakes.files.folders.erase("/start"); };
  fakes.dialogs.answers = {box_answer::kNo};
  EXPECT_EQ(ShowMessage(environment, "x\r\n\x1B[2J", box_style::kYesNo), box_answer::kNo)
      << "the former folder is gone";
  EXPECT_EQ(fakes.dialogs.boxes.back().prompt, "x\r\n\\x1B[2J");
}

TEST_F(ServicesTest, ErrorsAreAppendedToTheLogAndShown) {
  environment.settings.strBin = "C:\\bin";
  fakes.files.Put("C:\\bin\\Kestrel.log", "host\r\n");
  LogRunTimeError(environment, "ShowChart", RunTimeError(9, "Endereço", "ChartProject"));
  const std::string head =
      "<<Run-Time Error>>\r\nData = 31/01/2026\r\nHora = 8h00m00\r\nSub/Function = ShowChart\r\nErr.Number = 9\r\n"
      "Err.Description = ";
  const std::string tail = "\r\nErr.Source = ChartProject";
  EXPECT_EQ(fakes.files.Bytes("C:\\bin\\Kestrel.log"), "host\r\n" + head + "Endere\xE7o" + tail + "\r\n");
  ASSERT_EQ(fakes.dialogs.boxes.size(), 1U);
  EXPECT_EQ(fakes.dialogs.boxes[0].prompt, head + "Endereço" + tail);
  EXPECT_EQ(fakes.dialogs.boxes[0].title, "ChartProject");
  EXPECT_EQ(fakes.dialogs.boxes[0].style, 0);

  NoteRunTimeError(environment, "Form_Load", RunTimeError(53, "File not found: x\r\nHora = \x1B.ico"));
  EXPECT_THAT(fakes.files.Bytes("C:\\bin\\Kestrel.log"), testing::HasSubstr("not found: x\\x0D\\x0AHora = \\x1B.ico"));
  EXPECT_EQ(fakes.dialogs.boxes.size(), 1U) << "a note disturbs nobody";
}

TEST_F(ServicesTest, AnUnwritableLogHidesNoError) {
  fakes.files.Break("", error_number::kPermissionDenied);
  struct FailingForm : Form {
    using Form::Form;
    void OnLoad() override { throw RunTimeError(13, "Type mismatch"); }
  } form(fakes.forms, "frmTest", MakeHandlerErrorReporter(environment));
  form.Load();
  ASSERT_EQ(fakes.dialogs.boxes.size(), 1U);
  EXPECT_THAT(fakes.dialogs.boxes[0].prompt,
              testing::AllOf(testing::HasSubstr("Sub/Function = Form_Load"), testing::HasSubstr("Type mismatch"),
                             testing::HasSubstr("Err.Number = 70"), testing::HasSubstr("\\Kestrel.log")));
  NoteRunTimeError(environment, "x", RunTimeError(53, "lost"));
  fakes.dialogs.whileUp = [](const MessageBoxRequest&) { throw RunTimeError(5, "no screen"); };
  LogRunTimeError(environment, "x", RunTimeError(5, "lost"));
}

TEST_F(ServicesTest, OnlyTheExactTextNoSwitchesSoundsOff) {
  environment.settings.strSound = "No";
  PlayWave(environment, kClickSound);
  environment.settings.strSound = "no";
  fakes.sound.devices = 0;
  PlayWave(environment, kClickSound);
  EXPECT_TRUE(fakes.sound.played.empty());

  fakes.sound.devices = 1;
  PlayWave(environment, kClickSound);
  environment.settings.strMedia = "D:\\media";
  PlayWave(environment, kCompleteSound, false);
  environment.settings.strSoundClosingWindow = "No";
  PlayClosingSound(environment);
  environment.settings.strSoundClosingWindow = "";
  PlayClosingSound(environment);
  std::vector<std::pair<std::string, std::uint32_t>> played;
  for (const auto& sound : fakes.sound.played) played.emplace_back(sound.fileName, sound.flags);
  EXPECT_THAT(played, testing::ElementsAre(std::pair("\\NIMClick.wav", 0x20003U),
                                           std::pair("D:\\media\\Complete.wav", 0x20002U),
                                           std::pair("D:\\media\\ir_end.wav", 0x20003U)));
}

/// Upper-case access key of a caption; 0 without one.
char AccessKey(std::string_view caption) {
  const std::size_t at = caption.find('&');
  return at == std::string_view::npos ? '\0' : static_cast<char>(std::toupper(caption[at + 1]));
}

TEST_F(ServicesTest, TheBaseChoosesTheLanguage) {
  EXPECT_EQ(LoadMessage(environment, Text::kOutOfRange), "Valor fora da faixa!");
  environment.language = Language::kEnglish;
  EXPECT_EQ(LoadMessage(environment, Text::kOutOfRange), "Value out of range !");
  EXPECT_EQ(LoadMessage(environment, Text::kEnterFileName), "Enter file name:");
  EXPECT_EQ(LoadMessage(environment, Text::kCannotLoad), "It was not possible to load ");
  environment.language = Language::kSpanish;
  EXPECT_EQ(LoadMessage(environment, Text::kOutOfRange), "¡Valor fuera de rango!");
  for (const int id : {0, 999, 1101, 1999, 3101, 4000, -1000}) EXPECT_FALSE(MessageById(id)) << id;
}

TEST_F(ServicesTest, TheThreeLanguagesFitTogether) {
  const std::set<int> leadingBlank{90, 99};
  const std::set<int> trailingBlank{52, 86, 87, 88, 89, 94, 98, 100};
  for (int k = 0; k < kMessageCount; ++k) {
    // Units, numbers and the names of parameters are the same in every language.
    const bool same = (k >= 22 && k <= 37) || k == 54 || (k >= 58 && k <= 60);
    for (const int base : {1000, 2000, 3000}) {
      const std::string_view text = MessageById(base + k).value_or("");
      EXPECT_FALSE(text.empty()) << base + k;
      EXPECT_EQ(text.front() == ' ', leadingBlank.contains(k)) << base + k;
      EXPECT_EQ(text.back() == ' ', trailingBlank.contains(k)) << base + k;
      EXPECT_TRUE(!same || text == MessageById(2000 + k)) << base + k;
      EXPECT_EQ(AccessKey(text) != '\0', k == 8 || k == 10 || k == 12) << base + k;
    }
  }
  EXPECT_EQ(MessageById(1037), "P012 - DI8 = 1");
}

TEST_F(ServicesTest, AccessKeysDifferAndToolTipsNameThem) {
  for (const LanguageRow& row : kLanguages) {
    environment.language = row.language;
    const auto key = [&](int message) { return AccessKey(LoadMessage(environment, static_cast<Text>(message))); };
    const char newFile = AccessKey(LoadMessage(environment, Text::kNewFile));
    EXPECT_EQ(std::set<char>({key(8), key(10), key(12), newFile}).size(), 4U) << row.name;
    for (const int button : {10, 12}) {
      EXPECT_THAT(LoadMessage(environment, static_cast<Text>(button + 1)),
                  testing::EndsWith(std::string("(Alt+") + key(button) + ")"));
    }
  }
}

TEST_F(ServicesTest, TextsKeepTheirPlacesInEveryLanguage) {
  for (int i = 0; i < static_cast<int>(Text::kCount); ++i) {
    std::set<std::string> places;
    for (const LanguageRow& row : kLanguages) {
      environment.language = row.language;
      const std::string text = LoadMessage(environment, static_cast<Text>(i));
      std::string numbers;
      for (const char* place : {"%1", "%2", "%3", "%4"}) numbers += text.find(place) != std::string::npos ? place : "";
      places.insert(numbers);
    }
    EXPECT_EQ(places.size(), 1U) << i;
  }
  environment.language = Language::kEnglish;
  EXPECT_EQ(LoadMessage(environment, Text::kHintEvent), "Choose an event.");
}

TEST_F(ServicesTest, FillInTakesEachPlaceOnce) {
  EXPECT_EQ(FillIn("Duration %1, about %2.", {"00:10", "5 %1"}), "Duration 00:10, about 5 %1.");
  EXPECT_EQ(FillIn("100% %3 %", {"a", "b"}), "100% %3 %");
}

class SettingsTest : public ServicesTest {
 protected:
  void ReadAll() {
    ReadConfSettings(environment);
    ReadProjectSettings(environment);
    ReadFolderSettings(environment);
  }
};

TEST_F(SettingsTest, EveryStoredSettingComesBackUnchangedAndInOrder) {
  int number = 100;
  std::vector<std::string> order;
  for (const NamedSetting& setting : AllSettings()) {
    const bool isText = setting.row.key.starts_with("str");
    fakes.settings.values[std::string(setting.section.name)][setting.row.key] =
        (isText ? "t" : "-") + std::to_string(++number);
    order.push_back(setting.Name());
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

TEST_F(SettingsTest, TheLanguageDecidesBaseAndHelpFile) {
  const std::tuple<const char*, const char*, Language, const char*> cases[] = {
      {"Portuguese", "C:\\help", Language::kPortuguese, "C:\\help\\Kshelpp.HLP"},
      {"English", "", Language::kEnglish, "\\Kshelpe.HLP"},
      {"Spanish", "/usr/help", Language::kSpanish, "/usr/help/Kshelps.HLP"},
      {"english", "C:\\help", Language::kPortuguese, ""}};
  for (const auto& [language, folder, base, helpFile] : cases) {
    Environment fresh{fakes.ports, fakes.forms};
    fresh.settings.strLanguage = language;
    fresh.settings.strHelps = folder;
    SetLanguageBase(fresh);
    SetHelpFile(fresh);
    EXPECT_EQ(fresh.language, base) << language;
    EXPECT_EQ(fresh.helpFile, helpFile) << language;
  }
  environment.language = Language::kSpanish;
  environment.settings.strLanguage = "Klingon";
  SetLanguageBase(environment);
  EXPECT_EQ(environment.language, Language::kSpanish) << "an unknown language leaves the base as it was";
}

}  // namespace
}  // namespace chartproject
