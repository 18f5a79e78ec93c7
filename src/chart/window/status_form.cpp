// One label in the middle of the screen.
#include "chart/window/status_form.h"

#include "common/error_log.h"
#include "forms/form_host.h"

namespace chartproject {

namespace {

constexpr double kWidth = 260;  // pixels: room for the caption beside the window's buttons

}  // namespace

StatusForm::StatusForm(Environment& environment)
    : Form(environment.forms, "frmStatus", MakeHandlerErrorReporter(environment)) {
  SetCaption(kHostTitle);
  lblStatus.SetBorderStyle(0);
  SetLayout(AtLeast(Row({Space(), Cell(lblStatus), Space()}), kWidth));
}

void StatusForm::ShowText(const std::string& text) {
  if (text.empty()) {
    SetPointer(MousePointer::kDefault);
    Unload();
    return;
  }
  lblStatus.SetCaption(text);
  Load();
  LayoutChanged();  // the width follows from the text
  const Size screen = Host().ScreenSize();
  SetLeft((screen.width - Width()) / 2);
  SetTop((screen.height - Height()) / 2);
  SetPointer(MousePointer::kHourglass);
  ShowStatus();
}

}  // namespace chartproject
