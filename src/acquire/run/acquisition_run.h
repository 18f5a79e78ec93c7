// One recording: its plan, its state, the points taken, and what becomes of them.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "drive/parameter_read.h"
#include "recording/companion/companion.h"
#include "recording/file/chart_file.h"
#include "recording/file/chart_file_writer.h"
#include "recording/file/component.h"
#include "recording/journal/journal.h"
#include "recording/journal/recovery.h"
#include "recording/journal/run_spool.h"

namespace chartproject {

enum class RunState { kIdle, kArmed, kSampling, kFinished };

/// Why a recording ended.
enum class RunEnd {
  kNone,       ///< it has not ended, or was never started
  kComplete,   ///< the last point was taken
  kStopped,    ///< Esc, a closed window, or No after a communication error
  kDiskSpace,  ///< less than kReservedSpace was left on the disk
  kFailed,     ///< a row could not be kept
};

/// What a recording does; fixed when it is started.
struct RunPlan {
  std::string fileName;  ///< chart file
  std::int16_t driveAddress = 0;
  int parameterCount = 1;  ///< columns in use, 1 to 4
  std::array<std::int16_t, kColumnCount> columns{kUnusedParameter, kUnusedParameter, kUnusedParameter,
                                                 kUnusedParameter};
  std::int32_t numberOfPoints = 1;  ///< 1 to 2000000000
  std::int64_t millisecondsBetweenPoints = 1000;
  bool spacedByStopwatch = false;  ///< typed as hh:mm:ss: ticks of a second, counted by the stopwatch
};

/// Up to this many points are kept in memory; a longer run spools its rows to disk.
inline constexpr std::int32_t kMemoryLimit = 2500;

/// The state of one recording: columns, rows, dates. Its timers are RunController's.
/// States: kIdle -> Arm -> kArmed -> BeginSampling -> kSampling -> last point or Stop -> kFinished -> Close -> kIdle.
class AcquisitionRun {
 public:
  explicit AcquisitionRun(Component& component);

  /// Takes a chart file for the next run until Close; the file is not touched. A link is followed now, once.
  /// Points that an interrupted recording left beside it become a chart file of their own first, see Leftovers().
  /// Throws RunTimeError when no file can be made there, when the one that is there cannot be replaced, or when such
  /// points cannot be brought back.
  /// @param progress of bringing them back; what it throws leaves all as it was
  /// @return empty; or the lock file by which another recording has the chart file
  [[nodiscard]] std::string Reserve(const std::string& fileName, ReadProgress& progress);
  /// From kIdle. The component's chart header, filled in before, is the recording's from here on.
  void Arm(const RunPlan& plan);
  /// From kArmed.
  void BeginSampling();

  /// Takes one point: reads every column in use, keeps the row. Ends the run at its last point, when the disk is
  /// nearly full, or when the row could not be kept; End() says which. A link may let the user's input through while it
  /// waits for the drive: a point asked for meanwhile is not taken, and one whose run was stopped meanwhile is dropped.
  void TakePoint();

  /// Ends an armed or sampling run early; end date and time are those of this moment. Nothing in other states.
  void Stop(RunEnd reason);

  /// Writes the chart file of a finished run when at least one point was taken, and returns to kIdle.
  /// @param keepAlive called at intervals while a long spool file is copied; may be empty
  ChartWriteResult Close(const std::function<void()>& keepAlive = {});

  [[nodiscard]] RunState State() const noexcept { return state_; }
  /// A point is being read from the drive.
  [[nodiscard]] bool Reading() const noexcept { return reading_; }
  [[nodiscard]] bool Active() const noexcept { return state_ == RunState::kArmed || state_ == RunState::kSampling; }
  [[nodiscard]] RunEnd End() const noexcept { return end_; }
  [[nodiscard]] const RunPlan& Plan() const noexcept { return plan_; }
  /// Counts the runs armed, so that one run can be distinguished from the next.
  [[nodiscard]] std::uint32_t Serial() const noexcept { return serial_; }
  /// Number of the last point taken; 0 before the first.
  [[nodiscard]] std::int32_t Counter() const noexcept { return counter_; }
  /// Points that a crash leaves on the disk; as long as none can be kept there, those taken.
  [[nodiscard]] std::int32_t Kept() const noexcept;
  [[nodiscard]] bool RowsInMemory() const noexcept { return plan_.numberOfPoints <= kMemoryLimit; }
  /// What became of the points that were left beside the chart file, as found by the last Reserve.
  [[nodiscard]] const std::vector<RecoveryResult>& Leftovers() const noexcept { return leftovers_; }
  /// Why a crash would lose points now; nothing while it would not.
  [[nodiscard]] const std::optional<RunTimeError>& KeepingFault() const noexcept {
    return spool_.Fault() ? spool_.Fault() : journal_.Fault();
  }
  /// Set while the rows are in more than one file, because somebody removed, replaced or cut the one before.
  [[nodiscard]] const RunSpool& Spool() const noexcept { return spool_; }
  /// Free bytes found when the run ended with RunEnd::kDiskSpace.
  [[nodiscard]] std::uint64_t FreeSpace() const noexcept { return freeSpace_; }
  /// The system's reason for RunEnd::kFailed; empty when the watch for the event failed.
  [[nodiscard]] const std::string& FailureReason() const noexcept { return failureReason_; }

  /// Readings of the points taken that failed; also those of a point that ended the run, because the link object failed
  /// or its row could not be kept.
  [[nodiscard]] const FailedReadings& Failed() const noexcept { return failed_; }
  [[nodiscard]] const Pace& Timing() const noexcept { return pace_; }
  /// What the chart file cannot say of the points taken.
  [[nodiscard]] Companion Readings() const;
  /// Why the companion could not be saved when the run was closed; empty when there was no failure.
  [[nodiscard]] const std::string& CompanionFailure() const noexcept { return companionFailure_; }

 private:
  [[nodiscard]] bool ReadPoint(const DateTime& now);
  [[nodiscard]] ColumnReading ReadInto(std::size_t column);
  void NoteFailures(std::int32_t point);
  void KeepPoint(const DateTime& now, Instant at);
  void SaveReadings();
  void KeepInSpool();
  [[nodiscard]] ChartWriteResult WriteChartFile(const std::function<void()>& keepAlive);
  void FinishAs(RunEnd reason);

  Component& component_;
  RunState state_ = RunState::kIdle;
  RunEnd end_ = RunEnd::kNone;
  RunPlan plan_;
  std::unique_ptr<FileLock> fileLock_;
  ChartHeader header_;  ///< a copy: the component's header may change to another file during the recording
  std::uint32_t serial_ = 0;
  bool reading_ = false;
  std::string targetFile_;  ///< the plan's file, or the one that it leads to as a link
  std::vector<RecoveryResult> leftovers_;
  RecordingJournal journal_;
  RunSpool spool_;
  std::int32_t counter_ = 0;
  PointRow point_;                                  ///< the point being taken
  std::array<ReadOutcome, kColumnCount> outcomes_;  ///< of its readings
  FailedReadings failed_;
  Pace pace_;
  std::string companionFailure_;
  std::vector<PointRow> rows_;   ///< by point number minus 1; empty in spool mode
  std::string rowLine_;          ///< the row being spooled; kept for its capacity
  std::uint64_t freeSpace_ = 0;  ///< bytes, when it was last asked
  std::string failureReason_;
};

}  // namespace chartproject
