// The texts, frames, scans and ports of real lines, held against texts that were read.
#include <gtest/gtest.h>

#include <sstream>

#include "links/serial/line_scan.h"
#include "links/serial/reply_frame.h"
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
  std::istringstream links(
      "modbus: modbus:A modbus:/dev/ttyUSB0 modbus:A? "
      "modbus:A?baud=9600&parity=even&stop=1&timeout=300&retries=1&gap=5&offset=0&function=holding "
      "modbus:A?baud=38400&parity=none&stop=2&timeout=1000&retries=0&gap=10&offset=-1&function=input "
      "modbus:A?baud=1200&parity=odd modbus:A?baud=1200&parity=none modbus:A?baud=1200&stop=2 "
      "modbus:A?baud=19200&gap=0 modbus:A?baud=9601 modbus:A?baud= modbus:A?baud modbus:A?baud=9600x "
      "modbus:A?parity=E modbus:A?stop=0 modbus:A?stop=2 modbus:A?stop=3 modbus:A?timeout=9 "
      "modbus:A?timeout=10 modbus:A?timeout=60000 modbus:A?timeout=60001 modbus:A?timeout=300ms "
      "modbus:A?retries=10 modbus:A?retries=11 modbus:A?retries=-1 modbus:A?gap=1000 modbus:A?gap=1001 "
      "modbus:A?offset=-2 modbus:A?offset=64536 modbus:A?offset=64537 modbus:A?function=coils modbus:A?speed=1 "
      "modbus:A?gap=1&gap=2 modbus:A?gap=1&&gap=2 modbus-tcp: modbus-tcp:plant modbus-tcp:plant:1502?gap=5 "
      "modbus-tcp:plant: modbus-tcp:plant:0 modbus-tcp:plant:1 modbus-tcp:plant:65535 modbus-tcp:plant:65536 "
      "modbus-tcp::502 modbus-tcp:[::1] modbus-tcp:[::1]:1502 modbus-tcp:[::1 modbus-tcp:[]:1 "
      "modbus-tcp:[::1]1502 modbus-tcp:A?baud=9600 modbus-tcp:A?function=input&offset=5 sim Modbus:A");
  for (std::string link; links >> link;) {
    transcript.Step(link);
    transcript.Add(ErrorTextOf([&] {
      const LineSettings line = ParseLineText(link, defaults);
      transcript.Add(Words(line));
      transcript.Add(LineText(line, defaults));
      transcript.Add(LineText(line));
    }));
  }
  transcript.Step("no serial port of its own");
  transcript.Add(ErrorTextOf([] { (void)ParseLineText("modbus:"); }));
}

TEST(LineSession, EveryReply) {
  Transcript transcript("line_replies");
  std::istringstream frames(
      "|1|1 3|1 3 0|1 3 2|1 3 2 1|1 3 2 18 52|1 3 2 255 254|1 3 2 18 52 0|"
      "2 3 2 0 1|1 4 2 0 1|1 3 4 0 1 0 2|1 3 1 7|1 131 2|1 131|1 131 2 9|1 132 2|2 131 2|1 145 1|1 17 0|1 17 6 75 82 "
      "255 0 32 126|1 17 3 75 82|2 17 1 75");
  for (std::string line; std::getline(frames, line, '|');) {
    std::istringstream numbers(line);
    Bytes frame;
    for (int byte = 0; numbers >> byte;) frame.push_back(static_cast<std::uint8_t>(byte));
    transcript.Say(Hex(frame), ": ", Words(JudgeReply({1, 3, 5}, frame)), "; as a name ", Words(JudgeName(1, frame)),
                   "; checksum ", FrameChecksum(frame));
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
