// The texts, frames, scans and ports of real lines, held against texts that were read.
#include <gtest/gtest.h>

#include <deque>
#include <sstream>

#include "links/serial/line_scan.h"
#include "links/serial/reply_frame.h"
#include "links/serial/serial_line.h"
#include "links/serial/serial_link.h"
#include "platform/run_time_error.h"
#include "support/error_of.h"
#include "support/transcript.h"

namespace chartproject {
namespace {

using Bytes = std::vector<std::uint8_t>;
using std::chrono::milliseconds;

std::string Hex(std::span<const std::uint8_t> bytes) {
  std::string text;
  for (const std::uint8_t byte : bytes) {
    char digits[4];
    std::snprintf(digits, sizeof digits, "%02X", byte);
    text.append(text.empty() ? "" : " ").append(digits);
  }
  return text;
}

std::string Words(const LineReply& reply) {
  const char* const kinds[] = {"value",   "exception", "silent",    "incomplete",
                               "damaged", "foreign",   "port gone", "stopped"};
  return std::string(kinds[static_cast<int>(reply.kind)]) + " " + std::to_string(reply.value) + " " +
         std::to_string(reply.exception) + (reply.detail.empty() ? "" : " \"" + reply.detail + "\"");
}

std::string Words(const LineSettings& line) {
  return std::string(line.network ? "network " : "") + line.port + " " + line.service + " " + SpeedText(line) +
         ", timeout " + std::to_string(line.timeout) + ", retries " + std::to_string(line.retries) + ", gap " +
         std::to_string(line.gap) + ", offset " + std::to_string(line.offset) + ", function " +
         std::to_string(static_cast<int>(line.table)) + ", frame gap " + std::to_string(FrameGap(line).count()) + " us";
}

TEST(LineSession, EveryLinkText) {
  Transcript transcript("line_texts");
  LineSettings defaults;
  defaults.port = "/dev/ttyS1";
  for (const std::string& link : StepsOf("line_texts")) {
    transcript.Step(link);
    transcript.Add(ErrorTextOf([&] {
      const LineSettings line = ParseLineText(link, defaults);
      transcript.Add(Words(line));
      transcript.Add(LineText(line, defaults));
      transcript.Add(LineText(line));
    }));
  }
  transcript.Say("no serial port of its own: ", ErrorTextOf([] { (void)ParseLineText("modbus:"); }));
}

TEST(LineSession, EveryReply) {
  Transcript transcript("line_replies");
  for (const std::string& line : StepsOf("line_replies")) {
    transcript.Step(line);
    std::istringstream numbers(line);
    Bytes frame;
    for (int byte = 0; numbers >> byte;) frame.push_back(static_cast<std::uint8_t>(byte));
    transcript.Say(Hex(frame), ": ", Words(JudgeReply({1, 3, 5}, frame)), "; as a name ", Words(JudgeName(1, frame)),
                   "; checksum ", FrameChecksum(frame));
  }
  for (int kind = 1; kind < 8; ++kind)
    for (const std::uint8_t exception : {1, 2, 3, 4, 99}) {
      if (kind != 1 && exception != 1) continue;
      const LineReply reply{static_cast<ReplyKind>(kind), 0, exception, kind == 6 ? "unplugged" : ""};
      transcript.Add(Words(reply));
      for (const Language language : {Language::kPortuguese, Language::kEnglish, Language::kSpanish})
        transcript.Add(FailureText(language, OutcomeOfReply(reply, language)));
    }
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

/// Steps: "read SLAVE REGISTER", "wait MILLISECONDS", "silent SLAVE", "reply KIND" of the next request, "lost 1" or
/// "lost 0".
TEST(LineSession, TheRulesOfALine) {
  Transcript transcript("line_rules");
  VirtualClock clock{DateTime{}};
  ScriptedPort port(clock);
  SerialLine line(port, {milliseconds(300), 1, milliseconds(5)}, clock, [&](Instant moment) {
    if (moment > clock.Now()) clock.AdvanceTo(moment);
    return true;
  });
  line.Open();
  for (const std::string& step : StepsOf("line_rules")) {
    transcript.Step(step);
    std::istringstream words(step);
    std::string verb;
    int first = 0;
    std::uint16_t address = 0;
    words >> verb >> first >> address;
    if (verb == "wait") clock.Advance(milliseconds(first));
    if (verb == "silent") port.silent = first;
    if (verb == "reply") port.replies.push_back(static_cast<ReplyKind>(first));
    if (verb == "lost") port.openFails = first != 0;
    if (verb == "read") port.log.push_back(Words(line.Read({static_cast<std::uint8_t>(first), 3, address})));
    for (const std::string& entry : port.log) transcript.Add(entry);
    port.log.clear();
  }
}

/// Asks for the lines that a scan tries, with drives that answer on some of them only.
struct ScannedPort : LinePort {
  ScannedPort(VirtualClock& time, Transcript& log, LineSettings own)
      : clock(time), transcript(log), settings(std::move(own)) {}
  void Open() override { transcript.Say("open ", LineText(settings)); }
  void Close() noexcept override {}
  LineReply Ask(const LineRequest& request, milliseconds timeout) override {
    const bool there = settings.parity == Parity::kOdd && request.slave >= 3;
    transcript.Say(clock.Now() / milliseconds(1), " ms: ", int{request.slave}, " ", int{request.function}, " ",
                   request.address);
    clock.Advance(there ? milliseconds(2) : timeout);
    if (request.slave == 9) return {ReplyKind::kPortGone, 0, 0, "unplugged"};
    return there ? LineReply{request.slave == 3 ? ReplyKind::kValue : ReplyKind::kException, 7, 2, {}} : LineReply{};
  }
  LineReply AskName(std::uint8_t slave, milliseconds /*timeout*/) override {
    return {slave == 3 ? ReplyKind::kValue : ReplyKind::kException, 0, 1, "KRA"};
  }
  void Flush() override { transcript.Add("flush"); }
  VirtualClock& clock;
  Transcript& transcript;
  LineSettings settings;
};

TEST(LineSession, AScanOverSpeedsAndParities) {
  Transcript transcript("line_scan");
  const LineSettings given = ParseLineText("modbus:A?baud=19200&parity=none&timeout=20&offset=-1&function=input");
  std::string lines;
  for (const LineSettings& line : LinesToTry(given)) lines += SpeedText(line) + ", ";
  transcript.Say("lines: ", lines, "network ", LinesToTry(ParseLineText("modbus-tcp:A")).size());
  const auto scan = [&](const ScanPlan& plan, int patience) {
    VirtualClock clock{DateTime{}};
    LineScan work([&](const LineSettings& line,
                      const std::function<bool()>&) { return std::make_unique<ScannedPort>(clock, transcript, line); },
                  clock,
                  [&](Instant moment) { transcript.Say("until ", moment.count(), " us"), clock.AdvanceTo(moment); },
                  [&] { return --patience < 0; });
    work.progress = [&](int done, int total, const LineSettings& line) {
      transcript.Say(done, " of ", total, " ", SpeedText(line));
    };
    work.found = [&](const FoundDrive& drive) {
      transcript.Say("found ", drive.address, " ", SpeedText(drive.settings), " \"", drive.name, "\"");
    };
    transcript.Say("at most ", LongestScan(plan).count(), " ms");
    transcript.Add(ErrorTextOf([&] { transcript.Add(work.Run(plan) ? "complete" : "stopped"); }));
  };
  const std::vector<LineSettings> all = LinesToTry(given);
  transcript.Step("three lines, of which the last but one has drives");
  scan({2, 4, {all[0], all[3], all[4], all[5]}}, 100);
  transcript.Step("stopped while it waits");
  scan({1, 2, {all[0]}}, 2);
  transcript.Step("a port that goes");
  scan({9, 10, {all[0]}}, 100);
}

}  // namespace
}  // namespace chartproject
