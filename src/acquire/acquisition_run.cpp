// The recording: points are read, kept in memory or spooled, and written to the chart file at the end.
#include "acquire/acquisition_run.h"

#include "common/numbers.h"
#include "drive/display_value.h"
#include "drive/parameter_read.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

constexpr std::int16_t kStatusParameter = 6;

}  // namespace

std::string ReadColumnText(DriveContext& context, std::int16_t parameter) {
  std::string text;
  if (ReadSpecialParameter(context, parameter, text)) return text;
  text = "0";
  if (ReadOrdinary(context, parameter)) context.driveLink->GetText(text);
  const std::string& model = context.driveTable.At(context.currentDrive).Type;
  const bool asRead = model == "KRA-05" || model == "KRA-09" || parameter == kStatusParameter;
  return asRead ? text : DisplayValue(context, parameter, text, model);
}

void AcquisitionRun::Arm(const RunPlan& plan) {
  plan_ = plan;
  counter_ = 0;
  end_ = RunEnd::kNone;
  failureReason_.clear();
  state_ = RunState::kArmed;
}

void AcquisitionRun::BeginSampling(const RunPlan& plan) {
  Arm(plan);
  BeginSampling();
}

void AcquisitionRun::BeginSampling() {
  spoolFileName_ = SpoolFileName(plan_.fileName);
  rows_.assign(RowsInMemory() ? static_cast<std::size_t>(plan_.numberOfPoints) : 1, PointRow{});
  ChartHeader& header = component_.chartHeader;
  for (std::string* text : {&header.StartDate, &header.StartTime, &header.EndDate, &header.EndTime}) text->clear();
  state_ = RunState::kSampling;
}

void AcquisitionRun::TakePoint() {
  if (state_ != RunState::kSampling) return;
  component_.currentDrive = plan_.driveAddress;
  const DateTime now = component_.ports.clock.LocalNow();
  const std::int32_t number = counter_ + 1;
  PointRow& row = rows_[RowsInMemory() ? static_cast<std::size_t>(number - 1) : 0];
  bool diskNearlyFull = false;
  try {
    row.time = FormatTimeOfDay(now.hour, now.minute, now.second);
    ReadColumns(row);
    if (!RowsInMemory()) {
      KeepInSpool(row, number == 1);
      diskNearlyFull = freeSpace_ < kReservedSpace;
    }
  } catch (const RunTimeError& error) {
    // The link itself or the spool file failed: this point is lost, those before it are not.
    row = PointRow{};
    failureReason_ = error.Description();
    Stop(RunEnd::kFailed);
    return;
  }
  counter_ = number;
  Locale& locale = component_.ports.locale;
  if (number == 1) {
    component_.chartHeader.StartDate = locale.DateText(now);
    component_.chartHeader.StartTime = row.time;
  }
  if (number == plan_.numberOfPoints) {
    component_.chartHeader.EndDate = locale.DateText(now);
    component_.chartHeader.EndTime = row.time;
  }
  if (diskNearlyFull) {
    Stop(RunEnd::kDiskSpace);
  } else if (number == plan_.numberOfPoints) {
    FinishAs(RunEnd::kComplete);
  }
}

void AcquisitionRun::ReadColumns(PointRow& row) {
  for (int column = 0; column < kColumnCount; ++column) {
    const auto index = static_cast<std::size_t>(column);
    const std::int16_t parameter = plan_.columns[index];
    const bool inUse = parameter != kUnusedParameter && (column == 0 || column < plan_.parameterCount);
    if (inUse) row.values[index] = ReadColumnText(component_, parameter);
  }
}

void AcquisitionRun::KeepInSpool(const PointRow& row, bool first) {
  FileSystem& files = component_.ports.files;
  if (first && files.FileExists(spoolFileName_)) files.Delete(spoolFileName_);
  rowLine_.clear();
  AppendRowLine(rowLine_, row);
  const std::string bytes = component_.ports.codePage.Encode(rowLine_);
  if (component_.strChartFileName == plan_.fileName) {  // the spool file stands on the disk of its chart file
    freeSpace_ = files.AppendAndMeasure(spoolFileName_, bytes).totalFree;
  } else {
    files.Append(spoolFileName_, bytes);
    freeSpace_ = files.SpaceFor(component_.strChartFileName).totalFree;
  }
}

void AcquisitionRun::Stop(RunEnd reason) {
  if (!Active()) return;
  if (state_ == RunState::kSampling) {
    const DateTime now = component_.ports.clock.LocalNow();
    component_.chartHeader.EndDate = component_.ports.locale.DateText(now);
    component_.chartHeader.EndTime = component_.ports.locale.TimeText(now);
  }
  FinishAs(reason);
}

void AcquisitionRun::FinishAs(RunEnd reason) {
  end_ = reason;
  state_ = RunState::kFinished;
}

ChartWriteResult AcquisitionRun::Close(const std::function<void()>& keepAlive) {
  ChartWriteResult result;
  if (state_ != RunState::kFinished) return result;
  if (counter_ > 0) {
    const ChartFileWriter writer(component_.ports.files, component_.ports.codePage);
    result = RowsInMemory()
                 ? writer.WriteRows(plan_.fileName, component_.chartHeader, rows_, component_.settings.strFolder)
                 : writer.WriteSpool(plan_.fileName, component_.chartHeader, keepAlive);
  }
  rows_ = {};
  state_ = RunState::kIdle;
  return result;
}

}  // namespace chartproject
