// Pictures in memory by GDI+.
#pragma once

#include "backends/win32/drawing/gdiplus_canvas.h"
#include "forms/picture_renderer.h"

namespace chartproject::win32 {

class Win32PictureRenderer : public PictureRenderer {
 public:
  explicit Win32PictureRenderer(GdiplusFonts& fonts) : fonts_(fonts) {}
  [[nodiscard]] Bitmap Render(Size size, double scale, const std::function<void(Canvas&)>& paint) override;
  [[nodiscard]] std::string PngBytes(const Bitmap& picture) override;

 private:
  GdiplusFonts& fonts_;
};

}  // namespace chartproject::win32
