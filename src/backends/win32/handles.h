// Move-only owners of the system's handles: each is given back exactly once, on every path.
#pragma once

#include <memory>
#include <type_traits>
#include <utility>

#include "backends/win32/windows_api.h"

namespace chartproject::win32 {

/// Owns a handle of type `Handle` that `Close` gives back. A null handle means none.
template <typename Handle, auto Close>
class Owned {
 public:
  Owned() noexcept = default;
  explicit Owned(Handle handle) noexcept : handle_(handle) {}
  Owned(Owned&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  Owned& operator=(Owned&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~Owned() {
    if (handle_ != nullptr) Close(handle_);
  }
  Owned(const Owned&) = delete;
  Owned& operator=(const Owned&) = delete;

  [[nodiscard]] Handle Get() const noexcept { return handle_; }
  [[nodiscard]] Handle* Receive() noexcept { return &handle_; }
  Handle Release() noexcept { return std::exchange(handle_, nullptr); }
  explicit operator bool() const noexcept { return handle_ != nullptr; }

 private:
  Handle handle_ = nullptr;
};

inline void DeleteGdiObject(HGDIOBJ object) noexcept {
  DeleteObject(object);
}

using OwnedKey = Owned<HKEY, RegCloseKey>;
using OwnedFont = Owned<HFONT, DeleteGdiObject>;
using OwnedBrush = Owned<HBRUSH, DeleteGdiObject>;
using OwnedPen = Owned<HPEN, DeleteGdiObject>;
using OwnedBitmap = Owned<HBITMAP, DeleteGdiObject>;
using OwnedDc = Owned<HDC, DeleteDC>;
using OwnedIcon = Owned<HICON, DestroyIcon>;
using OwnedCursor = Owned<HCURSOR, DestroyCursor>;
using OwnedWindow = Owned<HWND, DestroyWindow>;

/// Painting of a window: begun and ended on every path.
class PaintScope {
 public:
  explicit PaintScope(HWND window) noexcept : window_(window), dc_(BeginPaint(window, &paint_)) {}
  ~PaintScope() { EndPaint(window_, &paint_); }
  PaintScope(const PaintScope&) = delete;
  PaintScope& operator=(const PaintScope&) = delete;
  [[nodiscard]] HDC Get() const noexcept { return dc_; }

 private:
  HWND window_;
  PAINTSTRUCT paint_{};
  HDC dc_;
};

/// An object selected into a device context; what was there before comes back.
class SelectScope {
 public:
  SelectScope(HDC dc, HGDIOBJ object) noexcept : dc_(dc), before_(SelectObject(dc, object)) {}
  ~SelectScope() { SelectObject(dc_, before_); }
  SelectScope(const SelectScope&) = delete;
  SelectScope& operator=(const SelectScope&) = delete;

 private:
  HDC dc_;
  HGDIOBJ before_;
};

/// A file's handle, for which the system says "none" in its own way.
class OwnedFile {
 public:
  explicit OwnedFile(HANDLE handle) noexcept : handle_(handle) {}
  OwnedFile(OwnedFile&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
  ~OwnedFile() { Close(); }
  OwnedFile(const OwnedFile&) = delete;
  OwnedFile& operator=(const OwnedFile&) = delete;
  OwnedFile& operator=(OwnedFile&&) = delete;
  [[nodiscard]] HANDLE Get() const noexcept { return handle_; }
  [[nodiscard]] bool Valid() const noexcept { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE Release() noexcept { return std::exchange(handle_, INVALID_HANDLE_VALUE); }
  void Close() noexcept {
    if (Valid()) CloseHandle(handle_);
    handle_ = INVALID_HANDLE_VALUE;
  }

 private:
  HANDLE handle_;
};

}  // namespace chartproject::win32
