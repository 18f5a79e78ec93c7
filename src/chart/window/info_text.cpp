// The lines of the information box, in their order.
#include "chart/window/info_text.h"

#include "common/texts/message_table.h"
#include "recording/chart_file.h"

namespace chartproject {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

/// The codes of the events that compare a parameter with a content begin so.
bool IsComparison(std::string_view eventCode) {
  return eventCode.substr(0, 4) == "PXXX";
}

std::string NumberedParameter(const std::string& digits) {
  return digits.empty() ? digits : "P" + digits;
}

}  // namespace

std::string InfoText(const Environment& environment, const std::string& fileName, const ChartHeader& header,
                     const std::vector<std::string>& notices) {
  std::string text;
  const auto add = [&](int label, std::string_view value) {
    text.append(LoadMessage(environment, label)).append(" : ").append(value).append(kLineEnd);
  };
  add(5, fileName);
  text += kLineEnd;
  add(3, header.DriveAddress);
  add(7, header.ScanTime + " " + header.Unit);
  add(6, header.NumberOfPoints);
  add(21, TriggerModeText(environment, header.TriggerMode));
  if (header.TriggerMode == "Event") {
    add(19, EventText(environment, header.Event));
    if (IsComparison(header.Event)) {
      add(44, NumberedParameter(header.PXXX));
      add(45, header.Content);
    }
  }
  add(50, header.StartDate);
  add(56, header.StartTime);
  add(51, header.EndDate);
  add(57, header.EndTime);
  if (!notices.empty()) text += kLineEnd;
  for (const std::string& notice : notices) text.append(notice).append(kLineEnd);
  return text;
}

}  // namespace chartproject
