// The lines of the information box, in their order.
#include "chart/view/info_text.h"

#include "common/environment/language.h"
#include "common/values/text.h"
#include "recording/file/chart_file.h"

namespace chartproject {
namespace {

/// The codes of the events that compare a parameter with a content begin so.
bool IsComparison(std::string_view eventCode) {
  return eventCode.substr(0, 4) == "PXXX";
}

std::string NumberedParameter(const std::string& digits) {
  return digits.empty() ? digits : "P" + digits;
}

}  // namespace

std::vector<std::pair<Text, std::string>> TriggerItems(const Environment& environment, const ChartHeader& header) {
  std::vector<std::pair<Text, std::string>> items{
      {Text::kTriggerMode, TriggerModeText(environment, header.TriggerMode)}};
  if (header.TriggerMode != "Event") return items;
  items.emplace_back(Text::kEvent, EventText(environment, header.Event));
  if (IsComparison(header.Event)) {
    items.emplace_back(Text::kParameter, NumberedParameter(header.PXXX));
    items.emplace_back(Text::kContent, header.Content);
  }
  return items;
}

std::string InfoText(const Environment& environment, const std::string& fileName, const ChartHeader& header,
                     const std::vector<std::string>& notices) {
  std::string text;
  const auto add = [&](Text label, std::string_view value) {
    text.append(LoadMessage(environment, label)).append(" : ").append(value).append(kLineEnd);
  };
  add(Text::kFileName, fileName);
  text += kLineEnd;
  add(Text::kDriveAddress, header.DriveAddress);
  add(Text::kTimeAmongPoints, header.ScanTime + " " + header.Unit);
  add(Text::kNumberOfPoints, header.NumberOfPoints);
  for (const auto& [label, value] : TriggerItems(environment, header)) add(label, value);
  add(Text::kStartDate, header.StartDate);
  add(Text::kStartTime, header.StartTime);
  add(Text::kEndDate, header.EndDate);
  add(Text::kEndTime, header.EndTime);
  if (!notices.empty()) text += kLineEnd;
  for (const std::string& notice : notices) text.append(notice).append(kLineEnd);
  return text;
}

}  // namespace chartproject
