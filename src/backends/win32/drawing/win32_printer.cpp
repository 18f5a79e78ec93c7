// Positions on the paper to dots of the printer, from the paper's corner.
#include "backends/win32/drawing/win32_printer.h"

#include <cmath>
#include <optional>
#include <vector>

#include "backends/win32/com_module.h"
#include "backends/win32/drawing/gdi_canvas.h"
#include "backends/win32/system_error.h"
#include "backends/win32/wide_text.h"
#include "platform/run_time_error.h"

#include <winspool.h>

namespace chartproject::win32 {

namespace {

constexpr double kCentimetresPerInch = 2.54;
constexpr int kIconPixels = 32;  // of a screen of 96 to the inch, not the user's: paper is always the same

[[noreturn]] void ThrowPrinterError(Text what, std::initializer_list<std::string> values = {}) {
  throw RunTimeError(error_number::kPrinter, what, values);
}

/// The system's reason for the last failure, to be appended; empty when it gave none.
std::string Reason(DWORD error) {
  return error == ERROR_SUCCESS ? std::string() : ": " + SystemMessage(error);
}

constexpr const wchar_t* kSpooler = L"winspool.drv";

std::wstring DefaultPrinter() {
  static const auto defaultPrinter = SystemFunction<decltype(&GetDefaultPrinterW)>(kSpooler, "GetDefaultPrinterW");
  DWORD length = 0;
  if (defaultPrinter != nullptr) defaultPrinter(nullptr, &length);
  if (length == 0) return {};
  std::wstring name(length, L'\0');
  if (defaultPrinter(name.data(), &length) == 0) return {};
  name.resize(length - 1);
  return name;
}

/// Whether a printer is one that makes a file and asks for its name, without a proposal.
bool AsksForFile(const std::wstring& printer) {
  static const auto open = SystemFunction<decltype(&OpenPrinterW)>(kSpooler, "OpenPrinterW");
  static const auto describe = SystemFunction<decltype(&GetPrinterW)>(kSpooler, "GetPrinterW");
  static const auto close = SystemFunction<decltype(&ClosePrinter)>(kSpooler, "ClosePrinter");
  if (open == nullptr || describe == nullptr || close == nullptr) return false;
  HANDLE queue = nullptr;
  if (open(std::wstring(printer).data(), &queue, nullptr) == 0) return false;
  DWORD size = 0;
  describe(queue, 2, nullptr, 0, &size);
  std::vector<BYTE> bytes(size);
  const bool known = size > 0 && describe(queue, 2, bytes.data(), size, &size) != 0;
  close(queue);
  if (!known) return false;
  const wchar_t* port = reinterpret_cast<const PRINTER_INFO_2W*>(bytes.data())->pPortName;
  return port != nullptr && (std::wstring(port) == L"PORTPROMPT:" || std::wstring(port) == L"FILE:");
}

}  // namespace

bool Win32Printer::StartDocument(const std::string& title) {
  AbandonDocument();
  const std::wstring name = DefaultPrinter();
  if (name.empty()) ThrowPrinterError(Text::kNoDefaultPrinter);
  name_ = ToUtf8(name);
  printer_ = OwnedDc(CreateDCW(L"WINSPOOL", name.c_str(), nullptr, nullptr));
  if (!printer_) ThrowPrinterError(Text::kPrinterNotReached, {name_, Reason(GetLastError())});
  const std::wstring wideTitle = ToWide(title);
  std::wstring output = printTo_;
  if (output.empty() && askForFile_ && AsksForFile(name)) {
    const auto chosen = askForFile_(proposal_);
    if (!chosen) {
      AbandonDocument();
      return false;
    }
    output = ToWide(*chosen);
  }
  if (!output.empty()) {
    name_ += " (" + ToUtf8(output) + ")";
    DeleteFileW(output.c_str());  // a longer one would keep its end after the new data
  }
  DOCINFOW document{};
  document.cbSize = sizeof document;
  document.lpszDocName = wideTitle.c_str();
  document.lpszOutput = output.empty() ? nullptr : output.c_str();
  SetLastError(ERROR_SUCCESS);
  if (StartDocW(printer_.Get(), &document) <= 0 || StartPage(printer_.Get()) <= 0) {
    // A printer that writes files asks for their name in between.
    const DWORD error = GetLastError();
    if (error != ERROR_CANCELLED && error != ERROR_PRINT_CANCELLED) {
      ThrowPrinterError(Text::kDocumentNotBegun, {name_, Reason(error)});
    }
    AbandonDocument();
    return false;
  }
  SetBkMode(printer_.Get(), TRANSPARENT);
  y_ = 0;
  lineHeight_ = 0;
  return true;
}

HDC Win32Printer::Require() const {
  if (!printer_) ThrowPrinterError(Text::kNoDocument);
  return printer_.Get();
}

double Win32Printer::Centimetres(int capability, int resolution) const {
  const HDC dc = Require();
  return GetDeviceCaps(dc, capability) * kCentimetresPerInch / GetDeviceCaps(dc, resolution);
}

/// The device's origin is the first place that it reaches, the page's the corner of the paper.
int Win32Printer::DotsX(double centimetres) const {
  const HDC dc = Require();
  return static_cast<int>(std::lround(centimetres / kCentimetresPerInch * GetDeviceCaps(dc, LOGPIXELSX))) -
         GetDeviceCaps(dc, PHYSICALOFFSETX);
}

int Win32Printer::DotsY(double centimetres) const {
  const HDC dc = Require();
  return static_cast<int>(std::lround(centimetres / kCentimetresPerInch * GetDeviceCaps(dc, LOGPIXELSY))) -
         GetDeviceCaps(dc, PHYSICALOFFSETY);
}

PageArea Win32Printer::Page() const {
  return PageArea{Centimetres(PHYSICALWIDTH, LOGPIXELSX), Centimetres(PHYSICALHEIGHT, LOGPIXELSY),
                  Centimetres(PHYSICALOFFSETX, LOGPIXELSX) + Centimetres(HORZRES, LOGPIXELSX),
                  Centimetres(PHYSICALOFFSETY, LOGPIXELSY) + Centimetres(VERTRES, LOGPIXELSY)};
}

OwnedFont Win32Printer::MakeFont(const PrintFont& font) const {
  const int height = -static_cast<int>(std::lround(font.points * GetDeviceCaps(Require(), LOGPIXELSY) / 72.0));
  return OwnedFont(CreateFontW(height, 0, 0, 0, font.bold ? FW_BOLD : FW_NORMAL, font.italic ? TRUE : FALSE, FALSE,
                               FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                               DEFAULT_PITCH, ToWide(font.family).c_str()));
}

double Win32Printer::TextWidth(std::string_view text, const PrintFont& font) const {
  const OwnedFont made = MakeFont(font);
  const SelectScope selected(Require(), made.Get());
  const std::wstring wide = ToWide(text);
  SIZE size{};
  GetTextExtentPoint32W(Require(), wide.data(), static_cast<int>(wide.size()), &size);
  return size.cx * kCentimetresPerInch / GetDeviceCaps(Require(), LOGPIXELSX);
}

void Win32Printer::PrintText(std::string_view text, double x, double y, const PrintFont& font) {
  const OwnedFont made = MakeFont(font);
  const SelectScope selected(Require(), made.Get());
  const std::wstring wide = ToWide(text);
  SetTextColor(Require(), static_cast<COLORREF>(font.color));
  if (TextOutW(Require(), DotsX(x), DotsY(y), wide.data(), static_cast<int>(wide.size())) == 0 && !wide.empty()) {
    ThrowPrinterError(Text::kTextNotPrinted);
  }
  TEXTMETRICW metrics;
  GetTextMetricsW(Require(), &metrics);
  lineHeight_ =
      (metrics.tmHeight + metrics.tmExternalLeading) * kCentimetresPerInch / GetDeviceCaps(Require(), LOGPIXELSY);
  y_ = y;
}

void Win32Printer::NextLine() {
  y_ += lineHeight_;
}

void Win32Printer::PaintPicture(const Bitmap& picture, double x, double y, double width, double height) {
  if (picture.Empty()) throw RunTimeError(error_number::kInvalidPicture, Text::kNothingToPrint);
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = picture.width;
  info.bmiHeader.biHeight = -picture.height;  // rows from the top
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  SetStretchBltMode(Require(), HALFTONE);
  const int left = DotsX(x);
  const int top = DotsY(y);
  if (StretchDIBits(Require(), left, top, DotsX(x + width) - left, DotsY(y + height) - top, 0, 0, picture.width,
                    picture.height, picture.pixels.data(), &info, DIB_RGB_COLORS, SRCCOPY) <= 0) {
    ThrowPrinterError(Text::kPictureNotPrinted);
  }
}

void Win32Printer::PaintPictureFile(const std::string& fileName, double x, double y) {
  const std::wstring name = ToWide(fileName);
  if (GetFileAttributesW(name.c_str()) == INVALID_FILE_ATTRIBUTES) {
    throw RunTimeError(error_number::kFileNotFound, Text::kFileNotFound, {fileName});
  }
  const OwnedIcon icon(
      static_cast<HICON>(LoadImageW(nullptr, name.c_str(), IMAGE_ICON, kIconPixels, kIconPixels, LR_LOADFROMFILE)));
  if (!icon) throw RunTimeError(error_number::kInvalidPicture, Text::kInvalidPicture, {fileName});
  // It is drawn on white first: printers know no transparency.
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = kIconPixels;
  info.bmiHeader.biHeight = -kIconPixels;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  void* pixels = nullptr;
  const OwnedDc memory(CreateCompatibleDC(nullptr));
  const OwnedBitmap bitmap(CreateDIBSection(memory.Get(), &info, DIB_RGB_COLORS, &pixels, nullptr, 0));
  if (!memory || !bitmap) ThrowPrinterError(Text::kNoMemoryForPicture);
  const SelectScope selected(memory.Get(), bitmap.Get());
  PatBlt(memory.Get(), 0, 0, kIconPixels, kIconPixels, WHITENESS);
  DrawIconEx(memory.Get(), 0, 0, icon.Get(), kIconPixels, kIconPixels, 0, nullptr, DI_NORMAL);
  GdiFlush();
  Bitmap picture;
  picture.width = kIconPixels;
  picture.height = kIconPixels;
  const auto* first = static_cast<const std::uint32_t*>(pixels);
  picture.pixels.assign(first, first + std::size_t{kIconPixels} * kIconPixels);
  const double size = kIconPixels * kCentimetresPerInch / 96.0;
  PaintPicture(picture, x, y, size, size);
}

void Win32Printer::Draw(double x, double y, double width, double height, const std::function<void(Canvas&)>& paint) {
  constexpr double kPixels = 96 / kCentimetresPerInch;
  const HDC dc = Require();
  const RECT place{DotsX(x), DotsY(y), DotsX(x + width), DotsY(y + height)};
  if (place.right <= place.left || place.bottom <= place.top) return;
  const int before = SaveDC(dc);
  IntersectClipRect(dc, place.left, place.top, place.right, place.bottom);
  GdiCanvas canvas(dc, place, {width * kPixels, height * kPixels});
  paint(canvas);
  RestoreDC(dc, before);
}

void Win32Printer::NextPage() {
  if (EndPage(Require()) <= 0 || StartPage(Require()) <= 0) ThrowPrinterError(Text::kPageNotTaken, {name_});
  SetBkMode(Require(), TRANSPARENT);
  y_ = lineHeight_ = 0;
}

void Win32Printer::EndDocument() {
  if (EndPage(Require()) <= 0 || EndDoc(Require()) <= 0) ThrowPrinterError(Text::kPageNotTaken, {name_});
  printer_ = OwnedDc();
}

void Win32Printer::AbandonDocument() noexcept {
  if (printer_) AbortDoc(printer_.Get());
  printer_ = OwnedDc();
}

}  // namespace chartproject::win32
