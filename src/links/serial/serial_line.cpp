// Silence, gap, pace and reopening.
#include "links/serial/serial_line.h"

#include "platform/run_time_error.h"

namespace chartproject {

namespace {

constexpr int kFailuresOfAFailingDrive = 2;

}  // namespace

void SerialLine::Open() {
  port_.Open();
  open_ = true;
  flush_ = true;  // what others asked for earlier
  conducts_.fill({});
}

void SerialLine::Close() noexcept {
  port_.Close();
  open_ = false;
}

LineReply SerialLine::Read(const LineRequest& request) {
  Conduct& drive = conducts_.at(request.slave);
  const bool failing = drive.failures >= kFailuresOfAFailingDrive;
  if (open_ && failing && clock_.Now() < drive.tried + kFailingDrivePace) return drive.last;
  const int tries = failing ? 1 : 1 + rules_.retries;
  LineReply reply;
  for (int i = 0; i < tries; ++i) {
    drive.tried = clock_.Now();
    reply = Try([&] { return port_.Ask(request, rules_.timeout); });
    if (reply.kind == ReplyKind::kStopped || reply.kind == ReplyKind::kPortGone) return reply;
    if (reply.Answered()) break;
  }
  drive.failures = reply.Answered() ? 0 : drive.failures + 1;
  drive.last = reply;
  return reply;
}

LineReply SerialLine::Probe(const LineRequest& request) {
  return Try([&] { return port_.Ask(request, rules_.timeout); });
}

LineReply SerialLine::Name(std::uint8_t slave) {
  return Try([&] { return port_.AskName(slave, rules_.timeout); });
}

LineReply SerialLine::Try(const Ask& ask) {
  if (!open_) {
    if (LineReply gone = ReopenPort(); gone.kind == ReplyKind::kPortGone) return gone;
  }
  if (!wait_(quietUntil_)) return {ReplyKind::kStopped, 0, 0, {}};
  if (flush_) port_.Flush();
  flush_ = false;
  LineReply reply = ask();
  if (reply.kind == ReplyKind::kPortGone) {
    Close();
    gone_ = reply.detail;
    reopenAt_ = clock_.Now() + kReopenPace;
    return reply;
  }
  flush_ = !reply.Answered();
  quietUntil_ = clock_.Now() + (reply.Answered() ? rules_.gap : Instant(rules_.timeout));
  return reply;
}

LineReply SerialLine::ReopenPort() {
  if (clock_.Now() >= reopenAt_) {
    try {
      Open();
      return {};
    } catch (const RunTimeError& error) {
      gone_ = error.Description();
      reopenAt_ = clock_.Now() + kReopenPace;
    }
  }
  return {ReplyKind::kPortGone, 0, 0, gone_};
}

}  // namespace chartproject
