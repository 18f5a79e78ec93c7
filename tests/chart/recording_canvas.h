// A canvas that keeps what is drawn on it, with a font whose every character is 0.8 x 1.5 points wide and high, and
// pictures of it.
#pragma once

#include <string>
#include <vector>

#include "chart/picture/geometry/scene.h"
#include "forms/picture_renderer.h"

namespace chartproject::testing {

class RecordingCanvas : public Canvas {
 public:
  explicit RecordingCanvas(Size extent) : extent_(extent) {}

  Scene drawn;  ///< shapes and texts in the order of drawing
  [[nodiscard]] std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const SceneText& text : drawn.Texts()) texts.push_back(text.text);
    return texts;
  }

  [[nodiscard]] Size Extent() const override { return extent_; }
  void FillRect(const Rect& rect, Color color) override { drawn.FillRect(rect, color); }
  void DrawLine(PointF from, PointF to, const Pen& pen) override { drawn.Line(from, to, pen); }
  void DrawPolyline(std::span<const PointF> points, const Pen& pen) override { drawn.Polyline(points, pen); }
  void DrawPolygon(std::span<const PointF> points, Color fill, const Pen& outline) override {
    drawn.Polygon(points, fill, outline);
  }
  void DrawEllipse(const Rect& box, Color fill, const Pen& outline) override { drawn.Ellipse(box, fill, outline); }
  void DrawText(std::string_view text, PointF at, const Font& font, Color color, Align align) override {
    drawn.Text({std::string(text), at, font, color, align});
  }
  void Clip(const Rect& box) override { drawn.Clip(box); }
  void Unclip() override { drawn.Unclip(); }
  [[nodiscard]] Size MeasureText(std::string_view text, const Font& font) const override {
    return {static_cast<double>(text.size()) * font.points * 0.8, font.points * 1.5};
  }

  /// The box that a text covers.
  [[nodiscard]] Rect BoxOf(const SceneText& text) const {
    const Size size = MeasureText(text.text, text.font);
    const double share = text.align == Align::kLeft ? 0 : text.align == Align::kCenter ? 0.5 : 1;
    return {text.at.x - share * size.width, text.at.y, size.width, size.height};
  }

 private:
  Size extent_;
};

/// White pictures of the size that was asked for.
class RecordingPictures : public PictureRenderer {
 public:
  std::vector<std::string> texts;  ///< on the last picture
  Scene drawn;                     ///< the last picture
  std::string PngBytes(const Bitmap& picture) override { return "PNG of " + std::to_string(picture.width); }
  Bitmap Render(Size size, double scale, const std::function<void(Canvas&)>& paint) override {
    RecordingCanvas canvas(size);
    paint(canvas);
    texts = canvas.Texts();
    drawn = canvas.drawn;
    Bitmap picture{static_cast<int>(size.width * scale), static_cast<int>(size.height * scale), {}, 96 * scale};
    picture.pixels.resize(static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height));
    return picture;
  }
};

}  // namespace chartproject::testing
