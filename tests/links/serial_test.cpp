// Real drives without a line: the rules of the line on a clock that is set by hand, and what a link says.
#include <gmock/gmock.h>

#include <atomic>
#include <deque>
#include <thread>

#include "backends/headless/virtual_clock.h"
#include "drive/unit_codes.h"
#include "links/serial/link_url.h"
#include "links/serial/serial_line.h"
#include "links/serial/serial_link.h"
#include "platform/run_time_error.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

using std::chrono::milliseconds;
using ::testing::ElementsAre;

/// A port that plays replies, and writes down what it is asked and when.
struct ScriptedPort : LinePort {
  explicit ScriptedPort(VirtualClock& theClock) : clock(theClock) {}
  void Open() override {
    Log("open");
    if (openFails) throw RunTimeError(error_number::kDeviceIo, "unplugged");
  }
  void Close() noexcept override { log.emplace_back("close"); }
  LineReply Ask(const LineRequest& request, milliseconds timeout) override {
    Log("P" + std::to_string(request.address) + " of " + std::to_string(request.slave));
    LineReply reply{ReplyKind::kValue, 7, 0, {}};
    if (!replies.empty()) {
      reply.kind = replies.front();
      replies.pop_front();
    } else if (silent == request.slave) {
      reply.kind = ReplyKind::kSilent;
    }
    const bool waits = reply.kind == ReplyKind::kSilent || reply.kind == ReplyKind::kIncomplete;
    clock.Advance(waits ? timeout : milliseconds(1));
    return reply;
  }
  LineReply AskName(std::uint8_t /*slave*/, milliseconds /*timeout*/) override { return {}; }
  void Flush() override { Log("flush"); }
  void Log(const std::string& what) {
    log.push_back(std::to_string((clock.Now() - start) / milliseconds(1)) + " " + what);
  }

  VirtualClock& clock;
  Instant start = clock.Now();
  std::deque<ReplyKind> replies;
  int silent = 0;  ///< slave that never answers
  bool openFails = false;
  std::vector<std::string> log;
};

struct SerialLineTest : ::testing::Test {
  ReplyKind Read(int slave, int address = 5) {
    return line.Read({static_cast<std::uint8_t>(slave), 3, static_cast<std::uint16_t>(address)}).kind;
  }
  void Opened() {
    line.Open();
    EXPECT_EQ(Read(9), ReplyKind::kValue);
    clock.Advance(milliseconds(99));  // it is 100 now
    port.log.clear();
  }

  VirtualClock clock{DateTime{}};
  ScriptedPort port{clock};
  SerialLine line{port, {milliseconds(300), 1, milliseconds(5)}, clock, [this](Instant moment) {
                    if (moment > clock.Now()) clock.AdvanceTo(moment);
                    return true;
                  }};
};

TEST_F(SerialLineTest, LeavesAGapAfterAnAnswerAndSilenceAfterAnythingElse) {
  Opened();
  EXPECT_EQ(Read(1), ReplyKind::kValue);
  port.replies = {ReplyKind::kException};
  EXPECT_EQ(Read(1, 6), ReplyKind::kException);  // an answer: not asked again
  EXPECT_EQ(Read(1, 7), ReplyKind::kValue);
  EXPECT_THAT(port.log, ElementsAre("100 P5 of 1", "106 P6 of 1", "112 P7 of 1"));
  for (const ReplyKind bad : {ReplyKind::kSilent, ReplyKind::kIncomplete, ReplyKind::kDamaged, ReplyKind::kForeign}) {
    clock.Advance(milliseconds(1000));
    port.log.clear();
    port.start = clock.Now();
    port.replies = {bad};
    EXPECT_EQ(Read(1), ReplyKind::kValue);
    const bool waited = bad == ReplyKind::kSilent || bad == ReplyKind::kIncomplete;
    EXPECT_THAT(port.log,
                ElementsAre("0 P5 of 1", waited ? "600 flush" : "301 flush", waited ? "600 P5 of 1" : "301 P5 of 1"));
  }
}

TEST_F(SerialLineTest, AsksAFailingDriveOnceASecondAndTheOthersAsEver) {
  Opened();
  port.silent = 1;
  EXPECT_EQ(Read(1), ReplyKind::kSilent);     // 100, 700
  EXPECT_EQ(Read(1, 6), ReplyKind::kSilent);  // 1300, 1900: the second failure in a row
  port.log.clear();
  EXPECT_EQ(Read(1, 7), ReplyKind::kSilent);
  EXPECT_EQ(Read(2), ReplyKind::kValue);
  EXPECT_EQ(Read(1, 7), ReplyKind::kSilent);
  EXPECT_EQ(Read(2, 6), ReplyKind::kValue);
  EXPECT_THAT(port.log, ElementsAre("2500 flush", "2500 P5 of 2", "2506 P6 of 2"));
  clock.Advance(milliseconds(393));  // a second after the last try
  port.log.clear();
  EXPECT_EQ(Read(1, 7), ReplyKind::kSilent);
  EXPECT_THAT(port.log, ElementsAre("2900 P7 of 1"));
  port.silent = 0;
  clock.Advance(milliseconds(1000));
  EXPECT_EQ(Read(1), ReplyKind::kValue);
  EXPECT_EQ(Read(1, 6), ReplyKind::kValue);  // asked at once again
}

TEST_F(SerialLineTest, OpensAPortThatVanishedAgainForEver) {
  Opened();
  port.replies = {ReplyKind::kPortGone};
  EXPECT_EQ(Read(1), ReplyKind::kPortGone);
  port.openFails = true;
  EXPECT_EQ(Read(1), ReplyKind::kPortGone);
  clock.Advance(milliseconds(500));
  const LineReply reply = line.Read({2, 3, 5});
  EXPECT_EQ(reply.detail, "unplugged");
  clock.Advance(milliseconds(499));
  EXPECT_EQ(Read(1), ReplyKind::kPortGone);
  port.openFails = false;
  clock.Advance(milliseconds(1));
  EXPECT_EQ(Read(1), ReplyKind::kValue);
  EXPECT_THAT(port.log, ElementsAre("100 P5 of 1", "close", "601 open", "1101 open", "1101 flush", "1101 P5 of 1"));
}

/// A port whose answer comes when the test allows it.
struct HeldPort : LinePort {
  explicit HeldPort(std::function<bool()> toStop) : stopping(std::move(toStop)) {}
  void Open() override {}
  void Close() noexcept override {}
  LineReply Ask(const LineRequest& /*request*/, milliseconds /*timeout*/) override {
    while (held && !stopping()) std::this_thread::yield();
    return stopping() ? LineReply{ReplyKind::kStopped, 0, 0, {}} : LineReply{ReplyKind::kValue, 41, 0, {}};
  }
  LineReply AskName(std::uint8_t /*slave*/, milliseconds /*timeout*/) override { return {}; }
  void Flush() override {}

  std::function<bool()> stopping;
  static inline std::atomic<bool> held{false};
};

/// Moves by itself, as the line's thread needs it.
struct RunningClock : Clock {
  DateTime LocalNow() override { return {}; }
  Instant Now() override {
    return std::chrono::duration_cast<Instant>(std::chrono::steady_clock::now().time_since_epoch());
  }
};

TEST(SerialLinkTest, TheProgramGoesOnWhileADriveIsSilentAndTheLinkEndsAtOnce) {
  FakePorts fakes;
  RunningClock clock;
  int asked = 0;
  LinkWait wait{[&asked] { return ++asked < 3; }};
  const LineSettings settings = ParseLineText("modbus-tcp:h?offset=-1");
  SerialLinkFactory links(
      settings,
      [](const LineSettings&, std::function<bool()> stopping) {
        return std::make_unique<HeldPort>(std::move(stopping));
      },
      clock, fakes.locale, [] { return Language::kEnglish; });
  const auto link = links.Create(wait);
  const auto read = [&link](int address, int parameter) {
    const ReadOutcome outcome = link->ReadParameter(static_cast<std::int16_t>(address), "8",
                                                    static_cast<std::int16_t>(parameter), FindUnitCode("CurrentF1"));
    return outcome.Answered() ? link->GetText() : FailureText(Language::kEnglish, outcome);
  };
  EXPECT_EQ(read(1, 5), "the port is gone");  // before it is opened
  link->OpenLink();
  EXPECT_EQ(read(1, 5), "4.1");
  EXPECT_EQ(read(1, 0), "no answer");  // there is no register -1
  EXPECT_EQ(read(31, 5), "no answer");
  HeldPort::held = true;
  EXPECT_EQ(link->ReadParameter(1, "8", 5, 7).failure, ReadFailure::kGivenUp);
  EXPECT_EQ(asked, 3);
  link->CloseLink();
  HeldPort::held = false;
}

TEST(SerialLinkTest, SaysWhyAReadingFailed) {
  const std::tuple<LineReply, const char*, const char*> cases[] = {
      {{ReplyKind::kException, 0, 2, {}},
       "refused by the drive (there is no such parameter)",
       "rechazado por el drive (no existe el parámetro)"},
      {{ReplyKind::kException, 0, 99, {}},
       "refused by the drive (exception 99)",
       "rechazado por el drive (excepción 99)"},
      {{ReplyKind::kForeign, 0, 0, {}},
       "no answer (another answer came, which was not asked for)",
       "sin respuesta (llegó otra respuesta, que no se había pedido)"},
      {{ReplyKind::kIncomplete, 0, 0, {}}, "incomplete answer", "respuesta incompleta"},
      {{ReplyKind::kDamaged, 0, 0, {}}, "bad checksum", "suma de verificación errónea"},
      {{ReplyKind::kPortGone, 0, 0, "unplugged"}, "the port is gone (unplugged)", "el puerto desapareció (unplugged)"}};
  for (const auto& [reply, english, spanish] : cases) {
    EXPECT_EQ(FailureText(Language::kEnglish, OutcomeOfReply(reply, Language::kEnglish)), english);
    EXPECT_EQ(FailureText(Language::kSpanish, OutcomeOfReply(reply, Language::kSpanish)), spanish);
  }
}

}  // namespace
}  // namespace chartproject
