// Opens help files with the system's viewers.
#pragma once

#include <functional>
#include <utility>

#include "backends/win32/windows_api.h"
#include "platform/help.h"
#include "texts/texts.h"

namespace chartproject::win32 {

/// Lets the help viewer go, which waits for the form that asked for it. Nothing when the form did not.
void EndHelpOf(HWND form) noexcept;

class Win32Help : public Help {
 public:
  /// @param language the one of what it says when a file cannot be shown
  explicit Win32Help(std::function<Language()> language) : language_(std::move(language)) {}
  void ShowContext(const std::string& helpFile, std::int32_t context) override;

 private:
  void Say(HWND owner, Text text, const std::string& name, const std::string& reason = {}) const;

  std::function<Language()> language_;
};

}  // namespace chartproject::win32
