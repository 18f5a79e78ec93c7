// The offer to bring interrupted recordings back, in the dialog and in the start window.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "acquire/dialog/section.h"

namespace chartproject {

/// Names the interrupted recordings of a folder one after the other, each with Recover, Later and Discard. Invisible
/// while there is none.
class RecoverySection : public Section {
 public:
  RecoverySection(Form& form, Component& component);

  PictureBox picInterrupted{form_, "picInterrupted"};
  Label lblInterrupted{form_, "lblInterrupted"};
  CommandButton cmdRecover{form_, "cmdRecover"};
  CommandButton cmdLater{form_, "cmdLater"};
  CommandButton cmdDiscard{form_, "cmdDiscard"};

  std::function<void()> recovered;  ///< called after a chart file was written

  [[nodiscard]] LayoutBox Layout();
  /// Shows its texts in the user's language.
  void Translate() { ShowNext(); }
  /// Looks for interrupted recordings in a folder; one that cannot be read has none to offer.
  void Look(const std::string& folder);
  /// False while a recording runs.
  void SetEnabled(bool enabled) { picInterrupted.SetEnabled(enabled); }

 private:
  void ShowNext();
  void ShowCaptions(bool offered);
  void cmdRecover_Click();
  void cmdLater_Click();
  void cmdDiscard_Click();
  void Done();

  std::vector<std::string> chartFiles_;  ///< still to be offered; the first one is shown
  std::int64_t points_ = 0;              ///< of the one that is shown
};

}  // namespace chartproject
