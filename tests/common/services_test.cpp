// Message boxes, the error log, sounds and the appearance of forms.
#include <gmock/gmock.h>

#include "common/environment.h"
#include "common/error_log.h"
#include "common/form_appearance.h"
#include "common/message_box.h"
#include "common/sounds.h"
#include "forms/controls.h"
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
  EXPECT_EQ(ShowMessage(environment, "x", box_style::kYesNo), box_answer::kNo) << "the former folder is gone";
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

  NoteRunTimeError(environment, "Form_Load", RunTimeError(53, "File not found: x.ico"));
  EXPECT_THAT(fakes.files.Bytes("C:\\bin\\Kestrel.log"), testing::HasSubstr("File not found: x.ico"));
  EXPECT_EQ(fakes.dialogs.boxes.size(), 1U) << "a note disturbs nobody";
}

TEST_F(ServicesTest, AnUnwritableLogHidesNoError) {
  fakes.files.before = [](const std::string&, const std::string& name) {
    throw RunTimeError(70, "Permission denied: " + name);
  };
  EXPECT_THROW(LogRunTimeError(environment, "ShowChart", RunTimeError(9, "first")), RunTimeError);
  EXPECT_TRUE(fakes.dialogs.boxes.empty());

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
  ReportRunTimeError(environment, "x", RunTimeError(5, "lost"));
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

TEST_F(ServicesTest, CursorAndIconComeFromTheGraphicsFolder) {
  Form form(fakes.forms, "frmTest", MakeHandlerErrorReporter(environment));
  CommandButton button(form, "cmdOK");
  environment.settings.strGraphics = "/g";
  EXPECT_EQ(ErrorOf([&] { LoadButtonCursor(environment); }), 53);
  EXPECT_EQ(ErrorOf([&] { SetFormIcon(environment, form); }), 53);

  fakes.files.Put("/g/Cursor/Select.cur", "cur");
  fakes.files.Put("/g/Icon/General/Kestrel.ico", "ico");
  LoadButtonCursor(environment);
  SetButtonCursor(environment, button);
  SetFormIcon(environment, form);
  EXPECT_EQ(button.Pointer(), MousePointer::kCustom);
  EXPECT_EQ(form.ButtonCursorFile(), "/g/Cursor/Select.cur");
  EXPECT_EQ(form.IconFile(), "/g/Icon/General/Kestrel.ico");
}

}  // namespace
}  // namespace chartproject
