// Lines, shapes, texts and pictures by GDI+.
#include "backends/win32/drawing/gdiplus_canvas.h"

#include "backends/win32/wide_text.h"

namespace chartproject::win32 {

namespace {

namespace gp = Gdiplus;

gp::Color ToGdiplus(Color color) {
  return {color.alpha, color.red, color.green, color.blue};
}

gp::RectF ToGdiplus(const Rect& rect) {
  return {static_cast<gp::REAL>(rect.x), static_cast<gp::REAL>(rect.y), static_cast<gp::REAL>(rect.width),
          static_cast<gp::REAL>(rect.height)};
}

gp::PointF ToGdiplus(PointF point) {
  return {static_cast<gp::REAL>(point.x), static_cast<gp::REAL>(point.y)};
}

std::vector<gp::PointF> ToGdiplus(std::span<const PointF> points) {
  std::vector<gp::PointF> result;
  result.reserve(points.size());
  for (const PointF& point : points) result.push_back(ToGdiplus(point));
  return result;
}

/// A GDI+ pen with round joins, so that no spike shows a value that was not measured.
class GdiplusPen {
 public:
  explicit GdiplusPen(const Pen& pen) : pen_(ToGdiplus(pen.color), static_cast<gp::REAL>(pen.width)) {
    pen_.SetLineJoin(gp::LineJoinRound);
    if (pen.style == PenStyle::kDash) pen_.SetDashStyle(gp::DashStyleDash);
    if (pen.style == PenStyle::kDot) pen_.SetDashStyle(gp::DashStyleDot);
  }
  [[nodiscard]] const gp::Pen* Get() const { return &pen_; }

 private:
  gp::Pen pen_;
};

std::wstring MessageFontFamily() {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  return metrics.lfMessageFont.lfFaceName;
}

}  // namespace

GdiplusFonts::GdiplusFonts() : userInterfaceFamily_(MessageFontFamily()) {}

const gp::Font& GdiplusFonts::Get(const Font& font) {
  std::unique_ptr<gp::Font>& made = fonts_[{font.family, font.points, font.bold, font.italic}];
  if (!made) {
    const std::wstring name = font.family.empty() ? userInterfaceFamily_ : ToWide(font.family);
    const gp::FontFamily named(name.c_str());
    // GDI+ puts no other family in the place of a missing one.
    const gp::FontFamily* family = named.IsAvailable() ? &named : gp::FontFamily::GenericSansSerif();
    const int style = (font.bold ? gp::FontStyleBold : 0) | (font.italic ? gp::FontStyleItalic : 0);
    constexpr double kPixelsPerPoint = 96.0 / 72.0;
    made =
        std::make_unique<gp::Font>(family, static_cast<gp::REAL>(font.points * kPixelsPerPoint), style, gp::UnitPixel);
  }
  return *made;
}

GdiplusCanvas::GdiplusCanvas(gp::Graphics& graphics, GdiplusFonts& fonts, Size extent, double scale)
    : graphics_(graphics), fonts_(fonts), extent_(extent) {
  graphics_.SetSmoothingMode(gp::SmoothingModeAntiAlias);
  graphics_.SetPixelOffsetMode(gp::PixelOffsetModeHalf);
  graphics_.SetTextRenderingHint(gp::TextRenderingHintAntiAliasGridFit);
  graphics_.SetInterpolationMode(gp::InterpolationModeHighQualityBicubic);
  graphics_.ScaleTransform(static_cast<gp::REAL>(scale), static_cast<gp::REAL>(scale));
}

void GdiplusCanvas::FillRect(const Rect& rect, Color color) {
  const gp::SolidBrush brush(ToGdiplus(color));
  graphics_.FillRectangle(&brush, ToGdiplus(rect));
}

void GdiplusCanvas::DrawLine(PointF from, PointF to, const Pen& pen) {
  if (pen.style == PenStyle::kNone) return;
  graphics_.DrawLine(GdiplusPen(pen).Get(), ToGdiplus(from), ToGdiplus(to));
}

void GdiplusCanvas::DrawPolyline(std::span<const PointF> points, const Pen& pen) {
  if (pen.style == PenStyle::kNone || points.size() < 2) return;
  const std::vector<gp::PointF> line = ToGdiplus(points);
  graphics_.DrawLines(GdiplusPen(pen).Get(), line.data(), static_cast<INT>(line.size()));
}

void GdiplusCanvas::DrawPolygon(std::span<const PointF> points, Color fill, const Pen& outline) {
  if (points.size() < 2) return;
  const std::vector<gp::PointF> polygon = ToGdiplus(points);
  const gp::SolidBrush brush(ToGdiplus(fill));
  graphics_.FillPolygon(&brush, polygon.data(), static_cast<INT>(polygon.size()));
  if (outline.style == PenStyle::kNone) return;
  graphics_.DrawPolygon(GdiplusPen(outline).Get(), polygon.data(), static_cast<INT>(polygon.size()));
}

void GdiplusCanvas::FillCrisp(std::span<const PointF> points, Color fill) {
  if (points.size() < 3) return;
  const std::vector<gp::PointF> polygon = ToGdiplus(points);
  const gp::SolidBrush brush(ToGdiplus(fill));
  const gp::SmoothingMode before = graphics_.GetSmoothingMode();
  graphics_.SetSmoothingMode(gp::SmoothingModeNone);
  graphics_.FillPolygon(&brush, polygon.data(), static_cast<INT>(polygon.size()));
  graphics_.SetSmoothingMode(before);
}

void GdiplusCanvas::DrawEllipse(const Rect& box, Color fill, const Pen& outline) {
  const gp::SolidBrush brush(ToGdiplus(fill));
  graphics_.FillEllipse(&brush, ToGdiplus(box));
  if (outline.style == PenStyle::kNone) return;
  graphics_.DrawEllipse(GdiplusPen(outline).Get(), ToGdiplus(box));
}

void GdiplusCanvas::DrawText(std::string_view text, PointF at, const Font& font, Color color, Align align) {
  const std::wstring wide = ToWide(text);
  const double width = align == Align::kLeft ? 0 : MeasureText(text, font).width;
  const double shift = align == Align::kRight ? width : width / 2;
  const gp::SolidBrush brush(ToGdiplus(color));
  graphics_.DrawString(wide.c_str(), static_cast<INT>(wide.size()), &fonts_.Get(font),
                       ToGdiplus(PointF{align == Align::kLeft ? at.x : at.x - shift, at.y}),
                       gp::StringFormat::GenericTypographic(), &brush);
}

void GdiplusCanvas::Clip(const Rect& box) {
  unclipped_ = graphics_.Save();
  graphics_.SetClip(ToGdiplus(box), gp::CombineModeIntersect);
}

void GdiplusCanvas::Unclip() {
  graphics_.Restore(unclipped_);
}

Size GdiplusCanvas::MeasureText(std::string_view text, const Font& font) const {
  const std::wstring wide = ToWide(text);
  gp::StringFormat format(gp::StringFormat::GenericTypographic());
  format.SetFormatFlags(format.GetFormatFlags() | gp::StringFormatFlagsMeasureTrailingSpaces);
  const gp::Font& used = fonts_.Get(font);
  gp::RectF box;
  graphics_.MeasureString(wide.c_str(), static_cast<INT>(wide.size()), &used, gp::PointF(0, 0), &format, &box);
  return {box.Width, used.GetHeight(96.0F)};
}

}  // namespace chartproject::win32
