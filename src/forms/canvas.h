// The surface that charts, pictures and owner-drawn controls are painted on. A back end implements it once.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "forms/geometry.h"
#include "platform/bitmap.h"

namespace chartproject {

struct Color {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  std::uint8_t alpha = 255;
  friend bool operator==(const Color&, const Color&) = default;
};

/// From a BGR colour number as settings and documents hold it (255 is red, 65535 yellow).
[[nodiscard]] constexpr Color FromBgr(std::int32_t number) noexcept {
  const auto bits = static_cast<std::uint32_t>(number);
  return Color{static_cast<std::uint8_t>(bits), static_cast<std::uint8_t>(bits >> 8),
               static_cast<std::uint8_t>(bits >> 16)};
}

enum class PenStyle : std::uint8_t { kNone, kSolid, kDash, kDot };

struct Pen {
  Color color;
  double width = 1.0;  ///< pixels
  PenStyle style = PenStyle::kSolid;
};

struct Font {
  std::string family;  ///< empty for the user interface's own font
  double points = 9.0;
  bool bold = false;
  bool italic = false;
};

/// Which corner or edge of the text's box is at the given point.
enum class Align : std::uint8_t { kLeft, kCenter, kRight };

/// Coordinates are pixels from the top left; antialiased. Lines join round or bevelled, never mitred: a spike would
/// show a value that was not measured. Nothing here throws.
class Canvas {
 public:
  virtual ~Canvas() = default;
  [[nodiscard]] virtual Size Extent() const = 0;
  virtual void FillRect(const Rect& rect, Color color) = 0;
  virtual void DrawLine(PointF from, PointF to, const Pen& pen) = 0;
  virtual void DrawPolyline(std::span<const PointF> points, const Pen& pen) = 0;
  /// Fills a closed polygon and strokes its outline; PenStyle::kNone leaves the outline out.
  virtual void DrawPolygon(std::span<const PointF> points, Color fill, const Pen& outline) = 0;
  /// Fills a convex polygon so that those that share an edge meet without a joint; its own edges need not be smooth.
  virtual void FillCrisp(std::span<const PointF> points, Color fill) {
    DrawPolygon(points, fill, {.color = fill, .width = 0.8});
  }
  virtual void DrawEllipse(const Rect& box, Color fill, const Pen& outline) = 0;
  /// Draws one line of text with its box's top at `at.y` and its left edge, middle or right edge at `at.x`.
  virtual void DrawText(std::string_view text, PointF at, const Font& font, Color color, Align align) = 0;
  /// Nothing is painted outside of a rectangle until Unclip; the two do not nest.
  virtual void Clip(const Rect& box) = 0;
  virtual void Unclip() = 0;
  [[nodiscard]] virtual Size MeasureText(std::string_view text, const Font& font) const = 0;
};

}  // namespace chartproject
