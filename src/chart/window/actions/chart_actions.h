// What the chart window can do: one table of actions, each reached by its key and by the chart's menu.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "common/environment/environment.h"
#include "forms/input.h"
#include "texts/text.h"

namespace chartproject {

/// In the order of the menu.
enum class ChartAction : std::uint8_t {
  kFit,
  kOneToOne,
  kZoomIn,
  kZoomOut,
  kBack,
  kOverview,
  kDivisionBack,
  kDivisionOn,
  kPageBack,
  kPageOn,
  kFirstPoint,
  kLastPoint,
  kGoTo,
  kFind,
  kFindNext,
  kFindPrevious,
  kGrid,
  kLines,
  kMarkers,
  kAxisPoints,
  kAxisElapsed,
  kAxisTime,
  kLanes,
  kValuesIn,
  kValuesOut,
  kFixRange,
  kAutomaticRange,
  kSeries1,
  kSeries2,
  kSeries3,
  kSeries4,
  kFirstCursorBack,
  kFirstCursorOn,
  kSecondCursorBack,
  kSecondCursorOn,
  kStatistics,
  kCopyNumbers,
  kRemoveCursors,
  kCopyPicture,
  kSavePicture,
  kExport,
  kPrint,
  kPrintReport,
};
inline constexpr std::size_t kChartActionCount = static_cast<std::size_t>(ChartAction::kPrintReport) + 1;

/// Actions between two separators of the menu. A group with a title is a menu of its own.
enum class ActionGroup : std::uint8_t { kZoom, kGo, kLook, kMeasure, kOutput };

struct ChartActionRow {
  ChartAction action;
  ActionGroup group;
  Text text;
  KeyPress key{};  ///< Key::kNone: by the menu only
};

/// All the actions, in the order of the enumeration.
[[nodiscard]] std::span<const ChartActionRow> ChartActionRows() noexcept;

/// "Ctrl+G"; empty for no key.
[[nodiscard]] std::string KeyName(const Environment& environment, const KeyPress& key);

/// What an action does in a window.
struct ActionBody {
  std::function<void()> run;
  std::function<bool()> enabled{};  ///< empty: always
  std::function<bool()> checked{};  ///< empty: nothing that is on or off
};

/// The actions of one window. One without a body is not offered.
class ChartActions {
 public:
  void Set(ChartAction action, ActionBody body) { bodies_.at(static_cast<std::size_t>(action)) = std::move(body); }

  /// Runs the action of a key. With Shift, a key that has no action of its own with it does what it does without.
  /// False for a key without an action, and for one whose action is not enabled.
  bool Press(const KeyPress& key) const;
  /// Runs an action that is enabled. @param action its number, as an item of the menu has it: from 1
  void Choose(int action) const;
  [[nodiscard]] std::vector<MenuItem> Menu(const Environment& environment) const;

 private:
  [[nodiscard]] const ActionBody& Body(ChartAction action) const { return bodies_[static_cast<std::size_t>(action)]; }
  [[nodiscard]] const ChartActionRow* Find(const KeyPress& key) const;

  std::array<ActionBody, kChartActionCount> bodies_;
};

}  // namespace chartproject
