// Message boxes of a program without windows: texts on standard error, answers given beforehand.
#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <utility>

#include "platform/dialogs.h"

namespace chartproject {

class ConsoleDialogs : public Dialogs {
 public:
  /// @param out where texts go; @param answerYes the answer to every question
  /// @param errorTitle the title of boxes that report a run-time error
  ConsoleDialogs(std::ostream& out, bool answerYes, std::string errorTitle)
      : out_(out), answerYes_(answerYes), errorTitle_(std::move(errorTitle)) {}

  /// Writes "[TITLE] TEXT"; a question's answer follows it.
  [[nodiscard]] std::int16_t ShowMessageBox(const MessageBoxRequest& request) override;
  /// Always cancelled: nobody can type.
  [[nodiscard]] std::string ShowInputBox(const InputBoxRequest& request) override;
  [[nodiscard]] std::optional<std::string> ShowOpenFile(const OpenFileRequest& request) override;

  /// Boxes shown so far.
  [[nodiscard]] int Count() const noexcept { return count_; }
  /// Those among them that reported a run-time error.
  [[nodiscard]] int ErrorCount() const noexcept { return errorCount_; }
  /// Called before a box is written, for example to end a progress line.
  std::function<void()> beforeBox;

 private:
  std::ostream& out_;
  bool answerYes_;
  std::string errorTitle_;
  int count_ = 0;
  int errorCount_ = 0;
};

}  // namespace chartproject
