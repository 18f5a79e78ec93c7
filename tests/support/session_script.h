// Sessions whose steps are in their transcript: "== press cmdAdd" is done, and what follows it in the file is what a
// user then saw. A new session is written as its "==" lines alone; the rest is taken as tests/support/transcript.h
// says.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "support/transcript.h"

namespace chartproject {

using Words = std::vector<std::string>;

/// The words of a line: blanks end them outside of '...', and \n, \r, \t, \\, \xHH are one character each.
Words WordsOf(std::string_view line);

class SessionScript {
 public:
  explicit SessionScript(std::string name, FakePorts* ports = nullptr);

  /// What the steps of a first word do, besides those of a window: press, choose, type, tick, drop, look, close.
  std::map<std::string, std::function<void(const Words&)>> does;
  /// Does the steps of the file. @param form the window that the steps of a window are for; null for none
  void Run(Form* form = nullptr);
  /// For a window that opens: shows it and does what "in NAME STEP ; STEP..." laid out for it.
  void Meet(Form& form);

  Transcript transcript;

 private:
  void Act(Form& form, const Words& words);

  std::vector<std::string> steps_;
  std::map<std::string, std::deque<Words>> laidOut_;
};

}  // namespace chartproject
