// Opening, asking, and what the library's errors mean.
#include "links/serial/modbus_port.h"

#include <modbus.h>
#include <poll.h>
#include <sys/ioctl.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>
#include <vector>

#include "links/serial/port_lock.h"
#include "links/serial/reply_frame.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

using Milliseconds = std::chrono::milliseconds;
using SteadyClock = std::chrono::steady_clock;

struct ContextEnd {
  void operator()(modbus_t* context) const noexcept {
    modbus_close(context);
    modbus_free(context);
  }
};
using Context = std::unique_ptr<modbus_t, ContextEnd>;

void SetResponseTimeout(modbus_t* context, Milliseconds timeout) {
  constexpr long kPerSecond = 1000;
  const long count = std::max<long>(timeout.count(), 1);
  modbus_set_response_timeout(context, static_cast<std::uint32_t>(count / kPerSecond),
                              static_cast<std::uint32_t>(count % kPerSecond * kPerSecond));
}

[[noreturn]] void ThrowNotOpened(const std::string& name, int error) {
  throw RunTimeError(error_number::kDeviceIo, Text::kPortNotOpened, {name, modbus_strerror(error)});
}

class ModbusPort : public LinePort {
 public:
  ModbusPort(LineSettings settings, std::function<bool()> stopping, std::shared_ptr<LineTrace> trace)
      : settings_(std::move(settings)), stopping_(std::move(stopping)), trace_(std::move(trace)) {}

  void Open() override {
    Close();
    try {
      settings_.network ? Connect() : OpenDevice();
    } catch (const RunTimeError& error) {
      Close();
      Note(error.Description());
      throw;
    }
    // Without a time between bytes the time of the reply holds for all of it.
    modbus_set_byte_timeout(context_.get(), 0, 0);
    Note("open: " + LineText(settings_));
  }

  void Close() noexcept override {
    context_.reset();
    lock_.reset();
  }

  LineReply Ask(const LineRequest& request, Milliseconds timeout) override {
    const std::array<std::uint8_t, 6> bytes{request.slave,
                                            request.function,
                                            static_cast<std::uint8_t>(request.address >> 8U),
                                            static_cast<std::uint8_t>(request.address & 0xFFU),
                                            0,
                                            1};
    return Exchange(bytes, timeout, [&](std::span<const std::uint8_t> frame) { return JudgeReply(request, frame); });
  }

  LineReply AskName(std::uint8_t slave, Milliseconds timeout) override {
    const std::array<std::uint8_t, 2> bytes{slave, kNameFunction};
    return Exchange(bytes, timeout, [slave](std::span<const std::uint8_t> frame) { return JudgeName(slave, frame); });
  }

  void Flush() override {
    if (!settings_.network) {
      modbus_flush(context_.get());
    } else if (std::exchange(owed_, false)) {
      try {
        Open();
      } catch (const RunTimeError&) {
        context_.reset();  // the next request reports it
      }
    }
  }

 private:
  using Judge = std::function<LineReply(std::span<const std::uint8_t> frame)>;

  /// The lock comes first: opening sets the speed of a line that another program may be using.
  void OpenDevice() {
    lock_ = std::make_unique<PortLock>(settings_.port);
    context_.reset(modbus_new_rtu(settings_.port.c_str(), settings_.baud, static_cast<char>(settings_.parity), 8,
                                  settings_.stopBits));
    if (!context_) ThrowNotOpened(settings_.port, errno);
    if (modbus_connect(context_.get()) != 0) ThrowNotOpened(settings_.port, errno);
    ioctl(modbus_get_socket(context_.get()), TIOCEXCL);
  }

  void Connect() {
    const std::string name = settings_.port + ":" + settings_.service;
    context_.reset(modbus_new_tcp_pi(settings_.port.c_str(), settings_.service.c_str()));
    if (!context_) ThrowNotOpened(name, errno);
    SetResponseTimeout(context_.get(), Milliseconds(settings_.timeout));
    if (modbus_connect(context_.get()) == 0) return;
    const int error = errno;
    // The library gives this error for a name that the system cannot resolve.
    if (error == ECONNREFUSED && !HostResolves(settings_.port)) {
      throw RunTimeError(error_number::kDeviceIo, Text::kHostNotFound, {settings_.port});
    }
    ThrowNotOpened(name, error == EINPROGRESS ? ETIMEDOUT : error);  // its words for a host that says nothing
  }

  LineReply Exchange(std::span<const std::uint8_t> request, Milliseconds timeout, const Judge& judge) {
    if (!context_) return {ReplyKind::kPortGone, 0, 0, {}};
    const auto until = SteadyClock::now() + timeout;
    TraceRequest(request);
    std::vector<std::uint8_t> bytes(request.begin(), request.end());
    modbus_set_slave(context_.get(), bytes.front());
    if (modbus_send_raw_request(context_.get(), bytes.data(), static_cast<int>(bytes.size())) < 0) return Gone(errno);
    LineReply reply = WaitForReply(until);
    if (reply.kind == ReplyKind::kValue) reply = Receive(until, judge);
    owed_ = owed_ || !reply.Answered();
    return reply;
  }

  /// kValue when something has arrived.
  LineReply WaitForReply(SteadyClock::time_point until) {
    constexpr Milliseconds kSlice{50};
    while (true) {
      if (stopping_()) return {ReplyKind::kStopped, 0, 0, {}};
      const auto left = std::chrono::ceil<Milliseconds>(until - SteadyClock::now());
      pollfd watched{modbus_get_socket(context_.get()), POLLIN, 0};
      const int ready = poll(&watched, 1, static_cast<int>(std::clamp(left, Milliseconds(0), kSlice).count()));
      if (ready < 0 && errno != EINTR) return Gone(errno);
      if (ready > 0 && (watched.revents & POLLIN) == 0) return Gone(EIO);
      if (ready > 0) return {ReplyKind::kValue, 0, 0, {}};
      if (left <= Milliseconds(0)) {
        Note("no answer");
        return {};
      }
    }
  }

  LineReply Receive(SteadyClock::time_point until, const Judge& judge) {
    std::array<std::uint8_t, MODBUS_TCP_MAX_ADU_LENGTH> bytes{};
    SetResponseTimeout(context_.get(), std::chrono::ceil<Milliseconds>(until - SteadyClock::now()));
    const int count = modbus_receive_confirmation(context_.get(), bytes.data());
    if (count < 0) return FailureOf(errno);
    if (count == 0) {  // the library drops a frame of another slave
      Note("an answer of another drive: " + std::to_string(bytes.front()));
      return {ReplyKind::kForeign, 0, 0, {}};
    }
    const std::span frame(bytes.data(), static_cast<std::size_t>(count));
    if (trace_) trace_->Received(frame);
    constexpr std::size_t kChecksumLength = 2;
    constexpr std::size_t kNetworkHead = 6;  // before the slave's byte
    if (settings_.network) return frame.size() < kNetworkHead ? LineReply{} : judge(frame.subspan(kNetworkHead));
    return judge(frame.first(frame.size() - std::min(frame.size(), kChecksumLength)));
  }

  LineReply FailureOf(int error) {
    switch (error) {
      case ETIMEDOUT:
        Note("an incomplete answer");
        return {ReplyKind::kIncomplete, 0, 0, {}};
      case EMBBADCRC:
        Note("an answer with a bad checksum");
        return {ReplyKind::kDamaged, 0, 0, {}};
      case EMBBADDATA:
      case EMBBADEXC:
      case EMBUNKEXC:
      case EMBMDATA:
        Note("an answer that is not understood");
        return {ReplyKind::kDamaged, 0, 0, {}};
      default:
        return Gone(error);
    }
  }

  LineReply Gone(int error) {
    Note(std::string("the port is gone: ") + modbus_strerror(error));
    return {ReplyKind::kPortGone, 0, 0, modbus_strerror(error)};
  }

  void TraceRequest(std::span<const std::uint8_t> request) {
    if (!trace_) return;
    std::vector<std::uint8_t> frame(request.begin(), request.end());
    if (settings_.network) {
      frame.insert(frame.begin(), {0, 0, 0, 0, 0, static_cast<std::uint8_t>(request.size())});
    } else {
      const std::uint16_t sum = FrameChecksum(request);
      frame.push_back(static_cast<std::uint8_t>(sum & 0xFFU));
      frame.push_back(static_cast<std::uint8_t>(sum >> 8U));
    }
    trace_->Sent(frame);
  }

  void Note(const std::string& text) {
    if (trace_) trace_->Note(text);
  }

  LineSettings settings_;
  std::function<bool()> stopping_;
  std::shared_ptr<LineTrace> trace_;
  std::unique_ptr<PortLock> lock_;
  Context context_;    ///< before the lock's end
  bool owed_ = false;  ///< an answer to an earlier request may still arrive
};

}  // namespace

std::unique_ptr<LinePort> MakeModbusPort(const LineSettings& settings, std::function<bool()> stopping,
                                         std::shared_ptr<LineTrace> trace) {
  return std::make_unique<ModbusPort>(settings, std::move(stopping), std::move(trace));
}

}  // namespace chartproject
