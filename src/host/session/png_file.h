// Pictures as PNG files.
#pragma once

#include <string>

#include "platform/bitmap.h"

namespace chartproject {

/// The bytes of a PNG file with the picture's colours, without its alpha.
/// Throws RunTimeError 481 for a picture without area.
[[nodiscard]] std::string PngBytes(const Bitmap& picture);

}  // namespace chartproject
