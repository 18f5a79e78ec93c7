// The start window as a form: the choice of drives, the test of a line, drives added and removed, another project.
#include <gmock/gmock.h>

#include "backends/posix/posix_clock.h"
#include "host/project/project_maker.h"
#include "host/window/start_form.h"
#include "platform/run_time_error.h"
#include "support/fake_ports.h"
#include "support/session_script.h"

namespace chartproject {
namespace {

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
};

struct StartSession : StartWindow, ::testing::WithParamInterface<const char*> {
  StartSession() {
    auto& does = script.does;
    does["ports"] = [this](const Words& words) { words.at(1) == "none" ? ports.clear() : void(ports = all); };
    does["port"] = [this](const Words& words) { portGone = words.at(1) == "gone"; };
    does["link"] = [this](const Words& words) { links.Choose(words.at(1)); };
    does["put"] = [this](const Words& words) { fakes.files.Put(words.at(1), words.at(2)); };
    does["remove"] = [this](const Words& words) { fakes.files.Remove(words.at(1)); };
    does["show"] = [this](const Words& words) { script.transcript.Add(fakes.files.Bytes(words.at(1))); };
    does["file"] = [this](const Words& words) {
      fakes.dialogs.fileAnswer = words.size() > 1 ? std::optional(words[1]) : std::nullopt;
    };
    fakes.forms.onShown = [this](Form& opened) {
      script.Meet(opened);
      script.transcript.Listen();
      if (opened.IsShown()) opened.Unload();
    };
  }
  const std::vector<SerialPort> all = ports;
  SessionScript script{std::string("start_") + GetParam(), &fakes};
};

TEST_P(StartSession, IsAsItWasRead) {
  script.Run(&form);
}

INSTANTIATE_TEST_SUITE_P(Each, StartSession, ::testing::Values("link", "project"),
                         [](const auto& session) { return std::string(session.param); });

TEST_F(StartWindow, ATestIsStoppedAtOnceAndNothingElseIsAllowedMeanwhile) {
  LinkSection& link = form.link;
  link.cboLink.SetListIndex(1);
  int turns = 0;
  fakes.forms.onKeepAlive = [&] {
    EXPECT_FALSE(form.cmdAcquire.Enabled() || link.cboPort.Enabled() || form.cmdClose.IsCancel());
    EXPECT_EQ(link.cmdTestLink.Caption(), "Stop");
    EXPECT_TRUE(link.cmdTestLink.IsCancel());
    if (++turns == 2) link.cmdTestLink.Press();
  };
  link.cmdTestLink.Press();
  EXPECT_THAT(link.lblLinkNote.Caption(), ::testing::StartsWith("The test was stopped."));
  EXPECT_EQ(turns, 2);
  EXPECT_TRUE(form.cmdAcquire.Enabled() && form.cmdClose.IsCancel());
}

}  // namespace
}  // namespace chartproject
