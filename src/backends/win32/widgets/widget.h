// One native window per control: shows its properties and passes user input to its setters. It has no form's rules.
#pragma once

#include <cmath>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>

#include "backends/win32/drawing/gdiplus_canvas.h"
#include "backends/win32/handles.h"
#include "forms/controls.h"

namespace chartproject::win32 {

/// What the widgets of a form share.
struct WidgetContext {
  HWND formWindow = nullptr;
  HFONT font = nullptr;
  double scale = 1.0;  ///< dots to the layout's pixel
  GdiplusFonts& fonts;
  /// Texts measured in that font, by text, width and prefix: a layout asks for the same ones many times over, and a
  /// list for each of its entries.
  mutable std::map<std::tuple<std::wstring, int, bool>, SIZE> measured{};

  [[nodiscard]] int Dots(double pixels) const { return static_cast<int>(std::lround(pixels * scale)); }
};

/// Window id of a control, made from its name, so that it stays when other controls come or go: 1000 to 31999. Two
/// names of a form may share one id; messages are distinguished by window, so only an outside search by id needs the
/// names.
[[nodiscard]] constexpr int ControlId(std::string_view name) noexcept {
  std::uint32_t hash = 2166136261U;  // FNV-1a
  for (const char character : name) hash = (hash ^ static_cast<unsigned char>(character)) * 16777619U;
  return 1000 + static_cast<int>(hash % 31000U);
}

/// Size of a text in dots. @param width limit for wrapping; 0 measures lines as they are
/// @param prefix "&" marks an access key and is not shown
[[nodiscard]] SIZE MeasureText(const WidgetContext& context, std::wstring_view text, int width, bool prefix);
/// A frame in the system's colour of what is selected, around a window that has the focus.
void PaintFocus(HWND window, HDC dc);
/// Height of a line of text in dots.
[[nodiscard]] int LineHeight(const WidgetContext& context);

class Widget {
 public:
  virtual ~Widget() = default;
  Widget(const Widget&) = delete;
  Widget& operator=(const Widget&) = delete;

  [[nodiscard]] HWND Window() const noexcept { return window_; }
  [[nodiscard]] Control& Owner() const noexcept { return control_; }
  /// Whether the window shows; a group without a colour, for one, has nothing to show.
  [[nodiscard]] virtual bool ShouldShow() const { return control_.EffectivelyVisible(); }

  /// Shows a caption. @param accessKey "&" marks its letter; else "&" is a character as any other
  void ShowCaption(std::wstring caption, bool accessKey);
  /// Shows a property's new value.
  virtual void Apply(Property property);
  /// A style that the control knows only when its form is laid out.
  virtual void ApplyStyle() {}
  /// The least size in layout pixels.
  [[nodiscard]] virtual Size PreferredSize() const = 0;
  [[nodiscard]] virtual double HeightForWidth(double /*width*/) const { return PreferredSize().height; }
  virtual void Place(const RECT& place);

  // User input. ------------------------------------------------------------------------------------------------------
  virtual void Command(WORD /*code*/) {}
  virtual LRESULT Notify(const NMHDR& /*header*/) { return 0; }
  virtual void Scroll(WORD /*code*/) {}
  /// An item of a list that is not drawn by the system.
  virtual void DrawItem(const DRAWITEMSTRUCT& /*item*/) {}
  /// Colours of a static window; null leaves the form's.
  virtual HBRUSH Background(HDC /*dc*/) { return nullptr; }
  /// A message of the window itself, before it handles it; true when that is settled.
  virtual bool Message(UINT /*message*/, WPARAM /*word*/, LPARAM /*data*/, LRESULT& /*result*/) { return false; }
  /// Steps of the mouse wheel over the window; false leaves them to the system.
  virtual bool Wheel(int /*notches*/) { return false; }

 protected:
  /// Throws RunTimeError when the window cannot be made.
  Widget(Control& control, WidgetContext& context, const wchar_t* windowClass, DWORD style, DWORD extendedStyle = 0);
  [[nodiscard]] WidgetContext& Context() const noexcept { return context_; }
  [[nodiscard]] Size FromDots(SIZE size) const;
  /// Size of the caption in dots. @param width as for MeasureText
  [[nodiscard]] SIZE CaptionSize(int width = 0) const;
  [[nodiscard]] bool HasAccessKey() const noexcept { return accessKey_; }
  [[nodiscard]] std::wstring NativeText() const;

 private:
  Control& control_;
  WidgetContext& context_;
  HWND window_;
  std::wstring caption_;
  bool accessKey_ = false;
};

/// The widget for a control; null for a type without one (timers).
[[nodiscard]] std::unique_ptr<Widget> MakeWidget(Control& control, WidgetContext& context);

}  // namespace chartproject::win32
