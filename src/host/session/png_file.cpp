// A bitmap through libpng.
#include "host/session/png_file.h"

#include <png.h>

#include <vector>

#include "platform/run_time_error.h"

namespace chartproject {

std::string PngBytes(const Bitmap& picture) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(picture.width);
  image.height = static_cast<png_uint_32>(picture.height);
  image.format = PNG_FORMAT_RGB;
  std::vector<png_byte> colors;
  colors.reserve(picture.pixels.size() * 3);
  for (const std::uint32_t pixel : picture.pixels) {
    for (const int shift : {16, 8, 0}) colors.push_back(static_cast<png_byte>(pixel >> shift));
  }
  png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
  std::string bytes(size, '\0');
  if (png_image_write_to_memory(&image, bytes.data(), &size, 0, colors.data(), 0, nullptr) == 0) {
    throw RunTimeError(error_number::kInvalidPicture, Text::kPictureNotWritten, {image.message});
  }
  bytes.resize(size);
  return bytes;
}

}  // namespace chartproject
