// What a dialog does while the points of an interrupted recording are saved: minutes, when there are gigabytes of them.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "recording/file/component.h"
#include "recording/journal/read_progress.h"

namespace chartproject {

class Control;
class Form;

/// Shows how far it is, keeps the form awake with its controls locked, and gives up when the user presses Esc or closes
/// the form. Nothing of that is seen while it takes only a moment.
class RecoveryWatch {
 public:
  /// All outlive the watch. @param show shows a line in the user's language, and removes it when it is empty
  RecoveryWatch(Form& form, Component& component, std::function<void(const std::string&)> show);
  ~RecoveryWatch();
  RecoveryWatch(const RecoveryWatch&) = delete;
  RecoveryWatch& operator=(const RecoveryWatch&) = delete;

  [[nodiscard]] ReadProgress& Progress() noexcept { return progress_; }

 private:
  void Report(int percent);

  Form& form_;
  Component& component_;
  std::function<void(const std::string&)> show_;
  std::vector<Control*> locked_;
  const bool wasOpen_;
  bool shown_ = false;
  ReadProgress progress_;
};

}  // namespace chartproject
