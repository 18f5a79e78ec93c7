// The chart window from its opening to the printed page.
#include "chart/window/show_chart.h"

#include "chart/output/chart_page.h"
#include "chart/window/chart_form.h"
#include "chart/window/status_form.h"
#include "common/environment/language.h"
#include "common/error_log.h"
#include "common/message_box.h"
#include "forms/form_host.h"

namespace chartproject {
namespace {

/// Dots of the copied picture to the screen's one: paper shows more than a screen does.
constexpr double kPictureScale = 2.0;

/// Unloads the window on every exit, so that its settings are kept.
class UnloadScope {
 public:
  explicit UnloadScope(ChartForm& form) : form_(form) {}
  ~UnloadScope() { form_.Unload(); }
  UnloadScope(const UnloadScope&) = delete;
  UnloadScope& operator=(const UnloadScope&) = delete;

 private:
  ChartForm& form_;
};

Bitmap PictureOnClipboard(Component& component) {
  auto picture = component.ports.clipboard.Picture();
  if (!picture) throw RunTimeError(error_number::kInvalidPicture, Text::kClipboardWithoutPicture);
  return std::move(*picture);
}

void PrintFromClipboard(Component& component, ChartForm& window) {
  component.ports.clipboard.Clear();
  PictureRenderer* renderer = component.forms.Pictures();
  if (renderer == nullptr) throw RunTimeError(error_number::kInvalidPicture, Text::kPicturesNotDrawn);
  component.ports.clipboard.SetPicture(window.mscChart1.CopyPicture(*renderer, kPictureScale));
  Bitmap picture = PictureOnClipboard(component);
  const std::int16_t answer =
      ShowMessage(component, LoadMessage(component, Text::kPrintQuestion), box_style::kYesNo + box_style::kQuestion);
  if (answer != box_answer::kYes) return;
  picture = PictureOnClipboard(component);
  ChartPage page = window.DescribePage();
  page.picture = std::move(picture);
  StatusForm status(component);
  page.showStatus = [&status](const std::string& text) { status.ShowText(text); };
  PrintChartPage(component, page);
}

using Opening = bool (ChartForm::*)(const std::string& strFileName);

bool ShowWindow(Component& component, const std::string& strFileName, Opening open) {
  bool shown = false;
  try {
    ChartForm window(component);
    window.Load();
    const UnloadScope unload(window);
    if (!(window.*open)(strFileName)) return false;
    window.ApplySavedSwitches();
    window.ShowModal();
    shown = true;
    if (window.PrintRequested()) PrintFromClipboard(component, window);
  } catch (const std::exception& error) {
    LogRunTimeError(component, "ShowChart", AsRunTimeError(error));
  }
  return shown;
}

}  // namespace

bool ShowChart(Component& component, const std::string& strFileName) {
  return ShowWindow(component, strFileName, &ChartForm::OpenFile);
}

bool ShowFollowing(Component& component, const std::string& strFileName) {
  return ShowWindow(component, strFileName, &ChartForm::OpenFollowing);
}

}  // namespace chartproject
