// One file as a rule; a further one for each that was lost.
#include "recording/journal/run_spool.h"

#include <utility>

namespace chartproject {

namespace {

/// The number in a spool file's name.
int NumberOf(const std::string& target, const std::string& name) {
  for (int n = 0; n < kMostSideNames; ++n) {
    if (SideFileName(target, kSpoolEnding, n) == name) return n;
  }
  return 0;  // a back end that writes the folder in another way: the first name is the usual one
}

}  // namespace

DiskSpace RunSpool::Append(const std::string& target, std::string_view row) {
  if (parts_.empty()) {
    parts_.push_back(MakeSpoolFile(files_, target));
    journal_.NoteSpool(NumberOf(target, Name()));
  }
  try {
    space_ = held_.empty() ? AppendToFile(target, row) : AppendToFile(target, held_ + std::string(row));
    held_.clear();
    fault_.reset();
  } catch (const SideFileAway& away) {
    if (held_.size() + row.size() > kMostHeldBytes) throw;
    held_ += row;
    fault_ = away;
  }
  return space_;
}

DiskSpace RunSpool::AppendToFile(const std::string& target, std::string_view rows) {
  try {
    return parts_.back()->AppendAndMeasure(rows);
  } catch (const SideFileLost& lost) {
    const bool named = parts_.back()->HasItsName();  // then it was cut: the rest of its rows is still there
    const int former = NumberOf(target, Name());
    try {
      parts_.push_back(files_.MakeSideFile({.target = target, .ending = kSpoolEnding}));
    } catch (const RunTimeError& error) {
      throw SideFileAway(error);  // not lost as long as its folder may come back
    }
    lost_ = lost;
    if (!named) journal_.NoteLostSpool(former);
    journal_.NoteSpool(NumberOf(target, Name()));
    return parts_.back()->AppendAndMeasure(rows);
  }
}

void RunSpool::WriteHeld(const std::string& target) {
  if (held_.empty()) return;
  try {
    AppendToFile(target, held_);
    held_.clear();
  } catch (const RunTimeError& error) {
    fault_ = error;  // the rows are written with the chart file, or saved elsewhere
  }
}

void RunSpool::End() {
  parts_.clear();
  lost_.reset();
  held_.clear();
  fault_.reset();
}

}  // namespace chartproject
