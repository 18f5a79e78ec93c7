// The window classes of the module's own windows: forms, and the controls that the core paints.
#pragma once

#include "backends/win32/windows_api.h"

namespace chartproject::win32 {

/// Registers the classes while at least one object lives in the process, from whichever thread: instances of several
/// threads share them, and a class that outlived the module would call into unloaded code.
class WindowClasses {
 public:
  /// @param formProcedure of kFormClass; the same for all objects
  explicit WindowClasses(WNDPROC formProcedure);
  ~WindowClasses();
  WindowClasses(const WindowClasses&) = delete;
  WindowClasses& operator=(const WindowClasses&) = delete;
};

inline constexpr const wchar_t* kFormClass = L"ChartProjectForm";
/// Window class of DrawnWidget.
inline constexpr const wchar_t* kDrawnClass = L"ChartProjectDrawn";

/// The form that a window is, or that owns it; null when there is none.
[[nodiscard]] HWND FormBelow(HWND window) noexcept;

/// The window that a new box or form belongs to: this thread's active one; while the user works in another program, the
/// form that takes input, so that they come to the front together. Null when there is neither.
[[nodiscard]] HWND WindowToOwn() noexcept;

/// The owner of a new form: the form that opens it, else the host's window that the others belong to. A window of less
/// duration would take the form along when it is closed.
[[nodiscard]] HWND OwnerForForm() noexcept;

}  // namespace chartproject::win32
