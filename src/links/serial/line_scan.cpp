// One probe an address, and the name of who answered.
#include "links/serial/line_scan.h"

#include <algorithm>
#include <utility>

#include "drive/link_wait.h"
#include "links/serial/serial_line.h"
#include "platform/run_time_error.h"

namespace chartproject {

std::vector<LineSettings> LinesToTry(const LineSettings& given) {
  std::vector<LineSettings> lines{given};
  if (given.network) return lines;
  constexpr std::pair<Parity, int> kFrames[] = {
      {Parity::kEven, 1}, {Parity::kNone, 1}, {Parity::kOdd, 1}, {Parity::kNone, 2}};
  for (const int baud : kBauds) {
    for (const auto& [parity, stopBits] : kFrames) {
      if (baud == given.baud && parity == given.parity && stopBits == given.stopBits) continue;
      lines.push_back(given);
      lines.back().baud = baud;
      lines.back().parity = parity;
      lines.back().stopBits = stopBits;
    }
  }
  return lines;
}

std::chrono::milliseconds LongestScan(const ScanPlan& plan) {
  std::chrono::milliseconds sum{0};
  // A silent address takes its time, and the silence after it.
  for (const LineSettings& line : plan.lines)
    sum += std::chrono::milliseconds(2 * line.timeout) * (plan.to - plan.from + 1);
  return sum;
}

bool LineScan::Run(const ScanPlan& plan) {
  int done = 0;
  for (const LineSettings& settings : plan.lines) {
    int count = 0;
    if (!RunLine(plan, settings, done, count)) return false;
    if (count > 0) break;
    done += plan.to - plan.from + 1;
  }
  return true;
}

bool LineScan::RunLine(const ScanPlan& plan, const LineSettings& settings, int done, int& count) {
  const auto port = makePort_(settings, stopping_);
  SerialLine line(*port, {std::chrono::milliseconds(settings.timeout), 0, FrameGap(settings)}, clock_,
                  [this](Instant moment) { return WaitUntil(moment); });
  line.Open();
  const int total = static_cast<int>(plan.lines.size()) * (plan.to - plan.from + 1);
  for (int address = plan.from; address <= plan.to; ++address) {
    if (progress) progress(++done, total, settings);
    const auto slave = static_cast<std::uint8_t>(address);
    const LineReply reply = line.Probe(
        {slave, static_cast<std::uint8_t>(settings.table), static_cast<std::uint16_t>(std::max(settings.offset, 0))});
    if (reply.kind == ReplyKind::kPortGone) {
      throw RunTimeError(error_number::kDeviceIo, Text::kPortNotOpened, {settings.port, reply.detail});
    }
    if (reply.kind == ReplyKind::kStopped) return false;
    if (!reply.Answered()) continue;
    ++count;
    const LineReply name = line.Name(slave);
    if (found) found({address, settings, name.kind == ReplyKind::kValue ? name.detail : std::string()});
  }
  return true;
}

bool LineScan::WaitUntil(Instant moment) {
  while (!stopping_()) {
    const Instant now = clock_.Now();
    if (now >= moment) return true;
    sleepUntil_(std::min<Instant>(moment, now + kLinkWaitSlice));
  }
  return false;
}

}  // namespace chartproject
