// The dialog before a run: lists, fields, events, the chart file's header, messages, closing.
#include "common/values/text.h"
#include "dialog_fixture.h"
#include "recording/file/trigger_events.h"
#include "support/typing.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre, ::testing::HasSubstr, ::testing::IsEmpty;

class AcquireFormTest : public DialogTest {};

TEST_F(AcquireFormTest, OpensReadyForAManualRecording) {
  fake.settings.values["frmAcquireVar"]["Left"] = "1500";
  fake.settings.values["frmAcquireVar"]["Top"] = "far";
  fake.forms.showsWindows = true;
  component.profileFolder = "/profile";
  form = std::make_unique<AcquireForm>(component);
  form->Load();
  EXPECT_THAT(form->drive.cboDriveAddress.Items(), ElementsAre("01", "02", "03", "04"));
  EXPECT_THAT(form->drive.cboPXXX1.Items(), ElementsAre("003", "005", "012"));  // 990 and 991 are the service's
  EXPECT_FALSE(form->drive.cboPXXX2.Enabled());
  EXPECT_EQ(form->file.rtfFileName.Text(), kChart);
  EXPECT_EQ(component.strChartFileName, kChart);
  EXPECT_EQ(form->trigger.cboEvent.Text(), "<PXXX> = Content");
  EXPECT_THAT((std::array{StartShown(), TriggerShown(), form->cmdViewChart.Visible()}),
              ElementsAre(true, false, false));
  EXPECT_EQ(std::pair(form->Left(), form->Top()), std::pair(1500.0, (1024 * 15 - 6360) / 2.0));
  EXPECT_EQ(form->HelpContextId(), 91);
  EXPECT_THAT(Prompts(), IsEmpty());
  component.driveTable.At(1).Type = "KRA-02";
  form->timing.txtNumberOfPoints.SetText("6");
  EXPECT_EQ(form->panel.lblHint.Caption(), "The model KRA-02 shows no numbers, except in P006.");
}

TEST_F(AcquireFormTest, ItsTitleNamesSimulatedDrives) {
  plant.simulated = true;
  component.driveLink = plant.Create({});
  Open();
  EXPECT_EQ(form->Caption(), "Acquire Parameter - simulated drives");
}

TEST_F(AcquireFormTest, AnEventOfTheDefaultFileThatTheDriveLacksIsNotReportedBeforeTheDialogIsUp) {
  fake.files.Put(kChart, "[INFO]\r\nDrive Address=02\r\nTrigger Mode=Event\r\nEvent=P012-DI8=1\r\n");
  form = std::make_unique<AcquireForm>(component);
  form->Load();
  EXPECT_THAT(Prompts(), IsEmpty());
  EXPECT_EQ(form->trigger.cboEvent.ListIndex(), -1);
  EXPECT_EQ(form->panel.lblHint.Caption(), "Choose an event.");
}

TEST_F(AcquireFormTest, AnUnreadableChartFileDoesNotKeepTheDialogFromOpening) {
  fake.files.Put(kChart, "[INFO]\r\n");
  fake.files.Break("read", error_number::kPermissionDenied, kChart);
  form = std::make_unique<AcquireForm>(component);
  form->Load();
  EXPECT_THAT(Prompts(), ElementsAre("You have no right to read C:\\p\\Test.cht."));
  EXPECT_EQ(form->controller.tmrMonitorEsc.Interval(), 100);
}

TEST_F(AcquireFormTest, TheHostsDriveMayBeMissingAndSoMayAllDrives) {
  component.settings.intSelectedDrive = 9;
  Open();
  EXPECT_EQ(form->drive.cboDriveAddress.ListIndex(), -1);
  EXPECT_FALSE(StartShown());
  Choose(form->drive.cboDriveAddress, "03");
  EXPECT_THAT(form->drive.cboPXXX1.Items(), ElementsAre("003", "005", "012", "990", "991"));
  EXPECT_TRUE(StartShown());
  component.driveTable.Clear();
  Open();
  EXPECT_THAT(form->drive.cboDriveAddress.Items(), IsEmpty());
  EXPECT_THAT(form->drive.cboPXXX1.Items(), IsEmpty());
  EXPECT_EQ(form->panel.lblHint.Caption(), "Choose a drive address.");
}

TEST_F(AcquireFormTest, MissingDriverFileIsNamedOnceAndTheDialogStaysUsable) {
  fake.files.Delete("C:\\d\\LMX01E.wcd");
  Open();
  Choose(form->drive.cboDriveAddress, "02");
  EXPECT_THAT(Prompts(), ElementsAre(HasSubstr("C:\\d\\LMX01E.wcd")));
  EXPECT_THAT(form->drive.cboPXXX1.Items(), IsEmpty());
  EXPECT_FALSE(StartShown());
  component.settings.intSelectedDrive = 2;
  form->cmdReset.Press();
  EXPECT_EQ(form->panel.lblHint.Caption(), "The driver file C:\\d\\LMX01E.wcd is missing.");
  EXPECT_EQ(form->Pointer(), MousePointer::kDefault);
  Choose(form->drive.cboDriveAddress, "01");
  EXPECT_TRUE(StartShown());
  EXPECT_THAT(Prompts(), IsEmpty());
}

TEST_F(AcquireFormTest, LineErrorsOfADriverFileAreNotRepeatedAtEveryReset) {
  fake.files.Put("C:\\d\\KRA09E.wcd", fake.files.Bytes("C:\\d\\KRA09E.wcd") + "#7" + std::string(14, '#') + "\r\n");
  form = std::make_unique<AcquireForm>(component);
  form->Load();
  form->cmdReset.Press();
  EXPECT_THAT(Prompts(), ElementsAre("Error in line 6 in driver C:\\d\\KRA09E.wcd"));
}

TEST_F(AcquireFormTest, NumberOfParametersEnablesTheListsInUse) {
  Open();
  form->drive.cboPXXX1.SetListIndex(2);
  Choose(form->drive.cboNumberOfParameters, "3");
  for (const ComboBox* list :
       {&form->drive.cboPXXX1, &form->drive.cboPXXX2, &form->drive.cboPXXX3, &form->drive.cboPXXX4}) {
    EXPECT_EQ(list->Enabled(), list != &form->drive.cboPXXX4);
    EXPECT_EQ(list->ListIndex(), 0);
  }
  Choose(form->drive.cboDriveAddress, "02");
  EXPECT_TRUE(form->drive.cboPXXX3.Enabled());
  EXPECT_FALSE(form->drive.cboPXXX4.Enabled());
}

TEST_F(AcquireFormTest, TypedFieldsAreAcceptedCorrectedOrPutBack) {
  Open();
  Choose(form->trigger.cboTriggerMode, "Event");
  const auto check = [this](TextControl& field, const char* typed, const char* text, bool refused = false) {
    TypeOver(field, typed);
    field.LeaveFocus();
    EXPECT_EQ(field.Text(), text) << field.Name() << " <- " << typed;
    EXPECT_EQ(Prompts(), std::vector<std::string>(refused ? 1 : 0, "Value out of range !")) << typed;
  };
  check(form->timing.txtNumberOfPoints, "0", "5", true);
  check(form->timing.txtNumberOfPoints, "07", "7", true);  // a refused number is selected when it comes back
  check(form->timing.txtNumberOfPoints, "20000000019", "9", true);
  check(form->timing.txtNumberOfPoints, "8x7", "87");
  for (const auto& [typed, text] : std::initializer_list<std::pair<const char*, const char*>>{
           {"12.6", "13"}, {"12.65", "13"}, {"2.51", "3"}, {"12.4500", "12"}}) {
    check(form->timing.txtNumberOfPoints, typed, text);
  }
  check(form->timing.txtNumberOfPoints, "12.", "12");
  check(form->timing.txtNumberOfPoints, "1,000", "1000");
  check(form->timing.txtTimeBetweenPoints, "66", "6", true);
  check(form->timing.txtTimeBetweenPoints, "1.5", "2");
  check(form->timing.txtTimeBetweenPoints, "1.55", "2");
  form->timing.txtTimeBetweenPoints.SetText("");
  EXPECT_EQ(form->timing.txtTimeBetweenPoints.Text(), "2");
  Choose(form->timing.cboTimeBetweenPointsUnit, "ms");
  TypeOver(form->timing.txtTimeBetweenPoints, "1");
  Choose(form->timing.cboTimeBetweenPointsUnit, "s");
  check(form->timing.txtTimeBetweenPoints, "0", "1", true);  // not the milliseconds of before
  Choose(form->timing.cboTimeBetweenPointsUnit, "ms");
  check(form->timing.txtTimeBetweenPoints, "70000", "7000", true);
  check(form->timing.txtTimeBetweenPoints, "250.", "250");
  EXPECT_EQ(component.timeText, "250");
  check(form->trigger.txtContent, "-,", "-,");
  check(form->trigger.txtContent, "-1.25", "-1.25");
  check(form->trigger.txtContent, "1e5", "");
  EXPECT_EQ(form->panel.lblHint.Caption(), "Not a number: 1e5");
  fake.clock.Advance(std::chrono::seconds(1));
  check(form->trigger.txtContent, "5", "5");
  EXPECT_TRUE(TriggerShown());
  form->trigger.txtContent.SetText("");
  EXPECT_EQ(component.contentText, "");
  EXPECT_FALSE(TriggerShown());
  EXPECT_EQ(form->panel.lblHint.Caption(), "Enter the content to compare with.");
}

TEST_F(AcquireFormTest, MillisecondsBelow200AreEmptiedOnLeaving) {
  Open();
  Choose(form->timing.cboTimeBetweenPointsUnit, "ms");
  EXPECT_EQ(form->timing.txtTimeBetweenPoints.Text(), "1000");
  form->timing.txtTimeBetweenPoints.SetFocus();
  TypeOver(form->timing.txtTimeBetweenPoints, "150");
  EXPECT_TRUE(StartShown());
  form->trigger.txtContent.SetFocus();
  EXPECT_EQ(form->timing.txtTimeBetweenPoints.Text(), "");
  EXPECT_EQ(component.timeText, "");
  EXPECT_THAT(Prompts(), ElementsAre("Value out of range !"));
  EXPECT_FALSE(StartShown());
  EXPECT_EQ(form->panel.lblHint.Caption(), "Enter the time among points.");
  TypeOver(form->timing.txtTimeBetweenPoints, "250");
  EXPECT_TRUE(StartShown());
  // The access key of Start leaves the field without leaving it.
  TypeOver(form->timing.txtTimeBetweenPoints, "199");
  form->panel.cmdStart.Press();
  EXPECT_EQ(form->Run().State(), RunState::kIdle);
  EXPECT_FALSE(StartShown());
}

TEST_F(AcquireFormTest, MaskedTimeIsCheckedOnLeavingAndAtStart) {
  Open();
  Choose(form->timing.cboTimeBetweenPointsUnit, "hh:mm:ss");
  EXPECT_TRUE(form->timing.mebTimeBetweenPoints.Visible());
  EXPECT_FALSE(form->timing.txtTimeBetweenPoints.Visible());
  EXPECT_EQ(form->timing.lblTimeBetweenPointsRange.Caption(), "HH:MM:SS");
  const std::pair<const char*, const char*> cases[] = {{"24:00:00", "Value out of range !"},
                                                       {"0a:00:00", "Incorrect value: use format hh:mm:ss"}};
  for (const auto& [text, message] : cases) {
    form->timing.mebTimeBetweenPoints.SetFocus();
    form->timing.mebTimeBetweenPoints.SetText(text);
    form->drive.cboPXXX1.SetFocus();
    form->panel.cmdStart.Press();  // the click that took the focus away
    EXPECT_THAT(Prompts(), ElementsAre(message)) << text;
    EXPECT_TRUE(form->timing.mebTimeBetweenPoints.AllSelected());
    EXPECT_EQ(form->panel.lblEstimate.Caption(), "");
    fake.clock.Advance(std::chrono::seconds(1));
    form->panel.cmdStart.Press();
    EXPECT_THAT(Prompts(), ElementsAre(message)) << text;
    EXPECT_EQ(form->Run().State(), RunState::kIdle);
  }
}

TEST_F(AcquireFormTest, PointsNeedRoomOnTheDisk) {
  Open();
  Choose(form->drive.cboNumberOfParameters, "4");
  fake.files.space.totalFree = 170'000'700;
  form->timing.txtNumberOfPoints.SetText("1000000");
  EXPECT_THAT(Prompts(), ElementsAre("Insufficient disk space: 170,000,700 bytes. Required space: 70,000,700 bytes"));
  EXPECT_EQ(form->timing.txtNumberOfPoints.Text(), "5");
  ++fake.files.space.totalFree;
  form->timing.txtNumberOfPoints.SetText("1000000");
  EXPECT_EQ(form->timing.txtNumberOfPoints.Text(), "1000000");
  EXPECT_EQ(form->panel.lblEstimate.Caption(), "Duration 11 d 13:46:40, about 33.38 MB.");
}

TEST_F(AcquireFormTest, FullDiskIsSaidOnceAndNotWhileTheFileNameIsTyped) {
  const std::string refusal = "Insufficient disk space: 9 bytes. Required space: 900 bytes";
  fake.files.space.totalFree = 9;
  form = std::make_unique<AcquireForm>(component);
  form->Load();
  EXPECT_THAT(Prompts(), ElementsAre(refusal));
  EXPECT_FALSE(StartShown());
  int left = 0;
  form->file.rtfFileName.lostFocus = {"rtfFileName_LostFocus", [&left] { ++left; }};
  form->file.rtfFileName.SetFocus();
  TypeOver(form->file.rtfFileName, "D:\\new.cht");
  EXPECT_THAT(Prompts(), IsEmpty());
  EXPECT_EQ(left, 0) << "the letters that follow belong to the name";
  form->panel.cmdStart.Press();
  EXPECT_THAT(Prompts(), ElementsAre(refusal));
  EXPECT_EQ(form->Run().State(), RunState::kIdle);
}

TEST_F(AcquireFormTest, EventsThatTheModelLacksDoNotStaySelected) {
  Open();
  Choose(form->drive.cboDriveAddress, "02");
  Choose(form->trigger.cboTriggerMode, "Event");
  for (int position = 0; position < kEventCount; ++position) {
    form->trigger.cboEvent.SetListIndex(position);
    const bool offered = EventAvailable(EventAt(position), "LMX-01");
    EXPECT_EQ(form->trigger.cboEvent.ListIndex(), offered ? position : -1);
    if (!offered) {
      EXPECT_FALSE(TriggerShown()) << position;
      EXPECT_EQ(fake.dialogs.boxes.back().helpContext, 91) << position;
    }
    EXPECT_EQ(Prompts(), std::vector<std::string>(offered ? 0 : 1, "Event not available")) << position;
  }
  std::vector<int> reached;  // by the arrow keys
  const ComboBox& events = form->trigger.cboEvent;
  for (int at = -1; events.NextAvailable(at, 1) != at;) reached.push_back(at = events.NextAvailable(at, 1));
  EXPECT_THAT(reached, ElementsAre(0, 1, 2, 19, 20, 21, 22, 23));
  EXPECT_EQ(events.NextAvailable(19, -1), 2);
  // A change of drive asks again.
  Choose(form->drive.cboDriveAddress, "01");
  Choose(form->trigger.cboEvent, "P012 - DI3 = 1");
  EXPECT_TRUE(TriggerShown());
  Choose(form->drive.cboDriveAddress, "02");
  EXPECT_EQ(form->trigger.cboEvent.ListIndex(), -1);
  EXPECT_EQ(form->panel.lblHint.Caption(), "Choose an event.");
}

TEST_F(AcquireFormTest, TriggerModesAndCompareFields) {
  Open();
  Choose(form->trigger.cboTriggerMode, "Event");
  EXPECT_TRUE(form->trigger.cboPXXX.Enabled());
  EXPECT_TRUE(form->trigger.txtContent.Enabled());
  TypeOver(form->trigger.txtContent, "12.5");
  form->trigger.cboPXXX.SetListIndex(1);
  EXPECT_TRUE(TriggerShown());
  EXPECT_FALSE(StartShown());
  Choose(form->trigger.cboTriggerMode, "Manual");
  EXPECT_FALSE(form->trigger.cboEvent.Enabled() || form->trigger.cboPXXX.Enabled() ||
               form->trigger.txtContent.Enabled());
  EXPECT_EQ(form->trigger.txtContent.Text(), "12.5");
  EXPECT_TRUE(StartShown());
  for (const char* drive : {"02", "01"}) {
    Choose(form->drive.cboDriveAddress, drive);
    EXPECT_FALSE(form->trigger.cboPXXX.Enabled() || form->trigger.txtContent.Enabled()) << drive;
  }
  Choose(form->trigger.cboTriggerMode, "Event");
  Choose(form->trigger.cboEvent, "Inverter is enabled (RUN)");
  EXPECT_EQ(form->trigger.cboPXXX.ListIndex(), 0);
  EXPECT_FALSE(form->trigger.cboPXXX.Enabled());
  EXPECT_EQ(form->trigger.txtContent.Text(), "");
  EXPECT_TRUE(TriggerShown());
}

TEST_F(AcquireFormTest, HeaderOfAnExistingFileIsShownAndWrittenBackUnchanged) {
  const std::string headers[] = {
      "Drive Address=02\r\nNumber of Parameters=2\r\nPXXX1=005\r\nPXXX2=990\r\nPXXX3=\r\nPXXX4=\r\nScan Time=250\r\n"
      "Unit=ms\r\nNumber of Points=7\r\nTrigger Mode=Manual\r\nEvent=PXXX<Content\r\nPXXX=012\r\nContent=-1.5\r\n",
      "Drive Address=01\r\nNumber of Parameters=1\r\nPXXX1=012\r\nPXXX2=\r\nPXXX3=\r\nPXXX4=\r\nScan Time=00:00:02\r\n"
      "Unit=hh:mm:ss\r\nNumber of Points=3\r\nTrigger Mode=Event\r\nEvent=P012-DI3=1\r\nPXXX=003\r\nContent=\r\n"};
  plant.texts[12] = "IIA";
  for (const std::string& header : headers) {
    fake.files.Put("C:\\p\\old.cht", "[INFO]\r\n" + header + "\r\n[TIME/CONTENT]\r\n");
    Open();
    TypeOver(form->file.rtfFileName, "C:\\p\\old.cht");
    EXPECT_TRUE(form->cmdViewChart.Visible());
    (form->panel.cmdStart.Visible() ? form->panel.cmdStart : form->panel.cmdTrigger).Press();
    RunToEnd();
    EXPECT_EQ(form->LastRun().end, RunEnd::kComplete);
    EXPECT_THAT(fake.files.Bytes("C:\\p\\old.cht"), testing::StartsWith("[INFO]\r\n" + header + "Start Date="));
    EXPECT_THAT(Prompts(), IsEmpty());
    form->file.rtfFileName.SetText("C:\\p\\new.cht");
    EXPECT_FALSE(form->cmdViewChart.Visible());
    EXPECT_EQ(form->timing.txtNumberOfPoints.Text(), "5");
    EXPECT_EQ(component.strChartFileName, "C:\\p\\new.cht");
  }
}

TEST_F(AcquireFormTest, FilesAreNamedByBrowsingAndByPrompt) {
  Open();
  form->file.cmdBrowse.Press();  // cancelled
  EXPECT_EQ(form->file.rtfFileName.Text(), kChart);
  const OpenFileRequest& asked = fake.dialogs.fileRequests.at(0);
  EXPECT_EQ(asked.initialFolder + "|" + asked.filter, "C:\\p|Chart Files (*.cht)|*.cht");
  EXPECT_EQ(asked.flags, 4100);
  fake.dialogs.fileAnswer = "C:\\q\\b.cht";
  form->file.cmdBrowse.Press();
  EXPECT_EQ(component.strChartFileName, "C:\\q\\b.cht");
  EXPECT_THAT(Sounds(), ElementsAre("NIMClick.wav"));
  fake.dialogs.inputAnswer = "motor";
  form->file.cmdNewFile.Press();
  EXPECT_EQ(fake.dialogs.inputs[0].prompt, "Enter file name:");
  EXPECT_EQ(fake.dialogs.inputs[0].title, "Chart File");
  EXPECT_EQ(form->file.rtfFileName.Text(), "C:\\p\\motor.cht");
  form->file.rtfFileName.SetText("");
  EXPECT_EQ(form->panel.lblHint.Caption(), "Enter a file name.");
}

TEST_F(AcquireFormTest, ForeseenMistakesAreSaidInOneSentence) {
  const std::tuple<int, Language, const char*> cases[] = {
      {error_number::kPathNotFound, Language::kEnglish, "The folder of C:\\p\\Test.cht does not exist."},
      {error_number::kPathNotFound, Language::kPortuguese, "A pasta de C:\\p\\Test.cht não existe."},
      {error_number::kPermissionDenied, Language::kEnglish, "You have no right to write C:\\p\\Test.cht."},
      {error_number::kPermissionDenied, Language::kSpanish, "Usted no tiene permiso para grabar C:\\p\\Test.cht."}};
  for (const auto& [number, language, sentence] : cases) {
    Open();
    component.language = language;
    fake.files.Break("create", number);
    form->panel.cmdStart.Press();
    fake.files.Mend();
    EXPECT_EQ(fake.dialogs.boxes.back().style, box_style::kExclamation);
    EXPECT_THAT(Prompts(), ElementsAre(sentence));
    EXPECT_EQ(form->Run().State(), RunState::kIdle);
    component.language = Language::kEnglish;
  }
}

TEST_F(AcquireFormTest, TheHintNamesTheFileThatAStartWritesOrReplaces) {
  fake.files.Put("C:\\p\\a.txt", "no recording");
  Open();
  form->panel.cmdStart.Press();
  RunToEnd();
  const auto hint = [this] { return form->panel.lblHint.Caption(); };
  EXPECT_EQ(hint(), "C:\\p\\Test.cht will be replaced. It was recorded on 31/01/2026 08:00:01.");
  form->file.rtfFileName.SetText("C:\\p\\a.txt");
  EXPECT_EQ(hint(), "C:\\p\\a.txt will be replaced. It is not a recording.");
  form->file.rtfFileName.SetText("C:\\p\\new.cht");
  EXPECT_EQ(hint(), "");
  form->file.rtfFileName.SetText("new.cht");
  const std::string full = JoinPath(fake.files.CurrentFolder(), "new.cht");
  EXPECT_EQ(hint(), full + " will be written.");
  form->panel.cmdStart.Press();
  EXPECT_EQ(form->Run().Plan().fileName, full);
  form->StopRun();
}

TEST_F(AcquireFormTest, ViewChartAndOk) {
  fake.files.Put(kChart, "[INFO]\r\n");
  fake.files.Put(R"(C:\g\Icon\General\Kestrel.ico)", "");
  fake.files.Put(R"(C:\g\Cursor\Select.cur)", "");
  std::vector<std::string> shown;
  component.showChart = [&shown](Component&, const std::string& name) { shown.push_back(name); };
  Open();
  EXPECT_EQ(form->IconFile(), R"(C:\g\Icon\General\Kestrel.ico)");
  EXPECT_EQ(form->ButtonCursorFile(), R"(C:\g\Cursor\Select.cur)");
  EXPECT_EQ(form->cmdOK.Pointer(), MousePointer::kCustom);
  form->cmdViewChart.Press();
  EXPECT_THAT(shown, ElementsAre(kChart));
  form->PlaceChangedByUser(300.4, 150, 9000, 6360);
  form->cmdOK.Press();
  EXPECT_FALSE(form->IsLoaded());
  EXPECT_EQ(component.strChartFileName, "");
  EXPECT_EQ(fake.settings.values["frmAcquireVar"]["Left"], "300");
  EXPECT_EQ(fake.settings.values["MyConf"]["strMaximizedfrmErr"], "No");
  EXPECT_THAT(Sounds(), ElementsAre("NIMClick.wav", "ir_end.wav"));
  Open();
  form->StateChangedByUser(WindowState::kMaximized);
  form->Unload();
  Open();
  EXPECT_EQ(form->State(), WindowState::kMaximized);
}

}  // namespace
}  // namespace chartproject
