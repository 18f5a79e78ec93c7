// Pictures and models of charts in words, for texts that a person reads.
#pragma once

#include <cmath>
#include <map>
#include <sstream>
#include <string>

#include "chart/picture/geometry/scene.h"

namespace chartproject::testing {

/// To half points: what is drawn may differ by less from machine to machine.
inline std::string Half(double value) {
  std::ostringstream out;
  out << std::floor(value * 2 + 0.5 + 1e-6) / 2;
  return out.str();
}
inline std::string InWords(PointF at) {
  return Half(at.x) + "," + Half(at.y);
}
inline std::string InWords(Color color) {
  constexpr const char* kDigits = "0123456789abcdef";
  std::string text = "#";
  for (const int part : {int{color.red}, int{color.green}, int{color.blue}, int{color.alpha}}) {
    text += kDigits[part / 16];
    text += kDigits[part % 16];
  }
  return color.alpha == 255 ? text.substr(0, 7) : text;
}
inline std::string InWords(const Rect& box) {
  return InWords(PointF{box.x, box.y}) + " " + Half(box.width) + "x" + Half(box.height);
}

constexpr const char* kShapeKinds[] = {"rectangle", "line", "polygon", "crisp", "ellipse", "clip", "unclip"};

/// How many shapes of each kind, and as what sum of places.
inline std::string Summary(const Scene& scene) {
  std::map<std::string, std::pair<int, double>> kinds;
  for (const SceneShape& shape : scene.Shapes()) {
    auto& [count, sum] = kinds[kShapeKinds[static_cast<int>(shape.kind)]];
    ++count;
    sum += shape.box.x + shape.box.y + shape.box.Right() + shape.box.Bottom();
    for (const PointF& point : scene.Points(shape)) sum += point.x + point.y;
  }
  std::ostringstream out;
  for (const auto& [kind, sums] : kinds)
    out << ' ' << sums.first << ' ' << kind << " (" << std::lround(sums.second) << ')';
  return out.str();
}

/// A line for each shape and each text. Of many points the first ones, the last one and their sum.
inline std::string InWords(const Scene& scene) {
  constexpr std::size_t kFew = 10;
  std::ostringstream out;
  for (const SceneShape& shape : scene.Shapes()) {
    out << kShapeKinds[static_cast<int>(shape.kind)];
    const bool box = shape.kind == SceneShape::Kind::kRectangle || shape.kind == SceneShape::Kind::kEllipse;
    if (box || shape.kind == SceneShape::Kind::kClip) out << ' ' << InWords(shape.box);
    const auto points = scene.Points(shape);
    PointF sum;
    for (std::size_t i = 0; i < points.size(); ++i) {
      sum = {sum.x + points[i].x, sum.y + points[i].y};
      if (points.size() <= kFew || i < kFew || i + 1 == points.size()) out << ' ' << InWords(points[i]);
    }
    if (points.size() > kFew)
      out << " (" << points.size() << ": " << std::lround(sum.x) << ',' << std::lround(sum.y) << ')';
    if (box || shape.kind == SceneShape::Kind::kPolygon || shape.kind == SceneShape::Kind::kCrisp) {
      out << " fill " << InWords(shape.fill);
    }
    const bool pen = shape.kind != SceneShape::Kind::kRectangle && shape.kind < SceneShape::Kind::kClip &&
                     shape.pen.style != PenStyle::kNone;
    if (pen)
      out << " pen " << InWords(shape.pen.color) << ' ' << shape.pen.width << ' ' << static_cast<int>(shape.pen.style);
    out << '\n';
  }
  for (const SceneText& text : scene.Texts()) {
    out << "text \"" << text.text << "\" " << InWords(text.at) << " " << text.font.points
        << (text.font.bold ? " bold" : "") << ' ' << InWords(text.color) << ' ' << static_cast<int>(text.align) << '\n';
  }
  std::string text = out.str();
  if (!text.empty()) text.pop_back();
  return text;
}

}  // namespace chartproject::testing
