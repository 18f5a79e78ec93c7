// The table of the chart window's actions, and the menu made of it.
#include "chart/window/actions/chart_actions.h"

#include <algorithm>
#include <utility>

#include "common/environment/language.h"

namespace chartproject {
namespace {

constexpr KeyPress Plain(Key key) {
  return {.key = key};
}

constexpr KeyPress Control(Key key, bool shift = false) {
  return {.key = key, .shift = shift, .control = true};
}

/// A letter or a digit.
constexpr KeyPress Typed(char character) {
  return {.key = Key::kCharacter, .character = character};
}

constexpr KeyPress ControlTyped(char character, bool shift = false) {
  return {.key = Key::kCharacter, .shift = shift, .control = true, .character = character};
}

using enum ChartAction;
constexpr auto kRows = std::to_array<ChartActionRow>({
    {kFit, ActionGroup::kZoom, Text::kActionFit, Typed('F')},
    {kOneToOne, ActionGroup::kZoom, Text::kActionOneToOne, ControlTyped('0')},
    {kZoomIn, ActionGroup::kZoom, Text::kActionZoomIn, Typed('+')},
    {kZoomOut, ActionGroup::kZoom, Text::kActionZoomOut, Typed('-')},
    {kBack, ActionGroup::kZoom, Text::kActionBack, Plain(Key::kBackspace)},
    {kOverview, ActionGroup::kZoom, Text::kActionOverview},
    {kDivisionBack, ActionGroup::kGo, Text::kActionDivisionBack, Plain(Key::kLeft)},
    {kDivisionOn, ActionGroup::kGo, Text::kActionDivisionOn, Plain(Key::kRight)},
    {kPageBack, ActionGroup::kGo, Text::kActionPageBack, Plain(Key::kPageUp)},
    {kPageOn, ActionGroup::kGo, Text::kActionPageOn, Plain(Key::kPageDown)},
    {kFirstPoint, ActionGroup::kGo, Text::kActionFirstPoint, Plain(Key::kHome)},
    {kLastPoint, ActionGroup::kGo, Text::kActionLastPoint, Plain(Key::kEnd)},
    {kGoTo, ActionGroup::kGo, Text::kActionGoTo, ControlTyped('G')},
    {kFind, ActionGroup::kGo, Text::kActionFind, ControlTyped('F')},
    {kFindNext, ActionGroup::kGo, Text::kActionFindNext, Typed('N')},
    {kFindPrevious,
     ActionGroup::kGo,
     Text::kActionFindPrevious,
     {.key = Key::kCharacter, .shift = true, .character = 'N'}},
    {kGrid, ActionGroup::kLook, Text::kGrid},
    {kLines, ActionGroup::kLook, Text::kLine},
    {kMarkers, ActionGroup::kLook, Text::kMarker},
    {kAxisPoints, ActionGroup::kLook, Text::kActionAxisPoints, Typed('P')},
    {kAxisElapsed, ActionGroup::kLook, Text::kActionAxisElapsed, Typed('E')},
    {kAxisTime, ActionGroup::kLook, Text::kActionAxisTime, Typed('T')},
    {kLanes, ActionGroup::kLook, Text::kActionLanes, Typed('L')},
    {kValuesIn, ActionGroup::kLook, Text::kActionValuesIn, Typed('I')},
    {kValuesOut, ActionGroup::kLook, Text::kActionValuesOut, Typed('O')},
    {kFixRange, ActionGroup::kLook, Text::kActionFixRange, Typed('K')},
    {kAutomaticRange, ActionGroup::kLook, Text::kActionAutomaticRange, Typed('A')},
    {kSeries1, ActionGroup::kLook, Text::kActionSeries1, Typed('1')},
    {kSeries2, ActionGroup::kLook, Text::kActionSeries2, Typed('2')},
    {kSeries3, ActionGroup::kLook, Text::kActionSeries3, Typed('3')},
    {kSeries4, ActionGroup::kLook, Text::kActionSeries4, Typed('4')},
    {kFirstCursorBack, ActionGroup::kMeasure, Text::kActionFirstCursorBack, Control(Key::kLeft)},
    {kFirstCursorOn, ActionGroup::kMeasure, Text::kActionFirstCursorOn, Control(Key::kRight)},
    {kSecondCursorBack, ActionGroup::kMeasure, Text::kActionSecondCursorBack, Control(Key::kLeft, true)},
    {kSecondCursorOn, ActionGroup::kMeasure, Text::kActionSecondCursorOn, Control(Key::kRight, true)},
    {kStatistics, ActionGroup::kMeasure, Text::kActionStatistics, Typed('S')},
    {kCopyNumbers, ActionGroup::kMeasure, Text::kActionCopyNumbers, ControlTyped('C')},
    {kRemoveCursors, ActionGroup::kMeasure, Text::kActionRemoveCursors, Plain(Key::kEscape)},
    {kCopyPicture, ActionGroup::kOutput, Text::kActionCopyPicture, ControlTyped('C', true)},
    {kSavePicture, ActionGroup::kOutput, Text::kActionSavePicture, ControlTyped('S')},
    {kExport, ActionGroup::kOutput, Text::kExport},
    {kPrint, ActionGroup::kOutput, Text::kPrint},
    {kPrintReport, ActionGroup::kOutput, Text::kActionPrintReport, ControlTyped('P')},
});

constexpr bool InOrder() {
  for (std::size_t i = 0; i < kRows.size(); ++i) {
    if (static_cast<std::size_t>(kRows[i].action) != i) return false;
  }
  return kRows.size() == kChartActionCount;
}
static_assert(InOrder(), "every action has its row, in the order of the enumeration");

/// Groups that open from one entry; the actions of the others are in the menu itself.
constexpr std::array<std::pair<ActionGroup, Text>, 3> kTitles{{{ActionGroup::kGo, Text::kMenuGo},
                                                               {ActionGroup::kLook, Text::kMenuLook},
                                                               {ActionGroup::kMeasure, Text::kMenuMeasure}}};

constexpr std::array<std::pair<Key, Text>, 8> kKeyNames{{{Key::kLeft, Text::kKeyLeft},
                                                         {Key::kRight, Text::kKeyRight},
                                                         {Key::kPageUp, Text::kKeyPageUp},
                                                         {Key::kPageDown, Text::kKeyPageDown},
                                                         {Key::kHome, Text::kKeyHome},
                                                         {Key::kEnd, Text::kKeyEnd},
                                                         {Key::kBackspace, Text::kKeyBackspace},
                                                         {Key::kSpace, Text::kKeySpace}}};

}  // namespace

std::span<const ChartActionRow> ChartActionRows() noexcept {
  return kRows;
}

std::string KeyName(const Environment& environment, const KeyPress& key) {
  if (key.key == Key::kNone) return {};
  std::string name = key.control ? "Ctrl+" : "";
  if (key.shift) name += LoadMessage(environment, Text::kKeyShift) + "+";
  if (key.key == Key::kCharacter) return name + key.character;
  if (key.key == Key::kEscape) return name + "Esc";
  return name + LoadMessage(environment, std::ranges::find(kKeyNames, key.key, &std::pair<Key, Text>::first)->second);
}

const ChartActionRow* ChartActions::Find(const KeyPress& key) const {
  const auto row = std::ranges::find_if(
      kRows, [&](const ChartActionRow& each) { return each.key == key && Body(each.action).run != nullptr; });
  return key.key == Key::kNone || row == kRows.end() ? nullptr : &*row;
}

bool ChartActions::Press(const KeyPress& key) const {
  KeyPress meant = key;
  const ChartActionRow* row = Find(meant);
  if (row == nullptr && key.shift) {
    meant.shift = false;
    row = Find(meant);
  }
  if (row == nullptr) return false;
  const ActionBody& body = Body(row->action);
  if (body.enabled && !body.enabled()) return false;
  body.run();
  return true;
}

void ChartActions::Choose(int action) const {
  const ActionBody& body = bodies_.at(static_cast<std::size_t>(action) - 1);
  if (body.run && (!body.enabled || body.enabled())) body.run();
}

std::vector<MenuItem> ChartActions::Menu(const Environment& environment) const {
  std::vector<MenuItem> menu;
  const ChartActionRow* before = nullptr;
  std::size_t opened = 0;  // place of the group's own menu
  for (const ChartActionRow& row : kRows) {
    const ActionBody& body = Body(row.action);
    if (!body.run) continue;
    const auto* const title = std::ranges::find(kTitles, row.group, &std::pair<ActionGroup, Text>::first);
    const bool own = title != kTitles.end();
    if (before == nullptr || before->group != row.group) {
      const bool menuAfterMenu = own && !menu.empty() && !menu.back().items.empty();
      if (before != nullptr && !menuAfterMenu) menu.emplace_back();
      opened = menu.size();
      if (own) menu.push_back({.text = LoadMessage(environment, title->second)});
    }
    before = &row;
    std::vector<MenuItem>& items = own ? menu[opened].items : menu;
    items.push_back({.text = LoadMessage(environment, row.text),
                     .key = KeyName(environment, row.key),
                     .id = static_cast<int>(row.action) + 1,
                     .enabled = !body.enabled || body.enabled(),
                     .checked = body.checked && body.checked()});
  }
  return menu;
}

}  // namespace chartproject
