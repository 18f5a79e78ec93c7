// Pictures in memory by GDI+.
#pragma once

#include "forms/picture_renderer.h"
#include "platform/win32/gdiplus_canvas.h"

namespace chartproject::win32 {

class GdiplusRenderer : public PictureRenderer {
 public:
  explicit GdiplusRenderer(GdiplusFonts& fonts) : fonts_(fonts) {}
  [[nodiscard]] Bitmap Render(Size size, double scale, const std::function<void(Canvas&)>& paint) override;

 private:
  GdiplusFonts& fonts_;
};

}  // namespace chartproject::win32
