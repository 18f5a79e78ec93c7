// Port: handing lines of points to a database on the network.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace chartproject {

/// What became of one batch of lines.
enum class PostResult : std::uint8_t {
  kTaken,         ///< the server acknowledged all of them
  kServerBusy,    ///< the server is there, but takes nothing now: a full disk, too many requests
  kNotReached,    ///< no answer: connection, name, time limit
  kTooLarge,      ///< the batch is larger than the server allows
  kTokenRefused,  ///< token or password are missing or wrong
  kRefused,       ///< the server refuses these lines or this address
  kCertificate,   ///< the server's certificate does not hold
  kRedirects,     ///< redirected too often, or to an address that is not followed
  kNotADatabase,  ///< the answer is not that of a database that takes lines
  kGivenUp        ///< the caller did not want to wait any longer
};

/// The answer to a batch.
struct PostAnswer {
  PostResult result = PostResult::kNotReached;
  int status = 0;            ///< of the server's answer; 0 without one
  std::string text{};        ///< the server's or the system's words: one line, bounded, nothing invisible in it
  bool mayHaveDied = false;  ///< no answer, or one that a gateway gave in the server's place
  std::int64_t breaks = 0;   ///< connections so far whose end the server had not announced: it may have died
};

/// One destination. May be used by any one thread at a time.
class LinePoster {
 public:
  LinePoster() = default;
  LinePoster(const LinePoster&) = delete;
  LinePoster& operator=(const LinePoster&) = delete;
  virtual ~LinePoster() = default;

  /// Sends lines of the line protocol, each with its line end, and waits for the answer. Never throws.
  /// @param goOn asked at least every 100 ms; false ends the wait
  [[nodiscard]] virtual PostAnswer Post(std::string_view lines, const std::function<bool()>& goOn) = 0;
  /// The destination for messages, without its query: "http://host:8428/write".
  [[nodiscard]] virtual const std::string& Server() const = 0;
  /// The whole destination, by which a recording's place in it is kept; it holds nothing secret.
  [[nodiscard]] virtual const std::string& Address() const = 0;
};

}  // namespace chartproject
