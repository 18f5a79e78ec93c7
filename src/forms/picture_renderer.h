// Port: a surface in memory, for pictures that leave the screen (clipboard, page, file).
#pragma once

#include <functional>
#include <string>

#include "forms/canvas.h"

namespace chartproject {

class PictureRenderer {
 public:
  virtual ~PictureRenderer() = default;
  /// Paints a picture of `size` canvas pixels with `scale` dots to the canvas pixel, on white.
  /// @return round(size x scale) dots with dotsPerInch 96 x scale; an empty bitmap when the size has no area
  [[nodiscard]] virtual Bitmap Render(Size size, double scale, const std::function<void(Canvas&)>& paint) = 0;
  /// The bytes of a PNG file with a picture that is not empty. Throws RunTimeError 481.
  [[nodiscard]] virtual std::string PngBytes(const Bitmap& picture) = 0;
};

}  // namespace chartproject
