// What became of a reading over the drive link, and why it failed.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "texts/language.h"

namespace chartproject {

/// Why a reading gave no value. The numbers are also the statuses of the scenario link.
enum class ReadFailure : std::uint8_t {
  kNone = 0,   ///< it gave a value
  kNoAnswer,   ///< the drive was silent
  kTimeout,    ///< an answer began and was not complete in time
  kChecksum,   ///< the answer arrived damaged
  kException,  ///< the drive refused the request; detail: its reason
  kPortGone,   ///< the line itself failed, for example an adapter that was unplugged; detail: the system's reason
  kStatus,     ///< another status of the link; detail: its number
  kBroken,     ///< the link object failed with an error; detail: its description
  kGivenUp,    ///< LinkWait::GoOn answered false; never shown to users
};

/// The result of one reading.
struct ReadOutcome {
  ReadFailure failure = ReadFailure::kNone;
  std::string detail;  ///< what the link adds, UTF-8, any bytes from outside; may be empty

  [[nodiscard]] bool Answered() const noexcept { return failure == ReadFailure::kNone; }
  friend bool operator==(const ReadOutcome&, const ReadOutcome&) = default;
};

/// The outcome that a status of the program's own links means: 0 for a value, the numbers of ReadFailure up to
/// kPortGone, and others as they are. @param detail of a failure
[[nodiscard]] ReadOutcome OutcomeOfStatus(std::int16_t status, std::string_view detail = {});
/// The status of an outcome; one that failed without a status of its own is kNoAnswer's.
[[nodiscard]] std::int16_t StatusOfOutcome(const ReadOutcome& outcome);

/// A failure in the user's words: "no answer", "exception (illegal address)", "status 7". Empty for kNone.
[[nodiscard]] std::string FailureText(Language language, const ReadOutcome& outcome);

}  // namespace chartproject
