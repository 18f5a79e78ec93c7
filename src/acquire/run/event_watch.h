// The test that an armed recording asks of its drive at every tick: has the chosen event occurred?
#pragma once

#include <cstdint>
#include <string>

#include "drive/drive_context.h"
#include "recording/file/trigger_events.h"

namespace chartproject {

/// Results of a test; any other number means "not yet" too.
namespace watch_code {
inline constexpr std::int16_t kOccurred = 0;
inline constexpr std::int16_t kNotYet = 1;
inline constexpr std::int16_t kNoAnswer = 2;  ///< the drive could not be read
inline constexpr std::int16_t kInputNotYet = -1;
}  // namespace watch_code

/// What is watched.
struct WatchedEvent {
  TriggerEvent event = TriggerEvent::kNone;  ///< which never occurs
  std::int16_t parameter = 0;                ///< of the comparison events
  double content = 0;                        ///< likewise
};

/// What a test found.
struct EventTest {
  std::int16_t code = watch_code::kNotYet;
  std::string reading;  ///< what the drive shows at present, for the user; empty when it did not answer
};

/// Tests the event at the context's current drive. Throws RunTimeError when the link object itself fails.
[[nodiscard]] EventTest TestEvent(DriveContext& context, const WatchedEvent& event);

/// The event in the user's words: its text, or for example "P005 >= 50".
[[nodiscard]] std::string EventWords(const Environment& environment, const WatchedEvent& event);

}  // namespace chartproject
