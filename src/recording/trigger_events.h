// The 24 events that can start a recording: their texts, their codes in chart files, and the drives that offer them.
#pragma once

#include <string_view>

#include "texts/text.h"

namespace chartproject {

/// Events in the order of the dialog's list; the position stands for the event everywhere.
inline constexpr int kEventCount = 24;
inline constexpr int kFirstInputEvent = 3;     ///< positions 3 to 18 watch a digital input in P012
inline constexpr int kFirstCompareEvent = 19;  ///< positions 19 to 23 compare a parameter with a content
inline constexpr int kDefaultEvent = 21;       ///< "<PXXX> = Content"

/// Trigger modes in the order of the dialog's list.
inline constexpr int kTriggerByEvent = 0;
inline constexpr int kTriggerManual = 1;

/// Number of the message that names the event. @param position 0 to 23
[[nodiscard]] Text EventMessage(int position);

/// The event's code in a chart file, for example "P012-DI3=1"; empty for a position outside 0 to 23.
[[nodiscard]] std::string_view EventCode(int position) noexcept;
/// The position of a code, compared exactly; -1 for any other text.
[[nodiscard]] int EventPosition(std::string_view code) noexcept;

/// True for positions 19 to 23.
[[nodiscard]] constexpr bool IsCompareEvent(int position) noexcept {
  return position >= kFirstCompareEvent && position < kEventCount;
}

/// True when a drive model offers the event; position -1 (no event) asks nothing of a drive and is true.
[[nodiscard]] bool EventAvailable(int position, std::string_view model) noexcept;

}  // namespace chartproject
