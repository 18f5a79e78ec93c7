// Frames of the line: what a reply says, and the checksum.
#pragma once

#include <cstdint>
#include <span>

#include "links/serial/line_port.h"

namespace chartproject {

/// Judges a sound frame, from the slave's byte to the last one before the checksum: it must match slave, function and
/// length.
[[nodiscard]] LineReply JudgeReply(const LineRequest& request, std::span<const std::uint8_t> frame);

/// The function that asks a drive for its own name ("report server id").
inline constexpr std::uint8_t kNameFunction = 0x11;
/// As JudgeReply, of the reply to that function: kValue with the printable part of the name.
[[nodiscard]] LineReply JudgeName(std::uint8_t slave, std::span<const std::uint8_t> frame);

/// CRC-16 of the serial frames (polynomial 0xA001, start 0xFFFF); its low byte is sent first.
[[nodiscard]] std::uint16_t FrameChecksum(std::span<const std::uint8_t> bytes) noexcept;

}  // namespace chartproject
