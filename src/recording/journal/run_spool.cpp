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
    return parts_.back()->AppendAndMeasure(row);
  } catch (const SideFileLost& lost) {
    const bool named = parts_.back()->HasItsName();  // then it was cut: the rest of its rows is still there
    const int former = NumberOf(target, Name());
    parts_.push_back(files_.MakeSideFile({.target = target, .ending = kSpoolEnding}));
    lost_ = lost;
    if (!named) journal_.NoteLostSpool(former);
    journal_.NoteSpool(NumberOf(target, Name()));
    return parts_.back()->AppendAndMeasure(row);
  }
}

void RunSpool::End() {
  parts_.clear();
  lost_.reset();
}

}  // namespace chartproject
