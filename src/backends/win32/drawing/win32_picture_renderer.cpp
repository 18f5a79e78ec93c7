// Paints straight into the pixels of the picture that it returns.
#include "backends/win32/drawing/win32_picture_renderer.h"

#include <objidl.h>

#include <cmath>
#include <memory>

#include "backends/win32/drawing/clipboard_access.h"
#include "platform/run_time_error.h"

namespace chartproject::win32 {
namespace {

/// GDI+'s own encoder of PNG files; its class is the same on every system.
constexpr CLSID kPngEncoder = {0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

struct ReleaseStream {
  void operator()(IStream* stream) const { stream->Release(); }
};

[[noreturn]] void ThrowNotWritten(int status) {
  throw RunTimeError(error_number::kInvalidPicture, Text::kPictureNotWritten, {std::to_string(status)});
}

}  // namespace

Bitmap Win32PictureRenderer::Render(Size size, double scale, const std::function<void(Canvas&)>& paint) {
  Bitmap picture;
  picture.width = static_cast<int>(std::lround(size.width * scale));
  picture.height = static_cast<int>(std::lround(size.height * scale));
  picture.dotsPerInch = 96.0 * scale;
  if (picture.Empty()) return Bitmap{};
  const auto count = static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
  picture.pixels.assign(count, 0xFFFFFFFFU);
  Gdiplus::Bitmap surface(picture.width, picture.height, picture.width * 4, PixelFormat32bppARGB,
                          reinterpret_cast<BYTE*>(picture.pixels.data()));
  Gdiplus::Graphics graphics(&surface);
  GdiplusCanvas canvas(graphics, fonts_, size, scale);
  paint(canvas);
  graphics.Flush(Gdiplus::FlushIntentionSync);
  return picture;
}

std::string Win32PictureRenderer::PngBytes(const Bitmap& picture) {
  IStream* made = nullptr;
  if (FAILED(CreateStreamOnHGlobal(nullptr, TRUE, &made))) ThrowNotWritten(Gdiplus::OutOfMemory);
  const std::unique_ptr<IStream, ReleaseStream> stream(made);
  std::vector<std::uint32_t> pixels = picture.pixels;
  Gdiplus::Bitmap surface(picture.width, picture.height, picture.width * 4, PixelFormat32bppRGB,
                          reinterpret_cast<BYTE*>(pixels.data()));
  const auto dots = static_cast<Gdiplus::REAL>(picture.dotsPerInch);
  surface.SetResolution(dots, dots);
  const Gdiplus::Status status = surface.Save(stream.get(), &kPngEncoder, nullptr);
  if (status != Gdiplus::Ok) ThrowNotWritten(status);
  STATSTG written{};
  HGLOBAL memory = nullptr;
  if (FAILED(stream->Stat(&written, STATFLAG_NONAME)) || FAILED(GetHGlobalFromStream(stream.get(), &memory))) {
    ThrowNotWritten(Gdiplus::Win32Error);
  }
  const LockedMemory locked(memory);
  if (locked.Get() == nullptr) ThrowNotWritten(Gdiplus::OutOfMemory);
  return {static_cast<const char*>(locked.Get()), static_cast<std::size_t>(written.cbSize.QuadPart)};
}

}  // namespace chartproject::win32
