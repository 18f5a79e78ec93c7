// A picture computed but not yet painted: shapes in painting order, then texts.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "forms/canvas.h"

namespace chartproject {

struct SceneShape {
  enum class Kind : std::uint8_t { kRectangle, kPolyline, kPolygon, kCrisp, kEllipse, kClip, kUnclip };
  Kind kind = Kind::kPolyline;
  Color fill;
  Pen pen;
  Rect box;               ///< of rectangles, ellipses and clips
  std::size_t first = 0;  ///< points of polylines and polygons, in the scene's points
  std::size_t count = 0;
};

struct SceneText {
  std::string text;
  PointF at;  ///< see Canvas::DrawText
  Font font;
  Color color;
  Align align = Align::kLeft;
};

/// All the points lie in one array: a chart of thousands of shapes costs few allocations.
class Scene {
 public:
  void FillRect(const Rect& box, Color fill);
  void Line(PointF from, PointF to, const Pen& pen);
  /// A polyline of one point is left out, as is one with PenStyle::kNone.
  void Polyline(std::span<const PointF> points, const Pen& pen);
  void Polygon(std::span<const PointF> points, Color fill, const Pen& outline);
  /// See Canvas::FillCrisp.
  void Crisp(std::span<const PointF> points, Color fill);
  void Ellipse(const Rect& box, Color fill, const Pen& outline);
  /// Nothing is painted outside of a rectangle from here to Unclip; texts are not affected.
  void Clip(const Rect& box);
  void Unclip();
  void Text(SceneText text) { texts_.push_back(std::move(text)); }

  [[nodiscard]] const std::vector<SceneShape>& Shapes() const noexcept { return shapes_; }
  [[nodiscard]] const std::vector<SceneText>& Texts() const noexcept { return texts_; }
  [[nodiscard]] std::span<const PointF> Points(const SceneShape& shape) const {
    return std::span(points_).subspan(shape.first, shape.count);
  }
  void Paint(Canvas& canvas) const;

 private:
  SceneShape& AddPoints(SceneShape::Kind kind, std::span<const PointF> points, const Pen& pen);

  std::vector<SceneShape> shapes_;
  std::vector<PointF> points_;
  std::vector<SceneText> texts_;
};

}  // namespace chartproject
