// Pixels of the canvas to dots of the printer.
#include "backends/win32/drawing/gdi_canvas.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "backends/win32/wide_text.h"

namespace chartproject::win32 {
namespace {

constexpr double kPixelsPerPoint = 96.0 / 72.0;
constexpr int kOpaque = 255;

COLORREF ToGdi(Color color) {
  return RGB(color.red, color.green, color.blue);
}

/// Each of the series' colours has a direction of its own, so that hatches over each other stay apart.
OwnedBrush MakeBrush(Color color) {
  if (color.alpha == kOpaque) return OwnedBrush(CreateSolidBrush(ToGdi(color)));
  constexpr std::array kHatches{HS_HORIZONTAL, HS_FDIAGONAL, HS_BDIAGONAL, HS_VERTICAL};
  constexpr int kBright = 128;
  const std::size_t which = (color.red >= kBright ? 1U : 0U) + (color.green >= kBright ? 2U : 0U);
  return OwnedBrush(CreateHatchBrush(kHatches.at(which), ToGdi(color)));
}

/// Fills the shape that `draw` makes and strokes its outline; either may be left out.
template <typename Draw>
void DrawShape(HDC dc, Color fill, HPEN pen, Draw draw) {
  const OwnedBrush brush = fill.alpha == 0 ? OwnedBrush() : MakeBrush(fill);
  const SelectScope filled(dc, brush ? static_cast<HGDIOBJ>(brush.Get()) : GetStockObject(NULL_BRUSH));
  const SelectScope stroked(dc, pen != nullptr ? static_cast<HGDIOBJ>(pen) : GetStockObject(NULL_PEN));
  draw();
}

}  // namespace

GdiCanvas::GdiCanvas(HDC dc, const RECT& place, Size extent)
    : dc_(dc),
      place_(place),
      extent_(extent),
      scaleX_((place.right - place.left) / extent.width),
      scaleY_((place.bottom - place.top) / extent.height) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  userInterfaceFamily_ = metrics.lfMessageFont.lfFaceName;
}

POINT GdiCanvas::Dots(PointF at) const {
  return {place_.left + std::lround(at.x * scaleX_), place_.top + std::lround(at.y * scaleY_)};
}

RECT GdiCanvas::Dots(const Rect& box) const {
  const POINT from = Dots(PointF{box.x, box.y});
  const POINT to = Dots(PointF{box.Right(), box.Bottom()});
  return {from.x, from.y, std::max(to.x, from.x + 1), std::max(to.y, from.y + 1)};
}

/// Round joins, so that no spike shows a value that was not measured; nothing for PenStyle::kNone.
OwnedPen GdiCanvas::MakePen(const Pen& pen) const {
  if (pen.style == PenStyle::kNone || pen.color.alpha == 0) return OwnedPen();
  const auto width = static_cast<DWORD>(std::max(1L, std::lround(pen.width * scaleX_)));
  const LOGBRUSH brush{BS_SOLID, ToGdi(pen.color), 0};
  constexpr DWORD kShape = PS_GEOMETRIC | PS_ENDCAP_FLAT | PS_JOIN_ROUND;
  if (pen.style == PenStyle::kSolid) return OwnedPen(ExtCreatePen(kShape | PS_SOLID, width, &brush, 0, nullptr));
  const std::array<DWORD, 2> lengths = pen.style == PenStyle::kDash ? std::array<DWORD, 2>{4 * width, 3 * width}
                                                                    : std::array<DWORD, 2>{width, 2 * width};
  return OwnedPen(
      ExtCreatePen(kShape | PS_USERSTYLE, width, &brush, static_cast<DWORD>(lengths.size()), lengths.data()));
}

OwnedFont GdiCanvas::MakeFont(const Font& font) const {
  const int height = -static_cast<int>(std::lround(font.points * kPixelsPerPoint * scaleY_));
  const std::wstring family = font.family.empty() ? userInterfaceFamily_ : ToWide(font.family);
  return OwnedFont(CreateFontW(height, 0, 0, 0, font.bold ? FW_BOLD : FW_NORMAL, font.italic ? TRUE : FALSE, FALSE,
                               FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                               DEFAULT_PITCH, family.c_str()));
}

void GdiCanvas::FillRect(const Rect& rect, Color color) {
  if (color.alpha == 0) return;
  const RECT dots = Dots(rect);
  ::FillRect(dc_, &dots, MakeBrush(color).Get());
}

void GdiCanvas::DrawLine(PointF from, PointF to, const Pen& pen) {
  DrawPolyline(std::array{from, to}, pen);
}

void GdiCanvas::DrawPolyline(std::span<const PointF> points, const Pen& pen) {
  const OwnedPen made = MakePen(pen);
  if (!made || points.size() < 2) return;
  std::vector<POINT> dots;
  dots.reserve(points.size());
  for (const PointF& point : points) dots.push_back(Dots(point));
  const SelectScope selected(dc_, made.Get());
  Polyline(dc_, dots.data(), static_cast<int>(dots.size()));
}

void GdiCanvas::DrawPolygon(std::span<const PointF> points, Color fill, const Pen& outline) {
  if (points.size() < 2) return;
  std::vector<POINT> dots;
  dots.reserve(points.size());
  for (const PointF& point : points) dots.push_back(Dots(point));
  const OwnedPen pen = MakePen(outline);
  DrawShape(dc_, fill, pen.Get(), [&] { Polygon(dc_, dots.data(), static_cast<int>(dots.size())); });
}

void GdiCanvas::DrawEllipse(const Rect& box, Color fill, const Pen& outline) {
  const RECT dots = Dots(box);
  const OwnedPen pen = MakePen(outline);
  DrawShape(dc_, fill, pen.Get(), [&] { Ellipse(dc_, dots.left, dots.top, dots.right, dots.bottom); });
}

void GdiCanvas::DrawText(std::string_view text, PointF at, const Font& font, Color color, Align align) {
  const std::wstring wide = ToWide(text);
  const double width = align == Align::kLeft ? 0 : MeasureText(text, font).width;
  const double share = align == Align::kLeft ? 0 : align == Align::kCenter ? 0.5 : 1;
  const POINT dots = Dots(PointF{at.x - share * width, at.y});
  const OwnedFont made = MakeFont(font);
  const SelectScope selected(dc_, made.Get());
  SetTextColor(dc_, ToGdi(color));
  TextOutW(dc_, dots.x, dots.y, wide.data(), static_cast<int>(wide.size()));
}

void GdiCanvas::Clip(const Rect& box) {
  unclipped_ = SaveDC(dc_);
  const RECT dots = Dots(box);
  IntersectClipRect(dc_, dots.left, dots.top, dots.right, dots.bottom);
}

void GdiCanvas::Unclip() {
  RestoreDC(dc_, unclipped_);
}

Size GdiCanvas::MeasureText(std::string_view text, const Font& font) const {
  const std::wstring wide = ToWide(text);
  const OwnedFont made = MakeFont(font);
  const SelectScope selected(dc_, made.Get());
  SIZE size{};
  GetTextExtentPoint32W(dc_, wide.data(), static_cast<int>(wide.size()), &size);
  TEXTMETRICW metrics{};
  GetTextMetricsW(dc_, &metrics);
  return {size.cx / scaleX_, metrics.tmHeight / scaleY_};
}

}  // namespace chartproject::win32
