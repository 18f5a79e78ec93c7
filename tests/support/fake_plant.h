// Drives that give the answers of a test and record the requests.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "drive/drive_link.h"

namespace chartproject {

struct FakePlant : DriveLinkFactory {
  std::unique_ptr<DriveLink> Create(const LinkWait& wait) override;
  /// Writes a step down; throws 440 at the step that is to fail.
  void Note(const std::string& step);

  std::map<int, std::string> texts;                 ///< by parameter; the value is the number that the text begins with
  std::optional<std::string> others;                ///< text of the other parameters, which do not answer without one
  std::set<int> silent;                             ///< parameters that do not answer
  ReadOutcome failure{ReadFailure::kNoAnswer, {}};  ///< why they do not
  std::string failAt;                               ///< the step, or the first word of it, that fails
  bool simulated = false;                           ///< the drives are said to be simulated
  std::function<void()> whileReading;               ///< what happens while a drive is read
  /// "create", "open", "read ADDRESS MODEL PARAMETER unit CODE", "tell P210 2", "close", "destroy"
  std::vector<std::string> steps;
};

}  // namespace chartproject
