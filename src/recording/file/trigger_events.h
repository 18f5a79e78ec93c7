// The 24 events that can start a recording: their texts, their codes in chart files, and the drives that offer them.
#pragma once

#include <string_view>

#include "texts/text.h"

namespace chartproject {

/// How a recording starts, in the order of the dialog's list.
enum class TriggerMode { kEvent, kManual };

/// The mode's code in a chart file: "Event" or "Manual".
[[nodiscard]] std::string_view TriggerModeCode(TriggerMode mode) noexcept;

/// The events, numbered by their position in the dialog's list. Those from kFirstInput to kLastInput watch the digital
/// inputs 1 to 8 in P012, each for level 0 and then for level 1.
enum class TriggerEvent {
  kNone = -1,
  kRun = 0,
  kReady,
  kUndervoltage,
  kFirstInput = 3,
  kLastInput = 18,
  kGreater = 19,  ///< this and the following compare a parameter with a content
  kLess,
  kEqual,
  kGreaterOrEqual,
  kLessOrEqual,
};

inline constexpr int kEventCount = 24;
inline constexpr TriggerEvent kDefaultEvent = TriggerEvent::kEqual;

/// The event at a position of the dialog's list; kNone for a position outside 0 to 23.
[[nodiscard]] constexpr TriggerEvent EventAt(int position) noexcept {
  return position >= 0 && position < kEventCount ? static_cast<TriggerEvent>(position) : TriggerEvent::kNone;
}
[[nodiscard]] constexpr int PositionOf(TriggerEvent event) noexcept {
  return static_cast<int>(event);
}

/// The text that names an event. @param event not kNone
[[nodiscard]] Text EventName(TriggerEvent event);

/// The event's code in a chart file, for example "P012-DI3=1"; empty for kNone.
[[nodiscard]] std::string_view EventCode(TriggerEvent event) noexcept;
/// The event of a code, compared exactly; kNone for any other text.
[[nodiscard]] TriggerEvent EventOfCode(std::string_view code) noexcept;

[[nodiscard]] constexpr bool IsCompareEvent(TriggerEvent event) noexcept {
  return event >= TriggerEvent::kGreater;
}

/// True when a drive model offers the event; kNone asks nothing of a drive and is true.
[[nodiscard]] bool EventAvailable(TriggerEvent event, std::string_view model) noexcept;

}  // namespace chartproject
