// The start window as a form: the choice of drives, the test of a line, drives added and removed, another project.
#include <gmock/gmock.h>

#include "backends/posix/posix_clock.h"
#include "host/project/project_maker.h"
#include "host/window/drive_forms.h"
#include "host/window/start_form.h"
#include "platform/run_time_error.h"
#include "support/fake_ports.h"
#include "support/form_texts.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre, ::testing::HasSubstr, ::testing::IsEmpty, ::testing::StartsWith;

/// Drives 2 and 5 answer at once; the others are silent.
struct ShortLine : LinePort {
  void Open() override {
    if (gone) throw RunTimeError(error_number::kDeviceIo, Text::kPortTaken, {"/dev/ttyUSB0"});
  }
  void Close() noexcept override {}
  void Flush() override {}
  LineReply Ask(const LineRequest& request, std::chrono::milliseconds /*timeout*/) override {
    return {request.slave == 2 || request.slave == 5 ? ReplyKind::kException : ReplyKind::kSilent, 0, 2, {}};
  }
  LineReply AskName(std::uint8_t slave, std::chrono::milliseconds /*timeout*/) override {
    return slave == 5 ? LineReply{ReplyKind::kValue, 0, 0, "KRA-09 V2.40"} : LineReply{};
  }
  bool gone = false;
};

struct StartWindow : ::testing::Test {
  FakePorts fakes;
  PosixClock clock;  // the line's thread waits in real time
  ChosenLinks links{
      "sim",
      {fakes.files, fakes.settings, clock, [](Instant) {}, fakes.locale, [] { return Language::kEnglish; }, {}, true}};
  std::vector<SerialPort> ports{{"/dev/ttyUSB0", "/dev/serial/by-id/usb-converter", true, "dialout", ""},
                                {"/dev/ttyS0", "", true, "dialout", "other (12)"}};
  bool portGone = false;
  ProjectReport made = MakeProject(fakes.files, fakes.settings, fakes.codePage, "/home/Project");
  ProcessState process;
  std::unique_ptr<Component> shared = process.NewState(fakes.ports, fakes.forms, links);
  ChartClass instance{*shared, process};
  StartForm form{instance,
                 "",
                 {links, [this] { return ports; },
                  [this] {
                    return [this](const LineSettings&, const std::function<bool()>&) {
                      auto port = std::make_unique<ShortLine>();
                      port->gone = portGone;
                      return port;
                    };
                  }}};

  StartWindow() { form.Load(); }
  void Choose(ComboBox& list, const std::string& item) {
    const auto found = std::ranges::find(list.Items(), item);
    ASSERT_NE(found, list.Items().end()) << item << " is not among " << ::testing::PrintToString(list.Items());
    list.SetListIndex(static_cast<int>(found - list.Items().begin()));
  }
  std::string Stored() { return fakes.settings.values["MyLink"]["strLink"]; }
  /// Presses a button of the form that another one opens.
  template <class Opened>
  void InWindow(CommandButton& opener, const std::function<void(Opened&)>& use) {
    bool shown = false;
    fakes.forms.onShown = [&](Form& window) {
      shown = true;
      use(dynamic_cast<Opened&>(window));
      if (window.IsShown()) window.Unload();
    };
    opener.Press();
    fakes.forms.onShown = nullptr;
    EXPECT_TRUE(shown);
  }
};

TEST_F(StartWindow, EveryCaptionAndToolTipIsThere) {
  EXPECT_THAT(TextsOf(form),
              ElementsAre("ChartProject", "&Record ...", "&Open chart ...", "Add drive ...", "Remove drive ...",
                          "Open project ...", "&Help", "&Close", "Recent charts", "Drives", "Port", "Other port",
                          "Speed", "Parity", "Test (Ask each address of the line, 1 to 30, who answers)",
                          "Drives of the project", "/home/Project/projects/demo", "&Language", "&Sounds"));
}

TEST_F(StartWindow, AChoiceIsTakenWhenItIsCompleteAndStored) {
  LinkSection& link = form.link;
  EXPECT_EQ(link.cboLink.Text(), "simulated");
  EXPECT_FALSE(link.cmdTestLink.Visible() || link.cboPort.Visible() || link.txtPort.Visible() ||
               link.lblLinkNote.Visible());
  Choose(link.cboLink, "serial port");
  EXPECT_THAT(link.cboPort.Items(), ElementsAre("/dev/serial/by-id/usb-converter", "/dev/ttyS0 (in use by other (12))",
                                                "another ...", "look again"));
  EXPECT_EQ(Stored(), "modbus:/dev/serial/by-id/usb-converter");
  Choose(link.cboSpeed, "38400");
  Choose(link.cboParity, "none (8N2)");
  EXPECT_EQ(Stored(), "modbus:/dev/serial/by-id/usb-converter?baud=38400&parity=none&stop=2");
  Choose(link.cboPort, "another ...");
  EXPECT_TRUE(link.txtPort.Visible());
  form.cmdAcquire.Press();  // not with the port before
  EXPECT_EQ(link.lblLinkNote.Caption(), "Choose a port, or type its name.");
  link.txtPort.SetText(" /dev/rfcomm0 ");
  link.txtPort.LeaveFocus();
  EXPECT_EQ(links.Link(), "modbus:/dev/rfcomm0?baud=38400&parity=none&stop=2");
  Choose(link.cboLink, "network");
  EXPECT_EQ(links.Link(), "modbus:/dev/rfcomm0?baud=38400&parity=none&stop=2");
  EXPECT_FALSE(link.Apply());
  EXPECT_EQ(link.lblLinkNote.Caption(), "Type the name of the host, or name:port.");
  link.txtPort.SetText("plant:x");
  EXPECT_FALSE(link.Apply());
  EXPECT_THAT(link.lblLinkNote.Caption(), HasSubstr("the port or host is missing"));
  link.txtPort.SetText("plant:1502");
  EXPECT_TRUE(link.Apply());
  EXPECT_EQ(Stored(), "modbus-tcp:plant:1502");
  EXPECT_FALSE(link.lblLinkNote.Visible());
  Choose(form.cboLanguage, "Português");
  EXPECT_EQ(link.cboLink.Text(), "rede");
  EXPECT_EQ(link.txtPort.Text(), "plant:1502");
  link.txtPort.SetText("[::1]");
  EXPECT_TRUE(link.Apply());
  Choose(form.cboLanguage, "English");
  EXPECT_EQ(link.txtPort.Text(), "[::1]:502");
  Choose(form.cboLanguage, "Português");
  Choose(link.cboLink, "simulados");
  EXPECT_EQ(Stored(), "sim");
}

TEST_F(StartWindow, KeysWithoutAFieldAndAnUnpluggedConverterStay) {
  links.Choose("modbus:/dev/gone?timeout=900&offset=-1");
  Choose(form.cboLanguage, "English");
  Choose(form.cboLanguage, "Español");
  EXPECT_EQ(form.link.cboPort.Text(), "/dev/gone");
  Choose(form.link.cboSpeed, "19200");
  EXPECT_EQ(Stored(), "modbus:/dev/gone?baud=19200&timeout=900&offset=-1");
}

TEST_F(StartWindow, TheTestSaysWhoAnswersAndEndsAtOnce) {
  LinkSection& link = form.link;
  links.Choose("modbus:/dev/ttyUSB0?timeout=10");
  Choose(form.cboLanguage, "Español");
  Choose(form.cboLanguage, "English");
  portGone = true;
  link.cmdTestLink.Press();
  EXPECT_THAT(link.lblLinkNote.Caption(), StartsWith("/dev/ttyUSB0 is in use by another program"));
  portGone = false;
  link.cmdTestLink.Press();
  EXPECT_EQ(link.lblLinkNote.Caption(),
            "These answer: 02, 05 (KRA-09 V2.40).\nIn the project, but silent: 01, 03, 04, 06.");
  EXPECT_EQ(link.cmdTestLink.Caption(), "Test");
  int turns = 0;
  fakes.forms.onKeepAlive = [&] {
    EXPECT_FALSE(form.cmdAcquire.Enabled() || link.cboPort.Enabled() || form.cmdClose.IsCancel());
    EXPECT_EQ(link.cmdTestLink.Caption(), "Stop");
    EXPECT_TRUE(link.cmdTestLink.IsCancel());
    if (++turns == 2) link.cmdTestLink.Press();
  };
  link.cmdTestLink.Press();
  EXPECT_THAT(link.lblLinkNote.Caption(), StartsWith("The test was stopped."));
  EXPECT_EQ(turns, 2);
  EXPECT_TRUE(form.cmdAcquire.Enabled() && form.cmdClose.IsCancel());
}

TEST_F(StartWindow, DrivesAreRemovedAndWhoAnsweredIsProposed) {
  InWindow<RemoveDriveForm>(form.cmdRemoveDrive, [&](RemoveDriveForm& window) {
    EXPECT_EQ(window.cboDrive.Text(), "01  KRA-09  Pump 1");
    Choose(window.cboDrive, "all drives");
    window.cmdRemove.Press();
  });
  EXPECT_EQ(form.rtfDrives.Text(), "");
  EXPECT_FALSE(form.cmdRemoveDrive.Enabled());
  EXPECT_THAT(form.lblNote.Caption(), StartsWith("No longer in the project; the files stay: drive01.drv, drive02.drv"));
  links.Choose("modbus:/dev/ttyUSB0?timeout=10");
  Choose(form.cboLanguage, "Español");
  Choose(form.cboLanguage, "English");
  form.link.cmdTestLink.Press();
  EXPECT_EQ(form.link.lblLinkNote.Caption(), "These answer: 02, 05 (KRA-09 V2.40).\nNot in the project yet: 02, 05.");
  InWindow<AddDriveForm>(form.cmdAddDrive, [&](AddDriveForm& window) {
    EXPECT_EQ(window.cboAddress.Text(), "02");
    EXPECT_FALSE(window.cmdAdd.Enabled()) << "without a model";
    Choose(window.cboModel, "KRA-02");
    window.cmdAdd.Press();
    EXPECT_THAT(fakes.dialogs.TakePrompts(), ElementsAre(HasSubstr("There is no driver file for the model KRA-02")));
    EXPECT_TRUE(window.IsLoaded());
    Choose(window.cboModel, "LMX-01");
    EXPECT_EQ(window.txtFirmware.Text(), "1.72");
    window.txtTag.SetText("Mixer");
    window.cmdAdd.Press();
  });
  InWindow<AddDriveForm>(form.cmdAddDrive, [&](AddDriveForm& window) {
    EXPECT_EQ(window.cboAddress.Text() + window.cboModel.Text(), "05KRA-09");
    window.cmdCancel.Press();
  });
  EXPECT_EQ(form.rtfDrives.Text(), "02\tLMX-01\t1.72\tMixer");
  EXPECT_EQ(instance.State().settings.intSelectedDrive, 2) << "the dialog begins with a drive that is there";
  EXPECT_EQ(form.link.lblLinkNote.Caption(), "These answer: 02, 05 (KRA-09 V2.40).\nNot in the project yet: 05.");
  EXPECT_EQ(fakes.files.Bytes("/home/Project/projects/demo/demo.kpr"),
            "Kestrel project\r\nName=Demo\r\nDrives=1\r\nDrive02=drive02-2.drv\r\n");
}

TEST_F(StartWindow, AnotherProjectIsOpenedWithItsDrivesAndTheFirstOneAgain) {
  const std::string folder = "/data/plant/projects/press";
  const auto drives = [this] { return form.rtfDrives.Text(); };
  const std::string before = drives();
  fakes.files.Put(folder + "/press.kpr", "Kestrel project\r\nName=Press\r\nDrive07=own.drv\r\nDrive08=../x.drv\r\n");
  fakes.files.Put(folder + "/own.drv", "Type=KRA-09\r\nFirmware Version=2.40\r\nTag=Ram\r\n");
  fakes.files.Put("/data/notes.kpr", "notes\r\n");
  fakes.dialogs.fileAnswer = "/data/notes.kpr";
  form.cmdOpenProject.Press();
  EXPECT_THAT(fakes.dialogs.TakePrompts(), ElementsAre("/data/notes.kpr is not a project that this program made."));
  EXPECT_EQ(drives(), before);
  fakes.dialogs.fileAnswer = folder + "/press.kpr";
  form.cmdOpenProject.Press();
  EXPECT_EQ(drives(), "07\tKRA-09\t2.40\tRam");
  EXPECT_EQ(form.lblProject.Caption(), folder);
  EXPECT_EQ(instance.State().settings.intSelectedDrive, 7);
  fakes.dialogs.fileAnswer = "/home/Project/projects/demo/demo.kpr";
  form.cmdOpenProject.Press();
  EXPECT_EQ(drives(), before);
  EXPECT_THAT(fakes.dialogs.TakePrompts(), IsEmpty());
  // A project whose drives nothing lists is not lost without a word.
  fakes.files.Put("/home/Project/projects/demo/demo.kpr", "of another program");
  fakes.dialogs.fileAnswer = folder + "/press.kpr";
  form.cmdOpenProject.Press();
  EXPECT_THAT(fakes.dialogs.TakePrompts(), ElementsAre(HasSubstr("MyProject.strDriveFile06=/home/Project")));
}

}  // namespace
}  // namespace chartproject
