// The table of events, in the order of the dialog's list.
#include "recording/file/trigger_events.h"

#include <algorithm>
#include <array>

namespace chartproject {

namespace {

struct EventRow {
  Text name;
  std::string_view code;
};

constexpr std::array<EventRow, kEventCount> kEvents{{
    {Text::kEventRun, "RUN"},
    {Text::kEventReady, "READY"},
    {Text::kEventUndervoltage, "SUB"},
    {Text::kEventDI1Off, "P012-DI1=0"},
    {Text::kEventDI1On, "P012-DI1=1"},
    {Text::kEventDI2Off, "P012-DI2=0"},
    {Text::kEventDI2On, "P012-DI2=1"},
    {Text::kEventDI3Off, "P012-DI3=0"},
    {Text::kEventDI3On, "P012-DI3=1"},
    {Text::kEventDI4Off, "P012-DI4=0"},
    {Text::kEventDI4On, "P012-DI4=1"},
    {Text::kEventDI5Off, "P012-DI5=0"},
    {Text::kEventDI5On, "P012-DI5=1"},
    {Text::kEventDI6Off, "P012-DI6=0"},
    {Text::kEventDI6On, "P012-DI6=1"},
    {Text::kEventDI7Off, "P012-DI7=0"},
    {Text::kEventDI7On, "P012-DI7=1"},
    {Text::kEventDI8Off, "P012-DI8=0"},
    {Text::kEventDI8On, "P012-DI8=1"},
    {Text::kEventGreater, "PXXX>Content"},
    {Text::kEventLess, "PXXX<Content"},
    {Text::kEventEqual, "PXXX=Content"},
    {Text::kEventGreaterOrEqual, "PXXX>=Content"},
    {Text::kEventLessOrEqual, "PXXX<=Content"},
}};

constexpr std::string_view kInputModel = "KRA-09";
constexpr std::array<std::string_view, 5> kStateModels{"KRA-05", "KRA-07", "KRA-08", "KRA-09", "LMX-01"};

}  // namespace

std::string_view TriggerModeCode(TriggerMode mode) noexcept {
  switch (mode) {
    case TriggerMode::kEvent:
      return "Event";
    case TriggerMode::kManual:
      return "Manual";
  }
  return {};
}

Text EventName(TriggerEvent event) {
  return kEvents.at(static_cast<std::size_t>(PositionOf(event))).name;
}

std::string_view EventCode(TriggerEvent event) noexcept {
  if (event == TriggerEvent::kNone) return {};
  return kEvents[static_cast<std::size_t>(PositionOf(event))].code;
}

TriggerEvent EventOfCode(std::string_view code) noexcept {
  const auto found = std::ranges::find(kEvents, code, &EventRow::code);
  return found == kEvents.end() ? TriggerEvent::kNone : EventAt(static_cast<int>(found - kEvents.begin()));
}

bool EventAvailable(TriggerEvent event, std::string_view model) noexcept {
  if (event == TriggerEvent::kNone || IsCompareEvent(event)) return true;
  if (event >= TriggerEvent::kFirstInput) return model == kInputModel;
  return std::ranges::find(kStateModels, model) != kStateModels.end();
}

}  // namespace chartproject
