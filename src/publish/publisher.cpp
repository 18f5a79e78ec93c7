// Reading, posting, judging the answer.
#include "publish/publisher.h"

#include <algorithm>
#include <utility>

#include "publish/series_names.h"
#include "recording/journal/interrupted.h"

namespace chartproject {
namespace {

constexpr std::int64_t kBatchPoints = 5000;
constexpr std::size_t kBatchBytes = 4'000'000;
constexpr Instant kBatchTime = std::chrono::seconds(1);
constexpr Instant kLook = std::chrono::milliseconds(250);    ///< between two looks for new points
constexpr Instant kBetweenSaves = std::chrono::seconds(10);  ///< of the position
constexpr Instant kSilence = std::chrono::seconds(10);       ///< of a recorder that may be dead
constexpr Instant kBetweenQuietBreaks = std::chrono::minutes(20);
constexpr Instant kFirstDelay = std::chrono::seconds(1);
constexpr Instant kLongestDelay = std::chrono::minutes(1);
constexpr std::int64_t kSettledAfter = 600;  // seconds

/// Doubled with each failure in a row, and different from one recording to the next: thousands of recorders do not
/// return to their server in the same second.
Instant DelayAfter(int failures, const std::string& recording) {
  Instant delay = kFirstDelay;
  for (int i = 1; i < failures && delay < kLongestDelay; ++i) delay *= 2;
  constexpr std::size_t kSpread = 512;
  const std::size_t spread = std::hash<std::string>{}(recording + std::to_string(failures)) % kSpread;
  return std::min(delay, kLongestDelay) * static_cast<int>(kSpread * 3 / 4 + spread / 2) / static_cast<int>(kSpread);
}

bool IsZero(std::string_view field) noexcept {
  return field.find_first_not_of("-0.,") == std::string_view::npos;
}

}  // namespace

Publisher::Publisher(const PublishPorts& ports, PublishRequest request, LinePoster& poster)
    : ports_(ports),
      request_(std::move(request)),
      poster_(poster),
      feed_(std::make_unique<RecordingFeed>(ports.files, ports.codePage, request_.chartFile)),
      batchLimit_(kBatchPoints) {}

Publisher::~Publisher() {
  if (unsaved_) KeepPosition();
}

PublishState Publisher::Step(const std::function<bool()>& goOn) {
  if (state_ == PublishState::kComplete || state_ == PublishState::kFailed) return state_;
  try {
    state_ = StepOrThrow(goOn);
  } catch (const std::exception& error) {
    report_.fault = AsRunTimeError(error);
    state_ = PublishState::kFailed;
  }
  return state_;
}

PublishState Publisher::StepOrThrow(const std::function<bool()>& goOn) {
  if (ports_.clock.Now() < wakeAt_) return PublishState::kWaiting;
  if (!history_ && !Open(goOn)) return Wait(kLook);
  if (state_ == PublishState::kComplete) return state_;
  const bool more = Fill(goOn);
  if (!goOn()) return Wait(kLook);
  const Instant now = ports_.clock.Now();
  if (batch_.empty()) {
    // Points without values need no server.
    if (place_.next > history_->Acknowledged().next) history_->Acknowledge(place_, moment_, now);
    if (more) return PublishState::kSending;
    return AtEnd(goOn) ? Complete() : Wait(kLook);
  }
  const bool full = batchPoints_ >= batchLimit_ || batch_.size() >= kBatchBytes;
  const bool due = full || ended_ || gone_ || !feed_->Running() || now - batchBegun_ >= kBatchTime;
  if (!due) return Wait(kLook);
  return Judge(poster_.Post(batch_, goOn), goOn);
}

bool Publisher::Open(const std::function<bool()>& goOn) {
  if (!lock_) {
    try {
      LockAttempt attempt = ports_.files.Lock(PositionName(request_.chartFile));
      if (!attempt.lock) {
        throw RunTimeError(error_number::kFileAlreadyOpen, Text::kPublishedByAnother,
                           {request_.chartFile, attempt.heldBy});
      }
      lock_ = std::move(attempt.lock);
    } catch (const RunTimeError& error) {
      if (error.Number() == error_number::kFileAlreadyOpen) throw;
      report_.positionFault = error;  // a folder that takes no lock takes no position either
    }
  }
  if (StillRecorded()) {
    if (!feed_->OpenRunning()) return false;
  } else {
    feed_->OpenFinished();
  }
  Begin(goOn);
  return true;
}

void Publisher::Begin(const std::function<bool()>& goOn) {
  const ChartHeader& header = feed_->Header();
  const std::string mark = RecordingMark(header);
  position_ = {.address = poster_.Address(), .measurement = request_.measurement, .recording = mark};
  position_.rowTimes = feed_->Running();
  LineTags tags = request_.tags(header);
  tags.emplace_back("recording", RecordingName(request_.chartFile, header));
  position_.series = SeriesKey(request_.measurement, std::move(tags));
  TakePosition();
  const Companion* const readings = feed_->Readings();
  const bool realTimes = readings != nullptr && readings->times.Known() && !position_.rowTimes;
  moments_.emplace(header, realTimes ? &readings->times : nullptr, ports_.locale, ports_.zone, request_.chartFile);
  const std::vector<std::string> fields = FieldNames(header);
  columns_ = fields.size();
  lines_.emplace(position_.series, fields, ports_.locale.Numbers());
  const bool known = position_.resume.anchor.moment > 0 && !request_.again;
  place_ = known ? position_.resume : SendPlace{1, moments_->Begin()};
  history_.emplace(place_);
  report_.acknowledged = position_.acknowledged;
  if (position_.settled && !request_.again && !feed_->Running()) {
    state_ = PublishState::kComplete;
    return;
  }
  moments_->Restore(place_.anchor);
  if (feed_->Running()) (void)feed_->Follow();
  feed_->GoTo(place_.next, goOn);
  KeepPosition();  // before the first point leaves: the tags with which it leaves must be known ever after
}

void Publisher::TakePosition() {
  for (const std::string& chartFile : NamesBeforeRecovery(request_.chartFile)) {
    for (const PublishPosition& one : LoadPositions(ports_.files, PositionName(chartFile))) {
      if (one.address != position_.address || one.measurement != position_.measurement ||
          one.recording != position_.recording) {
        continue;
      }
      position_ = one;
      return;
    }
  }
}

/// False when there is no further point now.
bool Publisher::Fill(const std::function<bool()>& goOn) {
  if (feed_->Running() && !feed_->Follow()) gone_ = true;
  for (FedPoint point; batchPoints_ < batchLimit_ && batch_.size() < kBatchBytes;) {
    if (!feed_->Next(point)) return false;
    if (point.number < place_.next) continue;  // the search for the place was given up
    AddPoint(point);
    if (point.number % kBatchPoints == 0 && !goOn()) return false;
  }
  return true;
}

void Publisher::AddPoint(const FedPoint& point) {
  const Instant now = ports_.clock.Now();
  lastPoint_ = now;
  if (batchPoints_ == 0) batchBegun_ = now;
  if (report_.begun == 0) report_.begun = point.number;
  moment_ = moments_->At(point.number, point.row.time);
  lines_->Begin(batch_);
  for (std::size_t column = 0; column < columns_; ++column) {
    const std::string_view field = point.row.values[column];
    if (!feed_->Failed(column, point.number, IsZero(field)))
      batchValues_ += lines_->Value(batch_, column, field) ? 1 : 0;
  }
  if (lines_->End(batch_, moment_)) {
    ++batchPoints_;
  } else {
    ++report_.valueless;
  }
  place_ = {point.number + 1, moments_->State()};
}

/// All points of the recording were given. One that ran goes on in its chart file.
bool Publisher::AtEnd(const std::function<bool()>& goOn) {
  if (!feed_->Running()) return true;
  if (!gone_) {
    CheckRecorder();
    return false;
  }
  if (StillRecorded()) {
    GoOnInNewJournal(goOn);
    return false;
  }
  feed_->OpenFinished();
  CheckMark();
  feed_->GoTo(place_.next, goOn);
  return false;
}

bool Publisher::StillRecorded() {
  return request_.live ? !ended_ : IsBeingRecorded(ports_.files, request_.chartFile);
}

/// A recorder of another program may have died.
void Publisher::CheckRecorder() {
  const Instant now = ports_.clock.Now();
  if (request_.live || now - lastPoint_ < kSilence) return;
  lastPoint_ = now;
  if (StillRecorded() || !feed_->Follow()) return;
  throw RunTimeError(error_number::kInvalidFileFormat, Text::kPublishInterrupted, {request_.chartFile});
}

/// Somebody removed the journal, and the recorder made a new one that holds everything; or it is about to end.
void Publisher::GoOnInNewJournal(const std::function<bool()>& goOn) {
  auto fresh = std::make_unique<RecordingFeed>(ports_.files, ports_.codePage, request_.chartFile);
  if (!fresh->OpenRunning() || !fresh->Follow()) return;
  feed_ = std::move(fresh);
  CheckMark();
  gone_ = false;
  feed_->GoTo(place_.next, goOn);
}

void Publisher::CheckMark() const {
  if (RecordingMark(feed_->Header()) == position_.recording) return;
  throw RunTimeError(error_number::kPathFileAccess, Text::kPublishReplaced, {request_.chartFile});
}

PublishState Publisher::Judge(const PostAnswer& answer, const std::function<bool()>& goOn) {
  switch (answer.result) {
    case PostResult::kTaken:
      return Taken(answer, goOn);
    case PostResult::kGivenUp:
      GoBackTo(history_->Acknowledged(), goOn);
      return Wait(kLook);
    case PostResult::kTooLarge:
      if (batchPoints_ > 1) {
        batchLimit_ = batchPoints_ / 2;
        GoBackTo(history_->Acknowledged(), goOn);
        return PublishState::kSending;
      }
      [[fallthrough]];
    default:
      GoBackTo(answer.mayHaveDied ? history_->Safe() : history_->Acknowledged(), goOn);
  }
  return Trouble(answer);
}

PublishState Publisher::Taken(const PostAnswer& answer, const std::function<bool()>& goOn) {
  const Instant now = ports_.clock.Now();
  history_->Acknowledge(place_, moment_, now);
  report_.acknowledged = std::max(report_.acknowledged, place_.next - 1);
  report_.lines += batchPoints_;
  report_.values += batchValues_;
  batch_.clear();
  batchPoints_ = batchValues_ = 0;
  failures_ = 0;
  unsaved_ = true;
  if (report_.trouble) {
    report_.trouble.reset();
    if (recovered) recovered();
  }
  // The server may have died and come back between two batches. A gateway that closes connections without a word looks
  // the same, so that going back is not repeated soon.
  const bool quietBreak = breaks_ && *breaks_ != answer.breaks;
  breaks_ = answer.breaks;
  if (quietBreak && (wentBack_ == Instant{} || now - wentBack_ > kBetweenQuietBreaks)) {
    wentBack_ = now;
    GoBackTo(history_->Safe(), goOn);
  }
  if (now - lastSaved_ >= kBetweenSaves) KeepPosition();
  return PublishState::kSending;
}

PublishState Publisher::Trouble(const PostAnswer& answer) {
  const bool known = report_.trouble && report_.trouble->result == answer.result;
  report_.trouble = answer;
  if (failures_ == 0) troubledSince_ = ports_.clock.Now();
  breaks_.reset();  // the next connection is new
  if (!known && troubled) troubled();
  const bool mayPass = answer.result == PostResult::kServerBusy || answer.result == PostResult::kNotReached;
  const bool inTime = feed_->Running() || ports_.clock.Now() - troubledSince_ < request_.patience;
  const bool patient = request_.live || (mayPass && inTime);
  if (!patient) return PublishState::kFailed;
  return Wait(DelayAfter(++failures_, position_.series));
}

void Publisher::GoBackTo(const SendPlace& place, const std::function<bool()>& goOn) {
  const SendPlace target = place;  // the history that it is part of changes
  batch_.clear();
  batchPoints_ = batchValues_ = 0;
  history_->GoBack(target);
  place_ = target;
  moments_->Restore(target.anchor);
  feed_->GoTo(target.next, goOn);
}

PublishState Publisher::Complete() {
  const std::int64_t now = UtcNow();
  if (position_.completed == 0) {
    position_.completed = now;
  } else if (now - position_.completed >= kSettledAfter) {
    position_.settled = true;
  }
  report_.acknowledged = std::max(report_.acknowledged, place_.next - 1);
  KeepPosition();
  return PublishState::kComplete;
}

PublishState Publisher::Wait(Instant duration) {
  wakeAt_ = ports_.clock.Now() + duration;
  return PublishState::kWaiting;
}

void Publisher::KeepPosition() {
  if (!history_) return;
  lastSaved_ = ports_.clock.Now();
  unsaved_ = false;
  position_.acknowledged = report_.acknowledged;
  position_.resume = history_->Safe();
  const std::string name = PositionName(request_.chartFile);
  try {
    std::vector<PublishPosition> positions = LoadPositions(ports_.files, name);
    const auto mine = std::ranges::find_if(positions, [this](const PublishPosition& one) {
      return one.address == position_.address && one.measurement == position_.measurement &&
             one.recording == position_.recording;
    });
    if (mine != positions.end()) positions.erase(mine);
    positions.push_back(position_);
    while (positions.size() > kMostPositions) positions.erase(positions.begin());
    SavePositions(ports_.files, name, request_.chartFile, positions);
    report_.positionFault.reset();
  } catch (const RunTimeError& error) {
    report_.positionFault = error;
  }
}

std::int64_t Publisher::UtcNow() const {
  return ports_.zone.UtcSeconds(ports_.clock.LocalNow());
}

}  // namespace chartproject
