// The table of events, in the order of the dialog's list.
#include "recording/trigger_events.h"

#include <algorithm>
#include <array>

namespace chartproject {

namespace {

struct TriggerEvent {
  int message;
  std::string_view code;
};

constexpr std::array<TriggerEvent, kEventCount> kEvents{{
    {18, "RUN"},          {61, "READY"},        {62, "SUB"},           {22, "P012-DI1=0"},    {23, "P012-DI1=1"},
    {24, "P012-DI2=0"},   {25, "P012-DI2=1"},   {26, "P012-DI3=0"},    {27, "P012-DI3=1"},    {28, "P012-DI4=0"},
    {29, "P012-DI4=1"},   {30, "P012-DI5=0"},   {31, "P012-DI5=1"},    {32, "P012-DI6=0"},    {33, "P012-DI6=1"},
    {34, "P012-DI7=0"},   {35, "P012-DI7=1"},   {36, "P012-DI8=0"},    {37, "P012-DI8=1"},    {38, "PXXX>Content"},
    {39, "PXXX<Content"}, {40, "PXXX=Content"}, {41, "PXXX>=Content"}, {42, "PXXX<=Content"},
}};

constexpr std::string_view kInputModel = "KRA-09";
constexpr std::array<std::string_view, 5> kStateModels{"KRA-05", "KRA-07", "KRA-08", "KRA-09", "LMX-01"};

}  // namespace

int EventMessage(int position) {
  return kEvents.at(static_cast<std::size_t>(position)).message;
}

std::string_view EventCode(int position) noexcept {
  return position >= 0 && position < kEventCount ? kEvents[static_cast<std::size_t>(position)].code
                                                 : std::string_view();
}

int EventPosition(std::string_view code) noexcept {
  const auto found = std::ranges::find(kEvents, code, &TriggerEvent::code);
  return found == kEvents.end() ? -1 : static_cast<int>(found - kEvents.begin());
}

bool EventAvailable(int position, std::string_view model) noexcept {
  if (position < 0 || position >= kFirstCompareEvent) return true;
  if (position >= kFirstInputEvent) return model == kInputModel;
  return std::ranges::find(kStateModels, model) != kStateModels.end();
}

}  // namespace chartproject
