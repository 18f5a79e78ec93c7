// CF_DIB both ways: the one picture format that every program offers and takes.
#include "platform/win32/win32_clipboard.h"

#include <cmath>
#include <cstring>

#include "platform/run_time_error.h"

namespace chartproject::win32 {

namespace {

using OwnedMemory = Owned<HGLOBAL, GlobalFree>;

[[noreturn]] void ThrowClipboardError(const char* what) {
  throw RunTimeError(error_number::kClipboard, what);
}

/// The clipboard, open while the object lives. Another program may hold it for a moment: a few tries.
class OpenedClipboard {
 public:
  explicit OpenedClipboard(HWND owner) {
    for (int trial = 0; OpenClipboard(owner) == 0; ++trial) {
      if (trial == 20) ThrowClipboardError("The clipboard is in use by another program");
      Sleep(10);
    }
  }
  ~OpenedClipboard() { CloseClipboard(); }
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;
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

/// Where a bitmap's pixels begin behind its header, masks and colour table.
std::size_t PixelOffset(const BITMAPINFOHEADER& header) {
  std::size_t offset = header.biSize;
  if (header.biSize == sizeof(BITMAPINFOHEADER) && header.biCompression == BI_BITFIELDS) offset += 12;
  std::size_t colors = header.biClrUsed;
  if (colors == 0 && header.biBitCount <= 8) colors = std::size_t{1} << header.biBitCount;
  return offset + colors * 4;
}

/// Any bitmap as 32-bit pixels from the top, converted by the system.
std::optional<Bitmap> Convert(const BITMAPINFO& source, const void* bits) {
  const BITMAPINFOHEADER& header = source.bmiHeader;
  Bitmap result;
  result.width = header.biWidth;
  result.height = std::abs(header.biHeight);
  if (result.Empty()) return std::nullopt;
  result.dotsPerInch = header.biXPelsPerMeter > 0 ? header.biXPelsPerMeter / 39.37007874 : 96.0;
  BITMAPINFO target{};
  target.bmiHeader = HeaderOf(result.width, -result.height, 96.0);
  void* pixels = nullptr;
  const OwnedBitmap section(CreateDIBSection(nullptr, &target, DIB_RGB_COLORS, &pixels, nullptr, 0));
  const OwnedDc dc(CreateCompatibleDC(nullptr));
  if (!section || !dc) return std::nullopt;
  const HGDIOBJ before = SelectObject(dc.Get(), section.Get());
  StretchDIBits(dc.Get(), 0, 0, result.width, result.height, 0, 0, result.width, result.height, bits, &source,
                DIB_RGB_COLORS, SRCCOPY);
  GdiFlush();
  const auto count = static_cast<std::size_t>(result.width) * static_cast<std::size_t>(result.height);
  const auto* first = static_cast<const std::uint32_t*>(pixels);
  result.pixels.assign(first, first + count);
  for (std::uint32_t& pixel : result.pixels) pixel |= 0xFF000000U;
  SelectObject(dc.Get(), before);
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
  const OpenedClipboard opened(Owner());
  if (EmptyClipboard() == 0) ThrowClipboardError("The clipboard cannot be emptied");
}

void Win32Clipboard::SetPicture(const Bitmap& picture) {
  const auto rowBytes = static_cast<std::size_t>(picture.width) * 4;
  const auto rows = static_cast<std::size_t>(picture.height);
  const BITMAPINFOHEADER header = HeaderOf(picture.width, picture.height, picture.dotsPerInch);
  OwnedMemory memory(GlobalAlloc(GMEM_MOVEABLE, sizeof header + rowBytes * rows));
  auto* bytes = static_cast<char*>(memory ? GlobalLock(memory.Get()) : nullptr);
  if (bytes == nullptr) ThrowClipboardError("There is no memory for the picture");
  std::memcpy(bytes, &header, sizeof header);
  for (std::size_t row = 0; row < rows; ++row) {
    const std::uint32_t* from = picture.pixels.data() + (rows - 1 - row) * static_cast<std::size_t>(picture.width);
    std::memcpy(bytes + sizeof header + row * rowBytes, from, rowBytes);
  }
  GlobalUnlock(memory.Get());

  const OpenedClipboard opened(Owner());
  EmptyClipboard();
  if (SetClipboardData(CF_DIB, memory.Get()) == nullptr) ThrowClipboardError("The clipboard did not take the picture");
  memory.Release();  // the clipboard's own from here on
}

std::optional<Bitmap> Win32Clipboard::Picture() {
  const OpenedClipboard opened(Owner());
  const HANDLE memory = GetClipboardData(CF_DIB);
  if (memory == nullptr) return std::nullopt;
  const auto* info = static_cast<const BITMAPINFO*>(GlobalLock(memory));
  if (info == nullptr) return std::nullopt;
  const SIZE_T size = GlobalSize(memory);
  std::optional<Bitmap> picture;
  if (size > sizeof(BITMAPINFOHEADER) && PixelOffset(info->bmiHeader) < size) {
    picture = Convert(*info, reinterpret_cast<const char*>(info) + PixelOffset(info->bmiHeader));
  }
  GlobalUnlock(memory);
  return picture;
}

}  // namespace chartproject::win32
