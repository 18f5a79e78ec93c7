// Scroll bars of a form whose content is larger than its window can be on a small screen.
#pragma once

#include "backends/win32/widgets/widget.h"

namespace chartproject::win32 {

class FormScroll {
 public:
  explicit FormScroll(const WidgetContext& context) : context_(context) {}

  /// Shows a bar in each direction in which the window has less room than the content needs.
  /// @return size of the content in dots: the window's room, or the least size where that is larger
  SIZE Fit(SIZE least);
  /// How far the content is scrolled, in dots.
  [[nodiscard]] POINT Offset() const;
  /// WM_HSCROLL or WM_VSCROLL of the window itself. @return true when the content moved
  bool Scroll(int bar, WORD code);
  /// Scrolls until a place of the window shows. @return true when the content moved
  bool Reveal(const RECT& place);

 private:
  bool MoveTo(int bar, int position);

  const WidgetContext& context_;
};

}  // namespace chartproject::win32
