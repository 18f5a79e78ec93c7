// What a session shows, says and leaves, step by step, held against a text file that a person has read.
//
// The files lie in tests/transcripts. A change of the program that is meant is taken over with
// CHARTPROJECT_TAKE_TRANSCRIPTS=1 in the environment of the tests; the differences are then read like those of code.
#pragma once

#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "forms/form.h"
#include "support/fake_ports.h"

namespace chartproject {

/// What is seen of a form: by name, its own line ("") and one of each control that is visible (two of a list).
std::map<std::string, std::string> SeenOf(const Form& form);

/// Where its controls are, and what of them a user sees that never changes: a line a box, inner ones indented.
std::string LayoutOf(const Form& form);

/// Holds the text against tests/transcripts/NAME.txt: a test failure where they differ.
void ExpectTranscript(const std::string& name, const std::string& text);

/// The titles of the steps of tests/transcripts/NAME.txt, for a session that is played from its own transcript.
std::vector<std::string> StepsOf(const std::string& name);

class Transcript {
 public:
  explicit Transcript(std::string name, FakePorts* ports = nullptr) : name_(std::move(name)), ports_(ports) {}
  ~Transcript() { ExpectTranscript(name_, text_); }
  Transcript(const Transcript&) = delete;
  Transcript& operator=(const Transcript&) = delete;

  /// Texts that differ from run to run, as folders do, each with the word that stands for it.
  std::vector<std::pair<std::string, std::string>> words;

  /// Begins a step; what it did is added by the calls after it.
  void Step(std::string_view title);
  void Add(std::string_view line);
  /// One line of several parts.
  template <class... Parts>
  void Say(const Parts&... parts) {
    std::ostringstream line;
    (line << ... << parts);
    Add(line.str());
  }
  /// What differs in the form since it was last looked at, then the boxes, sounds and settings since the last step,
  /// and what a form host that takes notes was told.
  void Look(const Form& form);
  /// Takes the form as it is for seen.
  void Know(const Form& form) { seen_[form.Name()] = SeenOf(form); }
  /// The boxes, sounds and settings alone.
  void Listen();

 private:
  std::string name_;
  FakePorts* ports_;
  std::string text_;
  std::map<std::string, std::map<std::string, std::string>> seen_;  ///< by the forms' names
  std::size_t boxes_ = 0;
  std::map<std::string, std::map<std::string, std::string>> stored_;
};

}  // namespace chartproject
