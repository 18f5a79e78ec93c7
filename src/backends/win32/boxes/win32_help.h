// Opens help files with the system's viewers.
#pragma once

#include "backends/win32/windows_api.h"
#include "platform/help.h"

namespace chartproject::win32 {

/// Lets the help viewer go, which waits for the form that asked for it. Nothing when the form did not.
void EndHelpOf(HWND form) noexcept;

class Win32Help : public Help {
 public:
  void ShowContext(const std::string& helpFile, std::int32_t context) override;
};

}  // namespace chartproject::win32
