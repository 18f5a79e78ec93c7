// GDI+ and its session.
#pragma once

#include "backends/win32/windows_api.h"

#include <objidl.h>

#include <gdiplus.h>

#undef DrawText

namespace chartproject::win32 {

/// GDI+ is usable while one of these lives. Not for static objects: a DLL must not start or end it while it is loaded
/// or unloaded.
class GdiplusSession {
 public:
  GdiplusSession() noexcept {
    const Gdiplus::GdiplusStartupInput input;
    Gdiplus::GdiplusStartup(&token_, &input, nullptr);
  }
  ~GdiplusSession() { Gdiplus::GdiplusShutdown(token_); }
  GdiplusSession(const GdiplusSession&) = delete;
  GdiplusSession& operator=(const GdiplusSession&) = delete;

 private:
  ULONG_PTR token_ = 0;
};

}  // namespace chartproject::win32
