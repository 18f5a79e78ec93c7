// Port: message boxes, input boxes and the open-file dialog.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace chartproject {

/// Style flags of a message box (the platform's numbers).
namespace box_style {
inline constexpr std::int32_t kOkOnly = 0;
inline constexpr std::int32_t kYesNo = 4;
inline constexpr std::int32_t kCritical = 16;
inline constexpr std::int32_t kQuestion = 32;
inline constexpr std::int32_t kExclamation = 48;
inline constexpr std::int32_t kInformation = 64;
inline constexpr std::int32_t kHelpButton = 16384;
}  // namespace box_style

/// Answers of a message box (the platform's numbers).
namespace box_answer {
inline constexpr std::int16_t kOk = 1;
inline constexpr std::int16_t kCancel = 2;
inline constexpr std::int16_t kYes = 6;
inline constexpr std::int16_t kNo = 7;
}  // namespace box_answer

struct MessageBoxRequest {
  std::string prompt;
  std::int32_t style = box_style::kOkOnly;  ///< sum of box_style flags
  std::string title;
  std::string helpFile;          ///< used only with box_style::kHelpButton
  std::int32_t helpContext = 0;  ///< likewise
};

struct InputBoxRequest {
  std::string prompt;
  std::string title;
  std::string helpFile;
};

struct OpenFileRequest {
  std::string initialFolder;
  std::string filter;  ///< pairs "description|pattern" joined by "|", for example "Chart Files (*.cht)|*.cht"
  int filterIndex = 1;
  std::int32_t flags = 0;  ///< 2 a file to write, 4 hides the read-only box, 4096 asks for an existing file
};

class Dialogs {
 public:
  virtual ~Dialogs() = default;
  /// Shows a modal box; returns one of box_answer. Closing a Yes/No box otherwise counts as No.
  [[nodiscard]] virtual std::int16_t ShowMessageBox(const MessageBoxRequest& request) = 0;
  /// The text entered; empty when cancelled.
  [[nodiscard]] virtual std::string ShowInputBox(const InputBoxRequest& request) = 0;
  /// The chosen file's full name; nothing when cancelled. Throws RunTimeError when the dialog cannot be shown.
  [[nodiscard]] virtual std::optional<std::string> ShowOpenFile(const OpenFileRequest& request) = 0;
};

}  // namespace chartproject
