// A form's window: its widgets, its layout, its place, its keys.
#pragma once

#include <map>
#include <memory>
#include <vector>

#include "backends/win32/forms/widget.h"
#include "forms/controls.h"
#include "forms/form_host.h"

namespace chartproject::win32 {

class Win32FormHost;

/// Dots of the screen to a layout pixel.
[[nodiscard]] double SystemScale();

/// The form that a window is, or that owns it; null when there is none.
[[nodiscard]] HWND FormBelow(HWND window) noexcept;

/// The window that a new box or form belongs to: this thread's active one; while the user works in another program, the
/// form that takes input, so that they come to the front together. Null when there is neither.
[[nodiscard]] HWND WindowToOwn() noexcept;

class Win32FormView : public FormView, private ControlMeasurer {
 public:
  /// Throws RunTimeError when the window or one of a control cannot be made.
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
  static bool Translate(MSG& message) noexcept;
  /// Takes the window classes back, which would call into this module after it is unloaded. Those that still have
  /// windows stay until the next call.
  static void UnregisterClasses() noexcept;

 private:
  struct Unmade {};
  Win32FormView(Form& form, Win32FormHost& host, Unmade unmade);
  static LRESULT CALLBACK FormProcedure(HWND window, UINT message, WPARAM word, LPARAM data) noexcept;
  static LRESULT CALLBACK ControlProcedure(HWND window, UINT message, WPARAM word, LPARAM data, UINT_PTR id,
                                           DWORD_PTR widget) noexcept;
  LRESULT Message(UINT message, WPARAM word, LPARAM data);
  LRESULT WindowMessage(UINT message, WPARAM word, LPARAM data);
  bool ControlMessage(Widget& widget, UINT message, WPARAM word, LPARAM data, LRESULT& result);
  [[nodiscard]] Widget* WidgetOf(HWND window) const;
  [[nodiscard]] Widget* WidgetOf(const Control& control) const;
  void MakeWindow();
  void MakeWidgets();
  void LimitToolTips();

  // Keys, wheel and focus (win32_form_keys.cpp).
  bool Taken(MSG& message);
  bool KeyDown(const MSG& message);
  bool EnterPressed(HWND focus);
  bool EscapePressed();
  bool PressButtonWith(bool (CommandButton::*role)() const noexcept);
  bool AccessKeyPressed(const MSG& message);
  bool StepArrowsOf(HWND field, int direction);
  bool WheelTurned(const MSG& message);
  [[nodiscard]] UpDown* ArrowsOf(const Widget& field) const;
  [[nodiscard]] LRESULT DefaultButtonId() const;
  void DeliverFocusLeave();
  void FocusChanged(Widget& widget, UINT message, HWND other);
  void PutFocusBack();
  void FocusOn(const Widget& widget);
  [[nodiscard]] Widget* FieldNamedBy(const Control& label) const;
  bool TabPressed();
  void ShowDefaultButton();

  // Input.
  void CommandFrom(Widget& widget, WORD code);
  bool ShowCursor(Widget* under);
  [[nodiscard]] HCURSOR ButtonCursor();
  void SetToolTip(Widget& widget);

  // Layout and place (win32_form_place.cpp).
  void MakeFont();
  void ApplyAll();
  void ShowCaptions(const Control* only = nullptr);
  void ShowIcon();
  void PaintGroups();
  void ArrangeControls();
  void GrowToLayout();
  void ApplyPlace();
  void PlaceChanged();
  [[nodiscard]] SIZE LeastSize() const;
  [[nodiscard]] SIZE WantedSize() const;
  [[nodiscard]] LONG DotsOfTwips(double twips) const;
  void DpiChanged(WPARAM word, const RECT& suggested);
  [[nodiscard]] RECT PlaceOf(const Control& control) const;
  [[nodiscard]] SIZE WindowSizeFor(Size client) const;
  [[nodiscard]] int Dots(double pixels) const;
  [[nodiscard]] Size PreferredSize(const Control& control) const override;
  [[nodiscard]] double HeightForWidth(const Control& control, double width) const override;
  [[nodiscard]] Insets ContainerInsets(const Control& container) const override;

  LRESULT WindowGone();
  void DisableOthers();
  void EnableOthers();

  Form& form_;
  Win32FormHost& host_;
  WidgetContext context_;
  OwnedFont font_;
  OwnedIcon icon_;
  OwnedIcon smallIcon_;
  OwnedCursor buttonCursor_;
  std::string buttonCursorFile_;  ///< where it came from, or should have
  HWND window_ = nullptr;
  HWND toolTips_ = nullptr;
  std::map<const Control*, std::unique_ptr<Widget>> widgets_;
  std::map<HWND, Widget*> byWindow_;
  std::vector<HWND> disabled_;   ///< windows of the thread that this modal form disabled
  HWND activeBefore_ = nullptr;  ///< window that was active when this one was shown
  HWND lastFocus_ = nullptr;
  Control* leaving_ = nullptr;  ///< lost the focus, and was not told yet
  int wheelRest_ = 0;           ///< turn of the wheel that makes no whole notch yet
  bool shownOnce_ = false;      ///< from then on the size is the user's
  bool placing_ = false;        ///< the window is being placed by us, not by the user
};

}  // namespace chartproject::win32
