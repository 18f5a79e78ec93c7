// What a line needs of its port, and what comes back over it.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace chartproject {

/// Asks one drive for one register. There is no request that writes.
struct LineRequest {
  std::uint8_t slave = 0;  ///< the drive's address
  std::uint8_t function = 3;
  std::uint16_t address = 0;  ///< of the register
  friend bool operator==(const LineRequest&, const LineRequest&) = default;
};

enum class ReplyKind : std::uint8_t {
  kValue,
  kException,   ///< the drive refused; an answer, too
  kSilent,      ///< nothing came in time
  kIncomplete,  ///< something came, and did not become a frame in time
  kDamaged,     ///< a frame whose checksum is wrong
  kForeign,     ///< a sound frame of another drive, for another function or of another length
  kPortGone,
  kStopped  ///< the line was stopped while it waited
};

struct LineReply {
  ReplyKind kind = ReplyKind::kSilent;
  std::uint16_t value = 0;     ///< of kValue
  std::uint8_t exception = 0;  ///< code of kException
  std::string detail;          ///< the system's reason of kPortGone; what a drive says of itself

  /// The drive itself answered.
  [[nodiscard]] bool Answered() const noexcept { return kind == ReplyKind::kValue || kind == ReplyKind::kException; }
  friend bool operator==(const LineReply&, const LineReply&) = default;
};

/// A port that carries one request at a time.
class LinePort {
 public:
  virtual ~LinePort() = default;
  /// Throws RunTimeError that names the port and the reason. Opening an open port opens it again.
  virtual void Open() = 0;
  virtual void Close() noexcept = 0;
  /// Sends a request and waits for its reply.
  [[nodiscard]] virtual LineReply Ask(const LineRequest& request, std::chrono::milliseconds timeout) = 0;
  /// Asks a drive for the name that it gives itself. kValue with the name as detail; many drives refuse.
  [[nodiscard]] virtual LineReply AskName(std::uint8_t slave, std::chrono::milliseconds timeout) = 0;
  /// Drops what came unasked.
  virtual void Flush() = 0;
};

}  // namespace chartproject
