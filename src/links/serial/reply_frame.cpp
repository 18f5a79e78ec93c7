// Byte by byte.
#include "links/serial/reply_frame.h"

#include <cctype>

namespace chartproject {

namespace {

constexpr std::uint8_t kRefused = 0x80;  // of the function in an exception

/// The reply when the frame is not one of this slave and function; an exception; or nothing more to say.
LineReply JudgeHead(std::uint8_t slave, std::uint8_t function, std::span<const std::uint8_t> frame) {
  constexpr std::size_t kExceptionLength = 3;
  LineReply reply{ReplyKind::kForeign, 0, 0, {}};
  if (frame.size() < kExceptionLength || frame[0] != slave) return reply;
  if (frame[1] == (function | kRefused) && frame.size() == kExceptionLength) {
    reply.kind = ReplyKind::kException;
    reply.exception = frame[2];
  } else if (frame[1] == function && frame.size() == kExceptionLength + frame[2]) {
    reply.kind = ReplyKind::kValue;
  }
  return reply;
}

}  // namespace

LineReply JudgeReply(const LineRequest& request, std::span<const std::uint8_t> frame) {
  LineReply reply = JudgeHead(request.slave, request.function, frame);
  if (reply.kind != ReplyKind::kValue) return reply;
  if (frame[2] != 2) return {ReplyKind::kForeign, 0, 0, {}};
  reply.value = static_cast<std::uint16_t>(frame[3] << 8 | frame[4]);
  return reply;
}

LineReply JudgeName(std::uint8_t slave, std::span<const std::uint8_t> frame) {
  LineReply reply = JudgeHead(slave, kNameFunction, frame);
  if (reply.kind != ReplyKind::kValue) return reply;
  for (const std::uint8_t byte : frame.subspan(3)) {
    if (std::isprint(byte) != 0) reply.detail += static_cast<char>(byte);
  }
  return reply;
}

std::uint16_t FrameChecksum(std::span<const std::uint8_t> bytes) noexcept {
  constexpr std::uint16_t kPolynomial = 0xA001;
  std::uint16_t sum = 0xFFFF;
  for (const std::uint8_t byte : bytes) {
    sum ^= byte;
    for (int bit = 0; bit < 8; ++bit) {
      const bool carry = (sum & 1U) != 0;
      sum = static_cast<std::uint16_t>(sum >> 1U);
      if (carry) sum ^= kPolynomial;
    }
  }
  return sum;
}

}  // namespace chartproject
