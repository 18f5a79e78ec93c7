// Message boxes, input boxes and the open-file dialog of the system.
#pragma once

#include "platform/dialogs.h"
#include "platform/help.h"

namespace chartproject::win32 {

class Win32Dialogs : public Dialogs {
 public:
  /// @param help opened by a box's Help button and by F1
  explicit Win32Dialogs(Help& help) : help_(help) {}
  [[nodiscard]] std::int16_t ShowMessageBox(const MessageBoxRequest& request) override;
  [[nodiscard]] std::string ShowInputBox(const InputBoxRequest& request) override;
  [[nodiscard]] std::optional<std::string> ShowOpenFile(const OpenFileRequest& request) override;

 private:
  Help& help_;
};

/// The file that the user names in the system's dialog for a new file; nothing when he cancels.
[[nodiscard]] std::optional<std::string> AskForNewFile(const std::string& proposal);

}  // namespace chartproject::win32
