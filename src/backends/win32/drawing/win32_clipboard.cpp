// CF_DIB both ways: the one picture format that every program offers and takes.
#include "backends/win32/drawing/win32_clipboard.h"

#include <cmath>
#include <cstring>

#include "backends/win32/drawing/clipboard_access.h"
#include "backends/win32/wide_text.h"
#include "platform/run_time_error.h"

namespace chartproject::win32 {

namespace {

using OwnedMemory = Owned<HGLOBAL, GlobalFree>;

[[noreturn]] void ThrowClipboardError(Text what) {
  throw RunTimeError(error_number::kClipboard, what);
}

/// Open, or there is an error.
class RequiredClipboard : public OpenedClipboard {
 public:
  explicit RequiredClipboard(HWND owner) : OpenedClipboard(owner) {
    if (!*this) ThrowClipboardError(Text::kClipboardInUse);
  }
};

BITMAPINFOHEADER HeaderOf(int width, int height, double dotsPerInch) {
  constexpr double kInchesPerMetre = 39.37007874;
  BITMAPINFOHEADER header{};
  header.biSize = sizeof header;
  header.biWidth = width;
  header.biHeight = height;  // positive: rows from the bottom, the form that every reader knows
  header.biPlanes = 1;
  header.biBitCount = 32;
  header.biCompression = BI_RGB;
  header.biXPelsPerMeter = static_cast<LONG>(std::lround(dotsPerInch * kInchesPerMetre));
  header.biYPelsPerMeter = header.biXPelsPerMeter;
  return header;
}

/// Where a bitmap's pixels begin, after its header, masks and colour table.
std::uint64_t PixelOffset(const BITMAPINFOHEADER& header) {
  std::uint64_t offset = header.biSize;
  if (header.biSize == sizeof(BITMAPINFOHEADER) && header.biCompression == BI_BITFIELDS) offset += 12;
  std::uint64_t colors = header.biClrUsed;
  if (colors == 0 && header.biBitCount <= 8) colors = std::uint64_t{1} << header.biBitCount;
  return offset + colors * 4;
}

/// Whether memory of a size holds all of a bitmap, so that the system may read it: other programs wrote the header.
bool IsWholeBitmap(const BITMAPINFOHEADER& header, SIZE_T size) {
  if (header.biSize < sizeof header || header.biWidth <= 0 || header.biHeight == 0 || header.biBitCount == 0)
    return false;
  if (header.biCompression != BI_RGB && header.biCompression != BI_BITFIELDS) return false;
  const std::uint64_t rows = header.biHeight < 0 ? -std::int64_t{header.biHeight} : std::int64_t{header.biHeight};
  const std::uint64_t rowBytes = (static_cast<std::uint64_t>(header.biWidth) * header.biBitCount + 31) / 32 * 4;
  const std::uint64_t offset = PixelOffset(header);
  return offset <= size && rowBytes <= (size - offset) / rows;
}

/// Any bitmap as 32-bit pixels from the top, converted by the system.
std::optional<Bitmap> Convert(const BITMAPINFO& source, const void* bits) {
  const BITMAPINFOHEADER& header = source.bmiHeader;
  Bitmap result;
  result.width = header.biWidth;
  result.height = std::abs(header.biHeight);
  result.dotsPerInch = header.biXPelsPerMeter > 0 ? header.biXPelsPerMeter / 39.37007874 : 96.0;
  BITMAPINFO target{};
  target.bmiHeader = HeaderOf(result.width, -result.height, 96.0);
  void* pixels = nullptr;
  const OwnedBitmap section(CreateDIBSection(nullptr, &target, DIB_RGB_COLORS, &pixels, nullptr, 0));
  const OwnedDc dc(CreateCompatibleDC(nullptr));
  if (!section || !dc) return std::nullopt;
  const SelectScope selected(dc.Get(), section.Get());
  StretchDIBits(dc.Get(), 0, 0, result.width, result.height, 0, 0, result.width, result.height, bits, &source,
                DIB_RGB_COLORS, SRCCOPY);
  GdiFlush();
  const auto count = static_cast<std::size_t>(result.width) * static_cast<std::size_t>(result.height);
  const auto* first = static_cast<const std::uint32_t*>(pixels);
  result.pixels.assign(first, first + count);
  for (std::uint32_t& pixel : result.pixels) pixel |= 0xFF000000U;
  return result;
}

}  // namespace

HWND Win32Clipboard::Owner() {
  if (!owner_) {
    owner_ = OwnedWindow(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr));
  }
  return owner_.Get();
}

void Win32Clipboard::Clear() {
  const RequiredClipboard opened(Owner());
  if (EmptyClipboard() == 0) ThrowClipboardError(Text::kClipboardNotEmptied);
}

void Win32Clipboard::SetPicture(const Bitmap& picture) {
  const auto rowBytes = static_cast<std::size_t>(picture.width) * 4;
  const auto rows = static_cast<std::size_t>(picture.height);
  const BITMAPINFOHEADER header = HeaderOf(picture.width, picture.height, picture.dotsPerInch);
  OwnedMemory memory(GlobalAlloc(GMEM_MOVEABLE, sizeof header + rowBytes * rows));
  {
    const LockedMemory locked(memory.Get());
    auto* bytes = static_cast<char*>(locked.Get());
    if (bytes == nullptr) ThrowClipboardError(Text::kNoMemoryForPicture);
    std::memcpy(bytes, &header, sizeof header);
    for (std::size_t row = 0; row < rows; ++row) {
      const std::uint32_t* from = picture.pixels.data() + (rows - 1 - row) * static_cast<std::size_t>(picture.width);
      std::memcpy(bytes + sizeof header + row * rowBytes, from, rowBytes);
    }
  }
  const RequiredClipboard opened(Owner());
  EmptyClipboard();
  if (SetClipboardData(CF_DIB, memory.Get()) == nullptr) ThrowClipboardError(Text::kClipboardRefused);
  memory.Release();  // the clipboard's own from here on
}

void Win32Clipboard::SetText(const std::string& text) {
  const std::wstring wide = ToWide(text);
  const std::size_t bytes = (wide.size() + 1) * sizeof(wchar_t);
  OwnedMemory memory(GlobalAlloc(GMEM_MOVEABLE, bytes));
  {
    const LockedMemory locked(memory.Get());
    if (locked.Get() == nullptr) ThrowClipboardError(Text::kClipboardRefused);
    std::memcpy(locked.Get(), wide.c_str(), bytes);
  }
  const RequiredClipboard opened(Owner());
  EmptyClipboard();
  if (SetClipboardData(CF_UNICODETEXT, memory.Get()) == nullptr) ThrowClipboardError(Text::kClipboardRefused);
  memory.Release();  // the clipboard's own from here on
}

std::optional<Bitmap> Win32Clipboard::Picture() {
  const RequiredClipboard opened(Owner());
  const LockedMemory memory(GetClipboardData(CF_DIB));
  const auto* info = static_cast<const BITMAPINFO*>(memory.Get());
  if (memory.Size() < sizeof info->bmiHeader || !IsWholeBitmap(info->bmiHeader, memory.Size())) return std::nullopt;
  return Convert(*info, static_cast<const char*>(memory.Get()) + PixelOffset(info->bmiHeader));
}

}  // namespace chartproject::win32
