// Canvas on GDI+: antialiased, with alpha.
#pragma once

#include <map>
#include <memory>
#include <tuple>
#include <vector>

#include "backends/win32/drawing/gdiplus_api.h"
#include "forms/canvas.h"

namespace chartproject::win32 {

/// GDI+ fonts by what the core asks for; made once each.
class GdiplusFonts {
 public:
  GdiplusFonts();
  [[nodiscard]] const Gdiplus::Font& Get(const Font& font);

 private:
  using Key = std::tuple<std::string, double, bool, bool>;
  std::wstring userInterfaceFamily_;
  std::map<Key, std::unique_ptr<Gdiplus::Font>> fonts_;
};

class GdiplusCanvas : public Canvas {
 public:
  /// @param extent size in canvas pixels
  /// @param scale dots of the surface to the canvas pixel
  GdiplusCanvas(Gdiplus::Graphics& graphics, GdiplusFonts& fonts, Size extent, double scale);

  [[nodiscard]] Size Extent() const override { return extent_; }
  void FillRect(const Rect& rect, Color color) override;
  void DrawLine(PointF from, PointF to, const Pen& pen) override;
  void DrawPolyline(std::span<const PointF> points, const Pen& pen) override;
  void DrawPolygon(std::span<const PointF> points, Color fill, const Pen& outline) override;
  void FillCrisp(std::span<const PointF> points, Color fill) override;
  void DrawEllipse(const Rect& box, Color fill, const Pen& outline) override;
  void DrawText(std::string_view text, PointF at, const Font& font, Color color, Align align) override;
  void Clip(const Rect& box) override;
  void Unclip() override;
  [[nodiscard]] Size MeasureText(std::string_view text, const Font& font) const override;

 private:
  Gdiplus::Graphics& graphics_;
  GdiplusFonts& fonts_;
  Size extent_;
  Gdiplus::GraphicsState unclipped_{};  ///< from Clip to Unclip
};

}  // namespace chartproject::win32
