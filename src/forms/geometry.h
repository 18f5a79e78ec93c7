// Sizes and rectangles of the forms layer, in device-independent pixels (96 to the inch) unless said otherwise.
#pragma once

namespace chartproject {

struct Size {
  double width = 0;
  double height = 0;
  friend bool operator==(const Size&, const Size&) = default;
};

struct PointF {
  double x = 0;
  double y = 0;
  friend bool operator==(const PointF&, const PointF&) = default;
};

struct Rect {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
  [[nodiscard]] double Right() const noexcept { return x + width; }
  [[nodiscard]] double Bottom() const noexcept { return y + height; }
  [[nodiscard]] bool Contains(PointF p) const noexcept {
    return p.x >= x && p.x < Right() && p.y >= y && p.y < Bottom();
  }
  friend bool operator==(const Rect&, const Rect&) = default;
};

struct Insets {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;
};

/// Twips (1/1440 inch), the unit of a form's place and height, to the inch's 96 pixels.
inline constexpr double kTwipsPerPixel = 15.0;

}  // namespace chartproject
