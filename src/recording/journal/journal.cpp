// Appends what is new; after a failure, all that the file lacks.
#include "recording/journal/journal.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "common/values/text.h"
#include "recording/file/row_survey.h"

namespace chartproject {

namespace {

void AddLine(std::string& lines, std::string_view key, std::string_view value) {
  lines.append(key).append(value).append(kLineEnd);
}

std::string MomentLine(const DateTime& moment) {
  std::array<char, 80> text{};
  const int length = std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d", moment.year, moment.month,
                                   moment.day, moment.hour, moment.minute, moment.second);
  return {text.data(), static_cast<std::size_t>(length)};
}

}  // namespace

void RecordingJournal::Begin(const std::string& target, const ChartHeader& header,
                             std::int64_t millisecondsBetweenPoints, bool simulated) {
  End(false);
  target_ = target;
  parameters_ = ParametersOf(header);
  AddLine(head_, journal_line::kMark, {});
  AddLine(head_, journal_line::kVersion, {});
  AddLine(head_, journal_line::kInterval, std::to_string(millisecondsBetweenPoints));
  if (simulated) AddLine(head_, journal_line::kSimulated, {});
  for (const HeaderKey& entry : kHeaderKeys) {
    if (!(header.*entry.field).empty()) AddLine(head_, entry.key, header.*entry.field);
  }
  Save({});
}

void RecordingJournal::NoteFirstPoint(const ChartHeader& header, const DateTime& now, bool rowsHere) {
  AddLine(head_, "Start Date=", header.StartDate);
  AddLine(head_, "Start Time=", header.StartTime);
  AddLine(head_, journal_line::kBegun, MomentLine(now));
  if (rowsHere) AddLine(head_, kRowsMark, {});
}

void RecordingJournal::NoteSpool(int number) {
  AddLine(head_, journal_line::kSpool, std::to_string(number));
  Save({});
}

void RecordingJournal::NoteLostSpool(int number) {
  AddLine(head_, journal_line::kLost, std::to_string(number));
}

void RecordingJournal::Keep(std::span<const PointRow> rows, const FailedReadings& failed, std::int32_t point,
                            bool atOnce) {
  Save({rows, &failed, point, atOnce});
}

void RecordingJournal::Save(const State& state) {
  if (target_.empty()) return;
  try {
    if (!file_) MakeFile();
    try {
      SaveOnce(state);
    } catch (const SideFileLost&) {
      MakeFile();  // deletes what is left of the former one, if it has its name; the new file holds everything
      SaveOnce(state);
    }
    fault_.reset();
  } catch (const RunTimeError& error) {
    fault_ = error;
  }
}

/// The former file is given up only when there is a new one.
void RecordingJournal::MakeFile() {
  file_ = files_.MakeSideFile({.target = target_, .ending = kJournalEnding});
  paced_ = dynamic_cast<const PacedFile*>(file_.get());
  headSaved_ = 0;
  rowsSaved_ = 0;
  notesSaved_ = {};
}

void RecordingJournal::SaveOnce(const State& state) {
  const bool mayWait = !state.atOnce && !fault_ && headSaved_ == head_.size();
  if (mayWait && paced_ != nullptr && paced_->JustWritten()) return;
  std::string lines = head_.substr(headSaved_);
  // Notes first: who follows the file and sees a row knows whether its readings failed.
  FailureNotes notes = notesSaved_;
  if (state.failed != nullptr) lines += notes.Lines(*state.failed, parameters_, state.point);
  for (std::size_t row = rowsSaved_; row < state.rows.size(); ++row) AppendRowLine(lines, state.rows[row]);
  if (lines.empty()) return;
  file_->AppendAndMeasure(codePage_.Encode(lines));
  headSaved_ = head_.size();
  rowsSaved_ = std::max(rowsSaved_, state.rows.size());
  notesSaved_ = notes;
}

KeptRows RecordingJournal::Kept() const {
  try {
    if (!file_ || !file_->HasItsName()) return {};
    const auto file = file_->OpenForReading();
    return {file_->Name(), SurveyChartFile(*file).points};
  } catch (const RunTimeError&) {
    return {};  // it does not hold the rows as far as anybody can see
  }
}

void RecordingJournal::End(bool keep) {
  if (file_ && keep) file_->Keep();
  file_.reset();
  paced_ = nullptr;
  target_.clear();
  head_.clear();
  fault_.reset();
  headSaved_ = rowsSaved_ = 0;
  notesSaved_ = {};
}

}  // namespace chartproject
