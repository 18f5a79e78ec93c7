// Paints straight into the pixels of the picture that it returns.
#include "backends/win32/drawing/win32_picture_renderer.h"

#include <cmath>

namespace chartproject::win32 {

Bitmap Win32PictureRenderer::Render(Size size, double scale, const std::function<void(Canvas&)>& paint) {
  Bitmap picture;
  picture.width = static_cast<int>(std::lround(size.width * scale));
  picture.height = static_cast<int>(std::lround(size.height * scale));
  picture.dotsPerInch = 96.0 * scale;
  if (picture.Empty()) return Bitmap{};
  const auto count = static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
  picture.pixels.assign(count, 0xFFFFFFFFU);
  Gdiplus::Bitmap surface(picture.width, picture.height, picture.width * 4, PixelFormat32bppARGB,
                          reinterpret_cast<BYTE*>(picture.pixels.data()));
  Gdiplus::Graphics graphics(&surface);
  GdiplusCanvas canvas(graphics, fonts_, size, scale);
  paint(canvas);
  graphics.Flush(Gdiplus::FlushIntentionSync);
  return picture;
}

}  // namespace chartproject::win32
