// The layout of one form in dots of its screen: font, sizes of controls, their places, the frames of groups.
#pragma once

#include "backends/win32/forms/form_scroll.h"
#include "backends/win32/forms/form_widgets.h"
#include "forms/layout.h"

namespace chartproject::win32 {

/// Dots of the system's screen to a layout pixel.
[[nodiscard]] double SystemScale();
/// Dots of a window's screen to a layout pixel; screens differ for hosts that say so.
[[nodiscard]] double ScaleOf(HWND window);

class FormLayout : private ControlMeasurer {
 public:
  FormLayout(Form& form, WidgetContext& context, FormWidgets& widgets)
      : form_(form), context_(context), widgets_(widgets) {}

  /// The context gets a scale and the font for it.
  void SetScale(double scale);
  /// Makes gaps small until the least size is within a room, in layout pixels.
  void FitGaps(Size room);
  /// The size in layout pixels below which the form's content would be cut; pictures give up a part of what they like.
  [[nodiscard]] Size LeastSize() const;
  /// The same with pictures in the size that they like: for the first display.
  [[nodiscard]] Size ComfortableSize() const;
  /// Gives every widget its place in the form's window; where the window is too small, the content can be scrolled.
  void Arrange();
  /// WM_HSCROLL or WM_VSCROLL of the window itself.
  void Scroll(int bar, WORD code);
  /// Scrolls until a control shows.
  void Reveal(const Control& control);
  /// Place of a control in the form's window, in dots.
  [[nodiscard]] RECT PlaceOf(const Control& control) const;
  /// Whether a control needs more room than its place has.
  [[nodiscard]] bool Outgrown(const Control& control) const;
  /// WM_PAINT of the form's window: frames and titles of groups.
  void PaintGroups() const;

 private:
  [[nodiscard]] Size PreferredSize(const Control& control) const override;
  [[nodiscard]] double HeightForWidth(const Control& control, double width) const override;
  [[nodiscard]] Insets ContainerInsets(const Control& container) const override;
  [[nodiscard]] double GapShare() const override { return gapShare_; }
  [[nodiscard]] double ShareOf(const Control& control) const;
  [[nodiscard]] double Margin() const;

  Form& form_;
  WidgetContext& context_;
  FormWidgets& widgets_;
  FormScroll scroll_{context_};
  OwnedFont font_;
  double gapShare_ = 1;           ///< what the screen leaves of the layout's gaps
  mutable bool comfort_ = false;  ///< measuring for the first display
};

}  // namespace chartproject::win32
