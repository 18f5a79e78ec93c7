// Canvas over QPainter, and pictures drawn with it in memory (no display needed).
#pragma once

#include <QFont>
#include <QImage>

#include "forms/canvas.h"
#include "forms/picture_renderer.h"

class QPainter;

namespace chartproject {

class QtCanvas : public Canvas {
 public:
  /// @param painter open while the canvas is used @param extent size of the surface in its own pixels
  /// @param textScale by how much text is larger than its font says, 1 in files and on paper
  QtCanvas(QPainter& painter, Size extent, double textScale = 1);

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
  /// What is painted becomes lines and shapes of a page, not dots.
  [[nodiscard]] bool OnPaper() const;
  /// Switches the smoothing of edges, which the painter does slowly, also for shapes that need none.
  void Smooth(bool smooth);
  /// Sizes follow the canvas' 96 pixels to the inch, at every resolution of the screen.
  [[nodiscard]] QFont FontOf(const Font& font) const;

  QPainter& painter_;
  Size extent_;
  double textScale_;
  bool smooth_ = true;
};

/// Draws into a QImage.
class QtPictureRenderer : public PictureRenderer {
 public:
  [[nodiscard]] Bitmap Render(Size size, double scale, const std::function<void(Canvas&)>& paint) override;
  [[nodiscard]] std::string PngBytes(const Bitmap& picture) override;
};

[[nodiscard]] QImage ToQImage(const Bitmap& bitmap);
[[nodiscard]] Bitmap FromQImage(const QImage& image);

}  // namespace chartproject
