// Plays a session of the acquisition dialog that is written in its own transcript: the steps are the user's and the
// plant's commands, and what follows a step is what it changed.
#pragma once

#include <map>
#include <string>

#include "acquire/dialog_fixture.h"
#include "support/transcript.h"

namespace chartproject {

class DialogPlayer : public DialogTest {
 protected:
  /// Plays the steps of tests/transcripts/NAME.txt and holds the file against what came of them. A step is one command
  /// or several, with "; " between them; a word that is no command is a failure.
  void Play(const std::string& name);

 private:
  void Do(const std::string& command);
  [[nodiscard]] bool DoAsUser(const std::string& verb, const std::string& name, const std::string& value);
  [[nodiscard]] bool DoOutside(const std::string& verb, const std::string& name, const std::string& value);
  void OpenDialog();
  void ShowPlaces(double width, double height);
  /// Time passes, and all timers that are due meanwhile tick.
  void Pass(Instant duration);
  void Look(Transcript& transcript);
  void LookAtFiles(Transcript& transcript);
  void LookAt(Transcript& transcript, const std::string& what, const std::string& now);

  std::vector<std::string> heard_;            ///< what the dialog told the code that opened it
  std::map<std::string, std::string> known_;  ///< files and values as they were last seen
};

}  // namespace chartproject
