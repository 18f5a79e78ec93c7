// Message boxes, input boxes and the open-file dialog as Qt windows.
#pragma once

#include <functional>
#include <string>

#include "platform/dialogs.h"
#include "platform/help.h"
#include "texts/texts.h"

class QFileDialog;
class QMessageBox;

namespace chartproject {

/// Asked each time a box is shown, for the user may have chosen another language meanwhile.
using LanguageSource = std::function<Language()>;

/// Gives a file dialog the words of the user's language; a desktop's own dialog has its own.
void TranslateFileDialog(QFileDialog& dialog, Language language);

/// Boxes are modal for the whole program. Timers go on meanwhile.
class QtDialogs : public Dialogs {
 public:
  /// @param help opened by a box's Help button; outlives the dialogs
  QtDialogs(Help& help, LanguageSource language) : help_(help), language_(std::move(language)) {}

  [[nodiscard]] std::int16_t ShowMessageBox(const MessageBoxRequest& request) override;
  [[nodiscard]] std::string ShowInputBox(const InputBoxRequest& request) override;
  [[nodiscard]] std::optional<std::string> ShowOpenFile(const OpenFileRequest& request) override;

 private:
  void AddHelpButton(QMessageBox& box, const MessageBoxRequest& request, Language language);

  Help& help_;
  LanguageSource language_;
};

}  // namespace chartproject
