// Shows forms in native windows and turns their messages and timers on the host's thread.
#pragma once

#include <vector>

#include "backends/headless/virtual_clock.h"
#include "backends/win32/drawing/win32_picture_renderer.h"
#include "backends/win32/handles.h"
#include "backends/win32/widgets/window_classes.h"
#include "backends/win32/win32_keyboard.h"
#include "forms/form_host.h"

namespace chartproject::win32 {

class Win32FormHost : public FormHost {
 public:
  /// @param keyboard the one that runs ask for Esc
  /// @param virtualClock the clock itself when it moves from tick to tick; null for the real one
  Win32FormHost(Clock& clock, const Win32Keyboard& keyboard, VirtualClock* virtualClock);

  [[nodiscard]] std::unique_ptr<FormView> CreateView(Form& form) override;
  void RunModal(Form& form) override;
  [[nodiscard]] Size ScreenSize() const override;
  void KeepAlive() override;
  [[nodiscard]] PictureRenderer* Pictures() noexcept override { return &renderer_; }
  void TimersChanged() override;

  [[nodiscard]] const Win32Keyboard& TheKeyboard() const noexcept { return keyboard_; }
  [[nodiscard]] GdiplusFonts& Fonts() noexcept { return fonts_; }
  /// Closes every form whose loop runs, the upper ones first: the user's session ends, and this process ends as soon as
  /// its windows have the message.
  void EndSession();

 private:
  static LRESULT CALLBACK PumpProcedure(HWND window, UINT message, WPARAM word, LPARAM data) noexcept;
  bool FireDue();
  void Wait();
  bool Dispatch(MSG& message);

  Clock& clock_;
  const Win32Keyboard& keyboard_;
  VirtualClock* virtualClock_;
  WindowClasses classes_;
  GdiplusSession gdiplus_;
  GdiplusFonts fonts_;
  Win32PictureRenderer renderer_{fonts_};
  OwnedWindow pump_;  ///< ticks while a loop of the system's runs: message boxes, menus, a window being dragged
  std::vector<Form*> running_;  ///< forms whose loop runs, the upper ones last
  bool ticking_ = true;         ///< false during KeepAlive, which raises no tick
};

}  // namespace chartproject::win32
