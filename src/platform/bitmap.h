// A picture in memory, as it travels between chart, clipboard, page and file.
#pragma once

#include <cstdint>
#include <vector>

namespace chartproject {

/// Pixels row by row from the top left, 0xAARRGGBB, alpha not premultiplied.
struct Bitmap {
  int width = 0;   ///< pixels
  int height = 0;  ///< pixels
  std::vector<std::uint32_t> pixels;
  double dotsPerInch = 96.0;

  [[nodiscard]] bool Empty() const noexcept { return width <= 0 || height <= 0; }
};

}  // namespace chartproject
