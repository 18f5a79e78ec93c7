// A form's window: its widgets, its layout, its place, its keys.
#pragma once

#include <map>
#include <memory>
#include <vector>

#include "forms/form_host.h"
#include "platform/win32/widget.h"

namespace chartproject::win32 {

class Win32FormHost;

/// Dots of the screen to a layout pixel.
[[nodiscard]] double SystemScale();

class Win32FormView : public FormView, private ControlMeasurer {
 public:
  Win32FormView(Form& form, Win32FormHost& host);
  ~Win32FormView() override;
  Win32FormView(const Win32FormView&) = delete;
  Win32FormView& operator=(const Win32FormView&) = delete;

  void ControlChanged(Control& control, Property property) override;
  void FormChanged(FormProperty property) override;
  void MoveFocus(Control& control) override;
  void Show() override;
  void Hide() override;

  /// Keys of forms (Enter, Esc, F1, Tab, access keys) and the wheel, before a message reaches its window.
  /// True when that is settled.
  static bool Translate(MSG& message);

 private:
  static LRESULT CALLBACK FormProcedure(HWND window, UINT message, WPARAM word, LPARAM data) noexcept;
  static LRESULT CALLBACK ControlProcedure(HWND window, UINT message, WPARAM word, LPARAM data, UINT_PTR id,
                                           DWORD_PTR widget) noexcept;
  LRESULT Message(UINT message, WPARAM word, LPARAM data);
  bool ControlMessage(Widget& widget, UINT message, WPARAM word, LPARAM data, LRESULT& result);
  [[nodiscard]] Widget* WidgetOf(HWND window) const;
  [[nodiscard]] Widget* WidgetOf(const Control& control) const;

  // Input.
  bool KeyDown(const MSG& message);
  bool EnterPressed(HWND focus);
  bool EscapePressed();
  bool ShowCursor(Widget* under) const;
  void SetToolTip(Widget& widget);

  // Layout and place (win32_form_place.cpp).
  void MakeFont();
  void ApplyAll();
  void ArrangeControls();
  void GrowToLayout();
  void ApplyPlace();
  void PlaceChanged();
  void SetMinimumTrack(MINMAXINFO& limits) const;
  void DpiChanged(WPARAM word, const RECT& suggested);
  [[nodiscard]] RECT PlaceOf(const Control& control) const;
  [[nodiscard]] SIZE WindowSizeFor(Size client) const;
  [[nodiscard]] int Dots(double pixels) const;
  [[nodiscard]] Size PreferredSize(const Control& control) const override;
  [[nodiscard]] double HeightForWidth(const Control& control, double width) const override;
  [[nodiscard]] Insets ContainerInsets(const Control& container) const override;

  void DisableOthers();
  void EnableOthers();

  Form& form_;
  Win32FormHost& host_;
  WidgetContext context_;
  OwnedFont font_;
  OwnedIcon icon_;
  HCURSOR buttonCursor_ = nullptr;
  HWND window_ = nullptr;
  HWND toolTips_ = nullptr;
  std::map<const Control*, std::unique_ptr<Widget>> widgets_;
  std::map<HWND, Widget*> byWindow_;
  std::vector<HWND> disabled_;  ///< windows of the thread that this modal form disabled
  HWND lastFocus_ = nullptr;
  bool placing_ = false;  ///< the window is being placed by us, not by the user
};

}  // namespace chartproject::win32
