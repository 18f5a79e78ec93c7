// Real drives without a line: link texts, the rules of the line on a clock that is set by hand, frames, and values.
#include <gmock/gmock.h>

#include <atomic>
#include <deque>
#include <thread>

#include "backends/headless/virtual_clock.h"
#include "drive/unit_codes.h"
#include "links/serial/link_url.h"
#include "links/serial/reply_frame.h"
#include "links/serial/serial_line.h"
#include "links/serial/serial_link.h"
#include "links/shown_value.h"
#include "platform/run_time_error.h"
#include "support/error_of.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

using std::chrono::milliseconds;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

TEST(LinkTextTest, SaysTheLineAndIsWrittenBackWithoutWhatIsUsual) {
  const std::pair<const char*, const char*> cases[] = {
      {"modbus:/dev/ttyUSB0", "modbus:/dev/ttyUSB0"},
      {"modbus:", "modbus:/dev/ttyS1"},
      {"modbus:A?baud=9600&parity=even&stop=1&timeout=300&retries=1&gap=5&offset=0&function=holding", "modbus:A"},
      {"modbus:A?baud=38400&parity=none&stop=2&timeout=1000&retries=0&gap=10&offset=-1&function=input",
       "modbus:A?baud=38400&parity=none&stop=2&timeout=1000&retries=0&gap=10&offset=-1&function=input"},
      {"modbus-tcp:plant", "modbus-tcp:plant:502"},
      {"modbus-tcp:[::1]:1502?gap=5", "modbus-tcp:[::1]:1502?gap=5"}};
  LineSettings defaults;
  defaults.port = "/dev/ttyS1";
  for (const auto& [link, text] : cases) EXPECT_EQ(LineText(ParseLineText(link, defaults), defaults), text) << link;
  EXPECT_EQ(SpeedText(ParseLineText("modbus:A?baud=19200&parity=odd&stop=2")), "19200 8O2");
}

TEST(LinkTextTest, RefusesWhatItDoesNotKnowWithTheList) {
  const std::pair<const char*, const char*> cases[] = {
      {"modbus:", "the port or host is missing"},
      {"modbus-tcp:", "the port or host is missing"},
      {"modbus-tcp:h:0", "the port or host is missing"},
      {"modbus-tcp:[::1", "the port or host is missing"},
      {"modbus:A?speed=1",
       R"(no key "speed"; the keys are baud, parity, stop, timeout, retries, gap, offset, function.)"},
      {"modbus-tcp:A?baud=9600", R"(no key "baud"; the keys are timeout, retries, gap, offset, function.)"},
      {"modbus:A?baud=9601", "it takes 1200, 2400, 4800, 9600, 19200, 38400, 57600, 115200."},
      {"modbus:A?parity=E", R"(the key parity does not take "E"; it takes none, even, odd.)"},
      {"modbus:A?offset=64537", "it takes -1 - 64536."},
      {"modbus:A?timeout=300ms", "it takes 10 - 60000."},
      {"modbus:A?retries", R"(the key retries does not take "")"}};
  for (const auto& [link, sentence] : cases) {
    EXPECT_THAT(ErrorTextOf([text = link] { (void)ParseLineText(text); }), HasSubstr(sentence)) << link;
  }
}

TEST(LinkTextTest, AFrameEndsWithThreeAndAHalfCharactersAtLeast) {
  EXPECT_EQ(FrameGap(ParseLineText("modbus:A?baud=1200&gap=5")).count(), 32083);  // 11 bits
  EXPECT_EQ(FrameGap(ParseLineText("modbus:A?baud=1200&parity=none")).count(), 29166);
  EXPECT_EQ(FrameGap(ParseLineText("modbus:A?baud=38400&gap=5")).count(), 5000);
  EXPECT_EQ(FrameGap(ParseLineText("modbus-tcp:A")).count(), 0);
}

TEST(ValueWriterTest, ARegisterIsAValueWithoutItsPoint) {
  const FakePorts fakes;
  ValueWriter writer(fakes.locale);
  writer.SetSpeedDecimals(1);
  writer.SetProcessDecimals(7);  // limited to 5
  const std::tuple<std::uint16_t, const char*, const char*> cases[] = {
      {223, "CurrentF1", "22.3"},           {65535, "DirectF0", "65535"},
      {65535, "PercentageF1", "-0.1"},      {32768, "VoltageF0", "-32768"},
      {240, "DividedBy100F2", "2.40"},      {125, "DividedBy10F0", "13"},
      {65530, "TimeF1", "6553.0"},          {17500, "DependsOnP210", "1750.0"},
      {65535, "DependsOnP529", "-0.00001"}, {5, "DI1DI8", "AIAIIIII"},
      {65535, "DividedBy1000F3", "65.535"}, {0x8000, "13BitsRPMF0", "-32768"},
      {9, "RL1RL2RL3DO1DO2", "AIIAI"},      {7, "NoSuchUnit", "7"}};
  for (const auto& [bits, unit, text] : cases) {
    EXPECT_EQ(writer.WriteRegister(bits, FindUnitCode(unit)).text, text) << unit;
  }
}

TEST(ReplyFrameTest, MatchesSlaveFunctionAndLength) {
  using Frame = std::vector<std::uint8_t>;
  const std::pair<Frame, LineReply> cases[] = {
      {{1, 3, 2, 0x12, 0x34}, {ReplyKind::kValue, 0x1234, 0, {}}}, {{1, 0x83, 2}, {ReplyKind::kException, 0, 2, {}}},
      {{2, 3, 2, 0, 1}, {ReplyKind::kForeign, 0, 0, {}}},          {{1, 4, 2, 0, 1}, {ReplyKind::kForeign, 0, 0, {}}},
      {{1, 3, 4, 0, 1, 0, 2}, {ReplyKind::kForeign, 0, 0, {}}},    {{1, 3, 2, 0}, {ReplyKind::kForeign, 0, 0, {}}},
      {{1, 0x83, 2, 9}, {ReplyKind::kForeign, 0, 0, {}}},          {{}, {ReplyKind::kForeign, 0, 0, {}}}};
  for (const auto& [frame, reply] : cases) {
    EXPECT_EQ(JudgeReply({1, 3, 5}, frame), reply) << ::testing::PrintToString(frame);
  }
  EXPECT_EQ(JudgeName(1, Frame{1, 0x11, 4, 'K', 'R', 0xFF, 0}).detail, "KR");
  EXPECT_EQ(FrameChecksum(Frame{1, 3, 0, 5, 0, 1}), 0x0B94);
}

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
