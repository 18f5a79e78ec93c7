// Canvas of a printer: GDI's own lines and shapes, which stay what they are on the way to the paper.
#pragma once

#include <string>

#include "backends/win32/handles.h"
#include "forms/canvas.h"

namespace chartproject::win32 {

/// Paper knows no transparency: a translucent shape is hatched in its colour, so that what is under it stays visible.
class GdiCanvas : public Canvas {
 public:
  /// @param dc draws in dots and with a transparent ground; it outlives the canvas
  /// @param place of the canvas in dots
  /// @param extent size in canvas pixels
  GdiCanvas(HDC dc, const RECT& place, Size extent);

  [[nodiscard]] Size Extent() const override { return extent_; }
  void FillRect(const Rect& rect, Color color) override;
  void DrawLine(PointF from, PointF to, const Pen& pen) override;
  void DrawPolyline(std::span<const PointF> points, const Pen& pen) override;
  void DrawPolygon(std::span<const PointF> points, Color fill, const Pen& outline) override;
  void DrawEllipse(const Rect& box, Color fill, const Pen& outline) override;
  void DrawText(std::string_view text, PointF at, const Font& font, Color color, Align align) override;
  void Clip(const Rect& box) override;
  void Unclip() override;
  [[nodiscard]] Size MeasureText(std::string_view text, const Font& font) const override;

 private:
  [[nodiscard]] POINT Dots(PointF at) const;
  [[nodiscard]] RECT Dots(const Rect& box) const;
  [[nodiscard]] OwnedPen MakePen(const Pen& pen) const;
  [[nodiscard]] OwnedFont MakeFont(const Font& font) const;

  HDC dc_;
  RECT place_;
  Size extent_;
  double scaleX_;  ///< dots to the canvas pixel
  double scaleY_;
  std::wstring userInterfaceFamily_;
  int unclipped_ = 0;  ///< from Clip to Unclip
};

}  // namespace chartproject::win32
