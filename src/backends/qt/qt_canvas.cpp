// Drawing with QPainter.
#include "backends/qt/qt_canvas.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPaintDevice>
#include <QPainter>
#include <QPolygonF>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

#include "backends/qt/qt_text.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

constexpr double kMetresPerInch = 0.0254;

QColor ToQColor(Color color) {
  return {color.red, color.green, color.blue, color.alpha};
}

QRectF ToQRect(const Rect& rect) {
  return {rect.x, rect.y, rect.width, rect.height};
}

QPen ToQPen(const Pen& pen) {
  if (pen.style == PenStyle::kNone) return {Qt::NoPen};
  QPen result(ToQColor(pen.color), pen.width, Qt::SolidLine, Qt::FlatCap, Qt::BevelJoin);
  if (pen.style == PenStyle::kDash) result.setDashPattern({4, 3});
  if (pen.style == PenStyle::kDot) result.setDashPattern({1, 2});
  // Thick lines show their corners: round ones look like one line.
  if (pen.width > 1.5) result.setJoinStyle(Qt::RoundJoin);
  return result;
}

QPolygonF ToQPolygon(std::span<const PointF> points) {
  QPolygonF polygon;
  polygon.reserve(static_cast<qsizetype>(points.size()));
  for (const PointF& point : points) polygon.append(QPointF(point.x, point.y));
  return polygon;
}

/// What is painted becomes lines and shapes of a page, not dots.
bool IsPaper(const QPainter& painter) {
  return painter.device()->devType() == QInternal::Printer;
}

/// A clip to the whole surface around a line of one dot. The painter writes the dots of such a line into the picture
/// only where it clips to a rectangle; without one each of them takes a way of its own, ten to fifty times as long. The
/// dots are the same, which they are not for thinner lines.
class DirectDots {
 public:
  DirectDots(QPainter& painter, Size extent, const Pen& pen)
      : painter_(painter),
        needed_(pen.width == 1 && pen.style == PenStyle::kSolid && !painter.hasClipping() && !IsPaper(painter)) {
    if (needed_) painter_.setClipRect(QRectF(0, 0, extent.width, extent.height).toAlignedRect());
  }
  ~DirectDots() {
    if (needed_) painter_.setClipping(false);
  }
  DirectDots(const DirectDots&) = delete;
  DirectDots& operator=(const DirectDots&) = delete;

 private:
  QPainter& painter_;
  bool needed_;
};

/// A thick line as lines of one dot, shifted across their steeper direction by half dots, which leaves no gap. The
/// painter draws thin lines directly, but makes a thick one into a path that it fills, and for noise over hundreds of
/// points that takes it seconds.
void DrawBundle(QPainter& painter, std::span<const PointF> points, const QColor& color, double width, double dots) {
  const double dot = width / dots;
  QList<QLineF> lines;
  for (std::size_t i = 1; i < points.size(); ++i) {
    const QLineF line(points[i - 1].x, points[i - 1].y, points[i].x, points[i].y);
    const double flat = std::max(std::abs(line.dx()), std::abs(line.dy()));
    if (flat <= 0) continue;
    const double thickness = width * line.length() / flat;
    const int count = static_cast<int>(std::ceil((thickness / dot - 1) * 2)) + 1;
    for (int k = 0; k < count; ++k) {
      const double shift = (thickness - dot) * (static_cast<double>(k) / (count - 1) - 0.5);
      lines.append(std::abs(line.dx()) > std::abs(line.dy()) ? line.translated(0, shift) : line.translated(shift, 0));
    }
  }
  QPen pen(color, 1, Qt::SolidLine, Qt::SquareCap);
  pen.setCosmetic(true);
  painter.setPen(pen);
  painter.drawLines(lines);
}

}  // namespace

QImage ToQImage(const Bitmap& bitmap) {
  if (bitmap.Empty()) return {};
  QImage image(bitmap.width, bitmap.height, QImage::Format_ARGB32);
  const auto width = static_cast<std::size_t>(bitmap.width);
  for (int y = 0; y < bitmap.height; ++y) {
    std::memcpy(image.scanLine(y), bitmap.pixels.data() + static_cast<std::size_t>(y) * width,
                width * sizeof(std::uint32_t));
  }
  const int dotsPerMetre = static_cast<int>(std::lround(bitmap.dotsPerInch / kMetresPerInch));
  image.setDotsPerMeterX(dotsPerMetre);
  image.setDotsPerMeterY(dotsPerMetre);
  return image;
}

Bitmap FromQImage(const QImage& source) {
  const QImage image = source.convertToFormat(QImage::Format_ARGB32);
  Bitmap bitmap;
  bitmap.width = image.width();
  bitmap.height = image.height();
  bitmap.dotsPerInch = image.dotsPerMeterX() * kMetresPerInch;
  const auto width = static_cast<std::size_t>(bitmap.width);
  bitmap.pixels.resize(width * static_cast<std::size_t>(bitmap.height));
  for (int y = 0; y < bitmap.height; ++y) {
    std::memcpy(bitmap.pixels.data() + static_cast<std::size_t>(y) * width, image.constScanLine(y),
                width * sizeof(std::uint32_t));
  }
  return bitmap;
}

QtCanvas::QtCanvas(QPainter& painter, Size extent, double textScale)
    : painter_(painter), extent_(extent), textScale_(textScale) {
  painter_.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
}

QFont QtCanvas::FontOf(const Font& font) const {
  QFont result = QGuiApplication::font();
  if (!font.family.empty()) result.setFamily(ToQt(font.family));
  result.setPixelSize(std::max(1, static_cast<int>(std::lround(font.points * textScale_ * 96.0 / 72.0))));
  result.setBold(font.bold);
  result.setItalic(font.italic);
  return result;
}

void QtCanvas::Smooth(bool smooth) {
  if (smooth == smooth_) return;
  painter_.setRenderHint(QPainter::Antialiasing, smooth);
  smooth_ = smooth;
}

bool QtCanvas::OnPaper() const {
  return IsPaper(painter_);
}

void QtCanvas::FillRect(const Rect& rect, Color color) {
  const double dots = painter_.deviceTransform().m11();
  const auto whole = [dots](double at) { return at * dots == std::floor(at * dots); };
  Smooth(!(whole(rect.x) && whole(rect.y) && whole(rect.width) && whole(rect.height)));
  painter_.fillRect(ToQRect(rect), ToQColor(color));
}

void QtCanvas::DrawLine(PointF from, PointF to, const Pen& pen) {
  DrawPolyline(std::array{from, to}, pen);
}

void QtCanvas::DrawPolyline(std::span<const PointF> points, const Pen& pen) {
  Smooth(true);
  const double dots = OnPaper() ? 0 : pen.width * painter_.deviceTransform().m11();
  if (points.size() > 2 && dots > 1 && pen.style == PenStyle::kSolid && pen.color.alpha == 255) {
    DrawBundle(painter_, points, ToQColor(pen.color), pen.width, dots);
    return;
  }
  painter_.setPen(ToQPen(pen));
  const DirectDots direct(painter_, extent_, pen);
  painter_.drawPolyline(ToQPolygon(points));
}

void QtCanvas::DrawPolygon(std::span<const PointF> points, Color fill, const Pen& outline) {
  Smooth(true);
  painter_.setPen(ToQPen(outline));
  painter_.setBrush(ToQColor(fill));
  const DirectDots direct(painter_, extent_, outline);
  painter_.drawPolygon(ToQPolygon(points));
}

void QtCanvas::FillCrisp(std::span<const PointF> points, Color fill) {
  if (OnPaper()) {
    Canvas::FillCrisp(points, fill);  // what shows the page later smooths all edges
    return;
  }
  Smooth(false);
  painter_.setPen(Qt::NoPen);
  painter_.setBrush(ToQColor(fill));
  painter_.drawConvexPolygon(ToQPolygon(points));
}

void QtCanvas::DrawEllipse(const Rect& box, Color fill, const Pen& outline) {
  Smooth(true);
  painter_.setPen(ToQPen(outline));
  painter_.setBrush(ToQColor(fill));
  painter_.drawEllipse(ToQRect(box));
}

void QtCanvas::DrawText(std::string_view text, PointF at, const Font& font, Color color, Align align) {
  const QFont qFont = FontOf(font);
  const QFontMetricsF metrics(qFont);
  const QString qText = ToQt(text);
  double x = at.x;
  if (align == Align::kCenter) x -= metrics.horizontalAdvance(qText) / 2;
  if (align == Align::kRight) x -= metrics.horizontalAdvance(qText);
  painter_.setFont(qFont);
  painter_.setPen(ToQColor(color));
  painter_.drawText(QPointF(x, at.y + metrics.ascent()), qText);
}

void QtCanvas::Clip(const Rect& box) {
  painter_.save();
  painter_.setClipRect(ToQRect(box), Qt::IntersectClip);
}

void QtCanvas::Unclip() {
  painter_.restore();
  smooth_ = painter_.testRenderHint(QPainter::Antialiasing);
}

Size QtCanvas::MeasureText(std::string_view text, const Font& font) const {
  const QFontMetricsF metrics(FontOf(font));
  return {metrics.horizontalAdvance(ToQt(text)), metrics.height()};
}

std::string QtPictureRenderer::PngBytes(const Bitmap& picture) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  if (!ToQImage(picture).save(&buffer, "PNG")) {
    throw RunTimeError(error_number::kInvalidPicture, Text::kPictureNotWritten, {"PNG"});
  }
  return bytes.toStdString();
}

Bitmap QtPictureRenderer::Render(Size size, double scale, const std::function<void(Canvas&)>& paint) {
  const int width = static_cast<int>(std::lround(size.width * scale));
  const int height = static_cast<int>(std::lround(size.height * scale));
  if (width <= 0 || height <= 0) return {};
  QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::white);
  {
    QPainter painter(&image);
    painter.scale(scale, scale);
    QtCanvas canvas(painter, size);
    paint(canvas);
  }
  Bitmap bitmap = FromQImage(image);
  bitmap.dotsPerInch = 96.0 * scale;
  return bitmap;
}

}  // namespace chartproject
