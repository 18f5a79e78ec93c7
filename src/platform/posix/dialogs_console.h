// Message boxes of a program without windows: texts on standard error, answers given beforehand.
#pragma once

#include <functional>
#include <ostream>

#include "platform/dialogs.h"

namespace chartproject {

class ConsoleDialogs : public Dialogs {
 public:
  /// @param out where texts go; @param answerYes the answer to every question
  ConsoleDialogs(std::ostream& out, bool answerYes) : out_(out), answerYes_(answerYes) {}

  /// Writes "[TITLE] TEXT"; a question's answer follows it.
  [[nodiscard]] std::int16_t ShowMessageBox(const MessageBoxRequest& request) override;
  /// There is nobody to type: cancelled.
  [[nodiscard]] std::string ShowInputBox(const InputBoxRequest& request) override;
  [[nodiscard]] std::optional<std::string> ShowOpenFile(const OpenFileRequest& request) override;

  /// Boxes shown so far.
  [[nodiscard]] int Count() const noexcept { return count_; }
  /// Called before a box is written, for example to end a progress line.
  std::function<void()> beforeBox;

 private:
  std::ostream& out_;
  bool answerYes_;
  int count_ = 0;
};

}  // namespace chartproject
