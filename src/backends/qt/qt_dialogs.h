// Message boxes, input boxes and the open-file dialog as Qt windows.
#pragma once

#include <functional>
#include <string>

#include "platform/dialogs.h"
#include "platform/help.h"

class QFileDialog;
class QMessageBox;

namespace chartproject {

/// The words of the boxes themselves, in the user's language; "&" marks an access key.
struct DialogTexts {
  std::string ok = "OK";
  std::string cancel = "Cancel";
  std::string yes = "&Yes";
  std::string no = "&No";
  std::string help = "&Help";
  std::string open = "&Open";
  std::string save = "&Save";
  std::string lookIn = "Look in:";
  std::string fileName = "File &name:";
  std::string fileType = "Files of type:";
  std::string helpTitle = "Help";
  std::string helpFileMissing = "The help file %1 was not found.";
  std::string helpFileUnreadable = "The help file %1 cannot be shown here.";
};

/// Asked each time a box is shown, for the user may have chosen another language meanwhile.
using DialogTextSource = std::function<DialogTexts()>;

/// Gives a file dialog the words of the user's language; a desktop's own dialog has its own.
void TranslateFileDialog(QFileDialog& dialog, const DialogTexts& texts);

/// Boxes are modal for the whole program. Timers go on behind them.
class QtDialogs : public Dialogs {
 public:
  /// @param help opened by a box's Help button; outlives the dialogs
  QtDialogs(Help& help, DialogTextSource texts) : help_(help), texts_(std::move(texts)) {}

  [[nodiscard]] std::int16_t ShowMessageBox(const MessageBoxRequest& request) override;
  [[nodiscard]] std::string ShowInputBox(const InputBoxRequest& request) override;
  [[nodiscard]] std::optional<std::string> ShowOpenFile(const OpenFileRequest& request) override;

 private:
  void AddHelpButton(QMessageBox& box, const MessageBoxRequest& request, const DialogTexts& texts);

  Help& help_;
  DialogTextSource texts_;
};

}  // namespace chartproject
