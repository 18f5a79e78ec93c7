// Collecting and painting of shapes.
#include "chart/picture/geometry/scene.h"

#include <array>

namespace chartproject {

void Scene::FillRect(const Rect& box, Color fill) {
  SceneShape shape;
  shape.kind = SceneShape::Kind::kRectangle;
  shape.box = box;
  shape.fill = fill;
  shapes_.push_back(shape);
}

void Scene::Line(PointF from, PointF to, const Pen& pen) {
  Polyline(std::array{from, to}, pen);
}

void Scene::Polyline(std::span<const PointF> points, const Pen& pen) {
  if (points.size() < 2 || pen.style == PenStyle::kNone) return;
  AddPoints(SceneShape::Kind::kPolyline, points, pen);
}

void Scene::Polygon(std::span<const PointF> points, Color fill, const Pen& outline) {
  AddPoints(SceneShape::Kind::kPolygon, points, outline).fill = fill;
}

void Scene::Crisp(std::span<const PointF> points, Color fill) {
  AddPoints(SceneShape::Kind::kCrisp, points, {}).fill = fill;
}

void Scene::Ellipse(const Rect& box, Color fill, const Pen& outline) {
  SceneShape shape;
  shape.kind = SceneShape::Kind::kEllipse;
  shape.box = box;
  shape.fill = fill;
  shape.pen = outline;
  shapes_.push_back(shape);
}

void Scene::Clip(const Rect& box) {
  SceneShape shape;
  shape.kind = SceneShape::Kind::kClip;
  shape.box = box;
  shapes_.push_back(shape);
}

void Scene::Unclip() {
  SceneShape shape;
  shape.kind = SceneShape::Kind::kUnclip;
  shapes_.push_back(shape);
}

SceneShape& Scene::AddPoints(SceneShape::Kind kind, std::span<const PointF> points, const Pen& pen) {
  SceneShape shape;
  shape.kind = kind;
  shape.pen = pen;
  shape.first = points_.size();
  shape.count = points.size();
  points_.insert(points_.end(), points.begin(), points.end());
  shapes_.push_back(shape);
  return shapes_.back();
}

void Scene::Paint(Canvas& canvas) const {
  for (const SceneShape& shape : shapes_) {
    switch (shape.kind) {
      case SceneShape::Kind::kRectangle:
        canvas.FillRect(shape.box, shape.fill);
        break;
      case SceneShape::Kind::kPolyline:
        canvas.DrawPolyline(Points(shape), shape.pen);
        break;
      case SceneShape::Kind::kPolygon:
        canvas.DrawPolygon(Points(shape), shape.fill, shape.pen);
        break;
      case SceneShape::Kind::kCrisp:
        canvas.FillCrisp(Points(shape), shape.fill);
        break;
      case SceneShape::Kind::kEllipse:
        canvas.DrawEllipse(shape.box, shape.fill, shape.pen);
        break;
      case SceneShape::Kind::kClip:
        canvas.Clip(shape.box);
        break;
      case SceneShape::Kind::kUnclip:
        canvas.Unclip();
        break;
    }
  }
  for (const SceneText& text : texts_) canvas.DrawText(text.text, text.at, text.font, text.color, text.align);
}

}  // namespace chartproject
