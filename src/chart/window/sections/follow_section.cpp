// Growth, the end of a recording, and its interruption.
#include "chart/window/sections/follow_section.h"

#include <algorithm>

#include "common/environment/language.h"
#include "common/error_log.h"
#include "recording/journal/interrupted.h"

namespace chartproject {
namespace {

constexpr int kRunningInterval = 200;  // milliseconds
constexpr int kRestingInterval = 1000;
/// Looks without a new point after which it is asked whether the recording still runs.
constexpr int kQuietLooks = 10;
/// Points of a division of the slice that grows with the recording.
constexpr std::int64_t kMostPerDivision = 20;

std::int64_t WholeDivision(std::int64_t points) {
  return std::max<std::int64_t>(1, (points + kDivisions - 1) / kDivisions);
}

std::int64_t FirstDivision(std::int64_t points) {
  return std::min(WholeDivision(points), kMostPerDivision);
}

}  // namespace

FollowSection::FollowSection(Form& form, Environment& environment, ChartView& view, ScrollSection& scroll,
                             OverviewSection& overview, ReadingSection& reading)
    : tmrFollow(form, "tmrFollow"),
      env_(environment),
      view_(view),
      scroll_(scroll),
      overview_(overview),
      reading_(reading) {
  tmrFollow.SetEnabled(false);
  tmrFollow.SetEndless(true);
  Connect(tmrFollow.tick, tmrFollow, "Timer", this, &FollowSection::tmrFollow_Tick);
}

void FollowSection::Restart() {
  const bool unfinished = view_.Unfinished() != nullptr;
  state_ = State::kRunning;
  quietLooks_ = 0;
  reading_.SayAtRest({});
  tmrFollow.SetInterval(unfinished ? kRunningInterval : kRestingInterval);
  tmrFollow.SetEnabled(view_.HasPoints());
  if (!unfinished) return;
  view_.SetDivision(FirstDivision(view_.Points()));
  view_.ScrollTo(std::int64_t{view_.FirstLine()} + std::max<std::int64_t>(0, view_.Points() - view_.Span()));
  scroll_.Follow();
  ShowState();
}

bool FollowSection::CatchUp() {
  if (view_.RowsAreThere()) return true;
  if (!env_.ports.files.FileExists(view_.FileName())) return false;
  openFinished();
  tmrFollow.SetInterval(kRestingInterval);
  reading_.SayAtRest(LoadMessage(env_, Text::kFollowEnded));
  return true;
}

void FollowSection::tmrFollow_Tick() {
  if (reading_.Busy()) return;
  try {
    Look();
  } catch (const RunTimeError& error) {
    // What the user does next reads the file, too, and shows the reason.
    NoteRunTimeError(env_, "tmrFollow", error);
    tmrFollow.SetEnabled(false);
  }
}

void FollowSection::Look() {
  const std::int32_t before = view_.Points();
  switch (view_.LookForGrowth()) {
    case FileGrowth::kPoints:
      quietLooks_ = 0;
      state_ = State::kRunning;
      PointsCame(before);
      return;
    case FileGrowth::kGrew:
      overview_.Resume();
      return;
    case FileGrowth::kGone:
      if (!CatchUp()) {
        state_ = State::kStopped;
        tmrFollow.SetEnabled(false);
      } else if (!reload()) {
        tmrFollow.SetEnabled(false);
      }
      return;
    case FileGrowth::kNone:
      break;
  }
  if (view_.Unfinished() == nullptr || state_ != State::kRunning || ++quietLooks_ < kQuietLooks) return;
  quietLooks_ = 0;
  if (IsBeingRecorded(env_.ports.files, view_.FileName())) return;
  // The recording may have ended between the two questions.
  if (!view_.RowsAreThere()) return;
  state_ = State::kInterrupted;
  ShowState();
}

void FollowSection::PointsCame(std::int32_t before) {
  const bool atEnd = view_.StartLine() + view_.Span() >= std::int64_t{view_.FirstLine()} + before;
  scroll_.Prepare();
  if (atEnd) {
    if (view_.Unfinished() != nullptr) view_.SetDivision(NextDivision(before));
    view_.ScrollTo(std::int64_t{view_.FirstLine()} + std::max<std::int64_t>(0, view_.Points() - view_.Span()));
  }
  scroll_.Follow();
  if (view_.Unfinished() != nullptr) ShowState();
  // A line that is not a point would come again at every look.
  if (!reload()) tmrFollow.SetEnabled(false);
}

std::int64_t FollowSection::NextDivision(std::int32_t before) const {
  const std::int64_t division = view_.Division();
  if (division == FirstDivision(before)) return FirstDivision(view_.Points());
  const bool whole = division >= WholeDivision(before);
  return whole ? std::max(division, WholeDivision(view_.Points())) : division;
}

void FollowSection::ShowState() {
  const Text text = state_ == State::kRunning ? Text::kFollowing : Text::kFollowInterrupted;
  reading_.SayAtRest(FillIn(LoadMessage(env_, text), {std::to_string(view_.Points())}));
}

}  // namespace chartproject
