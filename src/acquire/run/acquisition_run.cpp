// The recording: points are read, kept in memory or spooled, and written to the chart file at the end.
#include "acquire/run/acquisition_run.h"

#include <algorithm>
#include <utility>

#include "common/values/numbers.h"
#include "forms/flag_scope.h"
#include "platform/run_time_error.h"

namespace chartproject {

AcquisitionRun::AcquisitionRun(Component& component)
    : component_(component),
      journal_(component.ports.files, component.ports.codePage),
      spool_(component.ports.files, journal_) {}

std::string AcquisitionRun::Reserve(const std::string& fileName, ReadProgress& progress) {
  FileSystem& files = component_.ports.files;
  fileLock_.reset();  // drop the lock of a reservation that was never started
  targetFile_ = files.ResolveLink(fileName);
  files.CheckReplaceable(targetFile_);
  LockAttempt attempt = files.Lock(targetFile_);
  if (!attempt.lock) return attempt.heldBy;
  ChartFileWriter(files, component_.ports.codePage).CheckTarget(targetFile_);
  leftovers_ = RecoverLeftovers(component_.ports, targetFile_, progress);
  fileLock_ = std::move(attempt.lock);
  return {};
}

void AcquisitionRun::Arm(const RunPlan& plan) {
  plan_ = plan;
  header_ = component_.chartHeader;
  ++serial_;
  counter_ = 0;
  end_ = RunEnd::kNone;
  failureReason_.clear();
  failed_ = {};
  pace_ = {};
  simulated_ = component_.driveLink && component_.driveLink->Simulated();
  companionFailure_.clear();
  journal_.Begin(targetFile_, header_, plan_.millisecondsBetweenPoints, simulated_);
  state_ = RunState::kArmed;
}

void AcquisitionRun::BeginSampling() {
  spool_.End();
  rows_.assign(RowsInMemory() ? static_cast<std::size_t>(plan_.numberOfPoints) : 0, PointRow{});
  point_ = PointRow{};
  pace_ = Pace(plan_.millisecondsBetweenPoints, component_.ports.clock.Now());
  for (std::string* text : {&header_.StartDate, &header_.StartTime, &header_.EndDate, &header_.EndTime}) text->clear();
  state_ = RunState::kSampling;
}

void AcquisitionRun::TakePoint() {
  if (state_ != RunState::kSampling || reading_) return;
  const DateTime now = component_.ports.clock.LocalNow();
  const Instant at = component_.ports.clock.Now();
  const std::uint32_t run = serial_;
  try {
    if (ReadPoint(now)) KeepPoint(now, at);
  } catch (const RunTimeError& error) {
    if (serial_ != run) return;  // this read belongs to a run that was stopped meanwhile; the next run reads again
    // The link itself or the spool file failed: this point is lost, those before it are not.
    failureReason_ = error.Description(component_.language);
    Stop(RunEnd::kFailed);
  }
}

/// False when its run ended during the read.
bool AcquisitionRun::ReadPoint(const DateTime& now) {
  const FlagScope busy(reading_);
  const std::uint32_t run = serial_;
  component_.currentDrive = plan_.driveAddress;
  point_.time = FormatTimeOfDay(now.hour, now.minute, now.second);
  for (int column = 0; column < kColumnCount; ++column) {
    const auto index = static_cast<std::size_t>(column);
    const std::int16_t parameter = plan_.columns[index];
    const bool inUse = parameter != kUnusedParameter && (column == 0 || column < plan_.parameterCount);
    ColumnReading reading = inUse ? ReadInto(index) : ColumnReading{};
    if (state_ != RunState::kSampling || serial_ != run) return false;
    point_.values[index] = std::move(reading.text);
    outcomes_[index] = std::move(reading.outcome);
  }
  return true;
}

ColumnReading AcquisitionRun::ReadInto(std::size_t column) {
  const std::uint32_t run = serial_;
  try {
    return ReadColumn(component_, plan_.columns[column]);
  } catch (const RunTimeError& error) {
    const bool wanted = state_ == RunState::kSampling && serial_ == run;
    if (wanted) failed_[column].Note(counter_ + 1, {ReadFailure::kBroken, error.Description(component_.language)});
    throw;
  }
}

void AcquisitionRun::NoteFailures(std::int32_t point) {
  for (std::size_t column = 0; column < outcomes_.size(); ++column) {
    if (!outcomes_[column].Answered()) failed_[column].Note(point, outcomes_[column]);
  }
}

void AcquisitionRun::KeepPoint(const DateTime& now, Instant at) {
  const std::int32_t number = counter_ + 1;
  Locale& locale = component_.ports.locale;
  if (number == 1) {
    header_.StartDate = locale.DateText(now);
    header_.StartTime = point_.time;
    journal_.NoteFirstPoint(header_, now, RowsInMemory());
  }
  if (number == plan_.numberOfPoints) {
    header_.EndDate = locale.DateText(now);
    header_.EndTime = point_.time;
  }
  NoteFailures(number);  // before the row: a row that is there after a crash is known to have failed
  if (RowsInMemory()) {
    std::swap(rows_[static_cast<std::size_t>(counter_)], point_);
    journal_.Keep(std::span(rows_).first(static_cast<std::size_t>(number)), failed_, number,
                  number == plan_.numberOfPoints);
  } else {
    journal_.Keep({}, failed_, number);
    KeepInSpool();
  }
  counter_ = number;
  lastTaken_ = now;
  pace_.Note(number, at);
  if (!RowsInMemory() && freeSpace_ < kReservedSpace) {
    Stop(RunEnd::kDiskSpace);
  } else if (number == plan_.numberOfPoints) {
    FinishAs(RunEnd::kComplete);
  }
}

std::int32_t AcquisitionRun::Kept() const noexcept {
  if (!RowsInMemory() || KeepingFault()) return counter_;
  return static_cast<std::int32_t>(journal_.SavedRows());
}

void AcquisitionRun::KeepInSpool() {
  FileSystem& files = component_.ports.files;
  rowLine_.clear();
  AppendRowLine(rowLine_, point_);
  freeSpace_ = spool_.Append(targetFile_, component_.ports.codePage.Encode(rowLine_)).totalFree;
  // The spool file is on the disk of its chart file, but the dialog may show another file meanwhile.
  if (component_.strChartFileName != plan_.fileName) {
    freeSpace_ = files.SpaceFor(component_.strChartFileName).totalFree;
  }
}

void AcquisitionRun::Stop(RunEnd reason) {
  if (!Active()) return;
  if (state_ == RunState::kSampling) {
    const DateTime now = component_.ports.clock.LocalNow();
    header_.EndDate = component_.ports.locale.DateText(now);
    header_.EndTime = component_.ports.locale.TimeText(now);
  }
  FinishAs(reason);
}

void AcquisitionRun::FinishAs(RunEnd reason) {
  end_ = reason;
  state_ = RunState::kFinished;
}

Companion AcquisitionRun::Readings() const {
  Companion companion{.points = counter_, .failed = failed_, .pace = pace_.Summary(), .times = pace_.Times()};
  std::ranges::copy(plan_.columns, companion.parameters.begin());
  companion.simulated = simulated_;
  return companion;
}

void AcquisitionRun::SaveReadings() {
  try {
    SaveCompanion(component_.ports.files, component_.ports.codePage, targetFile_, header_, Readings());
  } catch (const RunTimeError& error) {
    companionFailure_ = error.Description(component_.language);
  }
}

ChartWriteResult AcquisitionRun::WriteChartFile(const std::function<void()>& keepAlive) {
  const ChartFileWriter writer(component_.ports.files, component_.ports.codePage);
  const std::string& rescueFolder = component_.settings.strFolder;
  if (!RowsInMemory()) {
    spool_.WriteHeld(targetFile_);
    return writer.WriteSpool(targetFile_, header_, {spool_.Files(), counter_, spool_.Held()}, rescueFolder, keepAlive);
  }
  journal_.Keep(std::span(rows_).first(static_cast<std::size_t>(counter_)), failed_, counter_);
  const auto journalOfAll = [this] {
    const KeptRows kept = journal_.Kept();
    return kept.rows == counter_ ? kept.fileName : std::string();
  };
  return writer.WriteRows(targetFile_, header_, rows_, rescueFolder, journalOfAll);
}

ChartWriteResult AcquisitionRun::Close(const std::function<void()>& keepAlive) {
  ChartWriteResult result;
  if (state_ != RunState::kFinished) return result;
  if (counter_ > 0) {
    component_.chartHeader = header_;
    result = WriteChartFile(keepAlive);
    if (result.kind != ChartWriteResult::Kind::kFailed) SaveReadings();
  }
  // The spool file goes first: while the journal is there, what is left is known as one recording.
  spool_.End();
  const bool complete = result.kind == ChartWriteResult::Kind::kWritten || counter_ == 0;
  const KeptRows journal = !complete && RowsInMemory() ? journal_.Kept() : KeptRows{};
  if (result.kind == ChartWriteResult::Kind::kFailed && result.keptFile.empty()) {
    result.lost = counter_ - journal.rows;
    if (journal.rows > 0) result.keptFile = journal.fileName;
  }
  const bool rowsElsewhere = RowsInMemory() && !result.keptFile.empty() && result.keptFile != journal.fileName;
  journal_.End(!complete && !rowsElsewhere);
  rows_ = {};
  fileLock_.reset();
  state_ = RunState::kIdle;
  return result;
}

}  // namespace chartproject
