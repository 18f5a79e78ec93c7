// The order of looking decides: rows first, then the notes about them, which were written before.
#include "publish/recording_feed.h"

#include <array>
#include <charconv>
#include <utility>

#include "common/values/text.h"
#include "platform/run_time_error.h"
#include "recording/companion/companion_reader.h"
#include "recording/journal/journal.h"
#include "recording/journal/journal_reader.h"
#include "recording/journal/unfinished.h"

namespace chartproject {
namespace {

bool SameFile(const FileIdentity& one, const FileIdentity& other) noexcept {
  return one.volume == other.volume && one.index == other.index;
}

}  // namespace

std::string RecordingMark(const ChartHeader& header, const std::string& beside) {
  constexpr std::uint64_t kPrime = 1099511628211U;
  std::uint64_t digest = 14695981039346656037U;  // FNV-1a
  const auto add = [&digest](std::string_view text) {
    for (const char c : text) digest = (digest ^ static_cast<unsigned char>(c)) * kPrime;
    digest = (digest ^ static_cast<unsigned char>('\n')) * kPrime;
  };
  for (const std::string* text :
       {&header.DriveAddress, &header.NumberOfParameters, &header.PXXX1, &header.PXXX2, &header.PXXX3, &header.PXXX4,
        &header.ScanTime, &header.Unit, &header.StartDate, &header.StartTime, &beside}) {
    add(*text);
  }
  constexpr std::size_t kDigits = 16;
  std::array<char, kDigits> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), digest, kDigits).ptr;
  std::string mark(digits.data(), end);
  return std::string(kDigits - mark.size(), '0') + mark;
}

bool RecordingFeed::OpenRunning() {
  auto found = FindUnfinished(files_, codePage_, chartFile_);
  if (!found || !found->journal.begun) return false;
  journalName_ = found->journalFile;
  journalIdentity_ = found->journalIdentity;
  auto journal = OpenJournal();
  if (!journal) return false;
  if (found->journal.rows) {
    auto rows = OpenJournal();
    if (!rows) return false;
    parts_.push_back(std::make_unique<GrowingRows>(std::move(rows), *found->journal.rows, RowNumbers::kEachPoint));
  }
  header_ = found->journal.header;
  running_ = true;
  journal_ = std::make_unique<FileUpTo>(std::move(journal));
  journalLines_ = std::make_unique<LineReader>(*journal_, kLongestPointLine);
  FollowJournal();
  return !parts_.empty();
}

void RecordingFeed::OpenFinished() {
  auto file = files_.OpenForReading(chartFile_);
  ChartHeader header;
  if (ReadChartHeader(*file, codePage_, header).keys == 0) {
    throw RunTimeError(error_number::kInvalidFileFormat, Text::kNotAChartFile, {chartFile_});
  }
  file->Seek(0);
  const auto first = LocateRows(*file);
  if (!first) throw RunTimeError(error_number::kInvalidFileFormat, Text::kChartFileWithoutPoints, {chartFile_});
  companion_ = LoadCompanion(files_, chartFile_, header);
  header_ = header;
  running_ = false;
  journalLines_.reset();
  journal_.reset();
  parts_.clear();
  parts_.push_back(std::make_unique<GrowingRows>(std::move(file), *first, RowNumbers::kEachLine));
  parts_.front()->Refresh(false);
  part_ = 0;
  base_ = 0;
}

std::unique_ptr<InputFile> RecordingFeed::OpenJournal() {
  auto file = OpenIfThere(files_, journalName_);
  return file && SameFile(file->Identity(), journalIdentity_) ? std::move(file) : nullptr;
}

bool RecordingFeed::Follow() {
  if (!running_) return true;
  const bool there = OpenJournal() != nullptr;
  for (const auto& part : parts_) part->Refresh(true);
  FollowJournal();
  return there;
}

void RecordingFeed::FollowJournal() {
  journal_->Refresh(true);
  for (TextLine line; journalLines_->Next(line);) TakeJournalLine(line);
}

void RecordingFeed::TakeJournalLine(const TextLine& line) {
  noted_.Take(line.text);
  if (!line.text.starts_with(journal_line::kSpool) || gap_) return;
  const auto number = SideNumberIn(line.text);
  auto rows = number ? OpenIfThere(files_, SideFileName(chartFile_, kSpoolEnding, *number)) : nullptr;
  gap_ = rows == nullptr;
  if (rows) parts_.push_back(std::make_unique<GrowingRows>(std::move(rows), RowStart{1, 0}, RowNumbers::kEachLine));
}

bool RecordingFeed::Next(FedPoint& point) {
  for (PointLine line; part_ < parts_.size();) {
    GrowingRows& rows = *parts_[part_];
    if (rows.Next(line)) {
      point = {base_ + rows.Number(), line.row};
      return true;
    }
    if (part_ + 1 == parts_.size()) return false;
    // Its last rows may have come after it was looked at last, but before the next one was begun.
    rows.Refresh(true);
    if (rows.Next(line)) {
      point = {base_ + rows.Number(), line.row};
      return true;
    }
    base_ += rows.Passed();
    parts_[++part_]->Refresh(true);
    FollowJournal();
  }
  return false;
}

void RecordingFeed::GoTo(std::int64_t number, const std::function<bool()>& goOn) {
  base_ = 0;
  for (part_ = 0; part_ < parts_.size(); ++part_) {
    GrowingRows& rows = *parts_[part_];
    rows.GoTo(number - base_, goOn);
    if (base_ + rows.Passed() + 1 >= number || part_ + 1 == parts_.size()) return;
    base_ += rows.Passed();
  }
}

bool RecordingFeed::Failed(std::size_t column, std::int64_t number, bool zero) const {
  if (running_) return noted_.Failed(column, static_cast<std::int32_t>(number), zero);
  if (!companion_) return false;
  const FailedRange* const range = companion_->failed[column].Find(static_cast<std::int32_t>(number));
  return range != nullptr && (zero || range->failed == range->last - range->first + 1);
}

double RecordingFeed::Share() const noexcept {
  if (running_ || parts_.empty() || parts_.front()->Size() == 0) return 0;
  return static_cast<double>(parts_.front()->Offset()) / static_cast<double>(parts_.front()->Size());
}

}  // namespace chartproject
