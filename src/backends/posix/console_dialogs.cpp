// Writing boxes as lines.
#include "backends/posix/console_dialogs.h"

#include <string_view>

namespace chartproject {

namespace {
constexpr std::int32_t kButtonsMask = 15;  // the low four bits of a style choose the buttons

/// Line ends of a box's text are CR LF; a terminal wants LF.
std::string Lines(std::string_view text) {
  std::string lines;
  for (const char character : text) {
    if (character != '\r') lines += character;
  }
  return lines;
}
}  // namespace

std::int16_t ConsoleDialogs::ShowMessageBox(const MessageBoxRequest& request) {
  if (beforeBox) beforeBox();
  ++count_;
  if (request.title == errorTitle_) ++errorCount_;
  out_ << "[" << request.title << "] " << Lines(request.prompt);
  const bool isQuestion = (request.style & kButtonsMask) == box_style::kYesNo;
  if (isQuestion) out_ << (answerYes_ ? " yes" : " no");
  out_ << "\n" << std::flush;
  if (!isQuestion) return box_answer::kOk;
  return answerYes_ ? box_answer::kYes : box_answer::kNo;
}

std::string ConsoleDialogs::ShowInputBox(const InputBoxRequest& /*request*/) {
  return {};
}

std::optional<std::string> ConsoleDialogs::ShowOpenFile(const OpenFileRequest& /*request*/) {
  return std::nullopt;
}

}  // namespace chartproject
